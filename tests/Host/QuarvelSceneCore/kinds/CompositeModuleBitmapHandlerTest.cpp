// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The base of bitmap handlers: which cels it passes on, in which format, and which cel it finishes with.
#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelSceneCore/interfaces/MO_CompositeModuleBitmapHandler.h"
#include "QuarvelSceneCore/interfaces/MO_SoftRenderServices.h"

#include <gtest/gtest.h>

using namespace test_modules;
using Math::Box2di;

namespace {

class Handler : public MO_CompositeModuleBitmapHandler
{
public:
    using MO_CompositeModuleBitmapHandler::MO_CompositeModuleBitmapHandler;

    void acceptInputCel(const MO_SoftContext&, CA_CelRef cel) override { accepted.push_back(cel); }
    void finishRender(const MO_SoftContext& context, CA_CelRef cel) override
    {
        delivered = cel;
        setCel(context, cel);
    }
    std::vector<CA_CelRef> accepted;
    CA_CelRef delivered;
};

struct CompositeModuleBitmapHandlerTest : testing::Test
{
    MO_SoftContext context{RD_RenderJob({.resolution = {6, 5}}), {2.0}, nullptr, Box2di(-1, -1, 7, 6)};

    static CA_CelRef celOf(const UT_SharedPtr<CEL_Representation>& representation)
    {
        auto cel = UT_makeShared<CEL_Cel>();
        cel->setRepresentation(representation);
        return cel;
    }
    static CA_CelRef pixels16()
    {
        return celOf(UT_makeShared<CEL_PixmapAreaRGBA16>(Math::Size2di{6, 5}, Box2di(0, 0, 6, 5)));
    }
    static CA_CelRef pixelsFloat()
    {
        return celOf(UT_makeShared<CEL_PixmapAreaRGBAFloat>(Math::Size2di{6, 5}, Box2di(0, 0, 6, 5)));
    }
    static CA_CelRef depth() { return celOf(UT_makeShared<CEL_PixmapAreaZ>(Math::Size2di{6, 5}, Box2di(0, 0, 6, 5))); }

