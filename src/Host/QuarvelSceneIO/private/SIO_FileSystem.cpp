// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The real disk.
#include "QuarvelSceneIO/private/SIO_FileSystem.h"

#include "QuarvelBaseCore/UT_DiskSync.h"
#include "QuarvelBaseCore/UT_NativePath.h"
#include "QuarvelBaseCore/UT_SystemError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace {

UT_Error failure(const char* text, const QString& path, const QString& reason)
{
    return {QCoreApplication::translate("SIO_FileSystem", text).arg(QDir::toNativeSeparators(path), reason)};
}

UT_Error cannotWrite(const QString& path, int error, const QString& reason)
{
    if (!UT_saysDiskIsFull(error))
        return failure(QT_TRANSLATE_NOOP("SIO_FileSystem", "cannot write \"%1\": %2"), path, reason);
    UT_Error full =
        failure(QT_TRANSLATE_NOOP("SIO_FileSystem", "cannot write \"%1\": %2"), path,
                QCoreApplication::translate("SIO_FileSystem", "the disk is full; free some space and try again"));
    full.kind = UT_ErrorKind::DISK_FULL;
    return full;
}

bool writeAll(QFile& file, const QByteArray& bytes)
{
    for (qint64 written = 0; written < bytes.size();) {
        const qint64 step = file.write(bytes.constData() + written, bytes.size() - written);
        if (step <= 0)
            return false;
        written += step;
    }
    return true;
}

} // namespace

SIO_FileSystem::~SIO_FileSystem() = default;

UT_Result<void> SIO_FileSystem::makeFolder(const QString& path)
{
    if (QDir().mkdir(path))
        return {};
    const QString reason = qt_error_string();
    if (QFileInfo(path).isDir())
        return {};
    return failure(QT_TRANSLATE_NOOP("SIO_FileSystem", "cannot make the folder \"%1\": %2"), path, reason);
}

UT_Result<void> SIO_FileSystem::writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    // Unbuffered, so that every failed write shows at once and with its own reason. NewOnly, so that nothing is written
    // through a link with this name.
    UT_setSystemError(0);
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered) && writeAll(file, bytes))
        return {};
    const int error = UT_systemError();
    return cannotWrite(path, error, file.errorString());
}

UT_Result<void> SIO_FileSystem::rename(const QString& from, const QString& to)
{
    std::error_code error;
    std::filesystem::rename(UT_nativePath(from), UT_nativePath(to), error);
    if (!error)
        return {};
    QString reason = QString::fromStdString(error.message());
#ifdef Q_OS_WIN
    // A program can keep others from replacing the file that it has open, and the system says only that it is not
    // permitted.
    reason = QCoreApplication::translate("SIO_FileSystem", "%1; close the programs that have it open").arg(reason);
#endif
    return failure(QT_TRANSLATE_NOOP("SIO_FileSystem", "cannot put \"%1\" in place: %2"), to, reason);
}

UT_Result<void> SIO_FileSystem::removeFile(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isSymLink() && !info.exists())
        return {};
    if (!info.isSymLink() && info.isDir())
        return failure(QT_TRANSLATE_NOOP("SIO_FileSystem", "cannot remove \"%1\": %2"), path,
                       QCoreApplication::translate("SIO_FileSystem", "it is a folder"));
    QFile file(path);
    if (!file.remove())
        return failure(QT_TRANSLATE_NOOP("SIO_FileSystem", "cannot remove \"%1\": %2"), path, file.errorString());
    return {};
}

UT_Result<void> SIO_FileSystem::removeFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (folder.isSymLink() || !folder.isDir() ||
        !QDir(path).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        return {};
    if (!QDir().rmdir(path))
        return failure(QT_TRANSLATE_NOOP("SIO_FileSystem", "cannot remove the folder \"%1\": %2"), path,
                       qt_error_string());
    return {};
}

UT_Result<void> SIO_FileSystem::sync(const QStringList& paths)
{
    const std::optional<QString> missing = UT_syncPaths(paths);
    if (!missing)
        return {};
    const int error = UT_systemError();
    return cannotWrite(*missing, error, qt_error_string(error));
}
