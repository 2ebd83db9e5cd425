// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes several files at once. The order is what makes this safe: the new files reach the disk before the journal,
// the journal before any file is moved, and the moves before the journal is removed.
#include "QuarvelSceneIO/private/SIO_Journal.h"

#include "QuarvelSceneIO/private/SIO_JournalSeal.h"
#include "QuarvelSceneIO/private/SIO_Limits.h"
#include "QuarvelSceneIO/private/SIO_SafeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 kLongestJournal = 64 * 1024 * 1024;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_Journal)
};

// Whether no folder above the file is a link, which would redirect the file. A link at the file's own path is harmless,
// because it is replaced.
bool isSafePlace(const QString& folder, const QString& relative)
{
    const auto slash = relative.lastIndexOf(u'/');
    return SIO_hasNoLinks(folder, slash < 0 ? QString() : relative.left(slash));
}

// Carries out a journal: makes the missing folders and forces them to the disk, moves and removes files, and forces the
// changed folders to the disk. Each of the two is done for all folders together, since a scene may have thousands.
class Carrier
{
public:
    Carrier(const QString& folder, SIO_FileSystem& disk) : _folder(folder), _disk(disk) {}

    UT_Result<void> carryOut(const SIO_Journal& journal)
    {
        std::vector<const SIO_Journal::Write*> waiting;
        for (const SIO_Journal::Write& write : journal.writes) {
            const auto waits = isWaiting(write);
            if (!waits)
                return waits.error();
            if (*waits)
                waiting.push_back(&write);
        }
        for (const SIO_Journal::Write* const write : waiting)
            if (auto done = makeFoldersFor(write->target); !done)
                return done;
        if (auto done = syncTouched(); !done)
            return done;
        for (const SIO_Journal::Write* const write : waiting) {
            const QString target = _folder + u'/' + write->target;
            _touched.insert(QFileInfo(target).path());
            if (auto done = _disk.rename(_folder + u'/' + write->staged, target); !done)
                return done;
        }
        for (const QString& path : journal.deletes)
            if (auto done = remove(path); !done)
                return done;
        return syncTouched();
    }

private:
    // Whether a file is still to be moved; if not, it is in its place already.
    UT_Result<bool> isWaiting(const SIO_Journal::Write& write) const
    {
        const QString staged = _folder + u'/' + write.staged;
        if (!SIO_hasNoLinks(_folder, write.staged) || !isSafePlace(_folder, write.target))
            return UT_Error{Texts::tr("\"%1\" is reached through a link").arg(write.target)};
        if (QFileInfo::exists(staged))
            return true;
        if (QFileInfo::exists(_folder + u'/' + write.target))
            return false;
        return UT_Error{Texts::tr("\"%1\" is missing").arg(QDir::toNativeSeparators(staged))};
    }

    // Makes the folders between the scene's folder and a file.
    UT_Result<void> makeFoldersFor(const QString& relative)
    {
        for (auto slash = relative.indexOf(u'/'); slash >= 0; slash = relative.indexOf(u'/', slash + 1)) {
            const QString path = _folder + u'/' + relative.left(slash);
            if (QFileInfo(path).isDir())
                continue;
            if (auto made = _disk.makeFolder(path); !made)
                return made;
            _touched.insert(QFileInfo(path).path());
        }
        return {};
    }

    UT_Result<void> syncTouched()
    {
        QStringList folders;
        for (const QString& folder : std::as_const(_touched))
            if (QFileInfo(folder).isDir())
                folders << folder;
        _touched.clear();
        // In an order of their own, so that the same save does the same in every run.
        folders.sort();
        return folders.isEmpty() ? UT_Result<void>() : _disk.sync(folders);
    }

    UT_Result<void> remove(const QString& relative)
    {
        const QString path = _folder + u'/' + relative;
        const QString parent = QFileInfo(path).path();
        if (!isSafePlace(_folder, relative))
            return UT_Error{Texts::tr("\"%1\" is reached through a link").arg(relative)};
        if (auto removed = _disk.removeFile(path); !removed)
            return removed;
        _touched.insert(parent);
        if (parent == _folder)
            return {};
        // An element's folder is removed with its last drawing.
        _touched.insert(QFileInfo(parent).path());
        return _disk.removeFolder(parent);
    }

    QString _folder;
    SIO_FileSystem& _disk;
    QSet<QString> _touched;
};

UT_Result<void> dropStaging(const QString& folder, SIO_FileSystem& disk)
{
    const QString staging = folder + u'/' + kSIO_stagingFolder;
    if (!SIO_hasNoLinks(folder, kSIO_stagingFolder))
        return UT_Error{Texts::tr("\"%1\" is a link; remove it").arg(QDir::toNativeSeparators(staging))};
    if (!QFileInfo::exists(staging))
        return {};
    // Removes only files that a save has made.
    const auto names = QDir(staging).entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& name : names)
        if (SIO_isStagedName(name))
            if (auto removed = disk.removeFile(staging + u'/' + name); !removed)
                return removed;
    return disk.removeFolder(staging);
}

UT_Result<void> finish(const QString& folder, const SIO_Journal& journal, SIO_FileSystem& disk)
{
    if (auto done = Carrier(folder, disk).carryOut(journal); !done)
        return done;
    if (auto done = disk.removeFile(folder + u'/' + kSIO_journalFile); !done)
        return done;
    if (auto done = disk.sync({folder}); !done)
        return done;
    return dropStaging(folder, disk);
}

