// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which shapes of a drawing become objects: each rule with a small drawing.
#include "FormDrawings.h"

using namespace form_drawings;
using testing::ElementsAre;
using enum ObjectRole;

namespace {

const QByteArray kFace = circle(50, 50, 40, "#ffcc4d");

} // namespace

TEST(ObjectChoice, APartOverAPartIsAnObject)
{
    EXPECT_EQ(countOf(kFace), 1U);
    EXPECT_EQ(countOf(rect(30, 50, 40, 45, "#3f7d63") + circle(50, 35, 25, "#ffcc4d")), 2U);
}

TEST(ObjectChoice, LinesAroundAPartBelongToIt)
{
    const ChosenObjects found = chosen(kFace + line("M10 50a40 40 0 1 0 80 0a40 40 0 1 0 -80 0z"));
    ASSERT_EQ(found.objects.size(), 1U);
    EXPECT_EQ(found.drawing.layers[0].shapes.size(), 2U);
}

TEST(ObjectChoice, ALineBetweenTwoPartsBelongsToBoth)
{
    const ChosenObjects found = chosen(rect(10, 20, 40, 60, "#3f7d63") + rect(50, 20, 40, 60, "#c93434") +
                                       line("M50 20v60") + line("M10 20h80v60h-80z"));
    ASSERT_EQ(found.objects.size(), 2U);
    for (const DIO_Layer& layer : found.drawing.layers)
        EXPECT_EQ(layer.shapes.size(), 3U);
}

TEST(ObjectChoice, ALineThatTouchesNoPartIsAnObject)
{
    EXPECT_EQ(countOf(circle(50, 60, 20, "#c93434") + line("M10 10h80")), 2U);
}

TEST(ObjectChoice, LinesOfOneColourThatMeetAreOneObject)
{
    EXPECT_EQ(countOf(line("M10 10l80 80") + line("M10 90l80 -80")), 1U);
}

TEST(ObjectChoice, ACompactShapeOfAnotherHueIsAnObject)
{
    EXPECT_EQ(countOf(kFace + circle(50, 60, 10, "#3355cc")), 2U);
}

TEST(ObjectChoice, AShadeInsideIsNone)
{
    EXPECT_EQ(countOf(kFace + "<path d='M25 50a25 25 0 0 0 50 0a30 18 0 0 1 -50 0z' fill='#f0b840'/>"), 1U);
}

TEST(ObjectChoice, AThinMarkInsideIsNone)
{
    EXPECT_EQ(countOf(kFace + line("M30 60q20 15 40 0", "#3355cc", 3.0)), 1U);
}

TEST(ObjectChoice, WhatFollowsTheOutlineIsAPattern)
{
    EXPECT_EQ(countOf(rect(20, 20, 60, 60, "#ffcc4d") + rect(20, 20, 60, 15, "#3355cc")), 1U);
}

TEST(ObjectChoice, ABandFromRimToRimOfARoundBodyIsPaintedOntoIt)
{
    const QByteArray band = "<path d='M38 12A40 40 0 0 1 62 12V88A40 40 0 0 1 38 88Z' fill='#3355cc'/>";
    const QByteArray halfBand = "<path d='M38 12A40 40 0 0 1 62 12V50H38Z' fill='#3355cc'/>";
    EXPECT_EQ(countOf(circle(50, 50, 40, "#c93434") + band), 1U);
    EXPECT_EQ(countOf(circle(50, 50, 40, "#c93434") + halfBand), 2U);
    EXPECT_EQ(countOf(circle(50, 70, 45, "#c93434") + rect(38, 26, 24, 74, "#3355cc")), 2U) << "cut: it may be a coat";
}

TEST(ObjectChoice, PiecesOfOneColourAreOneObject)
{
    EXPECT_EQ(countOf(rect(20, 30, 30, 30, "#ffcc4d") + rect(45, 30, 35, 30, "#ffcc4d")), 1U);
    EXPECT_EQ(countOf(rect(20, 30, 30, 30, "#ffcc4d") + rect(50, 30, 30, 30, "#ffcc4d")), 1U);
}

TEST(ObjectChoice, ButNotWithALineOnTheSeam)
{
    EXPECT_EQ(countOf(rect(20, 30, 30, 30, "#ffcc4d") + rect(50, 30, 30, 30, "#ffcc4d") + line("M50 30v30") +
                      line("M20 30h60v30h-60z")),
              2U);
}

