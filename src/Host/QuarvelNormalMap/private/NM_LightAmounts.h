// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NM_LightAmounts: how much of a light falls on the pixels of a row, that is, the terms of the model that depend on the
// normal and the place (NM_Lighting.h). The exact picture and the one for the screen both use it.
#pragma once

#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelNormalMap/private/NM_Directions.h"

#include <span>

/// A light, prepared for pictures of one size.
class NM_LightAmounts
{
public:
    NM_LightAmounts(const NM_Light& light, int width, int height);

    const NM_LightColour& colour() const { return _colour; }

    /// For the pixels from, from + 1, ... of row y: f max(0, n . l).
    void diffuse(const NM_Surface::Row& row, int y, std::size_t from, std::span<float> amounts) const;

    /// For the same pixels n . h, which is 0 where the surface looks away from the light, and f.
    void highlights(const NM_Surface::Row& row, int y, std::size_t from, std::span<float> cosines,
                    std::span<float> fallOffs) const;

private:
    // The direction from a pixel to a light near the picture, and the fall-off of the light there.
    struct Way
    {
        NM_LightDirection direction;
        float fallOff = 1.0F;
    };

    float acrossOf(std::size_t x) const { return (static_cast<float>(x) + 0.5F - _halfWidth) * _unit; }
    float upOf(int y) const { return (_halfHeight - (static_cast<float>(y) + 0.5F)) * _unit; }
    Way wayFrom(float across, float up) const;

    NM_LightColour _colour;
    bool _isNear = false;
    // Of a distant light.
    NM_LightDirection _to;
    NM_LightDirection _halfway;
    // Of a light near the picture, and of the picture.
    NM_LightDirection _place;
    float _reach = 1.0F;
    float _halfWidth = 0.0F;
    float _halfHeight = 0.0F;
    float _unit = 1.0F;
};
