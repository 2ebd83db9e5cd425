// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Contact is looked for up to two cells outside an outline, so that areas meet whose antialiased edges abut.
#include "form/choice/PartMap.h"

#include <array>

namespace {

constexpr std::array<std::array<int, 2>, 4> kAcross{{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};
constexpr int kReach = 2;

} // namespace

PartMap::PartMap(const Grid& grid) : _width(grid.width), _height(grid.height)
{
    const std::size_t cells = static_cast<std::size_t>(_width) * static_cast<std::size_t>(_height);
    _parts.assign(cells, kNone);
    _shapes.assign(cells, kNone);
    _ink.assign(cells, 0);
}

void PartMap::paint(const CellMask& mask, int shape, int part)
{
    mask.forEach([&](int x, int y) { setCell(x, y, shape, part); });
}

void PartMap::setCell(int x, int y, int shape, int part)
{
    _parts[index(x, y)] = part;
    _shapes[index(x, y)] = shape;
}

void PartMap::addInk(const CellMask& mask)
{
    mask.forEach([&](int x, int y) { _ink[index(x, y)] = 1; });
}

void PartMap::countOverlaps(const ShapeFacts& facts, Surroundings& found) const
{
    facts.mask.forEach([&](int x, int y) {
        const int part = partAt(x, y);
        if (part == kNone)
            ++found.bare;
        else
            ++found.parts[part].overlap;
    });
    int most = 0;
    for (const auto& [part, meeting] : found.parts)
        if (meeting.overlap > most) {
            most = meeting.overlap;
            found.base = part;
        }
    std::map<int, int> grounds;
    facts.mask.forEach([&](int x, int y) {
        if (found.base != kNone && partAt(x, y) == found.base)
            ++grounds[shapeAt(x, y)];
    });
    most = 0;
    for (const auto& [shape, cells] : grounds)
        if (cells > most) {
            most = cells;
            found.ground = shape;
        }
}

void PartMap::countContacts(const ShapeFacts& facts, const std::vector<ShapeFacts>& all, Surroundings& found) const
{
    int outlined = 0;
    int cells = 0;
    facts.mask.forEachAtOutline([&](int x, int y) {
        std::array<int, kAcross.size() * kReach> met{};
        std::size_t count = 0;
        bool ink = inkAt(x, y);
        bool other = false;
        for (const auto& [dx, dy] : kAcross)
            for (int far = 1; far <= kReach; ++far) {
                const int qx = x + far * dx;
                const int qy = y + far * dy;
                if (facts.mask.at(qx, qy) || !contains(qx, qy))
                    continue;
                ink = ink || inkAt(qx, qy);
                const int shape = shapeAt(qx, qy);
                other = other || shape == kNone || all[static_cast<std::size_t>(shape)].paint != facts.paint;
                const int part = partAt(qx, qy);
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
