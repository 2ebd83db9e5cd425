// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Of the normals' cross products only what is not known beforehand is computed:
//
//     (2, 0, across) x (0, 2, down)      = 2 (-across, -down, 2)
//     (2, 2, falling) x (-2, 2, rising)  = 2 (rising - falling, -(rising + falling), 4)
//
// The factor 2 goes when the vector is normalised, and so do the halves of the mean of two normals. Factors of 2 are
// exact in every operation, so the results are those of the full vectors, to the last bit.
#include "render/NormalKernels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/NormalKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "render/NormalCodes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

template<class D>
HWY_INLINE Vector3<D> unitOf(D d, const Vector3<D>& v)
{
    const auto length = lengthOf(d, v);
    return {hn::Div(v.x, length), hn::Div(v.y, length), hn::Div(v.z, length)};
}

template<class D>
HWY_INLINE Vector3<D> sumOf(D, const Vector3<D>& a, const Vector3<D>& b)
{
    return {hn::Add(a.x, b.x), hn::Add(a.y, b.y), hn::Add(a.z, b.z)};
}

/// Differences of opposite neighbours, in float as depths are stored.
template<class DF>
struct Differences
{
    hn::Vec<DF> first;
    hn::Vec<DF> second;
    hn::Mask<DF> exist; ///< where all four neighbours are there
};

template<class DF>
HWY_INLINE Differences<DF> differencesOf(DF d, const float* a, const float* b, const float* c, const float* e)
{
    const auto zero = hn::Zero(d);
    const auto va = hn::LoadU(d, a);
    const auto vb = hn::LoadU(d, b);
    const auto vc = hn::LoadU(d, c);
    const auto ve = hn::LoadU(d, e);
    const auto exist =
        hn::And(hn::And(hn::Ne(va, zero), hn::Ne(vb, zero)), hn::And(hn::Ne(vc, zero), hn::Ne(ve, zero)));
    return {hn::Sub(vb, va), hn::Sub(ve, vc), exist};
}

/// Right - left and below - above, which are zero where one of them is black: a level place stores the same x and y as
/// the zero normal.
template<class DF>
HWY_INLINE Differences<DF> axisDifferences(DF d, const DepthRows& z, std::size_t i)
{
    const Differences<DF> axes = differencesOf(d, z.here + i - 1, z.here + i + 1, z.above + i, z.below + i);
    return {hn::IfThenElseZero(axes.exist, axes.first), hn::IfThenElseZero(axes.exist, axes.second), axes.exist};
}

/// Falling: below right - above left, and rising: below left - above right.
template<class DF>
HWY_INLINE Differences<DF> diagonalDifferences(DF d, const DepthRows& z, std::size_t i)
{
    return differencesOf(d, z.above + i - 1, z.below + i + 1, z.above + i + 1, z.below + i - 1);
}

/// The vector (-across, -down, 2).
template<class D>
HWY_INLINE Vector3<D> axisVector(D d, hn::Vec<D> across, hn::Vec<D> down)
{
    return {hn::Neg(across), hn::Neg(down), hn::Set(d, 2)};
}

/// The vector (rising - falling, -(rising + falling), 4).
template<class D>
HWY_INLINE Vector3<D> diagonalVector(D d, hn::Vec<D> falling, hn::Vec<D> rising)
{
    return {hn::Sub(rising, falling), hn::Neg(hn::Add(rising, falling)), hn::Set(d, 4)};
}

/// A mask of floats gets as wide as doubles the way floats do.
template<class D, class MF>
HWY_INLINE hn::Mask<D> widened(D d, MF mask)
{
    const hn::Rebind<float, D> df;
    return hn::Ne(hn::PromoteTo(d, hn::IfThenElseZero(mask, hn::Set(df, 1.0F))), hn::Zero(d));
}

/// The plain formula, in double precision.
template<bool kDiagonals, class D>
HWY_INLINE Vector3<D> normalAt(D d, const DepthRows& depth, std::size_t i)
{
    const hn::Rebind<float, D> df;
    const auto axes = axisDifferences(df, depth, i);
    const auto first = unitOf(d, axisVector(d, hn::PromoteTo(d, axes.first), hn::PromoteTo(d, axes.second)));
    if constexpr (kDiagonals) {
        const auto diagonals = diagonalDifferences(df, depth, i);
        const auto second =
            unitOf(d, diagonalVector(d, hn::PromoteTo(d, diagonals.first), hn::PromoteTo(d, diagonals.second)));
        const auto mean = unitOf(d, sumOf(d, first, second));
        const auto isMean = widened(d, hn::And(axes.exist, diagonals.exist));
        return {hn::IfThenElse(isMean, mean.x, first.x), hn::IfThenElse(isMean, mean.y, first.y), mean.z};
    } else {
        return first;
    }
}

