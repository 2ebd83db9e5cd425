// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Works on rows in parallel. In each row, the light is added up for short runs of pixels, in loops that compilers
// vectorise.
#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelNormalMap/NM_Srgb.h"
#include "QuarvelNormalMap/private/NM_LightAmounts.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace {

// Short, so that much of what lies beside a drawing is skipped, and so that a run fits the first level cache.
constexpr int kRun = 64;
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

// What is done to all pixels of a run is a loop of its own, which compilers vectorise; types, not functions, so that
// they see it.
using ByteRun = std::array<std::uint8_t, kRun>;
using ByteRuns = std::array<ByteRun, 4>; // red, green, blue, alpha

struct Straight
{
    static void store(const ByteRuns& bytes, std::size_t count, ScreenPixel* target)
    {
        const auto& [red, green, blue, alpha] = bytes;
        for (std::size_t i = 0; i < count; ++i)
            target[i] = {red[i], green[i], blue[i], alpha[i]};
    }
};

struct Premultiplied
{
    // colour * alpha / 255, rounded, without a division: exact for all products of two bytes.
    static std::uint16_t times(std::uint16_t colour, std::uint16_t alpha)
    {
        const auto product = static_cast<std::uint16_t>(colour * alpha + 128);
        return static_cast<std::uint16_t>((product + (product >> 8)) >> 8);
    }

    static void store(const ByteRuns& bytes, std::size_t count, ScreenPixel* target)
    {
        const auto& [red, green, blue, alpha] = bytes;
        std::array<std::uint32_t, kRun> words;
        for (std::size_t i = 0; i < count; ++i)
            words[i] = std::uint32_t{alpha[i]} << 24 | std::uint32_t{times(red[i], alpha[i])} << 16 |
                       std::uint32_t{times(green[i], alpha[i])} << 8 | times(blue[i], alpha[i]);
        std::memcpy(target, words.data(), count * sizeof(words[0]));
    }
};

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

    template<typename Pixels>
    void shade(const NM_Surface::Row& row, int y, ScreenPixel* target) const
    {
        Run run;
        for (std::size_t from = 0; from < row.red.size(); from += kRun) {
            const std::size_t count = std::min<std::size_t>(kRun, row.red.size() - from);
            if (isEmpty(row.coverage.subspan(from, count))) {
                std::fill_n(target + from, count, ScreenPixel{});
                continue;
            }
            sumUp(row, y, from, count, run);
            encode<Pixels>(row, from, count, run, target + from);
        }
    }

private:
    static bool isEmpty(std::span<const float> coverage)
    {
        int covered = 0;
        for (const float value : coverage)
            covered += value > 0.0F ? 1 : 0;
        return covered == 0;
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

    // The bytes of a channel. Written so that compilers clamp many at once; NaN becomes 0.
    static void encodeChannel(const float* colour, const Plane& light, const Plane& highlight, std::size_t count,
                              ByteRun& bytes)
    {
        const Bytes& encoded = encodedBytes();
        Plane held;
        std::array<std::int32_t, kRun> steps;
        for (std::size_t i = 0; i < count; ++i) {
            const float amount = colour[i] * light[i] + highlight[i];
            held[i] = amount > 0.0F ? amount : 0.0F;
        }
        for (std::size_t i = 0; i < count; ++i)
            held[i] = held[i] < 1.0F ? held[i] : 1.0F;
        for (std::size_t i = 0; i < count; ++i)
            steps[i] = static_cast<std::int32_t>(held[i] * kSteps + 0.5F);
        for (std::size_t i = 0; i < count; ++i)
            bytes[i] = encoded[static_cast<std::size_t>(steps[i])];
    }

    template<typename Pixels>
    static void encode(const NM_Surface::Row& row, std::size_t from, std::size_t count, const Run& run,
                       ScreenPixel* target)
    {
        const std::array<const float*, 3> colours = {row.red.data() + from, row.green.data() + from,
                                                     row.blue.data() + from};
        const float* const coverage = row.coverage.data() + from;
        ByteRuns bytes;
        for (std::size_t c = 0; c < 3; ++c)
            encodeChannel(colours[c], run.light[c], run.highlight[c], count, bytes[c]);
        for (std::size_t i = 0; i < count; ++i)
            bytes[3][i] = static_cast<std::uint8_t>(static_cast<std::int32_t>(coverage[i] * 255.0F + 0.5F));
        Pixels::store(bytes, count, target);
    }

    const NM_LightingSettings& _settings;
    std::vector<NM_LightAmounts> _lights;
    std::vector<float> _power; // multiplied by the strength of highlights
};

template<typename Pixels>
void lightRows(const NM_Surface& surface, const NM_LightingSettings& settings, std::span<std::uint8_t> bytes)
{
    const FastShader shader(settings, surface);
    const auto width = static_cast<std::size_t>(surface.width());
    auto* const pixels = reinterpret_cast<ScreenPixel*>(bytes.data());
    VL_parallelFor(tbb::blocked_range<int>(0, surface.height(), 16), [&](const tbb::blocked_range<int>& range) {
        for (int y = range.begin(); y < range.end(); ++y)
            shader.shade<Pixels>(surface.row(y), y, pixels + width * static_cast<std::size_t>(y));
    });
}

} // namespace

void NM_light(const NM_Surface& surface, const NM_LightingSettings& settings, NM_ScreenPixels pixels,
              std::span<std::uint8_t> bytes)
{
    assert(bytes.size() ==
           std::size_t{4} * static_cast<std::size_t>(surface.width()) * static_cast<std::size_t>(surface.height()));
    if (pixels == NM_ScreenPixels::RGBA)
        lightRows<Straight>(surface, settings, bytes);
    else
        lightRows<Premultiplied>(surface, settings, bytes);
}
