// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The weights are counted in sixteenths: the factor goes when a sum is normalised, and factors of 2 are exact in every
// operation.
#include "render/SmoothingKernels.h"

#include <algorithm>
#include <array>
#include <limits>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/SmoothingKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "render/NormalCodes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// A normal as the plain formula reads it from a pixel of 16 bits.
template<class D>
HWY_INLINE Vector3<D> plainNormal(D d, const NormalRow& row, std::ptrdiff_t i)
{
    const hn::Rebind<float, D> df;
    const auto one = hn::Set(d, 1.0);
    const auto full = hn::Set(d, 32767.0);
    const auto decoded = [&](const float* component) HWY_ATTR {
        const auto twice = hn::Add(hn::PromoteTo(d, hn::LoadU(df, component + i)), full);
        return hn::Sub(hn::Div(twice, full), one);
    };
    const auto x = decoded(row.x);
    const auto y = decoded(row.y);
    const auto rest = hn::Sub(hn::Sub(one, hn::Mul(x, x)), hn::Mul(y, y));
    const auto exists = hn::Gt(hn::PromoteTo(d, hn::LoadU(df, row.z + i)), hn::Zero(d));
    return {hn::IfThenElseZero(exists, x), hn::IfThenElseZero(exists, y),
            hn::IfThenElseZero(exists, hn::Sqrt(hn::Max(rest, hn::Zero(d))))};
}

/// The sum over the 3 x 3 neighbourhood in the plain formula's order: another one would round differently.
template<class D>
HWY_INLINE Vector3<D> plainSum(D d, const NormalRows& n, std::ptrdiff_t i)
{
    struct Sample
    {
        const NormalRow& row;
        std::ptrdiff_t offset;
        double weight;
    };
    const Sample samples[] = {{n.here, -1, 2.0},  {n.above, 0, 2.0}, {n.here, 0, 4.0},
                              {n.below, 0, 2.0},  {n.here, 1, 2.0},  {n.above, -1, 1.0},
                              {n.below, -1, 1.0}, {n.above, 1, 1.0}, {n.below, 1, 1.0}};
    Vector3<D> sum{hn::Zero(d), hn::Zero(d), hn::Zero(d)};
    for (const Sample& sample : samples) {
        const Vector3<D> normal = plainNormal(d, sample.row, i + sample.offset);
        const auto weight = hn::Set(d, sample.weight);
        sum = {hn::Add(sum.x, hn::Mul(weight, normal.x)), hn::Add(sum.y, hn::Mul(weight, normal.y)),
               hn::Add(sum.z, hn::Mul(weight, normal.z))};
    }
    return sum;
}

/// Red and green of one pixel, by the plain formula. A sum that cancels out stays zero; any other is far longer than
/// the smallest double.
HWY_NOINLINE PixelCodes<Format16> plainCodesAround(const NormalRows& normals, std::size_t i)
{
    const hn::CappedTag<double, 1> d;
    const auto sum = plainSum(d, normals, static_cast<std::ptrdiff_t>(i));
    const auto divisor = hn::Max(lengthOf(d, sum), hn::Set(d, std::numeric_limits<double>::min()));
    return plainCodes<Format16>(d, hn::Div(sum.x, divisor), hn::Div(sum.y, divisor));
}

/// Rows are worked on in runs of so many pixels, so that sums stay in the first-level cache.
constexpr std::size_t kRun = 256;

/// Sums of three rows, one more on either side of a run.
using ColumnSums = std::array<float, kRun + 2>;

template<class V>
HWY_INLINE V weighted(V before, V middle, V after)
{
    return hn::Add(hn::Add(before, hn::Add(middle, middle)), after);
}

HWY_INLINE void sumColumns(const float* above, const float* here, const float* below, std::size_t count,
                           ColumnSums& sums)
{
    forLanes<float>(count + 2, [&](auto d, std::size_t i) HWY_ATTR {
        const auto sum = weighted(hn::LoadU(d, above - 1 + i), hn::LoadU(d, here - 1 + i), hn::LoadU(d, below - 1 + i));
        hn::StoreU(sum, d, sums.data() + i);
    });
}

/// Sums of three columns of a component.
template<class DF>
HWY_INLINE hn::Vec<DF> sumAt(DF d, const ColumnSums& sums, std::size_t i)
{
    const float* const before = sums.data() + i;
    return weighted(hn::LoadU(d, before), hn::LoadU(d, before + 1), hn::LoadU(d, before + 2));
}

/// The column sums of a run's normals.
struct RunSums
{
    ColumnSums x;
    ColumnSums y;
    ColumnSums z;
};

