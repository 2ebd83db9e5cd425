// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the render handler takes from its inputs: their numbers, their formats, and what is merged of them.
#include "RenderHandlerFixture.h"

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

TEST_F(RenderHandler, AMessageOverridesTheNumberOfTheDefinitionBehindThePort)
{
    ObjectDefinition definition;
    definition.objectNumber()->setLocalValue(5);
    node_render::PortRenderInfo port;
    port.sourceModule = &definition;
    const auto handler = make(std::vector{port}, "4:0;5:0");
    deliver(*handler, tagged(covering(32767), 4));
    EXPECT_EQ(handler->portObjectIds, std::vector<int>{4});
    ASSERT_TRUE(handler->objectAccumulators.contains(5)) << "the key stays";
    EXPECT_EQ(handler->objectAccumulators.at(5), nullptr);
    EXPECT_EQ(finish(*handler)->at(3, 3).b, 4);
}

TEST_F(RenderHandler, InputsAreConvertedToTheFormatOfTheRender)
{
    const auto handler = make(1, "1:0");
    deliver(*handler, tagged(filled<PixelFloat>(kSide, kSide, {1.0F, 0.0F, 0.0F, 1.0F}), 1));
    ASSERT_EQ(handler->inputPixmaps.size(), 1U);
    ASSERT_EQ(handler->inputPixmaps.at(0)->format(), CEL_FORMAT_RGBA16);
    ASSERT_EQ(handler->objectAccumulators.at(1)->format(), CEL_FORMAT_RGBA16);
    EXPECT_EQ(finish(*handler)->at(3, 3).a, 32767);
}

TEST_F(RenderHandlerFloat, InputsAreConvertedToTheFormatOfTheRender)
{
    const auto handler = make(1, "1:0");
    deliver(*handler, tagged(filled<Pixel16>(kSide, kSide, {32767, 0, 0, 32767}), 1));
    ASSERT_EQ(handler->inputPixmaps.size(), 1U);
    ASSERT_EQ(handler->inputPixmaps.at(0)->format(), CEL_FORMAT_RGBAFLOAT);
    ASSERT_EQ(handler->objectAccumulators.at(1)->format(), CEL_FORMAT_RGBAFLOAT);
    EXPECT_EQ(finish(*handler)->at(3, 3).a, 1.0F);
}

TEST_F(RenderHandler, InputsAreMergedAsTheyArrive)
{
    const auto handler = make(2, "1:0");
    deliver(*handler, tagged(covering(16384), 1));
    const auto merged = [&] {
        return dynamic_cast<const CEL_PixmapAreaRGBA16&>(*handler->objectAccumulators.at(1)).at(3, 3).a;
    };
    EXPECT_EQ(merged(), 16384);
    deliver(*handler, tagged(covering(32767), 1));
    EXPECT_EQ(merged(), 32767);
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

TEST_F(RenderHandler, InputsWithoutAPositiveNumberAccumulateNothing)
{
    const auto handler = make(2, "1:0");
    deliver(*handler, tagged(covering(32767), 0));
    deliver(*handler, tagged(covering(32767), -3));
    EXPECT_EQ(handler->inputPixmaps.size(), 1U) << "a cut-out cuts, a negative number is ignored";
    for (const auto& [id, accumulator] : handler->objectAccumulators)
        EXPECT_EQ(accumulator, nullptr) << id;
}

TEST_F(RenderHandler, AnInputOfACelBeyondThePortsIsIgnored)
{
    const auto handler = make(1, "1:0");
    deliver(*handler, tagged(covering(32767), 1));
    deliver(*handler, tagged(covering(32767), 1));
    EXPECT_EQ(handler->inputPixmaps.size(), 1U);
    EXPECT_EQ(handler->currentInput, 2);
}
