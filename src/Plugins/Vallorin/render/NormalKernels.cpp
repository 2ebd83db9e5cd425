// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Only the unknown terms of the normals' cross products are computed:
//
//     (2, 0, across) x (0, 2, down)      = 2 (-across, -down, 2)
//     (2, 2, falling) x (-2, 2, rising)  = 2 (rising - falling, -(rising + falling), 4)
//
// Normalising a vector cancels the factor 2, and the halves in the mean of two normals. Factors of 2 are exact in every
// operation, so the results are those of the full vectors, to the last bit.
#include "render/NormalKernels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/NormalKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "render/NormalCodes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
namespace vl = VL::HWY_NAMESPACE;

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

/// Differences of opposite neighbours, in the precision of the stored depths.
template<class DF>
struct Differences
{
    hn::Vec<DF> first;
    hn::Vec<DF> second;
    hn::Mask<DF> exist; ///< where all four neighbours have a depth
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

/// Right - left and below - above, or zeros where a neighbour is black: a level place stores the same x and y as the
/// zero normal.
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

/// A mask of floats, widened to doubles.
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

/// Red and green of one pixel, by the plain formula.
template<class Format, bool kDiagonals>
HWY_NOINLINE PixelCodes<Format> plainCodesAt(const DepthRows& depth, std::size_t i)
{
    const hn::CappedTag<double, 1> d;
    const auto normal = normalAt<kDiagonals>(d, depth, i);
    return plainCodes<Format>(d, normal.x, normal.y);
}

/// Slopes whose squares may overflow single precision.
template<class DF>
HWY_INLINE hn::Mask<DF> isHuge(DF d, const Vector3<DF>& v)
{
    return hn::Gt(hn::Max(hn::Abs(v.x), hn::Abs(v.y)), hn::Set(d, 1e15F));
}

// The axes' vector is exact. Its squared length is off by 3 u, the inverse of its length by 3.5 u, a component of the
// unit vector by 4.5 u.
template<class DF>
HWY_INLINE NormalEstimate<DF> estimateOfAxes(DF d, const Vector3<DF>& axis)
{
    const auto inverse = hn::Div(hn::Set(d, 1.0F), lengthOf(d, axis));
    const auto unit = hn::Set(d, 5.5F * kUnit);
    const auto estimateOf = [&](auto component) HWY_ATTR {
        const auto n = hn::Mul(component, inverse);
        return Estimate<DF>{n, hn::Mul(unit, hn::Abs(n))};
    };
    return {estimateOf(axis.x), estimateOf(axis.y), isHuge(d, axis)};
}

// The mean of two unit vectors has the direction of S = r a + b with r = |b| / |a|, which takes fewer roots and
// divisions. Let a be the axes' vector and b the diagonals', whose components are off by u, and hence its squared
// length by 5 u: r is off by 5.5 u, a component of S by 6.5 u |r a_x| + u |b_x| + u |S_x|, and S, as |r a| = |b|, by
// 7.5 u |b| + u |S|. Its length's inverse adds 3.5 u to that, and the product with it u:
//
//     |error of n_x| <= u (6.5 |r a_x| + |b_x|) / |S| + u |n_x| (7.5 |b| / |S| + 6.5).
//
// |b| / |S| is at most q + 1/4, q = |b|^2 / |S|^2. Where two vectors nearly cancel each other out, the error dominates,
// and float channels would show it.
template<class DF>
HWY_INLINE NormalEstimate<DF> estimateOfMean(DF d, const Vector3<DF>& axis, const Vector3<DF>& diagonal,
                                             hn::Mask<DF> isMean)
{
    const auto square = squareOf(d, diagonal);
    const auto ratio = hn::Sqrt(hn::Div(square, squareOf(d, axis)));
    const auto turned = hn::IfThenElse(isMean, ratio, hn::Set(d, 1.0F));
    const auto added = [&](auto component) HWY_ATTR { return hn::IfThenElseZero(isMean, component); };
    const Vector3<DF> a{hn::Mul(axis.x, turned), hn::Mul(axis.y, turned), hn::Mul(axis.z, turned)};
    const Vector3<DF> b{added(diagonal.x), added(diagonal.y), added(diagonal.z)};
    const Vector3<DF> sum{hn::Add(a.x, b.x), hn::Add(a.y, b.y), hn::Add(a.z, b.z)};
    const auto inverse = hn::Div(hn::Set(d, 1.0F), lengthOf(d, sum));
    const auto q = hn::Mul(hn::Mul(added(square), inverse), inverse);
    const auto ofLength = hn::MulAdd(hn::Set(d, 7.5F * kUnit), q, hn::Set(d, (7.5F * 0.25F + 7.5F) * kUnit));
    const auto estimateOf = [&](auto first, auto second, auto whole) HWY_ATTR {
        const auto n = hn::Mul(whole, inverse);
        const auto own = hn::MulAdd(hn::Set(d, 6.5F), hn::Abs(first), hn::Abs(second));
        const auto ofOwn = hn::Mul(hn::Mul(own, inverse), hn::Set(d, kUnit));
        return Estimate<DF>{n, hn::MulAdd(hn::Abs(n), ofLength, ofOwn)};
    };
    const auto nearlyCancels = hn::Gt(q, hn::Set(d, 4.0F));
    return {estimateOf(a.x, b.x, sum.x), estimateOf(a.y, b.y, sum.y),
            hn::Or(nearlyCancels, hn::Or(isHuge(d, axis), isHuge(d, diagonal)))};
}

/// The differences that a normal is computed from.
template<class DF>
struct Slopes
{
    Differences<DF> axes;
    Differences<DF> diagonals;
};

template<bool kDiagonals, class DF>
HWY_INLINE Slopes<DF> slopesAt(DF d, const DepthRows& depth, std::size_t i)
{
    const auto axes = axisDifferences(d, depth, i);
    if constexpr (kDiagonals)
        return {axes, diagonalDifferences(d, depth, i)};
    else
        return {axes, {hn::Zero(d), hn::Zero(d), hn::MaskFromVec(hn::Zero(d))}};
}

/// Whether a vector of pixels has no slope at all: then both components are 0.
template<class DF>
HWY_INLINE bool isLevel(DF d, const Slopes<DF>& slopes)
{
    const auto either = hn::Or(hn::Ne(slopes.axes.first, hn::Zero(d)), hn::Ne(slopes.axes.second, hn::Zero(d)));
    const auto diagonal =
        hn::Or(hn::Ne(slopes.diagonals.first, hn::Zero(d)), hn::Ne(slopes.diagonals.second, hn::Zero(d)));
    return hn::AllFalse(d, hn::Or(either, diagonal));
}

template<bool kDiagonals, class DF>
HWY_INLINE NormalEstimate<DF> estimateOf(DF d, const Slopes<DF>& slopes)
{
    const auto axis = axisVector(d, slopes.axes.first, slopes.axes.second);
    if constexpr (kDiagonals)
        return estimateOfMean(d, axis, diagonalVector(d, slopes.diagonals.first, slopes.diagonals.second),
                              hn::And(slopes.axes.exist, slopes.diagonals.exist));
    else
        return estimateOfAxes(d, axis);
}

/// Red and green of a vector of pixels, from pixel i on.
template<class Format, bool kDiagonals, class DF>
HWY_INLINE Codes<Format, DF> codesAt(DF d, const DepthRows& depth, std::size_t i)
{
    const auto slopes = slopesAt<kDiagonals>(d, depth, i);
    if (isLevel(d, slopes)) {
        const auto level = hn::Set(typename Format::template CodeTag<DF>(), Format::kLevel);
        return {level, level};
    }
    return codesOf<Format>(d, estimateOf<kDiagonals>(d, slopes), [&](std::size_t lane) HWY_ATTR {
        return plainCodesAt<Format, kDiagonals>(depth, i + lane);
    });
}

template<class Format, bool kDiagonals>
HWY_INLINE void storeNormalsRow(const DepthRows& depth, const float* share, std::span<typename Format::Pixel> pixels)
{
    vl::forLanes<float>(pixels.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const auto exists = hn::Ne(hn::LoadU(d, depth.here + i), hn::Zero(d));
        storePixels<Format>(d, codesAt<Format, kDiagonals>(d, depth, i), exists, exists, share + i, &pixels[i]);
    });
}

