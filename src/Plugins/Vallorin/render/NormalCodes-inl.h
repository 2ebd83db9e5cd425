// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How the two formats hold normals, how runs of them are stored, and how a component that is known in single precision
// alone becomes a channel's value: shared by the normals and their smoothing.
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
    static constexpr Code kLevel = 16384;  ///< a component of 0, encoded
    static constexpr bool kIsExact = true; ///< every code is that of the plain formula

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

    /// Components read back are counted in such steps: then x and y are odd whole numbers.
    static constexpr float kFullLength = 32767.0F;

    template<class DF>
    static HWY_INLINE hn::Vec<DF> readBack(DF d, hn::Vec<CodeTag<DF>> code)
    {
        const CodeTag<DF> dc;
        return hn::ConvertTo(d, hn::Sub(hn::Add(code, code), hn::Set(dc, 32767)));
    }

    /// The squares of z, each rounded to single precision only once.
    static HWY_INLINE void squaresOfZ(const Run<float>& x, const Run<float>& y, std::size_t count, Run<float>& squares)
    {
        forLanes<float>(count, [&](auto d, std::size_t i) HWY_ATTR {
            const hn::RebindToSigned<decltype(d)> d32;
            const auto wholeX = hn::ConvertTo(d32, hn::LoadU(d, x.data() + i));
            const auto wholeY = hn::ConvertTo(d32, hn::LoadU(d, y.data() + i));
            const auto across = hn::Add(hn::Mul(wholeX, wholeX), hn::Mul(wholeY, wholeY));
            const auto rest = hn::Sub(hn::Set(d32, 32767 * 32767), across);
            hn::StoreU(hn::ConvertTo(d, rest), d, squares.data() + i);
        });
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
    static constexpr bool kIsExact = false; ///< single precision is as good as the channels

    template<class D>
    using CodeTag = hn::Rebind<float, D>;

    template<class D>
    static HWY_INLINE auto encoded(D d, hn::Vec<D> n)
    {
        return hn::DemoteTo(CodeTag<D>(), hn::Mul(hn::Add(n, hn::Set(d, 1.0)), hn::Set(d, 0.5)));
    }

    static constexpr float kFullLength = 1.0F;

    template<class DF>
    static HWY_INLINE hn::Vec<DF> readBack(DF d, hn::Vec<DF> code)
    {
        return hn::Sub(hn::Add(code, code), hn::Set(d, 1.0F));
    }

    static HWY_INLINE void squaresOfZ(const Run<float>& x, const Run<float>& y, std::size_t count, Run<float>& squares)
    {
        forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
            const hn::Rebind<float, decltype(d)> df;
            const auto wideX = hn::PromoteTo(d, hn::LoadU(df, x.data() + i));
            const auto wideY = hn::PromoteTo(d, hn::LoadU(df, y.data() + i));
            const auto rest = hn::Sub(hn::Sub(hn::Set(d, 1.0), hn::Mul(wideX, wideX)), hn::Mul(wideY, wideY));
            hn::StoreU(hn::DemoteTo(df, rest), df, squares.data() + i);
        });
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
HWY_INLINE hn::Vec<D> squareOf(D, const Vector3<D>& v)
{
    return hn::Add(hn::Add(hn::Mul(v.x, v.x), hn::Mul(v.y, v.y)), hn::Mul(v.z, v.z));
}

template<class D>
HWY_INLINE hn::Vec<D> lengthOf(D d, const Vector3<D>& v)
{
    return hn::Sqrt(squareOf(d, v));
}

HWY_INLINE DepthRows from(const DepthRows& rows, std::size_t i)
{
    return {rows.above + i, rows.here + i, rows.below + i};
}

