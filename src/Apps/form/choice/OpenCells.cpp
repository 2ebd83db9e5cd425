// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/OpenCells.h"

#include <limits>

namespace {

constexpr int kFar = std::numeric_limits<int>::max();
constexpr int kNone = -1;

// QRect::contains() is a call into Qt's library.
bool contains(const QRect& box, const OpenCells::Cell& cell)
{
    return cell.x >= box.left() && cell.x <= box.right() && cell.y >= box.top() && cell.y <= box.bottom();
}

int squareOf(double reach)
{
    return static_cast<int>(reach * reach);
}

} // namespace

void OpenCells::add(int y, int from, int to)
{
    for (int x = from; x < to; ++x)
        _cells.push_back({x, y});
}

void OpenCells::measure(int part, const DistanceToCovered& distances, double widest)
{
    std::vector<int> squared;
    squared.reserve(_cells.size());
    const QRect box = distances.box();
    for (const Cell& cell : _cells)
        squared.push_back(contains(box, cell) ? distances.squared(cell.x, cell.y, squareOf(widest)) : kFar);
    _parts.push_back({part, std::move(squared)});
}

std::vector<int> OpenCells::claimed(const InkReaches& reaches) const
{
    std::vector<int> parts(_cells.size(), kNone);
    std::vector<int> nearest(_cells.size(), kFar);
    for (const Measured& measured : _parts) {
        const int most = squareOf(reaches.at(measured.part));
        for (std::size_t i = 0; i < _cells.size(); ++i)
            if (measured.squared[i] <= most && measured.squared[i] <= nearest[i]) {
                nearest[i] = measured.squared[i];
                parts[i] = measured.part;
            }
    }
    return parts;
}