// A thin line, two cells inside the outline of the disc that it is drawn around.
TEST(ObjectChoice, NorWithInkALittleInsideOneOfThem)
{
    const QByteArray discs = circle(40, 55, 25, "#ffcc4d") + circle(60, 45, 22, "#ffcc4d");
    EXPECT_EQ(countOf(discs), 1U);
    EXPECT_EQ(countOf(discs + line("M38.6 45a21.4 21.4 0 1 1 42.8 0a21.4 21.4 0 1 1 -42.8 0", "#111111", 0.8)), 2U);
    // A piece that ink covers has no line along its outline.
    EXPECT_EQ(
        countOf(circle(40, 55, 25, "#ffcc4d") + rect(60, 50, 20, 6, "#ffcc4d") + line("M62 53H80", "#111111", 4.0)),
        1U);
}

TEST(ObjectChoice, NorWithNotchesAtItsEnds)
{
    EXPECT_EQ(countOf(circle(50, 70, 25, "#eef3f8") + circle(50, 28, 19, "#eef3f8")), 2U);
}

TEST(ObjectChoice, ALongSeamOfTwoColoursJoinsThem)
{
    EXPECT_EQ(countOf("<path d='M50 20h-20a20 20 0 0 0 0 60h20z' fill='#c93434'/>"
                      "<path d='M50 20h20a20 20 0 0 1 0 60h-20z' fill='#f0f0f0'/>"),
              1U);
}

TEST(ObjectChoice, BandsThatFillARectangleAreOneObjectWhicheverIsPaintedLast)
{
    const QByteArray top = rect(10, 20, 80, 20, "#d90012");
    const QByteArray middle = rect(10, 40, 80, 20, "#0033a0");
    const QByteArray bottom = rect(10, 60, 80, 20, "#f2a800");
    for (const QByteArray& flag : {top + middle + bottom, top + bottom + middle, bottom + top + middle})
        EXPECT_EQ(countOf(flag), 1U) << flag.constData();
    EXPECT_EQ(countOf(top + bottom + middle + line("M10 60h80") + line("M10 20h80v60h-80z")), 2U) << "ink on a seam";
    EXPECT_EQ(countOf(top + rect(30, 60, 40, 20, "#f2a800") + middle), 2U) << "no rectangle together";
}

TEST(ObjectChoice, ADarkShapeThatHoldsOthersIsAnOpening)
{
    EXPECT_THAT(
        rolesOf(kFace + "<path d='M30 55h40q0 25 -20 25t-20 -25z' fill='#664500'/>" + circle(50, 70, 6, "#dd2e44")),
        ElementsAre(BODY, OPENING, BODY));
}

TEST(ObjectChoice, AWhiteDiscWhereARoundFaceHasItsMouthSinks)
{
    EXPECT_THAT(rolesOf(kFace + circle(50, 72, 6, "#ffffff")), ElementsAre(BODY, OPENING));
    EXPECT_THAT(rolesOf(kFace + circle(50, 50, 6, "#ffffff")), ElementsAre(BODY, BODY)) << "a nose";
    EXPECT_THAT(rolesOf(kFace + circle(32, 72, 6, "#ffffff")), ElementsAre(BODY, BODY)) << "a cheek";
    EXPECT_THAT(rolesOf(kFace + circle(50, 72, 6, "#e8596e")), ElementsAre(BODY, BODY)) << "a tongue";
    EXPECT_THAT(rolesOf(rect(5, 5, 90, 90, "#ffcc4d") + circle(50, 72, 6, "#ffffff")), ElementsAre(BODY, BODY))
        << "a button";
}

TEST(ObjectChoice, ALargeDarkShapeIsAHoleASmallOneABead)
{
    EXPECT_THAT(rolesOf(kFace + circle(50, 55, 12, "#333333")), ElementsAre(BODY, OPENING));
    EXPECT_THAT(rolesOf(kFace + circle(50, 55, 5, "#333333")), ElementsAre(BODY, BODY));
}

TEST(ObjectChoice, APupilIsAMarkOnItsEye)
{
    EXPECT_EQ(countOf(kFace + circle(40, 45, 12, "#ffffff") + circle(42, 47, 6, "#333333")), 2U);
}

TEST(ObjectChoice, ADialIsFlatInItsRim)
{
    EXPECT_THAT(rolesOf(circle(50, 50, 40, "#99aab5") + circle(50, 50, 30, "#e1e8ed")), ElementsAre(BODY, FLAT));
}

TEST(ObjectChoice, WindowsSink)
{
    EXPECT_THAT(rolesOf("<rect x='10' y='20' width='80' height='70' rx='20' fill='#ffe8b6'/>" +
                        rect(20, 40, 15, 15, "#55acee") + rect(65, 40, 15, 15, "#55acee")),
                ElementsAre(BODY, OPENING, OPENING));
}

