// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Row by row: the light that falls on every pixel is summed up in three short buffers, one light after the other, then
// multiplied with the colours and encoded. Rows do not depend on each other, so their split over threads changes
// nothing.
#include "QuarvelNormalMap/NM_Lighting.h"

#include "QuarvelNormalMap/NM_Layout.h"
#include "QuarvelNormalMap/NM_Srgb.h"
#include "QuarvelNormalMap/private/NM_Rows.h"

#include <cmath>
#include <numbers>

namespace {

struct Direction
{
    float x, y, z;
};

Direction directionTo(const NM_Light& light)
{
    constexpr double kDegree = std::numbers::pi / 180.0;
    const double flat = std::cos(light.height * kDegree);
    return {static_cast<float>(flat * std::cos(light.azimuth * kDegree)),
            static_cast<float>(flat * std::sin(light.azimuth * kDegree)),
            static_cast<float>(std::sin(light.height * kDegree))};
}

// Halfway between the light and the viewer, who stands on the z axis. A light right behind the picture has no such
// direction and makes no highlight.
Direction halfwayTo(const Direction& light)
{
    const float z = light.z + 1.0F;
    const float length = std::sqrt(light.x * light.x + light.y * light.y + z * z);
    if (length < 1e-6F)
        return {0.0F, 0.0F, 0.0F};
    return {light.x / length, light.y / length, z / length};
}

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
    Direction direction;
    Direction halfway;
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
            const Direction direction = directionTo(light);
            _lights.push_back({direction, halfwayTo(direction), light.colour});
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
    static float cosine(const NM_Surface::Row& row, std::size_t x, const Direction& to)
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

template<typename Sample>
Sample quantise(float value)
{
    constexpr auto kFull = static_cast<float>(std::numeric_limits<Sample>::max());
    return static_cast<Sample>(value * kFull + 0.5F);
}

template<typename Sample>
void encodeRow(const NM_Surface::Row& row, const Buffers& buffers, Sample* target)
{
    const NM_SrgbEncoder& encoder = NM_SrgbEncoder::instance();
    const std::array<std::span<const float>, 3> colours = {row.red, row.green, row.blue};
    for (std::size_t x = 0; x < row.red.size(); ++x, target += 4) {
        for (std::size_t c = 0; c < 3; ++c)
            target[c] = quantise<Sample>(encoder(colours[c][x] * buffers.diffuse[c][x] + buffers.highlights[c][x]));
        target[3] = quantise<Sample>(row.coverage[x]);
    }
}

// rowOf(y): where row y's samples go.
template<typename Sample, typename RowOf>
void lightRows(const NM_Surface& surface, const NM_LightingSettings& settings, const RowOf& rowOf)
{
    const Shader shader(settings);
    tbb::parallel_for(tbb::blocked_range<int>(0, surface.height()), [&](const tbb::blocked_range<int>& range) {
        Buffers buffers(surface.width());
        for (int y = range.begin(); y < range.end(); ++y) {
            const NM_Surface::Row row = surface.row(y);
            shader.shade(row, buffers);
            encodeRow<Sample>(row, buffers, rowOf(y));
        }
    });
}

} // namespace

UT_Result<IIO_Picture> NM_litPicture(const NM_Surface& surface, const NM_LightingSettings& settings)
{
    auto picture = IIO_Picture::create(IIO_SampleType::UINT16, {surface.width(), surface.height()}, IIO_channelsRgba());
    if (!picture)
        return picture;
    picture->metadata() = NM_metadataOf(QStringLiteral("lit"));
    lightRows<std::uint16_t>(surface, settings, [&](int y) { return picture->row<std::uint16_t>(y).data(); });
    return picture;
}

void NM_light(const NM_Surface& surface, const NM_LightingSettings& settings, std::span<std::uint8_t> bytes)
{
    const auto rowBytes = std::size_t{4} * static_cast<std::size_t>(surface.width());
    assert(bytes.size() == rowBytes * static_cast<std::size_t>(surface.height()));
    lightRows<std::uint8_t>(surface, settings,
                            [&](int y) { return bytes.data() + rowBytes * static_cast<std::size_t>(y); });
}
