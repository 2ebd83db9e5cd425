// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the program chose in a drawing can be seen, named and said again.
#include "ProgramFixture.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;

namespace {

// A round body with a blue nose, over a green foot.
const char* const kFigure = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 96 96" width="96" height="96">
<ellipse cx="48" cy="80" rx="40" ry="12" fill="#338833"/>
<circle cx="48" cy="44" r="34" fill="#e0a060"/>
<circle cx="48" cy="50" r="9" fill="#3344cc"/>
</svg>)";

// The chosen options as a shell takes them: lines that end with a backslash are joined.
QString optionsIn(const QString& output)
{
    const QString joined = output.section(QStringLiteral("chosen: "), 1).remove(QStringLiteral("\\\n"));
    return joined.section(QLatin1Char('\n'), 0, 0).simplified();
}

class ChosenObjectsOfAFigure : public Program
{
protected:
    void SetUp() override { write("figure.svg", kFigure); }
};

TEST_F(ChosenObjectsOfAFigure, GiveTheSameBytesWhenTheirValuesArePastedAsOptions)
{
    const Outcome chosen = quarvel("normalmap figure.svg -o chosen.png");
    ASSERT_EQ(chosen.exitCode, 0) << chosen.messages;
    const QString options = optionsIn(chosen.text());
    ASSERT_TRUE(options.startsWith(QStringLiteral("--object 1:bevel="))) << chosen.output;
    EXPECT_EQ(options.count(QStringLiteral("--object")), 3);
    EXPECT_EQ(chosen.text().count(QStringLiteral("\n        --object")), 2) << "a line each, below each other";
    const Outcome pasted = quarvel("normalmap figure.svg -o pasted.png --shape rim " + options);
    ASSERT_EQ(pasted.exitCode, 0) << pasted.messages;
    EXPECT_EQ(bytes("chosen.png"), bytes("pasted.png"));
    ASSERT_EQ(quarvel("normalmap figure.svg -o rim.png --shape rim").exitCode, 0);
    EXPECT_NE(bytes("chosen.png"), bytes("rim.png"));
}

TEST_F(ChosenObjectsOfAFigure, AreToldWithTheValuesThatWereSaidForThem)
{
    const Outcome chosen = quarvel("normalmap figure.svg -o chosen.png --bevel 24 --object 2:elevation=0.5");
    ASSERT_EQ(chosen.exitCode, 0) << chosen.messages;
    const QString options = optionsIn(chosen.text());
    EXPECT_EQ(options.count(QStringLiteral(":bevel=24:")), 3) << qPrintable(options);
    EXPECT_TRUE(options.contains(QStringLiteral("--object 2:bevel=24:elevation=0.5:"))) << qPrintable(options);
    ASSERT_EQ(quarvel("normalmap figure.svg -o pasted.png " + options).exitCode, 0);
    EXPECT_EQ(bytes("chosen.png"), bytes("pasted.png"));
}

TEST_F(ChosenObjectsOfAFigure, AreListedWithTheValuesThatTheDrawingSays)
{
    QByteArray figure = kFigure;
    write("own.svg", figure.replace("<svg", "<svg data-not-ours='1'")
                         .replace("</svg>", "<g data-vallorin-bevel='41.5'>"
                                            "<rect x='2' y='2' width='6' height='6' fill='#ff00ff'/></g></svg>"));
    const Outcome listed = quarvel("inspect own.svg --objects groups");
    ASSERT_EQ(listed.exitCode, 0) << listed.messages;
    EXPECT_THAT(listed.output, HasSubstr(" 41.5 "));
    const Outcome made = quarvel("normalmap own.svg --objects groups -o own.png");
    EXPECT_THAT(made.output, HasSubstr(":bevel=41.5:"));
}

TEST_F(ChosenObjectsOfAFigure, AreListedWithTheirNumbersNamesAndColours)
{
    const Outcome outcome = quarvel("inspect figure.svg");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    const QStringList lines = outcome.text().split(QLatin1Char('\n'));
    ASSERT_GE(lines.size(), 5);
    EXPECT_THAT(lines[2].toStdString(), AllOf(HasSubstr("1 "), HasSubstr("#338833")));
    EXPECT_THAT(lines[3].toStdString(), AllOf(HasSubstr("2 "), HasSubstr("#e0a060")));
    EXPECT_THAT(lines[4].toStdString(), AllOf(HasSubstr("3 "), HasSubstr("#3344cc")));
}

