// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Prefix codes: short for what is frequent, never longer than allowed, and without gaps.
#include "QuarvelImageIO/private/IIO_HuffmanCode.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <numeric>
#include <vector>

using testing::Each;
using testing::ElementsAre;

namespace {

std::vector<std::uint8_t> lengthsFor(const std::vector<std::uint32_t>& counts, int limit = 15)
{
    std::vector<std::uint8_t> lengths(counts.size(), 99);
    IIO_findCodeLengths(counts, limit, lengths);
    return lengths;
}

// How much of the space of codes of 15 bits the lengths take up.
unsigned takenSpace(const std::vector<std::uint8_t>& lengths)
{
    return std::accumulate(lengths.begin(), lengths.end(), 0U, [](unsigned sum, std::uint8_t length) {
        return length == 0 ? sum : sum + (1U << (15U - length));
    });
}

std::vector<std::uint32_t> fibonacci(std::size_t count)
{
    std::vector<std::uint32_t> numbers(count, 1);
    for (std::size_t i = 2; i < count; ++i)
        numbers[i] = numbers[i - 1] + numbers[i - 2];
    return numbers;
}

TEST(HuffmanCode, HalvesTheCodeSpaceForEachHalfOfTheCounts)
{
    EXPECT_THAT(lengthsFor({1, 1, 2, 4}), ElementsAre(3, 3, 2, 1));
    EXPECT_THAT(lengthsFor({5, 5, 5, 5}), ElementsAre(2, 2, 2, 2));
}

TEST(HuffmanCode, LeavesOutWhatDoesNotOccur)
{
    EXPECT_THAT(lengthsFor({0, 7, 0, 900, 0}), ElementsAre(0, 1, 0, 1, 0));
}

TEST(HuffmanCode, KeepsToTheLimit)
{
    // Without a limit of seven bits the rarest of ten would have nine.
    EXPECT_EQ(lengthsFor(fibonacci(10)).front(), 9);
    const auto lengths = lengthsFor(fibonacci(10), 7);
    EXPECT_THAT(lengths, Each(testing::AllOf(testing::Ge(1), testing::Le(7))));
    EXPECT_EQ(takenSpace(lengths), 32768U);
}

TEST(HuffmanCode, FillsTheCodeSpaceEvenWhenAllCodesHaveTheLimitsLength)
{
    const auto lengths = lengthsFor(fibonacci(16), 4);
    EXPECT_THAT(lengths, Each(4));
}

RC_GTEST_PROP(HuffmanCode, FillsTheCodeSpaceAndFavoursTheFrequent, ())
{
    auto counts = *rc::gen::container<std::vector<std::uint32_t>>(
        286, rc::gen::oneOf(rc::gen::just(0U), rc::gen::inRange(0U, 4U), rc::gen::inRange(0U, 100000U)));
    counts[3] = 1;
    counts[285] = 70000;
    const auto lengths = lengthsFor(counts);
    RC_ASSERT(takenSpace(lengths) == 32768U);
    for (std::size_t i = 1; i < counts.size(); ++i) {
        RC_ASSERT((counts[i] == 0) == (lengths[i] == 0));
        if (counts[i] > counts[i - 1] && counts[i - 1] > 0)
            RC_ASSERT(lengths[i] <= lengths[i - 1]);
    }
}

TEST(HuffmanCode, CountsItsCodesUpFromTheShortest)
{
    // By hand, from the first bit on: 010 011 100 101 110 00 1110 1111; a stream takes the first bit lowest.
    const std::vector<std::uint8_t> lengths = {3, 3, 3, 3, 3, 2, 4, 4};
    std::vector<std::uint16_t> codes(lengths.size());
    IIO_findCodes(lengths, codes);
    EXPECT_THAT(codes, ElementsAre(0b010, 0b110, 0b001, 0b101, 0b011, 0b00, 0b0111, 0b1111));
}

} // namespace
