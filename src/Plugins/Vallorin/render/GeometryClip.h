// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where a blur is clipped: a blurred pixel stays only where the unblurred mask has geometry within 2 pixels, so that
// the bevel ends at the outline with a little room for antialiasing.
//
// Rows are stored as bits, 64 pixels a word: a neighbourhood is a few shifts, and where all or no geometry is near, 64
// pixels are decided at once. The cost does not depend on the picture.
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
    /// @param rect the rectangle that is clipped
    NearGeometry(const CEL_PixmapAreaZ& mask, const Math::Box2di& rect);

    /// The only part of the rectangle where pixels can be near geometry.
    const Math::Box2di& reach() const { return _reach; }

    /// Row y of the reach, a bit for each pixel from the lowest of the first word on: 1 where geometry is near. Bits
    /// after the row's end are 0. Each row must be requested once, from the top, and stays valid until the next
    /// request.
    std::span<const std::uint64_t> nextRow(int y);

private:
    static constexpr int kReach = 2;

    void pack(int y);
    std::vector<std::uint64_t>& rowFor(int y);

    const CEL_PixmapAreaZ& _mask;
    Math::Box2di _reach;
    std::array<std::vector<std::uint64_t>, 2 * kReach + 1>
        _geometry;                    // the rows around the current one, from the mask's left edge on
    std::vector<std::uint64_t> _near; // from kReach pixels further left on
};