    void give(Handler& handler, const CA_CelRef& cel, int port = 0)
    {
        context.setInputCel(port, cel);
        handler.softRender(context, port);
    }
};

TEST_F(CompositeModuleBitmapHandlerTest, HandsOnTheCelOfThePortButNoNull)
{
    const auto handler =
        UT_makeShared<Handler>(Handler::CompositeModuleInterface{nullptr, false, true, false, {1.0, -1.0}},
                               std::vector<node_render::PortRenderInfo>{{nullptr, 0, nullptr}, {nullptr, 1, nullptr}});
    const CA_CelRef cel = pixels16();
    give(*handler, nullptr, 0);
    give(*handler, cel, 1);
    EXPECT_EQ(handler->accepted, std::vector<CA_CelRef>{cel});
    EXPECT_EQ(handler->ports().size(), 2U);
    EXPECT_EQ(handler->moduleInterface().emptyDepthRange, (std::pair{1.0, -1.0}));
}

TEST_F(CompositeModuleBitmapHandlerTest, ConvertsOnlyWhatTheModuleDoesNotAccept)
{
    Handler::CompositeModuleInterface module{nullptr, false, true, false, {1.0, -1.0}};
    const auto only16 = UT_makeShared<Handler>(module, std::vector<node_render::PortRenderInfo>{});
    give(*only16, pixelsFloat());
    ASSERT_EQ(only16->accepted.size(), 1U);
    EXPECT_EQ(only16->accepted[0]->pixmap()->format(), CEL_FORMAT_RGBA16);

    module.acceptsFloatCels = true;
    const auto both = UT_makeShared<Handler>(module, std::vector<node_render::PortRenderInfo>{});
    const CA_CelRef cel = pixelsFloat();
    give(*both, cel);
    EXPECT_EQ(both->accepted, std::vector<CA_CelRef>{cel});
}

TEST_F(CompositeModuleBitmapHandlerTest, LeavesDepthOutUnlessTheModuleTakesIt)
{
    Handler::CompositeModuleInterface module{nullptr, true, true, false, {1.0, -1.0}};
    const auto without = UT_makeShared<Handler>(module, std::vector<node_render::PortRenderInfo>{});
    give(*without, depth());
    EXPECT_TRUE(without->accepted.empty());
    without->finish(context);
    EXPECT_EQ(without->delivered, nullptr);

    module.acceptsDepthCels = true;
    const auto with = UT_makeShared<Handler>(module, std::vector<node_render::PortRenderInfo>{});
    give(*with, depth());
    EXPECT_EQ(with->accepted.size(), 1U);
}

TEST_F(CompositeModuleBitmapHandlerTest, HandsOnDrawingsAndEmptyCelsAsTheyAre)
{
    const auto handler =
        UT_makeShared<Handler>(Handler::CompositeModuleInterface{}, std::vector<node_render::PortRenderInfo>{});
    const CA_CelRef drawing = celOf(rectangle(0, 0, 1, 1));
    const CA_CelRef empty = UT_makeShared<CEL_Cel>();
    give(*handler, drawing);
    give(*handler, empty);
    EXPECT_EQ(handler->accepted, (std::vector<CA_CelRef>{drawing, empty}));
}

TEST_F(CompositeModuleBitmapHandlerTest, FinishesWithAnEmptyPixmapOfTheJobWhenSomethingCame)
{
    const auto handler =
        UT_makeShared<Handler>(Handler::CompositeModuleInterface{}, std::vector<node_render::PortRenderInfo>{});
    give(*handler, UT_makeShared<CEL_Cel>());
    handler->finish(context);
    ASSERT_NE(handler->delivered, nullptr);
    const auto pixmap = handler->delivered->pixmap();
    ASSERT_TRUE(pixmap);
    EXPECT_EQ(pixmap->format(), CEL_FORMAT_RGBA16);
    EXPECT_EQ(pixmap->size(), (Math::Size2di{6, 5}));
    EXPECT_EQ(pixmap->canvasRect(), Box2di(0, 0, 6, 5));
    EXPECT_TRUE(pixmap->allocatedRect().isEmpty());
    EXPECT_EQ(context.outputCel(), handler->delivered);
}

TEST_F(CompositeModuleBitmapHandlerTest, FinishesWithNothingWhenNothingCame)
{
    const auto handler =
        UT_makeShared<Handler>(Handler::CompositeModuleInterface{}, std::vector<node_render::PortRenderInfo>{});
    give(*handler, nullptr);
    handler->finish(context);
    EXPECT_EQ(handler->delivered, nullptr);
}

TEST_F(CompositeModuleBitmapHandlerTest, ABlankCelHasTheMainFormat)
{
    MO_SoftRenderServices::setBlankCel(context, 0);
    ASSERT_NE(context.outputCel(0), nullptr);
    EXPECT_EQ(context.outputCel(0)->pixmap()->format(), CEL_FORMAT_RGBA16);
    EXPECT_EQ(context.outputCel(1), nullptr);
    const MO_SoftContext inFloat(RD_RenderJob({.imageProcessingFormat = 1, .resolution = {6, 5}}), {2.0}, nullptr, {});
    MO_SoftRenderServices::setBlankCel(inFloat, 1);
    EXPECT_EQ(inFloat.outputCel(1)->pixmap()->format(), CEL_FORMAT_RGBAFLOAT);
}

TEST_F(CompositeModuleBitmapHandlerTest, TheContextKnowsTheJob)
{
    EXPECT_EQ(context.mainCelFormat2d(), 4);
    EXPECT_EQ(context.resolutionX(), 6);
    EXPECT_EQ(context.resolutionY(), 5);
    EXPECT_EQ(context.outputRect(), Box2di(-1, -1, 7, 6));
    EXPECT_EQ(context.canvas(), Box2di(0, 0, 6, 5));
    EXPECT_EQ(context.frameKey().frame, 2.0);
    EXPECT_EQ(context.portContext(1).port(), 1);
    EXPECT_EQ(context.portContext(1).resolution(), (std::pair{6, 5}));
    EXPECT_EQ(context.portContext(1).truckFactor(), 1.0);
}

} // namespace
