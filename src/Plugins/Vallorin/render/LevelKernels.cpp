// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// First the object's level, then the colours' where there are greys.
#include "render/LevelKernels.h"

#include "render/PixelTraits.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/LevelKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "QuarvelVectorLanes/VL_Lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace VolumeRowKernels::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
namespace vl = VL::HWY_NAMESPACE;

template<typename Pixel>
HWY_INLINE Pixel leveled(const Pixel& target, const LevelOf<Pixel>& how)
{
    return target.a > 0 ? Pixel{how.level, 0, VolumeTraits<Pixel>::kDefaultBlue, target.a} : Pixel{};
}

template<typename Pixel>
HWY_INLINE Pixel leveledWithGrey(const Pixel& target, const Pixel& grey, const LevelOf<Pixel>& how)
{
    using Traits = VolumeTraits<Pixel>;
    Pixel pixel = leveled(target, how);
    if (!(grey.a > 0))
        return pixel;
    if (how.scaleByCoverage) {
        const float share = Traits::shareOf(pixel.a);
        pixel.g = Traits::scaledColour(grey.r, share);
        pixel.b = Traits::scaledColour(grey.a, share);
    } else {
        pixel.g = Traits::colour(grey.r);
        pixel.b = Traits::colour(grey.a);
    }
    return pixel;
}

#if HWY_TARGET == HWY_SCALAR
void setLevelFloat(std::span<CEL_PixelRGBAFloat> target, const LevelOf<CEL_PixelRGBAFloat>& how)
{
    for (CEL_PixelRGBAFloat& pixel : target)
        pixel = leveled(pixel, how);
}

void setLevelAndGreysFloat(std::span<CEL_PixelRGBAFloat> target, const CEL_PixelRGBAFloat* greys,
                           const LevelOf<CEL_PixelRGBAFloat>& how)
{
    for (std::size_t i = 0; i < target.size(); ++i)
        target[i] = leveledWithGrey(target[i], greys[i], how);
}
#else
using Channels = hn::ScalableTag<float>;

/// The formulas above for a vector of pixels, each in 16 bytes of it.
class FloatMerge
{
public:
    explicit FloatMerge(const LevelOf<CEL_PixelRGBAFloat>& how)
        : _scaleByCoverage(how.scaleByCoverage)
        , _level(repeated({how.level, 0.0F, VolumeTraits<CEL_PixelRGBAFloat>::kDefaultBlue, 0.0F}))
        , _isBlue(hn::Gt(repeated({0.0F, 0.0F, 1.0F, 0.0F}), hn::Zero(Channels())))
        , _isColour(hn::Gt(repeated({0.0F, 1.0F, 1.0F, 0.0F}), hn::Zero(Channels())))
        , _isAlpha(hn::Gt(repeated({0.0F, 0.0F, 0.0F, 1.0F}), hn::Zero(Channels())))
    {}

    HWY_INLINE hn::Vec<Channels> leveled(hn::Vec<Channels> target) const
    {
        const auto covers = hn::Gt(hn::Broadcast<3>(target), hn::Zero(Channels()));
        return hn::IfThenElseZero(covers, hn::IfThenElse(_isAlpha, target, _level));
    }

    HWY_INLINE hn::Vec<Channels> withGrey(hn::Vec<Channels> leveled, hn::Vec<Channels> grey) const
    {
        const auto covers = hn::Gt(hn::Broadcast<3>(grey), hn::Zero(Channels()));
        const auto scaled = _scaleByCoverage ? hn::Mul(grey, hn::Broadcast<3>(leveled)) : grey;
        const auto whole = hn::Trunc(scaled);
        // Grey moves from red to green, its coverage from alpha to blue.
        const auto colours = hn::IfThenElse(_isBlue, hn::Broadcast<3>(whole), hn::Shuffle2103(whole));
        return hn::IfThenElse(hn::And(covers, _isColour), colours, leveled);
    }

private:
    static HWY_INLINE hn::Vec<Channels> repeated(const CEL_PixelRGBAFloat& pixel)
    {
        alignas(16) const float channels[] = {pixel.r, pixel.g, pixel.b, pixel.a};
        return hn::LoadDup128(Channels(), channels);
    }

    bool _scaleByCoverage;
    hn::Vec<Channels> _level;
    hn::Mask<Channels> _isBlue;
    hn::Mask<Channels> _isColour;
    hn::Mask<Channels> _isAlpha;
};

void setLevelFloat(std::span<CEL_PixelRGBAFloat> target, const LevelOf<CEL_PixelRGBAFloat>& how)
{
    const Channels d;
    const std::size_t step = hn::Lanes(d) / 4;
    const FloatMerge merge(how);
    std::size_t i = 0;
    for (; i + step <= target.size(); i += step)
        hn::StoreU(merge.leveled(hn::LoadU(d, &target[i].r)), d, &target[i].r);
    for (; i < target.size(); ++i)
        target[i] = leveled(target[i], how);
}

void setLevelAndGreysFloat(std::span<CEL_PixelRGBAFloat> target, const CEL_PixelRGBAFloat* HWY_RESTRICT greys,
                           const LevelOf<CEL_PixelRGBAFloat>& how)
{
    const Channels d;
    const std::size_t step = hn::Lanes(d) / 4;
    const FloatMerge merge(how);
    std::size_t i = 0;
    for (; i + step <= target.size(); i += step) {
        const auto level = merge.leveled(hn::LoadU(d, &target[i].r));
        hn::StoreU(merge.withGrey(level, hn::LoadU(d, &greys[i].r)), d, &target[i].r);
    }
    for (; i < target.size(); ++i)
        target[i] = leveledWithGrey(target[i], greys[i], how);
}
#endif

