// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How the two formats store normals, and how a normal that is known in single precision only is converted to a pixel;
// shared by the normals and their smoothing.
//
// Part of vector code: included once for every instruction set.
#include "render/NormalKernels.h"
#include "render/PixelTraits.h"

#include <array>
#include <cstdint>

#include <hwy/highway.h>

#include "QuarvelVectorLanes/VL_Lanes-inl.h"

#if defined(VALLORIN_NORMAL_CODES_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef VALLORIN_NORMAL_CODES_INL_H
#undef VALLORIN_NORMAL_CODES_INL_H
#else
#define VALLORIN_NORMAL_CODES_INL_H
#endif

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
namespace vl = VL::HWY_NAMESPACE;

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

// Double precision has half as many lanes, and its divisions and roots take most of a normal's time. Single precision
// is enough for float channels. 16-bit channels are coarse: single precision nearly always gives the plain formula's
// code, and an error bound tells when that is certain. The plain formula computes the few others. (A. Ziv, "Fast
// evaluation of elementary mathematical functions with correctly rounded last bit", 1991, decides roundings in this
// way.)
//
// The plain formula stores 16384 + floor(m), m = 16383.5 n, except for rounding errors of less than 1e-11 in double
// precision. An estimate of n comes with a bound of its error, in units of u = 2^-24, the largest relative error of an
// operation in single precision; the bound includes the rounding of m.

/// A component estimated in single precision, and the bound of its distance from the plain formula's; the bound is 0
/// where the component is known to be 0.
template<class DF>
struct Estimate
{
    hn::Vec<DF> component;
    hn::Vec<DF> error;
};

/// Estimates of a normal's x and y, and the lanes where they are unusable.
template<class DF>
struct NormalEstimate
{
    Estimate<DF> x;
    Estimate<DF> y;
    hn::Mask<DF> isUseless;
};

/// u, and a little more to cover products of errors.
constexpr float kUnit = 1.01F / 16777216.0F;

/// How 16-bit pixels store normals. Codes are the channels' integers, in 32 bits.
struct Format16
{
    using Pixel = CEL_PixelRGBA16;
    using Code = std::int32_t;
    static constexpr Code kLevel = 16384; ///< a component of 0, encoded

    template<class D>
    using CodeTag = hn::Rebind<Code, D>;

    /// A component as it is stored: the nearest integer, halves away from zero. Adding a half and truncating gives that
    /// for every number in this product's range except the one just below 1/2, which cannot occur: all products near it
    /// are multiples of 32767 / 2^54, and it is not.
    template<class D>
    static HWY_INLINE hn::Vec<CodeTag<D>> encoded(D d, hn::Vec<D> n)
    {
        const auto scaled = hn::Mul(hn::Mul(hn::Add(n, hn::Set(d, 1.0)), hn::Set(d, 0.5)), hn::Set(d, 32767.0));
        const auto rounded = hn::Min(hn::Add(scaled, hn::Set(d, 0.5)), hn::Set(d, 32767.0));
        return hn::DemoteTo(CodeTag<D>(), rounded);
    }

    /// The code of an estimate. Lanes where it is not certain are marked as doubtful.
    template<class DF>
    static HWY_INLINE hn::Vec<CodeTag<DF>> encoded(DF d, const Estimate<DF>& n, hn::Mask<DF>& isDoubtful)
    {
        const CodeTag<DF> dc;
        const auto zero = hn::Zero(d);
        const auto m = hn::Mul(n.component, hn::Set(d, 16383.5F));
        const auto nearest = hn::NearestInt(m);
        const auto beyond = hn::Sub(m, hn::ConvertTo(d, nearest));
        const auto margin = hn::MulAdd(n.error, hn::Set(d, 16384.0F), hn::Set(d, 1e-9F));
        const auto isSloping = hn::Ne(hn::Or(n.component, n.error), zero);
        isDoubtful = hn::Or(isDoubtful, hn::And(hn::Lt(hn::Abs(beyond), margin), isSloping));
        const auto floor = hn::Add(nearest, hn::VecFromMask(dc, hn::RebindMask(dc, hn::Lt(beyond, zero))));
        return hn::Add(floor, hn::Set(dc, 16384));
    }

    /// A stored component in steps of 1 / 32767, which makes it an odd integer.
    template<class DF>
    static HWY_INLINE hn::Vec<DF> readBack(DF d, hn::Vec<CodeTag<DF>> code)
    {
        const CodeTag<DF> dc;
        return hn::ConvertTo(d, hn::Sub(hn::Add(code, code), hn::Set(dc, 32767)));
    }

    /// The square of z, rounded to single precision once.
    template<class DF>
    static HWY_INLINE hn::Vec<DF> squareOfZ(DF d, hn::Vec<DF> x, hn::Vec<DF> y)
    {
        const CodeTag<DF> dc;
        const auto wholeX = hn::ConvertTo(dc, x);
        const auto wholeY = hn::ConvertTo(dc, y);
        const auto across = hn::Add(hn::Mul(wholeX, wholeX), hn::Mul(wholeY, wholeY));
        return hn::ConvertTo(d, hn::Sub(hn::Set(dc, 32767 * 32767), across));
    }

