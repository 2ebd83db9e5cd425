// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "../FormDrawings.h"

using namespace form_drawings;
using testing::ElementsAre;
using enum ObjectRole;

namespace {

const QByteArray kStripes =
    rect(10, 20, 80, 20, "#d90012") + rect(10, 40, 80, 20, "#0033a0") + rect(10, 60, 80, 20, "#f2a800");

// Four red quarters, and a white and a blue cross between them, each in pieces of its own.
const QByteArray kCross = rect(10, 20, 20, 20, "#ef2b2d") + rect(50, 20, 40, 20, "#ef2b2d") +
                          rect(10, 60, 20, 20, "#ef2b2d") + rect(50, 60, 40, 20, "#ef2b2d") +
                          "<path d='M30 20h20v20h40v20h-40v20h-20v-20h-20v-20h20z' fill='#002868'/>";

} // namespace

TEST(Boards, StripesThatFillARectangleAreASlab)
{
    EXPECT_THAT(rolesOf(kStripes), ElementsAre(SLAB));
}

TEST(Boards, ACrossAndItsQuartersAreASlab)
{
    EXPECT_THAT(rolesOf(kCross), ElementsAre(SLAB));
}

TEST(Boards, WhatLiesWithinStaysAnObject)
{
    EXPECT_THAT(rolesOf(kStripes + circle(50, 50, 8, "#77b255")), ElementsAre(SLAB, BODY));
}

TEST(Boards, WhatReachesOneSideAloneStaysAnObject)
{
    EXPECT_THAT(rolesOf(kStripes + "<path d='M40 80c0 -60 20 -60 20 0z' fill='#77b255'/>"), ElementsAre(SLAB, BODY));
}

TEST(Boards, ARodInSeveralColoursIsRound)
{
    EXPECT_THAT(rolesOf(rect(10, 40, 80, 10, "#f2a800") + rect(10, 50, 80, 10, "#0033a0")), ElementsAre(BODY));
}

TEST(Boards, ARectangleOfOneColourIsRound)
{
    EXPECT_THAT(rolesOf(rect(10, 20, 80, 60, "#d90012")), ElementsAre(BODY));
    EXPECT_THAT(rolesOf(rect(10, 20, 80, 30, "#d90012") + rect(10, 50, 80, 30, "#d90012")), ElementsAre(BODY));
}

TEST(Boards, StripesThatFillThePictureAreFlat)
{
    EXPECT_THAT(rolesOf(rect(0, 0, 50, 100, "#d90012") + rect(50, 0, 50, 100, "#0033a0")), ElementsAre(FLAT));
}

TEST(Boards, RectanglesThatFillThePictureAreFlat)
{
    const QByteArray quarters = rect(0, 0, 50, 50, "#5651a9") + rect(50, 0, 50, 50, "#fdfdfd");
    EXPECT_THAT(rolesOf(quarters + rect(0, 50, 100, 50, "#ed2800")), ElementsAre(FLAT));
    EXPECT_THAT(rolesOf(quarters + rect(0, 50, 100, 50, "#ed2800") + circle(50, 60, 15, "#77b255")),
                ElementsAre(FLAT, BODY))
        << "what lies in front of them stays an object";
    EXPECT_THAT(rolesOf(quarters + "<path d='M0 50Q50 30 100 50V100H0z' fill='#77b255'/>"),
                testing::Not(ElementsAre(FLAT)))
        << "a landscape";
}

// Nobody sees through an opacity of 0.996, which programs write for opaque areas.
TEST(Boards, NearlyOpaqueAreasAreOpaque)
{
    const QByteArray bands =
        rect(0, 0, 50, 50, "#5651a9") + rect(50, 0, 50, 50, "#fdfdfd") + rect(0, 50, 100, 50, "#ed2800");
    EXPECT_THAT(rolesOf("<g fill-opacity='0.996'>" + bands + "</g>"), ElementsAre(FLAT));
}

TEST(Boards, ATriangleAlongTheBordersOfABoardIsNoObject)
{
    const QByteArray board = rect(0, 20, 100, 60, "#ffe900");
    EXPECT_THAT(rolesOf(board + "<path d='M0 20h80l-80 50z' fill='#35a100'/>"), ElementsAre(SLAB));
    EXPECT_THAT(rolesOf(board + circle(50, 50, 10, "#35a100")), ElementsAre(SLAB, BODY));
}

TEST(Boards, ACardOnItsShadowIsASlab)
{
    const QByteArray shadow = "<rect x='13' y='13' width='80' height='80' fill='#000000' fill-opacity='0.4'/>";
    const QByteArray card = rect(10, 10, 80, 80, "#f5e8c0") + circle(35, 40, 15, "#d90012");
    EXPECT_THAT(rolesOf(card), ElementsAre(SLAB, BODY));
    EXPECT_THAT(rolesOf(shadow + card), ElementsAre(FLAT, SLAB, BODY));
    const QByteArray far = "<rect x='18' y='18' width='80' height='80' fill='#000000' fill-opacity='0.4'/>";
    EXPECT_THAT(rolesOf(far + card), ElementsAre(FLAT, SLAB, BODY));
}

