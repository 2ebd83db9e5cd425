// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What boxes and vectors promise.
#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelBaseCore/Math_Size2di.h"
#include "QuarvelBaseCore/Math_Vector3d.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

using Math::Box2di;
using Math::Vector3d;

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

Box2di anyBox()
{
    const auto coordinate = rc::gen::inRange(-20, 20);
    return Box2di(*coordinate, *coordinate, *coordinate, *coordinate);
}

} // namespace

TEST(Box2di, IsEmptyFromTheStart)
{
    EXPECT_TRUE(Box2di().isEmpty());
    EXPECT_EQ(Box2di().area(), 0);
}

TEST(Box2di, LeavesItsRightAndLowerEdgeOut)
{
    const Box2di box(1, 2, 4, 7);
    EXPECT_TRUE(box.contains(1, 2));
    EXPECT_TRUE(box.contains(3, 6));
    EXPECT_FALSE(box.contains(4, 6));
    EXPECT_FALSE(box.contains(3, 7));
    EXPECT_EQ(box.width(), 3);
    EXPECT_EQ(box.height(), 5);
    EXPECT_EQ(box.area(), 15);
}

TEST(Box2di, HasNoSizeWhenEmptyInOneDirection)
{
    const Box2di flat(0, 5, 10, 5);
    EXPECT_TRUE(flat.isEmpty());
    EXPECT_EQ(flat.width(), 0);
    EXPECT_EQ(flat.height(), 0);
}

TEST(Box2di, CountsThePixelsOfTheWholePlane)
{
    EXPECT_EQ(Box2di(0, 0, kMax, kMax).area(), 4611686014132420609);
}

TEST(Box2di, BecomesTheFirstPixelAdded)
{
    Box2di box;
    box.add(-3, 8);
    EXPECT_EQ(box, Box2di(-3, 8, -2, 9));
}

TEST(Box2di, GrowsToCoverPixelsAdded)
{
    Box2di box(0, 0, 2, 2);
    box.add(4, 1);
    EXPECT_EQ(box, Box2di(0, 0, 5, 2));
}

TEST(Box2di, TakesNothingFromAnEmptyBox)
{
    Box2di box(0, 0, 2, 2);
    box.add(Box2di(50, 50, 50, 60));
    EXPECT_EQ(box, Box2di(0, 0, 2, 2));
}

TEST(Box2di, EnlargesOnEverySide)
{
    EXPECT_EQ(Box2di(1, 2, 3, 4).getEnlarged(2), Box2di(-1, 0, 5, 6));
    EXPECT_EQ(Box2di(0, 0, 10, 10).getEnlarged(-2), Box2di(2, 2, 8, 8));
}

TEST(Box2di, StaysEmptyWhenEnlarged)
{
    EXPECT_EQ(Box2di(5, 5, 5, 5).getEnlarged(10), Box2di(5, 5, 5, 5));
}

TEST(Box2di, SaturatesWhenEnlargedBeyondTheRangeOfInt)
{
    EXPECT_EQ(Box2di(kMin + 1, 0, kMax - 1, 1).getEnlarged(5), Box2di(kMin, -5, kMax, 6));
}

RC_GTEST_PROP(Box2di, IntersectionHoldsThePixelsOfBoth, ())
{
    const Box2di a = anyBox();
    const Box2di b = anyBox();
    const int x = *rc::gen::inRange(-20, 20);
    const int y = *rc::gen::inRange(-20, 20);
    RC_ASSERT(a.getIntersection(b).contains(x, y) == (a.contains(x, y) && b.contains(x, y)));
}

RC_GTEST_PROP(Box2di, UnionContainsBoth, ())
{
    const Box2di a = anyBox();
    const Box2di b = anyBox();
    Box2di both = a;
    both.add(b);
    RC_ASSERT(both.contains(a));
    RC_ASSERT(both.contains(b));
}

TEST(Size2di, IsEmptyWithoutWidthOrHeight)
{
    EXPECT_TRUE((Math::Size2di{0, 5}.isEmpty()));
    EXPECT_TRUE((Math::Size2di{5, -1}.isEmpty()));
    EXPECT_FALSE((Math::Size2di{1, 1}.isEmpty()));
}

TEST(Vector3d, CrossProductIsRightHanded)
{
    EXPECT_EQ(Vector3d(1, 0, 0).getCrossProduct(Vector3d(0, 1, 0)), Vector3d(0, 0, 1));
    EXPECT_EQ(Vector3d(0, 1, 0).getCrossProduct(Vector3d(0, 0, 1)), Vector3d(1, 0, 0));
    EXPECT_EQ(Vector3d(1, 2, 3).getCrossProduct(Vector3d(4, 5, 6)), Vector3d(-3, 6, -3));
}

TEST(Vector3d, NormalizeDividesByTheLength)
{
    Vector3d v(2, 3, 6);
    EXPECT_EQ(v.length(), 7.0);
    v.normalize();
    EXPECT_EQ(v, Vector3d(2.0 / 7.0, 3.0 / 7.0, 6.0 / 7.0));
}

TEST(Vector3d, OfLengthZeroStaysZero)
{
    Vector3d v;
    v.normalize();
    EXPECT_EQ(v, Vector3d(0, 0, 0));
}

TEST(Vector3d, AddsAndScalesComponentwise)
{
    Vector3d v = Vector3d(1, 2, 3) + 2.0 * Vector3d(10, 20, 30);
    v += Vector3d(0, 0, 1);
    EXPECT_EQ(v, Vector3d(21, 42, 64));
    EXPECT_EQ(v.dot(Vector3d(1, 0, -1)), -43.0);
}