TEST_F(ChosenObjectsOfAFigure, ArePaintedInDifferentColours)
{
    ASSERT_EQ(quarvel("inspect figure.svg --explain objects.png").exitCode, 0);
    const QImage image(path("objects.png"));
    ASSERT_EQ(image.size(), QSize(1024, 1024));
    const auto at = [&](double x, double y) {
        return image.pixel(static_cast<int>(x * 1024 / 96), static_cast<int>(y * 1024 / 96));
    };
    EXPECT_NE(at(48, 20), at(20, 82)) << "body and foot";
    EXPECT_NE(at(48, 20), at(48, 56)) << "body and nose";
    EXPECT_EQ(at(48, 20), at(24, 44)) << "the body is of one colour";
    EXPECT_EQ(qAlpha(at(3, 3)), 0);
}

TEST_F(ChosenObjectsOfAFigure, AreNotPaintedOverTheirDrawing)
{
    ASSERT_EQ(quarvel("inspect figure.svg --explain sprite.png").exitCode, 0);
    const QByteArray drawing = bytes("sprite.png");
    const Outcome outcome = quarvel("inspect sprite.png --explain ./sprite.png");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.messages, HasSubstr("./sprite.png is the drawing, and would be lost; name another file"));
    EXPECT_EQ(bytes("sprite.png"), drawing);
}

TEST_F(ChosenObjectsOfAFigure, AreNotPaintedForAMap)
{
    ASSERT_EQ(quarvel("normalmap figure.svg -o map.exr").exitCode, 0);
    const Outcome outcome = quarvel("inspect map.exr --explain objects.png");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.messages, HasSubstr("is a rendered frame; --explain paints the objects of a drawing"));
}

TEST_F(ChosenObjectsOfAFigure, AreNotPaintedWhereNoFileCanBe)
{
    const Outcome outcome = quarvel("inspect figure.svg --explain none/objects.png");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.messages, HasSubstr("the folder \"none\" does not exist; make it first"));
}

TEST_F(ChosenObjectsOfAFigure, CanBeNamed)
{
    const QString listed = quarvel("inspect figure.svg").text().split(QLatin1Char('\n'))[4];
    const QString name = listed.simplified().section(QLatin1Char(' '), 1, 1);
    ASSERT_EQ(quarvel("normalmap figure.svg -o number.png --object 3:bevel=3").exitCode, 0);
    const Outcome named = quarvel("normalmap figure.svg -o name.png --object " + name + ":bevel=3");
    ASSERT_EQ(named.exitCode, 0) << named.messages;
    EXPECT_EQ(bytes("number.png"), bytes("name.png"));
    const Outcome unknown = quarvel("normalmap figure.svg -o none.png --object wing:bevel=3");
    EXPECT_EQ(unknown.exitCode, 1);
    EXPECT_THAT(unknown.messages, AllOf(HasSubstr("\"wing\""), HasSubstr(name.toStdString())));
    EXPECT_FALSE(QFile::exists(path("none.png")));
}

TEST_F(ChosenObjectsOfAFigure, TellInASceneWhyTheyAreObjects)
{
    ASSERT_EQ(quarvel("import figure.svg").exitCode, 0);
    const auto reasonsIn = [&](const QByteArray& json) {
        std::vector<std::string> reasons;
        for (const QJsonValue& found : QJsonDocument::fromJson(json).object().value(QLatin1String("results")).toArray())
            for (const QJsonValue& object : found[QLatin1String("objects")].toArray())
                reasons.push_back(object[QLatin1String("why")].toString().toStdString());
        return reasons;
    };
    const std::vector<std::string> ofDrawing = reasonsIn(quarvel("inspect figure.svg --json").output.c_str());
    ASSERT_GE(ofDrawing.size(), 3U);
    EXPECT_EQ(ofDrawing.front(), "a part by itself");
    EXPECT_EQ(reasonsIn(quarvel("inspect figure.scene --json").output.c_str()), ofDrawing);
    EXPECT_THAT(quarvel("inspect figure.scene").output, HasSubstr("a part by itself"));
}

