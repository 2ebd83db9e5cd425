// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the program says and does about words that cannot be what somebody meant.
#include "QuarvelImageIO/IIO_PictureFile.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

    void write(const QString& name, const QByteArray& content) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    // The exit code; what it said on standard error is in said.
    int quarvel(const QStringList& words, const QString& output = {}, const QString& input = {})
    {
        return run(QStringLiteral(QUARVEL_PROGRAM), words, output, input);
    }
    int run(const QString& program, const QStringList& words, const QString& output = {}, const QString& input = {})
    {
        QProcess process;
        process.setWorkingDirectory(_folder.path());
        process.setProcessEnvironment(environment);
        if (!output.isEmpty())
            process.setStandardOutputFile(output);
        if (!input.isEmpty())
            process.setStandardInputFile(input);
        process.start(program, words);
        EXPECT_TRUE(process.waitForFinished(120'000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        said = process.readAllStandardError().toStdString();
        return process.exitCode();
    }
    QJsonObject json(const char* words)
    {
        quarvel(QString::fromUtf8(words).split(u' '), path(QStringLiteral("told.json")));
        QFile file(path(QStringLiteral("told.json")));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
        EXPECT_TRUE(document.isObject()) << words;
        return document.object();
    }
    int quarvel(const char* words) { return quarvel(QString::fromUtf8(words).split(u' ')); }

    std::string said;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

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

TEST_F(Words, AnOptionWithoutItsValueIsNamed)
{
    for (const char* option : {"--html", "-o"}) {
        EXPECT_EQ(quarvel({QStringLiteral("normalmap"), QStringLiteral("hero.svg"), QString::fromUtf8(option)}), 2);
        EXPECT_EQ(said, std::string("quarvel: ") + option +
                            " is followed by its value, and there is none; quarvel help normalmap says which\n");
    }
    EXPECT_EQ(quarvel("normalmap hero.svg --quiet=yes"), 2);
    EXPECT_THAT(said, HasSubstr("--quiet"));
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

TEST_F(Words, ALayerOfNumbersNeedsLayers)
{
    for (const char* words :
         {"normalmap hero.svg -o n.exr --exr signed,numbers", "render s.scene -o n.exr --exr numbers --exr map"}) {
        EXPECT_EQ(quarvel(words), 2);
        EXPECT_THAT(said, HasSubstr("--exr numbers adds a layer"));
    }
    EXPECT_EQ(quarvel("normalmap hero.svg -o n.exr --exr half,numbers"), 0) << said;
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

TEST_F(Words, WhichOfTwoNumbersIsWrongIsSaid)
{
    EXPECT_EQ(quarvel("normalmap hero.svg --light 40,100"), 2);
    EXPECT_THAT(said, HasSubstr("--light (the second, above) takes a number from 0 to 90, not \"100\""));
    EXPECT_EQ(quarvel("normalmap hero.svg --light 400,45"), 2);
    EXPECT_THAT(said, HasSubstr("--light (the first, around) takes a number from -360 to 360, not \"400\""));
}

TEST_F(Words, AFormatThatKeepsLessIsNamed)
{
    EXPECT_EQ(quarvel("normalmap hero.svg -o hero.jpg"), 0);
    EXPECT_THAT(said, HasSubstr("hero.jpg: warning: .jpg files hold 8 bits a channel and no coverage"));
    EXPECT_EQ(quarvel("normalmap hero.svg -o hero.png"), 0);
    EXPECT_EQ(said, "");
}

TEST_F(Words, AnAtlasIsNotTakenForAnAnimation)
{
    write(QStringLiteral("atlas.json"), R"({"frames": {"a": {"frame": {"x": 0, "y": 0, "w": 8, "h": 8}}},
        "meta": {"image": "missing.png"}})");
    for (const char* command : {"normalmap", "inspect"}) {
        EXPECT_EQ(quarvel(QStringList{QLatin1String(command), QStringLiteral("atlas.json")}), 1);
        EXPECT_EQ(said, "quarvel: atlas.json: this is an atlas; run quarvel normalmap --atlas atlas.json\n");
    }
}

TEST_F(Words, APipeIsNotOpenedToSeeWhatItHolds)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(QStringLiteral("pipe.json"))).constData(), 0600), 0);
    EXPECT_EQ(quarvel("normalmap pipe.json"), 1);
    EXPECT_EQ(said, "quarvel: pipe.json: this is an animation; run quarvel import pipe.json\n");
}

