// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Whole renders by hand: which inputs and records count, what scales what, and a small ramp through every step.
#include "reference/Render.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace reference {
namespace {

const RefBox wideCanvas{0, 0, 720, 5};

/// Seven columns of five covered pixels with the values 1000, 2000 ... 7000.
RefImage16 ramp16()
{
    RefImage16 image(RefBox{0, 0, 7, 5}, wideCanvas, 720, 5);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 7; ++x) {
            image.at(x, y) = RefPixel16{static_cast<std::int16_t>(1000 * (x + 1)), 0, 0, 32767};
        }
    }
    return image;
}

RefRenderParameters parametersFor(const RefBox& canvas)
{
    RefRenderParameters parameters;
    parameters.outputRect = canvas;
    return parameters;
}

RefObjectRecord flatRecord(int objectId)
{
    RefObjectRecord record;
    record.objectId = objectId;
    record.bevelSize = 0.0;
    return record;
}

TEST(ReferenceRender, IsBlankWithoutRecords)
{
    EXPECT_FALSE(render16({{1, ramp16()}}, {}, parametersFor(wideCanvas), ramp16()).output.has_value());
}

TEST(ReferenceRender, PassesOverRecordsBelowOneAndObjectsWithoutInput)
{
    const auto render =
        render16({{1, ramp16()}}, {flatRecord(0), flatRecord(-1), flatRecord(2)}, parametersFor(wideCanvas), ramp16());
    ASSERT_TRUE(render.output.has_value());
    EXPECT_TRUE(render.output->box.empty());
    EXPECT_EQ(render.output->canvas, wideCanvas);
    EXPECT_TRUE(render.results.empty());
}

TEST(ReferenceRender, AccumulatesNeitherCutOutsNorInputsWithoutObject)
{
    const auto render = render16({{-1, ramp16()}, {0, ramp16()}}, {flatRecord(1)}, parametersFor(wideCanvas), ramp16());
    EXPECT_TRUE(render.accumulators.empty());
}

TEST(ReferenceRender, AccumulatesNothingOfASizeOfZero)
{
    RefImage16 sizeless = ramp16();
    sizeless.width = 0;
    EXPECT_TRUE(render16({{1, sizeless}}, {}, parametersFor(wideCanvas), ramp16()).accumulators.empty());
}

TEST(ReferenceRender, MergesAllInputsOfAnObject)
{
    const auto render =
        render16({{1, ramp16()}, {2, ramp16()}, {1, RefImage16(RefBox{9, 0, 11, 2}, wideCanvas, 720, 5)}}, {},
                 parametersFor(wideCanvas), ramp16());
    EXPECT_EQ(render.accumulators.size(), 2U);
    EXPECT_EQ(render.accumulators.at(1).box, (RefBox{0, 0, 11, 5}));
    EXPECT_EQ(render.accumulators.at(2).box, (RefBox{0, 0, 7, 5}));
}

TEST(ReferenceRender, TakesTheLaterOfTwoRecordsOfAnObject)
{
    RefRenderParameters parameters = parametersFor(wideCanvas);
    parameters.depthInBlue = true;
    RefObjectRecord high = flatRecord(1);
    high.smoothness = 2.0;
    const auto later = render16({{1, ramp16()}}, {flatRecord(1), high}, parameters, ramp16());
    const auto alone = render16({{1, ramp16()}}, {high}, parameters, ramp16());
    const auto first = render16({{1, ramp16()}}, {flatRecord(1)}, parameters, ramp16());
    EXPECT_EQ(later.output->pixels, alone.output->pixels);
    EXPECT_NE(later.output->pixels, first.output->pixels);
}

