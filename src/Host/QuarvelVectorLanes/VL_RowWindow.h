// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The last few rows of something that is made row by row, for passes that move down a picture and read a few rows at a
// time. Each row is made once as long as the pass does not go back.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

/// Slots for rows: row y uses slot y modulo their number, so that a row stays until that many others have come.
template<typename Row>
class VL_RowRing
{
public:
    /// @param rows the slots, at least one
    explicit VL_RowRing(std::vector<Row> rows) : _rows(std::move(rows)) {}

    Row& at(int y)
    {
        const auto count = static_cast<int>(_rows.size());
        return _rows[static_cast<std::size_t>(((y % count) + count) % count)];
    }

private:
    std::vector<Row> _rows;
};

/// Rows of floats that are made on demand.
class VL_RowWindow
{
public:
    /// @param buffers one for each kept row
    explicit VL_RowWindow(const std::vector<float*>& buffers) : _slots(slotsOf(buffers)) {}

    /// Row y: the kept one, or the result of make(y, buffer), which may lie outside the buffer.
    template<typename Make>
    const float* row(int y, const Make& make)
    {
        Slot& slot = _slots.at(y);
        if (slot.y != y || !slot.row) {
            slot.row = make(y, slot.buffer);
            slot.y = y;
        }
        return slot.row;
    }

private:
    struct Slot
    {
        float* buffer = nullptr;
        int y = 0;
        const float* row = nullptr;
    };

    static std::vector<Slot> slotsOf(const std::vector<float*>& buffers)
    {
        std::vector<Slot> slots;
        slots.reserve(buffers.size());
        for (float* buffer : buffers)
            slots.push_back({buffer, 0, nullptr});
        return slots;
    }

    VL_RowRing<Slot> _slots;
};