TEST_F(Words, AFileInPlaceOfACommandIsAnsweredWithItsCommand)
{
    write(QStringLiteral("a.json"), "{}");
    ASSERT_EQ(quarvel("import hero.svg -o s.scene"), 0) << said;
    EXPECT_EQ(quarvel("hero.svg"), 2);
    EXPECT_EQ(said, "quarvel: there is no command \"hero.svg\"; did you mean quarvel normalmap hero.svg?\n");
    EXPECT_EQ(quarvel("a.json"), 2);
    EXPECT_THAT(said, HasSubstr("did you mean quarvel import a.json?"));
    EXPECT_EQ(quarvel("s.scene"), 2);
    EXPECT_THAT(said, HasSubstr("did you mean quarvel render s.scene -o n.####.png?"));
}

TEST_F(Words, AFileOfAnotherKindIsAnsweredWithTheNextStep)
{
    write(QStringLiteral("a.json"), "{}");
    ASSERT_TRUE(QDir(path(QString())).mkpath(QStringLiteral("art/empty")));
    ASSERT_EQ(quarvel("import hero.svg -o s.scene"), 0) << said;
    EXPECT_EQ(quarvel("normalmap a.json"), 1);
    EXPECT_EQ(said, "quarvel: a.json: this is an animation; run quarvel import a.json\n");
    EXPECT_EQ(quarvel("normalmap missing.json"), 1);
    EXPECT_EQ(said, "quarvel: missing.json: there is no such file\n");
    EXPECT_EQ(quarvel("normalmap s.scene"), 1);
    EXPECT_EQ(said, "quarvel: s.scene: this is a scene; run quarvel render s.scene -o n.####.png\n");
    EXPECT_EQ(quarvel("import art -o art.scene"), 1);
    EXPECT_EQ(said, "quarvel: art: this is a folder; write art/*.svg\n");
    EXPECT_EQ(quarvel("normalmap art"), 2);
    EXPECT_THAT(said, HasSubstr("art: there is no drawing in this folder"));
    write(QStringLiteral("art/a.PNG"), "");
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

TEST_F(Words, TheNameOfAFileThatCannotBeReadStandsOnce)
{
    write(QStringLiteral("broken.svg"), "<svg");
    write(QStringLiteral("broken.xyz"), "");
    for (const char* words :
         {"normalmap broken.svg", "inspect broken.svg", "normalmap none.svg", "inspect broken.xyz"}) {
        EXPECT_EQ(quarvel(words), 1);
        EXPECT_EQ(QString::fromStdString(said).count(QString::fromUtf8(words).section(u' ', 1)), 1) << said;
    }
}

TEST_F(Words, TwoDrawingsOfOneNameAreBothNamedWithTwoWaysOut)
{
    ASSERT_TRUE(QDir(path(QString())).mkdir(QStringLiteral("b")));
    draw(QStringLiteral("b/hero.svg"));
    EXPECT_EQ(quarvel("normalmap hero.svg b/hero.svg -o maps"), 2);
    EXPECT_THAT(said, HasSubstr("hero.svg and b/hero.svg would both be written to maps/hero_n.png; rename one of them, "
                                "or run quarvel once for each, with another folder behind -o"));
}

TEST_F(Words, AFolderKeepsItsStructure)
{
    ASSERT_TRUE(QDir(path(QString())).mkpath(QStringLiteral("art/trees/old")));
    draw(QStringLiteral("art/hero.svg"));
    draw(QStringLiteral("art/trees/hero.svg"));
    draw(QStringLiteral("art/trees/old/oak.svg"));
    EXPECT_EQ(quarvel("normalmap art -o maps"), 0) << said;
    for (const char* map : {"maps/hero_n.png", "maps/trees/hero_n.png", "maps/trees/old/oak_n.png"})
        EXPECT_TRUE(QFile::exists(path(QString::fromUtf8(map)))) << map;
}

TEST_F(Words, AFoldersOwnMapsAreNoDrawings)
{
    ASSERT_TRUE(QDir(path(QString())).mkdir(QStringLiteral("art")));
    draw(QStringLiteral("art/hero.svg"));
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(quarvel("normalmap art"), 0) << said;
    EXPECT_EQ(QDir(path(QStringLiteral("art"))).entryList(QDir::Files),
              (QStringList{QStringLiteral("hero.svg"), QStringLiteral("hero_n.png")}));
}

TEST_F(Words, StandardInputAndOutputAreWrittenAsOneHyphen)
{
    ASSERT_EQ(quarvel("normalmap hero.svg"), 0) << said;
    const auto beside = IIO_read(path(QStringLiteral("hero_n.png")));
    ASSERT_TRUE(beside);
    for (const char* words : {"normalmap -", "normalmap hero.svg -o -", "normalmap - -o -"}) {
        ASSERT_EQ(quarvel(QString::fromUtf8(words).split(u' '), path(QStringLiteral("piped.png")),
                          path(QStringLiteral("hero.svg"))),
                  0)
            << said;
        const auto piped = IIO_read(path(QStringLiteral("piped.png")));
        ASSERT_TRUE(piped) << words;
        for (int y = 0; y < beside->height(); ++y)
            ASSERT_TRUE(std::ranges::equal(piped->row<std::uint16_t>(y), beside->row<std::uint16_t>(y))) << words;
    }
    EXPECT_EQ(quarvel("normalmap hero.svg tree.svg -o -"), 2);
    EXPECT_THAT(said, HasSubstr("there are 2 drawings"));
    EXPECT_EQ(quarvel({QStringLiteral("import"), QStringLiteral("-"), QStringLiteral("-o"), QStringLiteral("p.scene")},
                      {}, path(QStringLiteral("hero.svg"))),
              0)
        << said;
    write(QStringLiteral("text"), "no drawing");
    EXPECT_EQ(quarvel({QStringLiteral("inspect"), QStringLiteral("-")}, {}, path(QStringLiteral("text"))), 1);
    EXPECT_THAT(said, HasSubstr("standard input holds no drawing"));
}

TEST_F(Words, JsonHoldsResultsWarningsAndErrorsOfEveryCommand)
{
    QJsonObject told = json("normalmap hero.svg none.svg -o maps.d --json");
    EXPECT_EQ(told[QStringLiteral("command")], QStringLiteral("normalmap"));
    EXPECT_EQ(told[QStringLiteral("exitCode")], 1);
    EXPECT_EQ(told[QStringLiteral("results")][0][QStringLiteral("normalMap")], QStringLiteral("maps.d/hero_n.png"));
    EXPECT_EQ(told[QStringLiteral("errors")][0][QStringLiteral("where")], QStringLiteral("none.svg"));

    told = json("normalmap hero.svg -o hero.jpg --json");
    EXPECT_EQ(told[QStringLiteral("warnings")][0][QStringLiteral("where")], QStringLiteral("hero.jpg"));

    told = json("import --json hero.svg -o s.scene");
    EXPECT_EQ(told[QStringLiteral("results")][0][QStringLiteral("scene")], QStringLiteral("s.scene"));
    EXPECT_EQ(told[QStringLiteral("results")][0][QStringLiteral("lastFrame")], 1);

    told = json("inspect hero.svg s.scene --json");
    EXPECT_EQ(told[QStringLiteral("results")][0][QStringLiteral("objects")][0][QStringLiteral("share")], 0.25);
    EXPECT_EQ(told[QStringLiteral("results")][1][QStringLiteral("frameWidth")], 720);
    EXPECT_EQ(told[QStringLiteral("results")][1][QStringLiteral("modules")].toArray().size(), 5);

    told = json("set s.scene Normal-Map.BlurScale 2 --json");
    EXPECT_EQ(told[QStringLiteral("results")][0][QStringLiteral("changed")], true);
    const QJsonValue change = told[QStringLiteral("results")][0][QStringLiteral("changes")][0];
    EXPECT_EQ(change[QStringLiteral("what")], QStringLiteral("Normal-Map.BlurScale"));
    EXPECT_EQ(change[QStringLiteral("before")], QStringLiteral("1"));
    EXPECT_EQ(change[QStringLiteral("after")], QStringLiteral("2"));

    told = json("render s.scene -o n.png --resolution 16 --json");
    EXPECT_EQ(told[QStringLiteral("results")][0][QStringLiteral("written")], 1);
    EXPECT_EQ(told[QStringLiteral("exitCode")], 0);

    told = json("render s.scene --json");
    EXPECT_EQ(told[QStringLiteral("exitCode")], 2);
    EXPECT_EQ(told[QStringLiteral("errors")].toArray().size(), 1);
}

TEST_F(Words, ProgressIsToldWhereNobodyWatchesOnlyWhenAskedFor)
{
    ASSERT_EQ(quarvel("import hero.svg -o s.scene"), 0) << said;
    EXPECT_EQ(quarvel("render s.scene -o n.png --resolution 16"), 0);
    EXPECT_EQ(said, "");
    EXPECT_EQ(quarvel("render s.scene -o n.png --resolution 16 --progress lines"), 0);
    EXPECT_THAT(said, HasSubstr("100%\n"));
}

TEST_F(Words, AChangeIsAnsweredWithWhatWasTypedAndBothValues)
{
    ASSERT_EQ(quarvel("import hero.svg --shape rim -o s.scene"), 0) << said;
    const auto answer = [this](const char* words) {
        EXPECT_EQ(quarvel(QString::fromUtf8(words).split(u' '), path(QStringLiteral("answer"))), 0) << said;
        QFile file(path(QStringLiteral("answer")));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    };
    EXPECT_EQ(answer("set s.scene Normal-Map.bevel-multiplier 2.5"),
              "s.scene: Normal-Map.bevel-multiplier: 1 -> 2.5\n");
    EXPECT_EQ(answer("set s.scene Normal-Map.ObjectList 1:60:1:1"),
              "s.scene: Normal-Map.ObjectList: 1:24:1:1 -> 1:60:1:1\n");
    EXPECT_EQ(answer("set s.scene --object 1:bevel=30:tilt=10,0"),
              "s.scene: object 1 hero, bevel: 60 -> 30\ns.scene: object 1 hero, tilt: 0,0 -> 10,0\n");
    EXPECT_EQ(answer("set s.scene --object all:cutout"), "s.scene: object 1 hero, cutout: no -> yes\n");
    EXPECT_EQ(answer("set s.scene rate 25"), "s.scene: rate: 24 -> 25\n");
    EXPECT_EQ(answer("set s.scene rate 25"), "s.scene: nothing to change\n");
}

TEST_F(Words, ObjectsThatARowDoesNotNameStayInTheTable)
{
    write(QStringLiteral("two.svg"), R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64">
        <g id="a"><rect width="30" height="30" fill="red"/></g><g id="b"><rect x="34" width="30" height="30"/></g></svg>)");
    ASSERT_EQ(quarvel("import two.svg --objects groups --shape rim -o s.scene"), 0) << said;
    const auto table = [&] {
        const QJsonObject told = json("inspect s.scene --json --all");
        for (const QJsonValue module : told[QStringLiteral("results")][0][QStringLiteral("modules")].toArray())
            if (module[QStringLiteral("name")] == QStringLiteral("Normal-Map"))
                return module[QStringLiteral("attributes")][QStringLiteral("ObjectList")].toString().toStdString();
        return std::string("no node");
    };
    ASSERT_EQ(table(), "1:24:1:1;2:24:1:1");
    EXPECT_EQ(quarvel("set s.scene Normal-Map.ObjectList 1:60:1:1"), 0) << said;
    EXPECT_EQ(table(), "1:60:1:1;2:24:1:1");
    EXPECT_EQ(quarvel("set s.scene Normal-Map.ObjectList 3:5:1:1;2:7:2:1"), 0) << said;
    EXPECT_EQ(table(), "1:60:1:1;2:7:2:1;3:5:1:1");
    EXPECT_EQ(quarvel("set s.scene Normal-Map.ObjectList nothing"), 2);
    EXPECT_THAT(said, HasSubstr("expected NUMBER:BEVEL:ELEVATION:SMOOTHNESS"));
    EXPECT_EQ(quarvel({QStringLiteral("set"), QStringLiteral("s.scene"), QStringLiteral("Normal-Map.ObjectList"), {}}),
              0);
    EXPECT_EQ(table(), "");
}

TEST_F(Words, APictureThatDoesNotFitInMemoryIsRefusedWithTheSizeThatDoes)
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

TEST_F(Words, AFileWhoseNameIsNoTextIsNamedAndLeftAlone)
{
    const QByteArray folder = QFile::encodeName(path(QStringLiteral("in")));
    ASSERT_EQ(::mkdir(folder.constData(), 0700), 0);
    draw(QStringLiteral("in/good.svg"));
    const QByteArray bad = folder + "/caf\xe9.svg";
    const int file = ::open(bad.constData(), O_CREAT | O_WRONLY, 0600);
    if (file < 0)
        GTEST_SKIP() << "this file system takes names in UTF-8 only";
    ::close(file);

    EXPECT_EQ(quarvel("normalmap in -o out"), 0);
    EXPECT_THAT(said, HasSubstr("in: warning: left out: files whose names are not UTF-8 (1); rename them"));
    EXPECT_TRUE(QFile::exists(path(QStringLiteral("out/good_n.png"))));
    // A shell passes the bytes as they are; QProcess passes texts only.
    EXPECT_EQ(run(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QStringLiteral("exec \"$0\" normalmap in/caf*.svg"),
                                              QStringLiteral(QUARVEL_PROGRAM)}),
              1);
    EXPECT_THAT(said, AllOf(HasSubstr("in/caf\\xe9.svg: the name is not UTF-8"), HasSubstr("rename it")));
    EXPECT_EQ(::unlink(bad.constData()), 0);
}

