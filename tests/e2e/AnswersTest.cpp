// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the program says of its work: on standard output, as JSON, and while it works.
#include "WordsFixture.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <gmock/gmock.h>

#include <algorithm>

using testing::HasSubstr;

namespace {

class Answers : public Words
{
protected:
    QJsonObject json(const char* words)
    {
        quarvel(words);
        const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(printed));
        EXPECT_TRUE(document.isObject()) << words;
        return document.object();
    }
};

} // namespace

TEST_F(Answers, StandardInputAndOutputAreWrittenAsOneHyphen)
{
    ASSERT_EQ(quarvel("normalmap hero.svg"), 0) << said;
    const auto beside = IIO_read(path("hero_n.png"));
    ASSERT_TRUE(beside);
    for (const char* words : {"normalmap -", "normalmap hero.svg -o -", "normalmap - -o -"}) {
        const Streams streams{path("hero.svg"), path("piped.png")};
        ASSERT_EQ(quarvel(QString::fromUtf8(words).split(u' '), streams), 0) << said;
        const auto piped = IIO_read(path("piped.png"));
        ASSERT_TRUE(piped) << words;
        for (int y = 0; y < beside->height(); ++y)
            ASSERT_TRUE(std::ranges::equal(piped->row<std::uint16_t>(y), beside->row<std::uint16_t>(y))) << words;
    }
    EXPECT_EQ(quarvel("normalmap hero.svg tree.svg -o -"), 2);
    EXPECT_THAT(said, HasSubstr("there are 2 drawings"));
    EXPECT_EQ(quarvel(QStringLiteral("import - -o p.scene").split(u' '), {path("hero.svg"), {}}), 0) << said;
    write("text", "no drawing");
    EXPECT_EQ(quarvel(QStringLiteral("inspect -").split(u' '), {path("text"), {}}), 1);
    EXPECT_THAT(said, HasSubstr("standard input holds no drawing"));
}

TEST_F(Answers, JsonHoldsResultsWarningsAndErrorsOfEveryCommand)
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

TEST_F(Answers, ProgressIsToldWhereNobodyWatchesOnlyWhenAskedFor)
{
    ASSERT_EQ(quarvel("import hero.svg -o s.scene"), 0) << said;
    EXPECT_EQ(quarvel("render s.scene -o n.png --resolution 16"), 0);
    EXPECT_EQ(said, "");
    EXPECT_EQ(quarvel("render s.scene -o n.png --resolution 16 --progress lines"), 0);
    EXPECT_THAT(said, HasSubstr("100%\n"));
}

TEST_F(Answers, ResultsThatNobodyReceivesAreAFailure)
{
    if (!QFile::exists("/dev/full"))
        GTEST_SKIP() << "this system has no device that is always full";
    EXPECT_EQ(quarvel({QStringLiteral("inspect"), QStringLiteral("hero.svg")}, {{}, QStringLiteral("/dev/full")}), 1);
    EXPECT_THAT(said, HasSubstr("standard output"));
}

TEST_F(Answers, AChangeIsAnsweredWithWhatWasTypedAndBothValues)
{
    ASSERT_EQ(quarvel("import hero.svg --shape rim -o s.scene"), 0) << said;
    const auto answer = [this](const char* words) {
        EXPECT_EQ(quarvel(words), 0) << said;
        return printed;
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

TEST_F(Answers, ObjectsThatARowDoesNotNameStayInTheTable)
{
    write("two.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64">
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

TEST_F(Answers, OfASceneTellTheColoursAsSoonAsOneOfThemCarves)
{
    const auto tellsColours = [this](const char* words) {
        EXPECT_EQ(quarvel(words), 0) << said;
        return printed.find("ColorInformation") != std::string::npos;
    };
    ASSERT_EQ(quarvel("import hero.svg tree.svg -o s.scene"), 0) << said;
    EXPECT_FALSE(tellsColours("inspect s.scene"));
    EXPECT_THAT(printed, HasSubstr("\nnodes\n"));
    EXPECT_TRUE(tellsColours("inspect s.scene --all"));
    const QRegularExpressionMatch table = QRegularExpression(QStringLiteral("ColorInformation  (\\S+:)255(:\\S+)"))
                                              .match(QString::fromStdString(printed));
    ASSERT_TRUE(table.hasMatch()) << printed;
    const QString what = QStringLiteral("set s.scene Normal-Map.ColorInformation ");
    EXPECT_EQ(quarvel(qPrintable(what + table.captured(1) + u'0' + table.captured(2))), 0) << said;
    EXPECT_TRUE(tellsColours("inspect s.scene")) << "a colour carves";
    EXPECT_EQ(quarvel({QStringLiteral("set"), QStringLiteral("s.scene"), QStringLiteral("Normal-Map.ColorInformation"),
                       QStringLiteral("0123456789abcdef:255:other")}),
              0)
        << said;
    EXPECT_TRUE(tellsColours("inspect s.scene")) << "the palette's colour is missing";
}
