// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FrameCuts: where a picture's border cuts the drawing, and where the drawing merely touches the border. Sprites are
// cropped tightly: a ball touches all four sides and is complete; a bust ends at the lower side and is not. A cut meets
// the border steeply and along a good part of it; the outline of a drawing that only touches the border turns away.
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

/// For each pixel along each side, whether the drawing continues outside it.
class FrameCuts
{
public:
    FrameCuts() = default;
    /// @param labels labels of regions; negative for uncovered pixels
    explicit FrameCuts(const PixelPlane<int>& labels);

    /// Notes that the picture ends inside the drawing on a side: nothing continues there.
    void endAt(FrameSide side);

    /// @param place the place along the side, from the left or the top
    bool isCut(FrameSide side, int place) const { return along(side)[static_cast<std::size_t>(place)] != 0; }
    /// Whether the whole border is covered and the drawing continues outside all of it.
    bool isCutAllAround() const;

private:
    const std::vector<char>& along(FrameSide side) const { return _cut[static_cast<std::size_t>(side)]; }

    std::array<std::vector<char>, 4> _cut;
};
