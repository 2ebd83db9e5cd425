// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the render handler puts out: which records count, what a cut-out does, what the channels hold.
#include "RenderHandlerFixture.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

TEST_F(RenderHandler, RecordsWithoutAPositiveNumberAreSkipped)
{
    // The test adds the accumulators: no input accumulates under such numbers.
    const auto handler = make(1, "0:0;-3:0;7:0");
    handler->objectAccumulators[0] = covering(32767);
    handler->objectAccumulators[-3] = covering(32767);
    deliver(*handler, tagged(covering(32767), 0));
    EXPECT_TRUE(finish(*handler)->allocatedRect().isEmpty());
    EXPECT_TRUE(handler->elevationRanges.empty());
}

TEST_F(RenderHandler, OfAnObjectListedTwiceTheLaterResultWins)
{
    // Bevels of 0 keep the mask, whose values show which record was used: the later one's smoothness shapes the stored
    // blue.
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
    EXPECT_EQ(shown(32440).a, 32767);
}

TEST_F(RenderHandler, CoverageBelow099IsTakenAsItIs)
{
    EXPECT_EQ(shown(32439).a, 32439);
}

TEST_F(RenderHandlerFloat, CoverageFrom09999UpCountsAsFull)
{
    EXPECT_EQ(shown(0.99995F).a, 1.0F);
}

TEST_F(RenderHandlerFloat, CoverageBelow09999IsTakenAsItIs)
{
    // The float next to 0.9999 is a little below it.
    EXPECT_EQ(shown(0.9999F).a, 0.9999F);
}

TEST_F(RenderHandler, BlueHoldsTheObjectsNumber)
{
    EXPECT_EQ(shown(32767).b, 1);
}

TEST_F(RenderHandlerFloat, BlueHoldsNoNumber)
{
    EXPECT_EQ(shown(1.0F).b, 0.0F);
}

TEST_F(RenderHandler, OfANumberThatDoesNotFitTheLow16BitsAreKept)
{
    const auto handler = make(1, "40000:0");
    deliver(*handler, tagged(covering(32767), 40000));
    EXPECT_EQ(finish(*handler)->at(3, 3).b, 40000 - 65536);
}

TEST_F(RenderHandlerFloat, BlueHoldsTheElevationWhenItIsWanted)
{
    const auto handler = make(1, "1:0");
    handler->depthInBlue = true;
    const auto input = covering(1.0F);
    input->at(0, 0).r = 0.25F;
    input->at(3, 3).r = 0.625F;
    deliver(*handler, tagged(input, 1));
    // (0.625 - 0.25) / (1 - 0.25), in single precision with the inverse of the span.
    EXPECT_NEAR(finish(*handler)->at(3, 3).b, 0.5F, 1e-7F);
}

TEST_F(RenderHandlerFloat, CutOutsAreNotSaturated)
{
    const auto handler = make(2, "1:0");
    deliver(*handler, tagged(covering(1.0F), 1));
    deliver(*handler, tagged(covering(1.5F), 0));
    EXPECT_EQ(finish(*handler)->at(3, 3), (PixelFloat{0.0F, 0.0F, 0.0F, -0.5F})) << "1 x (1 - 1.5)";
}

TEST_F(RenderHandler, ACutOutBelowAnObjectDoesNotCutIt)
{
    const auto handler = make(2, "1:0");
    deliver(*handler, tagged(covering(32767), 0));
    deliver(*handler, tagged(covering(32767), 1));
    EXPECT_EQ(finish(*handler)->at(3, 3).a, 32767);
}

