// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How vector drawings become pixels: coverage, order, art layers, palettes, colour transforms, stages.
#include "MultiStageKvd/MultiStageKvd.h"
#include "QuarvelCelCore/CEL_Cel.h"

#include <gtest/gtest.h>

using Math::Box2di;

namespace {

const CM_ColorId_t kRed(1);
const CM_ColorId_t kBlue(2);

CM_SharedPtr<CM_Palette> palette()
{
    auto made = UT_makeShared<CM_Palette>(UT_String("test"));
    const auto add = [&](CM_ColorId_t id, CM_Rgba nominal) {
        auto color = UT_makeShared<CM_Color>(UT_String(), 0, id);
        color->SetNominalColor(nominal);
        made->addColor(color);
    };
    add(kRed, {255, 0, 0, 255});
    add(kBlue, {0, 0, 255, 255});
    return made;
}

CELVEC_Shape rectangle(double x1, double y1, double x2, double y2, CM_ColorId_t color = kRed, double opacity = 1.0)
{
    QPainterPath path;
    path.addRect(QRectF(QPointF(x1, y1), QPointF(x2, y2)));
    return {path, color, opacity, {}};
}

CELVEC_RenderArgs pixels(int width, int height)
{
    const Box2di canvas(0, 0, width, height);
    return {QTransform(), {width, height}, canvas, canvas};
}

UT_SharedPtr<CEL_PixmapAreaRGBA16> render16(const CELVEC_Kvd& drawing, const CELVEC_RenderArgs& args)
{
    auto target = UT_makeShared<CEL_PixmapAreaRGBA16>(args.size, args.canvas);
    drawing.render(args, *target);
    return target;
}

UT_SharedPtr<CELVEC_Kvd> drawingOf(std::initializer_list<CELVEC_Shape> shapes)
{
    auto drawing = UT_makeShared<CELVEC_Kvd>(palette());
    for (const CELVEC_Shape& shape : shapes)
        drawing->addShape(GR_Art::COLOUR, shape);
    return drawing;
}

// Paints every colour in one green, except one colour, which it leaves out.
class AllGreenBut final : public CEL_ColorTransform
{
public:
    explicit AllGreenBut(CM_ColorId_t hidden) : _hidden(hidden) {}

    std::unique_ptr<GR_GraphicOpsColorTransform> createGraphicOpsTransform() override
    {
        return std::make_unique<Ops>(_hidden);
    }

private:
    class Ops final : public GR_GraphicOpsColorTransform
    {
    public:
        explicit Ops(CM_ColorId_t hidden) : GR_GraphicOpsColorTransform(palette()), _hidden(hidden) {}
        VS_RGBA GetColorValue(const CM_SharedPtr<CM_BaseColorObj>& color) override
        {
            return color && color->GetColorId() == _hidden ? VS_RGBA{} : VS_RGBA{0, 255, 0, 255};
        }

    private:
        CM_ColorId_t _hidden;
    };
    CM_ColorId_t _hidden;
};

class AddOneToRed final : public MultiStageKvd::RenderingStage
{
public:
    void render(const MultiStageKvd&, const CELVEC_RenderArgs&, CEL_PixmapArea& target) const override
    {
        auto& pixmap = dynamic_cast<CEL_PixmapAreaRGBA16&>(target);
        for (int y = pixmap.allocatedRect().y1; y < pixmap.allocatedRect().y2; ++y)
            for (CEL_PixelRGBA16& pixel : pixmap.row(y))
                ++pixel.r;
    }
};

} // namespace

TEST(VectorDrawing, CoversWholePixelsFully)
{
    const auto picture = render16(*drawingOf({rectangle(1, 1, 3, 2)}), pixels(4, 4));
    EXPECT_EQ(picture->at(1, 1), (CEL_PixelRGBA16{32767, 0, 0, 32767}));
    EXPECT_EQ(picture->at(2, 1), (CEL_PixelRGBA16{32767, 0, 0, 32767}));
    EXPECT_EQ(picture->at(1, 2), CEL_PixelRGBA16{});
    EXPECT_EQ(picture->at(0, 1), CEL_PixelRGBA16{});
}

