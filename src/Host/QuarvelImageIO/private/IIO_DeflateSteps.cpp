// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One look back per byte, into a table of where six bytes like these were last seen; what is found is taken. Shorter
// copies hardly save anything: most bytes of filtered pixels are nearly zero and take few bits as they are.
#include "QuarvelImageIO/private/IIO_DeflateSteps.h"

#include <QtEndian>

#include <algorithm>
#include <bit>

namespace {

constexpr std::size_t kLongestCopy = 258;
constexpr std::ptrdiff_t kWindow = 32768;
// So far back that nothing is in the window.
constexpr std::int32_t kNowhere = -kWindow - 1;
constexpr std::size_t kStepsPerBlock = 16384;
// A table that stays in the fastest memory.
constexpr int kHashBits = 13;
// After so many bytes in which nothing was found there is noise, and only each fourth place is looked at: normal maps
// take two thirds of the time for files half a hundredth larger.
constexpr std::size_t kPatience = 32;
constexpr std::size_t kStride = 4;

// Six bytes of the eight that can be read at once.
std::uint64_t loadSixBytes(const std::uint8_t* from)
{
    return qFromLittleEndian<std::uint64_t>(from) << 16U;
}

// How many bytes are the same, at most so many.
std::size_t commonLength(const std::uint8_t* a, const std::uint8_t* b, std::size_t most)
{
    std::size_t length = 0;
    for (; length + 8 <= most; length += 8)
        if (const auto different =
                qFromLittleEndian<std::uint64_t>(a + length) ^ qFromLittleEndian<std::uint64_t>(b + length))
            return length + static_cast<std::size_t>(std::countr_zero(different)) / 8;
    while (length < most && a[length] == b[length])
        ++length;
    return length;
}

} // namespace

IIO_DeflateNumber IIO_DeflateNumber::ofLength(std::size_t length)
{
    const auto value = static_cast<std::uint32_t>(length - 3);
    if (length == kLongestCopy)
        return {285, 0, 0};
    if (value < 8)
        return {257 + value, 0, 0};
    // From here on there are four symbols for each number of bits.
    const int extraBits = std::bit_width(value) - 3;
    const std::uint32_t step = value >> extraBits;
    return {257 + 4 * static_cast<std::uint32_t>(extraBits) + step, value - (step << extraBits), extraBits};
}

IIO_DeflateNumber IIO_DeflateNumber::ofDistance(std::size_t distance)
{
    const auto value = static_cast<std::uint32_t>(distance - 1);
    if (value < 4)
        return {value, 0, 0};
    // Two symbols for each number of bits.
    const int extraBits = std::bit_width(value) - 2;
    const std::uint32_t step = value >> extraBits;
    return {2 * static_cast<std::uint32_t>(extraBits) + step, value - (step << extraBits), extraBits};
}

IIO_DeflateSteps::IIO_DeflateSteps() : _lastPlaces(std::size_t{1} << kHashBits)
{
    _steps.reserve(kStepsPerBlock + 1);
}

void IIO_DeflateSteps::begin()
{
    std::ranges::fill(_lastPlaces, kNowhere);
}

std::int32_t& IIO_DeflateSteps::lastPlaceOf(std::uint64_t sixBytes)
{
    return _lastPlaces[(sixBytes * 0x9e3779b97f4a7c15U) >> (64 - kHashBits)];
}

// The copy that could stand here; of length 0 when there is none.
IIO_DeflateSteps::Copy IIO_DeflateSteps::findCopy(std::span<const std::uint8_t> bytes, std::size_t at)
{
    const std::uint8_t* here = bytes.data() + at;
    const std::uint64_t sixBytes = loadSixBytes(here);
    std::int32_t& place = lastPlaceOf(sixBytes);
    const std::ptrdiff_t distance = static_cast<std::ptrdiff_t>(at) - place;
    place = static_cast<std::int32_t>(at);
    if (distance > kWindow || loadSixBytes(here - distance) != sixBytes)
        return {};
    return {commonLength(here, here - distance, std::min(kLongestCopy, bytes.size() - at)),
            static_cast<std::size_t>(distance)};
}

std::size_t IIO_DeflateSteps::findBlock(std::span<const std::uint8_t> bytes, std::size_t from)
{
    _steps.clear();
    _symbolCounts.fill(0);
    _distanceCounts.fill(0);
    _symbolCounts[kEndOfBlock] = 1;
    const std::size_t lastLook = bytes.size() - std::min(bytes.size(), sizeof(std::uint64_t));
    std::size_t at = from;
    std::size_t literals = 0;
    while (at < lastLook) {
        const Copy copy = findCopy(bytes, at);
        if (copy.length == 0) {
            const std::size_t passed = literals < kPatience ? 1 : kStride;
            countBytes(bytes.subspan(at, passed));
            at += passed;
            literals += passed;
            continue;
        }
        addStep(literals, copy);
        literals = 0;
        at += copy.length;
        if (_steps.size() == kStepsPerBlock)
            return at;
        // Of what was copied only the last byte is noted, so that a run goes on with the shortest distance.
        if (at < lastLook)
            lastPlaceOf(loadSixBytes(bytes.data() + at - 1)) = static_cast<std::int32_t>(at - 1);
    }
    countBytes(bytes.subspan(at));
    _steps.push_back({static_cast<std::uint32_t>(literals + bytes.size() - at), 0, 0});
    return bytes.size();
}

void IIO_DeflateSteps::countBytes(std::span<const std::uint8_t> bytes)
{
    for (const std::uint8_t byte : bytes)
        ++_symbolCounts[byte];
}

void IIO_DeflateSteps::addStep(std::size_t literals, const Copy& copy)
{
    _steps.push_back({static_cast<std::uint32_t>(literals), static_cast<std::uint16_t>(copy.length),
                      static_cast<std::uint16_t>(copy.distance)});
    ++_symbolCounts[IIO_DeflateNumber::ofLength(copy.length).symbol];
    ++_distanceCounts[IIO_DeflateNumber::ofDistance(copy.distance).symbol];
}
