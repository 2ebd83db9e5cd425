// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is found is what a look at all the shapes finds.
#include "form/choice/LaterShapes.h"

#include "../FormDrawings.h"
#include "form/choice/InnerFacts.h"

#include <random>

using namespace form_drawings;

namespace {

// Small shapes beside and inside each other, some of them translucent, and a few large ones.
QByteArray specks(int count)
{
    static const char* const kColours[] = {"#c93434", "#ffcc4d", "#3355cc", "#20202080"};
    std::mt19937 random(7);
    const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    QByteArray drawing;
    for (int i = 0; i < count; ++i) {
        const double size = i % 20 == 0 ? 30 + below(60) : 1 + below(8);
        const QByteArray speck = circle(below(100), below(100), size / 2.0, kColours[below(4)]);
        // Some are painted twice, so that they have the same area.
        drawing += i % 10 == 0 ? speck + speck : speck;
    }
    // One lies outside the picture.
    drawing += circle(300, 300, 5, kColours[0]);
    return drawing;
}

class LaterShapesTest : public testing::Test
{
protected:
    DIO_Drawing drawing = read(specks(300));
    Grid grid = gridFor(drawing);
    std::vector<ShapeFacts> facts = collectFacts(drawing, grid);
    LaterShapes later{facts, grid};
    int count = static_cast<int>(facts.size());

    const ShapeFacts& fact(int shape) const { return facts[static_cast<std::size_t>(shape)]; }
};

} // namespace

TEST_F(LaterShapesTest, InsideAShapeAreThoseOfAllThatLieThere)
{
    std::size_t total = 0;
    for (int shape = 0; shape < count; ++shape) {
        std::vector<const ShapeFacts*> expected;
        for (int other = shape + 1; other < count; ++other)
            if (fact(other).opacity >= kSolid && fact(other).area < fact(shape).area &&
                liesInside(fact(other), fact(shape).mask))
                expected.push_back(&fact(other));
        EXPECT_EQ(later.inside(shape), expected) << shape;
        total += expected.size();
    }
    EXPECT_GT(total, 300U) << "the drawing shows too little";
}

TEST_F(LaterShapesTest, OfAPaintAreAllThatHaveIt)
{
    for (int shape = 0; shape < count; ++shape) {
        std::vector<int> expected;
        for (int other = shape + 1; other < count; ++other)
            if (fact(other).paint == fact(shape).paint && fact(other).area > 0)
                expected.push_back(other);
        EXPECT_EQ(later.ofPaint(shape), expected) << shape;
    }
}
