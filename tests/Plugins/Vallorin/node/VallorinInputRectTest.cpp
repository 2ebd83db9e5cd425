// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How much more of its input the node needs than of its output.
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/graph/MO_PortContext.h"
#include "node/Vallorin.h"
#include "parameters/VallorinImpl.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

namespace Math {

void PrintTo(const Box2di& box, std::ostream* stream)
{
    *stream << '[' << box.x1 << ", " << box.x2 << ") x [" << box.y1 << ", " << box.y2 << ')';
}

} // namespace Math

namespace {

const Math::Box2di kRect(10, 20, 30, 50);

class VallorinInputRect : public testing::Test
{
protected:
    void setObjects(const char* text) { node.objectInformation()->setLocalValue(QString::fromLatin1(text)); }

    Math::Box2di needed(const std::pair<int, int>& resolution, const Math::Box2di& rect = kRect, double frame = 1.0)
    {
        return node.computeInputRect(MO_PortContext({frame}, resolution, &node, 0), 0, rect);
    }

    /// The growth on a picture; the same on all four sides.
    int growth(const std::pair<int, int>& resolution, double frame = 1.0)
    {
        const Math::Box2di rect = needed(resolution, kRect, frame);
        const int n = kRect.x1 - rect.x1;
        EXPECT_EQ(rect, kRect.getEnlarged(n));
        return n;
    }

    Vallorin node;
};

TEST_F(VallorinInputRect, ABevelOfThreeGrowsAPictureOf1920ByEight)
{
    setObjects("1:3");
    EXPECT_EQ(needed({1920, 1080}), Math::Box2di(2, 12, 38, 58));
}

TEST_F(VallorinInputRect, AnEmptyObjectListLeavesTheRectangle)
{
    for (const double blurScale : {0.0, 1.0, 10.0}) {
        node.impl()->blurScale->setLocalValue(blurScale);
        EXPECT_EQ(needed({1920, 1080}), kRect);
    }
}

TEST_F(VallorinInputRect, AListThatDecodesToNothingLeavesTheRectangle)
{
    setObjects("0:100;x:100;:");
    EXPECT_EQ(needed({1920, 1080}), kRect);
}

TEST_F(VallorinInputRect, TheLargestBevelCounts)
{
    setObjects("1:1;2:30;3:6");
    EXPECT_EQ(growth({720, 400}), 30);
}

TEST_F(VallorinInputRect, AnotherListCountsFromThenOn)
{
    for (const int bevel : {30, 6, 6, 30}) {
        setObjects(qPrintable(QStringLiteral("1:%1").arg(bevel)));
        EXPECT_EQ(growth({720, 400}), bevel);
        EXPECT_EQ(growth({720, 400}), bevel);
    }
    setObjects("");
    EXPECT_EQ(growth({720, 400}), 0);
}

TEST_F(VallorinInputRect, NegativeBevelsCountAsNone)
{
    setObjects("1:-30;2:-1");
    EXPECT_EQ(growth({720, 400}), 0);
}

TEST_F(VallorinInputRect, TheGrowthIsRoundedHalfUp)
{
    setObjects("1:2.4999");
    EXPECT_EQ(growth({720, 400}), 2);
    setObjects("1:2.5");
    EXPECT_EQ(growth({720, 400}), 3);
    setObjects("1:0.4");
    EXPECT_EQ(growth({720, 400}), 0);
}

TEST_F(VallorinInputRect, TheBevelMultiplierIsThatOfTheFrame)
{
    setObjects("1:10");
    AT_Curve curve;
    curve.setKey({1.0, 2.0, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
    curve.setKey({11.0, 4.0, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
    node.impl()->blurScale->setCurve(curve);
    EXPECT_EQ(growth({720, 400}, 1.0), 20);
    EXPECT_EQ(growth({720, 400}, 6.0), 30);
}

TEST_F(VallorinInputRect, ThePortDoesNotMatter)
{
    setObjects("1:3");
    const MO_PortContext context({1.0}, {1920, 1080}, &node, 5);
    EXPECT_EQ(node.computeInputRect(context, 5, kRect), Math::Box2di(2, 12, 38, 58));
}

TEST_F(VallorinInputRect, BevelsThatAreNoFiniteNumbersCountAsNone)
{
    setObjects("1:inf;2:nan;3:-inf");
    EXPECT_EQ(growth({1920, 1080}), 0);
    setObjects("1:inf;2:3;3:nan");
    EXPECT_EQ(growth({1920, 1080}), 8);
}

TEST_F(VallorinInputRect, TheGrowthEndsAtFourDiagonals)
{
    // A picture of 300 x 400 has a diagonal of 500.
    setObjects("1:4798");
    EXPECT_EQ(growth({300, 400}), 1999);
    for (const char* objects : {"1:4800", "1:1e9", "1:1e300"}) {
        setObjects(objects);
        EXPECT_EQ(growth({300, 400}), 2000) << objects;
    }
}

TEST_F(VallorinInputRect, AProductBeyondADoubleEndsThereToo)
{
    setObjects("1:1.7e308");
    node.impl()->blurScale->setLocalValue(10.0);
    EXPECT_EQ(growth({300, 400}), 2000);
}

TEST_F(VallorinInputRect, AnEmptyRectangleStaysEmpty)
{
    setObjects("1:100");
    EXPECT_EQ(needed({1920, 1080}, Math::Box2di(7, 7, 7, 9)), Math::Box2di(7, 7, 7, 9));
}

TEST_F(VallorinInputRect, CoordinatesSaturate)
{
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    setObjects("1:1e300");
    EXPECT_EQ(needed({kMax, kMax}, Math::Box2di(kMin, -1, kMax, 1)), Math::Box2di(kMin, kMin, kMax, kMax));
}

RC_GTEST_PROP(VallorinInputRectLaws, TheGrowthIsNeverNegativeNorBeyondFourDiagonals, ())
{
    Vallorin node;
    const double bevel = *rc::gen::arbitrary<double>() * *rc::gen::element(1e-300, 1.0, 1e300);
    node.objectInformation()->setLocalValue(QStringLiteral("1:%1").arg(bevel, 0, 'g', 17));
    const int width = *rc::gen::inRange(1, 40000);
    const int height = *rc::gen::inRange(1, 40000);
    const MO_PortContext context({1.0}, {width, height}, &node, 0);
    const Math::Box2di rect = node.computeInputRect(context, 0, Math::Box2di(0, 0, width, height));
    RC_ASSERT(rect.x1 <= 0);
    RC_ASSERT(-rect.x1 <= 4.0 * std::hypot(width, height));
    RC_ASSERT(rect == Math::Box2di(0, 0, width, height).getEnlarged(-rect.x1));
}

} // namespace
