// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where a connected part of the open cells holds one area, all of it comes to that area; paths are looked for in the
// others alone. Their lengths are found in sweeps over the rows, down and up, until none is shortened any more. Where
// nothing is in the way, one sweep down and one up find them (PixelDistances.h).
#include "form/lines/AreaRuns.h"

#include "form/bitmap/pixels/PixelDistances.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstdint>

namespace {

// The length of a path and, in the lower bits, the area that it leads to: of two, the shorter path is the smaller
// number, of two of one length that to the first area.
using Way = std::uint32_t;

constexpr int kSeveral = -2; // areas

// The ways from the cells of a grid to areas, with a cell beyond each border.
class Ways
{
public:
    explicit Ways(const AreaRuns& areas) : _stride(static_cast<std::size_t>(areas.width) + 2), _areaBits(bitsFor(areas))
    {
        // A shortest path has at most two cells in each square of four.
        [[maybe_unused]] const std::int64_t squares = std::int64_t{(areas.width + 1) / 2} * ((areas.height + 1) / 2);
        assert(2 * kDiagonalStep * squares < (kNone >> _areaBits));
        _ways.assign(_stride * (static_cast<std::size_t>(areas.height) + 2), kNone);
        for (const auto& [cells, area] : areas.runs)
            if (area >= 0)
                std::ranges::fill(of(cells), static_cast<Way>(area));
    }

    // Appends the areas that the cells of a run come to.
    void appendTo(AreaRuns& grown, const PixelRun& cells)
    {
        const std::span<const Way> ways = of(cells);
        for (std::size_t from = 0, to = 0; from < ways.size(); from = to) {
            const int area = areaOf(ways[from]);
            while (to < ways.size() && areaOf(ways[to]) == area)
                ++to;
            grown.append({cells.row, cells.from + static_cast<int>(from), cells.from + static_cast<int>(to)}, area);
        }
    }

    // Shortens the ways of the cells of runs by those over the cells around them that come before them in the sweep;
    // returns whether any became shorter.
    bool sweepDown(std::span<const PixelRun> runs)
    {
        bool shorter = false;
        for (const PixelRun& cells : runs) {
            Way* const own = of(cells).data();
            shorter |= shorten(own, own - _stride, cells.to - cells.from, 1);
        }
        return shorter;
    }
    bool sweepUp(std::span<const PixelRun> runs)
    {
        bool shorter = false;
        for (std::size_t i = runs.size(); i > 0; --i) {
            const PixelRun& cells = runs[i - 1];
            Way* const own = &of(cells).back();
            shorter |= shorten(own, own + _stride, cells.to - cells.from, -1);
        }
        return shorter;
    }

private:
    static constexpr Way kNone = 0xF0000000;

    static int bitsFor(const AreaRuns& areas)
    {
        int last = 0;
        for (const AreaRun& run : areas.runs)
            last = std::max(last, run.area);
        return std::bit_width(static_cast<unsigned>(last));
    }

    int areaOf(Way way) const { return way >= kNone ? kNoLabel : static_cast<int>(way & ((Way{1} << _areaBits) - 1)); }

    std::span<Way> of(const PixelRun& cells)
    {
        const auto first =
            (static_cast<std::size_t>(cells.row) + 1) * _stride + static_cast<std::size_t>(cells.from) + 1;
        return std::span(_ways).subspan(first, static_cast<std::size_t>(cells.to - cells.from));
    }

    // @param own     the way of the run's first cell in the sweep
    // @param across  that of the cell beside it in the row that was swept before
    // @param forward to the next cell, 1 or -1
    bool shorten(Way* own, const Way* across, int count, std::ptrdiff_t forward)
    {
        const Way aside = Way{kPixelStep} << _areaBits;
        const Way diagonal = Way{kDiagonalStep} << _areaBits;
        Way last = *(own - forward);
        Way changes = 0;
        for (int i = 0; i < count; ++i, own += forward, across += forward) {
            const Way oblique = std::min(across[-1], across[1]) + diagonal;
            const Way fromAcross = std::min(*own, std::min(*across + aside, oblique));
            last = std::min(fromAcross, last + aside);
            changes |= *own ^ last;
            *own = last;
        }
        return changes != 0;
    }