/// Red and green of the pixels from first on, by the plain formula.
template<class Format, bool kDiagonals>
HWY_INLINE void encodePlainly(const DepthRows& depth, std::size_t first, std::size_t count, CodeRun<Format>& codes)
{
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<typename Format::Code, decltype(d)> dc;
        const auto normal = normalAt<kDiagonals>(d, depth, first + i);
        hn::StoreU(Format::encoded(d, normal.x), dc, codes.r.data() + first + i);
        hn::StoreU(Format::encoded(d, normal.y), dc, codes.g.data() + first + i);
    });
}

/// Slopes whose squares single precision might not hold.
template<class DF>
HWY_INLINE hn::Mask<DF> isHuge(DF d, const Vector3<DF>& v)
{
    return hn::Gt(hn::Max(hn::Abs(v.x), hn::Abs(v.y)), hn::Set(d, 1e15F));
}

/// A vector times the inverse of its length.
template<class DF>
HWY_INLINE Vector3<DF> nearlyUnit(DF d, const Vector3<DF>& v, hn::Vec<DF>& inverse)
{
    inverse = hn::Div(hn::Set(d, 1.0F), lengthOf(d, v));
    return {hn::Mul(v.x, inverse), hn::Mul(v.y, inverse), hn::Mul(v.z, inverse)};
}

/// Estimates of x and y, and where they are good for nothing.
template<bool kDiagonals, class DF>
HWY_INLINE hn::Mask<DF> estimate(DF d, const DepthRows& depth, std::size_t i, Estimate<DF>& x, Estimate<DF>& y)
{
    const auto axes = axisDifferences(d, depth, i);
    const auto axis = axisVector(d, axes.first, axes.second);
    hn::Vec<DF> inverse;
    const auto first = nearlyUnit(d, axis, inverse);
    const auto alone = hn::Set(d, 8 * kUnit);
    x = {first.x, hn::Mul(alone, hn::Abs(first.x))};
    y = {first.y, hn::Mul(alone, hn::Abs(first.y))};
    if constexpr (kDiagonals) {
        const auto diagonals = diagonalDifferences(d, depth, i);
        const auto diagonal = diagonalVector(d, diagonals.first, diagonals.second);
        const auto second = nearlyUnit(d, diagonal, inverse);
        const auto mean = nearlyUnit(d, sumOf(d, first, second), inverse);
        const auto a = hn::Mul(hn::Add(hn::Abs(first.x), hn::Abs(second.x)), inverse);
        const auto b = hn::Mul(hn::Add(hn::Abs(first.y), hn::Abs(second.y)), inverse);
        const auto unit = hn::Set(d, 8 * kUnit);
        const auto aroundBoth = hn::Add(hn::Add(a, b), hn::Set(d, 2.0F));
        const auto isMean = hn::And(axes.exist, diagonals.exist);
        const auto errorOf = [&](auto own, auto component) HWY_ATTR {
            return hn::Mul(unit, hn::Add(own, hn::Mul(hn::Abs(component), aroundBoth)));
        };
        x = {hn::IfThenElse(isMean, mean.x, x.component), hn::IfThenElse(isMean, errorOf(a, mean.x), x.error)};
        y = {hn::IfThenElse(isMean, mean.y, y.component), hn::IfThenElse(isMean, errorOf(b, mean.y), y.error)};
        return hn::Or(isHuge(d, axis), isHuge(d, diagonal));
    } else {
        return isHuge(d, axis);
    }
}

/// Whether there is no slope at all: then both components are 0.
template<bool kDiagonals, class DF>
HWY_INLINE bool isLevel(DF d, const DepthRows& depth, std::size_t i)
{
    const auto zero = hn::Zero(d);
    const auto axes = axisDifferences(d, depth, i);
    if (!hn::AllTrue(d, hn::And(hn::Eq(axes.first, zero), hn::Eq(axes.second, zero))))
        return false;
    if constexpr (kDiagonals) {
        const auto diagonals = diagonalDifferences(d, depth, i);
        return hn::AllTrue(d, hn::And(hn::Eq(diagonals.first, zero), hn::Eq(diagonals.second, zero)));
    } else {
        return true;
    }
}

/// Red and green of one vector of pixels, from i on.
template<bool kDiagonals, class DF>
HWY_INLINE void encodeSlope(DF d, const DepthRows& depth, std::size_t i, CodeRun<Format16>& codes)
{
    const hn::RebindToSigned<DF> d32;
    Estimate<DF> x;
    Estimate<DF> y;
    auto isDoubtful = estimate<kDiagonals>(d, depth, i, x, y);
    hn::StoreU(codesOf(d, x, isDoubtful), d32, codes.r.data() + i);
    hn::StoreU(codesOf(d, y, isDoubtful), d32, codes.g.data() + i);
    if (!hn::AllFalse(d, isDoubtful))
        encodePlainly<Format16, kDiagonals>(depth, i, hn::Lanes(d), codes);
}

