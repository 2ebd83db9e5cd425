// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pictures of the reference version. A picture has a canvas (what the render shows), a nominal size, and an allocated
// rectangle, which may be smaller than the canvas, extend beyond it, or be empty. Only allocated pixels exist: every
// other pixel is missing, which is not the same as zero. Coordinates are the canvas's own and may be negative.
#pragma once

#include "reference/Box.h"
#include "reference/Pixels.h"

#include <cstddef>
#include <stdexcept>
#include <vector>

namespace reference {

/// A picture of pixels P (RefPixel16, RefPixelFloat, or float for depth).
template<class P>
struct RefImage
{
    /// The allocated rectangle. Changed only by realloc() and the operations built on it, so that `pixels` stays
    /// consistent.
    RefBox box;
    /// What the render shows; kept by every operation below.
    RefBox canvas;
    /// Nominal size in pixels; kept by every operation below.
    int width = 0;
    int height = 0;
    /// The allocated pixels, row after row from the top, each row from the left.
    std::vector<P> pixels;

    /// No pixels, empty canvas, size 0 x 0.
    RefImage() = default;

    /// Zero pixels in `allocated`; canvas and size are those of the rectangle.
    explicit RefImage(const RefBox& allocated) : RefImage(allocated, allocated, allocated.width(), allocated.height())
    {}

    /// Zero pixels in `allocated` (which may be empty), with the given canvas and size.
    RefImage(const RefBox& allocated, const RefBox& canvas_, int width_, int height_)
        : canvas(canvas_), width(width_), height(height_)
    {
        realloc(allocated);
    }

    /// Whether the pixel exists.
    bool has(int x, int y) const { return box.contains(x, y); }

    /// The pixel, which must exist; throws std::out_of_range otherwise.
    P& at(int x, int y) { return pixels.at(index(x, y)); }
    const P& at(int x, int y) const { return pixels.at(index(x, y)); }

    /// Allocates exactly `wanted`: pixels in both rectangles keep their values, new ones are zero in all channels.
    void realloc(const RefBox& wanted)
    {
        const RefImage old = *this;
        box = wanted.empty() ? RefBox{} : wanted;
        pixels.assign(static_cast<std::size_t>(box.width()) * static_cast<std::size_t>(box.height()), P{});
        for (int y = box.y1; y < box.y2; ++y) {
            for (int x = box.x1; x < box.x2; ++x) {
                if (old.has(x, y)) {
                    at(x, y) = old.at(x, y);
                }
            }
        }
    }

    /// Allocates the union of its own rectangle and `other` (another picture's allocated rectangle).
    void reallocToFit(const RefBox& other) { realloc(united(box, other)); }

    /// Drops the pixels outside its canvas.
    void clipToCanvas() { realloc(intersected(box, canvas)); }

    /// Both of the above, in this order.
    void reallocToFitAndClipToCanvas(const RefBox& other) { realloc(intersected(united(box, other), canvas)); }

private:
    std::size_t index(int x, int y) const
    {
        if (!has(x, y)) {
            throw std::out_of_range("no such pixel in the reference picture");
        }
        return static_cast<std::size_t>(y - box.y1) * static_cast<std::size_t>(box.width()) +
               static_cast<std::size_t>(x - box.x1);
    }
};

using RefImage16 = RefImage<RefPixel16>;
using RefImageFloat = RefImage<RefPixelFloat>;

/// A depth picture: one single-precision depth a pixel, and the range that it was made for. A depth of exactly 0.0
/// (either zero) is black, that is empty.
struct RefDepth : RefImage<float>
{
    using RefImage<float>::RefImage;

    /// The declared range, lowest first.
    double rangeLow = 0.0;
    double rangeHigh = 0.0;

    /// Whether there is a depth that is not black.
    bool hasDepth(int x, int y) const { return has(x, y) && at(x, y) != 0.0F; }
};

} // namespace reference
