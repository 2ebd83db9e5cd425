// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a person says of single objects, wherever it is said: to a run, to a scene, in the drawing, in its folder.
#include "ProgramFixture.h"

#include <QImage>

#include <gmock/gmock.h>

#include <algorithm>

using testing::AllOf;
using testing::HasSubstr;

namespace {

// Two layers, a head and a foot; words are put into the head's tag and its name.
QByteArray figure(const QByteArray& attributes = {}, const QByteArray& words = {})
{
    return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape"
  viewBox="0 0 96 96" width="96" height="96">
<g inkscape:groupmode="layer" inkscape:label="Foot"><ellipse cx="48" cy="80" rx="40" ry="12" fill="#338833"/></g>
<g inkscape:groupmode="layer" inkscape:label="Head)" +
           words + R"(" )" + attributes + R"(><circle cx="48" cy="44" r="34" fill="#e0a060"/></g></svg>)";
}

class Steering : public Program
{
protected:
    void SetUp() override
    {
        write("plain.svg", figure());
        ASSERT_EQ(quarvel("normalmap plain.svg -o said.png --object Head:bevel=20:elevation=0.5").exitCode, 0);
        ASSERT_EQ(quarvel("normalmap plain.svg -o plain.png").exitCode, 0);
        ASSERT_NE(QImage(path("said.png")), QImage(path("plain.png")));
    }

    // The pixels of a drawing's map are those that a run gives that is told so.
    void expectSaid(const char* drawing) const
    {
        const Outcome outcome = quarvel(QStringLiteral("normalmap %1 -o map.png").arg(QLatin1String(drawing)));
        ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
        EXPECT_EQ(outcome.messages, "");
        EXPECT_EQ(QImage(path("map.png")), QImage(path("said.png")));
    }

    // The object table of the scene "plain.scene".
    std::string table() const
    {
        const QString listed = quarvel("inspect plain.scene").text();
        return listed.section(QStringLiteral("ObjectList"), 1).section(u'\n', 0, 0).trimmed().toStdString();
    }
};

} // namespace

TEST_F(Steering, GoesToOneObjectOfASceneAndLeavesTheOthers)
{
    ASSERT_EQ(quarvel("import plain.svg").exitCode, 0);
    const std::string before = table();
    const Outcome outcome = quarvel("set plain.scene --object head:bevel=40 --object 2:smoothness=3");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_THAT(outcome.output, HasSubstr("object 2"));
    const std::string foot = before.substr(0, before.find(';'));
    EXPECT_THAT(table(), AllOf(HasSubstr(foot + ";2:40:"), HasSubstr(":3")));
    EXPECT_THAT(quarvel("set plain.scene --object head:bevel=40").output, HasSubstr("nothing to change"));
}

TEST_F(Steering, SetsWhatStandsInDefinitionsToo)
{
    ASSERT_EQ(quarvel("import plain.svg").exitCode, 0);
    ASSERT_EQ(quarvel("set plain.scene --object h*:hidden:level=0.5:coverage").exitCode, 0);
    const std::string listed = quarvel("inspect plain.scene").output;
    EXPECT_THAT(listed, HasSubstr("ObjectLevel  0.5"));
    ASSERT_EQ(quarvel("render plain.scene -o hidden.png --resolution 96").exitCode, 0);
    ASSERT_EQ(quarvel("normalmap plain.svg -o alone.png --object head:hidden").exitCode, 0);
    ASSERT_EQ(quarvel("set plain.scene --object head:hidden=no").exitCode, 0);
    ASSERT_EQ(quarvel("render plain.scene -o shown.png --resolution 96").exitCode, 0);
    EXPECT_NE(bytes("hidden.png"), bytes("shown.png"));
}

TEST_F(Steering, IsListedForTheObjectsOfASceneAsForADrawing)
{
    ASSERT_EQ(quarvel("import plain.svg --object head:bevel=20:elevation=0.5:smoothness=2:tilt=5,6:rim=3,0.8").exitCode,
              0);
    ASSERT_EQ(quarvel("set plain.scene --object foot:cutout").exitCode, 0);
    const QStringList lines =
        quarvel("inspect plain.scene").text().section(QStringLiteral("objects at frame 1\n"), 1).split(u'\n');
    ASSERT_GE(lines.size(), 3);
    // The head is a disc of 34; of the foot, 1508 of 96 x 96, it hides about 300.
    EXPECT_EQ(lines[0].simplified(),
              QStringLiteral("number name share bevel elevation smoothness tilt rim colours why"));
    EXPECT_EQ(lines[1].simplified(), QStringLiteral("0 Foot 13 % cuts out #338833 a layer of the file"));
    EXPECT_EQ(lines[2].simplified(), QStringLiteral("2 Head 39 % 20 0.5 2 5,6 3,0.8 #e0a060 a layer of the file"));
    EXPECT_THAT(quarvel("inspect plain.scene --json").output,
                AllOf(HasSubstr(R"("definition": "Head-Definition")"), HasSubstr(R"("smoothness": 2)")));
}