template<bool kDiagonals, class DF>
HWY_INLINE void encodeSlope(DF d, const DepthRows& depth, std::size_t i, CodeRun<FormatFloat>& codes)
{
    encodePlainly<FormatFloat, kDiagonals>(depth, i, hn::Lanes(d), codes);
}

/// Red and green of a run of pixels.
template<bool kDiagonals, class Format>
HWY_INLINE void encodeRun(const DepthRows& depth, std::size_t count, CodeRun<Format>& codes)
{
    const hn::ScalableTag<float> d;
    const hn::Rebind<typename Format::Code, hn::ScalableTag<float>> dc;
    const auto level = hn::Set(dc, Format::kLevel);
    const std::size_t step = hn::Lanes(d);
    std::size_t i = 0;
    for (; i + step <= count; i += step) {
        if (isLevel<kDiagonals>(d, depth, i)) {
            hn::StoreU(level, dc, codes.r.data() + i);
            hn::StoreU(level, dc, codes.g.data() + i);
        } else {
            encodeSlope<kDiagonals>(hn::ScalableTag<float>(), depth, i, codes);
        }
    }
    encodePlainly<Format, kDiagonals>(depth, i, count - i, codes);
}

template<class Format, bool kDiagonals>
HWY_INLINE void storeRow(const DepthRows& depth, const float* share, std::span<typename Format::Pixel> pixels)
{
    CodeRun<Format> codes;
    const auto whereThereIsDepth = [](auto, std::size_t, auto exists) HWY_ATTR { return exists; };
    forRuns(pixels.size(), [&](std::size_t first, std::size_t count) HWY_ATTR {
        encodeRun<kDiagonals>(from(depth, first), count, codes);
        storeRun<Format>(codes, depth.here + first, share + first, count, pixels.data() + first, whereThereIsDepth);
    });
}

void storeNormals16(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBA16> pixels)
{
    if (diagonals)
        storeRow<Format16, true>(depth, share, pixels);
    else
        storeRow<Format16, false>(depth, share, pixels);
}

void storeNormalsFloat(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBAFloat> pixels)
{
    if (diagonals)
        storeRow<FormatFloat, true>(depth, share, pixels);
    else
        storeRow<FormatFloat, false>(depth, share, pixels);
}

template<class Format>
HWY_INLINE void decodeRun(const CodeRun<Format>& codes, const float* depth, std::size_t count, const NormalRow& normals)
{
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        const hn::Rebind<typename Format::Code, decltype(d)> dc;
        const auto exists = hn::Ne(hn::PromoteTo(d, hn::LoadU(df, depth + i)), hn::Zero(d));
        const auto x = Format::decoded(d, hn::LoadU(dc, codes.r.data() + i));
        const auto y = Format::decoded(d, hn::LoadU(dc, codes.g.data() + i));
        const auto rest = hn::Sub(hn::Sub(hn::Set(d, 1.0), hn::Mul(x, x)), hn::Mul(y, y));
        hn::StoreU(hn::IfThenElseZero(exists, x), d, normals.x + i);
        hn::StoreU(hn::IfThenElseZero(exists, y), d, normals.y + i);
        hn::StoreU(hn::IfThenElseZero(exists, hn::Sqrt(hn::Max(rest, hn::Zero(d)))), d, normals.z + i);
    });
}

template<class Format>
HWY_INLINE void readBackRow(const DepthRows& depth, std::size_t count, const NormalRow& normals)
{
    CodeRun<Format> codes;
    forRuns(count, [&](std::size_t first, std::size_t some) HWY_ATTR {
        encodeRun<true>(from(depth, first), some, codes);
        decodeRun<Format>(codes, depth.here + first, some, {normals.x + first, normals.y + first, normals.z + first});
    });
}

void readBack16(const DepthRows& depth, std::size_t count, const NormalRow& normals)
{
    readBackRow<Format16>(depth, count, normals);
}

void readBackFloat(const DepthRows& depth, std::size_t count, const NormalRow& normals)
{
    readBackRow<FormatFloat>(depth, count, normals);
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace VolumeRowKernels {

HWY_EXPORT(storeNormals16);
HWY_EXPORT(storeNormalsFloat);
HWY_EXPORT(readBack16);
HWY_EXPORT(readBackFloat);

void storeNormals(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBA16> pixels)
{
    HWY_DYNAMIC_DISPATCH(storeNormals16)(depth, diagonals, share, pixels);
}

void storeNormals(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBAFloat> pixels)
{
    HWY_DYNAMIC_DISPATCH(storeNormalsFloat)(depth, diagonals, share, pixels);
}

void readBackNormals16(const DepthRows& depth, std::size_t count, const NormalRow& normals)
{
    HWY_DYNAMIC_DISPATCH(readBack16)(depth, count, normals);
}

void readBackNormalsFloat(const DepthRows& depth, std::size_t count, const NormalRow& normals)
{
    HWY_DYNAMIC_DISPATCH(readBackFloat)(depth, count, normals);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
