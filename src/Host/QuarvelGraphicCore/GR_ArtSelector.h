// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The art layers of a vector drawing and the choice of those that are rendered.
#pragma once

#include <array>
#include <cstddef>

/// The art layers of a vector drawing, in the order in which they are painted.
enum class GR_Art
{
    UNDERLAY = 0, ///< sketches and guides beneath the drawing
    COLOUR = 1,   ///< the painted areas
    LINE = 2,     ///< the line art
    OVERLAY = 3   ///< notes and highlights on top
};

/// All art layers, bottom up.
inline constexpr std::array kGR_allArts = {GR_Art::UNDERLAY, GR_Art::COLOUR, GR_Art::LINE, GR_Art::OVERLAY};

/// Chooses the art layers of a drawing that are rendered; all of them by default.
class GR_ArtSelector
{
public:
    constexpr GR_ArtSelector() { _selected.fill(true); }

    constexpr bool isSelected(GR_Art art) const { return _selected[static_cast<std::size_t>(art)]; }
    constexpr void setSelected(GR_Art art, bool selected) { _selected[static_cast<std::size_t>(art)] = selected; }

    friend constexpr bool operator==(const GR_ArtSelector&, const GR_ArtSelector&) = default;

private:
    std::array<bool, kGR_allArts.size()> _selected{};
};
