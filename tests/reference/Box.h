// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rectangles of the reference version. x runs to the right, y runs down, both in whole pixels; a rectangle is
// half-open: it covers the columns x1 ... x2 - 1 and the rows y1 ... y2 - 1. It is empty when x1 >= x2 or y1 >= y2, and
// all empty rectangles are equal to each other.
#pragma once

#include <iosfwd>

namespace reference {

/// A half-open rectangle of pixels. The default one is empty.
struct RefBox
{
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;

    /// Whether it covers no pixel.
    bool empty() const;
    /// Number of columns; 0 when empty.
    int width() const;
    /// Number of rows; 0 when empty.
    int height() const;
    /// Whether the pixel (x, y) lies inside.
    bool contains(int x, int y) const;
};

/// Same pixels covered; any two empty rectangles are equal.
bool operator==(const RefBox& a, const RefBox& b);

/// The smallest rectangle that covers both; an empty one adds nothing.
RefBox united(const RefBox& a, const RefBox& b);

/// The pixels that both cover.
RefBox intersected(const RefBox& a, const RefBox& b);

/// Moved outwards by `margin` pixels on each of the four sides. An empty rectangle stays empty.
RefBox enlarged(const RefBox& box, int margin);

/// The smallest rectangle that covers `box` and the one pixel (x, y).
RefBox withPixel(const RefBox& box, int x, int y);

/// Writes "[x1, x2) x [y1, y2)" for messages of failed tests.
std::ostream& operator<<(std::ostream& stream, const RefBox& box);

} // namespace reference
