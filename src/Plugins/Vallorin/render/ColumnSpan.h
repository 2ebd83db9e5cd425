// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A run of columns of a row: half-open, like rectangles.
#pragma once

#include <algorithm>

/// The columns first ... end - 1 of a row.
struct ColumnSpan
{
    int first = 0;
    int end = 0;

    bool isEmpty() const { return first >= end; }
    int width() const { return end - first; }

    ColumnSpan movedBy(int columns) const { return {first + columns, end + columns}; }

    bool overlaps(const ColumnSpan& other) const { return !intersectedWith(other).isEmpty(); }

    /// The columns of both; an empty span where there are none.
    ColumnSpan intersectedWith(const ColumnSpan& other) const
    {
        return {std::max(first, other.first), std::min(end, other.end)};
    }

    /// The columns of either, and those between them.
    ColumnSpan unitedWith(const ColumnSpan& other) const
    {
        if (isEmpty() || other.isEmpty())
            return isEmpty() ? other : *this;
        return {std::min(first, other.first), std::max(end, other.end)};
    }
};
