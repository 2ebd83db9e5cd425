// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where whole vectors can be written past the cache.
//
// Part of vector code: included once for every instruction set.
#include <cstddef>
#include <cstdint>

#include <hwy/highway.h>

#if defined(VALLORIN_STREAM_LANES_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef VALLORIN_STREAM_LANES_INL_H
#undef VALLORIN_STREAM_LANES_INL_H
#else
#define VALLORIN_STREAM_LANES_INL_H
#endif

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// How many values there are from `to` on before an address that is a multiple of a vector's size.
template<class D, typename Value>
HWY_INLINE std::size_t untilAligned(D d, const Value* to)
{
    const std::size_t size = hn::Lanes(d) * sizeof(hn::TFromD<D>);
    const std::size_t beyond = reinterpret_cast<std::uintptr_t>(to) % size;
    return beyond == 0 ? 0 : (size - beyond) / sizeof(Value);
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif // per target
