// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The resolution at which regions are looked for in bitmaps.
#include "Bitmaps.h"

#include "form/bitmap/pictures/OwnResolution.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

QImage noise(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(37 * x % 256, 91 * y % 256, (x * y) % 256));
    return image;
}

} // namespace

TEST(BitmapResolution, anOrdinaryPictureIsDrawnInItsPixels)
{
    EXPECT_EQ(drawnPixelsOf(noise(40, 30)), PixelCells());
}

TEST(BitmapResolution, aPictureOfOneColourIsDrawnInItsPixels)
{
    QImage plain(40, 30, QImage::Format_ARGB32);
    plain.fill(Qt::red);
    EXPECT_EQ(drawnPixelsOf(plain).size, 1);
}

RC_GTEST_PROP(BitmapResolutionOfAnything, EnlargedPicturesAreFoundInDrawnPixelsWhereverTheyAreCut, ())
{
    const int size = *rc::gen::inRange(2, 9);
    const int left = *rc::gen::inRange(0, size);
    const int top = *rc::gen::inRange(0, size);
    const QImage small = noise(12, 11);
    const QImage large = small.scaled(small.size() * size);
    const QImage cut = large.copy(left, top, large.width() - left, large.height() - top);
    RC_ASSERT(drawnPixelsOf(cut) == (PixelCells{size, left, top}));
    const OwnPicture own = ownPictureOf(cut);
    RC_ASSERT(own.colours.width() == 12);
    for (int y = 0; y < 11; ++y)
        for (int x = 0; x < 12; ++x)
            RC_ASSERT(own.colours.at(x, y) == small.pixel(x, y));
}

TEST(BitmapResolution, largePicturesAreReduced)
{
    const QImage image = painted({2100, 900}, [](QPainter& painter) {
        painter.setBrush(Qt::red);
        painter.drawEllipse(QPointF(1000, 450), 400.5, 400.5);
        painter.setBrush(Qt::blue);
        painter.drawEllipse(QPointF(1100, 450), 200.5, 200.5);
    });
    const OwnPicture own = ownPictureOf(image);
    EXPECT_TRUE(own.reduced);
    EXPECT_EQ(own.colours.width(), 700);
    const ChosenObjects chosen = objectsOf(image);
    ASSERT_EQ(chosen.objects.size(), 2U);
    EXPECT_EQ(paintedAgain(chosen.drawing), paintedAgain(bitmapDrawing(image)));
    // The edge between the two is exact to the pixel, although a cell is three pixels wide.
    EXPECT_EQ(layerOf(chosen, 1).pixelColor(903, 450), QColor(Qt::blue));
    EXPECT_EQ(layerOf(chosen, 1).pixelColor(897, 450).alpha(), 0);
}
