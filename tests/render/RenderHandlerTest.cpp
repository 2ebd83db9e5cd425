// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The render handler as a host drives it: which inputs count, what a cut-out does, what the output holds.
#include "SmallPixmaps.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "ObjectDefinition/ObjectDefinitionMessage.h"
#include "QuarvelSceneCore/AT_IntAttr.h"
#include "render/VallorinRenderHandler.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

CA_CelRef celOf(const UT_SharedPtr<CEL_PixmapArea>& pixmap)
{
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(pixmap);
    return cel;
}

CA_CelRef tagged(const UT_SharedPtr<CEL_PixmapArea>& pixmap, int objectId)
{
    CA_CelRef cel = celOf(pixmap);
    cel->addMessage(ObjectDefinition::objectDefinitionMessageId(),
                    UT_makeShared<ObjectDefinitionMessage>(objectId, 0.0, 0.0));
    return cel;
}

// Inputs of 8 x 8, without a bevel unless the object list says so.
class RenderHandler : public testing::Test
{
protected:
    static constexpr int kSide = 8;

    UT_SharedPtr<VallorinRenderHandler> make(std::size_t ports, const char* objectList)
    {
        return make(std::vector<node_render::PortRenderInfo>(ports), objectList);
    }

    UT_SharedPtr<VallorinRenderHandler> make(const std::vector<node_render::PortRenderInfo>& ports,
                                             const char* objectList)
    {
        UT_SharedPtr<VallorinRenderHandler> handler(
            new VallorinRenderHandler(1.0, MO_CompositeModuleBitmapHandler::CompositeModuleInterface{}, ports));
        handler->objectInformation = QString::fromLatin1(objectList);
        return handler;
    }

    void deliver(VallorinRenderHandler& handler, const CA_CelRef& cel)
    {
        _context.setInputCel(_port, cel);
        handler.softRender(_context, _port);
        _context.setInputCel(_port, nullptr);
        ++_port;
    }

    UT_SharedPtr<CEL_PixmapAreaRGBA16> finish(VallorinRenderHandler& handler)
    {
        handler.finish(_context);
        const CA_CelRef output = _context.outputCel();
        return output ? output->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>() : nullptr;
    }

    // A drawing that covers everything alike, as the object stage leaves it.
    static UT_SharedPtr<CEL_PixmapAreaRGBA16> covering(std::int16_t coverage, std::int16_t value = 32767)
    {
        return filled<Pixel16>(kSide, kSide, {value, 0, 0, coverage});
    }

private:
    RD_RenderJob _job{RD_RenderParameters{RD_RenderParameters::IMAGE_PROCESSING_16BIT, {kSide, kSide}}};
    MO_SoftContext _context{_job, MO_FrameKey{1.0}, nullptr, _job.canvas()};
    int _port = 0;
};

} // namespace

TEST_F(RenderHandler, APortWithoutDefinitionAndMessageIsIgnored)
{
    const auto handler = make(1, "1:0");
    EXPECT_EQ(handler->portObjectIds, std::vector<int>{-1});
    deliver(*handler, celOf(covering(32767)));
    EXPECT_TRUE(handler->inputPixmaps.empty());
    EXPECT_TRUE(finish(*handler)->allocatedRect().isEmpty());
}

TEST_F(RenderHandler, TakesTheNumberOfTheDefinitionBehindAPort)
{
    ObjectDefinition definition;
    definition.objectNumber()->setLocalValue(5);
    node_render::PortRenderInfo port;
    port.sourceModule = &definition;
    const auto handler = make(std::vector{port}, "5:0");
    EXPECT_EQ(handler->portObjectIds, std::vector<int>{5});
    EXPECT_TRUE(handler->objectAccumulators.contains(5));
}

TEST_F(RenderHandler, AMessageOverridesTheNumberOfThePort)
{
    const auto handler = make(1, "4:0");
    deliver(*handler, tagged(covering(32767), 4));
    EXPECT_EQ(handler->portObjectIds, std::vector<int>{4});
    EXPECT_EQ(finish(*handler)->at(3, 3).b, 4) << "the object's number in blue";
}

TEST_F(RenderHandler, CutOutsNeverAccumulateAndOnlyCutAlpha)
{
    const auto handler = make(2, "1:0");
    deliver(*handler, tagged(covering(32767), 1));
    deliver(*handler, tagged(covering(16384), 0));
    EXPECT_FALSE(handler->objectAccumulators.contains(0));
    // 32767 x (1 - 16384 / 32767) = 16383, truncated to 16382 or 16383.
    const Pixel16 pixel = finish(*handler)->at(3, 3);
    EXPECT_EQ((Pixel16{pixel.r, pixel.g, pixel.b, 0}), Pixel16{});
    EXPECT_NEAR(pixel.a, 16383, 1);
}

