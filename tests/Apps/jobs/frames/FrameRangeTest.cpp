// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Ranges of frames in the notation of people.
#include "jobs/frames/FrameRange.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <set>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

FrameList listed(const char* text, int first = -100, int last = 100)
{
    const auto range = FrameRange::parse(QString::fromUtf8(text));
    EXPECT_TRUE(range) << text;
    return range ? *range->within(first, last) : FrameList();
}

std::string refused(const char* text)
{
    const auto range = FrameRange::parse(QString::fromUtf8(text));
    EXPECT_FALSE(range) << text;
    return range ? std::string() : range.error().text.toStdString();
}

TEST(FrameRange, IncludesBothEnds)
{
    EXPECT_THAT(listed("3-6").frames, ElementsAre(3, 4, 5, 6));
}

TEST(FrameRange, StepsFromTheFirst)
{
    EXPECT_THAT(listed("1-10x3").frames, ElementsAre(1, 4, 7, 10));
    EXPECT_THAT(listed("2-10x3").frames, ElementsAre(2, 5, 8));
}

TEST(FrameRange, JoinsPartsInTheirOrderAndTakesAFrameOnce)
{
    EXPECT_THAT(listed("7-9,1,3,8-10").frames, ElementsAre(7, 8, 9, 1, 3, 10));
    EXPECT_THAT(listed("1-5x2,60").frames, ElementsAre(1, 3, 5, 60));
}

TEST(FrameRange, TakesNegativeFrames)
{
    EXPECT_THAT(listed("-5--3").frames, ElementsAre(-5, -4, -3));
    EXPECT_THAT(listed("-1-1").frames, ElementsAre(-1, 0, 1));
    EXPECT_THAT(listed("-7").frames, ElementsAre(-7));
}

TEST(FrameRange, AllowsBlanksAroundItsParts)
{
    EXPECT_THAT(listed(" 1 - 3 , 5 ").frames, ElementsAre(1, 2, 3, 5));
}

TEST(FrameRange, ReadsWhatSchedulersWrite)
{
    EXPECT_THAT(listed("1-10:3").frames, ElementsAre(1, 4, 7, 10));
    EXPECT_THAT(listed("1..4").frames, ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(listed("-2..0").frames, ElementsAre(-2, -1, 0));
    EXPECT_THAT(listed("1 3 5").frames, ElementsAre(1, 3, 5));
    EXPECT_THAT(listed("1-3;7-9:2").frames, ElementsAre(1, 2, 3, 7, 9));
    EXPECT_THAT(listed("1 -3").frames, ElementsAre(1, 2, 3));
}

TEST(FrameRange, LeavesOutAndCountsWhatTheSceneDoesNotHave)
{
    const FrameList list = listed("-2-3,9,12", 1, 10);
    EXPECT_THAT(list.frames, ElementsAre(1, 2, 3, 9));
    EXPECT_EQ(list.outside, 4);
}

TEST(FrameRange, KeepsTheStepWhereItsBeginIsLeftOut)
{
    // 0 3 6 9 12, of which 6 and 9 lie within 4 to 10
    const FrameList list = listed("0-12x3", 4, 10);
    EXPECT_THAT(list.frames, ElementsAre(6, 9));
    EXPECT_EQ(list.outside, 3);
}

TEST(FrameRange, OverAllNumbersCostsNothing)
{
    const FrameList list = listed("-999999999-999999999", 1, 3);
    EXPECT_THAT(list.frames, ElementsAre(1, 2, 3));
    EXPECT_EQ(list.outside, 1999999999LL - 3);
}

TEST(FrameRange, RefusesMoreFramesThanOneRunRenders)
{
    const auto range = FrameRange::parse(QStringLiteral("1-2000000"));
    ASSERT_TRUE(range);
    const auto list = range->within(1, 2000000);
    ASSERT_FALSE(list);
    EXPECT_THAT(list.error().text.toStdString(), HasSubstr("1000000"));
}

TEST(FrameRange, SaysWhichPartIsWrong)
{
    EXPECT_THAT(refused("1-3,x,7"), HasSubstr("\"x\""));
    EXPECT_THAT(refused("10-1"), HasSubstr("backwards"));
    EXPECT_THAT(refused("1-10x0"), HasSubstr("step"));
    for (const char* wrong : {"", "1,", "1-", "1--", "5x2", "1-3x-1", "99999999999", "1.5"})
        EXPECT_THAT(refused(wrong), HasSubstr("write 5, 1-10, 1-10x2"));
}

TEST(FrameRange, ShardsTakeEveryNthFrame)
{
    EXPECT_THAT(shardOf({1, 2, 3, 4, 5, 6, 7}, 1, 3), ElementsAre(1, 4, 7));
    EXPECT_THAT(shardOf({1, 2, 3, 4, 5, 6, 7}, 3, 3), ElementsAre(3, 6));
    EXPECT_THAT(shardOf({1, 2}, 3, 3), IsEmpty());
}

RC_GTEST_PROP(FrameRange, ShardsTogetherAreTheList, (const std::set<int>& set))
{
    const std::vector<int> frames(set.begin(), set.end());
    const int count = *rc::gen::inRange(1, 9);
    std::vector<int> together;
    for (int index = 1; index <= count; ++index)
        std::ranges::copy(shardOf(frames, index, count), std::back_inserter(together));
    std::ranges::sort(together);
    RC_ASSERT(together == frames);
}

RC_GTEST_PROP(FrameRange, WithinIsWhatCountingFindsOneByOne, ())
{
    const int from = *rc::gen::inRange(-50, 50);
    const int to = from + *rc::gen::inRange(0, 60);
    const int step = *rc::gen::inRange(1, 12);
    const int first = *rc::gen::inRange(-50, 50);
    const int last = first + *rc::gen::inRange(0, 60);
    std::vector<int> expected;
    std::int64_t outside = 0;
    for (int frame = from; frame <= to; frame += step)
        frame >= first&& frame <= last ? expected.push_back(frame) : static_cast<void>(++outside);
    const auto range = FrameRange::parse(QStringLiteral("%1-%2x%3").arg(from).arg(to).arg(step));
    RC_ASSERT(range.ok());
    const auto list = range->within(first, last);
    RC_ASSERT(list->frames == expected);
    RC_ASSERT(list->outside == outside);
}

} // namespace
