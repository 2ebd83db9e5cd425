// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From elements to pixels. At a resolution of 8 x 4 a pixel is 90 scene units wide, and the scene's origin is the
// corner between the pixels (3, 1) and (4, 2).
#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelCelCore/CEL_PixmapFactory.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

using namespace test_modules;
using Math::Box2di;

namespace {

constexpr CEL_PixelRGBA16 kRed16{32767, 0, 0, 32767};
constexpr CEL_PixelRGBA16 kGreen16{0, 32767, 0, 32767};

// A leaf that makes a picture of one pixel at (0, 0), with the same numbers as channels in both formats.
template<typename Pixel>
class OnePixel : public MO_Module
{
public:
    explicit OnePixel(const Pixel& pixel) : _pixel(pixel) {}
    QString keyword() const override { return QStringLiteral("ONE_PIXEL"); }
    QString baseDisplayName() const override { return QStringLiteral("One Pixel"); }
    UT_SharedPtr<MO_SoftRenderInterface>
    createSoftRenderInterface(const RD_ScriptContext&, const std::vector<node_render::PortRenderInfo>&) override
    {
        return UT_makeShared<Interface>(_pixel);
    }

private:
    class Interface : public MO_SoftRenderInterface
    {
    public:
        explicit Interface(const Pixel& pixel) : _pixel(pixel) {}
        void softRender(MO_SoftContext&, int) override {}
        void finish(MO_SoftContext& context) override
        {
            auto pixels = UT_makeShared<CEL_PixmapOf<Pixel>>(context.size(), context.canvas());
            pixels->realloc(Box2di(0, 0, 1, 1), true);
            pixels->at(0, 0) = _pixel;
            auto cel = UT_makeShared<CEL_Cel>();
            cel->setRepresentation(pixels);
            context.setOutputCel(0, cel);
        }

    private:
        Pixel _pixel;
    };

    Pixel _pixel;
};

struct SoftRendererTest : testing::Test
{
    MO_Scene scene;
    Log log;
    XUGroup& root = scene.root();

    static void link(MO_Module& source, MO_Module& target, unsigned inPort = 0)
    {
        ASSERT_TRUE(MO_Scene::connect(source, target, inPort).ok());
    }

    static UT_SharedPtr<CEL_PixmapAreaRGBA16> render(MO_Module& module, double frame = 1.0)
    {
        const auto cel = RD_SoftRenderer::render(module, frame, {.resolution = {8, 4}});
        EXPECT_TRUE(cel.ok());
        return (*cel)->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>();
    }

    // The picture in rows, as text: R for red, G for green, ? for other colours, and a dot where it is transparent.
    static std::string picture(MO_Module& module, double frame = 1.0)
    {
        const auto pixels = render(module, frame);
        std::string text;
        for (int y = 0; y < 4; ++y, text += '/')
            for (int x = 0; x < 8; ++x) {
                const CEL_PixelRGBA16* const pixel = pixels->find(x, y);
                text += !pixel || *pixel == CEL_PixelRGBA16{} ? '.'
                        : *pixel == kRed16                    ? 'R'
                        : *pixel == kGreen16                  ? 'G'
                                                              : '?';
            }
        return text;
    }