// 37 million pixels, which take 149 MB.
TEST_F(Words, ABitmapMayBeAsLargeAsTheMemoryOfTheJobAllows)
{
    QImage large(6200, 6000, QImage::Format_Indexed8);
    large.setColorTable({qRgba(0, 0, 0, 0), qRgb(200, 80, 40)});
    large.fill(0);
    for (int y = 1000; y < 5000; ++y)
        std::fill_n(large.scanLine(y) + 1000, 4000, uchar{1});
    ASSERT_TRUE(large.save(path(QStringLiteral("large.png"))));
    EXPECT_EQ(quarvel("normalmap large.png --size 62 -o map.png"), 0) << said;
    EXPECT_EQ(QImage(path(QStringLiteral("map.png"))).size(), QSize(62, 60));

    environment.insert(QStringLiteral("SLURM_MEM_PER_NODE"), QStringLiteral("500"));
    EXPECT_EQ(quarvel("normalmap large.png --size 62 -o other.png"), 1);
    EXPECT_THAT(said, HasSubstr("6200 x 6000 pixels, more than the 33 million for which there is memory"));
    EXPECT_FALSE(entries().contains(QStringLiteral("other.png")));
}

// A drawing in a pipe holds the program until the test lets go, so that the signal comes while it works.
class StoppedRun : public Words
{
protected:
    void SetUp() override
    {
        Words::SetUp();
        ASSERT_EQ(::mkfifo(QFile::encodeName(path(QStringLiteral("pipe_2.svg"))).constData(), 0600), 0);
        draw(QStringLiteral("pipe_1.svg"));
        draw(QStringLiteral("pipe_3.svg"));
    }

