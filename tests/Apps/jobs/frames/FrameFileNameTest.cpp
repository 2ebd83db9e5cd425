// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The names of frames' files.
#include "jobs/frames/FrameFileName.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

std::string named(const char* pattern, int frame)
{
    const auto name = FrameFileName::parse(QString::fromUtf8(pattern));
    EXPECT_TRUE(name) << pattern;
    return name ? name->of(frame).toStdString() : std::string();
}

TEST(FrameFileName, FillsUpWithZeros)
{
    EXPECT_EQ(named("out/n.####.exr", 7), "out/n.0007.exr");
    EXPECT_EQ(named("out/n.%04d.exr", 7), "out/n.0007.exr");
    EXPECT_EQ(named("n_#.png", 7), "n_7.png");
    EXPECT_EQ(named("n.%d.png", 7), "n.7.png");
}

TEST(FrameFileName, TakesTheWordsOfOtherPrograms)
{
    EXPECT_EQ(named("out/n.$F4.exr", 7), "out/n.0007.exr");
    EXPECT_EQ(named("out/n.$F.exr", 7), "out/n.7.exr");
    EXPECT_EQ(named("out/n.<frame04>.exr", 7), "out/n.0007.exr");
    EXPECT_EQ(named("out/n.<frame>.exr", 7), "out/n.7.exr");
}

TEST(FrameFileName, GrowsWithTheNumber)
{
    EXPECT_EQ(named("n.##.png", 12345), "n.12345.png");
}

TEST(FrameFileName, PutsTheSignBeforeTheZeros)
{
    EXPECT_EQ(named("n.####.png", -5), "n.-0005.png");
    EXPECT_EQ(named("n.%04d.png", -5), "n.-0005.png");
}

TEST(FrameFileName, TakesTheLastPlaceInTheFilesOwnName)
{
    EXPECT_EQ(named("take#2/a#b.###.png", 1), "take#2/a#b.001.png");
}

TEST(FrameFileName, WithoutAPlaceIsOneName)
{
    const auto name = FrameFileName::parse(QStringLiteral("take#2/n.png"));
    ASSERT_TRUE(name);
    EXPECT_FALSE(name->hasNumber());
    EXPECT_EQ(name->of(3).toStdString(), "take#2/n.png");
    EXPECT_EQ(FrameFileName::proposal(QStringLiteral("take#2/n.png")).toStdString(), "take#2/n.####.png");
}

TEST(FrameFileName, RefusesWhatIsNoPicture)
{
    const auto name = FrameFileName::parse(QStringLiteral("n.####.txt"));
    ASSERT_FALSE(name);
    EXPECT_THAT(name.error().text.toStdString(), HasSubstr("exr"));
    EXPECT_FALSE(FrameFileName::parse(QString()));
}

} // namespace
