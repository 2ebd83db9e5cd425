// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the program says and does about files and folders that are not what a command takes.
#include "WordsFixture.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>

#include <gmock/gmock.h>

#include <algorithm>
#include <sys/stat.h>

using testing::HasSubstr;

using NamedFiles = Words;

TEST_F(NamedFiles, AnAtlasIsNotTakenForAnAnimation)
{
    write("atlas.json", R"({"frames": {"a": {"frame": {"x": 0, "y": 0, "w": 8, "h": 8}}},
        "meta": {"image": "missing.png"}})");
    for (const char* command : {"normalmap", "inspect"}) {
        EXPECT_EQ(quarvel(QStringList{QLatin1String(command), QStringLiteral("atlas.json")}), 1);
        EXPECT_EQ(said, "quarvel: atlas.json: this is an atlas; run quarvel normalmap --atlas atlas.json\n");
    }
}

TEST_F(NamedFiles, APipeIsNotOpenedToSeeWhatItHolds)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe.json")).constData(), 0600), 0);
    EXPECT_EQ(quarvel("normalmap pipe.json"), 1);
    EXPECT_EQ(said, "quarvel: pipe.json: this is an animation; run quarvel import pipe.json\n");
}

TEST_F(NamedFiles, AFileInPlaceOfACommandIsAnsweredWithItsCommand)
{
    write("a.json", "{}");
    ASSERT_EQ(quarvel("import hero.svg -o s.scene"), 0) << said;
    EXPECT_EQ(quarvel("hero.svg"), 2);
    EXPECT_EQ(said, "quarvel: there is no command \"hero.svg\"; did you mean quarvel normalmap hero.svg?\n");
    EXPECT_EQ(quarvel("a.json"), 2);
    EXPECT_THAT(said, HasSubstr("did you mean quarvel import a.json?"));
    EXPECT_EQ(quarvel("s.scene"), 2);
    EXPECT_THAT(said, HasSubstr("did you mean quarvel render s.scene -o n.####.png?"));
}

TEST_F(NamedFiles, AFileOfAnotherKindIsAnsweredWithTheNextStep)
{
    write("a.json", "{}");
    ASSERT_TRUE(QDir(path("")).mkpath(QStringLiteral("art/empty")));
    ASSERT_EQ(quarvel("import hero.svg -o s.scene"), 0) << said;
    EXPECT_EQ(quarvel("normalmap a.json"), 1);
    EXPECT_EQ(said, "quarvel: a.json: this is an animation; run quarvel import a.json\n");
    for (const std::string missing : {"missing.svg", "missing.png", "missing.psd", "missing.json"}) {
        EXPECT_EQ(quarvel(("normalmap " + missing).c_str()), 1);
        EXPECT_EQ(said, "quarvel: " + missing + ": there is no such file\n");
    }
    EXPECT_EQ(quarvel("normalmap s.scene"), 1);
    EXPECT_EQ(said, "quarvel: s.scene: this is a scene; run quarvel render s.scene -o n.####.png\n");
    EXPECT_EQ(quarvel("import art -o art.scene"), 1);
    EXPECT_EQ(said, "quarvel: art: this is a folder; write art/*.svg\n");
    EXPECT_EQ(quarvel("normalmap art"), 2);
    EXPECT_THAT(said, HasSubstr("art: there is no drawing in this folder"));
    write("art/a.PNG", "");
    EXPECT_EQ(quarvel("import art -o art.scene"), 1);
    EXPECT_EQ(said, "quarvel: art: this is a folder; write art/*.PNG\n");
    EXPECT_EQ(quarvel("inspect missing.svg"), 1);
    EXPECT_EQ(said, "quarvel: missing.svg: there is no such file or folder\n");
    for (const char* words : {"set hero.svg rate 25", "render hero.svg -o n.png"}) {
        EXPECT_EQ(quarvel(words), 1);
        EXPECT_EQ(
            said,
            "quarvel: hero.svg: this is a file, and a scene is a folder; make one of it: quarvel import hero.svg\n");
    }
    EXPECT_EQ(quarvel("set missing.scene rate 25"), 1);
    EXPECT_THAT(said, HasSubstr("there is no scene \"missing.scene\""));
}

