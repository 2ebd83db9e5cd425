// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The weights are counted in sixteenths: the factor goes when a sum is normalised, and factors of 2 are exact in every
// operation.
#include "render/SmoothingKernels.h"

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
HWY_NOINLINE void encodeSumPlainly(const NormalRows& normals, std::size_t first, std::size_t i,
                                   CodeRun<Format16>& codes)
{
    const hn::CappedTag<double, 1> d;
    const hn::Rebind<Format16::Code, decltype(d)> dc;
    const auto sum = plainSum(d, normals, static_cast<std::ptrdiff_t>(first + i));
    const auto divisor = hn::Max(lengthOf(d, sum), hn::Set(d, std::numeric_limits<double>::min()));
    hn::StoreU(Format16::encoded(d, hn::Div(sum.x, divisor)), dc, codes.r.data() + i);
    hn::StoreU(Format16::encoded(d, hn::Div(sum.y, divisor)), dc, codes.g.data() + i);
}

/// The sums of a run's normals.
struct SumRun
{
    Run<float> x;
    Run<float> y;
    Run<float> z;
};

/// One component: sums of three rows first, then of three columns of these.
HWY_INLINE void sumAround(const float* above, const float* here, const float* below, std::size_t count,
                          Run<float>& sums)
{
    std::array<float, kRun + 2> columns;
    const auto weighted = [](auto before, auto middle, auto after)
                              HWY_ATTR { return hn::Add(hn::Add(before, hn::Add(middle, middle)), after); };
    forLanes<float>(count + 2, [&](auto d, std::size_t i) HWY_ATTR {
        hn::StoreU(weighted(hn::LoadU(d, above - 1 + i), hn::LoadU(d, here - 1 + i), hn::LoadU(d, below - 1 + i)), d,
                   columns.data() + i);
    });
    forLanes<float>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const float* const column = columns.data() + i;
        hn::StoreU(weighted(hn::LoadU(d, column), hn::LoadU(d, column + 1), hn::LoadU(d, column + 2)), d,
                   sums.data() + i);
    });
}

HWY_INLINE void sumRun(const NormalRows& n, std::size_t first, std::size_t count, SumRun& sums)
{
    sumAround(n.above.x + first, n.here.x + first, n.below.x + first, count, sums.x);
    sumAround(n.above.y + first, n.here.y + first, n.below.y + first, count, sums.y);
    sumAround(n.above.z + first, n.here.z + first, n.below.z + first, count, sums.z);
}

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
    const auto estimateOf = [&](auto component) HWY_ATTR {
        const auto n = hn::Mul(component, inverse);
        return Estimate<DF>{n, hn::MulAdd(hn::Abs(n), unit, hn::Set(d, 1e-12F))};
    };
    return {estimateOf(sum.x), estimateOf(sum.y), hn::Lt(length, hn::Set(d, 0.16F * fullLength))};
}

/// Red and green of a run of sums.
template<class Format>
HWY_INLINE void encodeSums(const NormalRows& normals, std::size_t first, const SumRun& sums, std::size_t count,
                           CodeRun<Format>& codes)
{
    forLanes<float>(count, [&](auto d, std::size_t i) HWY_ATTR {
        using DF = decltype(d);
        const Vector3<DF> sum{hn::LoadU(d, sums.x.data() + i), hn::LoadU(d, sums.y.data() + i),
                              hn::LoadU(d, sums.z.data() + i)};
        const auto isDoubtful = storeCodes(d, estimateOfSum(d, sum, Format::kFullLength), i, codes);
        if constexpr (Format::kIsExact)
            forEachOf(d, hn::And(isDoubtful, hn::Gt(sum.z, hn::Zero(d))),
                      [&](std::size_t lane) HWY_ATTR { encodeSumPlainly(normals, first, i + lane, codes); });
    });
}

template<class Format>
HWY_INLINE void smoothRow(const NormalRows& normals, const DepthRows& depth, const float* share,
                          std::span<typename Format::Pixel> pixels)
{
    SumRun sums;
    CodeRun<Format> codes;
    const auto whereThereAreNormals = [&](auto d, std::size_t i, auto) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        return hn::RebindMask(d, hn::Ne(hn::LoadU(df, sums.z.data() + i), hn::Zero(df)));
    };
    forRuns(pixels.size(), [&](std::size_t first, std::size_t count) HWY_ATTR {
        sumRun(normals, first, count, sums);
        encodeSums(normals, first, sums, count, codes);
        storeRun<Format>(codes, depth.here + first, share + first, count, pixels.data() + first, whereThereAreNormals);
    });
}

void smooth16(const NormalRows& normals, const DepthRows& depth, const float* share, std::span<CEL_PixelRGBA16> pixels)
{
    smoothRow<Format16>(normals, depth, share, pixels);
}

void smoothFloat(const NormalRows& normals, const DepthRows& depth, const float* share,
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

void storeSmoothedNormals(const NormalRows& normals, const DepthRows& depth, const float* share,
                          std::span<CEL_PixelRGBA16> pixels)
{
    HWY_DYNAMIC_DISPATCH(smooth16)(normals, depth, share, pixels);
}

void storeSmoothedNormals(const NormalRows& normals, const DepthRows& depth, const float* share,
                          std::span<CEL_PixelRGBAFloat> pixels)
{
    HWY_DYNAMIC_DISPATCH(smoothFloat)(normals, depth, share, pixels);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
