// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Saving. All files are made in memory first, so that a scene that cannot be saved is refused before the disk is
// touched.
#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "QuarvelSceneIO/private/SIO_FolderLock.h"
#include "QuarvelSceneIO/private/SIO_FolderReader.h"
#include "QuarvelSceneIO/private/SIO_Index.h"
#include "QuarvelSceneIO/private/SIO_Limits.h"
#include "QuarvelSceneIO/private/SIO_SafeFile.h"
#include "QuarvelSceneIO/private/SIO_Saving.h"
#include "QuarvelSceneIO/private/SIO_SceneFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_SaveScene)
};

// The files that belong to the scene on the disk; none when it is damaged, since then nobody knows.
UT_Result<QStringList> filesOnDisk(const QString& folder)
{
    SIO_FolderReader files(folder);
    const auto bytes = files.read(kSIO_mainFile);
    if (!bytes)
        return QStringList();
    const SIO_XmlContext context(files.shown(kSIO_mainFile), nullptr);
    const auto document = PO_parseDocument(*bytes, context.file(), SIO_maxPartsOf(kSIO_mainFile));
    if (!document)
        return QStringList();
    if (!SIO_isMainFile(document->documentElement()))
        return UT_Error{Texts::tr("\"%1\" belongs to another program; name another folder").arg(context.file())};
    const auto index = SIO_readIndex(document->documentElement(), context);
    return index ? index->paths() : QStringList();
}

// What the scene on the disk has and the new one does not.
QStringList leftOver(const QString& folder, const QStringList& before, const QMap<QString, QByteArray>& files)
{
    QHash<QString, QString> byLowerCase;
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        byLowerCase.insert(file.key().toLower(), file.key());
    QStringList result;
    for (const QString& path : before) {
        const QString real = SIO_inAnyCase(folder + u'/' + path).mid(folder.size() + 1);
        if (files.contains(real) || !SIO_hasNoLinks(folder, real))
            continue;
        // Where case does not count, it is the file about to be replaced.
        const QString same = byLowerCase.value(real.toLower());
        if (QFileInfo::exists(folder + u'/' + real) && (same.isEmpty() || !QFileInfo::exists(folder + u'/' + same)))
            result << real;
    }
    return result;
}

UT_Result<void> saveFiles(const QMap<QString, QByteArray>& files, const QString& folder, SIO_FileSystem& disk)
{
    SIO_FolderLock lock(folder);
    if (auto locked = lock.lock(); !locked)
        return locked;
    if (auto recovered = SIO_recover(folder, disk); !recovered)
        return recovered;
    const auto before = filesOnDisk(folder);
    if (!before)
        return before.error();
    return SIO_changeFiles(folder, files, leftOver(folder, *before, files), disk);
}

} // namespace

UT_Result<void> SIO_saveSceneOn(const MO_Scene& scene, const QString& folder, SIO_FileSystem& disk)
{
    const QString home = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    const auto files = SIO_sceneFiles(scene);
    if (!files)
        return files.error();
    const bool isNew = !QFileInfo::exists(home);
    if (isNew) {
        if (auto made = disk.makeFolder(home); !made)
            return made;
        if (auto synced = disk.sync(QFileInfo(home).path()); !synced) {
            (void)disk.removeFolder(home);
            return synced;
        }
    } else if (!QFileInfo(home).isDir()) {
        return UT_Error{Texts::tr("\"%1\" is a file; a scene is a folder").arg(QDir::toNativeSeparators(home))};
    }
    auto saved = saveFiles(*files, home, disk);
    if (!saved && isNew)
        (void)disk.removeFolder(home);
    return saved;
}

UT_Result<void> SIO_saveScene(const MO_Scene& scene, const QString& folder)
{
    SIO_FileSystem disk;
    return SIO_saveSceneOn(scene, folder, disk);
}
