// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One drawing as GIMP and MyPaint store it (files/gimp.scm, files/mypaint.py): a body from 3, 2 of ten by twelve
// pixels, above it an eye from 10, 5 of six by four pixels at 60 %, and a hidden layer.
#include "Drawings.h"

#include "QuarvelDrawingIO/DIO_DrawingReader.h"

#include <gtest/gtest.h>

namespace {

constexpr QRgb kBody = qRgb(200, 40, 20);
constexpr QRgb kEye = qRgb(20, 60, 220);

DIO_Drawing drawingOf(const char* name)
{
    UT_Result<DIO_Drawing> drawing = DIO_readDrawing(QStringLiteral(TEST_FILES "/") + QString::fromLatin1(name));
    EXPECT_TRUE(drawing) << drawing.error().text.toStdString();
    return drawing ? std::move(*drawing) : DIO_Drawing();
}

// The layer shows a colour inside a rectangle of the picture, and nothing elsewhere.
void expectRectangle(const DIO_Layer& layer, QRgb colour, const QRect& rectangle)
{
    const DIO_Shape& shape = layer.shapes.front();
    const QPoint corner = shape.path.boundingRect().topLeft().toPoint();
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 24; ++x) {
            const QPoint at = QPoint(x, y) - corner;
            const QRgb shown = shape.picture.valid(at) ? shape.picture.pixel(at) : 0;
            const QRgb expected = rectangle.contains(x, y) ? colour : 0;
            ASSERT_EQ(qAlpha(shown) == 0 ? 0 : shown, expected) << x << ", " << y;
        }
}

void expectFigure(const DIO_Drawing& drawing, const QString& eye)
{
    EXPECT_EQ(drawing.size, QSizeF(24, 16));
    ASSERT_EQ(drawing.layers.size(), 2u);
    EXPECT_EQ(drawing.layers[0].name, "body");
    EXPECT_EQ(drawing.layers[1].name, eye);
    expectRectangle(drawing.layers[0], kBody, {3, 2, 10, 12});
    expectRectangle(drawing.layers[1], kEye, {10, 5, 6, 4});
    EXPECT_DOUBLE_EQ(drawing.layers[0].shapes.front().opacity, 1.0);
    EXPECT_NEAR(drawing.layers[1].shapes.front().opacity, 0.6, 1.0 / 255.0);
}

} // namespace

TEST(PaintersFiles, GimpsLayersHaveEveryPixelInItsPlace)
{
    for (const char* name : {"gimp.psd", "gimp16.psd"}) {
        SCOPED_TRACE(name);
        const DIO_Drawing drawing = drawingOf(name);
        expectFigure(drawing, QStringLiteral("head/eye"));
        EXPECT_TRUE(drawing.warnings.isEmpty()) << drawing.warnings.join('\n').toStdString();
    }
}

TEST(PaintersFiles, MyPaintsLayersHaveEveryPixelInItsPlaceWithoutItsPaper)
{
    const DIO_Drawing drawing = drawingOf("mypaint.ora");
    expectFigure(drawing, QStringLiteral("eye"));
    EXPECT_EQ(drawing.warnings, QStringList("MyPaint's paper is left out: background"));
}
