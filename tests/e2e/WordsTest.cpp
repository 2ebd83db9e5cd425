// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the program says and does about words that cannot be what somebody meant.
#include "QuarvelImageIO/IIO_PictureFile.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

class Words : public testing::Test
{
protected:
    void SetUp() override
    {
        draw("hero.svg");
        draw("tree.svg");
    }

    void draw(const QString& name) const
    {
        QFile drawing(path(name));
        ASSERT_TRUE(drawing.open(QIODevice::WriteOnly));
        drawing.write(R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64">
            <rect x="16" y="16" width="32" height="32" fill="#ff0000"/></svg>)");
    }
    QString path(const QString& name) const { return _folder.path() + u'/' + name; }
    QStringList entries() const
    {
        return QDir(_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    // The exit code; what it said on standard error is in said.
    int quarvel(const QStringList& words, const QString& output = {})
    {
        QProcess process;
        process.setWorkingDirectory(_folder.path());
        if (!output.isEmpty())
            process.setStandardOutputFile(output);
        process.start(QStringLiteral(QUARVEL_PROGRAM), words);
        EXPECT_TRUE(process.waitForFinished(120'000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        said = process.readAllStandardError().toStdString();
        return process.exitCode();
    }
    int quarvel(const char* words) { return quarvel(QString::fromUtf8(words).split(u' ')); }

    std::string said;

private:
    QTemporaryDir _folder;
};

TEST_F(Words, AMistypedOptionOrCommandIsAnsweredWithTheNearest)
{
    EXPECT_EQ(quarvel("normalmap hero.svg --siez 32"), 2);
    EXPECT_THAT(said, HasSubstr("there is no option --siez; did you mean --size?"));
    EXPECT_EQ(quarvel("render s.scene --farmes=1-3"), 2);
    EXPECT_THAT(said, HasSubstr("did you mean --frames?"));
    EXPECT_EQ(quarvel("normalmap hero.svg --zebra"), 2);
    EXPECT_THAT(said, AllOf(HasSubstr("there is no option --zebra"), Not(HasSubstr("did you mean"))));
    EXPECT_EQ(quarvel("normalmpa hero.svg"), 2);
    EXPECT_THAT(said, HasSubstr("did you mean normalmap?"));
}

TEST_F(Words, AFileThatLooksLikeAnOptionGetsAWayOut)
{
    draw(QStringLiteral("-dash.svg"));
    EXPECT_EQ(quarvel("normalmap -dash.svg"), 2);
    EXPECT_THAT(said, HasSubstr("write ./-dash.svg"));
    EXPECT_EQ(quarvel("normalmap ./-dash.svg"), 0) << said;
}

TEST_F(Words, SeveralDrawingsAreNotWrittenIntoAFolderThatIsNamedLikeAPicture)
{
    EXPECT_EQ(quarvel("normalmap hero.svg tree.svg -o one.png"), 2);
    EXPECT_THAT(said, HasSubstr("one.png names one picture"));
    EXPECT_EQ(quarvel("normalmap hero.svg tree.svg --lit one.png"), 2);
    EXPECT_EQ(quarvel("import hero.svg -o ok.png"), 1);
    EXPECT_THAT(said, HasSubstr("ok.scene"));
    EXPECT_EQ(entries(), (QStringList{QStringLiteral("hero.svg"), QStringLiteral("tree.svg")}));
    EXPECT_EQ(quarvel("normalmap hero.svg tree.svg -o maps"), 0) << said;
}

TEST_F(Words, AnEmptyNameIsRefused)
{
    EXPECT_EQ(quarvel({QStringLiteral("normalmap"), QStringLiteral("hero.svg"), QStringLiteral("-o"), QString()}), 2);
    EXPECT_THAT(said, HasSubstr("it is empty"));
}

TEST_F(Words, AnOptionThatWouldBeIgnoredIsRefused)
{
    EXPECT_EQ(quarvel("normalmap hero.svg --layout node --y up"), 2);
    EXPECT_THAT(said, HasSubstr("--y up goes with --layout tangent"));
    EXPECT_EQ(quarvel("normalmap hero.svg --layout node --y down"), 0) << said;
}

TEST_F(Words, AKeyWithoutItsFrameIsNoKey)
{
    ASSERT_EQ(quarvel("import hero.svg -o s.scene"), 0) << said;
    for (const char* words : {"set s.scene Normal-Map.BlurScale 5 6 7", "set s.scene Normal-Map.BlurScale 1 2"}) {
        EXPECT_EQ(quarvel(words), 2);
        EXPECT_THAT(said, HasSubstr("expected FRAME:VALUE, as in 24:2.0"));
    }
}

TEST_F(Words, ResultsThatNobodyReceivesAreAFailure)
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        GTEST_SKIP() << "this system has no device that is always full";
    EXPECT_EQ(quarvel({QStringLiteral("inspect"), QStringLiteral("hero.svg")}, QStringLiteral("/dev/full")), 1);
    EXPECT_THAT(said, HasSubstr("standard output"));
}

TEST_F(Words, ASignalEndsARunInOrder)
{
    constexpr int kDrawings = 1000;
    QStringList words{QStringLiteral("normalmap"), QStringLiteral("-o"), QStringLiteral("maps")};
    for (int i = 0; i < kDrawings; ++i) {
        const QString name = QStringLiteral("d%1.svg").arg(i);
        draw(name);
        words << name;
    }
    QProcess process;
    process.setWorkingDirectory(path(QString()));
    process.start(QStringLiteral(QUARVEL_PROGRAM), words);
    ASSERT_TRUE(process.waitForStarted());
    while (!QFile::exists(path(QStringLiteral("maps/d0_n.png"))) && process.state() == QProcess::Running)
        process.waitForFinished(1);
    ::kill(static_cast<pid_t>(process.processId()), SIGTERM);
    ASSERT_TRUE(process.waitForFinished(120'000));
    EXPECT_EQ(process.exitCode(), 143);
    const QStringList maps = QDir(path(QStringLiteral("maps"))).entryList(QDir::Files | QDir::Hidden);
    EXPECT_LT(maps.size(), kDrawings);
    for (const QString& map : maps)
        EXPECT_TRUE(IIO_read(path(QStringLiteral("maps/") + map))) << map.toStdString();
    EXPECT_THAT(process.readAllStandardError().toStdString(),
                HasSubstr("stopped; " + std::to_string(maps.size()) + " of 1000 drawings are done"));
}

} // namespace
