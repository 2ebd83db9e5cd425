// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RowWindow: the last few rows of something that is made row by row, for passes that move down a picture and look at a
// few rows at a time. Every row is made once, if the pass never goes back.
#pragma once

#include <utility>
#include <vector>

namespace BlurAlgo {

/// Keeps as many rows as it has buffers; row y lives in the buffer y modulo their number.
class RowWindow
{
public:
    explicit RowWindow(std::vector<float*> buffers) : _buffers(std::move(buffers)), _slots(_buffers.size()) {}

    /// Row y: the one kept, or what make(y, buffer) returns, which may be a row that lies elsewhere.
    template<typename Make>
    const float* row(int y, const Make& make)
    {
        const auto count = static_cast<int>(_slots.size());
        const auto index = static_cast<std::size_t>(((y % count) + count) % count);
        Slot& slot = _slots[index];
        if (slot.y != y || !slot.row) {
            slot.row = make(y, _buffers[index]);
            slot.y = y;
        }
        return slot.row;
    }

private:
    struct Slot
    {
        int y = 0;
        const float* row = nullptr;
    };

    std::vector<float*> _buffers;
    std::vector<Slot> _slots;
};

} // namespace BlurAlgo
