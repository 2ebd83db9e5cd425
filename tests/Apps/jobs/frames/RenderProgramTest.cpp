// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The command as people run it, on a scene on disk: its files, messages and exit codes.
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "SmallScene.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QThread>

#include <gmock/gmock.h>

#include <csignal>

using testing::AllOf;
using testing::HasSubstr;

namespace {

struct Outcome
{
    int exitCode;
    std::string output;
    std::string messages;
};

class RenderProgram : public SmallScene
{
protected:
    void SetUp() override
    {
        SmallScene::SetUp();
        const auto saved = SIO_saveScene(scene(), path("small.scene"));
        ASSERT_TRUE(saved) << saved.error().text.toStdString();
    }

    // The words must not contain blanks.
    void start(QProcess& process, const char* words) const
    {
        process.setWorkingDirectory(path("."));
        process.start(QStringLiteral(QUARVEL_PROGRAM),
                      (QStringLiteral("render ") + QString::fromUtf8(words)).split(QLatin1Char(' ')));
    }
    Outcome quarvel(const char* words) const
    {
        QProcess process;
        start(process, words);
        return ended(process);
    }
    // Runs a command other than render.
    Outcome command(const char* words) const
    {
        QProcess process;
        process.setWorkingDirectory(path("."));
        process.start(QStringLiteral(QUARVEL_PROGRAM), QString::fromUtf8(words).split(QLatin1Char(' ')));
        return ended(process);
    }
    static Outcome ended(QProcess& process)
    {
        EXPECT_TRUE(process.waitForFinished(120'000)) << process.errorString().toStdString();
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }
};

TEST_F(RenderProgram, RendersWhatTheDisplayShows)
{
    const Outcome outcome = quarvel("small.scene -o out/n.####.exr --frames 1-5x2,9 --resolution 64");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_THAT(outcome.output, HasSubstr("4 written"));
    EXPECT_EQ(files("out"), (QStringList{QStringLiteral("n.0001.exr"), QStringLiteral("n.0003.exr"),
                                         QStringLiteral("n.0005.exr"), QStringLiteral("n.0009.exr")}));
    const auto picture = IIO_read(path("out/n.0003.exr"));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->displayWindow(), Math::Box2di(0, 0, 64, 32));
    EXPECT_EQ(picture->metadata().value(QStringLiteral("Scene")), QStringLiteral("small.scene"));
    EXPECT_EQ(picture->metadata().value(QStringLiteral("Frame")), QStringLiteral("3"));
    EXPECT_TRUE(picture->channels().contains(QStringLiteral("N.X")));
}

TEST_F(RenderProgram, WritesMapsOfIntegersAsMostProgramsTakeThem)
{
    const Outcome outcome = quarvel("small.scene -o n.png --lit lit.png --frames 1 --resolution 64");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_THAT(outcome.output, HasSubstr("y up, opaque, 16 bits, 4 pixels of padding: right for Blender"));
    EXPECT_EQ(IIO_read(path("n.png"))->metadata().value(QStringLiteral("Alpha")), QStringLiteral("opaque"));
    EXPECT_EQ(QImage(path("n.png")).pixelColor(0, 0).alpha(), 255);
    EXPECT_EQ(QImage(path("lit.png")).pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(quarvel("small.scene -o c.png --alpha coverage --frames 1 --resolution 64").exitCode, 0);
    EXPECT_EQ(QImage(path("c.png")).pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(quarvel("small.scene -o d.png --as colours --frames 1 --resolution 64").exitCode, 0);
    EXPECT_EQ(QImage(path("d.png")).pixelColor(0, 0).alpha(), 0);
}

TEST_F(RenderProgram, RendersAllFramesAlikeWithOneJobAndTwo)
{
    EXPECT_EQ(quarvel("small.scene -o one/n.##.exr --resolution 64 --jobs 1 -q").exitCode, 0);
    EXPECT_EQ(quarvel("small.scene -o two/n.##.exr --resolution 64 --jobs 2 -q").exitCode, 0);
    ASSERT_EQ(files("one").size(), 48);
    ASSERT_EQ(files("two"), files("one"));
    for (const QString& name : files("one"))
        EXPECT_EQ(bytes(path("one/") + name), bytes(path("two/") + name)) << name.toStdString();
}

TEST_F(RenderProgram, WarnsOfFramesThatTheSceneDoesNotHave)
{
    const Outcome outcome = quarvel("small.scene -o n.#.png --frames 47-50 --resolution 32");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.messages, HasSubstr("warning: 2 of the frames are left out; the scene's frames are 1 to 48"));
    EXPECT_EQ(quarvel("small.scene -o n.#.png --frames 60").exitCode, 2);
}

TEST_F(RenderProgram, SaysHowToRenderFewerFramesWhereASceneHasTooMany)
{
    ASSERT_EQ(command("set small.scene frames 1-2000000").exitCode, 0);
    const Outcome refused = quarvel("small.scene -o n.#.png --resolution 32");
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_THAT(refused.messages, HasSubstr("one run renders at most 1000000 frames; choose fewer with --frames"));
    EXPECT_NE(command("set small.scene frames 1-2147483647").exitCode, 0) << "more frames than an int counts";
}

TEST_F(RenderProgram, LightsFramesAndFilmsAsTheSceneSays)
{
    EXPECT_EQ(quarvel("small.scene --lit old.##.png --preview old.png --frames 1-2 --resolution 64 -q").exitCode, 0);
    const Outcome set = command("set small.scene lights torch");
    EXPECT_EQ(set.exitCode, 0) << set.messages;
    EXPECT_THAT(set.output, HasSubstr("small.scene: lights: Light 1 -> Torch"));
    EXPECT_EQ(command("set small.scene .Light1.Intensity 1:0.5 2:3").exitCode, 0);
    EXPECT_EQ(command("set small.scene .Lights.Highlight 0.5").exitCode, 0);
    const Outcome listed = command("inspect small.scene");
    EXPECT_THAT(listed.output, AllOf(HasSubstr(".Light1  point"), HasSubstr(".Light1.Intensity  1:0.5 2:3"),
                                     HasSubstr(".Lights.Highlight  0.5")));
    EXPECT_EQ(quarvel("small.scene --lit new.##.png --preview new.png --frames 1-2 --resolution 64 -q").exitCode, 0);
    EXPECT_NE(bytes(path("new.01.png")), bytes(path("old.01.png")));
    EXPECT_NE(bytes(path("new.png")), bytes(path("old.png")));
    const auto picture = IIO_read(path("new.02.png"));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->metadata().value(QStringLiteral("Layout")), QStringLiteral("lit"));
    // The light on the command line takes precedence; it is the light that the first scene had.
    EXPECT_EQ(quarvel("small.scene --lit said.##.png --preview said.png --light 135,45 --frames 1-2 --resolution 64 -q")
                  .exitCode,
              0);
    EXPECT_EQ(bytes(path("said.png")), bytes(path("old.png")));
    const auto said = IIO_read(path("said.01.png"));
    const auto old = IIO_read(path("old.01.png"));
    ASSERT_TRUE(said && old);
    for (int y = 0; y < 32; ++y)
        EXPECT_TRUE(std::ranges::equal(said->row<std::uint16_t>(y), old->row<std::uint16_t>(y))) << y;
}

// Frames that differ only in their light are lit one by one.
TEST_F(RenderProgram, LitFramesFollowALightThatMoves)
{
    EXPECT_EQ(command("set small.scene Normal-Map.BlurScale 1").exitCode, 0);
    EXPECT_EQ(command("set small.scene .Light1.X 1:-1 3:1").exitCode, 0);
    EXPECT_EQ(quarvel("small.scene --lit l.#.png -o n.#.png --frames 1-3 --resolution 64 -q").exitCode, 0);
    const auto row = [&](const char* file) {
        const auto picture = IIO_read(path(file));
        EXPECT_TRUE(picture);
        const auto samples = picture->row<std::uint16_t>(12);
        return std::vector<std::uint16_t>(samples.begin(), samples.end());
    };
    EXPECT_NE(row("l.1.png"), row("l.2.png"));
    EXPECT_NE(row("l.1.png"), row("l.3.png"));
    EXPECT_EQ(row("n.1.png"), row("n.3.png"));
}

TEST_F(RenderProgram, SaysWhatALightHasAndWhichThereAre)
{
    EXPECT_THAT(command("set small.scene .Light2.X 1").messages, HasSubstr("the number of a light, 1 to 1"));
    EXPECT_THAT(command("set small.scene .Light1.Cone 1").messages, HasSubstr("Intensity"));
    EXPECT_THAT(command("set small.scene lights moon").messages, HasSubstr("key-and-rim"));
    EXPECT_THAT(command("set small.scene lights remove 1").messages, HasSubstr("the last light stays"));
    EXPECT_EQ(command("set small.scene lights add").exitCode, 0);
    EXPECT_EQ(command("set small.scene lights remove 2").exitCode, 0);
    EXPECT_THAT(command("set small.scene rate 0").messages, HasSubstr("from 1 to 240"));
    EXPECT_EQ(command("set small.scene rate 12").exitCode, 0);
    EXPECT_THAT(command("inspect small.scene").output, HasSubstr("rate    12 frames a second"));
    EXPECT_THAT(quarvel("small.scene --lit l.#.exr --frames 1").messages, HasSubstr(".png"));
}

TEST_F(RenderProgram, RendersANodeByItsName)
{
    const QByteArray words =
        "small.scene -o n.png --frames 1 --resolution 64 --node " + drawing().instanceName().toUtf8();
    EXPECT_EQ(quarvel(words.constData()).exitCode, 0);
    EXPECT_EQ(IIO_read(path("n.png"))->metadata().value(QStringLiteral("Layout")), QStringLiteral("drawing"));
    const Outcome outcome = quarvel("small.scene -o n.png --frames 1 --node Nobody");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.messages, AllOf(HasSubstr("\"Nobody\""), HasSubstr(drawing().instanceName().toStdString())));
}

TEST_F(RenderProgram, AsksForAPatternForSeveralFrames)
{
    const Outcome outcome = quarvel("small.scene -o n.png");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.messages, HasSubstr("n.####.png"));
}

