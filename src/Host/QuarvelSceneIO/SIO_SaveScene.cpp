// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Saves scenes. All files are made in memory first, so that a scene that cannot be saved is refused before the disk is
// changed.
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

#include <algorithm>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_SaveScene)
};

// The paths of the files that belong to the scene on the disk; empty if there is no scene, or if its main file is
// damaged, so that they are unknown. A main file that cannot be read is an error, because the old scene's files would
// never be removed.
UT_Result<QStringList> filesOnDisk(const QString& folder)
{
    SIO_FolderReader files(folder);
    const auto there = SIO_readInside(folder, kSIO_mainFile, SIO_maxBytesOf(kSIO_mainFile));
    if (!there)
        return there.error();
    if (!*there)
        return QStringList();
    const SIO_XmlContext context(files.shown(kSIO_mainFile), nullptr);
    const auto document = PO_parseDocument(**there, context.file(), SIO_maxPartsOf(kSIO_mainFile));
    if (!document)
        return QStringList();
    if (!SIO_isMainFile(document->documentElement()))
        return UT_Error{Texts::tr("\"%1\" belongs to another program; name another folder").arg(context.file())};
    const auto index = SIO_readIndex(document->documentElement(), context);
    return index ? index->paths() : QStringList();
}

// The state of the scene in the folder; empty if a file cannot be read, since nobody can have loaded such a scene.
UT_Result<SIO_SceneState> stateOnDisk(const QString& folder, const QStringList& paths, const SIO_Progress& goOn)
{
    SIO_FolderReader files(folder);
    for (const QString& path : QStringList(kSIO_mainFile) + paths) {
        if (goOn && !goOn(0.0))
            return UT_stopped();
        if (!files.read(path))
            return SIO_SceneState();
    }
    return files.state();
}

// The files of the scene on the disk that the new scene does not have.
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
        // On a disk that ignores case, this file is the one that will be replaced.
        const QString same = byLowerCase.value(real.toLower());
        if (QFileInfo::exists(folder + u'/' + real) && (same.isEmpty() || !QFileInfo::exists(folder + u'/' + same)))
            result << real;
    }
    return result;
}

// @return std::nullopt if a state is expected and the folder has another one
UT_Result<std::optional<SIO_SceneState>> saveFiles(const QMap<QString, QByteArray>& files, const QString& folder,
                                                   const SIO_SceneState* expected, SIO_FileSystem& disk,
                                                   const SIO_Progress& goOn)
{
    SIO_FolderLock lock(folder);
    if (const auto locked = lock.lock([&] { return !goOn || goOn(0.0); }); !locked)
        return locked.error();
    if (const auto recovered = SIO_recover(folder, disk); !recovered)
        return recovered.error();
    const auto before = filesOnDisk(folder);
    if (!before)
        return before.error();
    if (expected) {
        const auto state = stateOnDisk(folder, *before, goOn);
        if (!state)
            return state.error();
        if (*state != *expected)
            return std::optional<SIO_SceneState>();
    }
    const QMap<QString, QByteArray> digests = SIO_digests(files);
    if (const auto changed = SIO_changeFiles(folder, files, digests, leftOver(folder, *before, files), disk, goOn);
        !changed)
        return changed.error();
    return std::optional(SIO_stateOf(digests));
}

UT_Result<std::optional<SIO_SceneState>> save(const MO_Scene& scene, const QString& folder,
                                              const SIO_SceneState* expected, SIO_FileSystem& disk,
                                              const SIO_Progress& goOn = {})
{
    // Making the files and writing them take about as long.
    const auto firstHalf = [&](double done) { return !goOn || goOn(done / 2.0); };
    const auto secondHalf = [&](double done) { return !goOn || goOn((1.0 + done) / 2.0); };
    const QString home = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    const auto files = SIO_sceneFiles(scene, home, firstHalf);
    if (!files)
        return files.error();
    const bool isNew = !QFileInfo::exists(home);
    if (isNew) {
        if (const auto made = disk.makeFolder(home); !made)
            return made.error();
        if (const auto synced = disk.sync({QFileInfo(home).path()}); !synced) {
            (void)disk.removeFolder(home);
            return synced.error();
        }
    } else if (!QFileInfo(home).isDir()) {
        return UT_Error{Texts::tr("\"%1\" is a file; a scene is a folder").arg(QDir::toNativeSeparators(home))};
    }
    auto saved = saveFiles(*files, home, expected, disk, secondHalf);
    if (isNew && (!saved || !*saved))
        (void)disk.removeFolder(home);
    return saved;
}

} // namespace

UT_Result<void> SIO_saveSceneOn(const MO_Scene& scene, const QString& folder, SIO_FileSystem& disk)
{
    const auto saved = save(scene, folder, nullptr, disk);
    return saved ? UT_Result<void>() : saved.error();
}

UT_Result<SIO_SceneState> SIO_saveScene(const MO_Scene& scene, const QString& folder, const SIO_Progress& goOn)
{
    SIO_FileSystem disk;
    auto saved = save(scene, folder, nullptr, disk, goOn);
    return saved ? UT_Result<SIO_SceneState>(std::move(**saved)) : saved.error();
}

UT_Result<std::optional<SIO_SceneState>> SIO_saveSceneOver(const SIO_SceneState& loaded, const MO_Scene& scene,
                                                           const QString& folder, const SIO_Progress& goOn)
{
    SIO_FileSystem disk;
    return save(scene, folder, &loaded, disk, goOn);
}

bool SIO_isRoomForScene(const QString& folder)
{
    constexpr auto kAll = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    const QStringList names = QDir(folder).entryList(kAll);
    return QFileInfo(folder).isDir() && std::all_of(names.begin(), names.end(), [](const QString& name) {
               return name == kSIO_stagingFolder || name == QLatin1String(".lock");
           });
}

bool SIO_holdsScene(const QString& folder)
{
    // A link that leads nowhere counts, so that reading the scene says what is wrong with it.
    const auto isThere = [&](const QString& name) {
        const QFileInfo file(folder + u'/' + name);
        return file.exists() || file.isSymLink();
    };
    return isThere(kSIO_mainFile) || isThere(kSIO_journalFile);
}