TEST(VectorDrawing, CoversPixelsByTheAreaThatAShapeTakesOfThem)
{
    // A quarter in x and a half in y: an eighth of the pixel, in steps of 1/256.
    const auto picture = render16(*drawingOf({rectangle(0.75, 0.5, 1.0, 1.0)}), pixels(2, 2));
    EXPECT_NEAR(picture->at(0, 0).a, 32767.0 / 8.0, 32767.0 / 256.0);
    EXPECT_EQ(picture->at(0, 0).r, picture->at(0, 0).a) << "colours are multiplied by coverage";
}

TEST(VectorDrawing, PaintsLaterShapesOverEarlierOnes)
{
    const auto picture =
        render16(*drawingOf({rectangle(0, 0, 2, 2, kRed), rectangle(0, 0, 1, 1, kBlue)}), pixels(2, 2));
    EXPECT_EQ(picture->at(0, 0), (CEL_PixelRGBA16{0, 0, 32767, 32767}));
    EXPECT_EQ(picture->at(1, 1), (CEL_PixelRGBA16{32767, 0, 0, 32767}));
}

TEST(VectorDrawing, PaintsLineArtOverColourArtWhateverTheOrderOfAdding)
{
    auto drawing = UT_makeShared<CELVEC_Kvd>(palette());
    drawing->addShape(GR_Art::LINE, rectangle(0, 0, 1, 1, kBlue));
    drawing->addShape(GR_Art::COLOUR, rectangle(0, 0, 1, 1, kRed));
    EXPECT_EQ(render16(*drawing, pixels(1, 1))->at(0, 0), (CEL_PixelRGBA16{0, 0, 32767, 32767}));
}

TEST(VectorDrawing, LeavesOutArtLayersThatAreNotSelected)
{
    auto drawing = drawingOf({rectangle(0, 0, 1, 1)});
    GR_ArtSelector lineOnly;
    lineOnly.setSelected(GR_Art::COLOUR, false);
    drawing->setArtSelector(lineOnly);
    EXPECT_TRUE(render16(*drawing, pixels(1, 1))->allocatedRect().isEmpty());
}

TEST(VectorDrawing, KeepsOpacityAsCoverage)
{
    const auto picture = render16(*drawingOf({rectangle(0, 0, 1, 1, kRed, 0.5)}), pixels(1, 1));
    EXPECT_NEAR(picture->at(0, 0).a, 16384, 64);
}

TEST(VectorDrawing, AllocatesOnlyWhereShapesAre)
{
    const auto picture = render16(*drawingOf({rectangle(40, 50, 42, 51)}), pixels(100, 100));
    EXPECT_TRUE(Box2di(38, 48, 44, 53).contains(picture->allocatedRect()));
    EXPECT_TRUE(picture->allocatedRect().contains(Box2di(40, 50, 42, 51)));
}

TEST(VectorDrawing, RendersWantedPixelsBeyondTheCanvas)
{
    CELVEC_RenderArgs args = pixels(4, 4);
    args.wanted = Box2di(-4, -4, 8, 8);
    const auto picture = render16(*drawingOf({rectangle(-2, -2, -1, -1)}), args);
    EXPECT_EQ(picture->at(-2, -2).a, 32767);
}

TEST(VectorDrawing, PaintsNothingOutsideOfAClip)
{
    CELVEC_Shape clipped = rectangle(0, 0, 4, 4);
    clipped.clip.emplace();
    clipped.clip->addRect(0, 0, 2, 4);
    const auto picture = render16(*drawingOf({clipped}), pixels(4, 4));
    EXPECT_EQ(picture->at(1, 1).a, 32767);
    EXPECT_EQ(picture->at(2, 1).a, 0);
}

TEST(VectorDrawing, ShowsNothingOfAColourThatThePaletteDoesNotHold)
{
    const auto drawing = drawingOf({rectangle(0, 0, 1, 1, CM_ColorId_t(99))});
    EXPECT_TRUE(render16(*drawing, pixels(1, 1))->allocatedRect().isEmpty());
}

