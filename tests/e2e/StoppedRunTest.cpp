// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Runs that are told to stop.
#include "WordsFixture.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>

#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

using testing::HasSubstr;

namespace {

// A drawing in a pipe holds the program until the test lets go, so that the signal comes while it works.
class StoppedRun : public Words
{
protected:
    void SetUp() override
    {
        Words::SetUp();
        ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe_2.svg")).constData(), 0600), 0);
        draw("pipe_1.svg");
        draw("pipe_3.svg");
    }

    // The exit code of a run that gets the signal while it reads the pipe, through which the drawing comes then.
    int stopped(const char* words, int signal, const char* pipeName = "pipe_2.svg",
                const char* drawingName = "hero.svg")
    {
        QProcess process;
        process.setWorkingDirectory(path(""));
        process.start(QStringLiteral(QUARVEL_PROGRAM), QString::fromUtf8(words).split(u' '));
        EXPECT_TRUE(process.waitForStarted());
        const int pipe = openPipe(process, pipeName);
        // A process that has ended has the number 0, which as a receiver means everybody.
        EXPECT_GE(pipe, 0) << process.readAllStandardError().toStdString();
        if (pipe < 0)
            return -1;
        ::kill(static_cast<pid_t>(process.processId()), signal);
        while (process.state() == QProcess::Running && catches(process.processId(), signal))
            process.waitForFinished(1);
        QFile drawing(path(drawingName));
        EXPECT_TRUE(drawing.open(QIODevice::ReadOnly));
        const QByteArray bytes = drawing.readAll();
        EXPECT_EQ(::write(pipe, bytes.constData(), static_cast<std::size_t>(bytes.size())), bytes.size());
        ::close(pipe);
        EXPECT_TRUE(process.waitForFinished(120'000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        said = process.readAllStandardError().toStdString();
        return process.exitCode();
    }

    // The exit code of a run that gets the signal while another program, this one, saves the scene.
    int stoppedWhileSaved(const char* scene, const char* words, int signal)
    {
        const int folder = ::open(QFile::encodeName(path(scene)).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        EXPECT_EQ(::flock(folder, LOCK_EX | LOCK_NB), 0);
        const int watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
        EXPECT_GE(::inotify_add_watch(watch, QFile::encodeName(path(scene)).constData(), IN_OPEN), 0);
        QProcess process;
        process.setWorkingDirectory(path(""));
        process.start(QStringLiteral(QUARVEL_PROGRAM), QString::fromUtf8(words).split(u' '));
        EXPECT_TRUE(process.waitForStarted());
        waitUntilItWaits(process, watch);
        if (process.state() == QProcess::Running)
            ::kill(static_cast<pid_t>(process.processId()), signal);
        EXPECT_TRUE(process.waitForFinished(120'000));
        ::close(watch);
        ::close(folder);
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        said = process.readAllStandardError().toStdString();
        return process.exitCode();
    }

private:
    // A program that waits for the lock of a folder opens the folder again and again, and reading the scene in it does
    // so a few times only.
    static void waitUntilItWaits(QProcess& process, int watch)
    {
        constexpr int kOpened = 50;
        alignas(inotify_event) std::array<char, 4096> events{};
        int opened = 0;
        while (process.state() == QProcess::Running && opened < kOpened) {
            process.waitForFinished(1);
            const ssize_t size = ::read(watch, events.data(), events.size());
            for (ssize_t at = 0; at < size; ++opened) {
                inotify_event event{};
                std::memcpy(&event, events.data() + at, sizeof event);
                at += static_cast<ssize_t>(sizeof event + event.len);
            }
        }
    }

    // Whether a process would still handle the signal by itself. It gives that up when it was told to stop, which may
    // be a while after the signal was sent.
    static bool catches(qint64 process, int signal)
    {
        QFile status(QStringLiteral("/proc/%1/status").arg(process));
        if (!status.open(QIODevice::ReadOnly))
            return false;
        const QByteArray text = status.readAll();
        const qsizetype mask = text.indexOf("SigCgt:\t") + 8;
        return (text.mid(mask, 16).toULongLong(nullptr, 16) >> (signal - 1) & 1U) != 0;
    }

    // Opening for writing works as soon as the program has opened the pipe for reading.
    int openPipe(QProcess& process, const char* pipeName) const
    {
        const QByteArray name = QFile::encodeName(path(pipeName));
        int pipe = ::open(name.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        while (pipe < 0 && process.state() == QProcess::Running) {
            process.waitForFinished(1);
            pipe = ::open(name.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        }
        return pipe;
    }
};

TEST_F(StoppedRun, OfMapsLeavesWholeFilesAndSaysHowMany)
{
    // One at a time, so that the first is done when the second is begun.
    EXPECT_EQ(stopped("normalmap --jobs 1 pipe_1.svg pipe_2.svg pipe_3.svg -o maps", SIGTERM), 143);
    EXPECT_THAT(said, HasSubstr("stopped; 1 of 3 drawings are done"));
    EXPECT_EQ(QDir(path("maps")).entryList(QDir::Files | QDir::Hidden), QStringList(QStringLiteral("pipe_1_n.png")));
    EXPECT_TRUE(IIO_read(path("maps/pipe_1_n.png")));
}

TEST_F(StoppedRun, OfAPageOfSpritesWritesNothing)
{
    QImage page(64, 64, QImage::Format_ARGB32);
    page.fill(Qt::red);
    ASSERT_TRUE(page.save(path("page.png")));
    write("page.json", R"({"frames": {"a": {"frame": {"x": 0, "y": 0, "w": 32, "h": 64}},
                               "b": {"frame": {"x": 32, "y": 0, "w": 32, "h": 64}}}, "meta": {"image": "page.png"}})");
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe.json")).constData(), 0600), 0);
    EXPECT_EQ(stopped("normalmap --atlas pipe.json -o n.png", SIGINT, "pipe.json", "page.json"), 130);
    EXPECT_FALSE(exists("n.png"));
}

TEST_F(StoppedRun, OfAnImportMakesNoScene)
{
    EXPECT_EQ(stopped("import pipe_1.svg pipe_2.svg pipe_3.svg -o p.scene", SIGINT), 130);
    EXPECT_THAT(said, HasSubstr("stopped; p.scene is as it was"));
    EXPECT_FALSE(exists("p.scene"));
}

TEST_F(StoppedRun, OfAChangeLeavesTheSceneAsItWas)
{
    ASSERT_EQ(quarvel("import hero.svg -o hero.scene"), 0);
    const QByteArray before = bytes("hero.scene/scene.xml");
    EXPECT_EQ(stoppedWhileSaved("hero.scene", "set hero.scene rate 25", SIGTERM), 143);
    EXPECT_THAT(said, HasSubstr("stopped; hero.scene is as it was"));
    EXPECT_EQ(bytes("hero.scene/scene.xml"), before);
}

TEST_F(StoppedRun, OfAnInspectionSaysHowManyAreTold)
{
    EXPECT_EQ(stopped("inspect pipe_1.svg pipe_2.svg pipe_3.svg", SIGTERM), 143);
    EXPECT_THAT(said, HasSubstr("stopped; 2 of 3 are inspected"));
}

} // namespace
