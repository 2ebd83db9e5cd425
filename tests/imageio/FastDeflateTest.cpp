// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Whatever is pressed comes back through another's reader, in one piece or in many.
#include "Inflate.h"

#include "QuarvelImageIO/private/IIO_FastDeflate.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <random>

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes noise(std::size_t length, unsigned seed, int values = 256)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> any(0, values - 1);
    Bytes bytes(length);
    std::ranges::generate(bytes, [&] { return static_cast<std::uint8_t>(any(random)); });
    return bytes;
}

// Noise with a gap every few bytes; where there are none for long, not every place is looked at.
Bytes brokenNoise(std::size_t length, unsigned seed)
{
    Bytes bytes = noise(length, seed);
    for (std::size_t i = 0; i < length; ++i)
        if (i % 28 >= 20)
            bytes[i] = 0;
    return bytes;
}

// Pressed as one stream of pieces that end at the given places.
Bytes pressed(const Bytes& bytes, const std::vector<std::size_t>& borders = {})
{
    IIO_FastDeflate deflate;
    Bytes output;
    std::size_t from = 0;
    for (const std::size_t to : borders) {
        deflate.press(std::span(bytes).subspan(from, to - from), false, output);
        from = to;
    }
    deflate.press(std::span(bytes).subspan(from), true, output);
    return output;
}

Bytes unpressed(const Bytes& deflated, const Bytes& original)
{
    const QByteArray body(reinterpret_cast<const char*>(deflated.data()), static_cast<qsizetype>(deflated.size()));
    const QByteArray stream = QByteArray("\x78\x01", 2) + body + bigEndian32(adler32Of(original));
    const QByteArray back = inflated(stream, static_cast<qsizetype>(original.size()));
    return {back.begin(), back.end()};
}

Bytes throughDeflate(const Bytes& bytes, const std::vector<std::size_t>& borders = {})
{
    return unpressed(pressed(bytes, borders), bytes);
}

TEST(FastDeflate, KeepsNoise)
{
    for (const std::size_t length : {1U, 2U, 3U, 4U, 5U, 100U, 70000U}) {
        const Bytes bytes = noise(length, static_cast<unsigned>(length));
        EXPECT_EQ(throughDeflate(bytes), bytes) << length;
    }
}

TEST(FastDeflate, MakesNoiseHardlyLonger)
{
    const Bytes bytes = noise(500000, 1);
    EXPECT_LT(pressed(bytes).size(), bytes.size() * 101 / 100);
}

TEST(FastDeflate, KeepsRunsOfEveryLength)
{
    Bytes bytes;
    for (std::size_t length = 1; length <= 600; ++length) {
        bytes.insert(bytes.end(), length, static_cast<std::uint8_t>(length % 3));
        bytes.push_back(static_cast<std::uint8_t>(3 + length % 250));
    }
    EXPECT_EQ(throughDeflate(bytes), bytes);
}

TEST(FastDeflate, MakesARunVanish)
{
    // 258 bytes in two bits at best.
    const Bytes bytes(1000000, 7);
    EXPECT_LT(pressed(bytes).size(), 1200U);
    EXPECT_EQ(throughDeflate(bytes), bytes);
}

TEST(FastDeflate, CopiesFromEveryDistanceWithinTheWindowAndNoneBeyond)
{
    for (const std::size_t distance :
         {1U, 2U, 3U, 4U, 5U, 7U, 8U, 9U, 16U, 17U, 100U, 257U, 1000U, 4097U, 20000U, 32767U, 32768U, 32769U, 40000U}) {
        const Bytes once = brokenNoise(distance, static_cast<unsigned>(distance));
        Bytes bytes = once;
        bytes.insert(bytes.end(), once.begin(), once.end());
        bytes.insert(bytes.end(), once.begin(), once.end());
        EXPECT_EQ(throughDeflate(bytes), bytes) << distance;
        if (distance >= 1000) {
            EXPECT_EQ(pressed(bytes).size() < bytes.size() / 2, distance <= 32768) << distance;
        }
    }
}

TEST(FastDeflate, KeepsManyBlocksOfDifferentKinds)
{
    Bytes bytes;
    for (const int values : {2, 256, 3, 1, 17}) {
        const Bytes part = noise(300000, static_cast<unsigned>(values), values);
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    EXPECT_EQ(throughDeflate(bytes), bytes);
}

TEST(FastDeflate, GivesRareBytesLongCodes)
{
    // Counts like Fibonacci's numbers make the deepest trees.
    Bytes bytes;
    std::size_t count = 1;
    std::size_t before = 1;
    for (std::uint8_t value = 0; value < 24; ++value) {
        bytes.insert(bytes.end(), count, value);
        count += std::exchange(before, count);
    }
    std::ranges::shuffle(bytes, std::mt19937(1));
    EXPECT_EQ(throughDeflate(bytes), bytes);
}

TEST(FastDeflate, CanEndWithNothing)
{
    EXPECT_EQ(unpressed(pressed({}), {}), Bytes());
    const Bytes bytes = noise(1000, 1, 5);
    EXPECT_EQ(throughDeflate(bytes, {bytes.size()}), bytes);
}

TEST(FastDeflate, PressesTheSameWhateverItPressedBefore)
{
    const Bytes bytes = noise(5000, 1, 4);
    IIO_FastDeflate used;
    Bytes forgotten;
    used.press(noise(50000, 2, 4), false, forgotten);
    Bytes output;
    used.press(bytes, true, output);
    EXPECT_EQ(output, pressed(bytes));
}

RC_GTEST_PROP(FastDeflate, PiecesMakeOneStream, ())
{
    const auto length = *rc::gen::inRange<std::size_t>(0, 3000);
    const auto values = *rc::gen::element(1, 2, 4, 256);
    const Bytes bytes = noise(length, *rc::gen::arbitrary<unsigned>(), values);
    auto borders = *rc::gen::container<std::vector<std::size_t>>(rc::gen::inRange<std::size_t>(0, length + 1));
    std::ranges::sort(borders);
    RC_ASSERT(throughDeflate(bytes, borders) == bytes);
}

} // namespace