    /// A vector of shares as they are stored: 1 to 32766, truncated.
    template<class DF>
    static HWY_INLINE hn::Vec<CodeTag<DF>> elevation(DF df, const float* share)
    {
        return vl::inDoubles<Code>(df, [&](auto d, std::size_t i) HWY_ATTR {
            const auto wide = hn::PromoteTo(d, hn::LoadU(hn::Rebind<float, decltype(d)>(), share + i));
            const auto scaled = hn::Mul(wide, hn::Set(d, 32765.0));
            return hn::DemoteTo(CodeTag<decltype(d)>(), hn::Add(scaled, hn::Set(d, 1.0)));
        });
    }

    /// Combines two channels in one 32-bit word; the channel in the low half must not be negative.
    template<class D>
    static HWY_INLINE void store(D d, hn::Vec<D> r, hn::Vec<D> g, hn::Vec<D> b, hn::Vec<D> a, Pixel* pixels)
    {
        const auto redGreen = hn::Or(r, hn::ShiftLeft<16>(g));
        const auto blueAlpha = hn::Or(b, hn::ShiftLeft<16>(a));
        hn::StoreInterleaved2(redGreen, blueAlpha, d, reinterpret_cast<std::int32_t*>(pixels));
    }
};

/// How float pixels store normals.
struct FormatFloat
{
    using Pixel = CEL_PixelRGBAFloat;
    using Code = float;
    static constexpr Code kLevel = 0.5F;

    template<class D>
    using CodeTag = hn::Rebind<Code, D>;

    template<class D>
    static HWY_INLINE hn::Vec<CodeTag<D>> encoded(D d, hn::Vec<D> n)
    {
        return hn::DemoteTo(CodeTag<D>(), hn::Mul(hn::Add(n, hn::Set(d, 1.0)), hn::Set(d, 0.5)));
    }

    template<class DF>
    static HWY_INLINE hn::Vec<DF> encoded(DF d, const Estimate<DF>& n, hn::Mask<DF>&)
    {
        return hn::Mul(hn::Add(n.component, hn::Set(d, 1.0F)), hn::Set(d, 0.5F));
    }

    template<class DF>
    static HWY_INLINE hn::Vec<DF> elevation(DF d, const float* share)
    {
        return hn::LoadU(d, share);
    }

    template<class D>
    static HWY_INLINE void store(D d, hn::Vec<D> r, hn::Vec<D> g, hn::Vec<D> b, hn::Vec<D> a, Pixel* pixels)
    {
        hn::StoreInterleaved4(r, g, b, a, d, &pixels->r);
    }
};

/// Red and green of one pixel.
template<class Format>
struct PixelCodes
{
    typename Format::Code r;
    typename Format::Code g;
};

/// Red and green of a vector of pixels.
template<class Format, class DF>
struct Codes
{
    hn::Vec<typename Format::template CodeTag<DF>> r;
    hn::Vec<typename Format::template CodeTag<DF>> g;
};

/// Red and green of one normal, by the plain formula.
template<class Format, class D>
HWY_INLINE PixelCodes<Format> plainCodes(D d, hn::Vec<D> x, hn::Vec<D> y)
{
    return {hn::GetLane(Format::encoded(d, x)), hn::GetLane(Format::encoded(d, y))};
}

/// Red and green of estimates; doubtful lanes get those of plain(lane).
template<class Format, class DF, typename Plain>
HWY_INLINE Codes<Format, DF> codesOf(DF d, const NormalEstimate<DF>& normal, const Plain& plain)
{
    auto isDoubtful = normal.isUseless;
    const auto r = Format::encoded(d, normal.x, isDoubtful);
    const auto g = Format::encoded(d, normal.y, isDoubtful);
    if (HWY_LIKELY(hn::AllFalse(d, isDoubtful)))
        return {r, g};
    const typename Format::template CodeTag<DF> dc;
    std::array<typename Format::Code, vl::kMostLanes> rs;
    std::array<typename Format::Code, vl::kMostLanes> gs;
    std::array<std::uint8_t, vl::kMostLanes / 8> bits{};
    hn::StoreU(r, dc, rs.data());
    hn::StoreU(g, dc, gs.data());
    hn::StoreMaskBits(d, isDoubtful, bits.data());
    for (std::size_t lane = 0; lane < hn::Lanes(d); ++lane)
        if ((bits[lane / 8] >> (lane % 8) & 1) != 0) {
            const PixelCodes<Format> codes = plain(lane);
            rs[lane] = codes.r;
            gs[lane] = codes.g;
        }
    return {hn::LoadU(dc, rs.data()), hn::LoadU(dc, gs.data())};
}

/// Stores a vector of pixels: red and green where kept is set, and the elevation where there is a depth.
template<class Format, class DF>
HWY_INLINE void storePixels(DF d, const Codes<Format, DF>& codes, hn::Mask<DF> kept, hn::Mask<DF> exists,
                            const float* share, typename Format::Pixel* pixels)
{
    const typename Format::template CodeTag<DF> dc;
    const auto full = hn::Set(dc, typename Format::Code{VolumeTraits<typename Format::Pixel>::kFull});
    const auto isKept = hn::RebindMask(dc, kept);
    const auto isThere = hn::RebindMask(dc, exists);
    Format::store(dc, hn::IfThenElseZero(isKept, codes.r), hn::IfThenElseZero(isKept, codes.g),
                  hn::IfThenElse(isThere, Format::elevation(d, share), full), hn::IfThenElseZero(isThere, full),
                  pixels);
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif // per target
