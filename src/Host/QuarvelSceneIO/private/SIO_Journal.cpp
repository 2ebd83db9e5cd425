// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changing several files at once. Order is all: bytes before the journal, the journal before the moves, the moves on
// the disk before the journal goes.
#include "QuarvelSceneIO/private/SIO_Journal.h"

#include "QuarvelSceneIO/private/SIO_PathInside.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

const QString kSIO_journalFile = QStringLiteral(".journal");
const QString kSIO_stagingFolder = QStringLiteral(".save");

namespace {

const QByteArray kFirstLine = "quarvel-journal 1";
const QByteArray kWrite = "write ";
const QByteArray kDelete = "delete ";
const QByteArray kEnd = "end ";
constexpr qint64 kLongestJournal = 64 * 1024 * 1024;

QString translated(const char* text)
{
    return QCoreApplication::translate("SIO_Journal", text);
}

QByteArray checksum(const QByteArray& text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex();
}

QString stagedPath(const QByteArray& name)
{
    return kSIO_stagingFolder + u'/' + QString::fromUtf8(name);
}

bool isInside(const QString& path)
{
    return SIO_pathInside(QString(), path).ok();
}

bool parseLine(const QByteArray& line, SIO_Journal& journal)
{
    if (line.startsWith(kDelete)) {
        journal.deletes << QString::fromUtf8(line.mid(kDelete.size()));
        return isInside(journal.deletes.back());
    }
    const auto space = line.indexOf(' ', kWrite.size());
    if (!line.startsWith(kWrite) || space < 0)
        return false;
    journal.writes.push_back(
        {stagedPath(line.mid(kWrite.size(), space - kWrite.size())), QString::fromUtf8(line.mid(space + 1))});
    return isInside(journal.writes.back().staged) && isInside(journal.writes.back().target);
}

// A link in a file's own place will be replaced; one above it would have the file written elsewhere.
bool isSafePlace(const QString& folder, const QString& relative)
{
    return SIO_staysInside(folder, QFileInfo(relative).path());
}

// Makes the folders between the scene's and a file.
UT_Result<void> makeFoldersFor(const QString& folder, const QString& relative, SIO_FileSystem& disk)
{
    for (auto slash = relative.indexOf(u'/'); slash >= 0; slash = relative.indexOf(u'/', slash + 1)) {
        const QString path = folder + u'/' + relative.left(slash);
        if (QFileInfo(path).isDir())
            continue;
        if (auto made = disk.makeFolder(path); !made)
            return made;
        if (auto synced = disk.sync(QFileInfo(path).path()); !synced)
            return synced;
    }
    return {};
}

// Collects the folders in which something was done.
class Carrier
{
public:
    Carrier(const QString& folder, SIO_FileSystem& disk) : _folder(folder), _disk(disk) {}

    UT_Result<void> carryOut(const SIO_Journal& journal)
    {
        for (const SIO_Journal::Write& write : journal.writes)
            if (auto done = moveInPlace(write); !done)
                return done;
        for (const QString& path : journal.deletes)
            if (auto done = remove(path); !done)
                return done;
        for (const QString& touched : _touched)
            if (auto done = _disk.sync(touched); QFileInfo(touched).isDir() && !done)
                return done;
        return {};
    }

private:
    UT_Result<void> moveInPlace(const SIO_Journal::Write& write)
    {
        const QString staged = _folder + u'/' + write.staged;
        const QString target = _folder + u'/' + write.target;
        if (!SIO_staysInside(_folder, write.staged) || !isSafePlace(_folder, write.target))
            return UT_Error{translated("\"%1\" leads out of the scene's folder").arg(write.target)};
        if (!QFileInfo::exists(staged)) {
            if (QFileInfo::exists(target))
                return {};
            return UT_Error{translated("\"%1\" is missing").arg(QDir::toNativeSeparators(staged))};
        }
        if (auto made = makeFoldersFor(_folder, write.target, _disk); !made)
            return made;
        _touched.insert(QFileInfo(target).path());
        return _disk.rename(staged, target);
    }

    UT_Result<void> remove(const QString& relative)
    {
        const QString path = _folder + u'/' + relative;
        const QString parent = QFileInfo(path).path();
        if (!isSafePlace(_folder, relative))
            return UT_Error{translated("\"%1\" leads out of the scene's folder").arg(relative)};
        if (auto removed = _disk.removeFile(path); !removed)
            return removed;
        _touched.insert(parent);
        if (parent == _folder)
            return {};
        // An element's folder goes with its last drawing.
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
    if (!QFileInfo::exists(staging))
        return {};
    if (!SIO_staysInside(folder, kSIO_stagingFolder) || QFileInfo(staging).isSymLink())
        return UT_Error{translated("\"%1\" leads out of the scene's folder; remove it").arg(staging)};
    const auto names = QDir(staging).entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& name : names)
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
    if (auto done = disk.sync(folder); !done)
        return done;
    return dropStaging(folder, disk);
}

bool hasBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.size() == bytes.size() && file.open(QIODevice::ReadOnly) && file.readAll() == bytes;
}