    std::size_t _stride;
    int _areaBits; // that hold the number of every area
    std::vector<Way> _ways;
};

// Brings the cells of no area to those that they can reach over such cells.
//
// @param isFree whether a path may lead over every cell that belongs to no area, so that none has to turn back
AreaRuns withReached(const AreaRuns& areas, bool isFree)
{
    std::vector<PixelRun> open;
    for (const auto& [cells, area] : areas.runs)
        if (area == kNoLabel)
            open.push_back(cells);
    if (open.empty())
        return areas;
    Ways ways(areas);
    ways.sweepDown(open);
    while (ways.sweepUp(open) && !isFree && ways.sweepDown(open)) {
    }
    AreaRuns grown{areas.width, areas.height, {}};
    grown.runs.reserve(areas.runs.size());
    for (const auto& [cells, area] : areas.runs)
        if (area == kNoLabel)
            ways.appendTo(grown, cells);
        else
            grown.append(cells, area);
    return grown;
}

bool startsBefore(const PixelRun& one, const PixelRun& other)
{
    return one.row < other.row || (one.row == other.row && one.from < other.from);
}

// Calls a function with every run of areas inside a run of other cells.
//
// @param at the first run of the areas that may lie in it, moved behind the last one that does
template<typename Function>
void forEachInside(const PixelRun& outer, const AreaRuns& areas, std::size_t& at, Function function)
{
    for (; at < areas.runs.size() && startsBefore(areas.runs[at].cells, {outer.row, outer.to, outer.to}); ++at)
        function(areas.runs[at]);
}

// A run of cells, less the areas inside, which are appended in their places.
void appendAround(AreaRuns& runs, const PixelRun& outer, const AreaRuns& areas, std::size_t& at)
{
    int from = outer.from;
    forEachInside(outer, areas, at, [&](const AreaRun& run) {
        runs.append({outer.row, from, run.cells.from}, kNoLabel);
        runs.append(run.cells, run.area);
        from = run.cells.to;
    });
    runs.append({outer.row, from, outer.to}, kNoLabel);
}

} // namespace

void AreaRuns::append(const PixelRun& cells, int area)
{
    if (cells.from >= cells.to)
        return;
    if (!runs.empty()) {
        auto& [last, lastArea] = runs.back();
        if (lastArea == area && last.row == cells.row && last.to == cells.from) {
            last.to = cells.to;
            return;
        }
    }
    runs.push_back({cells, area});
}

AreaRuns connectedAreas(const CellBits& marked)
{
    const std::vector<PixelRun> cells = marked.runs();
    const std::vector<int> parts = connectedPartsOf(cells).parts;
    AreaRuns areas{marked.width(), marked.height(), {}};
    areas.runs.reserve(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i)
        areas.runs.push_back({cells[i], parts[i]});
    return areas;
}

AreaRuns grownOver(const AreaRuns& areas, const CellBits& open)
{
    const std::vector<PixelRun> cells = open.runs();
    const ConnectedRuns connected = connectedPartsOf(cells);
    std::vector<int> held(connected.pixels.size(), kNoLabel); // by each part: an area or kSeveral
    std::size_t at = 0;
    for (std::size_t i = 0; i < cells.size(); ++i)
        forEachInside(cells[i], areas, at, [&](const AreaRun& run) {
            int& area = held[static_cast<std::size_t>(connected.parts[i])];
            area = area == kNoLabel || area == run.area ? run.area : kSeveral;
        });
    AreaRuns grown{areas.width, areas.height, {}};
    grown.runs.reserve(cells.size() + areas.runs.size());
    bool isContested = false;
    at = 0;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const int area = held[static_cast<std::size_t>(connected.parts[i])];
        isContested |= area == kSeveral;
        if (area == kSeveral)
            appendAround(grown, cells[i], areas, at);
        else {
            forEachInside(cells[i], areas, at, [](const AreaRun&) {});
            grown.append(cells[i], area);
        }
    }
    return isContested ? withReached(grown, false) : grown;
}

AreaRuns grownOverAll(const AreaRuns& areas)
{
    AreaRuns all{areas.width, areas.height, {}};
    std::size_t at = 0;
    for (int y = 0; y < areas.height; ++y)
        appendAround(all, {y, 0, areas.width}, areas, at);
    return withReached(all, true);
}