TEST(VectorDrawing, IsRepaintedByItsColourTransform)
{
    auto drawing = drawingOf({rectangle(0, 0, 1, 1, kRed), rectangle(1, 0, 2, 1, kBlue)});
    drawing->setColorTransform(UT_makeShared<AllGreenBut>(kBlue));
    const auto picture = render16(*drawing, pixels(2, 1));
    EXPECT_EQ(picture->at(0, 0), (CEL_PixelRGBA16{0, 32767, 0, 32767}));
    const CEL_PixelRGBA16* hidden = picture->find(1, 0);
    EXPECT_TRUE(!hidden || *hidden == CEL_PixelRGBA16{}) << "a transparent paint lays down no coverage";
}

TEST(VectorDrawing, SharesItsShapesButNotItsSettings)
{
    auto drawing = drawingOf({rectangle(0, 0, 1, 1)});
    const auto shared = drawing->shareForRendering();
    shared->setColorTransform(UT_makeShared<AllGreenBut>(kBlue));
    EXPECT_EQ(render16(*drawing, pixels(1, 1))->at(0, 0).r, 32767);
    EXPECT_EQ(render16(*shared, pixels(1, 1))->at(0, 0).g, 32767);
    drawing->addShape(GR_Art::COLOUR, rectangle(0, 0, 1, 1, kBlue));
    EXPECT_EQ(shared->shapes(GR_Art::COLOUR).size(), 1U) << "what was shared does not change with the original";
}

TEST(VectorDrawing, RendersTheSameInFloat)
{
    const CELVEC_RenderArgs args = pixels(2, 2);
    CEL_PixmapAreaRGBAFloat target(args.size, args.canvas);
    drawingOf({rectangle(0, 0, 1, 1)})->render(args, target);
    EXPECT_EQ(target.at(0, 0), (CEL_PixelRGBAFloat{1.0F, 0.0F, 0.0F, 1.0F}));
}

TEST(VectorDrawing, ClosesSeamsInFloatOnly)
{
    // A quarter in x and a half in y: an eighth of the pixel.
    const auto drawing = drawingOf({rectangle(0.75, 0.5, 1.0, 1.0), rectangle(2, 0, 9, 1)});
    CELVEC_RenderArgs args = pixels(9, 1);
    CEL_PixmapAreaRGBAFloat open(args.size, args.canvas);
    drawing->render(args, open);
    const auto whole = render16(*drawing, args);
    args.closesSeams = true;
    CEL_PixmapAreaRGBAFloat closed(args.size, args.canvas);
    drawing->render(args, closed);
    const float alpha = open.at(0, 0).a;
    EXPECT_NEAR(closed.at(0, 0).a, 1.0F - (1.0F - alpha) * (1.0F - alpha), 1e-6F);
    EXPECT_EQ(closed.at(0, 0).r, closed.at(0, 0).a) << "colours are multiplied by coverage";
    EXPECT_EQ(closed.at(1, 0), CEL_PixelRGBAFloat{});
    for (int x = 2; x < 9; ++x)
        EXPECT_EQ(closed.at(x, 0), (CEL_PixelRGBAFloat{1.0F, 0.0F, 0.0F, 1.0F})) << x;
    EXPECT_EQ(render16(*drawing, args)->at(0, 0), whole->at(0, 0));
}

TEST(VectorDrawing, IsTransparentWhereNoShapeIs)
{
    // Shapes in some bands of rows and some columns of them, over earlier pixels of the same memory.
    const auto drawing =
        drawingOf({rectangle(10, 0, 20, 40), rectangle(50, 600, 60, 700), rectangle(90, 650, 99, 700)});
    const CELVEC_RenderArgs args = pixels(100, 700);
    {
        CEL_PixmapAreaRGBA16 before(args.size, args.canvas);
        before.realloc(args.canvas, false);
        for (int y = 0; y < 700; ++y)
            std::ranges::fill(before.row(y), CEL_PixelRGBA16{1, 2, 3, 4});
    }
    const auto picture = render16(*drawing, args);
    int covered = 0;
    for (int y = picture->allocatedRect().y1; y < picture->allocatedRect().y2; ++y)
        for (const CEL_PixelRGBA16& pixel : picture->row(y)) {
            ASSERT_TRUE(pixel == CEL_PixelRGBA16{} || pixel == (CEL_PixelRGBA16{32767, 0, 0, 32767})) << y;
            covered += pixel.a > 0 ? 1 : 0;
        }
    EXPECT_EQ(covered, 10 * 40 + 10 * 100 + 9 * 50);
}

