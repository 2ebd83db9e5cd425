// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The last few rows of something that is made row by row, for passes that move down a picture and look at a few rows at
// a time. Every row is made once, if the pass never goes back.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

/// Slots for rows: row y has the slot of its remainder, so that a row stays until as many others came.
template<typename Row>
class VL_RowRing
{
public:
    /// @param rows as many slots, at least one
    explicit VL_RowRing(std::vector<Row> rows) : _rows(std::move(rows)) {}

    Row& at(int y)
    {
        const auto count = static_cast<int>(_rows.size());
        return _rows[static_cast<std::size_t>(((y % count) + count) % count)];
    }

private:
    std::vector<Row> _rows;
};

/// Rows of floats that are made when they are asked for.
class VL_RowWindow
{
public:
    /// @param buffers one for each row that is kept
    explicit VL_RowWindow(const std::vector<float*>& buffers) : _slots(slotsOf(buffers)) {}

    /// Row y: the one kept, or what make(y, buffer) returns, which may be a row that lies elsewhere.
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
        for (float* buffer : buffers)
            slots.push_back({buffer, 0, nullptr});
        return slots;
    }

    VL_RowRing<Slot> _slots;
};