void setLevel16(std::span<CEL_PixelRGBA16> target, const LevelOf<CEL_PixelRGBA16>& how)
{
    for (CEL_PixelRGBA16& pixel : target)
        pixel = leveled(pixel, how);
}

void setLevelAndGreys16(std::span<CEL_PixelRGBA16> target, const CEL_PixelRGBA16* HWY_RESTRICT greys,
                        const LevelOf<CEL_PixelRGBA16>& how)
{
    for (std::size_t i = 0; i < target.size(); ++i)
        target[i] = leveledWithGrey(target[i], greys[i], how);
}

// In 16 bits, greys may be scaled by a division, but not where the drawing covers fully or not at all, which is nearly
// everywhere.
void placeLevelAndWhite16(const std::int16_t* HWY_RESTRICT coverage, const std::int16_t* HWY_RESTRICT white,
                          const LevelOf<CEL_PixelRGBA16>& how, std::span<CEL_PixelRGBA16> target)
{
    using Traits = VolumeTraits<CEL_PixelRGBA16>;
    auto* const channels = reinterpret_cast<std::int16_t*>(target.data());
    vl::forLanes<std::int16_t>(target.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const auto zero = hn::Zero(d);
        const auto covered = hn::LoadU(d, coverage + i);
        const auto covers = hn::Gt(covered, zero);
        const auto isPartly = hn::And(covers, hn::Ne(covered, hn::Set(d, Traits::kFull)));
        if (how.scaleByCoverage && !hn::AllFalse(d, isPartly)) {
            for (std::size_t j = i; j < i + hn::Lanes(d); ++j)
                target[j] = leveledWithGrey({0, 0, 0, coverage[j]}, {white[j], 0, 0, white[j]}, how);
            return;
        }
        const auto level = hn::IfThenElseZero(covers, hn::Set(d, how.level));
        const auto none = hn::IfThenElseZero(covers, hn::Set(d, Traits::kDefaultBlue));
        const auto alpha = hn::IfThenElseZero(covers, covered);
        const auto whole = hn::LoadU(d, white + i);
        const auto isWhite = hn::Gt(whole, zero);
        const auto grey = hn::IfThenElseZero(how.scaleByCoverage ? hn::And(isWhite, covers) : isWhite, whole);
        hn::StoreInterleaved4(level, grey, hn::IfThenElse(isWhite, grey, none), alpha, d, channels + 4 * i);
    });
}

void placeLevelAndWhiteFloat(const float* HWY_RESTRICT coverage, const float* HWY_RESTRICT white,
                             const LevelOf<CEL_PixelRGBAFloat>& how, std::span<CEL_PixelRGBAFloat> target)
{
    auto* const channels = reinterpret_cast<float*>(target.data());
    vl::forLanes<float>(target.size(), [&](auto d, std::size_t i) HWY_ATTR {
        const auto zero = hn::Zero(d);
        const auto covered = hn::LoadU(d, coverage + i);
        const auto covers = hn::Gt(covered, zero);
        const auto level = hn::IfThenElseZero(covers, hn::Set(d, how.level));
        const auto none = hn::IfThenElseZero(covers, hn::Set(d, VolumeTraits<CEL_PixelRGBAFloat>::kDefaultBlue));
        const auto alpha = hn::IfThenElseZero(covers, covered);
        const auto whole = hn::LoadU(d, white + i);
        const auto isWhite = hn::Gt(whole, zero);
        const auto grey = hn::IfThenElseZero(isWhite, hn::Trunc(how.scaleByCoverage ? hn::Mul(whole, alpha) : whole));
        hn::StoreInterleaved4(level, grey, hn::IfThenElse(isWhite, grey, none), alpha, d, channels + 4 * i);
    });
}

} // namespace VolumeRowKernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

#include "QuarvelVectorLanes/VL_Dispatch.h"

namespace VolumeRowKernels {

VL_EXPORT(setLevel16);
VL_EXPORT(setLevelFloat);
VL_EXPORT(setLevelAndGreys16);
VL_EXPORT(setLevelAndGreysFloat);
VL_EXPORT(placeLevelAndWhite16);
VL_EXPORT(placeLevelAndWhiteFloat);

void setLevel(std::span<CEL_PixelRGBA16> target, const LevelOf<CEL_PixelRGBA16>& how)
{
    VL_CALL(setLevel16)(target, how);
}

void setLevel(std::span<CEL_PixelRGBAFloat> target, const LevelOf<CEL_PixelRGBAFloat>& how)
{
    VL_CALL(setLevelFloat)(target, how);
}

void setLevelAndGreys(std::span<CEL_PixelRGBA16> target, const CEL_PixelRGBA16* greys,
                      const LevelOf<CEL_PixelRGBA16>& how)
{
    VL_CALL(setLevelAndGreys16)(target, greys, how);
}

void setLevelAndGreys(std::span<CEL_PixelRGBAFloat> target, const CEL_PixelRGBAFloat* greys,
                      const LevelOf<CEL_PixelRGBAFloat>& how)
{
    VL_CALL(setLevelAndGreysFloat)(target, greys, how);
}

void placeLevelAndWhite(const std::int16_t* coverage, const std::int16_t* white, const LevelOf<CEL_PixelRGBA16>& how,
                        std::span<CEL_PixelRGBA16> target)
{
    VL_CALL(placeLevelAndWhite16)(coverage, white, how, target);
}

void placeLevelAndWhite(const float* coverage, const float* white, const LevelOf<CEL_PixelRGBAFloat>& how,
                        std::span<CEL_PixelRGBAFloat> target)
{
    VL_CALL(placeLevelAndWhiteFloat)(coverage, white, how, target);
}

} // namespace VolumeRowKernels
#endif // HWY_ONCE
