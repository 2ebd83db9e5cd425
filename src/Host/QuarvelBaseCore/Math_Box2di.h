// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Math::Box2di: an integer rectangle. It is half-open (x1 and y1 belong to it, x2 and y2 do not), x runs to the right
// and y down, and it is empty when x1 >= x2 or y1 >= y2. No empty box holds a pixel, but two of them are equal only
// when their four numbers are.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Math {

/// A half-open rectangle of pixels: columns x1 .. x2-1, rows y1 .. y2-1.
class Box2di
{
public:
    /// The empty box at the origin.
    constexpr Box2di() = default;
    constexpr Box2di(int left, int top, int right, int bottom) : x1(left), y1(top), x2(right), y2(bottom) {}

    friend constexpr bool operator==(const Box2di&, const Box2di&) = default;

    constexpr bool isEmpty() const { return x1 >= x2 || y1 >= y2; }
    /// Number of columns; 0 when empty.
    constexpr int width() const { return isEmpty() ? 0 : x2 - x1; }
    /// Number of rows; 0 when empty.
    constexpr int height() const { return isEmpty() ? 0 : y2 - y1; }
    /// Number of pixels.
    constexpr std::int64_t area() const { return std::int64_t{width()} * height(); }

    constexpr bool contains(int x, int y) const { return x >= x1 && x < x2 && y >= y1 && y < y2; }
    /// True when every pixel of other is in this box; every box contains an empty one.
    constexpr bool contains(const Box2di& other) const
    {
        return other.isEmpty() || (other.x1 >= x1 && other.x2 <= x2 && other.y1 >= y1 && other.y2 <= y2);
    }

    /// Grows the box to cover the pixel (x, y). An empty box becomes that pixel's 1 x 1 box.
    constexpr void add(int x, int y) { add(Box2di(x, y, x + 1, y + 1)); }

    /// Grows the box to cover another one; an empty one adds nothing.
    constexpr void add(const Box2di& other)
    {
        if (other.isEmpty())
            return;
        if (isEmpty()) {
            *this = other;
            return;
        }
        x1 = std::min(x1, other.x1);
        y1 = std::min(y1, other.y1);
        x2 = std::max(x2, other.x2);
        y2 = std::max(y2, other.y2);
    }

    /// The pixels that are in both boxes.
    constexpr Box2di getIntersection(const Box2di& other) const
    {
        return Box2di(std::max(x1, other.x1), std::max(y1, other.y1), std::min(x2, other.x2), std::min(y2, other.y2));
    }

    /// The box with every side moved outwards by n pixels (inwards when n is negative). An empty box stays unchanged.
    /// Coordinates are clamped to the range of int.
    constexpr Box2di getEnlarged(int n) const
    {
        if (isEmpty())
            return *this;
        return Box2di(saturate(std::int64_t{x1} - n), saturate(std::int64_t{y1} - n), saturate(std::int64_t{x2} + n),
                      saturate(std::int64_t{y2} + n));
    }

    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;

private:
    static constexpr int saturate(std::int64_t v)
    {
        return static_cast<int>(
            std::clamp<std::int64_t>(v, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    }
};

} // namespace Math
