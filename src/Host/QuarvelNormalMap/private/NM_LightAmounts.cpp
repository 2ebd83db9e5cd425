// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Loops over rows of floats without branches inside, so that compilers can vectorise them.
#include "QuarvelNormalMap/private/NM_LightAmounts.h"

#include <algorithm>
#include <cmath>

namespace {

float cosine(const NM_Surface::Row& row, std::size_t x, const NM_LightDirection& to)
{
    return row.normalX[x] * to.x + row.normalY[x] * to.y + row.normalZ[x] * to.z;
}

} // namespace

NM_LightAmounts::NM_LightAmounts(const NM_Light& light, int width, int height)
    : _colour(light.colour)
    , _isNear(light.place.has_value())
    , _to(NM_directionTo(light))
    , _halfway(NM_halfwayTo(_to))
    , _halfWidth(static_cast<float>(width) / 2.0F)
    , _halfHeight(static_cast<float>(height) / 2.0F)
    , _unit(2.0F / static_cast<float>(std::min(width, height)))
{
    if (!_isNear)
        return;
    _place = {static_cast<float>(light.place->x), static_cast<float>(light.place->y),
              static_cast<float>(light.place->height)};
    _reach = static_cast<float>(light.place->reach);
}

NM_LightAmounts::Way NM_LightAmounts::wayFrom(float across, float up) const
{
    const float x = _place.x - across;
    const float y = _place.y - up;
    const float flat = x * x + y * y;
    const float length = std::sqrt(flat + _place.z * _place.z);
    return {{x / length, y / length, _place.z / length}, 1.0F / (1.0F + flat / (_reach * _reach))};
}

void NM_LightAmounts::diffuse(const NM_Surface::Row& row, int y, std::size_t from, std::span<float> amounts) const
{
    if (!_isNear) {
        for (std::size_t i = 0; i < amounts.size(); ++i)
            amounts[i] = std::max(0.0F, cosine(row, from + i, _to));
        return;
    }
    const float up = upOf(y);
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        const Way way = wayFrom(acrossOf(from + i), up);
        amounts[i] = way.fallOff * std::max(0.0F, cosine(row, from + i, way.direction));
    }
}

void NM_LightAmounts::highlights(const NM_Surface::Row& row, int y, std::size_t from, std::span<float> cosines,
                                 std::span<float> fallOffs) const
{
    const float up = upOf(y);
    for (std::size_t i = 0; i < cosines.size(); ++i) {
        const Way way = _isNear ? wayFrom(acrossOf(from + i), up) : Way{_to, 1.0F};
        const NM_LightDirection halfway = _isNear ? NM_halfwayTo(way.direction) : _halfway;
        // A surface that looks away from the light has no highlight.
        cosines[i] = cosine(row, from + i, way.direction) > 0.0F ? cosine(row, from + i, halfway) : 0.0F;
        fallOffs[i] = way.fallOff;
    }
}
