// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The coverage of a node's inputs in a frame.
#include "jobs/shown/InputCoverage.h"

#include "Apps/jobs/shown/ColumnScene.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "jobs/shown/ShownFrame.h"

namespace {

UT_SharedPtr<CEL_PixmapAreaRGBA16> pixmapOf(const Math::Box2di& rect)
{
    auto pixmap = UT_makeShared<CEL_PixmapAreaRGBA16>(Math::Size2di(200, 100), Math::Box2di(0, 0, 200, 100));
    pixmap->realloc(rect, true);
    return pixmap;
}

TEST(CoverageBitsTest, APixelCountsFromHalfCoverageOn)
{
    const auto pixmap = pixmapOf({10, 20, 90, 24});
    pixmap->at(12, 21).a = 16384;
    pixmap->at(13, 21).a = 16383;
    pixmap->at(80, 23).a = 32767;
    const CoverageBits bits(*pixmap, {0, 0, 200, 100});
    EXPECT_EQ(bits.rect(), Math::Box2di(12, 21, 81, 24));
    EXPECT_TRUE(bits.covers(12, 21));
    EXPECT_FALSE(bits.covers(13, 21));
    EXPECT_TRUE(bits.covers(80, 23));
    EXPECT_FALSE(bits.covers(80, 22));
    EXPECT_FALSE(bits.covers(0, 0));
    EXPECT_FALSE(bits.covers(199, 99));
}

TEST(CoverageBitsTest, WhatLiesOutsideOfTheWindowIsNotCovered)
{
    const auto pixmap = pixmapOf({-5, -5, 5, 5});
    for (int y = -5; y < 5; ++y)
        for (auto& pixel : pixmap->row(y))
            pixel.a = 32767;
    EXPECT_EQ(CoverageBits(*pixmap, {0, 0, 200, 100}).rect(), Math::Box2di(0, 0, 5, 5));
    EXPECT_TRUE(CoverageBits(*pixmap, {50, 50, 60, 60}).isEmpty());
}

class InputCoverageTest : public ColumnScene
{
protected:
    ShownInputs inputs(double frame = 1.0) const
    {
        const ShownModule shown(node());
        const auto made = shown.render(frame, {RD_RenderParameters::IMAGE_PROCESSING_16BIT, {kWidth, kHeight}},
                                       {.drawing = true, .inputs = true});
        EXPECT_TRUE(made) << made.error().text.toStdString();
        return made->inputs;
    }
};

TEST_F(InputCoverageTest, EveryInputIsKnownInFullTheLowestFirst)
{
    const ShownInputs found = inputs();
    ASSERT_EQ(found.size(), std::size_t{kColumns});
    for (int i = 0; i < kColumns; ++i) {
        EXPECT_EQ(found[static_cast<std::size_t>(i)].port, i);
        EXPECT_EQ(found[static_cast<std::size_t>(i)].number, i + 1);
        EXPECT_EQ(found[static_cast<std::size_t>(i)].node, node().instanceName());
    }
    // The first bar is recorded completely, although the last one covers its lower half.
    EXPECT_EQ(found[0].coverage.rect(), Math::Box2di(2, 0, 30, 48));
    EXPECT_TRUE(found[0].coverage.covers(16, 36));
    EXPECT_TRUE(found[3].coverage.covers(16, 36));
    EXPECT_FALSE(found[3].coverage.covers(16, 12));
}

TEST_F(InputCoverageTest, CutOutsAreKnownAndObjectsThatAreSwitchedOffAreNot)
{
    definition(1).objectNumber()->setLocalValue(0);
    definition(2).objectEnabled()->setLocalValue(false);
    const ShownInputs found = inputs();
    ASSERT_EQ(found.size(), std::size_t{3});
    EXPECT_EQ(found[1].number, 0);
    EXPECT_EQ(found[1].coverage.rect(), Math::Box2di(34, 0, 62, 48));
    EXPECT_EQ(found[2].port, 3);
}

TEST_F(InputCoverageTest, ASecondFrameKnowsNothingOfTheFirst)
{
    const ShownModule shown(node());
    const RD_RenderParameters parameters{RD_RenderParameters::IMAGE_PROCESSING_16BIT, {kWidth, kHeight}};
    for (const double frame : {1.0, 2.0}) {
        const auto made = shown.render(frame, parameters, {.drawing = true, .inputs = true});
        ASSERT_TRUE(made);
        EXPECT_EQ(made->inputs.size(), std::size_t{kColumns});
    }
}

} // namespace