// Double precision takes half of the lanes, and its divisions and roots most of a normal's time. Single precision is as
// good as float channels can hold. 16-bit channels are coarse: there it nearly always finds the plain formula's code,
// and it is known when. The few others take the plain formula. (A. Ziv, "Fast evaluation of elementary mathematical
// functions with correctly rounded last bit", 1991, decides roundings so.)
//
// The plain formula stores 16384 + floor(m), m = 16383.5 n, but for roundings of less than 1e-11 in double precision.
// Who estimates n says how far off it may be, in units of u = 2^-24, the largest relative error of an operation in
// single precision, and with the one that m adds.

/// A component estimated in single precision, and how far from the plain formula's it may be; no error at all where the
/// component is known to be 0.
template<class DF>
struct Estimate
{
    hn::Vec<DF> component;
    hn::Vec<DF> error;
};

/// Estimates of a normal's x and y, and where they are good for nothing.
template<class DF>
struct NormalEstimate
{
    Estimate<DF> x;
    Estimate<DF> y;
    hn::Mask<DF> isUseless;
};

/// A little more, so that products of errors are covered.
constexpr float kUnit = 1.01F / 16777216.0F;

/// Codes of estimates, and where they are not certain.
template<class DF>
HWY_INLINE hn::Vec<hn::RebindToSigned<DF>> codesOf(DF d, const Estimate<DF>& estimate, hn::Mask<DF>& isDoubtful)
{
    const hn::RebindToSigned<DF> d32;
    const auto m = hn::Mul(estimate.component, hn::Set(d, 16383.5F));
    const auto distance = hn::Abs(hn::Sub(m, hn::Round(m)));
    const auto margin = hn::Add(hn::Mul(estimate.error, hn::Set(d, 16384.0F)), hn::Set(d, 1e-9F));
    const auto isSloping = hn::Or(hn::Ne(estimate.component, hn::Zero(d)), hn::Ne(estimate.error, hn::Zero(d)));
    isDoubtful = hn::Or(isDoubtful, hn::And(hn::Lt(distance, margin), isSloping));
    return hn::Add(hn::ConvertTo(d32, hn::Floor(m)), hn::Set(d32, 16384));
}

/// What float channels hold of them.
template<class DF>
HWY_INLINE hn::Vec<DF> storedOf(DF d, const Estimate<DF>& estimate)
{
    return hn::Mul(hn::Add(estimate.component, hn::Set(d, 1.0F)), hn::Set(d, 0.5F));
}

/// Stores what a vector of pixels holds of estimates, and says where that is not certain.
template<class DF>
HWY_INLINE hn::Mask<DF> storeCodes(DF d, const NormalEstimate<DF>& normal, std::size_t i, CodeRun<Format16>& codes)
{
    const hn::RebindToSigned<DF> d32;
    auto isDoubtful = normal.isUseless;
    hn::StoreU(codesOf(d, normal.x, isDoubtful), d32, codes.r.data() + i);
    hn::StoreU(codesOf(d, normal.y, isDoubtful), d32, codes.g.data() + i);
    return isDoubtful;
}

template<class DF>
HWY_INLINE hn::Mask<DF> storeCodes(DF d, const NormalEstimate<DF>& normal, std::size_t i, CodeRun<FormatFloat>& codes)
{
    hn::StoreU(storedOf(d, normal.x), d, codes.r.data() + i);
    hn::StoreU(storedOf(d, normal.y), d, codes.g.data() + i);
    return normal.isUseless;
}

/// Calls work(lane) for the lanes of a mask.
template<class DF, typename Work>
HWY_INLINE void forEachOf(DF d, hn::Mask<DF> mask, const Work& work)
{
    if (hn::AllFalse(d, mask))
        return;
    // A bit for each lane of the widest vectors there are.
    std::array<std::uint8_t, 32> bits{};
    hn::StoreMaskBits(d, mask, bits.data());
    for (std::size_t lane = 0; lane < hn::Lanes(d); ++lane)
        if ((bits[lane / 8] >> (lane % 8) & 1) != 0)
            work(lane);
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif // per target