TEST(ReferenceRender, ScalesBevelAndElevationByTheTruckFactorAndSmoothnessNot)
{
    RefRenderParameters parameters = parametersFor(wideCanvas);
    parameters.blurScale = 2.0;
    parameters.truckFactor = 3.0;
    RefObjectRecord record;
    record.objectId = 1;
    record.bevelSize = 4.0;
    double asked = 0.0;
    const RefBlur16 blur = [&asked](const RefImage16& mask, double sigma) {
        asked = sigma;
        return mask;
    };
    render16({{1, ramp16()}}, {record}, parameters, ramp16(), blur);
    EXPECT_EQ(asked, 2.0); // 4 x 2 / 720 x 720 x 0.25
    parameters.useTruckFactor = true;
    render16({{1, ramp16()}}, {record}, parameters, ramp16(), blur);
    EXPECT_EQ(asked, 6.0);
}

TEST(ReferenceRender, TakesRecordsThatAreNotFiniteForNothing)
{
    const double infinite = std::numeric_limits<double>::infinity();
    const auto strange = render16({{1, ramp16()}}, {RefObjectRecord{1, infinite, std::nan(""), -infinite}},
                                  parametersFor(wideCanvas), ramp16());
    const auto plain =
        render16({{1, ramp16()}}, {RefObjectRecord{1, 0.0, 0.0, 1.0}}, parametersFor(wideCanvas), ramp16());
    EXPECT_EQ(strange.output->pixels, plain.output->pixels);
}

TEST(ReferenceRender, CountsASmoothnessThatIsNotFiniteAsOne)
{
    RefRenderParameters parameters = parametersFor(wideCanvas);
    parameters.depthInBlue = true;
    const auto strange = render16({{1, ramp16()}}, {RefObjectRecord{1, 0.0, 1.0, std::nan("")}}, parameters, ramp16());
    const auto plain = render16({{1, ramp16()}}, {RefObjectRecord{1, 0.0, 1.0, 1.0}}, parameters, ramp16());
    EXPECT_EQ(strange.output->pixels, plain.output->pixels);
}

TEST(ReferenceRender, MultipliesElevationByScaleAndTruckFactor)
{
    RefRenderParameters parameters = parametersFor(wideCanvas);
    parameters.truckFactor = 2.0;
    parameters.elevationScale = 2.0;
    RefObjectRecord record = flatRecord(1);
    record.elevation = 0.08;
    // Depths rise by 6.25 x 0.16 = 1 a column: (-4, 0, 4), x = -0.7071068, 0.2928932 x 16383.5 = 4798.6.
    EXPECT_EQ(render16({{1, ramp16()}}, {record}, parameters, ramp16()).output->at(3, 2).r, 4799);
    // With the truck factor by 2: (-8, 0, 4), x = -0.8944272, 0.1055728 x 16383.5 = 1729.7.
    parameters.useTruckFactor = true;
    EXPECT_EQ(render16({{1, ramp16()}}, {record}, parameters, ramp16()).output->at(3, 2).r, 1730);
}

TEST(ReferenceRender, MultipliesSmoothnessByItsScaleAlone)
{
    RefRenderParameters parameters = parametersFor(wideCanvas);
    parameters.depthInBlue = true;
    parameters.useTruckFactor = true;
    parameters.truckFactor = 3.0;
    parameters.elevationSmoothness = 4.0;
    RefObjectRecord record = flatRecord(1);
    record.smoothness = 0.5;
    // The square root of a half: 0.7071068 x 32765 + 1 = 23169.4.
    EXPECT_EQ(render16({{1, ramp16()}}, {record}, parameters, ramp16()).output->at(3, 2).b, 23169);
}

TEST(ReferenceRender, CountsInputsAndRecordsInFloatAlike)
{
    const RefImageFloat input(RefBox{0, 0, 7, 5}, wideCanvas, 720, 5);
    RefImageFloat sizeless = input;
    sizeless.height = 0;
    const RefRenderParameters parameters = parametersFor(wideCanvas);
    const auto render =
        renderFloat({{-1, input}, {0, input}, {2, sizeless}, {3, std::nullopt}, {4, input}}, {}, parameters, input);
    EXPECT_FALSE(render.output.has_value());
    EXPECT_EQ(render.accumulators.size(), 1U);
    EXPECT_TRUE(render.accumulators.contains(4));
    RefImageFloat narrow = input;
    narrow.width = 0;
    EXPECT_TRUE(renderFloat({{2, narrow}}, {}, parameters, input).accumulators.empty());
}

