// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The weights are counted in eighths: the factor goes when a sum is normalised, and factors of 2 are exact in every
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

/// One component, summed over the 3 x 3 neighbourhood, in eighths. Other orders of the summands would round
/// differently.
template<class D>
HWY_INLINE hn::Vec<D> sumAround(D d, const double* above, const double* here, const double* below)
{
    const auto half = hn::Set(d, 0.5);
    auto sum = hn::LoadU(d, here - 1);
    sum = hn::Add(sum, hn::LoadU(d, above));
    sum = hn::Add(sum, hn::Mul(hn::Set(d, 2.0), hn::LoadU(d, here)));
    sum = hn::Add(sum, hn::LoadU(d, below));
    sum = hn::Add(sum, hn::LoadU(d, here + 1));
    sum = hn::Add(sum, hn::Mul(half, hn::LoadU(d, above - 1)));
    sum = hn::Add(sum, hn::Mul(half, hn::LoadU(d, below - 1)));
    sum = hn::Add(sum, hn::Mul(half, hn::LoadU(d, above + 1)));
    return hn::Add(sum, hn::Mul(half, hn::LoadU(d, below + 1)));
}

/// The sums of a run's normals.
struct SumRun
{
    Run<double> x;
    Run<double> y;
    Run<double> z;
};

HWY_INLINE void sumRun(const NormalRows& n, std::size_t first, std::size_t count, SumRun& sums)
{
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const std::size_t at = first + i;
        hn::StoreU(sumAround(d, n.above.x + at, n.here.x + at, n.below.x + at), d, sums.x.data() + i);
        hn::StoreU(sumAround(d, n.above.y + at, n.here.y + at, n.below.y + at), d, sums.y.data() + i);
        hn::StoreU(sumAround(d, n.above.z + at, n.here.z + at, n.below.z + at), d, sums.z.data() + i);
    });
}

/// Red and green of the sums from first on, brought to unit length by the plain formula. A sum that cancels out stays
/// zero; any other is far longer than the smallest double.
template<class Format>
HWY_INLINE void encodeSumsPlainly(const SumRun& sums, std::size_t first, std::size_t count, CodeRun<Format>& codes)
{
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<typename Format::Code, decltype(d)> dc;
        const std::size_t at = first + i;
        const Vector3<decltype(d)> sum{hn::LoadU(d, sums.x.data() + at), hn::LoadU(d, sums.y.data() + at),
                                       hn::LoadU(d, sums.z.data() + at)};
        const auto divisor = hn::Max(lengthOf(d, sum), hn::Set(d, std::numeric_limits<double>::min()));
        hn::StoreU(Format::encoded(d, hn::Div(sum.x, divisor)), dc, codes.r.data() + at);
        hn::StoreU(Format::encoded(d, hn::Div(sum.y, divisor)), dc, codes.g.data() + at);
    });
}

HWY_INLINE void encodeSums(const SumRun& sums, std::size_t count, CodeRun<FormatFloat>& codes)
{
    encodeSumsPlainly(sums, 0, count, codes);
}

/// A sum rounded to single precision is a vector whose components have an error of u, as above.
HWY_INLINE void encodeSums(const SumRun& sums, std::size_t count, CodeRun<Format16>& codes)
{
    Run<float> x;
    Run<float> y;
    Run<float> z;
    forLanes<double>(count, [&](auto d, std::size_t i) HWY_ATTR {
        const hn::Rebind<float, decltype(d)> df;
        hn::StoreU(hn::DemoteTo(df, hn::LoadU(d, sums.x.data() + i)), df, x.data() + i);
        hn::StoreU(hn::DemoteTo(df, hn::LoadU(d, sums.y.data() + i)), df, y.data() + i);
        hn::StoreU(hn::DemoteTo(df, hn::LoadU(d, sums.z.data() + i)), df, z.data() + i);
    });
    const hn::ScalableTag<float> d;
    const hn::RebindToSigned<decltype(d)> d32;
    const auto zero = hn::Zero(d);
    const auto unit = hn::Set(d, 8 * kUnit);
    std::size_t i = 0;
    for (; i + hn::Lanes(d) <= count; i += hn::Lanes(d)) {
        const Vector3<hn::ScalableTag<float>> sum{hn::LoadU(d, x.data() + i), hn::LoadU(d, y.data() + i),
                                                  hn::LoadU(d, z.data() + i)};
        const auto length = lengthOf(d, sum);
        const auto inverse = hn::Div(hn::Set(d, 1.0F), hn::IfThenElse(hn::Eq(length, zero), hn::Set(d, 1.0F), length));
        const auto nx = hn::Mul(sum.x, inverse);
        const auto ny = hn::Mul(sum.y, inverse);
        auto isDoubtful = hn::MaskFromVec(zero);
        hn::StoreU(codesOf(d, Estimate<hn::ScalableTag<float>>{nx, hn::Mul(unit, hn::Abs(nx))}, isDoubtful), d32,
                   codes.r.data() + i);
        hn::StoreU(codesOf(d, Estimate<hn::ScalableTag<float>>{ny, hn::Mul(unit, hn::Abs(ny))}, isDoubtful), d32,
                   codes.g.data() + i);
        if (!hn::AllFalse(d, isDoubtful))
            encodeSumsPlainly(sums, i, hn::Lanes(d), codes);
    }
    encodeSumsPlainly(sums, i, count - i, codes);
}

template<class Format>
HWY_INLINE void smoothRow(const NormalRows& normals, const DepthRows& depth, const float* share,
                          std::span<typename Format::Pixel> pixels)
{
    SumRun sums;
    CodeRun<Format> codes;
    forRuns(pixels.size(), [&](std::size_t first, std::size_t count) HWY_ATTR {
        const DepthRows run = from(depth, first);
        const auto whereThereIsDepthAround = [&](auto d, std::size_t i, auto exists) HWY_ATTR {
            const hn::Rebind<float, decltype(d)> df;
            auto any = exists;
            for (const float* row : {run.above + i, run.here + i, run.below + i})
                for (const int offset : {-1, 0, 1})
                    any = hn::Or(any, hn::RebindMask(d, hn::Ne(hn::LoadU(df, row + offset), hn::Zero(df))));
            return any;
        };
        sumRun(normals, first, count, sums);
        encodeSums(sums, count, codes);
        storeRun<Format>(codes, run.here, share + first, count, pixels.data() + first, whereThereIsDepthAround);
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
