// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PixelPlane: one value for every pixel of a rectangle, such as colours, labels of areas or distances. The steps from a
// bitmap to its objects pass such planes on.
#pragma once

#include <cassert>
#include <cstddef>
#include <cstring>
#include <span>
#include <vector>

/// A plane of values, row by row, x right, y down.
template<typename Value>
class PixelPlane
{
public:
    PixelPlane() = default;
    PixelPlane(int width, int height, Value value = {})
        : _width(width)
        , _height(height)
        , _values(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), value)
    {}

    int width() const { return _width; }
    int height() const { return _height; }
    int count() const { return _width * _height; }
    bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < _width && y < _height; }

    std::span<Value> row(int y) { return std::span(_values).subspan(offset(y), static_cast<std::size_t>(_width)); }
    std::span<const Value> row(int y) const
    {
        return std::span(_values).subspan(offset(y), static_cast<std::size_t>(_width));
    }

    Value& at(int x, int y) { return _values[offset(y) + static_cast<std::size_t>(x)]; }
    const Value& at(int x, int y) const { return _values[offset(y) + static_cast<std::size_t>(x)]; }

    /// The pixels row after row: pixel (x, y) has the index y * width + x.
    Value& operator[](int index) { return _values[static_cast<std::size_t>(index)]; }
    const Value& operator[](int index) const { return _values[static_cast<std::size_t>(index)]; }

private:
    std::size_t offset(int y) const
    {
        assert(y >= 0 && y < _height);
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(_width);
    }

    int _width = 0;
    int _height = 0;
    std::vector<Value> _values;
};

/// The label of uncovered pixels.
inline constexpr int kNoLabel = -1;

/// The first pixel of a row that has a value, from a place on; the number of its pixels where there is none.
inline std::size_t nextOf(std::span<const char> row, std::size_t from, char value)
{
    const void* const found = from < row.size() ? std::memchr(&row[from], value, row.size() - from) : nullptr;
    return found != nullptr ? static_cast<std::size_t>(static_cast<const char*>(found) - row.data()) : row.size();
}

/// Calls visit(index) for the up to four neighbours of a pixel that share an edge with it.
template<typename Value, typename Visit>
void forEachNeighbour(const PixelPlane<Value>& plane, int x, int y, Visit visit)
{
    const int index = y * plane.width() + x;
    if (x > 0)
        visit(index - 1);
    if (x + 1 < plane.width())
        visit(index + 1);
    if (y > 0)
        visit(index - plane.width());
    if (y + 1 < plane.height())
        visit(index + plane.width());
}