TEST(VectorDrawing, IsTheSameHoweverMuchOfItIsWanted)
{
    // Slanted outlines over 700 rows, one of them clipped.
    QPainterPath triangle;
    triangle.addPolygon(QPolygonF({{3.3, 2.1}, {61.7, 350.2}, {9.4, 698.6}}));
    QPainterPath ring;
    ring.addEllipse(QPointF(32.0, 350.0), 30.5, 340.25);
    CELVEC_Shape clipped{ring, kBlue, 0.7, {}};
    clipped.clip = triangle;
    const auto drawing = drawingOf({{triangle, kRed, 1.0, {}}, clipped});
    CELVEC_RenderArgs args = pixels(64, 700);
    const auto whole = render16(*drawing, args);
    for (const int top : {0, 77, 128, 300, 511}) {
        args.wanted = Box2di(0, top, 64, top + 140);
        const auto part = render16(*drawing, args);
        for (int y = part->allocatedRect().y1; y < part->allocatedRect().y2; ++y)
            for (int x = part->allocatedRect().x1; x < part->allocatedRect().x2; ++x)
                ASSERT_EQ(part->at(x, y), whole->at(x, y)) << x << ", " << y;
    }
}

TEST(MultiStageDrawing, RunsItsStagesInOrderOnThePrimaryPicture)
{
    const auto staged = MultiStageKvd::embed(drawingOf({rectangle(0, 0, 1, 1, kBlue)}));
    staged->addStage(UT_makeShared<AddOneToRed>());
    staged->addStage(UT_makeShared<AddOneToRed>());
    EXPECT_EQ(render16(*staged, pixels(1, 1))->at(0, 0), (CEL_PixelRGBA16{2, 0, 32767, 32767}));
}

// Paints every colour in one.
class AllIn final : public CEL_ColorTransform
{
public:
    explicit AllIn(VS_RGBA paint) : _paint(paint) {}
    std::unique_ptr<GR_GraphicOpsColorTransform> createGraphicOpsTransform() override
    {
        return std::make_unique<Ops>(_paint);
    }

private:
    class Ops final : public GR_GraphicOpsColorTransform
    {
    public:
        explicit Ops(VS_RGBA paint) : GR_GraphicOpsColorTransform(palette()), _paint(paint) {}
        VS_RGBA GetColorValue(const CM_SharedPtr<CM_BaseColorObj>&) override { return _paint; }

    private:
        VS_RGBA _paint;
    };
    VS_RGBA _paint;
};

UT_SharedPtr<CELVEC_Kvd> inOneColour(const CELVEC_Kvd& drawing, VS_RGBA paint)
{
    UT_SharedPtr<CELVEC_Kvd> made = drawing.shareForRendering();
    made->setColorTransform(UT_makeShared<AllIn>(paint));
    return made;
}

constexpr VS_RGBA kWhite{255, 255, 255, 255};

// Soft outlines, opacities, a clip and holes, larger than a band of rows.
UT_SharedPtr<CELVEC_Kvd> softDrawing()
{
    QPainterPath ring;
    ring.addEllipse(QPointF(40.3, 200.1), 30.7, 180.4);
    ring.addEllipse(QPointF(40.3, 200.1), 12.2, 90.9);
    QPainterPath slanted;
    slanted.addPolygon(QPolygonF({{3.3, 12.1}, {71.7, 250.2}, {9.4, 398.6}}));
    CELVEC_Shape clipped{ring, kBlue, 0.7, {}};
    clipped.clip = slanted;
    return drawingOf({{ring, kRed, 1.0, {}}, {slanted, kBlue, 0.35, {}}, clipped});
}

