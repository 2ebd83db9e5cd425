// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Contact is looked for up to two cells outside an outline, so that areas meet whose antialiased edges abut.
#include "form/choice/PartMap.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::array<int, 2>, 4> kAcross{{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};
constexpr int kReach = 2;

// The key with the largest value above 0, the first of several; PartMap::kNone if there is none.
template<typename Map, typename Function>
int keyOfMost(const Map& map, Function valueOf)
{
    int most = 0;
    int found = PartMap::kNone;
    for (const auto& [key, value] : map)
        if (valueOf(value) > most) {
            most = valueOf(value);
            found = key;
        }
    return found;
}

} // namespace

PartMap::PartMap(const Grid& grid) : _width(grid.width), _height(grid.height)
{
    const std::size_t cells = static_cast<std::size_t>(_width) * static_cast<std::size_t>(_height);
    _cells.assign(cells, {});
    _ink.assign(cells, 0);
}

void PartMap::paint(int y, int from, int to, const ShownCell& cell)
{
    std::ranges::fill(std::span(_cells).subspan(index(from, y), static_cast<std::size_t>(to - from)), cell);
}

void PartMap::paint(const CellMask& mask, int shape, int part)
{
    mask.forEachRun([&](int y, int from, int to) { paint(y, from, to, {part, shape}); });
}

void PartMap::rename(std::span<const int> renamed)
{
    for (ShownCell& cell : _cells)
        if (cell.part != kNone)
            cell.part = renamed[static_cast<std::size_t>(cell.part)];
}

void PartMap::addInk(const CellMask& mask)
{
    mask.forEachRun([&](int y, int from, int to) {
        std::ranges::fill(std::span(_ink).subspan(index(from, y), static_cast<std::size_t>(to - from)),
                          std::uint8_t{1});
    });
}

void PartMap::countOverlaps(const ShapeFacts& facts, Surroundings& found) const
{
    const auto forEachBelow = [&](auto function) {
        facts.mask.forEachRun([&](int y, int from, int to) {
            forEachStretch(y, from, to,
                           [&](int first, int last, const ShownCell& cell) { function(last - first, cell); });
        });
    };
    forEachBelow([&](int cells, const ShownCell& cell) {
        if (cell.part == kNone)
            found.bare += cells;
        else
            found.parts[cell.part].overlap += cells;
    });
    found.base = keyOfMost(found.parts, [](const Meeting& meeting) { return meeting.overlap; });
    if (found.base == kNone)
        return;
    std::map<int, int> grounds;
    forEachBelow([&](int cells, const ShownCell& cell) {
        if (cell.part == found.base)
            grounds[cell.shape] += cells;
    });
    found.ground = keyOfMost(grounds, [](int cells) { return cells; });
}

int PartMap::inkedCells(const CellMask& mask) const
{
    int cells = 0;
    mask.forEachRun([&](int y, int from, int to) {
        const auto row = _ink.begin() + static_cast<std::ptrdiff_t>(index(0, y));
        cells += static_cast<int>((to - from) - std::count(row + from, row + to, 0));
    });
    return cells;
}

// Ink may lie a little inside the outline, where colours reach beyond their lines. A shape that ink mostly covers has
// no line along its outline.
void PartMap::countContacts(const ShapeFacts& facts, const std::vector<ShapeFacts>& all, Surroundings& found) const
{
    int outlined = 0;
    int cells = 0;
    const bool hasBareCells = 3 * inkedCells(facts.mask) < facts.area;
    const QRect reached = facts.mask.box().adjusted(-kReach, -kReach, kReach, kReach);
    const PixelPlane<char> own = facts.mask.planeOf(reached);
    facts.mask.forEachAtOutline([&](int x, int y) {
        std::array<int, kAcross.size() * kReach> met{};
        std::size_t count = 0;
        const int here = y * _width + x;
        const int ownHere = (y - reached.top()) * own.width() + x - reached.left();
        const bool isInner = contains(x - kReach, y - kReach) && contains(x + kReach, y + kReach);
        bool ink = _ink[static_cast<std::size_t>(here)] != 0;
        bool other = false;
        for (const auto& [dx, dy] : kAcross)
            for (int far = 1; far <= kReach; ++far) {
                if (!isInner && !contains(x + far * dx, y + far * dy))
                    continue;
                const bool inside = own[ownHere + far * (dy * own.width() + dx)] != 0;
                const int cell = here + far * (dy * _width + dx);
                const auto there = static_cast<std::size_t>(cell);
                ink = ink || (_ink[there] != 0 && (!inside || hasBareCells));
                if (inside)
                    continue;
                const auto [part, shape] = _cells[there];
                other = other || shape == kNone || all[static_cast<std::size_t>(shape)].paint != facts.paint;
                if (part != kNone && std::find(met.begin(), met.begin() + count, part) == met.begin() + count)
                    met[count++] = part;
            }
        for (std::size_t i = 0; i < count; ++i) {
            Meeting& meeting = found.parts[met[i]];
            ++meeting.contact;
            meeting.inked += ink ? 1 : 0;
        }
        ++cells;
        outlined += other ? 1 : 0;
    });
    if (cells > 0)
        found.outlined = static_cast<double>(outlined) / cells;
}

Surroundings PartMap::around(const ShapeFacts& facts, const std::vector<ShapeFacts>& all) const
{
    Surroundings found;
    countOverlaps(facts, found);
    countContacts(facts, all, found);
    return found;
}
