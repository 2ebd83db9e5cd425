// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Several programs at one scene, and programs that were killed: no change is lost, and nothing is in the next one's
// way.
#include "QuarvelSceneIO/SIO_SceneFolder.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

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

class TwoPrograms : public testing::Test
{
protected:
    void SetUp() override
    {
        QFile drawing(path("hero.svg"));
        ASSERT_TRUE(drawing.open(QIODevice::WriteOnly));
        drawing.write(R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64">
            <rect x="16" y="16" width="32" height="32" fill="#ff0000"/></svg>)");
    }

    QString path(const char* name) const { return _folder.path() + u'/' + text(name); }

    std::unique_ptr<QProcess> started(const QStringList& words) const
    {
        auto process = std::make_unique<QProcess>();
        process->setWorkingDirectory(_folder.path());
        process->start(QStringLiteral(QUARVEL_PROGRAM), words);
        return process;
    }
    // The exit code; what it wrote is in output and messages.
    int run(const QStringList& words)
    {
        const auto process = started(words);
        EXPECT_TRUE(process->waitForFinished(120'000));
        output = process->readAllStandardOutput().toStdString();
        messages = process->readAllStandardError().toStdString();
        return process->exitCode();
    }
    int import(const QStringList& more = {})
    {
        return run(QStringList{text("import"), text("hero.svg"), text("-o"), text("s.scene")} + more);
    }
    QStringList hiddenInScene() const
    {
        return QDir(path("s.scene")).entryList({text(".*")}, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::string output;
    std::string messages;

private:
    QTemporaryDir _folder;
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
        programs.push_back(started({text("set"), text("s.scene"), what, value}));
    for (const auto& program : programs) {
        EXPECT_TRUE(program->waitForFinished(120'000));
        EXPECT_EQ(program->exitCode(), 0) << program->readAllStandardError().toStdString();
    }
    ASSERT_EQ(run({text("inspect"), text("s.scene")}), 0);
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
    ASSERT_EQ(run({text("set"), text("s.scene"), text("frames"), text("1-9")}), 0) << messages;
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
    for (const char* name : {"s.scene/.save/0", "s.scene/.save/journal", "s.scene/.lock"}) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("half");
    }
    EXPECT_EQ(import(), 0) << messages;
    QFile::remove(path("s.scene/.lock"));
    EXPECT_EQ(hiddenInScene(), QStringList());
    EXPECT_EQ(run({text("inspect"), text("s.scene")}), 0) << messages;
}

TEST_F(TwoPrograms, AFolderWithSomethingElseIsNoPlaceForAScene)
{
    ASSERT_TRUE(QDir().mkpath(path("s.scene/photos")));
    EXPECT_NE(import(), 0);
    EXPECT_THAT(messages, HasSubstr("is there already and is no scene"));
    EXPECT_NE(import({text("--force")}), 0);
}