TEST_F(RenderHandler, TheCamerasMagnificationCountsOnlyWhenItIsAskedFor)
{
    // A ramp of 8 steps rising to a height of 37.5 x 8 / 720 = 0.41667 over 7 pixels, 0.059524 a pixel: R is
    // (1 - 0.059524 / sqrt(1 + 0.059524^2)) / 2 of 32767 = 15410; three times as steep, 0.178571: 13503.
    _scene.truckFactorAttr().setLocalValue(3.0);
    for (const auto& [isUsed, red] : {std::pair{false, 15410}, std::pair{true, 13503}}) {
        VallorinRenderHandler handler(1.0, {}, std::vector<node_render::PortRenderInfo>(1));
        handler.objectInformation = QStringLiteral("1:0");
        handler.useTruckFactor = isUsed;
        const auto ramp = covering(32767);
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x)
                ramp->at(x, y).r = static_cast<std::int16_t>(4000 * (x + 1));
        const RD_RenderJob job(RD_RenderParameters{RD_RenderParameters::IMAGE_PROCESSING_16BIT, {kSide, kSide}});
        MO_SoftContext context(job, MO_FrameKey{1.0}, &_module, job.canvas());
        context.setInputCel(0, tagged(ramp, 1));
        handler.softRender(context, 0);
        handler.finish(context);
        const auto output = context.outputCel()->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>();
        EXPECT_NEAR(output->at(4, 4).r, red, 1) << isUsed;
    }
}

TEST_F(RenderHandler, TheCamerasMagnificationWidensBevels)
{
    // Without normals only the bevel affects the picture: 240 units magnified three times are 720.
    _scene.truckFactorAttr().setLocalValue(3.0);
    const auto rendered = [&](const char* bevel, bool useTruckFactor) {
        VallorinRenderHandler handler(1.0, {}, std::vector<node_render::PortRenderInfo>(1));
        handler.objectInformation = QString::fromLatin1(bevel);
        handler.generateNormals = false;
        handler.useTruckFactor = useTruckFactor;
        const auto half = covering(32767);
        half->realloc(Math::Box2di(0, 0, kSide / 2, kSide), true);
        const RD_RenderJob job(RD_RenderParameters{RD_RenderParameters::IMAGE_PROCESSING_16BIT, {kSide, kSide}});
        MO_SoftContext context(job, MO_FrameKey{1.0}, &_module, job.canvas());
        context.setInputCel(0, tagged(half, 1));
        handler.softRender(context, 0);
        handler.finish(context);
        const auto output = context.outputCel()->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>();
        const auto row = output->row(kSide / 2);
        return std::vector<Pixel16>(row.begin(), row.end());
    };
    EXPECT_EQ(rendered("1:240", true), rendered("1:720", false));
    EXPECT_NE(rendered("1:240", true), rendered("1:240", false));
}

TEST_F(RenderHandler, ElevationBelowTheLowestWrapsIn16Bit)
{
    // Positive values run from 20000 to 32767, so a value of 0 becomes -20000 / 12767 x 32767 = -51330.8, whose low 16
    // bits are -51330 + 65536 = 14206.
    const auto handler = make(1, "1:0");
    handler->generateNormals = false;
    const auto input = covering(32767);
    input->at(0, 0).r = 20000;
    input->at(3, 3).r = 0;
    deliver(*handler, tagged(input, 1));
    EXPECT_EQ(finish(*handler)->at(3, 3), (Pixel16{14206, 14206, 14206, 14206}));
}

