// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Works on rows in parallel. In each row, the light is added up for runs of pixels that are short enough for the first
// level cache, in loops that compilers vectorise.
#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelNormalMap/NM_Srgb.h"
#include "QuarvelNormalMap/private/NM_LightAmounts.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace {

constexpr int kRun = 512;
constexpr int kSteps = 16384;

using Bytes = std::array<std::uint8_t, kSteps + 1>;

// The bytes for amounts of light from 0 to kSteps.
const Bytes& encodedBytes()
{
    static const Bytes bytes = [] {
        Bytes made{};
        const NM_SrgbEncoder& encoder = NM_SrgbEncoder::instance();
        for (std::size_t i = 0; i < made.size(); ++i)
            made[i] = static_cast<std::uint8_t>(encoder(static_cast<float>(i) / kSteps) * 255.0F + 0.5F);
        return made;
    }();
    return bytes;
}

// The four bytes of a pixel, in the order of memory.
using ScreenPixel = std::array<std::uint8_t, 4>;

ScreenPixel straight(std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha)
{
    return {red, green, blue, alpha};
}

ScreenPixel premultiplied(std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha)
{
    const auto times = [alpha](std::uint32_t colour) { return (colour * alpha + 127U) / 255U; };
    const std::uint32_t word = std::uint32_t{alpha} << 24 | times(red) << 16 | times(green) << 8 | times(blue);
    ScreenPixel pixel;
    std::memcpy(pixel.data(), &word, sizeof(word));
    return pixel;
}

using Plane = std::array<float, kRun>;

// The light on a run of pixels.
struct Run
{
    std::array<Plane, 3> light;
    std::array<Plane, 3> highlight;
};

class FastShader
{
public:
    FastShader(const NM_LightingSettings& settings, const NM_Surface& surface)
        : _settings(settings), _power(kSteps / 4 + 1)
    {
        for (const NM_Light& light : settings.lights)
            _lights.emplace_back(light, surface.width(), surface.height());
        const double exponent = std::max(static_cast<double>(settings.sharpness), 1.0);
        const auto last = static_cast<double>(_power.size() - 1);
        for (std::size_t i = 0; i < _power.size(); ++i)
            _power[i] = static_cast<float>(std::pow(static_cast<double>(i) / last, exponent)) * settings.highlight;
    }

    /// @param pixelOf makes the pixel from red, green, blue and alpha
    template<typename PixelOf>
    void shade(const NM_Surface::Row& row, int y, ScreenPixel* target, const PixelOf& pixelOf) const
    {
        Run run;
        for (std::size_t from = 0; from < row.red.size(); from += kRun) {
            const std::size_t count = std::min<std::size_t>(kRun, row.red.size() - from);
            if (isEmpty(row, from, count)) {
                std::fill_n(target + from, count, ScreenPixel{});
                continue;
            }
            sumUp(row, y, from, count, run);
            encode(row, from, count, run, target + from, pixelOf);
        }
    }

private:
    static bool isEmpty(const NM_Surface::Row& row, std::size_t from, std::size_t count)
    {
        const auto coverage = row.coverage.subspan(from, count);
        return std::ranges::all_of(coverage, [](float value) { return value <= 0.0F; });
    }

    void sumUp(const NM_Surface::Row& row, int y, std::size_t from, std::size_t count, Run& run) const
    {
        for (std::size_t c = 0; c < 3; ++c) {
            run.light[c].fill(_settings.ambient[c]);
            run.highlight[c].fill(0.0F);
        }
        Plane amount;
        for (const NM_LightAmounts& light : _lights) {
            light.diffuse(row, y, from, std::span(amount).first(count));
            for (std::size_t c = 0; c < 3; ++c)
                for (std::size_t i = 0; i < count; ++i)
                    run.light[c][i] += amount[i] * light.colour()[c];
            if (_settings.highlight > 0.0F)
                addHighlights(row, y, from, count, light, run);
        }
    }

    void addHighlights(const NM_Surface::Row& row, int y, std::size_t from, std::size_t count,
                       const NM_LightAmounts& light, Run& run) const
    {
        const auto last = static_cast<float>(_power.size() - 1);
        Plane cosine;
        Plane fallOff;
        light.highlights(row, y, from, std::span(cosine).first(count), std::span(fallOff).first(count));
        for (std::size_t i = 0; i < count; ++i) {
            if (cosine[i] <= 0.0F)
                continue;
            const float strength =
                _power[static_cast<std::size_t>(std::clamp(cosine[i], 0.0F, 1.0F) * last + 0.5F)] * fallOff[i];
            for (std::size_t c = 0; c < 3; ++c)
                run.highlight[c][i] += strength * light.colour()[c];
        }
    }

    template<typename PixelOf>
    static void encode(const NM_Surface::Row& row, std::size_t from, std::size_t count, const Run& run,
                       ScreenPixel* target, const PixelOf& pixelOf)
    {
        const Bytes& bytes = encodedBytes();
        const std::array<const float*, 3> colours = {row.red.data() + from, row.green.data() + from,
                                                     row.blue.data() + from};
        const float* const coverage = row.coverage.data() + from;
        std::array<std::array<std::int32_t, kRun>, 3> steps;
        for (std::size_t c = 0; c < 3; ++c)
            for (std::size_t i = 0; i < count; ++i) {
                const float amount = colours[c][i] * run.light[c][i] + run.highlight[c][i];
                // In this order, NaN becomes 0.
                const float held = std::max(0.0F, std::min(amount, 1.0F));
                steps[c][i] = static_cast<std::int32_t>(held * kSteps + 0.5F);
            }
        const auto byteOf = [&](std::size_t c, std::size_t i) { return bytes[static_cast<std::size_t>(steps[c][i])]; };
        for (std::size_t i = 0; i < count; ++i)
            target[i] = pixelOf(byteOf(0, i), byteOf(1, i), byteOf(2, i),
                                static_cast<std::uint8_t>(coverage[i] * 255.0F + 0.5F));
    }

    const NM_LightingSettings& _settings;
    std::vector<NM_LightAmounts> _lights;
    std::vector<float> _power; // multiplied by the strength of highlights
};

template<typename PixelOf>
void lightRows(const NM_Surface& surface, const NM_LightingSettings& settings, std::span<std::uint8_t> bytes,
               const PixelOf& pixelOf)
{
    const FastShader shader(settings, surface);
    const auto width = static_cast<std::size_t>(surface.width());
    auto* const pixels = reinterpret_cast<ScreenPixel*>(bytes.data());
    VL_parallelFor(tbb::blocked_range<int>(0, surface.height(), 16), [&](const tbb::blocked_range<int>& range) {
        for (int y = range.begin(); y < range.end(); ++y)
            shader.shade(surface.row(y), y, pixels + width * static_cast<std::size_t>(y), pixelOf);
    });
}

} // namespace

void NM_light(const NM_Surface& surface, const NM_LightingSettings& settings, NM_ScreenPixels pixels,
              std::span<std::uint8_t> bytes)
{
    assert(bytes.size() ==
           std::size_t{4} * static_cast<std::size_t>(surface.width()) * static_cast<std::size_t>(surface.height()));
    if (pixels == NM_ScreenPixels::RGBA)
        lightRows(surface, settings, bytes, straight);
    else
        lightRows(surface, settings, bytes, premultiplied);
}