// A bitmap's objects have paints of their own, which the file does not have.
TEST_F(ChosenObjectsOfAFigure, CoverASpriteOfItAsItIs)
{
    ASSERT_EQ(quarvel("normalmap figure.svg -o still.png --drawing sprite.png").exitCode, 0);
    const Outcome listed = quarvel("inspect sprite.png");
    EXPECT_EQ(listed.text().count(QStringLiteral("a region of one colour")), 2) << listed.output;
    // As in the vector drawing.
    EXPECT_EQ(listed.text().count(QStringLiteral("a dark hole, sinks")), 1) << listed.output;
    const Outcome outcome = quarvel("normalmap sprite.png --drawing again.png --alpha coverage");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    const QImage sprite(path("sprite.png"));
    const QImage map(path("sprite_n.png"));
    const QImage drawing(path("again.png"));
    for (int y = 0; y < 96; ++y)
        for (int x = 0; x < 96; ++x) {
            ASSERT_NEAR(qAlpha(map.pixel(x, y)), qAlpha(sprite.pixel(x, y)), 3) << x << ' ' << y;
            ASSERT_NEAR(qAlpha(drawing.pixel(x, y)), qAlpha(sprite.pixel(x, y)), 3) << x << ' ' << y;
        }
}

TEST_F(ChosenObjectsOfAFigure, AreThoseOfTheImportedScene)
{
    const Outcome imported = quarvel("import figure.svg");
    ASSERT_EQ(imported.exitCode, 0) << imported.messages;
    ASSERT_EQ(quarvel("render figure.scene -o frame.png --resolution 96").exitCode, 0);
    ASSERT_EQ(quarvel("normalmap figure.svg -o still.png").exitCode, 0);
    EXPECT_EQ(QImage(path("frame.png")), QImage(path("still.png")));
}

// A drawing of as many squares beside each other as were asked for.
QByteArray specks(int count)
{
    QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 400 400'>";
    for (int i = 0; i < count; ++i)
        svg += QStringLiteral("<rect x='%1' y='%2' width='3' height='3' fill='#%3'/>")
                   .arg(4 * (i % 100))
                   .arg(4 * (i / 100 % 100))
                   .arg(i % 2 == 0 ? QStringLiteral("dd2e44") : QStringLiteral("3355cc"))
                   .toUtf8();
    return svg + "</svg>";
}

TEST_F(ChosenObjectsOfAFigure, AreFewInADrawingOfSpecks)
{
    write("specks.svg", specks(10'000));
    const Outcome chosen = quarvel("normalmap specks.svg -o specks.png --size 100");
    ASSERT_EQ(chosen.exitCode, 0) << chosen.messages;
    const QString line = chosen.text().section(QStringLiteral("chosen: "), 1).section(QLatin1Char('\n'), 0, 0);
    EXPECT_TRUE(line.endsWith(QStringLiteral(" objects; quarvel inspect specks.svg lists them"))) << qPrintable(line);
    EXPECT_LT(line.section(QLatin1Char(' '), 0, 0).toInt(), 250) << qPrintable(line);
}

TEST_F(ChosenObjectsOfAFigure, AreRefusedWhereThereAreMoreThanASceneHolds)
{
    write("specks.svg", specks(10'001));
    const Outcome refused = quarvel("normalmap specks.svg -o specks.png --objects shapes");
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.messages, "quarvel: specks.svg: these are 10001 objects and a scene has room for 10000; "
                                "join layers in the drawing, or let \"auto\" choose them\n");
}

} // namespace

// A bar from border to border of a square drawing goes on beyond it where the picture ends, and ends in a wider one.
TEST_F(ChosenObjectsOfAFigure, EndAtTheDrawingsBorderInAPictureOfAnotherShape)
{
    write("bar.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 100 100" width="100" height="100">
<path d="M0 30h100v40h-100z" fill="#c06030"/><circle cx="50" cy="16" r="12" fill="#30c060"/></svg>)");
    ASSERT_EQ(quarvel("normalmap bar.svg -q --pad 0 --size 100x100 -o square.png").exitCode, 0);
    ASSERT_EQ(quarvel("normalmap bar.svg -q --pad 0 --size 200x100 -o wide.png").exitCode, 0);
    // How far the normal leans to the right: -255 to 255; what faces the viewer has -1, since 8 bits have no middle.
    const auto leanAt = [](const QImage& map, int x) { return 2 * qRed(map.pixel(x, 50)) - 255; };
    const QImage square(path("square.png"));
    const QImage wide(path("wide.png"));
    EXPECT_NEAR(leanAt(square, 1), 0, 4);
    EXPECT_NEAR(leanAt(square, 98), 0, 4);
    EXPECT_LT(leanAt(wide, 51), -100);
    EXPECT_GT(leanAt(wide, 148), 100);
    for (const int x : {5, 45, 155, 195})
        EXPECT_EQ(leanAt(wide, x), 1) << "nothing lies beside the drawing, " << x;
}
