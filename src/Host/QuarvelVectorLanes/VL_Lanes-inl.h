// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What kernels have in common: the loop over the lanes of vectors, work on floats in double precision, and the
// alignment that writing past the cache needs.
//
// Part of vector code: included once for every instruction set.
#include <cstddef>
#include <cstdint>

#include <hwy/highway.h>

#if defined(QUARVEL_VL_LANES_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef QUARVEL_VL_LANES_INL_H
#undef QUARVEL_VL_LANES_INL_H
#else
#define QUARVEL_VL_LANES_INL_H
#endif

HWY_BEFORE_NAMESPACE();
namespace VL::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// The longest vectors hold this many floats.
constexpr std::size_t kMostLanes = 64;
static_assert(hn::MaxLanes(hn::ScalableTag<float>()) <= kMostLanes);

/// Calls body(tag, i) for whole vectors of the tag's lanes, then for the remaining values one by one.
template<typename Lane, typename Body>
HWY_INLINE void forLanes(std::size_t count, const Body& body)
{
    const hn::ScalableTag<Lane> d;
    const hn::CappedTag<Lane, 1> one;
    std::size_t i = 0;
    for (; i + hn::Lanes(d) <= count; i += hn::Lanes(d))
        body(d, i);
    for (; i < count; ++i)
        body(one, i);
}

/// Calls work(d, i) for each vector of doubles that a vector of floats needs, i being the offset of its first float,
/// and joins what they return: a vector with as many Results as the vector has floats.
template<typename Result, class DF, typename Work>
HWY_INLINE auto inDoubles(DF, const Work& work)
{
#if HWY_TARGET == HWY_SCALAR
    return work(hn::Rebind<double, DF>(), 0);
#else
    if constexpr (hn::MaxLanes(DF()) == 1) {
        return work(hn::Rebind<double, DF>(), 0);
    } else {
        const hn::Half<DF> half;
        const hn::Rebind<double, decltype(half)> d;
        const auto lower = work(d, 0);
        const auto upper = work(d, hn::Lanes(half));
        return hn::Combine(hn::Rebind<Result, DF>(), upper, lower);
    }
#endif
}

/// The number of values from `to` on that precede the first vector-aligned address.
template<class D, typename Value>
HWY_INLINE std::size_t untilAligned(D d, const Value* to)
{
    const std::size_t size = hn::Lanes(d) * sizeof(hn::TFromD<D>);
    const std::size_t beyond = reinterpret_cast<std::uintptr_t>(to) % size;
    return beyond == 0 ? 0 : (size - beyond) / sizeof(Value);
}

} // namespace VL::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif // per target
