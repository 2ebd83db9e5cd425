// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The weights are counted in sixteenths: normalising a sum cancels the factor, and factors of 2 are exact in every
// operation.
#include "render/SmoothingKernels.h"

#include "QuarvelVectorLanes/VL_Strips.h"

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
namespace vl = VL::HWY_NAMESPACE;

/// A normal of a 16-bit picture as the plain formula reads it.
template<class D>
HWY_INLINE Vector3<D> plainNormal(D d, const NormalRow<float>& row, std::ptrdiff_t i)
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

/// A normal of a float picture, which was read back with the plain formula already.
template<class D>
HWY_INLINE Vector3<D> plainNormal(D d, const NormalRow<double>& row, std::ptrdiff_t i)
{
    return {hn::LoadU(d, row.x + i), hn::LoadU(d, row.y + i), hn::LoadU(d, row.z + i)};
}

/// The sum over the 3 x 3 neighbourhood in the plain formula's order; any other order would round differently.
template<class D, typename Component>
HWY_INLINE Vector3<D> plainSum(D d, const NormalRows<Component>& n, std::ptrdiff_t i)
{
    struct Sample
    {
        const NormalRow<Component>& row;
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

/// x and y of a normalised sum, in double precision. A sum that cancels out stays zero; any other is far longer than
/// the smallest double.
template<class D>
HWY_INLINE Vector3<D> unitOfSum(D d, const Vector3<D>& sum)
{
    const auto divisor = hn::Max(lengthOf(d, sum), hn::Set(d, std::numeric_limits<double>::min()));
    return {hn::Div(sum.x, divisor), hn::Div(sum.y, divisor), hn::Zero(d)};
}

/// Red and green of one pixel, by the plain formula.
HWY_NOINLINE PixelCodes<Format16> plainCodesAround(const NormalRows<float>& normals, std::size_t i)
{
    const hn::CappedTag<double, 1> d;
    const auto unit = unitOfSum(d, plainSum(d, normals, static_cast<std::ptrdiff_t>(i)));
    return plainCodes<Format16>(d, unit.x, unit.y);
}

/// Rows are processed in runs of this many pixels, so that sums stay in the first-level cache.
constexpr std::size_t kRun = 256;

/// Vertical sums of three rows, with one more on either side of a run.
template<typename Component>
using ColumnSums = std::array<Component, kRun + 2>;

template<class V>
HWY_INLINE V weighted(V before, V middle, V after)
{
    return hn::Add(hn::Add(before, hn::Add(middle, middle)), after);
}

template<typename Component>
HWY_INLINE void sumColumns(const Component* above, const Component* here, const Component* below, std::size_t count,
                           ColumnSums<Component>& sums)
{
    vl::forLanes<Component>(count + 2, [&](auto d, std::size_t i) HWY_ATTR {
        const auto sum = weighted(hn::LoadU(d, above - 1 + i), hn::LoadU(d, here - 1 + i), hn::LoadU(d, below - 1 + i));
        hn::StoreU(sum, d, sums.data() + i);
    });
}

/// The horizontal sum of three column sums of a component.
template<class D>
HWY_INLINE hn::Vec<D> sumAt(D d, const ColumnSums<hn::TFromD<D>>& sums, std::size_t i)
{
    const auto* const before = sums.data() + i;
    return weighted(hn::LoadU(d, before), hn::LoadU(d, before + 1), hn::LoadU(d, before + 2));
}

/// The column sums of a run's normals.
template<typename Component>
struct RunSums
{
    RunSums(const NormalRows<Component>& n, std::size_t first, std::size_t count)
    {
        sumColumns(n.above.x + first, n.here.x + first, n.below.x + first, count, x);
        sumColumns(n.above.y + first, n.here.y + first, n.below.y + first, count, y);
        sumColumns(n.above.z + first, n.here.z + first, n.below.z + first, count, z);
    }

    /// The sums around the pixels from i on.
    template<class D>
    HWY_INLINE Vector3<D> at(D d, std::size_t i) const
    {
        return {sumAt(d, x, i), sumAt(d, y, i), sumAt(d, z, i)};
    }

    ColumnSums<Component> x;
    ColumnSums<Component> y;
    ColumnSums<Component> z;
};

/// Estimates of a normalised vector of sums. A sum of integers is exact; that of the z is off by 6 u, of which 2 u are
/// a z's own, and the squared length, by the share of the z's square in it, by 11 u more than the 3 u of the others.
/// The inverse of the length is off by 3.5 u plus 5.5 u times that share, and the product with it adds u. In double
/// precision, a sum that cancels out in x or y, but not in length, is at most 1e-13.
template<class DF>
HWY_INLINE NormalEstimate<DF> estimateOfSum(DF d, const Vector3<DF>& sum)
{
    const auto length = lengthOf(d, sum);
    const auto isMoreThanRounding = hn::Gt(length, hn::Set(d, 1e-5F * 32767.0F));
    const auto inverse = hn::IfThenElseZero(isMoreThanRounding, hn::Div(hn::Set(d, 1.0F), length));
    const auto z = hn::Mul(sum.z, inverse);
    const auto unit = hn::MulAdd(hn::Set(d, 5.5F * kUnit), hn::Mul(z, z), hn::Set(d, 5.5F * kUnit));
    const auto isThere = hn::Gt(sum.z, hn::Zero(d));
    const auto ofCancelling = hn::IfThenElseZero(isThere, hn::Set(d, 1e-12F));
    const auto estimateOf = [&](auto component) HWY_ATTR {
        const auto n = hn::Mul(component, inverse);
        return Estimate<DF>{n, hn::MulAdd(hn::Abs(n), unit, ofCancelling)};
    };
    const auto isShort = hn::And(isThere, hn::Lt(length, hn::Set(d, 0.16F * 32767.0F)));
    return {estimateOf(sum.x), estimateOf(sum.y), isShort};
}

HWY_INLINE void smoothNormalsRun(const NormalRows<float>& normals, const float* depth, const float* share,
                                 std::size_t first, std::span<CEL_PixelRGBA16> pixels)
{
    const RunSums<float> sums(normals, first, pixels.size());
    vl::forLanes<float>(pixels.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const auto sum = sums.at(d, i);
        const auto codes = codesOf<Format16>(d, estimateOfSum(d, sum), [&](std::size_t lane) HWY_ATTR {
            return plainCodesAround(normals, first + i + lane);
        });
        const auto zero = hn::Zero(d);
        storePixels<Format16>(d, codes, hn::Ne(sum.z, zero), hn::Ne(hn::LoadU(d, depth + first + i), zero),
                              share + first + i, &pixels[i]);
    });
}

/// The plain formula sums in another order, which differs by about 1e-16. That may show where a sum nearly cancels out,
/// so the plain formula is taken there.
template<class D>
HWY_INLINE Vector3<D> steadySum(D d, const Vector3<D>& sum, const NormalRows<double>& normals, std::size_t i)
{
    constexpr double kShort = 16.0 * 1e-6;
    const auto isShort = hn::And(hn::Lt(squareOf(d, sum), hn::Set(d, kShort * kShort)), hn::Gt(sum.z, hn::Zero(d)));
    return HWY_LIKELY(hn::AllFalse(d, isShort)) ? sum : plainSum(d, normals, static_cast<std::ptrdiff_t>(i));
}

HWY_INLINE void smoothNormalsRun(const NormalRows<double>& normals, const float* depth, const float* share,
                                 std::size_t first, std::span<CEL_PixelRGBAFloat> pixels)
{
    const RunSums<double> sums(normals, first, pixels.size());
    vl::forLanes<double>(pixels.size(), [&](auto d, std::size_t i) HWY_ATTR {
        using Floats = hn::Rebind<float, decltype(d)>;
        const Floats df;
        const auto sum = steadySum(d, sums.at(d, i), normals, first + i);
        const auto length = hn::Max(lengthOf(d, sum), hn::Set(d, std::numeric_limits<double>::min()));
        const auto inverse = hn::Div(hn::Set(d, 1.0), length);
        const Codes<FormatFloat, Floats> codes{FormatFloat::encoded(d, hn::Mul(sum.x, inverse)),
                                               FormatFloat::encoded(d, hn::Mul(sum.y, inverse))};
        const auto zero = hn::Zero(df);
        storePixels<FormatFloat>(df, codes, hn::Ne(hn::DemoteTo(df, sum.z), zero),
                                 hn::Ne(hn::LoadU(df, depth + first + i), zero), share + first + i, &pixels[i]);
    });
}

template<typename Component, typename Pixel>
HWY_INLINE void smoothNormalsRow(const NormalRows<Component>& normals, const float* depth, const float* share,
                                 std::span<Pixel> pixels)
{
    VL_forStrips(pixels.size(), kRun, [&](std::size_t first, std::size_t count) HWY_ATTR {
        smoothNormalsRun(normals, depth, share, first, pixels.subspan(first, count));
    });
}

void smoothNormals16(const NormalRows<float>& normals, const float* depth, const float* share,
                     std::span<CEL_PixelRGBA16> pixels)
{
    smoothNormalsRow(normals, depth, share, pixels);
}

void smoothNormalsFloat(const NormalRows<double>& normals, const float* depth, const float* share,
                        std::span<CEL_PixelRGBAFloat> pixels)
{
    smoothNormalsRow(normals, depth, share, pixels);
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace VolumeRowKernels {

VL_EXPORT(smoothNormals16);
VL_EXPORT(smoothNormalsFloat);

void smoothNormals(const NormalRows<float>& normals, const float* depth, const float* share,
                   std::span<CEL_PixelRGBA16> pixels)
{
    VL_CALL(smoothNormals16)(normals, depth, share, pixels);
}

void smoothNormals(const NormalRows<double>& normals, const float* depth, const float* share,
                   std::span<CEL_PixelRGBAFloat> pixels)
{
    VL_CALL(smoothNormalsFloat)(normals, depth, share, pixels);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