    // The exit code of a run that gets the signal while it reads the pipe, through which the drawing comes then.
    int stopped(const char* words, int signal, const char* pipeName = "pipe_2.svg",
                const char* drawingName = "hero.svg")
    {
        QProcess process;
        process.setWorkingDirectory(path(QString()));
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
        QFile drawing(path(QString::fromLatin1(drawingName)));
        EXPECT_TRUE(drawing.open(QIODevice::ReadOnly));
        const QByteArray bytes = drawing.readAll();
        EXPECT_EQ(::write(pipe, bytes.constData(), static_cast<std::size_t>(bytes.size())), bytes.size());
        ::close(pipe);
        EXPECT_TRUE(process.waitForFinished(120'000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        said = process.readAllStandardError().toStdString();
        return process.exitCode();
    }

private:
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
        const QByteArray name = QFile::encodeName(path(QString::fromLatin1(pipeName)));
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
    EXPECT_EQ(QDir(path(QStringLiteral("maps"))).entryList(QDir::Files | QDir::Hidden),
              QStringList(QStringLiteral("pipe_1_n.png")));
    EXPECT_TRUE(IIO_read(path(QStringLiteral("maps/pipe_1_n.png"))));
}

TEST_F(StoppedRun, OfAPageOfSpritesWritesNothing)
{
    QImage page(64, 64, QImage::Format_ARGB32);
    page.fill(Qt::red);
    ASSERT_TRUE(page.save(path(QStringLiteral("page.png"))));
    QFile atlas(path(QStringLiteral("page.json")));
    ASSERT_TRUE(atlas.open(QIODevice::WriteOnly));
    atlas.write(R"({"frames": {"a": {"frame": {"x": 0, "y": 0, "w": 32, "h": 64}},
                               "b": {"frame": {"x": 32, "y": 0, "w": 32, "h": 64}}}, "meta": {"image": "page.png"}})");
    atlas.close();
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(QStringLiteral("pipe.json"))).constData(), 0600), 0);
    EXPECT_EQ(stopped("normalmap --atlas pipe.json -o n.png", SIGINT, "pipe.json", "page.json"), 130);
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("n.png"))));
}

TEST_F(StoppedRun, OfAnImportMakesNoScene)
{
    EXPECT_EQ(stopped("import pipe_1.svg pipe_2.svg pipe_3.svg -o p.scene", SIGINT), 130);
    EXPECT_THAT(said, HasSubstr("stopped; p.scene is as it was"));
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("p.scene"))));
}

TEST_F(StoppedRun, OfAnInspectionSaysHowManyAreTold)
{
    EXPECT_EQ(stopped("inspect pipe_1.svg pipe_2.svg pipe_3.svg", SIGTERM), 143);
    EXPECT_THAT(said, HasSubstr("stopped; 2 of 3 are inspected"));
}

} // namespace
