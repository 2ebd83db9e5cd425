// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A save that ends at any moment leaves the old scene or the new one: killed at every operation, failing at every
// operation, killed at random moments, two saves at once.
#include "Host/QuarvelSceneIO/TestScenes.h"

#include "QuarvelSceneIO/private/SIO_Journal.h"
#include "QuarvelSceneIO/private/SIO_Saving.h"

#include <QElapsedTimer>

#include <algorithm>
#include <csignal>
#include <functional>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace test_scenes;

namespace {

// Fails or ends the process at one operation, or from one operation on.
class TrickyDisk : public SIO_FileSystem
{
public:
    enum class Trick
    {
        FAIL_ONCE,
        FAIL_FROM_THEN_ON,
        DIE_BEFORE,
        DIE_AFTER
    };

    TrickyDisk(Trick trick, int operation) : _trick(trick), _operation(operation) {}

    int count() const { return _count; }

    UT_Result<void> makeFolder(const QString& path) override
    {
        return trick([&] { return SIO_FileSystem::makeFolder(path); });
    }
    UT_Result<void> writeFile(const QString& path, const QByteArray& bytes) override
    {
        // Half of the bytes are written before it fails.
        if (_count == _operation)
            (void)SIO_FileSystem::writeFile(path, bytes.left(bytes.size() / 2));
        return trick([&] { return SIO_FileSystem::writeFile(path, bytes); });
    }
    UT_Result<void> rename(const QString& from, const QString& to) override
    {
        return trick([&] { return SIO_FileSystem::rename(from, to); });
    }
    UT_Result<void> removeFile(const QString& path) override
    {
        return trick([&] { return SIO_FileSystem::removeFile(path); });
    }
    UT_Result<void> removeFolder(const QString& path) override
    {
        return trick([&] { return SIO_FileSystem::removeFolder(path); });
    }
    UT_Result<void> sync(const QStringList& paths) override
    {
        return trick([&] { return SIO_FileSystem::sync(paths); });
    }

private:
    UT_Result<void> trick(const std::function<UT_Result<void>()>& operate)
    {
        const int now = _count++;
        const bool due = now == _operation || (_trick == Trick::FAIL_FROM_THEN_ON && now > _operation);
        if (!due)
            return operate();
        if (_trick == Trick::DIE_AFTER)
            (void)operate();
        if (_trick == Trick::DIE_AFTER || _trick == Trick::DIE_BEFORE)
            ::_exit(kDied);
        return UT_Error{QStringLiteral("no space left")};
    }

    Trick _trick;
    int _operation;
    int _count = 0;

public:
    static constexpr int kDied = 7;
    static constexpr int kNever = 1 << 20;
};

// Knows what a crash of the machine would still take back, and expects that nothing builds on it.
class WatchedDisk : public SIO_FileSystem
{
public:
    int syncs() const { return _syncs; }

    UT_Result<void> makeFolder(const QString& path) override
    {
        _loose.insert(folderOf(path));
        return SIO_FileSystem::makeFolder(path);
    }
    UT_Result<void> writeFile(const QString& path, const QByteArray& bytes) override
    {
        _loose.insert(path);
        _loose.insert(folderOf(path));
        return SIO_FileSystem::writeFile(path, bytes);
    }
    UT_Result<void> rename(const QString& from, const QString& to) override
    {
        if (to.endsWith(text("/.journal"))) {
            EXPECT_EQ(loose(), "") << "the journal counts from now on";
        }
        EXPECT_FALSE(_loose.contains(folderOf(folderOf(to)))) << "the folder of " << qPrintable(to);
        _loose.insert(folderOf(to));
        return SIO_FileSystem::rename(from, to);
    }
    UT_Result<void> removeFile(const QString& path) override
    {
        if (path.endsWith(text("/.journal"))) {
            EXPECT_EQ(loose(), "") << "nobody will move files any more";
        }
        return SIO_FileSystem::removeFile(path);
    }
    UT_Result<void> sync(const QStringList& paths) override
    {
        ++_syncs;
        for (const QString& path : paths)
            _loose.remove(path);
        return SIO_FileSystem::sync(paths);
    }

private:
    static QString folderOf(const QString& path) { return QFileInfo(path).path(); }
    std::string loose() const { return _loose.values().join(u' ').toStdString(); }

    QSet<QString> _loose;
    int _syncs = 0;
};

// Runs a function in a child process. @return its exit code
int inChild(const std::function<int()>& run)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(run());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

struct AtomicSave : testing::Test
{
    int operationsOfASave(const MO_Scene& scene)
    {
        TrickyDisk disk(TrickyDisk::Trick::FAIL_ONCE, TrickyDisk::kNever);
        EXPECT_TRUE(SIO_saveSceneOn(scene, place.folder, disk));
        return disk.count();
    }

