// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A run over drawings that goes on where an earlier one was stopped: what is complete and made of the same is left
// alone, and everything else is made.
#include "ProgramFixture.h"

#include <QDateTime>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::Not;

namespace {

class ResumeMaps : public Program
{
protected:
    void SetUp() override
    {
        QDir(path("")).mkdir(QStringLiteral("art"));
        for (const char* name : {"art/a.svg", "art/b.svg", "art/c.svg"})
            draw(name, "#c03020");
    }

    void draw(const char* name, const QByteArray& colour) const
    {
        write(name, R"(<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32">
            <rect x="6" y="6" width="20" height="20" fill=")" +
                        colour + R"("/></svg>)");
    }

    // The names of the drawings that a run left alone.
    QStringList kept(const char* words) const
    {
        const Outcome outcome = quarvel(QString::fromUtf8(words) + QStringLiteral(" --resume --json"));
        EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
        QStringList names;
        const QJsonArray results = QJsonDocument::fromJson(outcome.output.c_str()).object()[u"results"].toArray();
        for (const auto& result : results)
            if (result[u"kept"].toBool())
                names << QFileInfo(result[u"drawing"].toString()).fileName();
        return names;
    }

    static inline const QStringList kAll{QStringLiteral("a.svg"), QStringLiteral("b.svg"), QStringLiteral("c.svg")};
};

} // namespace

TEST_F(ResumeMaps, ARepeatedRunMakesNothing)
{
    ASSERT_EQ(quarvel("normalmap art -o maps --lit lit").exitCode, 0);
    QFile map(path("maps/a_n.png"));
    ASSERT_TRUE(map.open(QIODevice::ReadWrite));
    const QDateTime past = QDateTime::fromSecsSinceEpoch(1'000'000'000);
    ASSERT_TRUE(map.setFileTime(past, QFileDevice::FileModificationTime));
    map.close();
    EXPECT_EQ(kept("normalmap art -o maps --lit lit --jobs 1"), kAll);
    EXPECT_EQ(QFileInfo(path("maps/a_n.png")).lastModified(), past);
    EXPECT_THAT(quarvel("normalmap art -o maps --lit lit --resume").output, HasSubstr("complete already"));
}

TEST_F(ResumeMaps, WithoutTheOptionEverythingIsMade)
{
    ASSERT_EQ(quarvel("normalmap art -o maps").exitCode, 0);
    EXPECT_THAT(quarvel("normalmap art -o maps").output, Not(HasSubstr("complete already")));
}

TEST_F(ResumeMaps, WhatIsMissingOrCutShortIsMade)
{
    ASSERT_EQ(quarvel("normalmap art -o maps --lit lit").exitCode, 0);
    const QByteArray whole = bytes("maps/b_n.png");
    ASSERT_TRUE(QFile::remove(path("lit/a_lit.png")));
    write("maps/b_n.png", whole.chopped(20));
    EXPECT_EQ(kept("normalmap art -o maps --lit lit"), QStringList(QStringLiteral("c.svg")));
    EXPECT_TRUE(exists("lit/a_lit.png"));
    EXPECT_EQ(bytes("maps/b_n.png"), whole);
}

TEST_F(ResumeMaps, ADrawingThatChangedIsMadeAgain)
{
    ASSERT_EQ(quarvel("normalmap art -o maps").exitCode, 0);
    draw("art/b.svg", "#2040c0");
    EXPECT_EQ(kept("normalmap art -o maps"), (QStringList{QStringLiteral("a.svg"), QStringLiteral("c.svg")}));
}

TEST_F(ResumeMaps, OtherOptionsMakeEverythingAgain)
{
    ASSERT_EQ(quarvel("normalmap art -o maps").exitCode, 0);
    EXPECT_EQ(kept("normalmap art -o maps --volume 0.5"), QStringList());
    EXPECT_EQ(kept("normalmap art -o maps --volume 0.5"), kAll);
}

TEST_F(ResumeMaps, OtherValuesOfTheFolderMakeEverythingAgain)
{
    ASSERT_EQ(quarvel("normalmap art -o maps").exitCode, 0);
    write("art/vallorin.objects", "all:bevel=4\n");
    EXPECT_EQ(kept("normalmap art -o maps"), QStringList());
}

TEST_F(ResumeMaps, ThePicturesOfAMovedFolderAreStillComplete)
{
    ASSERT_EQ(quarvel("normalmap art -o maps").exitCode, 0);
    ASSERT_TRUE(QDir(path("")).rename(QStringLiteral("maps"), QStringLiteral("moved")));
    EXPECT_EQ(kept("normalmap art -o moved"), kAll);
}

TEST_F(ResumeMaps, TwoPicturesThatExchangeTheirPlacesAreMade)
{
    ASSERT_EQ(quarvel("normalmap art/a.svg -o one.png --elevation two.png --resume").exitCode, 0);
    EXPECT_EQ(kept("normalmap art/a.svg -o two.png --elevation one.png"), QStringList());
    ASSERT_EQ(quarvel("normalmap art/b.svg -o one/b.png --elevation two/b.png --resume").exitCode, 0);
    EXPECT_EQ(kept("normalmap art/b.svg -o two/b.png --elevation one/b.png"), QStringList());
}

TEST_F(ResumeMaps, ASingleDrawingSaysWhatItWasMadeOfOnlyWhereItIsAsked)
{
    ASSERT_EQ(quarvel("normalmap art/a.svg -o plain.png").exitCode, 0);
    ASSERT_EQ(quarvel("normalmap art/a.svg -o resumed.png --resume").exitCode, 0);
    EXPECT_FALSE(bytes("plain.png").contains("Digest"));
    EXPECT_TRUE(bytes("resumed.png").contains("Digest"));
    EXPECT_EQ(kept("normalmap art/a.svg -o resumed.png"), QStringList(QStringLiteral("a.svg")));
}

TEST_F(ResumeMaps, SaysWhichFilesCannotTell)
{
    ASSERT_EQ(quarvel("normalmap art/a.svg --html a.html").exitCode, 0);
    const Outcome again = quarvel("normalmap art/a.svg --html a.html --resume");
    EXPECT_EQ(again.exitCode, 0);
    EXPECT_THAT(again.messages, HasSubstr("a.html: warning: .html files cannot say what they were made of"));
    EXPECT_THAT(again.output, Not(HasSubstr("complete already")));
}

TEST_F(ResumeMaps, APageOfSpritesIsLeftAlone)
{
    QImage page(32, 16, QImage::Format_ARGB32);
    page.fill(0);
    for (int x = 4; x < 12; ++x)
        for (int y = 4; y < 12; ++y)
            page.setPixel(x, y, 0xffc03020);
    ASSERT_TRUE(page.save(path("page.png")));
    ASSERT_EQ(quarvel("normalmap page.png --cells 16x16 --flips --resume").exitCode, 0);
    EXPECT_EQ(kept("normalmap page.png --cells 16x16 --flips"), QStringList(QStringLiteral("page.png")));
    EXPECT_EQ(kept("normalmap page.png --cells 16x16"), QStringList());
}