TEST(Boards, WhiteOnesHaveRoundedCornersOrAnOutline)
{
    const QByteArray spot = circle(35, 40, 15, "#d90012");
    const QByteArray rounded = "<rect x='10' y='20' width='80' height='60' rx='8' fill='#ffffff'/>";
    EXPECT_THAT(rolesOf(rect(10, 20, 80, 60, "#ffffff") + spot), ElementsAre(FLAT, BODY));
    EXPECT_THAT(rolesOf(rounded + spot), ElementsAre(SLAB, BODY));
    EXPECT_THAT(rolesOf(rect(10, 20, 80, 60, "#ffffff") + spot + line("M10 20h80v60h-80z")), ElementsAre(SLAB, BODY));
}

TEST(Boards, AFrameOfAnyColourLiesOnABoard)
{
    const QByteArray letter = rect(35, 35, 30, 25, "#d22f27");
    EXPECT_THAT(rolesOf(rect(10, 20, 80, 60, "#c0e0ff") + letter + line("M10 20h80v60h-80z", "#d22f27", 4)),
                ElementsAre(SLAB, SLAB, BODY));
}

TEST(Boards, WhatReachesTheEdgeIsPrinted)
{
    const QByteArray board = rect(10, 20, 80, 60, "#eeeeee") + line("M10 20h80v60h-80z");
    EXPECT_THAT(rolesOf(board + "<path d='M40 21h12v22h37v12h-37v24h-12v-24h-29v-12h29z' fill='#e8112d'/>"),
                ElementsAre(SLAB));
    const QByteArray canton = rect(10, 20, 35, 28, "#101060");
    EXPECT_THAT(rolesOf(board + canton + circle(28, 35, 6, "#f9dd16")), ElementsAre(SLAB, BODY));
}

TEST(Boards, AScrapThatReachesBeyondARoundedCornerIsPrinted)
{
    const QByteArray board =
        "<rect x='10' y='20' width='80' height='60' rx='10' fill='#00247d'/>" + circle(60, 50, 12, "#ffffff");
    const QByteArray scrap = "<path d='M12 20l10 8h-7l-5 -4z' fill='#cf1b2b'/>";
    EXPECT_THAT(rolesOf(board), ElementsAre(SLAB, BODY));
    EXPECT_THAT(rolesOf(board + scrap), ElementsAre(SLAB, BODY));
    // One that lies mostly beyond it is an object.
    EXPECT_THAT(rolesOf(board + circle(11, 21, 3, "#cf1b2b")), ElementsAre(SLAB, BODY, BODY));
}

TEST(Boards, ARectangleOnABoardIsAPlate)
{
    EXPECT_THAT(rolesOf(rect(10, 20, 80, 60, "#31373d") + rect(20, 30, 40, 25, "#55acee")), ElementsAre(SLAB, SLAB));
    EXPECT_THAT(rolesOf(rect(10, 20, 80, 60, "#31373d") + circle(40, 45, 12, "#55acee")), ElementsAre(SLAB, BODY));
}

TEST(Boards, LinesMayLieBeneathThem)
{
    EXPECT_THAT(rolesOf(line("M10 20h80v60h-80z") + rect(10, 20, 80, 60, "#d22f27") + rect(35, 35, 30, 6, "#ffffff") +
                        rect(35, 50, 30, 6, "#ffffff")),
                ElementsAre(BODY, SLAB));
}

// The stripes begin, meet and end in the middle of a row of pixels, so that each covers half of it: without anything
// beneath them two of them cover three quarters, 191 of 255. One half of the outermost rows is covered, 128 of 255.
TEST(Boards, NoSeamShowsBetweenAreas)
{
    const ChosenObjects found = chosen(rect(10, 20.5, 80, 20, "#d90012") + rect(10, 40.5, 80, 20, "#0033a0") +
                                       rect(10, 60.5, 80, 20, "#f2a800"));
    ASSERT_EQ(found.objects.size(), 1U);
    const QImage picture = painted(found.drawing, 100);
    for (int y = 21; y < 80; ++y)
        EXPECT_GT(qAlpha(picture.pixel(50, y)), 250) << "row " << y;
    EXPECT_NEAR(qAlpha(picture.pixel(50, 20)), 128, 3) << "the upper edge";
    EXPECT_NEAR(qAlpha(picture.pixel(50, 80)), 128, 3) << "the lower edge";
    EXPECT_EQ(qAlpha(picture.pixel(9, 40)), 0) << "beside a seam";
}