// Writes the new files into the staging folder, and the journal with them.
UT_Result<SIO_Journal> stage(const QString& folder, const QMap<QString, QByteArray>& files, const QStringList& deletes,
                             SIO_FileSystem& disk)
{
    const QString staging = folder + u'/' + kSIO_stagingFolder;
    if (const auto made = disk.makeFolder(staging); !made)
        return made.error();
    SIO_Journal journal;
    journal.deletes = deletes;
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        const QString staged = stagedPath(QByteArray::number(static_cast<qulonglong>(journal.writes.size())));
        if (const auto written = disk.writeFile(folder + u'/' + staged, file.value()); !written)
            return written.error();
        journal.writes.push_back({staged, file.key()});
    }
    if (const auto written = disk.writeFile(staging + QStringLiteral("/journal"), SIO_journalText(journal)); !written)
        return written.error();
    if (const auto synced = disk.sync(staging); !synced)
        return synced.error();
    return journal;
}

// The moment that decides.
UT_Result<void> commit(const QString& folder, SIO_FileSystem& disk)
{
    const QString journal = folder + u'/' + kSIO_journalFile;
    if (auto renamed = disk.rename(folder + u'/' + kSIO_stagingFolder + QStringLiteral("/journal"), journal); !renamed)
        return renamed;
    const auto synced = disk.sync(folder);
    if (synced)
        return {};
    // Nobody knows whether the name is on the disk. It must not be when the save is said to have failed; where it
    // cannot be taken back, the save counts.
    if (disk.removeFile(journal) || !QFileInfo::exists(journal))
        return synced;
    return {};
}

} // namespace

QByteArray SIO_journalText(const SIO_Journal& journal)
{
    QByteArray text = kFirstLine + '\n';
    for (const SIO_Journal::Write& write : journal.writes)
        text += kWrite + write.staged.mid(kSIO_stagingFolder.size() + 1).toUtf8() + ' ' + write.target.toUtf8() + '\n';
    for (const QString& path : journal.deletes)
        text += kDelete + path.toUtf8() + '\n';
    return text + kEnd + checksum(text) + '\n';
}

std::optional<SIO_Journal> SIO_parseJournal(const QByteArray& text)
{
    const auto end = text.lastIndexOf('\n' + kEnd) + 1;
    if (end <= 0 || text.mid(end) != kEnd + checksum(text.left(end)) + '\n')
        return std::nullopt;
    QList<QByteArray> lines = text.left(end - 1).split('\n');
    if (lines.takeFirst() != kFirstLine)
        return std::nullopt;
    SIO_Journal journal;
    for (const QByteArray& line : std::as_const(lines))
        if (!parseLine(line, journal))
            return std::nullopt;
    return journal;
}

UT_Result<std::optional<SIO_Journal>> SIO_waitingJournal(const QString& folder)
{
    const QString path = folder + u'/' + kSIO_journalFile;
    QFile file(path);
    if (!file.exists())
        return std::optional<SIO_Journal>();
    const bool readable = file.size() <= kLongestJournal && file.open(QIODevice::ReadOnly);
    // Whoever carries it out may be done with it in between.
    if (!readable && !QFileInfo::exists(path))
        return std::optional<SIO_Journal>();
    auto journal = readable ? SIO_parseJournal(file.readAll()) : std::nullopt;
    if (!journal)
        return UT_Error{translated("\"%1\" is damaged; a save was cut short there. Take it away to see the scene "
                                   "without that save")
                            .arg(QDir::toNativeSeparators(path))};
    return journal;
}

UT_Result<void> SIO_recover(const QString& folder, SIO_FileSystem& disk)
{
    const auto journal = SIO_waitingJournal(folder);
    if (!journal)
        return journal.error();
    return *journal ? finish(folder, **journal, disk) : dropStaging(folder, disk);
}

UT_Result<void> SIO_changeFiles(const QString& folder, const QMap<QString, QByteArray>& files,
                                const QStringList& deletes, SIO_FileSystem& disk)
{
    QMap<QString, QByteArray> changed;
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        const QString path = folder + u'/' + file.key();
        if (!isSafePlace(folder, file.key()) || QFileInfo(path).isDir())
            return UT_Error{translated("\"%1\" is no place for a file of the scene: a link or a folder is in the way")
                                .arg(QDir::toNativeSeparators(path))};
        if (!SIO_staysInside(folder, file.key()) || !hasBytes(path, file.value()))
            changed.insert(file.key(), file.value());
    }
    if (changed.isEmpty() && deletes.isEmpty())
        return {};
    const auto journal = stage(folder, changed, deletes, disk);
    const auto committed = journal ? commit(folder, disk) : UT_Result<void>(journal.error());
    if (!committed) {
        (void)dropStaging(folder, disk);
        return committed;
    }
    // The new scene counts from here on. What cannot be put in place now is read from where it is.
    (void)finish(folder, *journal, disk);
    return {};
}

bool SIO_staysInside(const QString& folder, const QString& relative)
{
    const QString home = QFileInfo(folder).canonicalFilePath();
    if (home.isEmpty())
        return false;
    // The deepest part that exists says where the rest would be. A link to nowhere exists for this purpose.
    for (QString path = relative; !path.isEmpty(); path = path.left(path.lastIndexOf(u'/'))) {
        const QFileInfo info(folder + u'/' + path);
        if (info.exists()) {
            const QString real = info.canonicalFilePath();
            return real == home || real.startsWith(home.endsWith(u'/') ? home : home + u'/');
        }
        if (info.isSymLink())
            return false;
        if (!path.contains(u'/'))
            break;
    }
    return true;
}
