// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Merges the inputs' rows in the order of the ports, as whole pictures would be merged.
#include "render/AccumulatedRows.h"

#include "render/AccumulatorKernels.h"

#include <algorithm>

template<typename Pixel>
AccumulatedRows<Pixel>::AccumulatedRows(const AccumulatedObject& object)
    : _merged(static_cast<const Pixmap&>(*object.merged)), _rect(object.rect)
{
    for (const UT_SharedPtr<CEL_PixmapArea>& input : object.waiting)
        _waiting.push_back(static_cast<const Pixmap*>(input.get()));
    if (!_waiting.empty())
        _line.resize(static_cast<std::size_t>(_rect.width()));
}

template<typename Pixel>
std::span<const Pixel> AccumulatedRows<Pixel>::pixels(int y, int x1, int x2)
{
    const auto width = static_cast<std::size_t>(x2 - x1);
    if (_waiting.empty())
        return _merged.row(y).subspan(static_cast<std::size_t>(x1 - _rect.x1), width);
    const std::span<Pixel> line(_line.data(), width);
    bool isWritten = copyMerged(y, x1, line);
    for (const Pixmap* const input : _waiting) {
        const Math::Box2di common = Math::Box2di(x1, y, x2, y + 1).getIntersection(input->allocatedRect());
        if (common.isEmpty())
            continue;
        const auto from = input->row(y).subspan(static_cast<std::size_t>(common.x1 - input->allocatedRect().x1),
                                                static_cast<std::size_t>(common.width()));
        if (!isWritten && from.size() == width) {
            VolumeRowKernels::placeLayers(from, line.data());
        } else {
            if (!isWritten)
                std::ranges::fill(line, Pixel{});
            VolumeRowKernels::mergeLayers(from, &line[static_cast<std::size_t>(common.x1 - x1)]);
        }
        isWritten = true;
    }
    if (!isWritten)
        std::ranges::fill(line, Pixel{});
    return line;
}

template<typename Pixel>
void AccumulatedRows<Pixel>::weigh(int y, int x1, int x2, float* mask)
{
    if (const Pixmap* const input = onlyInput({x1, y, x2, y + 1}))
        VolumeRowKernels::weighLayers(input->row(y).subspan(static_cast<std::size_t>(x1 - input->allocatedRect().x1),
                                                            static_cast<std::size_t>(x2 - x1)),
                                      mask);
    else
        VolumeRowKernels::weigh(pixels(y, x1, x2), mask);
}

// The input that fills these pixels, where nothing is merged into them and no other waits.
template<typename Pixel>
const CEL_PixmapOf<Pixel>* AccumulatedRows<Pixel>::onlyInput(const Math::Box2di& pixels) const
{
    const bool isOnly =
        _waiting.size() == 1 && _merged.allocatedRect().isEmpty() && _waiting.front()->allocatedRect().contains(pixels);
    return isOnly ? _waiting.front() : nullptr;
}

// Copies what has been merged of a row, zeros beside it. @return whether there is anything
template<typename Pixel>
bool AccumulatedRows<Pixel>::copyMerged(int y, int x1, std::span<Pixel> line) const
{
    const Math::Box2di& rect = _merged.allocatedRect();
    const int x2 = x1 + static_cast<int>(line.size());
    const Math::Box2di common = Math::Box2di(x1, y, x2, y + 1).getIntersection(rect);
    if (common.isEmpty())
        return false;
    std::ranges::fill(line, Pixel{});
    std::ranges::copy(
        _merged.row(y).subspan(static_cast<std::size_t>(common.x1 - rect.x1), static_cast<std::size_t>(common.width())),
        line.begin() + (common.x1 - x1));
    return true;
}

template class AccumulatedRows<CEL_PixelRGBA16>;
template class AccumulatedRows<CEL_PixelRGBAFloat>;
