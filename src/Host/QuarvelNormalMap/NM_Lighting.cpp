// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each row is lit by itself: the light on every pixel is added up in three buffers of the row's length, one light after
// the other, then multiplied by the colours and encoded. Rows do not depend on each other, so the number of threads
// does not matter.
#include "QuarvelNormalMap/NM_Lighting.h"

#include "QuarvelNormalMap/NM_Layout.h"
#include "QuarvelNormalMap/NM_Srgb.h"
#include "QuarvelNormalMap/private/NM_LightAmounts.h"
#include "QuarvelNormalMap/private/NM_Rows.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <cmath>

namespace {

// Computes powers of 0 .. 1 from a table, with linear interpolation.
class PowerTable
{
public:
    explicit PowerTable(float exponent) : _values(kSteps + 2)
    {
        const double power = std::max(static_cast<double>(exponent), 1.0);
        for (std::size_t i = 0; i < _values.size(); ++i)
            _values[i] = static_cast<float>(std::pow(std::min(static_cast<double>(i) / kSteps, 1.0), power));
    }

    float operator()(float base) const
    {
        const float position = std::clamp(base, 0.0F, 1.0F) * static_cast<float>(kSteps);
        const auto index = static_cast<std::size_t>(position);
        const float fraction = position - static_cast<float>(index);
        return _values[index] + fraction * (_values[index + 1] - _values[index]);
    }

private:
    static constexpr int kSteps = 4096;
    std::vector<float> _values;
};

// The light on the pixels of one row, and their highlights.
struct Buffers
{
    explicit Buffers(int width)
        : diffuse{Plane(static_cast<std::size_t>(width)), Plane(static_cast<std::size_t>(width)),
                  Plane(static_cast<std::size_t>(width))}
        , highlights(diffuse)
        , amounts(diffuse[0])
        , fallOffs(diffuse[0])
    {}

    using Plane = std::vector<float>;
    std::array<Plane, 3> diffuse;
    std::array<Plane, 3> highlights;
    // For one light at a time.
    Plane amounts;
    Plane fallOffs;
};

class Shader
{
public:
    Shader(const NM_LightingSettings& settings, const NM_Surface& surface)
        : _ambient(settings.ambient), _highlight(settings.highlight), _power(settings.sharpness)
    {
        for (const NM_Light& light : settings.lights)
            _lights.emplace_back(light, surface.width(), surface.height());
    }

    void shade(const NM_Surface::Row& row, int y, Buffers& buffers) const
    {
        for (std::size_t c = 0; c < 3; ++c) {
            std::ranges::fill(buffers.diffuse[c], _ambient[c]);
            std::ranges::fill(buffers.highlights[c], 0.0F);
        }
        for (const NM_LightAmounts& light : _lights) {
            light.diffuse(row, y, 0, buffers.amounts);
            for (std::size_t c = 0; c < 3; ++c)
                add(buffers.amounts, light.colour()[c], buffers.diffuse[c]);
            if (_highlight > 0.0F)
                addHighlights(row, y, light, buffers);
        }
    }

private:
    static void add(const Buffers::Plane& amounts, float colour, Buffers::Plane& sum)
    {
        for (std::size_t x = 0; x < sum.size(); ++x)
            sum[x] += amounts[x] * colour;
    }

    void addHighlights(const NM_Surface::Row& row, int y, const NM_LightAmounts& light, Buffers& buffers) const
    {
        light.highlights(row, y, 0, buffers.amounts, buffers.fallOffs);
        for (std::size_t x = 0; x < buffers.amounts.size(); ++x)
            buffers.amounts[x] =
                buffers.amounts[x] > 0.0F ? _highlight * _power(buffers.amounts[x]) * buffers.fallOffs[x] : 0.0F;
        for (std::size_t c = 0; c < 3; ++c)
            add(buffers.amounts, light.colour()[c], buffers.highlights[c]);
    }

    NM_LightColour _ambient;
    float _highlight;
    PowerTable _power;
    std::vector<NM_LightAmounts> _lights;
};

std::uint16_t quantise(float value)
{
    return static_cast<std::uint16_t>(value * 65535.0F + 0.5F);
}

void encodeRow(const NM_Surface::Row& row, const Buffers& buffers, std::uint16_t* target)
{
    const NM_SrgbEncoder& encoder = NM_SrgbEncoder::instance();
    const std::array<std::span<const float>, 3> colours = {row.red, row.green, row.blue};
    for (std::size_t x = 0; x < row.red.size(); ++x, target += 4) {
        for (std::size_t c = 0; c < 3; ++c)
            target[c] = quantise(encoder(colours[c][x] * buffers.diffuse[c][x] + buffers.highlights[c][x]));
        target[3] = quantise(row.coverage[x]);
    }
}

} // namespace

UT_Result<IIO_Picture> NM_litPicture(const NM_Surface& surface, const NM_LightingSettings& settings)
{
    auto picture = IIO_Picture::create(IIO_SampleType::UINT16, {surface.width(), surface.height()}, IIO_channelsRgba());
    if (!picture)
        return picture;
    picture->metadata() = NM_metadataOf(QStringLiteral("lit"));
    const Shader shader(settings, surface);
    VL_parallelFor(tbb::blocked_range<int>(0, surface.height()), [&](const tbb::blocked_range<int>& range) {
        Buffers buffers(surface.width());
        for (int y = range.begin(); y < range.end(); ++y) {
            const NM_Surface::Row row = surface.row(y);
            shader.shade(row, y, buffers);
            encodeRow(row, buffers, picture->row<std::uint16_t>(y).data());
        }
    });
    return picture;
}
