// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which rendered frames are kept, and the size of quick pictures.
#include "studio/preview/FrameCache.h"
#include "studio/preview/QuickPace.h"

#include <gtest/gtest.h>

namespace {

using std::chrono::milliseconds;

// A picture of 1000 pixels.
RenderedFramePtr picture(int frame)
{
    auto made = std::make_shared<RenderedFrame>(RenderedFrame{.frame = frame,
                                                              .fullSize = {100, 10},
                                                              .size = {100, 10},
                                                              .nodeName = {},
                                                              .drawing = {},
                                                              .elevation = {},
                                                              .normals = {},
                                                              .surface = std::move(NM_Surface::create({1, 1}).value()),
                                                              .node = {},
                                                              .channels = {},
                                                              .inputs = {}});
    return made;
}

constexpr qsizetype kEach = 1000 * RenderedFrame::kBytesPerPixel;

std::vector<int> framesIn(const FrameCache& cache)
{
    std::vector<int> frames;
    for (int frame = 0; frame < 100; ++frame)
        if (cache.find(frame))
            frames.push_back(frame);
    return frames;
}

TEST(FrameCache, TakesNoMoreThanItsBound)
{
    FrameCache cache(3 * kEach);
    for (int frame = 1; frame <= 10; ++frame) {
        cache.keep(picture(frame));
        EXPECT_LE(cache.bytes(), cache.mostBytes());
        EXPECT_TRUE(cache.find(frame));
    }
    EXPECT_EQ(cache.bytes(), 3 * kEach);
    cache.clear();
    EXPECT_EQ(cache.bytes(), 0);
    EXPECT_EQ(cache.find(10), nullptr);
}

TEST(FrameCache, APictureTakesThePlaceOfTheOneOfItsFrame)
{
    FrameCache cache(3 * kEach);
    cache.keep(picture(4));
    const RenderedFramePtr better = picture(4);
    cache.keep(better);
    EXPECT_EQ(cache.find(4), better);
    EXPECT_EQ(cache.bytes(), kEach);
}

// Of a loop that does not fit, the part that was kept first is still cached when it is played again.
TEST(FrameCache, ALoopThatDoesNotFitIsKeptInPart)
{
    FrameCache cache(4 * kEach);
    for (int frame = 1; frame <= 8; ++frame)
        cache.keep(picture(frame));
    EXPECT_EQ(framesIn(cache), (std::vector<int>{1, 2, 3, 8}));
}

TEST(FrameCache, OnePictureIsKeptEvenWhereItIsLargerThanTheBound)
{
    FrameCache cache(10);
    cache.keep(picture(1));
    cache.keep(picture(2));
    EXPECT_EQ(framesIn(cache), std::vector<int>{2});
}

constexpr double kAnySize = 1e12;

TEST(QuickPace, BeginsWithAQuarterOfTheSides)
{
    EXPECT_EQ(QuickPace().sizeFor({1920, 1080}, kAnySize), QSize(480, 270));
}

TEST(QuickPace, IsSmallerWhenTheLastOneTookTooLong)
{
    QuickPace pace;
    // Twice the goal: the sides shrink at least by the square root of one half.
    pace.took(2 * QuickPace::kGoal, 4);
    EXPECT_EQ(pace.divisor(), 6);
    pace.took(milliseconds(100000), 6);
    EXPECT_EQ(pace.divisor(), QuickPace::kMostDivisor);
}

TEST(QuickPace, GrowsStepByStepAsFarAsTheGoalIsSurelyMet)
{
    QuickPace pace;
    pace.took(milliseconds(1), 4);
    EXPECT_EQ(pace.divisor(), 3);
    pace.took(milliseconds(2), 3);
    EXPECT_EQ(pace.divisor(), 2);
    // Four times as many pixels would take 100 ms.
    pace.took(milliseconds(25), 2);
    EXPECT_EQ(pace.divisor(), 2);
    pace.took(milliseconds(5), 2);
    EXPECT_EQ(pace.divisor(), 1);
    pace.took(milliseconds(20), 1);
    EXPECT_EQ(pace.divisor(), 1);
}

TEST(QuickPace, KeepsItsSizeWhereTheGoalIsJustMet)
{
    for (int divisor = 1; divisor <= QuickPace::kMostDivisor; ++divisor) {
        QuickPace pace;
        pace.took(QuickPace::kGoal - milliseconds(1), divisor);
        EXPECT_EQ(pace.divisor(), divisor);
    }
}

TEST(QuickPace, APictureThatWouldBeTinyIsWhole)
{
    EXPECT_EQ(QuickPace().sizeFor({400, 60}, kAnySize), QSize(400, 60));
    EXPECT_EQ(QuickPace().sizeFor({400, 100}, kAnySize), QSize(200, 50));
    EXPECT_EQ(QuickPace().sizeFor({400, 400}, kAnySize), QSize(100, 100));
}

TEST(QuickPace, HasNoMorePixelsThanFitIntoACache)
{
    EXPECT_EQ(QuickPace().sizeFor({1920, 1080}, 100000.0), QSize(384, 216));
    EXPECT_EQ(QuickPace().sizeFor({1920, 1080}, 1.0), QSize(240, 135));
}

TEST(QuickPace, KnowsByWhatASizeIsDivided)
{
    for (int divisor = 1; divisor <= QuickPace::kMostDivisor; ++divisor)
        EXPECT_EQ(QuickPace::divisorOf({1920, 1080}, {1920 / divisor, 1080 / divisor}), divisor);
}

} // namespace