TEST(ObjectChoice, SiblingsAreDecidedTogether)
{
    // The second of three shapes lies at the rim; judged alone, it would be a pattern.
    const ChosenObjects found = chosen(rect(10, 10, 80, 80, "#ffcc4d") + circle(30, 30, 8, "#dd2e44") +
                                       circle(50, 18, 8, "#dd2e44") + circle(70, 60, 8, "#dd2e44"));
    EXPECT_EQ(found.objects.size(), 4U);
}

TEST(ObjectChoice, AShadowOnTheGroundIsFlat)
{
    EXPECT_THAT(rolesOf("<ellipse cx='50' cy='85' rx='40' ry='8' fill='#000000' opacity='0.3'/>" +
                        circle(50, 50, 30, "#c93434")),
                ElementsAre(FLAT, BODY));
}

TEST(ObjectChoice, ShapesOnABackdropAreJudgedWithoutIt)
{
    EXPECT_THAT(rolesOf(rect(0, 0, 100, 100, "#ffffff") + line("M10 30h80v40h-80z", "#dd2222", 4.0)),
                ElementsAre(FLAT, BODY));
}

TEST(ObjectChoice, ATileIsASlab)
{
    EXPECT_THAT(rolesOf("<rect width='100' height='100' rx='12' fill='#dd2e44'/>"), ElementsAre(SLAB));
}

TEST(ObjectChoice, ARectangleThatTheOthersArePaintedOnIsABoardWithARim)
{
    const QByteArray card = rect(10, 15, 80, 60, "#f2b134");
    EXPECT_THAT(rolesOf(card + circle(50, 45, 15, "#66aa44")), ElementsAre(SLAB, BODY));
    EXPECT_THAT(rolesOf(card), ElementsAre(BODY));
    EXPECT_THAT(rolesOf(card + circle(85, 70, 25, "#66aa44")), ElementsAre(BODY, BODY));
}

TEST(ObjectChoice, ThePaperBehindADrawingIsFlatAndItsShapesAreJudgedWithoutIt)
{
    const QByteArray paper = rect(10, 15, 80, 60, "#ffffff");
    const QByteArray figure = circle(50, 45, 20, "#d8d8d8");
    EXPECT_THAT(rolesOf(paper + figure), ElementsAre(FLAT, BODY));
    EXPECT_THAT(rolesOf(paper + figure + line("M10 15h80v60h-80z")), ElementsAre(SLAB, BODY));
}

TEST(ObjectChoice, AnOutlineInADarkerShadeBelongsToItsShape)
{
    const QByteArray outlined = "<circle cx='50' cy='50' r='30' fill='#f2b134' stroke='#9a6a10' stroke-width='4'/>";
    const ChosenObjects found = chosen(outlined);
    ASSERT_EQ(found.objects.size(), 1U);
    EXPECT_EQ(found.drawing.layers[0].shapes.size(), 2U);
    EXPECT_EQ(countOf(outlined + "<circle cx='75' cy='75' r='15' fill='#f2b134' stroke='#9a6a10' stroke-width='4'/>"),
              2U);
}

TEST(ObjectChoice, AFrameOfAnotherColourIsAnObject)
{
    EXPECT_EQ(countOf("<circle cx='50' cy='50' r='30' fill='#bfe4ef' stroke='#c9362f' stroke-width='5'/>"), 2U);
}

TEST(ObjectChoice, AStrokeOfAFillsOwnColourIsAPieceOfIt)
{
    EXPECT_EQ(countOf("<circle cx='50' cy='50' r='30' fill='#b1cc33' stroke='#b1cc33' stroke-width='4'/>" +
                      line("M20 50a30 30 0 1 0 60 0a30 30 0 1 0 -60 0z") + line("M40 50h20") + line("M45 60h10")),
              1U);
}

TEST(ObjectChoice, TwoDeclaredLayersAreBelieved)
{
    const QByteArray layers =
        "<g inkscape:groupmode='layer' inkscape:label='Body'>" + kFace + circle(50, 50, 10, "#3355cc") +
        "</g><g inkscape:groupmode='layer' inkscape:label='Hat'>" + rect(20, 5, 60, 15, "#222222") + "</g>";
    const ChosenObjects found = chosen(layers);
    ASSERT_EQ(found.objects.size(), 2U);
    EXPECT_EQ(found.objects[0].name, QStringLiteral("Body"));
    EXPECT_EQ(found.drawing.layers[0].shapes.size(), 2U);
    EXPECT_EQ(chosen(layers, ObjectChoice::ONE).objects.size(), 1U);
}

