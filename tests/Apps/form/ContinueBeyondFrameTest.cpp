// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Objects that end at the picture's border continue outside it.
#include "form/ContinueBeyondFrame.h"
#include "FormDrawings.h"

using namespace form_drawings;

namespace {

QRectF continued(const QByteArray& content)
{
    ChosenObjects found = chosen(content);
    continueBeyondFrame(found, found.drawing.viewBox);
    QRectF bounds;
    for (const DIO_Shape& shape : found.drawing.layers.front().shapes)
        bounds |= shape.path.boundingRect();
    return bounds;
}

} // namespace

TEST(ContinueBeyondFrame, LetsABustGoOnBelow)
{
    const QRectF bounds = continued("<path d='M20 100q0 -60 30 -60t30 60z' fill='#3f7d63'/>");
    EXPECT_NEAR(bounds.bottom(), 150.0, 1e-9);
    EXPECT_NEAR(bounds.left(), 20.0, 1.0);
    EXPECT_NEAR(bounds.right(), 80.0, 1.0);
}

TEST(ContinueBeyondFrame, GoesAroundCorners)
{
    EXPECT_NEAR(continued(rect(0, 60, 50, 40, "#3f7d63")).left(), -50.0, 1e-9);
    EXPECT_NEAR(continued(rect(0, 60, 50, 40, "#3f7d63")).bottom(), 150.0, 1e-9);
}

TEST(ContinueBeyondFrame, LeavesWhatTouchesOrGoesOnByItself)
{
    EXPECT_NEAR(continued(circle(50, 60, 40, "#3f7d63")).bottom(), 100.0, 1e-6);
    EXPECT_NEAR(continued(rect(20, 60, 60, 70, "#3f7d63")).bottom(), 130.0, 1e-6);
    EXPECT_NEAR(continued("<rect width='100' height='100' rx='12' fill='#dd2e44'/>").bottom(), 100.0, 1e-6);
}

TEST(ContinueBeyondFrame, ChangesNothingInThePicture)
{
    const DIO_Drawing drawing =
        read("<path d='M20 100q0 -60 30 -60t30 60z' fill='#3f7d63'/>" + rect(0, 70, 30, 30, "#c93434"));
    ChosenObjects found = chooseObjects(drawing, ObjectChoice::AUTO);
    continueBeyondFrame(found, found.drawing.viewBox);
    EXPECT_EQ(painted(found.drawing, 200), painted(drawing, 200));
}

TEST(ContinueBeyondFrame, NothingGoesOnWhereAPictureOfAnotherShapeWouldShowIt)
{
    const DIO_Drawing drawing = read(rect(0, 60, 50, 40, "#3f7d63"));
    const auto boundsIn = [&](double aspect) {
        const ChosenObjects found = chooseObjects(drawing, ObjectChoice::AUTO, aspect);
        QRectF bounds;
        for (const DIO_Shape& shape : found.drawing.layers.front().shapes)
            bounds |= shape.path.boundingRect();
        return bounds;
    };
    EXPECT_NEAR(boundsIn(2.0).left(), 0.0, 1e-9) << "a wide picture shows what lies to the left";
    EXPECT_NEAR(boundsIn(2.0).bottom(), 150.0, 1e-9);
    EXPECT_NEAR(boundsIn(0.5).left(), -50.0, 1e-9);
    EXPECT_NEAR(boundsIn(0.5).bottom(), 100.0, 1e-9) << "a high picture shows what lies below";
    EXPECT_EQ(boundsIn(1.0), boundsIn(0.0)) << "the drawing's own shape";
}
