// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two shapes that abut hide nothing together: what lies beneath shines through their antialiased edges.
#include "form/choice/HiddenShapes.h"

#include <algorithm>

namespace {

constexpr double kLeastCover = 0.01; // of the picture: smaller shapes hide next to nothing
constexpr std::size_t kMostCovers = 64;
constexpr int kMargin = 1; // cells
constexpr int kShown = -1;

std::size_t placeOf(int index)
{
    return static_cast<std::size_t>(index);
}

bool isOpaque(const ShapeFacts& shape)
{
    return shape.plain && shape.opacity >= 1.0 && !shape.isOutline;
}

// Whether a cell and those around it are covered. Nothing is shown outside the picture.
bool isCovered(const CellMask& cover, const QRect& picture, int x, int y)
{
    for (int near = y - kMargin; near <= y + kMargin; ++near)
        for (int beside = x - kMargin; beside <= x + kMargin; ++beside)
            if (!cover.at(beside, near) && picture.contains(beside, near))
                return false;
    return true;
}

bool hides(const ShapeFacts& cover, const ShapeFacts& shape, const QRect& picture)
{
    const QRect around = shape.mask.box().adjusted(-kMargin, -kMargin, kMargin, kMargin) & picture;
    if (shape.area == 0 || shape.area >= cover.area || !cover.mask.box().contains(around))
        return false;
    bool hidden = true;
    shape.mask.forEachAtOutline([&](int x, int y) { hidden = hidden && isCovered(cover.mask, picture, x, y); });
    return hidden && cover.mask.overlap(shape.mask) == shape.area;
}

} // namespace

std::vector<int> findHidden(std::vector<ShapeFacts>& facts, const Grid& grid)
{
    const QRect picture = grid.bounds();
    const double least = kLeastCover * picture.width() * picture.height();
    std::vector<int> hiders(facts.size(), kShown);
    std::vector<int> covers; // later shapes, which lie above
    for (int index = static_cast<int>(facts.size()) - 1; index >= 0; --index) {
        ShapeFacts& shape = facts[placeOf(index)];
        const auto hider =
            std::ranges::find_if(covers, [&](int cover) { return hides(facts[placeOf(cover)], shape, picture); });
        if (hider != covers.end()) {
            hiders[placeOf(index)] = *hider;
            shape.area = 0;
            shape.mask = CellMask();
        } else if (shape.area >= least && covers.size() < kMostCovers && isOpaque(shape))
            covers.push_back(index);
    }
    return hiders;
}

void wearHidden(const std::vector<int>& hiders, std::vector<Part>& parts)
{
    std::vector<Part*> homes(hiders.size());
    for (Part& part : parts)
        for (const int piece : part.body)
            homes[placeOf(piece)] = &part;
    for (int shape = 0; shape < static_cast<int>(hiders.size()); ++shape)
        if (const int hider = hiders[placeOf(shape)]; hider != kShown && homes[placeOf(hider)] != nullptr)
            homes[placeOf(hider)]->worn.push_back({shape, true, 0.0});
}
