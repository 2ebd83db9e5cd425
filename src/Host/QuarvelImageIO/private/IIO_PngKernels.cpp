// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A lane is a byte or a sample.
#include "QuarvelImageIO/private/IIO_PngKernels.h"

#include <cassert>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "QuarvelImageIO/private/IIO_PngKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "QuarvelVectorLanes/VL_Lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace IIO_PngKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

std::size_t countDifferent(const std::uint8_t* row, const std::uint8_t* other, std::size_t count)
{
    std::size_t same = 0;
    VL::HWY_NAMESPACE::forLanes<std::uint8_t>(count, [&](auto d, std::size_t i) {
        same += hn::CountTrue(d, hn::Eq(hn::LoadU(d, row + i), hn::LoadU(d, other + i)));
    });
    return count - same;
}

void subtractRows(const std::uint8_t* row, const std::uint8_t* other, std::size_t count, std::uint8_t* differences)
{
    VL::HWY_NAMESPACE::forLanes<std::uint8_t>(count, [&](auto d, std::size_t i) {
        hn::StoreU(hn::Sub(hn::LoadU(d, row + i), hn::LoadU(d, other + i)), d, differences + i);
    });
}

void takeSamples(const std::uint16_t* samples, std::size_t count, std::uint8_t* bytes)
{
#if HWY_TARGET == HWY_SCALAR
    for (std::size_t i = 0; i < count; ++i) {
        bytes[2 * i] = static_cast<std::uint8_t>(samples[i] >> 8U);
        bytes[2 * i + 1] = static_cast<std::uint8_t>(samples[i]);
    }
#else
    VL::HWY_NAMESPACE::forLanes<std::uint16_t>(count, [&](auto d, std::size_t i) {
        const hn::Repartition<std::uint8_t, decltype(d)> asBytes;
        // Vectors hold the lowest byte first.
        const auto own = hn::LoadU(d, samples + i);
        const auto swapped = hn::Or(hn::ShiftLeft<8>(own), hn::ShiftRight<8>(own));
        hn::StoreU(hn::BitCast(asBytes, swapped), asBytes, bytes + 2 * i);
    });
#endif
}

} // namespace IIO_PngKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace IIO_PngKernels {

VL_EXPORT(countDifferent);
VL_EXPORT(subtractRows);
VL_EXPORT(takeSamples);

} // namespace IIO_PngKernels

std::size_t IIO_countDifferent(std::span<const std::uint8_t> row, std::span<const std::uint8_t> other)
{
    using namespace IIO_PngKernels;
    assert(other.size() == row.size());
    return VL_CALL(countDifferent)(row.data(), other.data(), row.size());
}

void IIO_subtractRows(std::span<const std::uint8_t> row, std::span<const std::uint8_t> other,
                      std::span<std::uint8_t> differences)
{
    using namespace IIO_PngKernels;
    assert(other.size() == row.size() && differences.size() == row.size());
    VL_CALL(subtractRows)(row.data(), other.data(), row.size(), differences.data());
}

void IIO_takeSamples(std::span<const std::uint16_t> samples, std::span<std::uint8_t> bytes)
{
    using namespace IIO_PngKernels;
    assert(bytes.size() == 2 * samples.size());
    VL_CALL(takeSamples)(samples.data(), samples.size(), bytes.data());
}
#endif
