// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The coverage of drawings alone is the alpha of the pictures that they make in 16 bits.
#include "QuarvelCelCore/CEL_CoveragePlane.h"

#include "MultiStageKvd/MultiStageKvd.h"
#include "QuarvelCelCore/CEL_Compositing.h"

#include <gtest/gtest.h>

using Math::Box2di;

namespace {

const Box2di kCanvas(0, 0, 90, 300);
const CM_ColorId_t kColour(1);

CELVEC_RenderArgs args()
{
    return {QTransform(), {kCanvas.width(), kCanvas.height()}, kCanvas, kCanvas};
}

UT_SharedPtr<CELVEC_Kvd> drawingOf(std::initializer_list<CELVEC_Shape> shapes)
{
    auto palette = UT_makeShared<CM_Palette>(UT_String("test"));
    auto color = UT_makeShared<CM_Color>(UT_String(), 0, kColour);
    color->SetNominalColor({200, 100, 50, 230});
    palette->addColor(color);
    auto drawing = UT_makeShared<CELVEC_Kvd>(palette);
    for (const CELVEC_Shape& shape : shapes)
        drawing->addShape(GR_Art::COLOUR, shape);
    return drawing;
}

CELVEC_Shape ellipse(double x, double y, double width, double height, double opacity = 1.0)
{
    QPainterPath path;
    path.addEllipse(QRectF(x, y, width, height));
    return {path, kColour, opacity, {}};
}

CELVEC_Shape sprite()
{
    QImage image(4, 4, QImage::Format_ARGB32);
    for (int i = 0; i < 16; ++i)
        image.setPixelColor(i % 4, i / 4, QColor(10, 20, 30, 17 * i));
    QPainterPath path;
    path.addRect(QRectF(11.3, 120.7, 60.0, 90.0));
    return {path, kColour, 0.8, {}, image};
}

// Soft outlines that overlap, several bands of rows, a picture, and a drawing that reaches beyond the canvas.
std::vector<UT_SharedPtr<CELVEC_Kvd>> drawings()
{
    return {drawingOf({ellipse(3.3, 10.1, 70.0, 260.0), ellipse(30.2, 40.8, 20.5, 33.0, 0.4)}),
            drawingOf({ellipse(40.7, -20.3, 90.0, 180.4, 0.7)}), drawingOf({sprite()}),
            drawingOf({ellipse(-10.5, 200.5, 50.0, 40.0), ellipse(60.0, 250.0, 12.0, 80.0)})};
}

UT_SharedPtr<CEL_PixmapAreaRGBA16> painted(const CELVEC_Kvd& drawing)
{
    auto picture = UT_makeShared<CEL_PixmapAreaRGBA16>(args().size, kCanvas);
    drawing.render(args(), *picture);
    return picture;
}

void expectAlphaOf(const CEL_PixmapAreaRGBA16& picture, const CEL_CoveragePlane& coverage)
{
    int soft = 0;
    for (int y = kCanvas.y1; y < kCanvas.y2; ++y)
        for (int x = kCanvas.x1; x < kCanvas.x2; ++x) {
            const CEL_PixelRGBA16* const pixel = picture.find(x, y);
            const int alpha = pixel ? pixel->a : 0;
            ASSERT_EQ(coverage.row(y)[static_cast<std::size_t>(x)], alpha) << x << ", " << y;
            soft += alpha > 0 && alpha < 32767 ? 1 : 0;
        }
    EXPECT_GT(soft, 100);
}

} // namespace

TEST(CoveragePlane, CoversNothingAtFirst)
{
    const CEL_CoveragePlane coverage(Box2di(-2, -1, 3, 4));
    for (int y = -1; y < 4; ++y)
        for (const std::int16_t value : coverage.row(y))
            EXPECT_EQ(value, 0);
}

TEST(CoveragePlane, IsTheAlphaOfDrawingsPaintedOverEachOther)
{
    CEL_CoveragePlane coverage(kCanvas);
    CEL_PixmapAreaRGBA16 picture(args().size, kCanvas);
    picture.realloc(kCanvas, true);
    for (const auto& drawing : drawings()) {
        drawing->addCoverage(args(), CEL_CoverageStep::PAINT_OVER, coverage);
        CEL_paintOver(*painted(*drawing), picture);
    }
    expectAlphaOf(picture, coverage);
}

TEST(CoveragePlane, IsTheAlphaOfDrawingsCutOut)
{
    CEL_CoveragePlane coverage(kCanvas);
    CEL_PixmapAreaRGBA16 picture(args().size, kCanvas);
    picture.realloc(kCanvas, true);
    CEL_CoverageStep step = CEL_CoverageStep::PAINT_OVER;
    for (const auto& drawing : drawings()) {
        drawing->addCoverage(args(), step, coverage);
        if (step == CEL_CoverageStep::PAINT_OVER)
            CEL_paintOver(*painted(*drawing), picture);
        else
            CEL_cutOut(*painted(*drawing), picture);
        step = CEL_CoverageStep::CUT_OUT;
    }
    expectAlphaOf(picture, coverage);
}

TEST(CoveragePlane, TakesPicturesThatArePixelsAlready)
{
    CEL_CoveragePlane coverage(kCanvas);
    CEL_CoveragePlane fromPictures(kCanvas);
    CEL_CoverageStep step = CEL_CoverageStep::PAINT_OVER;
    for (const auto& drawing : drawings()) {
        drawing->addCoverage(args(), step, coverage);
        fromPictures.add(*painted(*drawing), step);
        step = step == CEL_CoverageStep::PAINT_OVER ? CEL_CoverageStep::CUT_OUT : CEL_CoverageStep::PAINT_OVER;
    }
    for (int y = kCanvas.y1; y < kCanvas.y2; ++y)
        ASSERT_TRUE(std::ranges::equal(coverage.row(y), fromPictures.row(y))) << y;
}

TEST(CoveragePlane, IgnoresWhatLiesOutsideIt)
{
    CEL_CoveragePlane part(Box2di(30, 100, 60, 180));
    CEL_CoveragePlane whole(kCanvas);
    for (const auto& drawing : drawings()) {
        drawing->addCoverage(args(), CEL_CoverageStep::PAINT_OVER, part);
        drawing->addCoverage(args(), CEL_CoverageStep::PAINT_OVER, whole);
    }
    for (int y = 100; y < 180; ++y)
        ASSERT_TRUE(std::ranges::equal(part.row(y), whole.row(y).subspan(30, 30))) << y;
}

// A stage that covers everything by half.
class CoverHalf final : public MultiStageKvd::RenderingStage
{
public:
    void render(const MultiStageKvd&, const CELVEC_RenderArgs&, CEL_PixmapArea& target) const override
    {
        auto& pixmap = dynamic_cast<CEL_PixmapAreaRGBA16&>(target);
        for (int y = pixmap.allocatedRect().y1; y < pixmap.allocatedRect().y2; ++y)
            std::ranges::fill(pixmap.row(y), CEL_PixelRGBA16{0, 0, 0, 16384});
    }
};

TEST(CoveragePlane, HasWhatStagesMakeOfTheCoverage)
{
    const auto staged = MultiStageKvd::embed(drawingOf({ellipse(3.3, 10.1, 70.0, 260.0)}));
    staged->addStage(UT_makeShared<CoverHalf>());
    CEL_CoveragePlane coverage(kCanvas);
    staged->addCoverage(args(), CEL_CoverageStep::PAINT_OVER, coverage);
    EXPECT_EQ(coverage.row(100)[40], 16384);
}
