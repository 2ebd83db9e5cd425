// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where a changed coverage is at least t: outside the changed area, where it was at least t before; inside, where
// it was at least (or, for a falling change, at most) the value that becomes t.
#include "QuarvelDrawingIO/private/DIO_CoverageLevels.h"

#include "QuarvelDrawingIO/DIO_PathSets.h"

#include <algorithm>
#include <cmath>

namespace {

// Values that differ by less count as equal: no 8-bit picture shows the difference.
constexpr double kSame = 1.0 / 1024.0;

// The largest number of different values; each costs path operations at every change.
constexpr std::size_t kMaxLevels = 20;

// The values in ascending order, each once, none of them 0.
std::vector<double> distinct(std::vector<double> values)
{
    std::ranges::sort(values);
    std::vector<double> kept;
    for (const double value : values)
        if (value > kSame && (kept.empty() || value - kept.back() > kSame))
            kept.push_back(value);
    return kept;
}

} // namespace

DIO_CoverageLevels::DIO_CoverageLevels(const QRectF& page, double value, DIO_PathWork& work)
    : _page(DIO_rectangle(page)), _work(work)
{
    if (value > kSame)
        _levels.push_back({_page, std::min(value, 1.0)});
}

const QPainterPath& DIO_CoverageLevels::atLeast(double value) const
{
    static const QPainterPath nothing;
    if (value <= kSame / 2)
        return _page;
    const auto found =
        std::ranges::find_if(_levels, [value](const Level& level) { return level.value >= value - kSame / 2; });
    return found == _levels.end() ? nothing : found->area;
}

// Where the changed coverage is at least a value; nothing when that is too detailed to be worked out.
std::optional<QPainterPath> DIO_CoverageLevels::atLeastAfter(double value, const Change& change) const
{
    using Area = std::optional<QPainterPath>;
    const auto united = [&](const Area& a, const Area& b) { return a && b ? DIO_united(*a, *b, &_work) : Area(); };
    const auto inside = [&](const std::optional<QPainterPath>& where) -> std::optional<QPainterPath> {
        if (!where)
            return std::nullopt;
        return change.inverted ? DIO_subtracted(*where, change.area, &_work)
                               : DIO_intersected(*where, change.area, &_work);
    };
    const auto outside = [&](const QPainterPath& where) {
        return change.inverted ? DIO_intersected(where, change.area, &_work)
                               : DIO_subtracted(where, change.area, &_work);
    };
    const QPainterPath& stays = atLeast(value);
    // A constant change includes the whole area or none of it.
    if (std::abs(change.scale) < kSame)
        return change.offset >= value - kSame / 2 ? united(stays, inside(_page)) : outside(stays);
    const double before = (value - change.offset) / change.scale;
    if (change.scale < 0.0)
        return united(outside(stays), before < 0.0 ? std::optional(QPainterPath())
                                                   : inside(DIO_subtracted(_page, atLeast(before + kSame), &_work)));
    const QPainterPath from = before > 1.0 + kSame ? QPainterPath() : atLeast(before);
    // Where no value falls, or none rises, one area contains the other, and no edge along the change is needed.
    if (change.offset >= 0.0 && change.scale + change.offset >= 1.0 - kSame)
        return united(stays, inside(from));
    if (change.offset <= 0.0 && change.scale <= 1.0)
        return united(outside(stays), from);
    return united(outside(stays), inside(from));
}

void DIO_CoverageLevels::change(const QPainterPath& area, bool inverted, double scale, double offset)
{
    const auto after = [&](double value) { return std::clamp(scale * value + offset, 0.0, 1.0); };
    std::vector<double> candidates{after(0.0)};
    for (const Level& level : _levels) {
        candidates.push_back(level.value);
        candidates.push_back(after(level.value));
    }
    std::vector<Level> made;
    for (const double value : distinct(candidates)) {
        const std::optional<QPainterPath> reached = atLeastAfter(value, {area, inverted, scale, offset});
        if (!reached || made.size() == kMaxLevels) {
            ++_skipped;
            return;
        }
        if (!reached->isEmpty())
            made.push_back({*reached, value});
    }
    _levels = std::move(made);
}

void DIO_CoverageLevels::paintNested(std::span<const Painted> areas)
{
    for (const Painted& painted : areas) {
        std::optional<QPainterPath> shown = DIO_intersected(_page, painted.area, &_work);
        if (!shown) {
            ++_skipped;
            return;
        }
        if (!shown->isEmpty())
            _levels.push_back({*std::move(shown), std::min(painted.value, 1.0)});
    }
}

// Opaque areas of one value are one area.
void DIO_CoverageLevels::paint(std::span<const Painted> areas)
{
    for (std::size_t i = 0; i < areas.size();) {
        const Painted& first = areas[i];
        std::vector<QPainterPath> alike{first.area};
        for (++i; first.opacity >= 1.0 && i < areas.size() && areas[i].opacity >= 1.0 &&
                  std::abs(areas[i].value - first.value) < kSame;
             ++i)
            alike.push_back(areas[i].area);
        paint(DIO_united(std::move(alike), &_work), false, first.opacity, first.value);
    }
}
