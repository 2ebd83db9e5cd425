// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/HiddenShapes.h"

#include "../FormDrawings.h"

using namespace form_drawings;
using testing::ElementsAre;

namespace {

const QByteArray kStroke = line("M30 40H70", "#000000", 3);

std::vector<int> hidersIn(const QByteArray& content)
{
    const DIO_Drawing drawing = read(content);
    const Grid grid = gridFor(drawing);
    std::vector<ShapeFacts> facts = collectFacts(drawing, grid);
    return findHidden(facts, grid);
}

} // namespace

TEST(HiddenShapes, AreThoseThatALaterShapeCovers)
{
    EXPECT_THAT(hidersIn(kStroke + rect(20, 20, 60, 60, "#d22f27")), ElementsAre(1, -1));
    EXPECT_THAT(hidersIn(rect(20, 20, 60, 60, "#d22f27") + kStroke), ElementsAre(-1, -1));
}

TEST(HiddenShapes, DoNotReachTheEdgeOfTheirCover)
{
    EXPECT_THAT(hidersIn(circle(50, 50, 30, "#000000") + circle(50, 50, 30, "#d22f27")), ElementsAre(-1, -1));
    EXPECT_THAT(hidersIn(rect(20, 30, 30, 30, "#000000") + rect(20, 20, 60, 60, "#d22f27")), ElementsAre(-1, -1));
    // Outside the picture nothing is seen.
    EXPECT_THAT(hidersIn(rect(0, 30, 30, 30, "#000000") + rect(-5, 20, 60, 60, "#d22f27")), ElementsAre(1, -1));
}

TEST(HiddenShapes, ShineThroughTranslucentShapesAndSeams)
{
    const QByteArray glass = "<rect x='20' y='20' width='60' height='60' fill='#d22f27' fill-opacity='0.9'/>";
    EXPECT_THAT(hidersIn(kStroke + glass), ElementsAre(-1, -1));
    EXPECT_THAT(hidersIn(kStroke + rect(20, 20, 30, 60, "#d22f27") + rect(50, 20, 30, 60, "#d22f27")),
                ElementsAre(-1, -1, -1));
}

TEST(HiddenShapes, ShineThroughAHole)
{
    const QByteArray ring = "<path fill-rule='evenodd' d='M10 10h80v80h-80z M40 38h4v4h-4z' fill='#d22f27'/>";
    EXPECT_THAT(hidersIn(rect(30, 30, 30, 30, "#000000") + ring), ElementsAre(-1, -1));
}

TEST(HiddenShapes, AreNoObjectsAndChangeNoPicture)
{
    const QByteArray content = kStroke + line("M40 30V70", "#000000", 3) + rect(20, 20, 60, 60, "#d22f27");
    const ChosenObjects found = chosen(content);
    ASSERT_EQ(found.objects.size(), 1U);
    EXPECT_EQ(found.drawing.layers.front().shapes.size(), 3U) << "the layer shows what lies beneath at its edge";
    for (const int side : {9, 100})
        EXPECT_EQ(painted(found.drawing, side), painted(read(content), side)) << side;
}