CELVEC_RenderArgs softDrawingArgs()
{
    CELVEC_RenderArgs args = pixels(80, 400);
    args.wanted = Box2di(0, 30, 80, 400);
    return args;
}

// Compares a plane with the pictures of a drawing and of the same one in white.
template<typename Pixmap>
void expectAlphasOf(const CELVEC_Kvd& drawing, const CELVEC_RenderArgs& args)
{
    const auto white = inOneColour(drawing, kWhite);
    const auto plane = drawing.sharedAlpha(args, *white);
    ASSERT_TRUE(plane);
    Pixmap own(args.size, args.canvas);
    Pixmap inWhite(args.size, args.canvas);
    drawing.render(args, own);
    white->render(args, inWhite);
    ASSERT_EQ(plane->rect(), own.allocatedRect());
    std::vector<decltype(Pixmap::PixelType::a)> alphas(static_cast<std::size_t>(plane->rect().width()));
    for (int y = plane->rect().y1; y < plane->rect().y2; ++y) {
        plane->readOwn(y, alphas);
        ASSERT_TRUE(std::ranges::equal(alphas, own.row(y), {}, {}, &Pixmap::PixelType::a)) << y;
        plane->readWhite(y, alphas);
        for (const auto channel :
             {&Pixmap::PixelType::r, &Pixmap::PixelType::g, &Pixmap::PixelType::b, &Pixmap::PixelType::a})
            ASSERT_TRUE(std::ranges::equal(alphas, inWhite.row(y), {}, {}, channel)) << y;
    }
}

TEST(VectorDrawing, SharesItsAlphaWithItselfInOpaqueWhite)
{
    const auto drawing = softDrawing();
    CELVEC_RenderArgs args = softDrawingArgs();
    for (const bool closesSeams : {false, true}) {
        args.closesSeams = closesSeams;
        expectAlphasOf<CEL_PixmapAreaRGBA16>(*drawing, args);
        expectAlphasOf<CEL_PixmapAreaRGBAFloat>(*drawing, args);
    }
}

TEST(VectorDrawing, SharesAnAlphaWithoutPixelsWhereNothingIsDrawn)
{
    const auto drawing = drawingOf({rectangle(20, 20, 30, 30)});
    const auto plane = drawing->sharedAlpha(pixels(4, 4), *inOneColour(*drawing, kWhite));
    ASSERT_TRUE(plane);
    EXPECT_TRUE(plane->rect().isEmpty());
}

TEST(VectorDrawing, SharesItsAlphaWithNothingElse)
{
    const auto drawing = softDrawing();
    const CELVEC_RenderArgs args = softDrawingArgs();
    for (const VS_RGBA paint : {VS_RGBA{255, 255, 255, 120}, VS_RGBA{90, 90, 90, 255}, VS_RGBA{255, 255, 254, 255}})
        EXPECT_FALSE(drawing->sharedAlpha(args, *inOneColour(*drawing, paint)));
    EXPECT_FALSE(drawing->sharedAlpha(args, *drawing)) << "in its own colours";
    EXPECT_FALSE(inOneColour(*drawing, kWhite)->sharedAlpha(args, *inOneColour(*drawing, kWhite)))
        << "a transform's colours may depend on being asked once";
    EXPECT_FALSE(drawing->sharedAlpha(args, *inOneColour(*softDrawing(), kWhite))) << "another drawing's shapes";
    CELVEC_Shape sprite = rectangle(0, 0, 2, 2);
    sprite.picture = QImage(2, 2, QImage::Format_RGBA64);
    sprite.picture.fill(Qt::red);
    const auto pictures = drawingOf({sprite});
    EXPECT_FALSE(pictures->sharedAlpha(args, *inOneColour(*pictures, kWhite)));
    const auto staged = MultiStageKvd::embed(drawing);
    EXPECT_FALSE(staged->sharedAlpha(args, *inOneColour(*drawing, kWhite))) << "stages change pixels";
}

