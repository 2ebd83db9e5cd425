// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Contact is looked for up to two cells outside an outline, so that areas meet whose antialiased edges abut.
#include "form/choice/PartMap.h"

#include <array>

namespace {

constexpr std::array<std::array<int, 2>, 4> kAcross{{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};
constexpr int kReach = 2;

// Counts by number. Neighbouring cells mostly have the same one, so the last one is remembered.
template<typename Value>
class Counts
{
public:
    explicit Counts(std::map<int, Value>& counts) : _counts(counts) {}

    Value& of(int number)
    {
        if (!_value || number != _number) {
            _value = &_counts[number];
            _number = number;
        }
        return *_value;
    }

private:
    std::map<int, Value>& _counts;
    Value* _value = nullptr;
    int _number = 0;
};

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
    Counts parts(found.parts);
    facts.mask.forEach([&](int x, int y) {
        const int part = _parts[index(x, y)];
        if (part == kNone)
            ++found.bare;
        else
            ++parts.of(part).overlap;
    });
    int most = 0;
    for (const auto& [part, meeting] : found.parts)
        if (meeting.overlap > most) {
            most = meeting.overlap;
            found.base = part;
        }
    if (found.base == kNone)
        return;
    std::map<int, int> grounds;
    Counts shapes(grounds);
    facts.mask.forEach([&](int x, int y) {
        if (const std::size_t cell = index(x, y); _parts[cell] == found.base)
            ++shapes.of(_shapes[cell]);
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
    Counts parts(found.parts);
    facts.mask.forEachAtOutline([&](int x, int y) {
        std::array<int, kAcross.size() * kReach> met{};
        std::size_t count = 0;
        bool ink = _ink[index(x, y)] != 0;
        bool other = false;
        for (const auto& [dx, dy] : kAcross)
            for (int far = 1; far <= kReach; ++far) {
                const int qx = x + far * dx;
                const int qy = y + far * dy;
                if (facts.mask.at(qx, qy) || !contains(qx, qy))
                    continue;
                const std::size_t cell = index(qx, qy);
                ink = ink || _ink[cell] != 0;
                const int shape = _shapes[cell];
                other = other || shape == kNone || all[static_cast<std::size_t>(shape)].paint != facts.paint;
                const int part = _parts[cell];
                if (part != kNone && std::find(met.begin(), met.begin() + count, part) == met.begin() + count)
                    met[count++] = part;
            }
        for (std::size_t i = 0; i < count; ++i) {
            Meeting& meeting = parts.of(met[i]);
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