void storeNormals16(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBA16> pixels)
{
    if (diagonals)
        storeNormalsRow<Format16, true>(depth, share, pixels);
    else
        storeNormalsRow<Format16, false>(depth, share, pixels);
}

void storeNormalsFloat(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBAFloat> pixels)
{
    if (diagonals)
        storeNormalsRow<FormatFloat, true>(depth, share, pixels);
    else
        storeNormalsRow<FormatFloat, false>(depth, share, pixels);
}

// Every existing normal gets a z above 0, if only a tiny one, so that the sum of the z tells whether there are any.

void readBackNormals16(const DepthRows& depth, std::size_t count, const NormalRow<float>& normals)
{
    vl::forLanes<float>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const auto exists = hn::Ne(hn::LoadU(d, depth.here + i), hn::Zero(d));
        const auto codes = codesAt<Format16, true>(d, depth, i);
        const auto x = Format16::readBack(d, codes.r);
        const auto y = Format16::readBack(d, codes.g);
        const auto z = hn::Sqrt(hn::Max(Format16::squareOfZ(d, x, y), hn::Set(d, 1e-20F)));
        hn::StoreU(hn::IfThenElseZero(exists, x), d, normals.x + i);
        hn::StoreU(hn::IfThenElseZero(exists, y), d, normals.y + i);
        hn::StoreU(hn::IfThenElseZero(exists, z), d, normals.z + i);
    });
}

/// x and y as a float pixel stores them, for one vector of doubles.
template<class D>
struct StoredFloats
{
    hn::Vec<hn::Rebind<float, D>> x;
    hn::Vec<hn::Rebind<float, D>> y;
};

