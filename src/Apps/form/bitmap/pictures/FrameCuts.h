// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FrameCuts: where a picture's border cuts what is drawn, and where the drawing merely comes up to it. Sprites are
// cropped tightly, so that a ball touches all four sides and is complete; a bust ends at the lower one and is not. What
// is cut meets the border steeply and along a good part of it; what touches it turns away.
#pragma once

#include "form/bitmap/pixels/PixelPlane.h"

#include <array>

/// The sides of a picture.
enum class FrameSide
{
    LEFT,
    TOP,
    RIGHT,
    BOTTOM
};

inline constexpr std::array kFrameSides = {FrameSide::LEFT, FrameSide::TOP, FrameSide::RIGHT, FrameSide::BOTTOM};

/// For each side whether the drawing goes on beyond it, pixel by pixel.
class FrameCuts
{
public:
    FrameCuts() = default;
    /// @param labels of regions; negative where nothing is covered
    explicit FrameCuts(const PixelPlane<int>& labels);

    /// @param place along the side, from the left or the top
    bool isCut(FrameSide side, int place) const { return along(side)[static_cast<std::size_t>(place)] != 0; }
    /// Everything that is drawn goes on beyond all sides, and all of the border is covered.
    bool isCutAllAround() const;

private:
    const std::vector<char>& along(FrameSide side) const { return _cut[static_cast<std::size_t>(side)]; }

    std::array<std::vector<char>, 4> _cut;
};
