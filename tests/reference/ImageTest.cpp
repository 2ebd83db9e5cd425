// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rectangles and pictures of the reference version: which pixels are allocated, missing, and kept by a change.
#include "reference/Image.h"

#include "reference/Compare.h"

#include <gtest/gtest.h>

namespace reference {
namespace {

TEST(ReferenceBox, IsHalfOpen)
{
    const RefBox box{-1, 2, 3, 4};
    EXPECT_EQ(box.width(), 4);
    EXPECT_EQ(box.height(), 2);
    EXPECT_TRUE(box.contains(-1, 2));
    EXPECT_TRUE(box.contains(2, 3));
    EXPECT_FALSE(box.contains(3, 3));
    EXPECT_FALSE(box.contains(2, 4));
}

TEST(ReferenceBox, AnEmptyOneAddsNothingToAUnionAndDoesNotGrow)
{
    const RefBox box{5, 6, 7, 8};
    EXPECT_EQ(united(RefBox{}, box), box);
    EXPECT_EQ(united(box, RefBox{100, 100, 100, 200}), box);
    EXPECT_TRUE(enlarged(RefBox{}, 2).empty());
    EXPECT_TRUE(enlarged(RefBox{9, 0, 3, 50}, 2).empty());
}

TEST(ReferenceBox, GrowsByWholePixels)
{
    // One pixel covers [4, 5) x [7, 8); two more on every side make [2, 7) x [5, 10).
    EXPECT_EQ(withPixel(RefBox{}, 4, 7), (RefBox{4, 7, 5, 8}));
    EXPECT_EQ(enlarged(withPixel(RefBox{}, 4, 7), 2), (RefBox{2, 5, 7, 10}));
    EXPECT_EQ(withPixel(RefBox{4, 7, 5, 8}, 2, 9), (RefBox{2, 7, 5, 10}));
}

TEST(ReferenceBox, IntersectsToNothingWhenSideBySide)
{
    EXPECT_TRUE(intersected(RefBox{0, 0, 2, 2}, RefBox{2, 0, 4, 2}).empty());
    EXPECT_EQ(intersected(RefBox{0, 0, 3, 3}, RefBox{1, -5, 9, 2}), (RefBox{1, 0, 3, 2}));
}

TEST(ReferenceImage, ReallocKeepsWhatOverlapsAndZeroesTheRest)
{
    RefImage16 image(RefBox{0, 0, 2, 2});
    image.at(0, 0) = RefPixel16{1, 2, 3, 4};
    image.at(1, 1) = RefPixel16{5, 6, 7, 8};

    image.realloc(RefBox{1, 1, 3, 3});

    EXPECT_FALSE(image.has(0, 0));
    EXPECT_EQ(image.at(1, 1), (RefPixel16{5, 6, 7, 8}));
    EXPECT_EQ(image.at(2, 2), RefPixel16{});

    image.realloc(RefBox{0, 0, 2, 2});
    EXPECT_EQ(image.at(0, 0), RefPixel16{}) << "what was dropped does not come back";
}

TEST(ReferenceImage, GrowsToFitAndClipsToItsCanvas)
{
    RefImageFloat image(RefBox{0, 0, 1, 1}, RefBox{0, 0, 4, 4}, 4, 4);
    image.at(0, 0).r = 0.5F;

    image.reallocToFitAndClipToCanvas(RefBox{2, -3, 9, 2});

    EXPECT_EQ(image.box, (RefBox{0, 0, 4, 2}));
    EXPECT_EQ(image.at(0, 0).r, 0.5F);
    EXPECT_EQ(image.canvas, (RefBox{0, 0, 4, 4}));
    EXPECT_EQ(image.width, 4);
}

TEST(ReferenceImage, MissingPixelsCannotBeRead)
{
    RefImage16 image(RefBox{0, 0, 1, 1});
    EXPECT_THROW(image.at(1, 0), std::out_of_range);
    EXPECT_THROW(image.at(-1, 0), std::out_of_range);
}

TEST(ReferenceImage, DepthOfEitherZeroIsBlack)
{
    RefDepth depth(RefBox{0, 0, 3, 1});
    depth.at(0, 0) = -0.0F;
    depth.at(1, 0) = -1.5F;
    EXPECT_FALSE(depth.hasDepth(0, 0));
    EXPECT_TRUE(depth.hasDepth(1, 0)) << "a negative depth is there";
    EXPECT_FALSE(depth.hasDepth(2, 0));
    EXPECT_FALSE(depth.hasDepth(3, 0));
}

TEST(ReferenceCompare, TellsWhatDiffers)
{
    const RefImage16 blank(RefBox{0, 0, 2, 2});
    RefImage16 marked = blank;
    EXPECT_EQ(differences(blank, marked), "");
    marked.at(1, 0).b = 3;
    EXPECT_EQ(differences(blank, marked),
              "1 pixels differ, first at (1, 0): expected (0, 0, 0, 0), got (0, 0, 3, 0)\n");
    EXPECT_NE(differences(blank, RefImage16(RefBox{0, 0, 2, 3})), "");
}

TEST(ReferenceCompare, HoldsFloatsToTheTolerance)
{
    RefImageFloat a(RefBox{0, 0, 1, 1});
    RefImageFloat b = a;
    b.at(0, 0).g = 0.5F;
    EXPECT_EQ(differences(a, b, 0.5), "");
    EXPECT_NE(differences(a, b, 0.49), "");
}

} // namespace
} // namespace reference