    // Expects that the scene in the folder is the old one or the new one.
    void expectOldOrNew(const std::string& when)
    {
        QString error;
        const Files loaded = loadedFiles(place.folder, &error);
        EXPECT_TRUE(loaded == oldFiles || loaded == newFiles) << when << ": " << qPrintable(error);
    }

    ScenePlace place;
    std::unique_ptr<MO_Scene> oldScene = makeScene(1);
    std::unique_ptr<MO_Scene> newScene = makeScene(2);
    Files oldFiles = filesOf(*oldScene);
    Files newFiles = filesOf(*newScene);
};

TEST_F(AtomicSave, KilledAtAnyOperationLeavesTheOldOrTheNewScene)
{
    save(*oldScene, place.folder);
    const int operations = operationsOfASave(*newScene);
    ASSERT_GT(operations, 15);
    bool wasOld = false;
    bool wasNew = false;
    for (const auto trick : {TrickyDisk::Trick::DIE_BEFORE, TrickyDisk::Trick::DIE_AFTER})
        for (int i = 0; i < operations; ++i) {
            save(*oldScene, place.folder);
            ASSERT_EQ(difference(filesIn(place.folder), oldFiles), "");
            ASSERT_EQ(inChild([&] {
                          TrickyDisk disk(trick, i);
                          return SIO_saveSceneOn(*newScene, place.folder, disk) ? 0 : 1;
                      }),
                      TrickyDisk::kDied);
            expectOldOrNew("operation " + std::to_string(i));
            const bool isNew = bytesOfFile(place.folder + text("/scene.xml")) == newFiles.value(text("scene.xml"));
            wasNew |= isNew;
            wasOld |= !isNew;
        }
    EXPECT_TRUE(wasOld && wasNew);
}

TEST_F(AtomicSave, NothingCountsBeforeTheDiskHasWhatItBuildsOn)
{
    for (const MO_Scene* scene : {oldScene.get(), newScene.get(), oldScene.get()}) {
        WatchedDisk disk;
        EXPECT_TRUE(SIO_saveSceneOn(*scene, place.folder, disk));
    }
}

// The disk takes milliseconds each time, so that thousands of files are forced to it together.
TEST_F(AtomicSave, ManyFilesAreForcedToTheDiskTogether)
{
    MO_Scene scene;
    const auto palette = testPalette(0xa1);
    scene.addPalette(palette);
    for (int i = 0; i < 300; ++i)
        scene.root().emplace<MO_ElementModule>().setDrawing(text("1"), testDrawing(palette, 10.0 + i));
    WatchedDisk disk;
    ASSERT_TRUE(SIO_saveSceneOn(scene, place.folder, disk));
    EXPECT_EQ(difference(filesIn(place.folder), filesOf(scene)), "");
    // The new folder, ".save", the new files, the journal's name, new folders, files in place, and the journal's end.
    EXPECT_EQ(disk.syncs(), 7);
}

TEST_F(AtomicSave, KilledWhileASaveIsFinishedLeavesTheNewScene)
{
    save(*oldScene, place.folder);
    const int operations = operationsOfASave(*newScene);
    int waiting = 0;
    for (int first = 0; first < operations; ++first) {
        save(*oldScene, place.folder);
        inChild([&] {
            TrickyDisk disk(TrickyDisk::Trick::DIE_BEFORE, first);
            return SIO_saveSceneOn(*newScene, place.folder, disk) ? 0 : 1;
        });
        if (!QFileInfo::exists(place.folder + text("/.journal")))
            continue;
        ++waiting;
        for (int second = 0; second < 8; ++second)
            inChild([&] {
                TrickyDisk disk(TrickyDisk::Trick::DIE_BEFORE, second);
                return SIO_recover(place.folder, disk) ? 0 : 1;
            });
        EXPECT_EQ(difference(loadedFiles(place.folder), newFiles), "") << first;
        EXPECT_EQ(difference(filesIn(place.folder), newFiles), "") << first;
    }
    EXPECT_GT(waiting, 3);
}

TEST_F(AtomicSave, KilledWhileTheFolderIsNewLeavesNothingOrTheScene)
{
    const int operations = operationsOfASave(*newScene);
    for (int i = 0; i < operations; ++i) {
        QDir(place.folder).removeRecursively();
        ASSERT_EQ(inChild([&] {
                      TrickyDisk disk(TrickyDisk::Trick::DIE_BEFORE, i);
                      return SIO_saveSceneOn(*newScene, place.folder, disk) ? 0 : 1;
                  }),
                  TrickyDisk::kDied);
        QString error;
        const Files loaded = loadedFiles(place.folder, &error);
        EXPECT_TRUE(loaded == newFiles || error.contains(text("is missing")) || error.contains(text("no scene")))
            << i << ": " << qPrintable(error);
        save(*oldScene, place.folder);
        EXPECT_EQ(difference(filesIn(place.folder), oldFiles), "");
    }
}

TEST_F(AtomicSave, AnyOperationThatFailsLeavesTheOldSceneAndSaysSo)
{
    save(*oldScene, place.folder);
    const int operations = operationsOfASave(*newScene);
    int failures = 0;
    for (const auto trick : {TrickyDisk::Trick::FAIL_ONCE, TrickyDisk::Trick::FAIL_FROM_THEN_ON})
        for (int i = 0; i < operations; ++i) {
            save(*oldScene, place.folder);
            TrickyDisk disk(trick, i);
            const auto saved = SIO_saveSceneOn(*newScene, place.folder, disk);
            failures += saved ? 0 : 1;
            EXPECT_EQ(difference(loadedFiles(place.folder), saved ? newFiles : oldFiles), "") << i;
            EXPECT_EQ(saved ? text("no space left") : saved.error().text, text("no space left"));
        }
    // Every file that is written, and the journal with its operations, in both ways of failing.
    EXPECT_GE(failures, 2 * static_cast<int>(newFiles.size() + 3));
}

TEST_F(AtomicSave, StoppedWhereverItAsksItLeavesTheOldSceneOrNone)
{
    save(*oldScene, place.folder);
    std::vector<double> told;
    const auto listen = [&](double done) {
        told.push_back(done);
        return true;
    };
    ASSERT_TRUE(SIO_saveScene(*newScene, place.folder, listen));
    EXPECT_TRUE(std::ranges::is_sorted(told));
    EXPECT_TRUE(told.front() >= 0.0 && told.back() <= 1.0);
    ASSERT_GT(told.size(), 3U);
    const QString another = place.home.path() + text("/another.scene");
    for (std::size_t stop = 0; stop < told.size(); ++stop) {
        save(*oldScene, place.folder);
        for (const QString& folder : {place.folder, another}) {
            std::size_t calls = 0;
            const auto saved = SIO_saveScene(*newScene, folder, [&](double) { return calls++ < stop; });
            ASSERT_FALSE(saved) << stop;
            EXPECT_EQ(saved.error().kind, UT_ErrorKind::STOPPED);
        }
        EXPECT_EQ(difference(filesIn(place.folder), oldFiles), "") << stop;
        EXPECT_FALSE(QFileInfo::exists(another)) << stop;
    }
}

TEST_F(AtomicSave, OverALoadedSceneStoppedWhereverItAsksItLeavesTheOldOne)
{
    save(*oldScene, place.folder);
    const auto loaded = SIO_loadScene(place.folder);
    ASSERT_TRUE(loaded);
    std::size_t answers = 0;
    const auto saveUntil = [&](std::size_t stop) {
        answers = 0;
        return SIO_saveSceneOver(loaded->state, *newScene, place.folder, [&](double) { return answers++ < stop; });
    };
    std::size_t stop = 0;
    auto saved = saveUntil(stop);
    while (!saved && stop < 1000) {
        ASSERT_EQ(saved.error().kind, UT_ErrorKind::STOPPED);
        ASSERT_EQ(difference(filesIn(place.folder), oldFiles), "") << stop;
        saved = saveUntil(++stop);
    }
    // Each file is read, compared and written, and before each of these it asks.
    EXPECT_GT(stop, static_cast<std::size_t>(2 * oldFiles.size()));
    EXPECT_EQ(difference(filesIn(place.folder), newFiles), "");
}

TEST_F(AtomicSave, LoadingStopsWhereverItAsks)
{
    save(*oldScene, place.folder);
    int asked = 0;
    ASSERT_TRUE(SIO_loadScene(place.folder, [&](double) { return ++asked > 0; }));
    ASSERT_GT(asked, 0);
    for (int stop = 0; stop < asked; ++stop) {
        int answers = 0;
        const auto loaded = SIO_loadScene(place.folder, [&](double) { return answers++ < stop; });
        ASSERT_FALSE(loaded) << stop;
        EXPECT_EQ(loaded.error().kind, UT_ErrorKind::STOPPED);
    }
}

TEST_F(AtomicSave, WithoutSpaceTheOldFilesAreAllThatIsThere)
{
    save(*oldScene, place.folder);
    EXPECT_EQ(inChild([&] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  const rlimit limit{1000, 1000};
                  ::setrlimit(RLIMIT_FSIZE, &limit);
                  const auto saved = SIO_saveScene(*newScene, place.folder);
                  return !saved && saved.error().text.contains(text("cannot write")) ? 0 : 1;
              }),
              0);
    EXPECT_EQ(difference(filesIn(place.folder), oldFiles), "");
    const QString another = place.home.path() + text("/another.scene");
    EXPECT_EQ(inChild([&] {
                  std::signal(SIGXFSZ, SIG_IGN);
                  const rlimit limit{1000, 1000};
                  ::setrlimit(RLIMIT_FSIZE, &limit);
                  return SIO_saveScene(*newScene, another) ? 1 : 0;
              }),
              0);
    EXPECT_FALSE(QFileInfo::exists(another));
}

