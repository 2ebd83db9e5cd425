// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The leaf: which drawing it shows at which frame, and where.
#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"

#include <gtest/gtest.h>

using namespace test_modules;

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

TEST(ElementModule, ShowsTheDrawingExposedAtTheFrame)
{
    MO_ElementModule element;
    const auto first = rectangle(0, 0, 1, 1);
    const auto second = rectangle(0, 0, 2, 2);
    element.setDrawing(text("a"), first);
    element.setDrawing(text("b"), second);
    AT_ExposureSheet exposures;
    exposures.setExposure(2, text("a"));
    exposures.setExposure(5, text("b"));
    exposures.setExposure(8, QString());
    exposures.setExposure(9, text("missing"));
    element.drawingAttr()->setExposures(exposures);

    EXPECT_EQ(element.drawingAt(1.0), nullptr);
    EXPECT_EQ(element.drawingAt(2.0), first);
    EXPECT_EQ(element.drawingAt(4.9), first);
    EXPECT_EQ(element.drawingAt(5.0), second);
    EXPECT_EQ(element.drawingAt(8.0), nullptr);
    EXPECT_EQ(element.drawingAt(9.0), nullptr);
    element.setDrawing(text("a"), nullptr);
    EXPECT_EQ(element.drawingAt(2.0), nullptr);
}

TEST(ElementModule, ScalesThenTurnsClockwiseThenMoves)
{
    MO_ElementModule element;
    EXPECT_EQ(element.drawingToScene(1.0), QTransform());
    element.scaleX()->setLocalValue(2.0);
    element.scaleY()->setLocalValue(3.0);
    element.rotation()->setLocalValue(90.0);
    element.positionX()->setLocalValue(100.0);
    element.positionY()->setLocalValue(-50.0);
    // (1, 1) scaled is (2, 3); turned by 90 degrees with y down it is (-3, 2); moved it is (97, -48).
    EXPECT_EQ(element.drawingToScene(1.0).map(QPointF(1, 1)), QPointF(97, -48));
}

TEST(ElementModule, MovesOverTime)
{
    MO_ElementModule element;
    AT_Curve curve;
    ASSERT_TRUE(curve.setKey({.frame = 1.0, .value = 0.0, .in = {}, .out = {}, .unknown = {}}));
    ASSERT_TRUE(curve.setKey({.frame = 5.0, .value = 40.0, .in = {}, .out = {}, .unknown = {}}));
    element.positionX()->setCurve(curve);
    EXPECT_EQ(element.drawingToScene(2.0).map(QPointF(0, 0)), QPointF(10, 0));
}

TEST(ElementModule, HoldsVectorDrawingsUnlessToldOtherwise)
{
    MO_ElementModule element;
    EXPECT_EQ(element.getDrawingFileExt(), text("KVR"));
    element.setDrawingFileExt(text("png"));
    EXPECT_EQ(element.getDrawingFileExt(), text("png"));
    EXPECT_EQ(element.nInPorts(), 0U);
    EXPECT_EQ(element.nOutPorts(), 1U);
}

} // namespace
