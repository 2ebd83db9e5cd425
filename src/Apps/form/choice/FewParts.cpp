// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Within a layer, shapes are painted in the order of the drawing, so parts that follow each other in the stack show the
// unchanged drawing after they have been joined in one layer.
#include "form/choice/FewParts.h"

#include "form/choice/JoinedParts.h"

#include <algorithm>

namespace {

std::size_t placeOf(int index)
{
    return static_cast<std::size_t>(index);
}

// The number of cells that show each part.
std::vector<int> visibleCells(const FoundParts& found)
{
    std::vector<int> cells(found.parts.size());
    found.map.forEachShown([&](int count, const ShownCell& cell) { cells[placeOf(cell.part)] += count; });
    return cells;
}

std::vector<int> partsBySize(const FoundParts& found)
{
    const std::vector<int> cells = visibleCells(found);
    std::vector<int> bySize = found.order;
    std::ranges::stable_sort(bySize, std::greater(), [&](int index) { return cells[placeOf(index)]; });
    return bySize;
}

// Marks the parts that stay separate: the backdrop and the first `count` of the others.
std::vector<bool> staying(const FoundParts& found, const std::vector<int>& bySize, std::size_t count)
{
    std::vector<bool> stays(found.parts.size());
    for (std::size_t i = 0; i < bySize.size(); ++i)
        stays[placeOf(bySize[i])] = i < count || found.parts[placeOf(bySize[i])].isBackdrop;
    return stays;
}

// The area of the boxes around the parts, after small parts are joined, in multiples of the picture's area.
double picturesFilled(const FoundParts& found, const std::vector<bool>& stays)
{
    const auto areaOf = [](const QRect& box) { return static_cast<double>(box.width()) * box.height(); };
    double area = 0.0;
    QRect together;
    for (const int index : found.order) {
        const QRect box = found.parts[placeOf(index)].region.box();
        if (!stays[placeOf(index)]) {
            together |= box;
            continue;
        }
        area += areaOf(together) + areaOf(box);
        together = QRect();
    }
    return (area + areaOf(together)) / areaOf(found.map.bounds());
}

// Marks the parts that stay separate: as many of the large ones as kMostPictures permits.
std::vector<bool> largestParts(const FoundParts& found)
{
    constexpr std::size_t kFewest = 8;
    const std::vector<int> bySize = partsBySize(found);
    std::size_t count = kMostParts / 2;
    while (count > kFewest && picturesFilled(found, staying(found, bySize, count)) > kMostPictures)
        count /= 2;
    return staying(found, bySize, count);
}

bool areFew(const FoundParts& found)
{
    const std::vector<bool> all(found.parts.size(), true);
    return found.order.size() <= kMostParts && picturesFilled(found, all) <= kMostPictures;
}

} // namespace

FoundParts fewerParts(FoundParts found)
{
    if (areFew(found))
        return found;
    const std::vector<bool> stays = largestParts(found);
    std::vector<int> home(found.parts.size());
    int before = PartMap::kNone;
    for (const int index : found.order) {
        const bool joins = before != PartMap::kNone && !stays[placeOf(index)];
        home[placeOf(index)] = joins ? before : index;
        before = stays[placeOf(index)] ? PartMap::kNone : home[placeOf(index)];
    }
    return joinedParts(std::move(found), home, QStringLiteral("small parts together"));
}