/// The same by the plain formula.
template<class D>
HWY_NOINLINE StoredFloats<D> plainStoredFloats(D d, const DepthRows& depth, std::size_t i)
{
    const auto normal = normalAt<true>(d, depth, i);
    return {FormatFloat::encoded(d, normal.x), FormatFloat::encoded(d, normal.y)};
}

/// The same, mostly with one division instead of eight. The sum of two unit vectors a / |a| + b / |b| has the direction
/// of a |b| + b |a|, whose components are off by at most 8 u |a| |b|, with u = 2^-53; the error of the plain formula's
/// sum has the same bound. Normalising adds 8 u to both and its share of |a| |b|, and the encoding u. The plain formula
/// decides only where twice the sum of these leaves two floats open.
template<class D>
HWY_INLINE StoredFloats<D> storedFloats(D d, const DepthRows& depth, std::size_t i)
{
    constexpr double kUnitOfDoubles = 1.0 / 9007199254740992.0;
    const hn::Rebind<float, D> df;
    const auto axes = axisDifferences(df, depth, i);
    const auto diagonals = diagonalDifferences(df, depth, i);
    const auto axis = axisVector(d, hn::PromoteTo(d, axes.first), hn::PromoteTo(d, axes.second));
    const auto diagonal = diagonalVector(d, hn::PromoteTo(d, diagonals.first), hn::PromoteTo(d, diagonals.second));
    const auto one = hn::Set(d, 1.0);
    const auto isMean = widened(d, hn::And(axes.exist, diagonals.exist));
    const auto ofAxis = hn::IfThenElse(isMean, lengthOf(d, diagonal), one);
    const auto ofDiagonal = hn::IfThenElseZero(isMean, lengthOf(d, axis));
    const auto mixed = [&](auto a, auto b) HWY_ATTR { return hn::Add(hn::Mul(a, ofAxis), hn::Mul(b, ofDiagonal)); };
    const Vector3<D> sum{mixed(axis.x, diagonal.x), mixed(axis.y, diagonal.y), mixed(axis.z, diagonal.z)};
    const auto inverse = hn::Div(one, lengthOf(d, sum));
    const auto amplified = hn::Mul(hn::Mul(ofAxis, ofDiagonal), inverse);
    const auto margin = hn::Mul(hn::Set(d, 40.0 * kUnitOfDoubles), hn::Add(one, amplified));
    const auto x = hn::Mul(sum.x, inverse);
    const auto y = hn::Mul(sum.y, inverse);
    const auto lowX = FormatFloat::encoded(d, hn::Sub(x, margin));
    const auto lowY = FormatFloat::encoded(d, hn::Sub(y, margin));
    const auto highX = FormatFloat::encoded(d, hn::Add(x, margin));
    const auto highY = FormatFloat::encoded(d, hn::Add(y, margin));
    const auto isCertain = hn::And(hn::Eq(lowX, highX), hn::Eq(lowY, highY));
    if (HWY_LIKELY(hn::AllTrue(df, isCertain)))
        return {lowX, lowY};
    return plainStoredFloats(d, depth, i);
}

void readBackNormalsFloat(const DepthRows& depth, std::size_t count, const NormalRow<double>& normals)
{
    vl::forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        const auto one = hn::Set(d, 1.0);
        const auto exists = widened(d, hn::Ne(hn::LoadU(df, depth.here + i), hn::Zero(df)));
        const auto stored = storedFloats(d, depth, i);
        const auto readBack = [&](auto code) HWY_ATTR {
            const auto wide = hn::PromoteTo(d, code);
            return hn::Sub(hn::Add(wide, wide), one);
        };
        const auto x = readBack(stored.x);
        const auto y = readBack(stored.y);
        const auto rest = hn::Sub(hn::Sub(one, hn::Mul(x, x)), hn::Mul(y, y));
        const auto z = hn::Sqrt(hn::Max(rest, hn::Set(d, 1e-60)));
        hn::StoreU(hn::IfThenElseZero(exists, x), d, normals.x + i);
        hn::StoreU(hn::IfThenElseZero(exists, y), d, normals.y + i);
        hn::StoreU(hn::IfThenElseZero(exists, z), d, normals.z + i);
    });
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace VolumeRowKernels {

VL_EXPORT(storeNormals16);
VL_EXPORT(storeNormalsFloat);
VL_EXPORT(readBackNormals16);
VL_EXPORT(readBackNormalsFloat);

void storeNormals(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBA16> pixels)
{
    VL_CALL(storeNormals16)(depth, diagonals, share, pixels);
}

void storeNormals(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBAFloat> pixels)
{
    VL_CALL(storeNormalsFloat)(depth, diagonals, share, pixels);
}

void readBackNormals(const DepthRows& depth, std::size_t count, const NormalRow<float>& normals)
{
    VL_CALL(readBackNormals16)(depth, count, normals);
}

void readBackNormals(const DepthRows& depth, std::size_t count, const NormalRow<double>& normals)
{
    VL_CALL(readBackNormalsFloat)(depth, count, normals);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