TEST_F(RenderProgram, RefusesWhatTheMemoryDoesNotHold)
{
    const Outcome outcome = quarvel("small.scene -o n.##.png --memory 1M");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.messages, HasSubstr("--memory"));
}

TEST_F(RenderProgram, SaysThatAFolderCannotBeMade)
{
    QFile taken(path("taken"));
    ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    for (const char* output : {"-o taken/n.png", "--preview taken/lit.png", "--html taken/hero.html"}) {
        const QByteArray words = QByteArray("small.scene --frames 1 --resolution 32 ") + output;
        const Outcome outcome = quarvel(words.constData());
        EXPECT_EQ(outcome.exitCode, 1) << output;
        EXPECT_THAT(outcome.messages, AllOf(HasSubstr(path("taken").toStdString()), HasSubstr("cannot be made")));
    }
}

TEST_F(RenderProgram, ReportsAFrameThatFailsAndGoesOn)
{
    ASSERT_TRUE(QDir().mkpath(path("out/n.2.png")));
    const Outcome outcome = quarvel("small.scene -o out/n.#.png --frames 1-3 --resolution 32");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.messages, HasSubstr("frame 2: "));
    EXPECT_EQ(files("out").size(), 2);
}

TEST_F(RenderProgram, ResumesWhereItStopped)
{
    quarvel("small.scene -o out/n.#.png --frames 1-3 --resolution 32");
    ASSERT_TRUE(QFile::remove(path("out/n.2.png")));
    const Outcome outcome = quarvel("small.scene -o out/n.#.png --frames 1-4 --resolution 32 --resume");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.output, HasSubstr("2 written, 2 complete already"));
}

