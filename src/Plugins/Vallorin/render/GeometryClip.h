// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where a blur is taken back: a blurred pixel stays only where the unblurred mask has geometry within 2 pixels, so that
// the bevel ends at the outline with a little room for antialiasing.
//
// The neighbourhood is separable: a row's geometry is spread by 2 pixels sideways once, and a pixel is near geometry
// when one of the five spread rows around it says so. The cost does not depend on what is where.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

/// Tells which pixels have a positive value of the mask in their 5 x 5 neighbourhood, row by row downwards.
class NearGeometry
{
public:
    /// @param rect the rectangle whose rows are asked for, inside of which rows() answers
    NearGeometry(const CEL_PixmapAreaZ& mask, const Math::Box2di& rect);

    /// The only part of the rectangle where anything can be near geometry.
    const Math::Box2di& reach() const { return _reach; }

    /// Row y of the reach, 1 where geometry is near and 0 elsewhere. Each row is asked for once, from the top. The row
    /// is good until the next one is asked for.
    std::span<const std::uint8_t> nextRow(int y);

private:
    static constexpr int kReach = 2;

    void spread(int y);
    std::vector<std::uint8_t>& rowFor(int y);

    const CEL_PixmapAreaZ& _mask;
    Math::Box2di _reach;
    std::vector<std::uint8_t> _geometry;
    std::array<std::vector<std::uint8_t>, 2 * kReach + 1> _spread;
    std::vector<std::uint8_t> _near;
};