TEST_F(AtomicSave, KilledTwoHundredTimesAtRandomTheSceneAlwaysLoads)
{
    save(*oldScene, place.folder);
    // The moments range from the start of a process until after its second save.
    QElapsedTimer time;
    time.start();
    save(*newScene, place.folder);
    save(*oldScene, place.folder);
    const auto longest = static_cast<unsigned long>(time.nsecsElapsed() / 1000) + 10000;
    std::mt19937 random(20);
    int moments[2] = {};
    for (int i = 0; i < 200; ++i) {
        const pid_t child = ::fork();
        if (child == 0)
            for (int number = 0;; ++number)
                (void)SIO_saveScene(number % 2 ? *oldScene : *newScene, place.folder);
        ::usleep(static_cast<useconds_t>(random() % longest));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        QString error;
        const Files loaded = loadedFiles(place.folder, &error);
        ASSERT_TRUE(loaded == oldFiles || loaded == newFiles) << i << ": " << qPrintable(error);
        ++moments[loaded == oldFiles ? 0 : 1];
    }
    EXPECT_GT(moments[0], 0);
    EXPECT_GT(moments[1], 0);
    save(*oldScene, place.folder);
    EXPECT_EQ(difference(filesIn(place.folder), oldFiles), "");
}

TEST_F(AtomicSave, TwoAtOnceDoNotMix)
{
    save(*oldScene, place.folder);
    std::vector<pid_t> children;
    for (const MO_Scene* scene : {oldScene.get(), newScene.get()}) {
        const pid_t child = ::fork();
        if (child == 0) {
            bool all = true;
            for (int i = 0; i < 15; ++i)
                all = SIO_saveScene(*scene, place.folder).ok() && all;
            ::_exit(all ? 0 : 1);
        }
        children.push_back(child);
    }
    int loads = 0;
    while (!children.empty()) {
        expectOldOrNew("load " + std::to_string(++loads));
        int status = 0;
        if (::waitpid(children.back(), &status, WNOHANG) == children.back()) {
            EXPECT_EQ(status, 0);
            children.pop_back();
        }
    }
    EXPECT_GT(loads, 1);
    const Files files = filesIn(place.folder);
    EXPECT_TRUE(files == oldFiles || files == newFiles);
}