/// Estimates of a vector of sums brought to unit length. A sum of whole numbers is exact; that of the z is off by 6 u,
/// of which 2 u are a z's own, and a square of z's share in the squared length by 11 u more than the 3 u of the others.
/// The inverse of the length is off by 3.5 u and 5.5 u times that share, and the product with it adds u. Double
/// precision gives a sum that cancels out in x or y, but not in length, 1e-13 at most.
template<class DF>
HWY_INLINE NormalEstimate<DF> estimateOfSum(DF d, const Vector3<DF>& sum, float fullLength)
{
    const auto length = lengthOf(d, sum);
    const auto isMoreThanRounding = hn::Gt(length, hn::Set(d, 1e-5F * fullLength));
    const auto inverse = hn::IfThenElseZero(isMoreThanRounding, hn::Div(hn::Set(d, 1.0F), length));
    const auto z = hn::Mul(sum.z, inverse);
    const auto unit = hn::MulAdd(hn::Set(d, 5.5F * kUnit), hn::Mul(z, z), hn::Set(d, 5.5F * kUnit));
    const auto isThere = hn::Gt(sum.z, hn::Zero(d));
    const auto ofCancelling = hn::IfThenElseZero(isThere, hn::Set(d, 1e-12F));
    const auto estimateOf = [&](auto component) HWY_ATTR {
        const auto n = hn::Mul(component, inverse);
        return Estimate<DF>{n, hn::MulAdd(hn::Abs(n), unit, ofCancelling)};
    };
    const auto isShort = hn::And(isThere, hn::Lt(length, hn::Set(d, 0.16F * fullLength)));
    return {estimateOf(sum.x), estimateOf(sum.y), isShort};
}

/// Red and green of a vector of sums; those of a float format are as good as its channels in any case.
template<class Format, class DF>
HWY_INLINE Codes<Format, DF> codesOfSum(DF d, const Vector3<DF>& sum, const NormalRows& normals, std::size_t i)
{
    auto estimate = estimateOfSum(d, sum, Format::kFullLength);
    if constexpr (Format::kIsExact) {
        const auto plain = [&](std::size_t lane) HWY_ATTR { return plainCodesAround(normals, i + lane); };
        return codesOf<Format>(d, estimate, plain);
    } else {
        return {Format::encoded(d, estimate.x, estimate.isUseless), Format::encoded(d, estimate.y, estimate.isUseless)};
    }
}

template<class Format>
HWY_INLINE void smoothRun(const NormalRows& normals, const float* depth, const float* share, std::size_t first,
                          std::span<typename Format::Pixel> pixels)
{
    RunSums sums;
    sumColumns(normals.above.x + first, normals.here.x + first, normals.below.x + first, pixels.size(), sums.x);
    sumColumns(normals.above.y + first, normals.here.y + first, normals.below.y + first, pixels.size(), sums.y);
    sumColumns(normals.above.z + first, normals.here.z + first, normals.below.z + first, pixels.size(), sums.z);
    forLanes<float>(pixels.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const auto zero = hn::Zero(d);
        const Vector3<decltype(d)> sum{sumAt(d, sums.x, i), sumAt(d, sums.y, i), sumAt(d, sums.z, i)};
        storePixels<Format>(d, codesOfSum<Format>(d, sum, normals, first + i), hn::Ne(sum.z, zero),
                            hn::Ne(hn::LoadU(d, depth + first + i), zero), share + first + i, &pixels[i]);
    });
}

template<class Format>
HWY_INLINE void smoothRow(const NormalRows& normals, const float* depth, const float* share,
                          std::span<typename Format::Pixel> pixels)
{
    for (std::size_t i = 0; i < pixels.size(); i += kRun)
        smoothRun<Format>(normals, depth, share, i, pixels.subspan(i, std::min(kRun, pixels.size() - i)));
}

void smooth16(const NormalRows& normals, const float* depth, const float* share, std::span<CEL_PixelRGBA16> pixels)
{
    smoothRow<Format16>(normals, depth, share, pixels);
}

void smoothFloat(const NormalRows& normals, const float* depth, const float* share,
                 std::span<CEL_PixelRGBAFloat> pixels)
{
    smoothRow<FormatFloat>(normals, depth, share, pixels);
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace VolumeRowKernels {

HWY_EXPORT(smooth16);
HWY_EXPORT(smoothFloat);

void storeSmoothedNormals(const NormalRows& normals, const float* depth, const float* share,
                          std::span<CEL_PixelRGBA16> pixels)
{
    HWY_DYNAMIC_DISPATCH(smooth16)(normals, depth, share, pixels);
}

void storeSmoothedNormals(const NormalRows& normals, const float* depth, const float* share,
                          std::span<CEL_PixelRGBAFloat> pixels)
{
    HWY_DYNAMIC_DISPATCH(smoothFloat)(normals, depth, share, pixels);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