TEST(ObjectChoice, AShapeOnALargerBlackCopyOfItselfIsOneBodyWithItsOutline)
{
    // A body that leans, so that neither the copy nor the body is round.
    const auto body = [](int grown, const char* fill) {
        return QStringLiteral("<ellipse cx='50' cy='50' rx='%1' ry='%2' transform='rotate(20 50 50)' fill='%3'/>")
            .arg(38 + grown)
            .arg(22 + grown)
            .arg(QLatin1String(fill))
            .toUtf8();
    };
    EXPECT_THAT(rolesOf(body(3, "#000000") + body(0, "#d8a202")), ElementsAre(BODY));
}

TEST(ObjectChoice, EachAreaOfAPathIsJudgedByItself)
{
    const ChosenObjects found =
        chosen(kFace + "<path d='M30 40a5 5 0 1 0 10 0a5 5 0 1 0 -10 0zM60 40a5 5 0 1 0 10 0a5 5 0 1 0 -10 0z' "
                       "fill='#3355cc'/>");
    EXPECT_EQ(found.objects.size(), 3U);
}

TEST(ObjectChoice, AHoleStaysInItsArea)
{
    const ChosenObjects found =
        chosen("<path d='M10 10h30v30h-30zM20 20v10h10v-10zM60 60h30v30h-30z' fill='#3355cc'/>");
    ASSERT_EQ(found.objects.size(), 2U);
    EXPECT_FALSE(found.drawing.layers[0].shapes[0].path.contains(QPointF(25, 25)));
    EXPECT_TRUE(found.drawing.layers[0].shapes[0].path.contains(QPointF(15, 15)));
}

TEST(ObjectChoice, EveryShapeIsAnObjectWhereAskedFor)
{
    EXPECT_EQ(chosen(kFace + line("M30 60h40"), ObjectChoice::SHAPES).objects.size(), 2U);
}

TEST(ObjectChoice, SaysWhatItFound)
{
    const ChosenObjects found = chosen(rect(10, 40, 80, 50, "#3f7d63") + circle(50, 35, 25, "#dd2e44"));
    ASSERT_EQ(found.objects.size(), 2U);
    EXPECT_EQ(found.objects[0].name, QStringLiteral("green"));
    EXPECT_EQ(found.objects[1].name, QStringLiteral("red"));
    EXPECT_EQ(found.objects[1].reason, QStringLiteral("a part over a part"));
    EXPECT_THAT(found.objects[1].colours, ElementsAre(QStringLiteral("#dd2e44")));
    EXPECT_NEAR(found.objects[1].share, 3.1416 * 0.25 * 0.25, 0.004);
}

TEST(ObjectChoice, PanesOfGlassInACarSink)
{
    const QByteArray body = "<path d='M5 80v-25l15 -5l15 -30h35l15 30l10 5v25z' fill='#dd2e44'/>";
    const QByteArray front = "<path d='M26 48l12 -22h10v22z' fill='#bbddf5'/>";
    const QByteArray back = "<path d='M54 48v-22h12l10 22z' fill='#bbddf5'/>";
    EXPECT_THAT(rolesOf(body + front + back), ElementsAre(BODY, OPENING, OPENING));
}

TEST(ObjectChoice, WheelsThatCarrySomethingAreFlatInsideTheirRims)
{
    const QByteArray wheels = circle(25, 75, 12, "#d0cfce") + circle(75, 75, 12, "#d0cfce") +
                              line("M13 75a12 12 0 1 0 24 0a12 12 0 1 0 -24 0z", "#111111", 3.0) +
                              line("M63 75a12 12 0 1 0 24 0a12 12 0 1 0 -24 0z", "#111111", 3.0);
    EXPECT_THAT(rolesOf(rect(10, 20, 80, 45, "#dd2e44") + wheels), ElementsAre(BODY, SLAB, SLAB));
    EXPECT_THAT(rolesOf(wheels), ElementsAre(BODY, BODY)) << "two balls";
}

TEST(ObjectChoice, OneWheelWithAHubIsFlatInsideItsRimToo)
{
    const QByteArray wheel =
        circle(60, 70, 20, "#d0cfce") + line("M40 70a20 20 0 1 0 40 0a20 20 0 1 0 -40 0z", "#111111", 3.0);
    const QByteArray seat = "<path d='M20 5h15v35h30v15h-45z' fill='#fadcbc'/>";
    EXPECT_THAT(rolesOf(wheel + circle(60, 70, 9, "#9b9b9a") + seat), ElementsAre(SLAB, BODY));
    EXPECT_THAT(rolesOf(wheel + seat), ElementsAre(BODY, BODY)) << "a ball";
    EXPECT_THAT(rolesOf(wheel + circle(50, 70, 9, "#9b9b9a") + seat), ElementsAre(BODY, BODY, BODY))
        << "off the middle";
    EXPECT_THAT(rolesOf(wheel + circle(60, 70, 9, "#9b9b9a")), ElementsAre(BODY)) << "it carries nothing";
}