TEST_F(AtomicSave, ASaveThatWaitsToBeFinishedIsReadWhereNothingCanBeWritten)
{
    save(*oldScene, place.folder);
    ASSERT_EQ(inChild([&] {
                  // Ends just before the first file is moved into place: after the journal and its sync.
                  TrickyDisk disk(TrickyDisk::Trick::DIE_AFTER, static_cast<int>(newFiles.size()) + 5);
                  return SIO_saveSceneOn(*newScene, place.folder, disk) ? 0 : 1;
              }),
              TrickyDisk::kDied);
    ASSERT_TRUE(QFileInfo::exists(place.folder + text("/.journal")));
    // A process that must not write in the folder, whoever runs the tests: the superuser's process becomes another
    // user, who gets its key.
    const QString state = place.home.path() + text("/state");
    const QString key = state + text("/quarvel/journal.key");
    ASSERT_TRUE(QFile::setPermissions(place.home.path(), QFile::Permissions(0x7755)));
    ASSERT_TRUE(QDir().mkpath(state + text("/quarvel")));
    ASSERT_TRUE(QFile::copy(qEnvironmentVariable("XDG_STATE_HOME") + text("/quarvel/journal.key"), key));
    ASSERT_TRUE(QFile::setPermissions(place.folder, QFile::Permissions(0x5555)));
    EXPECT_EQ(inChild([&] {
                  constexpr uid_t kNobody = 65534;
                  qputenv("XDG_STATE_HOME", QFile::encodeName(state));
                  if (::geteuid() == 0 &&
                      (::chown(QFile::encodeName(key).constData(), kNobody, kNobody) != 0 || ::setuid(kNobody) != 0))
                      return 2;
                  return loadedFiles(place.folder) == newFiles ? 0 : 1;
              }),
              0);
    EXPECT_TRUE(QFileInfo::exists(place.folder + text("/.journal")));
    ASSERT_TRUE(QFile::setPermissions(place.folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_EQ(difference(loadedFiles(place.folder), newFiles), "");
    EXPECT_EQ(difference(filesIn(place.folder), newFiles), "");
}

} // namespace
