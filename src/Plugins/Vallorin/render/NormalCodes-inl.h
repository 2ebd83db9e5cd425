// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How the two formats hold normals, how runs of them are stored, and how a component that is known in single precision
// alone becomes a code: shared by the normals and their smoothing.
//
// Part of vector code: included once for every instruction set.
#include "render/NormalKernels.h"
#include "render/PixelTraits.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include <hwy/highway.h>

#include "render/KernelLanes-inl.h"

#if defined(VALLORIN_NORMAL_CODES_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef VALLORIN_NORMAL_CODES_INL_H
#undef VALLORIN_NORMAL_CODES_INL_H
#else
#define VALLORIN_NORMAL_CODES_INL_H
#endif

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// Rows are worked on in runs of so many pixels, so that what is in between stays in the first-level cache.
constexpr std::size_t kRun = 256;

template<typename Value>
using Run = std::array<Value, kRun>;

/// Calls work(i, count) for runs of a row.
template<typename Work>
HWY_INLINE void forRuns(std::size_t count, const Work& work)
{
    for (std::size_t i = 0; i < count; i += kRun)
        work(i, std::min(kRun, count - i));
}

/// How 16-bit pixels hold normals. Codes are the channels' integers, in 32 bits.
struct Format16
{
    using Pixel = CEL_PixelRGBA16;
    using Code = std::int32_t;
    static constexpr Code kLevel = 16384; ///< a component of 0, encoded

    template<class D>
    using CodeTag = hn::Rebind<Code, D>;

    /// VolumeTraits::component.
    template<class D>
    static HWY_INLINE auto encoded(D d, hn::Vec<D> n)
    {
        const auto scaled = hn::Mul(hn::Mul(hn::Add(n, hn::Set(d, 1.0)), hn::Set(d, 0.5)), hn::Set(d, 32767.0));
        const auto rounded = hn::Min(hn::Add(scaled, hn::Set(d, 0.5)), hn::Set(d, 32767.0));
        return hn::DemoteTo(CodeTag<D>(), rounded);
    }

    /// A component as NormalParser reads it: twice the code by 32767, less 1. Without a division: the product with the
    /// inverse is corrected by what it leaves. That remainder, twice - 32768 q + q, comes out exactly, as each
    /// difference is one of numbers less than a factor of 2 apart; and no such quotient lies so near to the middle of
    /// two doubles that the correction's own rounding could matter.
    template<class D>
    static HWY_INLINE hn::Vec<D> decoded(D d, hn::Vec<CodeTag<D>> code)
    {
        const auto inverse = hn::Set(d, 1.0 / 32767.0);
        const auto twice = hn::Mul(hn::Set(d, 2.0), hn::PromoteTo(d, code));
        const auto q = hn::Mul(twice, inverse);
        const auto remainder = hn::Add(hn::Sub(twice, hn::Mul(q, hn::Set(d, 32768.0))), q);
        return hn::Sub(hn::Add(q, hn::Mul(remainder, inverse)), hn::Set(d, 1.0));
    }

    /// VolumeTraits::storedElevation.
    template<class D>
    static HWY_INLINE auto elevation(D d, hn::Vec<hn::Rebind<float, D>> share)
    {
        const auto scaled = hn::Mul(hn::PromoteTo(d, share), hn::Set(d, 32765.0));
        return hn::DemoteTo(CodeTag<D>(), hn::Add(scaled, hn::Set(d, 1.0)));
    }

    /// Two channels make one 32-bit word: those in the low half are not negative.
    template<class D>
    static HWY_INLINE void store(D d, hn::Vec<D> r, hn::Vec<D> g, hn::Vec<D> b, hn::Vec<D> a, Pixel* pixels)
    {
        const auto redGreen = hn::Or(r, hn::ShiftLeft<16>(g));
        const auto blueAlpha = hn::Or(b, hn::ShiftLeft<16>(a));
        hn::StoreInterleaved2(redGreen, blueAlpha, d, reinterpret_cast<std::int32_t*>(pixels));
    }
};

/// How float pixels do.
struct FormatFloat
{
    using Pixel = CEL_PixelRGBAFloat;
    using Code = float;
    static constexpr Code kLevel = 0.5F;

    template<class D>
    using CodeTag = hn::Rebind<float, D>;

    template<class D>
    static HWY_INLINE auto encoded(D d, hn::Vec<D> n)
    {
        return hn::DemoteTo(CodeTag<D>(), hn::Mul(hn::Add(n, hn::Set(d, 1.0)), hn::Set(d, 0.5)));
    }

    template<class D>
    static HWY_INLINE hn::Vec<D> decoded(D d, hn::Vec<CodeTag<D>> code)
    {
        return hn::Sub(hn::Mul(hn::Set(d, 2.0), hn::PromoteTo(d, code)), hn::Set(d, 1.0));
    }

    template<class D>
    static HWY_INLINE auto elevation(D, hn::Vec<CodeTag<D>> share)
    {
        return share;
    }

