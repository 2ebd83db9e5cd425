// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Frame numbers in file names, and the order of names.
#include "jobs/import/FrameNumbers.h"
#include "QuarvelDrawingIO/DIO_BitmapReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

std::vector<int> numbersOf(const QStringList& paths)
{
    std::vector<int> numbers;
    const auto files = numberFrames(paths);
    EXPECT_TRUE(files) << files.error().text.toStdString();
    for (const NumberedFile& file : *files)
        numbers.push_back(file.frame);
    return numbers;
}

std::string refusalOf(const QStringList& paths)
{
    const auto files = numberFrames(paths);
    return files ? std::string() : files.error().text.toStdString();
}

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

} // namespace

TEST(FrameNumbers, AreTheLastDigitsOfTheName)
{
    EXPECT_EQ(*frameNumberOf("walk_0012.svg"), 12);
    EXPECT_EQ(*frameNumberOf("art/take2/walk 7 final.svg"), 7);
    EXPECT_EQ(*frameNumberOf("take2/walk.v3.svg"), 3);
    EXPECT_EQ(*frameNumberOf("000.svg"), 0);
    EXPECT_EQ(*frameNumberOf("take2/walk.svg"), std::nullopt);
}

TEST(FrameNumbers, BeyondAllReasonAreRefused)
{
    EXPECT_EQ(*frameNumberOf("a_0000000000123456789.svg"), 123456789);
    EXPECT_FALSE(frameNumberOf("a_1234567890.svg"));
}

TEST(FrameNumbers, SortTheFiles)
{
    const auto files = *numberFrames({"a_10.svg", "a_9.svg", "b_2.svg"});
    ASSERT_EQ(files.size(), 3U);
    EXPECT_EQ(files[0].path, "b_2.svg");
    EXPECT_EQ(files[1].path, "a_9.svg");
    EXPECT_EQ(files[2].path, "a_10.svg");
    EXPECT_THAT(numbersOf({"a_10.svg", "a_9.svg", "b_2.svg"}), ElementsAre(2, 9, 10));
}

TEST(FrameNumbers, AFileAloneIsFrameOne)
{
    EXPECT_THAT(numbersOf({"hero7.svg"}), ElementsAre(1));
}

TEST(FrameNumbers, FilesWithoutNumbersCountFromOneInNaturalOrder)
{
    const auto files = *numberFrames({"walk.svg", "run.svg", "jump.svg"});
    EXPECT_EQ(files[0].path, "jump.svg");
    EXPECT_EQ(files[2].path, "walk.svg");
    EXPECT_THAT(numbersOf({"walk.svg", "run.svg", "jump.svg"}), ElementsAre(1, 2, 3));
}

TEST(FrameNumbers, ThatAreTakenTwiceNameBothFiles)
{
    EXPECT_THAT(refusalOf({"a_2.svg", "a_1.svg", "a_02.svg"}),
                AllOf(HasSubstr("a_2.svg"), HasSubstr("a_02.svg"), HasSubstr("same frame number, 2")));
}

TEST(FrameNumbers, ThatOnlySomeFilesHaveNameTwoOfThem)
{
    EXPECT_THAT(refusalOf({"a.svg", "a_2.svg"}), AllOf(HasSubstr("a.svg"), HasSubstr("a_2.svg")));
}

TEST(NaturalOrder, CountsDigitsByTheirValue)
{
    QStringList names = {"a10", "a2", "b1", "a02", "a", "a2b"};
    sortNaturally(names);
    EXPECT_EQ(names, QStringList({"a", "a02", "a2", "a2b", "a10", "b1"}));
}

TEST(SequenceName, LeavesTheNumberOut)
{
    EXPECT_EQ(sequenceName({"art/walk_0002.svg", "art/walk_0001.svg"}), "walk");
    EXPECT_EQ(sequenceName({"art/1F98A.svg"}), "1F98A");
    EXPECT_EQ(DIO_nameWithoutNumber("walk_12_arm.png"), "walk_arm");
    EXPECT_EQ(DIO_nameWithoutNumber("0012.png"), "0012");
}