TEST_F(RenderHandler, RecordsWithoutAPositiveNumberAreSkipped)
{
    const auto handler = make(2, "1:0");
    handler->objectInformation = QStringLiteral("0:0;-3:0;1:0");
    deliver(*handler, tagged(covering(32767), 1));
    deliver(*handler, tagged(covering(32767), -3));
    EXPECT_EQ(handler->inputPixmaps.size(), 1U);
    EXPECT_EQ(finish(*handler)->at(3, 3).a, 32767);
}

TEST_F(RenderHandler, OfAnObjectListedTwiceTheLaterResultWins)
{
    // Bevels of 0 keep the mask, whose range tells the two apart: the later record's smoothness shapes what is stored
    // in blue.
    const auto handler = make(1, "1:0:1:1;1:0:1:2");
    handler->depthInBlue = true;
    const auto input = covering(32767);
    input->at(0, 0).r = 1;
    input->at(3, 3).r = 8193;
    deliver(*handler, tagged(input, 1));
    // x = 8192 / 32766, its root 0.50002; 0.50002 x 32765 + 1 = 16384.1.
    EXPECT_NEAR(finish(*handler)->at(3, 3).b, 16384, 1);
}

TEST_F(RenderHandler, WithoutRecordsTheOutputIsBlank)
{
    const auto handler = make(1, "");
    deliver(*handler, tagged(covering(32767), 1));
    EXPECT_TRUE(finish(*handler)->allocatedRect().isEmpty());
}

TEST_F(RenderHandler, WithoutAnyCelTheOutputIsBlank)
{
    const auto handler = make(1, "1:0");
    deliver(*handler, nullptr);
    EXPECT_EQ(handler->currentInput, 1) << "the port counts all the same";
    EXPECT_TRUE(finish(*handler)->allocatedRect().isEmpty());
}

TEST_F(RenderHandler, PrintsHowManyModelsAndObjectsThereAre)
{
    const auto handler = make(2, "1:0;2:0;3:0");
    deliver(*handler, tagged(covering(32767), 1));
    deliver(*handler, tagged(covering(32767), 2));
    testing::internal::CaptureStdout();
    finish(*handler);
    // Keys: -1 from the ports without a definition, 1 and 2 from the messages.
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "###### FINISHING VALLORIN 3 models 3 objects to render\n");
}

TEST_F(RenderHandler, CoverageFrom099UpCountsAsFull)
{
    // 32440 / 32767 = 0.99002, 32439 / 32767 = 0.98999.
    for (const auto& [coverage, alpha] : {std::pair{32440, 32767}, std::pair{32439, 32439}}) {
        const auto handler = make(1, "1:0");
        RD_RenderJob job(RD_RenderParameters{RD_RenderParameters::IMAGE_PROCESSING_16BIT, {kSide, kSide}});
        MO_SoftContext context(job, MO_FrameKey{1.0}, nullptr, job.canvas());
        context.setInputCel(0, tagged(covering(static_cast<std::int16_t>(coverage)), 1));
        handler->softRender(context, 0);
        handler->finish(context);
        const auto output = context.outputCel()->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>();
        EXPECT_EQ(output->at(3, 3).a, alpha);
    }
}

TEST_F(RenderHandler, WithoutNormalsTheHighestObjectShows)
{
    const auto handler = make(2, "1:0;2:0");
    handler->generateNormals = false;
    const auto low = covering(32767, 1000);
    low->at(0, 0).r = 3000; // 1000 is the lowest, 3000 the highest
    const auto high = covering(32767, 2000);
    high->at(0, 0).r = 1000;
    deliver(*handler, tagged(low, 1));
    deliver(*handler, tagged(high, 2));
    const auto output = finish(*handler);
    EXPECT_EQ(output->at(0, 0), (Pixel16{32767, 32767, 32767, 32767})) << "the first object's highest place";
    EXPECT_EQ(output->at(3, 3), (Pixel16{32767, 32767, 32767, 32767})) << "the second object's";
}

TEST_F(RenderHandler, AnInputOfACelBeyondThePortsIsIgnored)
{
    const auto handler = make(1, "1:0");
    deliver(*handler, tagged(covering(32767), 1));
    deliver(*handler, tagged(covering(32767), 1));
    EXPECT_EQ(handler->inputPixmaps.size(), 1U);
    EXPECT_EQ(handler->currentInput, 2);
}

TEST_F(RenderHandler, NumbersThatAreNotFiniteRenderAsNoBevelNoElevationAndALinearProfile)
{
    const auto handler = make(1, "1:inf:nan:inf");
    deliver(*handler, tagged(covering(32767), 1));
    const auto output = finish(*handler);
    EXPECT_EQ(output->allocatedRect(), Math::Box2di(-2, -2, 10, 10)) << "no bevel: the mask with its margin";
    EXPECT_EQ(output->at(3, 3).a, 32767);
}

TEST_F(RenderHandler, AnOutputWithoutResultsRunsNoTaskAndStaysEmpty)
{
    const auto handler = make(1, "2:0");
    deliver(*handler, tagged(covering(32767), 1));
    EXPECT_TRUE(finish(*handler)->allocatedRect().isEmpty());
}