TEST_F(RenderProgram, ResumesByWhatFramesAreMadeOf)
{
    ASSERT_EQ(quarvel("small.scene -o out/n.##.png --frames 1,48 --resolution 32").exitCode, 0);
    const QByteArray first = bytes(path("out/n.01.png"));
    // An equal scene with another name, saved after the frames were rendered.
    const auto saved = SIO_saveScene(scene(), path("copy.scene"));
    ASSERT_TRUE(saved);
    EXPECT_THAT(quarvel("copy.scene -o out/n.##.png --frames 1,48 --resolution 32 --resume").output,
                HasSubstr("0 written, 2 complete already"));
    // A different scene, although its files are older than the frames.
    auto* const blur = dynamic_cast<AT_DoubleAttr*>(node().findAttr(QStringLiteral("BlurScale")));
    AT_Curve curve = blur->curve();
    curve.setKey({.frame = 48, .value = 1.0, .in = {}, .out = {}, .unknown = {}});
    ASSERT_TRUE(blur->setCurve(curve));
    ASSERT_TRUE(SIO_saveScene(scene(), path("copy.scene")));
    QFile old(path("copy.scene/scene.xml"));
    ASSERT_TRUE(old.open(QIODevice::ReadWrite) &&
                old.setFileTime(QDateTime(QDate(2001, 1, 1), QTime(0, 0)), QFileDevice::FileModificationTime));
    EXPECT_THAT(quarvel("copy.scene -o out/n.##.png --frames 1,48 --resolution 32 --resume").output,
                HasSubstr("1 written, 1 complete already"));
    EXPECT_EQ(bytes(path("out/n.01.png")), first);
    EXPECT_THAT(quarvel("copy.scene -o out/n.##.png --frames 1,48 --resolution 16 --resume").output,
                HasSubstr("2 written, 0 complete already"));
}

