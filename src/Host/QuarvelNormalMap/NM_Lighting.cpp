// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Row by row: the light that falls on every pixel is summed up in three short buffers, one light after the other, then
// multiplied with the colours and encoded. Rows do not depend on each other, so their split over threads changes
// nothing.
#include "QuarvelNormalMap/NM_Lighting.h"

#include "QuarvelNormalMap/NM_Layout.h"
#include "QuarvelNormalMap/NM_Srgb.h"
#include "QuarvelNormalMap/private/NM_Directions.h"
#include "QuarvelNormalMap/private/NM_Rows.h"

#include <cmath>

namespace {

// Powers of 0 .. 1 by a table with interpolation.
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

struct PreparedLight
{
    NM_LightDirection direction;
    NM_LightDirection halfway;
    NM_LightColour colour;
};

// The light that falls on the pixels of one row, and the highlights.
struct Buffers
{
    explicit Buffers(int width)
        : diffuse{Plane(static_cast<std::size_t>(width)), Plane(static_cast<std::size_t>(width)),
                  Plane(static_cast<std::size_t>(width))}
        , highlights(diffuse)
    {}

    using Plane = std::vector<float>;
    std::array<Plane, 3> diffuse;
    std::array<Plane, 3> highlights;
};

class Shader
{
public:
    explicit Shader(const NM_LightingSettings& settings)
        : _ambient(settings.ambient), _highlight(settings.highlight), _power(settings.sharpness)
    {
        for (const NM_Light& light : settings.lights) {
            const NM_LightDirection direction = NM_directionTo(light);
            _lights.push_back({direction, NM_halfwayTo(direction), light.colour});
        }
    }

    void shade(const NM_Surface::Row& row, Buffers& buffers) const
    {
        for (std::size_t c = 0; c < 3; ++c) {
            std::ranges::fill(buffers.diffuse[c], _ambient[c]);
            std::ranges::fill(buffers.highlights[c], 0.0F);
        }
        for (const PreparedLight& light : _lights) {
            addDiffuse(row, light, buffers);
            if (_highlight > 0.0F)
                addHighlights(row, light, buffers);
        }
    }

private:
    static float cosine(const NM_Surface::Row& row, std::size_t x, const NM_LightDirection& to)
    {
        return row.normalX[x] * to.x + row.normalY[x] * to.y + row.normalZ[x] * to.z;
    }

    static void addDiffuse(const NM_Surface::Row& row, const PreparedLight& light, Buffers& buffers)
    {
        float* red = buffers.diffuse[0].data();
        float* green = buffers.diffuse[1].data();
        float* blue = buffers.diffuse[2].data();
        for (std::size_t x = 0; x < row.normalX.size(); ++x) {
            const float amount = std::max(0.0F, cosine(row, x, light.direction));
            red[x] += amount * light.colour[0];
            green[x] += amount * light.colour[1];
            blue[x] += amount * light.colour[2];
        }
    }

    void addHighlights(const NM_Surface::Row& row, const PreparedLight& light, Buffers& buffers) const
    {
        for (std::size_t x = 0; x < row.normalX.size(); ++x) {
            // What looks away from the light has no highlight.
            if (cosine(row, x, light.direction) <= 0.0F)
                continue;
            const float amount = _highlight * _power(cosine(row, x, light.halfway));
            for (std::size_t c = 0; c < 3; ++c)
                buffers.highlights[c][x] += amount * light.colour[c];
        }
    }

    NM_LightColour _ambient;
    float _highlight;
    PowerTable _power;
    std::vector<PreparedLight> _lights;
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
    const Shader shader(settings);
    tbb::parallel_for(tbb::blocked_range<int>(0, surface.height()), [&](const tbb::blocked_range<int>& range) {
        Buffers buffers(surface.width());
        for (int y = range.begin(); y < range.end(); ++y) {
            const NM_Surface::Row row = surface.row(y);
            shader.shade(row, buffers);
            encodeRow(row, buffers, picture->row<std::uint16_t>(y).data());
        }
    });
    return picture;
}