    MO_ElementModule& red(double x1, double y1, double x2, double y2)
    {
        return addElement(root, rectangle(x1 * 90, y1 * 90, x2 * 90, y2 * 90, kRed));
    }
    MO_ElementModule& green(double x1, double y1, double x2, double y2)
    {
        return addElement(root, rectangle(x1 * 90, y1 * 90, x2 * 90, y2 * 90, kGreen));
    }
};

TEST_F(SoftRendererTest, AnElementIsDrawnAboutTheCentreOfTheFrame)
{
    EXPECT_EQ(picture(red(-1, -1, 2, 1)), "......../...RRR../...RRR../......../");
}

TEST_F(SoftRendererTest, PlacementMovesTurnsAndScales)
{
    auto& element = red(0, 0, 2, 1);
    element.positionX()->setLocalValue(-90.0);
    EXPECT_EQ(picture(element), "......../......../...RR.../......../");
    element.rotation()->setLocalValue(90.0);
    EXPECT_EQ(picture(element), "......../......../..R...../..R...../");
    element.rotation()->setLocalValue(0.0);
    element.scaleX()->setLocalValue(0.5);
    element.scaleY()->setLocalValue(2.0);
    EXPECT_EQ(picture(element), "......../......../...R..../...R..../");
}

TEST_F(SoftRendererTest, TheTruckFactorMagnifiesAboutTheCentre)
{
    auto& element = red(1, 0, 2, 1);
    EXPECT_EQ(picture(element), "......../......../.....R../......../");
    scene.truckFactorAttr().setLocalValue(2.0);
    EXPECT_EQ(picture(element), "......../......../......RR/......RR/");
}

TEST_F(SoftRendererTest, EveryFrameShowsItsExposure)
{
    auto& element = root.emplace<MO_ElementModule>();
    element.setDrawing(QStringLiteral("a"), rectangle(0, 0, 90, 90, kRed));
    element.setDrawing(QStringLiteral("b"), rectangle(0, 0, 90, 90, kGreen));
    AT_ExposureSheet exposures;
    exposures.setExposure(2, QStringLiteral("a"));
    exposures.setExposure(3, QStringLiteral("b"));
    element.drawingAttr()->setExposures(exposures);
    EXPECT_EQ(picture(element, 1.0), "......../......../......../......../");
    EXPECT_EQ(picture(element, 2.0), "......../......../....R.../......../");
    EXPECT_EQ(picture(element, 30.0), "......../......../....G.../......../");
}

TEST_F(SoftRendererTest, TheFormatFollowsTheProcessingFormat)
{
    auto& element = red(0, 0, 1, 1);
    const auto in16 = RD_SoftRenderer::render(element, 1.0, {.resolution = {8, 4}});
    EXPECT_EQ((*in16)->pixmap()->format(), CEL_FORMAT_RGBA16);
    for (const int other : {0, 2, 7})
        EXPECT_EQ(RD_RenderParameters{.imageProcessingFormat = other}.celFormat(), CEL_FORMAT_RGBA16);
    const auto inFloat = RD_SoftRenderer::render(element, 1.0, {.imageProcessingFormat = 1, .resolution = {8, 4}});
    const auto pixels = (*inFloat)->pixmap().dynamicCast<CEL_PixmapAreaRGBAFloat>();
    ASSERT_TRUE(pixels);
    EXPECT_EQ(pixels->at(4, 2), (CEL_PixelRGBAFloat{1.0F, 0.0F, 0.0F, 1.0F}));
    EXPECT_EQ(pixels->size(), (Math::Size2di{8, 4}));
    EXPECT_EQ(pixels->canvasRect(), Box2di(0, 0, 8, 4));
}

TEST_F(SoftRendererTest, NothingAtAllIsAnEmptyPixmapOfTheFrame)
{
    for (MO_Module* module : {static_cast<MO_Module*>(&root.emplace<PassModule>()),
                              static_cast<MO_Module*>(&root.emplace<MO_CompositeModule>()),
                              static_cast<MO_Module*>(&root.emplace<MO_DisplayModule>()),
                              static_cast<MO_Module*>(&root.emplace<XUGroup>())}) {
        const auto pixels = render(*module);
        ASSERT_TRUE(pixels);
        EXPECT_TRUE(pixels->allocatedRect().isEmpty());
        EXPECT_EQ(pixels->size(), (Math::Size2di{8, 4}));
        EXPECT_EQ(pixels->canvasRect(), Box2di(0, 0, 8, 4));
    }
}

TEST_F(SoftRendererTest, ACompositePutsItsFirstInputOnTop)
{
    auto& composite = root.emplace<MO_CompositeModule>();
    link(red(-1, 0, 1, 1), composite, 0);
    link(green(0, 0, 2, 1), composite, 1);
    EXPECT_EQ(picture(composite), "......../......../...RRG../......../");
    composite.setCompositeOrder(MO_CompositeType::PORT_ORDER);
    EXPECT_EQ(picture(composite), "......../......../...RGG../......../");
}

TEST_F(SoftRendererTest, AGlueShowsItsFirstInputOverItsSecond)
{
    auto& glue = root.emplace<MO_GlueModule>();
    link(green(0, 0, 2, 1), glue, 1);
    EXPECT_EQ(picture(glue), "......../......../....GG../......../");
    link(red(-1, 0, 1, 1), glue, 0);
    EXPECT_EQ(picture(glue), "......../......../...RRG../......../");
}

TEST_F(SoftRendererTest, OverIsExactIn16Bit)
{
    auto& composite = root.emplace<MO_CompositeModule>();
    link(root.emplace<OnePixel<CEL_PixelRGBA16>>(CEL_PixelRGBA16{8000, 4000, 0, 16000}), composite, 0);
    link(root.emplace<OnePixel<CEL_PixelRGBA16>>(CEL_PixelRGBA16{10000, 0, 20000, 32767}), composite, 1);
    // 16767 / 32767 of the lower picture shows: 5117.04 of 10000, 10234.08 of 20000.
    EXPECT_EQ(render(composite)->at(0, 0), (CEL_PixelRGBA16{13117, 4000, 10234, 32767}));
}

TEST_F(SoftRendererTest, OverIsExactInFloat)
{
    auto& composite = root.emplace<MO_CompositeModule>();
    link(root.emplace<OnePixel<CEL_PixelRGBAFloat>>(CEL_PixelRGBAFloat{0.25F, 0.125F, 0.0F, 0.5F}), composite, 0);
    link(root.emplace<OnePixel<CEL_PixelRGBAFloat>>(CEL_PixelRGBAFloat{0.5F, 0.0F, 1.0F, 0.75F}), composite, 1);
    const auto cel = RD_SoftRenderer::render(composite, 1.0, {.imageProcessingFormat = 1, .resolution = {8, 4}});
    const auto pixels = (*cel)->pixmap().dynamicCast<CEL_PixmapAreaRGBAFloat>();
    EXPECT_EQ(pixels->at(0, 0), (CEL_PixelRGBAFloat{0.5F, 0.125F, 0.5F, 0.875F}));
}

TEST_F(SoftRendererTest, PicturesInTheOtherFormatAreConverted)
{
    auto& composite = root.emplace<MO_CompositeModule>();
    link(root.emplace<OnePixel<CEL_PixelRGBAFloat>>(CEL_PixelRGBAFloat{0.0F, 1.0F, 0.0F, 1.0F}), composite, 0);
    link(root.emplace<OnePixel<CEL_PixelRGBA16>>(CEL_PixelRGBA16{10000, 0, 20000, 32767}), composite, 1);
    EXPECT_EQ(render(composite)->at(0, 0), kGreen16);
}

TEST_F(SoftRendererTest, ACompositeOfOnePictureHandsOnTheCelItself)
{
    auto& composite = root.emplace<MO_CompositeModule>();
    auto& sink = root.emplace<LoggingModule>("sink", log, 1U, false, true);
    auto& element = red(0, 0, 1, 1);
    link(element, composite, 0);
    link(composite, sink);
    render(sink);
    ASSERT_EQ(sink.seenCels.size(), 1U);
    EXPECT_TRUE(sink.seenCels[0]->findBestVectorRepresentation());
}

TEST_F(SoftRendererTest, APassingModuleHandsOnTheCelOfItsFirstInput)
{
    auto& source = root.emplace<LoggingModule>("source", log, 1U, false, true);
    auto& pass = root.emplace<PassModule>();
    auto& display = root.emplace<MO_DisplayModule>();
    auto& sink = root.emplace<LoggingModule>("sink", log, 1U, false, true);
    link(red(0, 0, 1, 1), source);
    link(source, pass);
    link(pass, sink);
    link(pass, display);
    render(sink);
    EXPECT_EQ(sink.seenCels, source.seenCels);
    EXPECT_NE(sink.seenCels.at(0), nullptr);
    EXPECT_EQ(picture(display), "......../......../....R.../......../");
}

TEST_F(SoftRendererTest, ADisabledModuleIsPassedThrough)
{
    auto& composite = root.emplace<MO_CompositeModule>();
    auto& display = root.emplace<MO_DisplayModule>();
    link(red(-1, 0, 0, 1), composite, 0);
    link(green(0, 0, 1, 1), composite, 1);
    link(composite, display);
    EXPECT_EQ(picture(display), "......../......../...RG.../......../");
    composite.setEnabled(false);
    EXPECT_EQ(picture(display), "......../......../...R..../......../");
    EXPECT_EQ(picture(composite), "......../......../...R..../......../");
}

TEST_F(SoftRendererTest, ADisabledElementShowsNothing)
{
    auto& element = red(0, 0, 1, 1);
    element.setEnabled(false);
    EXPECT_EQ(picture(element), "......../......../......../......../");
}

TEST_F(SoftRendererTest, GroupsAreLookedThrough)
{
    auto& group = root.emplace<XUGroup>();
    group.addInPort();
    group.addOutPort();
    auto& composite = group.emplace<MO_CompositeModule>();
    link(red(-1, 0, 0, 1), group);
    link(group.entry(), composite, 0);
    link(addElement(group, rectangle(0, 0, 90, 90, kGreen)), composite, 1);
    link(composite, group.exit());
    auto& display = root.emplace<MO_DisplayModule>();
    link(group, display);
    EXPECT_EQ(picture(display), "......../......../...RG.../......../");
    EXPECT_EQ(picture(group), "......../......../...RG.../......../");
    group.setEnabled(false);
    EXPECT_EQ(picture(group), "......../......../...R..../......../");
}

TEST_F(SoftRendererTest, AnInterfaceIsCalledPerPortInOrderThenFinished)
{
    auto& module = root.emplace<LoggingModule>("m", log, 3U, false, true);
    link(red(0, 0, 1, 1), module, 0);
    link(red(0, 0, 1, 1), module, 2);
    render(module);
    EXPECT_EQ(log, (Log{"m.softRender0", "m.softRender1", "m.softRender2", "m.finish"}));
    ASSERT_EQ(module.seenPorts.size(), 3U);
    EXPECT_EQ(module.seenPorts[0].sourceModule->keyword(), MO_ElementModule::Keyword());
    EXPECT_EQ(module.seenPorts[1].sourceModule, nullptr);
    EXPECT_EQ(module.seenPorts[2].port, 2);
    EXPECT_NE(module.seenCels.at(0), nullptr);
    EXPECT_EQ(module.seenCels.at(1), nullptr);
}

TEST_F(SoftRendererTest, TheFreePortAtTheEndIsNoInput)
{
    class Counting : public MO_CompositeModuleBase
    {
    public:
        Counting() { addInImagePort(); }
        QString keyword() const override { return QStringLiteral("COUNTING"); }
        QString baseDisplayName() const override { return QStringLiteral("Counting"); }
        UT_SharedPtr<MO_SoftRenderInterface>
        createSoftRenderInterface(const RD_ScriptContext&,
                                  const std::vector<node_render::PortRenderInfo>& ports) override
        {
            inputs = ports.size();
            return nullptr;
        }
        std::size_t inputs = 99;
    };
    auto& module = root.emplace<Counting>();
    render(module);
    EXPECT_EQ(module.inputs, 0U);
    link(red(0, 0, 1, 1), module, 1);
    render(module);
    EXPECT_EQ(module.inputs, 2U);
}

TEST_F(SoftRendererTest, InputsAreAskedForTheRectangleThatTheModuleWants)
{
    auto& outer = root.emplace<LoggingModule>("outer", log, 1U, false, true);
    auto& inner = root.emplace<LoggingModule>("inner", log, 1U, false, true);
    outer.growth = 2;
    inner.growth = 1;
    link(red(-10, -10, 10, 10), inner);
    link(inner, outer);
    const auto pixels = render(outer);
    EXPECT_EQ(outer.seenRect, Box2di(0, 0, 8, 4));
    EXPECT_EQ(inner.seenRect, Box2di(-2, -2, 10, 6));
    EXPECT_EQ(pixels->allocatedRect(), Box2di(-3, -3, 11, 7));
}

TEST_F(SoftRendererTest, InputsNeverGrowBeyondFourDiagonals)
{
    auto& module = root.emplace<LoggingModule>("m", log, 1U, false, true);
    module.growth = 1000000;
    link(red(-1000, -1000, 1000, 1000), module);
    // The diagonal of 8 x 4 pixels is 8.944; four of them are 35.8, 36 in whole pixels.
    EXPECT_EQ(render(module)->allocatedRect(), Box2di(-36, -36, 44, 40));
}

TEST_F(SoftRendererTest, TheSceneKeepsItsDrawings)
{
    auto& element = red(0, 0, 1, 1);
    auto& sink = root.emplace<LoggingModule>("sink", log, 1U, false, true);
    link(element, sink);
    render(sink);
    EXPECT_NE(sink.seenCels.at(0)->findBestVectorRepresentation(), element.drawingAt(1.0))
        << "a render works on a drawing of its own, which it may repaint";
}

TEST_F(SoftRendererTest, AnImpossibleResolutionIsAnError)
{
    auto& element = red(0, 0, 1, 1);
    for (const std::pair<int, int>& resolution : {std::pair(0, 4), std::pair(8, -1), std::pair(40000, 4)}) {
        const auto cel = RD_SoftRenderer::render(element, 1.0, {.resolution = resolution});
        ASSERT_FALSE(cel.ok());
        EXPECT_TRUE(cel.error().text.contains(QString::number(resolution.first)));
    }
}

TEST_F(SoftRendererTest, ExhaustedMemoryIsAnError)
{
    class Greedy : public PassModule
    {
    public:
        UT_SharedPtr<MO_SoftRenderInterface>
        createSoftRenderInterface(const RD_ScriptContext&, const std::vector<node_render::PortRenderInfo>&) override
        {
            throw std::bad_alloc();
        }
    };
    auto& module = root.emplace<Greedy>();
    const auto cel = RD_SoftRenderer::render(module, 3.0, {.resolution = {8, 4}});
    ASSERT_FALSE(cel.ok());
    EXPECT_EQ(cel.error().kind, UT_ErrorKind::NO_MEMORY);
    EXPECT_TRUE(cel.error().sentence().contains(QStringLiteral("memory")));
    EXPECT_TRUE(cel.error().sentence().contains(QStringLiteral("Pass")));
}

TEST_F(SoftRendererTest, ProgressGoesUpToOneAndCanStop)
{
    auto& composite = root.emplace<MO_CompositeModule>();
    link(red(0, 0, 1, 1), composite, 0);
    link(green(0, 0, 1, 1), composite, 1);
    std::vector<double> seen;
    ASSERT_TRUE(RD_SoftRenderer::render(composite, 1.0, {.resolution = {8, 4}}, [&](double done) {
                    seen.push_back(done);
                    return true;
                }).ok());
    ASSERT_EQ(seen.size(), 3U);
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_LT(seen.front(), 0.5);
    EXPECT_EQ(seen.back(), 1.0);
    const auto stopped = RD_SoftRenderer::render(composite, 1.0, {.resolution = {8, 4}}, [](double) { return false; });
    ASSERT_FALSE(stopped.ok());
    EXPECT_EQ(stopped.error().kind, UT_ErrorKind::STOPPED);
}

TEST_F(SoftRendererTest, AGraphThatIsTooDeepIsAnErrorAndOneThatIsJustNotRenders)
{
    MO_Module* last = &red(0, 0, 1, 1);
    for (int i = 0; i < RD_ScriptContext::kMaxDepth; ++i) {
        auto& next = root.emplace<PassModule>();
        link(*last, next);
        last = &next;
    }
    EXPECT_EQ(picture(*last), "......../......../....R.../......../");
    auto& oneMore = root.emplace<PassModule>();
    link(*last, oneMore);
    const auto cel = RD_SoftRenderer::render(oneMore, 1.0, {.resolution = {8, 4}});
    ASSERT_FALSE(cel.ok());
    EXPECT_EQ(cel.error().kind, UT_ErrorKind::REFUSED);
    EXPECT_TRUE(cel.error().text.contains(QString::number(RD_ScriptContext::kMaxDepth)));
}

TEST_F(SoftRendererTest, FramesRenderOnSeveralThreadsAtOnce)
{
    auto& composite = root.emplace<MO_CompositeModule>();
    auto& moving = red(0, 0, 1, 1);
    AT_Curve curve;
    ASSERT_TRUE(curve.setKey({.frame = 1.0, .value = -360.0, .in = {}, .out = {}, .unknown = {}}));
    ASSERT_TRUE(curve.setKey({.frame = 9.0, .value = 360.0, .in = {}, .out = {}, .unknown = {}}));
    moving.positionX()->setCurve(curve);
    link(moving, composite, 0);
    link(green(-4, 0, 4, 1), composite, 1);
    std::array<std::string, 8> pictures;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < pictures.size(); ++i)
        threads.emplace_back([&, i] { pictures[i] = picture(composite, static_cast<double>(i + 1)); });
    for (std::thread& thread : threads)
        thread.join();
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        std::string expected = "......../......../GGGGGGGG/......../";
        expected[18 + i] = 'R';
        EXPECT_EQ(pictures[i], expected);
    }
}

TEST_F(SoftRendererTest, AGraphOfTooManyPathsIsAnErrorAndNoHang)
{
    // Every glue shows the one before it twice, so forty of them make 2^40 paths.
    MO_Module* last = &root.emplace<MO_ElementModule>();
    for (int i = 0; i < 40; ++i) {
        auto& next = root.emplace<MO_GlueModule>();
        link(*last, next, 0);
        link(*last, next, 1);
        last = &next;
    }
    const auto cel = RD_SoftRenderer::render(*last, 1.0, {.resolution = {8, 4}});
    ASSERT_FALSE(cel.ok());
    EXPECT_TRUE(cel.error().text.contains(QStringLiteral("paths")));
}

TEST_F(SoftRendererTest, AModuleOutsideOfAnySceneRenders)
{
    MO_ElementModule element;
    element.setDrawing(QStringLiteral("1"), rectangle(0, 0, 90, 90));
    AT_ExposureSheet exposures;
    exposures.setExposure(1, QStringLiteral("1"));
    element.drawingAttr()->setExposures(exposures);
    EXPECT_EQ(picture(element), "......../......../....R.../......../");
}

} // namespace
