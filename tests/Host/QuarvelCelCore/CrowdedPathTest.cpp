// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Outlines of which very many lines cross rows of the picture.
#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelCelCore/private/CELVEC_CrowdedPath.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using Math::Box2di;

namespace {

constexpr int kWidth = 64;
constexpr int kHeight = 700;
const CM_ColorId_t kRed(1);

CM_SharedPtr<CM_Palette> palette()
{
    auto made = UT_makeShared<CM_Palette>(UT_String("test"));
    auto color = UT_makeShared<CM_Color>(UT_String(), 0, kRed);
    color->SetNominalColor({255, 0, 0, 255});
    made->addColor(color);
    return made;
}

UT_SharedPtr<CEL_PixmapAreaRGBA16> render(const CELVEC_Shape& shape, const Box2di& wanted)
{
    CELVEC_Kvd drawing(palette());
    drawing.addShape(GR_Art::COLOUR, shape);
    CELVEC_RenderArgs args{QTransform(), {kWidth, kHeight}, Box2di(0, 0, kWidth, kHeight), wanted};
    auto target = UT_makeShared<CEL_PixmapAreaRGBA16>(args.size, args.canvas);
    drawing.render(args, *target);
    return target;
}

UT_SharedPtr<CEL_PixmapAreaRGBA16> render(const CELVEC_Shape& shape)
{
    return render(shape, Box2di(0, 0, kWidth, kHeight));
}

// The alpha of a pixel; what was not stored is transparent.
double alphaAt(const CEL_PixmapAreaRGBA16& picture, int x, int y)
{
    const CEL_PixelRGBA16* const pixel = picture.find(x, y);
    return pixel ? pixel->a : 0.0;
}

// Bars from the top to the bottom, as wide as the gaps between them, with eight bars in each pixel.
QPainterPath bars()
{
    QPainterPath path;
    for (int i = 0; i < 8 * kWidth; ++i)
        path.addRect(QRectF(i / 8.0, 0.0, 1.0 / 16.0, kHeight));
    return path;
}

// A line up and down, slanted and ever further right.
QPainterPath zigzag()
{
    QPainterPath path(QPointF(1.0, 3.0));
    for (int i = 0; i < 150; ++i) {
        path.lineTo(1.7 + i * 0.4, kHeight - 2.5);
        path.lineTo(1.3 + i * 0.4, 3.5 + i % 7);
    }
    path.closeSubpath();
    return path;
}

TEST(CrowdedPath, CoversHalfOfEachPixelWithBarsAsWideAsTheirGaps)
{
    const auto picture = render({bars(), kRed, 1.0, {}});
    // A half of 255 is rounded to 128, of 32767 that is 16448.
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            ASSERT_NEAR(alphaAt(*picture, x, y), 16448, 1) << x << ", " << y;
    EXPECT_EQ(picture->at(5, 5).r, picture->at(5, 5).a);
    EXPECT_EQ(picture->at(5, 5).b, 0);
}

TEST(CrowdedPath, KeepsItsOpacityAndItsClip)
{
    CELVEC_Shape shape{bars(), kRed, 0.5, {}};
    QPainterPath clip;
    clip.addRect(QRectF(0.0, 0.0, kWidth, 10.0));
    shape.clip = clip;
    const auto picture = render(shape);
    EXPECT_NEAR(alphaAt(*picture, 7, 9), 8224, 2);
    EXPECT_EQ(alphaAt(*picture, 7, 10), 0);
}

TEST(CrowdedPath, LeavesItsCoverageOfWhatItClips)
{
    QPainterPath square;
    square.addRect(QRectF(10.0, 100.0, 20.0, 500.0));
    CELVEC_Shape shape{square, kRed, 1.0, {}};
    shape.clip = bars();
    const auto half = render(shape);
    EXPECT_NEAR(alphaAt(*half, 10, 100), 16448, 1);
    EXPECT_NEAR(alphaAt(*half, 29, 599), 16448, 1);
    EXPECT_EQ(alphaAt(*half, 9, 300), 0);
    EXPECT_EQ(alphaAt(*half, 15, 600), 0);

    // The bars clip themselves: 128 of 255, twice, is 64 of 255, of 32767 that is 8224.
    shape.path = bars();
    EXPECT_NEAR(alphaAt(*render(shape), 40, 350), 8224, 1);
}

TEST(CrowdedPath, IsFilledAsAPainterFillsIt)
{
    QImage expected(kWidth, kHeight, QImage::Format_RGBA64_Premultiplied);
    expected.fill(Qt::transparent);
    QPainter painter(&expected);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(zigzag(), Qt::red);
    painter.end();
    const auto picture = render({zigzag(), kRed, 1.0, {}});
    // The painter rounds the ends of each line to a 256th of a pixel, and up to six lines pass a pixel.
    constexpr double kTolerance = 4.5 / 255.0;
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            ASSERT_NEAR(alphaAt(*picture, x, y) / 32767.0, expected.pixelColor(x, y).alphaF(), kTolerance)
                << x << ", " << y;
}

TEST(CrowdedPath, IsTheSameHoweverMuchOfItIsWanted)
{
    const CELVEC_Shape shape{zigzag(), kRed, 1.0, {}};
    const auto whole = render(shape);
    const auto part = render(shape, Box2di(20, 301, 41, 340));
    ASSERT_EQ(part->allocatedRect(), Box2di(20, 301, 41, 340));
    for (int y = 301; y < 340; ++y)
        for (int x = 20; x < 41; ++x)
            ASSERT_EQ(part->at(x, y), whole->at(x, y)) << x << ", " << y;
}

// A saw of 4,000 teeth, each of which takes a quarter of a pixel and is 100 pixels high.
QPainterPath saw()
{
    QPainterPath path(QPointF(0.0, 0.0));
    for (int i = 1; i <= 4000; ++i) {
        path.lineTo(i * 0.25 - 0.125, 100.0);
        path.lineTo(i * 0.25, 0.0);
    }
    path.closeSubpath();
    return path;
}

TEST(CrowdedPath, IsOneWithManyCellsInEachRow)
{
    // 8,000 lines of 100.125 cells are 8,010 in each of 100 rows, of which 1,000 columns show 1,000 at most.
    EXPECT_TRUE(CELVEC_isCrowded(saw(), QTransform()));
    // At a tenth of the size, 80,000 cells among 100 in a row.
    EXPECT_TRUE(CELVEC_isCrowded(saw(), QTransform::fromScale(0.1, 0.1)));
    // At a hundredth, 8,000 cells among 10 in a row.
    EXPECT_FALSE(CELVEC_isCrowded(saw(), QTransform::fromScale(0.01, 0.01)));
}

TEST(CrowdedPath, IsOneWithManyLinesFarOutside)
{
    QPainterPath lines;
    for (int i = 0; i < 50; ++i) {
        lines.moveTo(-1e7, i);
        lines.lineTo(1e7, i + 40.0);
        lines.lineTo(-1e7, i + 1.0);
    }
    EXPECT_TRUE(CELVEC_isCrowded(lines, QTransform()));
    QPainterPath backdrop;
    backdrop.addRect(QRectF(-1e7, -1e7, 2e7, 2e7));
    EXPECT_FALSE(CELVEC_isCrowded(backdrop, QTransform()));
}

TEST(CrowdedPath, CoversWhatTheTeethOfASawCover)
{
    // The teeth point down and are full at the top: row y has the share 1 - (y + 0.5) / 100 of each pixel.
    const auto picture = render({saw(), kRed, 1.0, {}});
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < kWidth; ++x)
            ASSERT_NEAR(alphaAt(*picture, x, y) / 32767.0, 1.0 - (y + 0.5) / 100.0, 1.01 / 255.0) << x << ", " << y;
    EXPECT_EQ(alphaAt(*picture, 5, 100), 0);
}

TEST(CrowdedPath, ShowsNothingWhereItsClipIsElsewhere)
{
    CELVEC_Shape shape{saw(), kRed, 1.0, {}};
    QPainterPath clip;
    clip.addRect(QRectF(0.0, 20.0, kWidth, 10.0));
    clip.addRect(QRectF(0.0, 300.0, kWidth, 10.0));
    shape.clip = clip;
    const auto picture = render(shape);
    EXPECT_NEAR(alphaAt(*picture, 7, 25) / 32767.0, 0.745, 1.01 / 255.0);
    for (const int y : {19, 30, 99, 305})
        EXPECT_EQ(alphaAt(*picture, 7, y), 0) << y;
}

} // namespace