TEST_F(Steering, ThatLeavesNothingToSeeIsSaidInOneLine)
{
    const Outcome hidden = quarvel("normalmap -q plain.svg -o none.png --object head:hidden --object foot:cutout");
    EXPECT_EQ(hidden.exitCode, 0);
    EXPECT_THAT(hidden.messages, HasSubstr("plain.svg: warning: all objects are hidden or cut out"));
    EXPECT_EQ(std::ranges::count(hidden.messages, '\n'), 1);
    EXPECT_EQ(quarvel("normalmap -q plain.svg -o some.png --object head:hidden").messages, "");
}

TEST_F(Steering, ChangesNothingOfASceneWhereAWordIsWrong)
{
    ASSERT_EQ(quarvel("import plain.svg").exitCode, 0);
    const std::string before = table();
    const Outcome unknown = quarvel("set plain.scene --object head:bevel=1 --object wing:bevel=1");
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_THAT(unknown.messages, AllOf(HasSubstr("\"wing\""), HasSubstr("1 Foot, 2 Head")));
    EXPECT_EQ(quarvel("set plain.scene --object head:bevel=wide").exitCode, 2);
    EXPECT_EQ(quarvel("set plain.scene --object 3:bevel=1").exitCode, 2);
    EXPECT_EQ(table(), before);
}

TEST_F(Steering, GoesWithTheImport)
{
    const Outcome outcome = quarvel("import plain.svg --object head:bevel=40");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_THAT(table(), HasSubstr("2:40:"));
    const Outcome unknown = quarvel("import plain.svg -o none.scene --object wing:bevel=40");
    EXPECT_EQ(unknown.exitCode, 1);
    EXPECT_THAT(unknown.messages, HasSubstr("\"wing\""));
}

TEST_F(Steering, CallsMultipliersAsTheWindowDoes)
{
    ASSERT_EQ(quarvel("import plain.svg").exitCode, 0);
    ASSERT_EQ(quarvel("set plain.scene Normal-Map.bevel-multiplier 1.5").exitCode, 0);
    EXPECT_THAT(quarvel("inspect plain.scene").output, HasSubstr("BlurScale  1.5"));
    ASSERT_EQ(quarvel({"set", "plain.scene", "Normal-Map.Bevel Multiplier", "2"}).exitCode, 0);
    EXPECT_THAT(quarvel("inspect plain.scene").output, HasSubstr("BlurScale  2"));
}

TEST_F(Steering, CanBeSaidByTheAttributesOfALayer)
{
    write("own.svg", figure(R"(data-vallorin-bevel="20" data-vallorin-elevation="0.5")"));
    expectSaid("own.svg");
}

TEST_F(Steering, CanBeSaidBehindTheNameOfALayer)
{
    write("own.svg", figure({}, " bevel=20 elevation=0.5"));
    expectSaid("own.svg");
    EXPECT_THAT(quarvel("inspect own.svg").output, HasSubstr("Head "));
}

TEST_F(Steering, MakesAGroupAnObject)
{
    write("own.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 96 96" width="96" height="96">
<ellipse cx="48" cy="80" rx="40" ry="12" fill="#338833"/>
<g id="Head" data-vallorin-bevel="20" data-vallorin-elevation="0.5"><circle cx="48" cy="44" r="34" fill="#e0a060"/></g></svg>)");
    expectSaid("own.svg");
}

TEST_F(Steering, CanBeSaidByTheFolder)
{
    write("vallorin.objects", "# of all\n\n'he*:bevel=20:elevation=0.5'\n[other*]\nfoot:hidden\n");
    expectSaid("plain.svg");
    ASSERT_EQ(quarvel("import plain.svg").exitCode, 0);
    EXPECT_THAT(table(), HasSubstr("2:20:0.5:"));
}

TEST_F(Steering, ListensToThePersonFirstThenToTheDrawing)
{
    write("vallorin.objects", "head:bevel=7:elevation=0.5\n");
    write("own.svg", figure(R"(data-vallorin-bevel="20")"));
    expectSaid("own.svg");
    ASSERT_EQ(quarvel("normalmap own.svg -o map.png --object head:bevel=9").exitCode, 0);
    ASSERT_EQ(quarvel("normalmap plain.svg -o nine.png --object head:bevel=9:elevation=0.5").exitCode, 0);
    EXPECT_EQ(QImage(path("map.png")), QImage(path("nine.png")));
}

TEST_F(Steering, SaysWhichWordMakesNoSense)
{
    write("own.svg", figure(R"(data-vallorin-bevel="wide" data-vallorin-elevation="0.5")"));
    const Outcome warned = quarvel("normalmap own.svg -o map.png");
    EXPECT_EQ(warned.exitCode, 0);
    EXPECT_THAT(warned.messages, AllOf(HasSubstr("Head"), HasSubstr("\"wide\"")));
    write("vallorin.objects", "head:bevel=7\nhead\n");
    const Outcome refused = quarvel("normalmap plain.svg -o none.png");
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_THAT(refused.messages, AllOf(HasSubstr("vallorin.objects, line 2"), HasSubstr("\"head\"")));
    EXPECT_FALSE(QFile::exists(path("none.png")));
}
