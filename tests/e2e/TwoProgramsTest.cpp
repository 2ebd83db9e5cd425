// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Several programs at one scene, and programs that were killed: no change is lost, and nothing is in the next one's
// way.
#include "ProgramFixture.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

using testing::HasSubstr;

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class TwoPrograms : public Program
{
protected:
    void SetUp() override
    {
        write("hero.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64">
            <rect x="16" y="16" width="32" height="32" fill="#ff0000"/></svg>)");
    }

    // The exit code; what it wrote is in output and messages.
    int exitCodeOf(const QString& words)
    {
        const Outcome outcome = quarvel(words);
        output = outcome.output;
        messages = outcome.messages;
        return outcome.exitCode;
    }
    int import(const char* more = "") { return exitCodeOf(text("import hero.svg -o s.scene") + text(more)); }
    QStringList hiddenInScene() const
    {
        return QDir(path("s.scene")).entryList({text(".*")}, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::string output;
    std::string messages;
};

} // namespace

TEST_F(TwoPrograms, ThatChangeOneSceneAtOnceLoseNoChange)
{
    ASSERT_EQ(import(), 0) << messages;
    // Changes of different attributes, all on the way at the same time.
    const std::vector<std::pair<QString, QString>> changes = {{text("Normal-Map.BlurScale"), text("3.25")},
                                                              {text("Normal-Map.ElevationSmoothness"), text("7.5")},
                                                              {text("frames"), text("1-9")}};
    std::vector<std::unique_ptr<QProcess>> programs;
    for (const auto& [what, value] : changes)
        programs.push_back(started(text(QUARVEL_PROGRAM), {text("set"), text("s.scene"), what, value}));
    for (const auto& program : programs) {
        const Outcome outcome = finished(*program);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
    }
    ASSERT_EQ(exitCodeOf(text("inspect s.scene")), 0);
    EXPECT_THAT(output, HasSubstr("3.25"));
    EXPECT_THAT(output, HasSubstr("7.5"));
    EXPECT_THAT(output, HasSubstr("1-9"));
    EXPECT_EQ(hiddenInScene(), QStringList());
}

TEST_F(TwoPrograms, ASaveFindsThatTheSceneIsAnotherOne)
{
    ASSERT_EQ(import(), 0) << messages;
    const auto mine = SIO_loadScene(path("s.scene"));
    ASSERT_TRUE(mine);
    ASSERT_EQ(exitCodeOf(text("set s.scene frames 1-9")), 0) << messages;
    const auto refused = SIO_saveSceneOver(mine->state, *mine->scene, path("s.scene"));
    ASSERT_TRUE(refused);
    EXPECT_FALSE(*refused);
    const auto theirs = SIO_loadScene(path("s.scene"));
    ASSERT_TRUE(theirs);
    EXPECT_EQ(theirs->scene->lastFrame(), 9);
    // What a save says of the new state is what the next load finds.
    const auto saved = SIO_saveSceneOver(theirs->state, *mine->scene, path("s.scene"));
    ASSERT_TRUE(saved && *saved);
    const auto again = SIO_loadScene(path("s.scene"));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->state, **saved);
    EXPECT_NE(again->state, theirs->state);
}

TEST_F(TwoPrograms, AnImportThatWasKilledIsDoneAgain)
{
    // As far as a killed import can have come before its scene counts.
    ASSERT_TRUE(QDir().mkpath(path("s.scene")));
    EXPECT_EQ(import(), 0) << messages;
    ASSERT_TRUE(QDir(path("s.scene")).removeRecursively());
    ASSERT_TRUE(QDir().mkpath(path("s.scene/.save")));
    for (const char* name : {"s.scene/.save/0", "s.scene/.save/journal", "s.scene/.lock"})
        write(name, "half");
    EXPECT_EQ(import(), 0) << messages;
    QFile::remove(path("s.scene/.lock"));
    EXPECT_EQ(hiddenInScene(), QStringList());
    EXPECT_EQ(exitCodeOf(text("inspect s.scene")), 0) << messages;
}

TEST_F(TwoPrograms, AFolderWithSomethingElseIsNoPlaceForAScene)
{
    ASSERT_TRUE(QDir().mkpath(path("s.scene/photos")));
    EXPECT_NE(import(), 0);
    EXPECT_THAT(messages, HasSubstr("is there already and is not a scene"));
    EXPECT_NE(import(" --force"), 0);
}