    template<class D>
    static HWY_INLINE void store(D d, hn::Vec<D> r, hn::Vec<D> g, hn::Vec<D> b, hn::Vec<D> a, Pixel* pixels)
    {
        hn::StoreInterleaved4(r, g, b, a, d, &pixels->r);
    }
};

/// Red and green of a run of pixels, as they are stored.
template<class Format>
struct CodeRun
{
    Run<typename Format::Code> r;
    Run<typename Format::Code> g;
};

/// Stores a run. Red and green are kept where keeps(d, i) says so, and 0 elsewhere.
template<class Format, typename Keeps>
HWY_INLINE void storeRun(const CodeRun<Format>& codes, const float* depth, const float* share, std::size_t count,
                         typename Format::Pixel* pixels, const Keeps& keeps)
{
    using Code = typename Format::Code;
    Run<Code> elevations;
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        const hn::Rebind<Code, decltype(d)> dc;
        hn::StoreU(Format::elevation(d, hn::LoadU(df, share + i)), dc, elevations.data() + i);
    });
    forLanes<Code>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        const auto exists = hn::RebindMask(d, hn::Ne(hn::LoadU(df, depth + i), hn::Zero(df)));
        const auto kept = keeps(d, i, exists);
        const auto full = hn::Set(d, Code{VolumeTraits<typename Format::Pixel>::kFull});
        Format::store(d, hn::IfThenElseZero(kept, hn::LoadU(d, codes.r.data() + i)),
                      hn::IfThenElseZero(kept, hn::LoadU(d, codes.g.data() + i)),
                      hn::IfThenElse(exists, hn::LoadU(d, elevations.data() + i), full),
                      hn::IfThenElseZero(exists, full), pixels + i);
    });
}

template<class D>
struct Vector3
{
    hn::Vec<D> x;
    hn::Vec<D> y;
    hn::Vec<D> z;
};

template<class D>
HWY_INLINE hn::Vec<D> lengthOf(D, const Vector3<D>& v)
{
    return hn::Sqrt(hn::Add(hn::Add(hn::Mul(v.x, v.x), hn::Mul(v.y, v.y)), hn::Mul(v.z, v.z)));
}

HWY_INLINE DepthRows from(const DepthRows& rows, std::size_t i)
{
    return {rows.above + i, rows.here + i, rows.below + i};
}

// Double precision takes half of the lanes, and its divisions and roots most of a normal's time. 16-bit channels are
// coarse: single precision nearly always finds the same code, and it is known when. The few others take the plain
// formula. (A. Ziv, "Fast evaluation of elementary mathematical functions with correctly rounded last bit", 1991,
// decides roundings so.)
//
// The plain formula stores 16384 + floor(m), m = 16383.5 n, but for roundings of less than 1e-11 in double precision.
// Let u = 2^-24 be the largest relative error of an operation in single precision, and v a vector as axisVector() and
// diagonalVector() make it. Its components have an error of u at most, its squared length of 5 u, its length's inverse
// of 4.5 u, and so the components of its unit vector, of 6.5 u. Let a be the sum of both unit vectors' absolute
// components in x, b in y, and c in z, and L their sum's length. The sum's components are off by 7.5 u a, 7.5 u b and
// 7.5 u c at most, L by 7.5 u (a + b + c) and a few u of its own, hence n by no more than
//
//     7.5 u a / L + |n| 7.5 u (a + b + c) / L + 5 u |n|,     and c <= L.
//
// One unit vector alone is within 6.5 u |n|, m adds 1 u. What is checked below is a little wider.

/// A component estimated in single precision, and how far from the plain formula's it may be.
template<class DF>
struct Estimate
{
    hn::Vec<DF> component;
    hn::Vec<DF> error;
};

constexpr float kUnit = 1.0F / 16777216.0F;

/// Codes of estimates, and where they are not certain.
template<class DF>
HWY_INLINE hn::Vec<hn::RebindToSigned<DF>> codesOf(DF d, const Estimate<DF>& estimate, hn::Mask<DF>& isDoubtful)
{
    const hn::RebindToSigned<DF> d32;
    const auto m = hn::Mul(estimate.component, hn::Set(d, 16383.5F));
    const auto whole = hn::Floor(m);
    const auto fraction = hn::Sub(m, whole);
    const auto margin = hn::Add(hn::Mul(estimate.error, hn::Set(d, 16384.0F)), hn::Set(d, 1e-9F));
    const auto isClose = hn::Or(hn::Lt(fraction, margin), hn::Ge(fraction, hn::Sub(hn::Set(d, 1.0F), margin)));
    // What is level is exactly that in both precisions, if it is not two slopes that cancel each other out.
    const auto isSloping = hn::Or(hn::Ne(estimate.component, hn::Zero(d)), hn::Ne(estimate.error, hn::Zero(d)));
    isDoubtful = hn::Or(isDoubtful, hn::And(isClose, isSloping));
    return hn::Add(hn::ConvertTo(d32, whole), hn::Set(d32, 16384));
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif // per target
