// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Inputs that are kept from render to render: when they are found again, and that nobody sees a difference.
#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/rendering/RD_KeptInputs.h"

#include <gtest/gtest.h>

using namespace test_modules;

namespace {

// A sink with two rectangles; a pixel is 90 units wide.
struct KeptInputsTest : testing::Test
{
    MO_Scene scene;
    Log log;
    LoggingModule& sink = scene.root().emplace<LoggingModule>("sink", log, 2U, false, true);
    RD_KeptInputs kept{1 << 20};

    KeptInputsTest()
    {
        link(addElement(scene.root(), rectangle(-180, -90, 0, 90, kRed)), 0);
        link(addElement(scene.root(), rectangle(45, -45, 180, 45, kGreen)), 1);
    }

    void link(MO_Module& source, unsigned inPort) { ASSERT_TRUE(MO_Scene::connect(source, sink, inPort).ok()); }

    // The cels that the sink gets.
    std::vector<CA_CelRef> render(RD_KeptInputs* inputs, std::pair<int, int> resolution = {8, 4}, int format = 0)
    {
        sink.seenCels.clear();
        EXPECT_TRUE(
            RD_SoftRenderer::render(sink, 1.0, {.imageProcessingFormat = format, .resolution = resolution}, {}, inputs)
                .ok());
        return sink.seenCels;
    }

    static bool isSame(const CEL_PixmapArea& one, const CEL_PixmapArea& other)
    {
        bool same = one.format() == other.format() && one.allocatedRect() == other.allocatedRect() &&
                    one.canvasRect() == other.canvasRect();
        CEL_withFormat(one, [&](const auto& pixels) {
            const auto* const others = CEL_asFormat<CEL_PixelOf<decltype(pixels)>>(other);
            for (int y = one.allocatedRect().y1; same && y < one.allocatedRect().y2; ++y)
                same = std::ranges::equal(pixels.row(y), others->row(y));
        });
        return same;
    }

    // Renders with and without, and compares what the sink gets.
    void expectSame(std::pair<int, int> resolution = {8, 4}, int format = 0)
    {
        const std::vector<CA_CelRef> found = render(&kept, resolution, format);
        const std::vector<CA_CelRef> painted = render(nullptr, resolution, format);
        ASSERT_EQ(found.size(), painted.size());
        const int celFormat = RD_RenderParameters{.imageProcessingFormat = format}.celFormat();
        for (std::size_t i = 0; i < found.size(); ++i)
            EXPECT_TRUE(isSame(*found[i]->convertTo(celFormat)->pixmap(), *painted[i]->convertTo(celFormat)->pixmap()));
    }
};

TEST_F(KeptInputsTest, TheSecondRenderPaintsNothing)
{
    expectSame();
    EXPECT_EQ(kept.paintedCount(), 2);
    expectSame();
    EXPECT_EQ(kept.paintedCount(), 2);
    EXPECT_EQ(kept.foundCount(), 2);
}

TEST_F(KeptInputsTest, ADrawingInsideTheRequestedRectangleServesAllRectanglesAroundIt)
{
    sink.growth = 2;
    expectSame();
    sink.growth = 5;
    expectSame();
    sink.growth = 3;
    expectSame();
    EXPECT_EQ(kept.paintedCount(), 2);
}

TEST_F(KeptInputsTest, ADrawingThatReachesTheRectanglesSideIsPaintedForEveryOther)
{
    link(addElement(scene.root(), rectangle(-9000, -90, 0, 90, kRed)), 0);
    sink.growth = 2;
    expectSame();
    sink.growth = 5;
    expectSame();
    EXPECT_EQ(kept.paintedCount(), 3);
    EXPECT_EQ(kept.foundCount(), 1);
}

TEST_F(KeptInputsTest, PixelsThatTakeThePlaceOfOthersFreeTheirs)
{
    link(addElement(scene.root(), rectangle(-9000, -90, 0, 90, kRed)), 0);
    sink.growth = 2;
    expectSame();
    const std::int64_t bytes = kept.bytes();
    sink.growth = 5;
    expectSame();
    EXPECT_GT(kept.bytes(), bytes) << "more of the long rectangle is painted";
    sink.growth = 2;
    expectSame();
    EXPECT_EQ(kept.bytes(), bytes);
}

TEST_F(KeptInputsTest, AnotherSizePlaceOrFormatIsPaintedAndTheFirstStays)
{
    expectSame();
    expectSame({16, 8});
    expectSame({8, 4}, 1);
    EXPECT_EQ(kept.paintedCount(), 6);
    expectSame();
    expectSame({16, 8});
    EXPECT_EQ(kept.paintedCount(), 6);
    scene.truckFactorAttr().setLocalValue(2.0);
    expectSame();
    EXPECT_EQ(kept.paintedCount(), 8);
}

TEST_F(KeptInputsTest, NoMoreMemoryIsTakenThanAllowed)
{
    // Each input takes 5 x 4 pixels of 8 bytes: what it may touch of the frame.
    RD_KeptInputs few(200);
    render(&few);
    EXPECT_EQ(few.bytes(), 160);
    const int painted = few.paintedCount();
    // What fitted is found: an input does not take the place of another one of the same render.
    render(&few);
    EXPECT_EQ(few.paintedCount(), painted + 1);
    // Inputs of a render that is over make room.
    render(&few, {4, 2});
    render(&few, {4, 2});
    EXPECT_LE(few.bytes(), few.mostBytes());
    EXPECT_GT(few.foundCount(), 1);
}

TEST_F(KeptInputsTest, PicturesOfOtherModulesAreNotKept)
{
    auto& composite = scene.root().emplace<MO_CompositeModule>();
    ASSERT_TRUE(MO_Scene::connect(addElement(scene.root(), rectangle(-90, 0, 90, 90)), composite, 0).ok());
    ASSERT_TRUE(MO_Scene::connect(addElement(scene.root(), rectangle(0, 0, 90, 90)), composite, 1).ok());
    link(composite, 0);
    expectSame();
    expectSame();
    // The composite's two inputs and the sink's second one.
    EXPECT_EQ(kept.paintedCount(), 3);
    EXPECT_EQ(kept.foundCount(), 3);
}

TEST_F(KeptInputsTest, ClearForgetsEverything)
{
    expectSame();
    kept.clear();
    EXPECT_EQ(kept.bytes(), 0);
    expectSame();
    EXPECT_EQ(kept.paintedCount(), 4);
}

} // namespace
