// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which pixels each input of a node covers in a frame. A window needs this to find the object under the mouse and to
// draw its outline. The coverage is recorded while the drawing of the frame is painted, input by input, so it costs one
// look at each pixel and one bit of memory; objects below others are recorded completely.
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <QString>

#include <cstdint>
#include <span>
#include <vector>

/// The pixels that a picture covers by half or more: one bit for each pixel of a rectangle. A plain value.
class CoverageBits
{
public:
    /// Covers nothing.
    CoverageBits() = default;
    /// @param pixmap colours with coverage (RGBA, 16 bits or float); a pixmap of another kind covers nothing
    /// @param window the rectangle to record; pixels outside it count as uncovered
    CoverageBits(const CEL_PixmapArea& pixmap, const Math::Box2di& window);

    /// The smallest rectangle around the covered pixels, in the picture's coordinates.
    const Math::Box2di& rect() const { return _rect; }
    bool isEmpty() const { return _rect.isEmpty(); }
    /// Whether the pixel is covered; false outside rect().
    bool covers(int x, int y) const
    {
        return _rect.contains(x, y) && ((_words[wordOf(x, y)] >> (static_cast<unsigned>(x - _rect.x1) % 64U)) & 1U);
    }
    /// The bits of row y of rect(), the first pixel in the lowest bit of the first word; unused bits are 0.
    std::span<const std::uint64_t> row(int y) const { return {_words.data() + wordOf(_rect.x1, y), _stride}; }
    /// The memory of the bits, in bytes.
    std::size_t bytes() const { return _words.size() * sizeof(std::uint64_t); }

private:
    template<typename Pixel>
    void take(const CEL_PixelStore<Pixel>& pixels, const Math::Box2di& window);
    std::size_t wordOf(int x, int y) const
    {
        return static_cast<std::size_t>(y - _rect.y1) * _stride + static_cast<std::size_t>(x - _rect.x1) / 64;
    }

    Math::Box2di _rect{0, 0, 0, 0};
    std::size_t _stride = 0; // words per row
    std::vector<std::uint64_t> _words;
};

/// An input of a node in a frame.
struct ShownInput
{
    QString node;   ///< the node's name
    int port = 0;   ///< the input's position among the node's inputs, from 0
    int number = 0; ///< the number of its object; 0 is a cut-out, which removes what lies below it
    CoverageBits coverage;
};

/// The inputs of a frame, the lowest first.
using ShownInputs = std::vector<ShownInput>;