TEST_F(NamedFiles, TheNameOfAFileThatCannotBeReadStandsOnce)
{
    write("broken.svg", "<svg");
    write("broken.xyz", "");
    for (const char* words :
         {"normalmap broken.svg", "inspect broken.svg", "normalmap none.svg", "inspect broken.xyz"}) {
        EXPECT_EQ(quarvel(words), 1);
        EXPECT_EQ(QString::fromStdString(said).count(QString::fromUtf8(words).section(u' ', 1)), 1) << said;
    }
}

TEST_F(NamedFiles, AFolderKeepsItsStructure)
{
    ASSERT_TRUE(QDir(path("")).mkpath(QStringLiteral("art/trees/old")));
    draw("art/hero.svg");
    draw("art/trees/hero.svg");
    draw("art/trees/old/oak.svg");
    EXPECT_EQ(quarvel("normalmap art -o maps"), 0) << said;
    for (const char* map : {"maps/hero_n.png", "maps/trees/hero_n.png", "maps/trees/old/oak_n.png"})
        EXPECT_TRUE(exists(map)) << map;
}

TEST_F(NamedFiles, AFoldersOwnMapsAreNoDrawings)
{
    ASSERT_TRUE(QDir(path("")).mkdir(QStringLiteral("art")));
    draw("art/hero.svg");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(quarvel("normalmap art"), 0) << said;
    EXPECT_EQ(QDir(path("art")).entryList(QDir::Files),
              (QStringList{QStringLiteral("hero.svg"), QStringLiteral("hero_n.png")}));
}

// Files whose names are no text. A shell passes the bytes as they are; QProcess passes texts only.
class NamesThatAreNoText : public Words
{
protected:
    // The folder in, with a drawing caf\xe9.svg and a folder o\xe9 that holds y.svg.
    void SetUp() override
    {
        Words::SetUp();
        ASSERT_TRUE(QDir(path("")).mkdir(QStringLiteral("in")));
        draw("in/good.svg");
        ASSERT_EQ(inShell("cp in/good.svg \"$(printf 'in/caf\\351.svg')\" && mkdir \"$(printf 'in/o\\351')\" && "
                          "cp in/good.svg \"$(printf 'in/o\\351/y.svg')\""),
                  0)
            << "the file system of temporary files has to take any bytes as names: " << said;
    }
    // Qt does not find what it cannot name when the test's folder is removed.
    void TearDown() override { EXPECT_EQ(inShell("rm -r in"), 0) << said; }

    int inShell(const char* command)
    {
        return run(QStringLiteral("/bin/sh"),
                   {QStringLiteral("-c"), QString::fromUtf8(command), QStringLiteral(QUARVEL_PROGRAM)});
    }
};

TEST_F(NamesThatAreNoText, AreRead)
{
    ASSERT_EQ(quarvel("normalmap in/good.svg -o good.png"), 0) << said;
    EXPECT_EQ(inShell("\"$0\" normalmap in/caf*.svg -o map.png"), 0) << said;
    EXPECT_EQ(QImage(path("map.png")), QImage(path("good.png")));
    EXPECT_EQ(inShell("\"$0\" normalmap in/o*/y.svg -o map2.png"), 0) << said;
    EXPECT_EQ(QImage(path("map2.png")), QImage(path("good.png")));
    EXPECT_EQ(inShell("\"$0\" import in/caf*.svg -o s.scene"), 0) << said;
    EXPECT_EQ(inShell("\"$0\" inspect in/caf*.svg s.scene"), 0) << said;
}

TEST_F(NamesThatAreNoText, AreShownEscaped)
{
    EXPECT_EQ(inShell("\"$0\" normalmap in/caf*.svg"), 2);
    EXPECT_EQ(said, "quarvel: in/caf%E9.svg: the name is not UTF-8, and files are read but not made under such names; "
                    "name the map, or a folder for the maps, with -o\n");
    EXPECT_EQ(inShell("\"$0\" normalmap \"$(printf 'no\\351.svg')\" -o map.png"), 1);
    EXPECT_THAT(said, HasSubstr("no%E9.svg: there is no such file or folder"));
    EXPECT_FALSE(exists("map.png"));
}

TEST_F(NamesThatAreNoText, AreReadInFolders)
{
    EXPECT_EQ(quarvel("normalmap in -o out"), 0) << said;
    for (const char* map : {"out/good_n.png", "out/caf%E9_n.png", "out/o%E9/y_n.png"})
        EXPECT_TRUE(exists(map)) << map;
    EXPECT_EQ(inShell("\"$0\" normalmap in/o* -o below && ls below"), 0) << said;
    EXPECT_TRUE(exists("below/y_n.png"));
}

