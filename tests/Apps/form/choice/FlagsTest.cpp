// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "../FormDrawings.h"

using namespace form_drawings;
using testing::ElementsAre;
using enum ObjectRole;

namespace {

// 84 wide, 60 high
const QByteArray kStripes =
    rect(8, 20, 84, 20, "#d90012") + rect(8, 40, 84, 20, "#ffffff") + rect(8, 60, 84, 20, "#0033a0");
const QByteArray kPlain = rect(8, 20, 84, 60, "#007a33");
const QByteArray kEmblem = circle(50, 50, 8, "#f2a800");

} // namespace

TEST(Flags, WhatLiesOnStripesIsPrinted)
{
    EXPECT_THAT(rolesOf(kStripes), ElementsAre(SLAB));
    EXPECT_THAT(rolesOf(kStripes + kEmblem), ElementsAre(SLAB));
    EXPECT_THAT(rolesOf(kStripes + kEmblem + circle(50, 50, 4, "#101010") + rect(14, 44, 10, 8, "#007a33")),
                ElementsAre(SLAB));
}

TEST(Flags, ACantonMakesABoardAFlag)
{
    const QByteArray canton = rect(8, 20, 35, 28, "#101060");
    EXPECT_THAT(rolesOf(kPlain + canton + circle(70, 50, 8, "#f2a800")), ElementsAre(SLAB));
    // A line around the board lies between the canton and its edge.
    const QByteArray inside = rect(9.5, 21.5, 35, 28, "#101060");
    EXPECT_THAT(rolesOf(kPlain + inside + circle(70, 50, 8, "#f2a800") + line("M8 20h84v60h-84z")), ElementsAre(SLAB));
}

TEST(Flags, AThingOnABoardOfOneColourStaysAnObject)
{
    EXPECT_THAT(rolesOf(kPlain + kEmblem), ElementsAre(SLAB, BODY));
    EXPECT_THAT(rolesOf(kPlain + kEmblem + line("M8 20h84v60h-84z")), ElementsAre(SLAB, BODY));
}

TEST(Flags, PicturesAreHigher)
{
    const QByteArray meadow = rect(10, 20, 80, 30, "#88ccee") + rect(10, 50, 80, 30, "#55aa33");
    EXPECT_THAT(rolesOf(meadow + kEmblem), ElementsAre(SLAB, BODY));
}