TEST(MultiStageDrawing, LeavesThePaintingToAFirstStageThatCanDoIt)
{
    class PaintsBlue final : public MultiStageKvd::RenderingStage
    {
    public:
        explicit PaintsBlue(bool paints) : _paints(paints) {}
        bool paint(const MultiStageKvd&, const CELVEC_RenderArgs&, CEL_PixmapArea& target) const override
        {
            if (_paints) {
                target.realloc({0, 0, 1, 1}, false);
                dynamic_cast<CEL_PixmapAreaRGBA16&>(target).at(0, 0) = {0, 0, 9, 9};
            }
            return _paints;
        }
        void render(const MultiStageKvd&, const CELVEC_RenderArgs&, CEL_PixmapArea& target) const override
        {
            dynamic_cast<CEL_PixmapAreaRGBA16&>(target).at(0, 0).g += 100;
        }

    private:
        bool _paints;
    };
    const auto rendered = [](bool paints, bool isFirst) {
        const auto staged = MultiStageKvd::embed(drawingOf({rectangle(0, 0, 1, 1)}));
        if (!isFirst)
            staged->addStage(UT_makeShared<AddOneToRed>());
        staged->addStage(UT_makeShared<PaintsBlue>(paints));
        staged->addStage(UT_makeShared<AddOneToRed>());
        return render16(*staged, pixels(1, 1))->at(0, 0);
    };
    EXPECT_EQ(rendered(true, true), (CEL_PixelRGBA16{1, 0, 9, 9}));
    EXPECT_EQ(rendered(false, true).g, 100);
    EXPECT_EQ(rendered(true, false).g, 100) << "a later stage works on pixels";
}

TEST(MultiStageDrawing, ClosesSeamsAfterItsStages)
{
    class CoverHalf final : public MultiStageKvd::RenderingStage
    {
    public:
        void render(const MultiStageKvd&, const CELVEC_RenderArgs&, CEL_PixmapArea& target) const override
        {
            dynamic_cast<CEL_PixmapAreaRGBAFloat&>(target).at(0, 0) = {0.5F, 0.0F, 0.0F, 0.5F};
        }
    };
    const auto staged = MultiStageKvd::embed(drawingOf({rectangle(0, 0, 1, 1, kBlue)}));
    staged->addStage(UT_makeShared<CoverHalf>());
    CELVEC_RenderArgs args = pixels(1, 1);
    args.closesSeams = true;
    CEL_PixmapAreaRGBAFloat target(args.size, args.canvas);
    staged->render(args, target);
    EXPECT_EQ(target.at(0, 0), (CEL_PixelRGBAFloat{0.75F, 0.0F, 0.0F, 0.75F}));
}

TEST(Cel, RasterisesAVectorDrawingWhenConverted)
{
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(drawingOf({rectangle(0, 0, 1, 1)}));
    cel->setRenderArgs(pixels(2, 2));
    const auto converted = cel->convertTo(4);
    ASSERT_TRUE(converted->pixmap());
    EXPECT_EQ(converted->pixmap()->format(), 4);
    EXPECT_FALSE(cel->pixmap()) << "the cel itself keeps its vectors";
}

TEST(Cel, IsItselfWhenThereIsNothingToConvert)
{
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(UT_makeShared<CEL_PixmapAreaRGBA16>(Math::Size2di{1, 1}, Box2di(0, 0, 1, 1)));
    EXPECT_EQ(cel->convertTo(4), cel);
    EXPECT_FALSE(cel->getWorkingCopy(4) == cel);
}

TEST(Cel, KeepsItsMessagesThroughAConversion)
{
    static constexpr UT_DynKey kKey("test message");
    struct Message final : CEL_Message
    {};
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(drawingOf({rectangle(0, 0, 1, 1)}));
    cel->setRenderArgs(pixels(1, 1));
    const auto message = UT_makeShared<Message>();
    cel->addMessage(kKey, message);
    EXPECT_EQ(cel->convertTo(5)->findMessage(kKey).get(), message.get());
}