bool hasBytes(const QString& folder, const QString& relative, const QByteArray& bytes)
{
    const auto there = SIO_readInside(folder, relative, bytes.size());
    return there && *there == bytes;
}

// Writes the new files and the journal into the staging folder.
UT_Result<SIO_Journal> stage(const QString& folder, const QMap<QString, QByteArray>& files,
                             const QMap<QString, QByteArray>& digests, const QStringList& deletes, SIO_FileSystem& disk,
                             const SIO_Progress& goOn)
{
    const QString staging = folder + u'/' + kSIO_stagingFolder;
    if (const auto made = disk.makeFolder(staging); !made)
        return made.error();
    // Otherwise a crash of the machine could leave a journal whose staging folder is missing.
    if (const auto synced = disk.sync({folder}); !synced)
        return synced.error();
    QStringList made;
    SIO_Journal journal;
    journal.deletes = deletes;
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        if (goOn && !goOn(static_cast<double>(journal.writes.size()) / static_cast<double>(files.size())))
            return UT_stopped();
        const QString staged = SIO_stagedPath(QByteArray::number(static_cast<qulonglong>(journal.writes.size())));
        if (const auto written = disk.writeFile(folder + u'/' + staged, file.value()); !written)
            return written.error();
        made << folder + u'/' + staged;
        journal.writes.push_back({staged, file.key(), digests.value(file.key())});
    }
    const auto text = SIO_sealed(SIO_journalText(journal), folder);
    if (!text)
        return text.error();
    made << staging + QStringLiteral("/journal");
    if (const auto written = disk.writeFile(made.last(), *text); !written)
        return written.error();
    if (const auto synced = disk.sync(made << staging); !synced)
        return synced.error();
    return journal;
}

// Renames the journal. From this moment the new scene is valid.
UT_Result<void> commit(const QString& folder, SIO_FileSystem& disk)
{
    const QString journal = folder + u'/' + kSIO_journalFile;
    if (auto renamed = disk.rename(folder + u'/' + kSIO_stagingFolder + QStringLiteral("/journal"), journal); !renamed)
        return renamed;
    auto synced = disk.sync({folder});
    if (synced)
        return {};
    // It is unknown whether the new name has reached the disk. Before the save is reported as failed, the journal must
    // be removed; if that fails, the save is valid.
    if (disk.removeFile(journal) || !QFileInfo::exists(journal))
        return synced;
    return {};
}

// Whether the staged files are the ones that the journal lists. A missing file has been moved into place already.
bool hasItsFiles(const QString& folder, const SIO_Journal& journal)
{
    return std::all_of(journal.writes.begin(), journal.writes.end(), [&](const SIO_Journal::Write& write) {
        const auto bytes = SIO_readInside(folder, write.staged, SIO_maxBytesOf(write.target));
        return bytes && (!*bytes || SIO_digest(**bytes) == write.digest);
    });
}

QString reasonToLeaveAlone(const QString& folder)
{
    return Texts::tr("\"%1\" is a save that was cut short, but not one that you began in this folder on this machine; "
                     "it was left alone. Open the scene where it was saved, or remove \".journal\" and \".save\"")
        .arg(QDir::toNativeSeparators(folder + u'/' + kSIO_journalFile));
}

} // namespace

UT_Result<SIO_WaitingJournal> SIO_waitingJournal(const QString& folder)
{
    const auto bytes = SIO_readInside(folder, kSIO_journalFile, kLongestJournal);
    if (!bytes)
        return bytes.error();
    if (!*bytes)
        return SIO_WaitingJournal();
    const auto text = SIO_unsealed(**bytes, folder);
    auto journal = text ? SIO_parseJournal(*text) : std::nullopt;
    if (!journal || !hasItsFiles(folder, *journal))
        return SIO_WaitingJournal{std::nullopt, reasonToLeaveAlone(folder)};
    return SIO_WaitingJournal{std::move(journal), {}};
}

UT_Result<void> SIO_recover(const QString& folder, SIO_FileSystem& disk)
{
    const auto waiting = SIO_waitingJournal(folder);
    if (!waiting)
        return waiting.error();
    if (!waiting->leftAlone.isEmpty())
        return UT_Error{waiting->leftAlone};
    return waiting->own ? finish(folder, *waiting->own, disk) : dropStaging(folder, disk);
}

UT_Result<void> SIO_changeFiles(const QString& folder, const QMap<QString, QByteArray>& files,
                                const QMap<QString, QByteArray>& digests, const QStringList& deletes,
                                SIO_FileSystem& disk, const SIO_Progress& goOn)
{
    QMap<QString, QByteArray> changed;
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        if (goOn && !goOn(0.0))
            return UT_stopped();
        const QString path = folder + u'/' + file.key();
        if (!SIO_isScenePath(file.key()) || !isSafePlace(folder, file.key()) || QFileInfo(path).isDir())
            return UT_Error{Texts::tr("\"%1\" is not a place for a file of the scene: a link or a folder is in the way")
                                .arg(QDir::toNativeSeparators(path))};
        if (!hasBytes(folder, file.key(), file.value()))
            changed.insert(file.key(), file.value());
    }
    if (changed.isEmpty() && deletes.isEmpty())
        return {};
    const auto journal = stage(folder, changed, digests, deletes, disk, goOn);
    auto committed = journal ? commit(folder, disk) : UT_Result<void>(journal.error());
    if (!committed) {
        (void)dropStaging(folder, disk);
        return committed;
    }
    // The new scene is valid from here on. Files that cannot be moved into place now are read from the staging folder.
    (void)finish(folder, *journal, disk);
    return {};
}