TEST(ReferenceRender, TurnsARampIntoItsNormals)
{
    RefRenderParameters parameters = parametersFor(wideCanvas);
    parameters.depthInBlue = true;

    const auto render = render16({{1, ramp16()}}, {flatRecord(1)}, parameters, ramp16());

    // Without a bevel the mask keeps its margin of two.
    const RefImage16& output = *render.output;
    EXPECT_EQ(output.box, (RefBox{-2, -2, 9, 7}));
    EXPECT_EQ(output.at(-1, 0), RefPixel16{}) << "no input there";
    // Canvas factor 1, height 37.5: column x has the share x / 6 and the depth 6.25 x; column 0 is black, hence empty.
    EXPECT_EQ(output.at(0, 2), (RefPixel16{0, 0, 32767, 32767}));
    // Columns 1 and 6 and rows 0 and 4 are next to black: zero normals. Blue: 32765 / 6 + 1 = 5461.8; 32766.
    EXPECT_EQ(output.at(1, 2), (RefPixel16{16384, 16384, 5461, 32767}));
    EXPECT_EQ(output.at(6, 2), (RefPixel16{16384, 16384, 32766, 32767}));
    EXPECT_EQ(output.at(3, 0), (RefPixel16{16384, 16384, 16383, 32767}));
    EXPECT_EQ(output.at(3, 4), (RefPixel16{16384, 16384, 16383, 32767}));
    // Inside: a = (2, 0, 12.5), b = (0, 2, 0): (-25, 0, 4) / 25.31798: x = -0.9874406, 0.0125594 x 16383.5 = 205.77.
    // Blue: 32765 x 2 / 6 + 1 = 10922.67; 32765 x 3 / 6 + 1 = 16383.5; 32765 x 5 / 6 + 1 = 27305.2.
    EXPECT_EQ(output.at(2, 2), (RefPixel16{206, 16384, 10922, 32767}));
    EXPECT_EQ(output.at(3, 1), (RefPixel16{206, 16384, 16383, 32767}));
    EXPECT_EQ(output.at(5, 3), (RefPixel16{206, 16384, 27305, 32767}));
}

TEST(ReferenceRender, TurnsARampIntoItsElevation)
{
    RefRenderParameters parameters = parametersFor(wideCanvas);
    parameters.generateNormals = false;
    RefImageFloat ramp(RefBox{0, 0, 5, 1}, wideCanvas, 720, 5);
    for (int x = 0; x < 5; ++x) {
        ramp.at(x, 0) = RefPixelFloat{0.125F * static_cast<float>(x + 1), 0, 0, 1};
    }

    const auto render = renderFloat({{1, ramp}}, {flatRecord(1)}, parameters, ramp);

    EXPECT_EQ(render.ranges.at(1), (RefRange{0.125F, 2.0F}));
    for (int x = 0; x < 5; ++x) {
        const float elevation = 0.25F * static_cast<float>(x);
        EXPECT_EQ(render.output->at(x, 0), (RefPixelFloat{elevation, elevation, elevation, elevation}));
    }
}

TEST(ReferenceRender, CutsOneObjectOutOfAnother)
{
    RefImage16 hole(RefBox{3, 0, 4, 5}, wideCanvas, 720, 5);
    for (RefPixel16& pixel : hole.pixels) {
        pixel = RefPixel16{32767, 0, 0, 32767};
    }
    const auto render = render16({{1, ramp16()}, {0, hole}}, {flatRecord(1)}, parametersFor(wideCanvas), ramp16());
    EXPECT_EQ(render.output->at(3, 2), RefPixel16{});
    EXPECT_EQ(render.output->at(2, 2), (RefPixel16{206, 16384, 1, 32767})) << "the cut does not touch the elevation";
}

} // namespace
} // namespace reference