TEST_F(RenderHandlerFloat, ElevationBelowTheLowestDoesNotShowInFloat)
{
    const auto handler = make(1, "1:0");
    handler->generateNormals = false;
    const auto input = covering(1.0F);
    input->at(0, 0).r = 0.5F;
    input->at(3, 3).r = 0.0F;
    deliver(*handler, tagged(input, 1));
    EXPECT_EQ(finish(*handler)->at(3, 3), PixelFloat{});
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

// A pixmap of a size, with one full pixel at (x, 0) on a canvas of 12 x 1.
template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> onePixel(const Math::Size2di& size, int x)
{
    auto pixmap = UT_makeShared<CEL_PixmapOf<Pixel>>(size, Math::Box2di(0, 0, 12, 1));
    pixmap->realloc({x, 0, x + 1, 1}, true);
    constexpr auto kFull = CEL_PixelTraits<Pixel>::kFull;
    pixmap->at(x, 0) = {kFull, 0, 0, kFull};
    return pixmap;
}

// The output's pixel at x = 10 in a picture of 12 x 1. An input without a size has a pixel there, of the object that
// another input makes at x = 0. The object is blurred with a sigma of 3 pixels and clipped, so that it does not reach x
// = 10.
template<typename Pixel>
Pixel besideAnObject(const Math::Size2di& sizeOfInput)
{
    constexpr bool kIs16Bit = CEL_PixelTraits<Pixel>::kFormat == CEL_FORMAT_RGBA16;
    const RD_RenderJob job(RD_RenderParameters{
        kIs16Bit ? RD_RenderParameters::IMAGE_PROCESSING_16BIT : RD_RenderParameters::IMAGE_PROCESSING_FLOAT, {12, 1}});
    MO_SoftContext context(job, MO_FrameKey{1.0}, nullptr, job.canvas());
    VallorinRenderHandler handler(1.0, {}, std::vector<node_render::PortRenderInfo>(2));
    handler.objectInformation = QStringLiteral("1:720:1:1");
    context.setInputCel(0, tagged(onePixel<Pixel>({12, 1}, 0), 1));
    handler.softRender(context, 0);
    context.setInputCel(1, tagged(onePixel<Pixel>(sizeOfInput, 10), 1));
    handler.softRender(context, 1);
    handler.finish(context);
    const auto output = context.outputCel()->pixmap().template dynamicCast<CEL_PixmapOf<Pixel>>();
    const Pixel* const pixel = output->find(10, 0);
    return pixel ? *pixel : Pixel{};
}

TEST_F(RenderHandler, AnInputWithoutWidthOrHeightAddsNothingButCovers)
{
    EXPECT_EQ(besideAnObject<Pixel16>({0, 1}), (Pixel16{0, 0, 1, 32767}));
    EXPECT_EQ(besideAnObject<Pixel16>({12, 0}), (Pixel16{0, 0, 1, 32767}));
}

TEST_F(RenderHandlerFloat, AnInputWithoutWidthOrHeightAddsNothingButCovers)
{
    EXPECT_EQ(besideAnObject<PixelFloat>({0, 1}), (PixelFloat{0.0F, 0.0F, 0.0F, 1.0F}));
    EXPECT_EQ(besideAnObject<PixelFloat>({12, 0}), (PixelFloat{0.0F, 0.0F, 0.0F, 1.0F}));
}

TEST_F(RenderHandler, AnInputWithoutSizeMakesNoAccumulator)
{
    const auto handler = make(1, "1:0");
    deliver(*handler, tagged(onePixel<Pixel16>({0, 0}, 3), 1));
    EXPECT_EQ(handler->objectAccumulators.at(1), nullptr);
    EXPECT_EQ(handler->inputPixmaps.size(), 1U);
    EXPECT_TRUE(finish(*handler)->allocatedRect().isEmpty());
}

TEST_F(RenderHandler, NumbersThatAreNotFiniteRenderAsNoBevelNoElevationAndALinearProfile)
{
    const auto handler = make(1, "1:inf:nan:inf");
    deliver(*handler, tagged(covering(32767), 1));
    const auto output = finish(*handler);
    EXPECT_EQ(output->allocatedRect(), Math::Box2di(-2, -2, 10, 10)) << "no bevel: the mask with its margin";
    EXPECT_EQ(output->at(3, 3).a, 32767);
}

TEST_F(RenderHandler, ProductsBeyondAllNumbersRenderAsTheLargestOnes)
{
    const auto handler = make(1, "1:1e300:-1e300:1e300");
    handler->blurScale = 1e300;
    handler->elevationScale = 1e300;
    handler->elevationSmoothness = 1e300;
    deliver(*handler, tagged(covering(32767), 1));
    EXPECT_EQ(finish(*handler)->allocatedRect(), Math::Box2di(0, 0, kSide, kSide))
        << "blurred, hence within the canvas";
}

TEST_F(RenderHandler, AnOutputWithoutResultsStaysEmpty)
{
    const auto handler = make(1, "2:0");
    deliver(*handler, tagged(covering(32767), 1));
    EXPECT_TRUE(finish(*handler)->allocatedRect().isEmpty());
}
