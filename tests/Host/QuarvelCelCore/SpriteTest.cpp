// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sprites: shapes that show a picture of their own.
#include "QuarvelCelCore/CELVEC_Kvd.h"

#include <gtest/gtest.h>

using Math::Box2di;

namespace {

// 2 x 2 pixels: red, half-transparent green; empty, blue.
QImage picture()
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.setPixelColor(0, 0, QColor(255, 0, 0));
    image.setPixelColor(1, 0, QColor(0, 255, 0, 51));
    image.setPixelColor(0, 1, QColor(0, 0, 0, 0));
    image.setPixelColor(1, 1, QColor(0, 0, 255));
    return image;
}

const CM_ColorId_t kAverage(1);

// A picture at a place.
UT_SharedPtr<CELVEC_Kvd> spriteOf(const QImage& image, const QRectF& place, double opacity = 1.0)
{
    auto palette = UT_makeShared<CM_Palette>(UT_String("test"));
    auto color = UT_makeShared<CM_Color>(UT_String(), 0, kAverage);
    color->SetNominalColor({120, 120, 120, 255});
    palette->addColor(color);
    auto drawing = UT_makeShared<CELVEC_Kvd>(palette);
    QPainterPath path;
    path.addRect(place);
    drawing->addShape(GR_Art::COLOUR, {path, kAverage, opacity, {}, image});
    return drawing;
}

// The sprite at its own size, or stretched over a rectangle.
UT_SharedPtr<CELVEC_Kvd> sprite(const QRectF& place = QRectF(0, 0, 2, 2), double opacity = 1.0)
{
    return spriteOf(picture(), place, opacity);
}

// Red tells the row, and every third column covers a fifth.
QColor tallColour(int x, int y)
{
    return {y % 256, 0, 0, x % 3 == 2 ? 51 : 255};
}

// 5 x 300 pixels: more rows than are worked on at once.
QImage tallPicture()
{
    QImage image(5, 300, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, tallColour(x, y));
    return image;
}

UT_SharedPtr<CEL_PixmapAreaRGBA16> render(const CELVEC_Kvd& drawing, int width, int height,
                                          const QTransform& drawingToPixel = {})
{
    const Box2di canvas(0, 0, width, height);
    const CELVEC_RenderArgs args{drawingToPixel, {width, height}, canvas, canvas};
    auto target = UT_makeShared<CEL_PixmapAreaRGBA16>(args.size, args.canvas);
    drawing.render(args, *target);
    return target;
}

// Paints everything in one colour.
class AllWhite final : public CEL_ColorTransform
{
public:
    std::unique_ptr<GR_GraphicOpsColorTransform> createGraphicOpsTransform() override
    {
        return std::make_unique<Ops>();
    }

private:
    class Ops final : public GR_GraphicOpsColorTransform
    {
    public:
        Ops() : GR_GraphicOpsColorTransform(nullptr) {}
        VS_RGBA GetColorValue(const CM_SharedPtr<CM_BaseColorObj>&) override { return {255, 255, 255, 255}; }
    };
};

constexpr int kFull = 32767;
// One step of 8 bits, the precision of the picture's pixels.
constexpr int kStep = kFull / 255;

void expectNear(const CEL_PixelRGBA16& pixel, int r, int g, int b, int a)
{
    EXPECT_NEAR(pixel.r, r, kStep);
    EXPECT_NEAR(pixel.g, g, kStep);
    EXPECT_NEAR(pixel.b, b, kStep);
    EXPECT_NEAR(pixel.a, a, kStep);
}

} // namespace

TEST(Sprite, ShowsItsOwnPixels)
{
    const auto pixels = render(*sprite(), 4, 4);
    expectNear(pixels->at(0, 0), kFull, 0, 0, kFull);
    expectNear(pixels->at(1, 0), 0, kFull / 5, 0, kFull / 5);
    expectNear(pixels->at(0, 1), 0, 0, 0, 0);
    expectNear(pixels->at(1, 1), 0, 0, kFull, kFull);
    expectNear(pixels->at(2, 0), 0, 0, 0, 0);
}

