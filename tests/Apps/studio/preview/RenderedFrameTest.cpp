// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which pixel of a smaller picture shows a place of the full one.
#include "studio/preview/RenderedFrame.h"

#include <gtest/gtest.h>

namespace {

// Three pixels, each of another grey, for a picture of five: a pixel of the frame is 5 / 3 pixels wide.
RenderedFrame smallFrame()
{
    QImage drawing(3, 1, QImage::Format_ARGB32_Premultiplied);
    for (int x = 0; x < 3; ++x)
        drawing.setPixelColor(x, 0, QColor(100 * x, 100 * x, 100 * x));
    return {.fullSize = {5, 1},
            .size = {3, 1},
            .nodeName = {},
            .drawing = drawing,
            .elevation = {},
            .normals = {},
            .surface = std::move(NM_Surface::create({1, 1}).value()),
            .node = {},
            .channels = {},
            .inputs = {}};
}

TEST(RenderedFrame, FindsThePixelInWhichAPlaceLies)
{
    const RenderedFrame frame = smallFrame();
    EXPECT_EQ(frame.pixelAt(QPointF(0.0, 0.0), frame.size), QPoint(0, 0));
    EXPECT_EQ(frame.pixelAt(QPointF(1.6, 0.0), frame.size), QPoint(0, 0));
    EXPECT_EQ(frame.pixelAt(QPointF(1.7, 0.0), frame.size), QPoint(1, 0));
    EXPECT_EQ(frame.pixelAt(QPointF(4.9, 0.9), frame.size), QPoint(2, 0));
    EXPECT_EQ(frame.pixelAt(QPointF(-0.1, -0.1), frame.size), QPoint(-1, -1));
    EXPECT_EQ(frame.pixelAt(QPointF(4.9, 0.9), QSize(10, 2)), QPoint(9, 1));
}

TEST(RenderedFrame, ShowsThePixelInWhichTheMiddleOfAPixelLies)
{
    const RenderedFrame frame = smallFrame();
    const double greys[] = {0, 0, 100, 200, 200}; // the middles lie at 0.3, 0.9, 1.5, 2.1 and 2.7 of three pixels
    for (int x = 0; x < 5; ++x) {
        const auto pixel = pixelOf(frame, QPoint(x, 0));
        ASSERT_TRUE(pixel);
        EXPECT_NEAR(pixel->channels[0] * 255.0, greys[x], 0.01) << x;
    }
    EXPECT_FALSE(pixelOf(frame, QPoint(5, 0)));
    EXPECT_FALSE(pixelOf(frame, QPoint(0, -1)));
}

} // namespace
