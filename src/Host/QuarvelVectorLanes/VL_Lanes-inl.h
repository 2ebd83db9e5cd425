// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What kernels have in common: the loop over the lanes of vectors, work on floats in double precision, and where whole
// vectors can be written past the cache.
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

/// The longest vectors hold so many floats.
constexpr std::size_t kMostLanes = 64;
static_assert(hn::MaxLanes(hn::ScalableTag<float>()) <= kMostLanes);

/// Calls body(tag, i) for whole vectors of the tag's lanes, then for what is left one by one.
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

/// What work(d, i) makes of the floats from i on, which are as many as a vector of doubles has: a vector of Results for
/// as many floats as one has.
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

/// How many values there are from `to` on before an address that is a multiple of a vector's size.
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