TEST_F(NamesThatAreNoText, NameNoMapsBesideTheDrawings)
{
    EXPECT_EQ(quarvel("normalmap in"), 0);
    EXPECT_THAT(said, HasSubstr("in: warning: left out: files whose names are not UTF-8 (1); rename them, or name a "
                                "folder for the maps with -o"));
    EXPECT_EQ(inShell("LC_ALL=C ls -b in in/o*"), 0);
    EXPECT_EQ(printed, "in:\ncaf\\351.svg\ngood.svg\ngood_n.png\no\\351\n\nin/o\\351:\ny.svg\ny_n.png\n");
}

TEST_F(NamesThatAreNoText, AreNotWritten)
{
    EXPECT_EQ(inShell("\"$0\" normalmap in/good.svg -o \"$(printf 'map\\351.png')\""), 2);
    EXPECT_EQ(said, "quarvel: map%E9.png is not UTF-8; --output takes names and words that are\n");
    EXPECT_EQ(inShell("\"$0\" import in/caf*.svg"), 2);
    EXPECT_THAT(said, HasSubstr("name the scene with -o"));
    ASSERT_EQ(quarvel("import in/good.svg -o s.scene"), 0) << said;
    EXPECT_EQ(inShell("mv s.scene \"$(printf 'in/s\\351.scene')\" && \"$0\" set in/s*.scene rate 25"), 1);
    EXPECT_THAT(said, HasSubstr("in/s%E9.scene: the name is not UTF-8, and scenes are opened only under names that"));
}

TEST_F(NamedFiles, APictureThatDoesNotFitInMemoryIsRefusedWithTheSizeThatDoes)
{
    // What a scheduler gives to a job, in MiB.
    environment.insert(QStringLiteral("SLURM_MEM_PER_NODE"), QStringLiteral("16"));
    EXPECT_EQ(quarvel("normalmap hero.svg --size 4000"), 1);
    const QRegularExpressionMatch fits =
        QRegularExpression(QStringLiteral("; (\\d+ x \\d+) pixels fit")).match(QString::fromStdString(said));
    ASSERT_TRUE(fits.hasMatch()) << said;
    EXPECT_EQ(entries(), (QStringList{QStringLiteral("hero.svg"), QStringLiteral("tree.svg")}));
    EXPECT_EQ(quarvel(QStringLiteral("normalmap hero.svg --size ").split(u' ', Qt::SkipEmptyParts) +
                      QStringList(fits.captured(1).remove(u' '))),
              0)
        << said;
}

TEST_F(NamedFiles, APngFileThatIsCutShortIsOneLine)
{
    write("cut.png", QByteArray::fromHex("89504e470d0a1a0a0000000d49484452"));
    EXPECT_EQ(quarvel("normalmap cut.png"), 1);
    EXPECT_EQ(said,
              "quarvel: cut.png: the picture is cut short: it ends after 16 bytes, in the middle of its content; copy "
              "or save it again\n");
}

// 37 million pixels, which take 149 MB.
TEST_F(NamedFiles, ABitmapMayBeAsLargeAsTheMemoryOfTheJobAllows)
{
    QImage large(6200, 6000, QImage::Format_Indexed8);
    large.setColorTable({qRgba(0, 0, 0, 0), qRgb(200, 80, 40)});
    large.fill(0);
    for (int y = 1000; y < 5000; ++y)
        std::fill_n(large.scanLine(y) + 1000, 4000, uchar{1});
    ASSERT_TRUE(large.save(path("large.png")));
    EXPECT_EQ(quarvel("normalmap large.png --size 62 -o map.png"), 0) << said;
    EXPECT_EQ(QImage(path("map.png")).size(), QSize(62, 60));

    environment.insert(QStringLiteral("SLURM_MEM_PER_NODE"), QStringLiteral("500"));
    EXPECT_EQ(quarvel("normalmap large.png --size 62 -o other.png"), 1);
    // 128 MiB at 4 bytes are 33,554,432 pixels; 5888 x 5698 have 33,549,824, in the same proportions.
    EXPECT_THAT(said, HasSubstr("6200 x 6000 pixels, more than the 33 million for which there is memory; 5888 x 5698 "
                                "pixels fit"));
    EXPECT_FALSE(entries().contains(QStringLiteral("other.png")));
}