TEST_F(RenderProgram, SaysWhereAFormatCannotHoldWhatAFrameIsMadeOf)
{
    ASSERT_EQ(quarvel("small.scene -o n.bmp --frames 1 --resolution 32").exitCode, 0);
    const Outcome outcome = quarvel("small.scene -o n.bmp --frames 1 --resolution 32 --resume");
    EXPECT_THAT(outcome.output, HasSubstr("1 written"));
    EXPECT_THAT(outcome.messages, HasSubstr(".bmp files cannot say what they were made of"));
}

TEST_F(RenderProgram, InspectSaysWhatAFrameIsMadeOf)
{
    for (const char* name : {"n.png", "n.exr"}) {
        ASSERT_EQ(quarvel((QByteArray("small.scene --frames 3 --resolution 32 -o ") + name).constData()).exitCode, 0);
        const QString digest = IIO_read(path(name))->metadata().value(QStringLiteral("Digest"));
        EXPECT_EQ(digest.size(), 64);
        QProcess process;
        process.start(QStringLiteral(QUARVEL_PROGRAM), {QStringLiteral("inspect"), path(name)});
        ASSERT_TRUE(process.waitForFinished(120'000));
        const std::string said = process.readAllStandardOutput().toStdString();
        EXPECT_THAT(said, AllOf(HasSubstr("32 x 16"), HasSubstr("Frame: 3"), HasSubstr("Scene: small.scene"),
                                HasSubstr("Digest: " + digest.toStdString())));
    }
}

TEST_F(RenderProgram, SharesItsFramesOut)
{
    quarvel("small.scene -o out/n.#.png --frames 1-5 --resolution 32 --shard 1/2");
    EXPECT_EQ(files("out").join(QLatin1Char(' ')).toStdString(), "n.1.png n.3.png n.5.png");
    quarvel("small.scene -o out/n.#.png --frames 1-5 --resolution 32 --shard 2/2");
    EXPECT_EQ(files("out").size(), 5);
}

TEST_F(RenderProgram, TellsProgressInLinesWhenAskedTo)
{
    const Outcome outcome = quarvel("small.scene -o n.##.png --frames 1-4 --resolution 32 --progress lines");
    EXPECT_THAT(outcome.messages, AllOf(HasSubstr("\n50%\n"), HasSubstr("\n100%\n")));
    EXPECT_THAT(quarvel("small.scene -o n.##.png --frames 1-4 --resolution 32").messages, testing::IsEmpty());
}

TEST_F(RenderProgram, TellsProgressInJson)
{
    const Outcome outcome = quarvel("small.scene -o n.##.png --frames 7,5 --resolution 32 --jobs 1 --progress json");
    const QList<QByteArray> lines = QByteArray::fromStdString(outcome.messages).trimmed().split('\n');
    ASSERT_EQ(lines.size(), 2);
    const QJsonObject last = QJsonDocument::fromJson(lines[1]).object();
    EXPECT_EQ(last.value(QStringLiteral("frame")).toInt(), 5);
    EXPECT_EQ(last.value(QStringLiteral("done")).toInt(), 2);
    EXPECT_EQ(last.value(QStringLiteral("total")).toInt(), 2);
}

TEST_F(RenderProgram, TellsSchedulersProgressOnStandardOutput)
{
    const Outcome percent = quarvel("small.scene -o n.##.png --frames 1-4 --resolution 32 --progress percent");
    EXPECT_THAT(percent.output, AllOf(HasSubstr("\n50%\n"), HasSubstr("\n100%\n")));
    EXPECT_THAT(percent.messages, testing::IsEmpty());
    const Outcome openjd = quarvel("small.scene -o n.##.png --frames 1-4 --resolution 32 --jobs 1 --progress openjd");
    EXPECT_THAT(openjd.output,
                AllOf(HasSubstr("\nopenjd_progress: 50\n"), HasSubstr("\nopenjd_status: frame 4, 4 of 4\n")));
}

TEST_F(RenderProgram, IsQuietWhenToldSo)
{
    for (const char* progress : {"openjd", "percent", "lines", "json"}) {
        const std::string words =
            std::string("small.scene -q -o n.##.png --frames 1-2 --resolution 32 --progress ") + progress;
        const Outcome outcome = quarvel(words.c_str());
        EXPECT_EQ(outcome.output + outcome.messages, "") << progress;
    }
}

TEST_F(RenderProgram, TellsSchedulersOfAFrameThatFails)
{
    ASSERT_TRUE(QDir(path(".")).mkpath(QStringLiteral("out/n.2.png")));
    const Outcome outcome = quarvel("small.scene -o out/n.#.png --frames 1-3 --resolution 32 --progress openjd");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.output, HasSubstr("\nopenjd_fail: frame 2: "));
    EXPECT_THAT(outcome.output, HasSubstr(": 2 written, 0 complete already, 1 failed\n"));
}

class StoppedRender : public RenderProgram, public testing::WithParamInterface<int>
{};

TEST_P(StoppedRender, LeavesWholeFilesOnly)
{
    QProcess process;
    start(process, "small.scene -o out/n.##.exr --resolution 640 --jobs 2");
    ASSERT_TRUE(process.waitForStarted());
    for (int i = 0; i < 600 && files("out").size() < 2; ++i)
        QThread::msleep(50);
    ASSERT_EQ(::kill(static_cast<pid_t>(process.processId()), GetParam()), 0);
    ASSERT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 128 + GetParam());
    const QStringList written = files("out");
    EXPECT_LT(written.size(), 48);
    for (const QString& name : written) {
        EXPECT_THAT(name.toStdString(), testing::MatchesRegex("n\\...\\.exr"));
        EXPECT_TRUE(IIO_read(path("out/") + name)) << name.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Signals, StoppedRender, testing::Values(SIGINT, SIGTERM));

TEST_F(RenderProgram, MakesAPreview)
{
    const Outcome outcome = quarvel("small.scene --preview look/lit.png --frames 1-3 --resolution 64");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_EQ(files("look"), QStringList{QStringLiteral("lit.png")});
}

TEST_F(RenderProgram, DoesNotChangeTheScene)
{
    const QByteArray before = bytes(path("small.scene/scene.xml"));
    quarvel("small.scene -o n.exr --frames 1 --resolution 32 --preview lit.png");
    EXPECT_EQ(bytes(path("small.scene/scene.xml")), before);
}

} // namespace