TEST(Sprite, ShowsItsCoverageInTheColourOfATransform)
{
    const auto drawing = sprite();
    drawing->setColorTransform(UT_makeShared<AllWhite>());
    const auto pixels = render(*drawing, 4, 4);
    expectNear(pixels->at(0, 0), kFull, kFull, kFull, kFull);
    expectNear(pixels->at(1, 0), kFull / 5, kFull / 5, kFull / 5, kFull / 5);
    expectNear(pixels->at(0, 1), 0, 0, 0, 0);
}

TEST(Sprite, OfItsOwnSizeShowsEachPixelInItsPlace)
{
    const auto drawing = spriteOf(tallPicture(), QRectF(0, 0, 5, 300));
    const auto pixels = render(*drawing, 12, 280, QTransform::fromTranslate(3, -7));
    for (int y = 0; y < 280; ++y)
        for (int x = 2; x < 9; ++x) {
            SCOPED_TRACE(testing::Message() << x << ", " << y);
            const QColor shown = x >= 3 && x < 8 ? tallColour(x - 3, y + 7) : QColor(0, 0, 0, 0);
            const int alpha = kFull * shown.alpha() / 255;
            expectNear(pixels->at(x, y), alpha * shown.red() / 255, 0, 0, alpha);
        }
}

TEST(Sprite, OfItsOwnSizeCoversEachPixelInItsPlace)
{
    const auto drawing = spriteOf(tallPicture(), QRectF(0, 0, 5, 300));
    drawing->setColorTransform(UT_makeShared<AllWhite>());
    const auto pixels = render(*drawing, 12, 280, QTransform::fromTranslate(3, -7));
    for (int y = 0; y < 280; ++y)
        for (int x = 3; x < 8; ++x) {
            SCOPED_TRACE(testing::Message() << x << ", " << y);
            const int alpha = kFull * tallColour(x - 3, y + 7).alpha() / 255;
            expectNear(pixels->at(x, y), alpha, alpha, alpha, alpha);
        }
}

TEST(Sprite, IsTurnedUpsideDownWithItsDrawing)
{
    const auto pixels = render(*sprite(), 2, 2, QTransform(1, 0, 0, -1, 0, 2));
    expectNear(pixels->at(0, 0), 0, 0, 0, 0);
    expectNear(pixels->at(1, 0), 0, 0, kFull, kFull);
    expectNear(pixels->at(0, 1), kFull, 0, 0, kFull);
}

TEST(Sprite, FadesWithItsOpacity)
{
    expectNear(render(*sprite(QRectF(0, 0, 2, 2), 0.4), 2, 2)->at(1, 1), 0, 0, kFull * 2 / 5, kFull * 2 / 5);
}

TEST(Sprite, IsStretchedOverItsPath)
{
    const auto pixels = render(*sprite(QRectF(0, 0, 16, 16)), 16, 16);
    // Well inside each of the four quarters, where neighbours have no influence.
    expectNear(pixels->at(1, 1), kFull, 0, 0, kFull);
    expectNear(pixels->at(14, 14), 0, 0, kFull, kFull);
    expectNear(pixels->at(1, 14), 0, 0, 0, 0);
}

TEST(Sprite, GrowsWithTheDrawing)
{
    const auto pixels = render(*sprite(), 16, 16, QTransform::fromScale(8, 8));
    expectNear(pixels->at(1, 1), kFull, 0, 0, kFull);
    expectNear(pixels->at(14, 14), 0, 0, kFull, kFull);
}

TEST(Sprite, IsClippedByTheCanvas)
{
    const auto pixels = render(*sprite(QRectF(-1, -1, 2, 2)), 1, 1);
    EXPECT_EQ(pixels->allocatedRect(), Box2di(0, 0, 1, 1));
    expectNear(pixels->at(0, 0), 0, 0, kFull, kFull);
}
