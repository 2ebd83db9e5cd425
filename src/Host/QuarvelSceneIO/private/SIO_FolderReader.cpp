// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads a scene's files.
#include "QuarvelSceneIO/private/SIO_FolderReader.h"

#include "QuarvelSceneIO/private/SIO_Limits.h"
#include "QuarvelSceneIO/private/SIO_PathInside.h"
#include "QuarvelSceneIO/private/SIO_SafeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_FolderReader)
};

} // namespace

QString SIO_inAnyCase(const QString& path)
{
    const QFileInfo info(path);
    if (info.exists())
        return path;
    const QString stem = path.left(path.size() - info.suffix().size());
    for (const QString& suffix : {info.suffix().toLower(), info.suffix().toUpper()})
        if (QFileInfo::exists(stem + suffix))
            return stem + suffix;
    return path;
}

SIO_SceneState SIO_stateOf(const QMap<QString, QByteArray>& digests)
{
    QByteArray text;
    for (auto file = digests.cbegin(); file != digests.cend(); ++file)
        text += file.value() + ' ' + file.key().toUtf8() + '\n';
    return {SIO_digest(text)};
}

SIO_FolderReader::Stamp SIO_FolderReader::stampOf(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return {};
    Stamp stamp{info.size(), info.lastModified(), 0};
#ifdef Q_OS_UNIX
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) == 0)
        stamp.node = status.st_ino;
#endif
    return stamp;
}

UT_Result<void> SIO_FolderReader::open()
{
    _staged.clear();
    _seen.clear();
    _digests.clear();
    _journal = stampOf(_folder + u'/' + kSIO_journalFile);
    const auto waiting = SIO_waitingJournal(_folder);
    if (!waiting)
        return waiting.error();
    _leftAlone = waiting->leftAlone;
    if (waiting->own)
        for (const SIO_Journal::Write& write : waiting->own->writes)
            _staged.insert(write.target, write.staged);
    return {};
}

QString SIO_FolderReader::shown(const QString& relative) const
{
    return QDir::toNativeSeparators(_folder + u'/' + relative);
}

// The path of a file's bytes within the folder: the staged file until it is moved into place.
QString SIO_FolderReader::placeOf(const QString& relative) const
{
    const auto staged = _staged.constFind(relative);
    if (staged != _staged.constEnd() && QFileInfo::exists(_folder + u'/' + *staged))
        return *staged;
    return SIO_inAnyCase(_folder + u'/' + relative).mid(_folder.size() + 1);
}

UT_Result<QByteArray> SIO_FolderReader::read(const QString& relative)
{
    const QString place = placeOf(relative);
    const QString path = _folder + u'/' + place;
    _seen.insert(path, stampOf(path));
    if (!SIO_pathInside(_folder, relative))
        return UT_Error{Texts::tr("\"%1\" leads out of the scene's folder").arg(shown(relative))};
    auto bytes = SIO_readInside(_folder, place, SIO_maxBytesOf(relative));
    if (!bytes)
        return bytes.error();
    if (!*bytes)
        return UT_Error{Texts::tr("\"%1\" is missing").arg(shown(relative))};
    _digests.insert(relative, SIO_digest(**bytes));
    return std::move(**bytes);
}

SIO_SceneState SIO_FolderReader::state() const
{
    return SIO_stateOf(_digests);
}

bool SIO_FolderReader::isUnchanged() const
{
    if (stampOf(_folder + u'/' + kSIO_journalFile) != _journal)
        return false;
    for (auto seen = _seen.cbegin(); seen != _seen.cend(); ++seen)
        if (stampOf(seen.key()) != seen.value())
            return false;
    return true;
}
