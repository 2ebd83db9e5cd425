// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Overlaps are found by a sweep down the page, so that a hundred thousand regions take little time.
#include "jobs/sheets/Sheet.h"

#include <algorithm>
#include <map>

namespace {

QString text(const QRect& rect)
{
    return QStringLiteral("%1, %2, %3 x %4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

QString text(const QSize& size)
{
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

UT_Result<void> checkAlone(const SheetRegion& region, const QSize& page)
{
    if (region.place.isEmpty())
        return UT_Error{QStringLiteral("the region \"%1\" has no pixels (%2)").arg(region.name, text(region.place))};
    if (!QRect(QPoint(), page).contains(region.place))
        return UT_Error{QStringLiteral("the region \"%1\" (%2) leaves the page, which has %3 pixels; is it the page "
                                       "that the atlas was made for?")
                            .arg(region.name, text(region.place), text(page))};
    if (!QRect(QPoint(), region.whole).contains(QRect(region.offset, region.trimmed())))
        return UT_Error{QStringLiteral("the region \"%1\" (%2) does not fit into its sprite of %3 pixels")
                            .arg(region.name, text(region.place), text(region.whole))};
    return {};
}

std::vector<const SheetRegion*> sorted(const std::vector<SheetRegion>& regions, int (QRect::*side)() const)
{
    std::vector<const SheetRegion*> all;
    all.reserve(regions.size());
    for (const SheetRegion& region : regions)
        all.push_back(&region);
    std::ranges::stable_sort(all, {}, [side](const SheetRegion* region) { return (region->place.*side)(); });
    return all;
}

// The regions that the sweep has reached and not left, by their left sides. As long as none overlap they lie beside
// each other, so that a new one can only overlap its neighbours.
class OpenRegions
{
public:
    // Sprites with two names are there once.
    UT_Result<void> add(const SheetRegion& region)
    {
        const auto right = _byLeft.lower_bound(region.place.left());
        if (right != _byLeft.end() && right->second->place == region.place)
            return {};
        for (const auto other : {right, right == _byLeft.begin() ? _byLeft.end() : std::prev(right)})
            if (other != _byLeft.end() && other->second->place.intersects(region.place))
                return UT_Error{
                    QStringLiteral("the regions \"%1\" (%2) and \"%3\" (%4) overlap")
                        .arg(other->second->name, text(other->second->place), region.name, text(region.place))};
        _byLeft.emplace(region.place.left(), &region);
        return {};
    }

    void remove(const SheetRegion& region)
    {
        const auto found = _byLeft.find(region.place.left());
        if (found != _byLeft.end() && found->second == &region)
            _byLeft.erase(found);
    }

private:
    std::map<int, const SheetRegion*> _byLeft;
};

UT_Result<void> checkApart(const std::vector<SheetRegion>& regions)
{
    const std::vector<const SheetRegion*> byBottom = sorted(regions, &QRect::bottom);
    auto ended = byBottom.begin();
    OpenRegions open;
    for (const SheetRegion* const region : sorted(regions, &QRect::top)) {
        for (; (*ended)->place.bottom() < region->place.top(); ++ended)
            open.remove(**ended);
        if (UT_Result<void> added = open.add(*region); !added)
            return added;
    }
    return {};
}

} // namespace

UT_Error notPixels(const QString& region, const QString& words)
{
    return UT_Error{QStringLiteral("the region \"%1\" has \"%2\", expected whole numbers of at most %3 pixels")
                        .arg(region, words.left(80))
                        .arg(kMostSheetPixels)};
}

QPoint SheetRegion::onPage(int x, int y) const
{
    const QSize size = trimmed();
    switch (quarterTurns) {
    case 1:
        return place.topLeft() + QPoint(size.height() - 1 - y, x);
    case 2:
        return place.topLeft() + QPoint(size.width() - 1 - x, size.height() - 1 - y);
    case 3:
        return place.topLeft() + QPoint(y, size.width() - 1 - x);
    default:
        return place.topLeft() + QPoint(x, y);
    }
}

UT_Result<std::vector<SheetRegion>> cellsOf(const QSize& page, const CellGrid& grid)
{
    std::vector<SheetRegion> cells;
    const int stepX = grid.cell.width() + grid.spacing;
    const int stepY = grid.cell.height() + grid.spacing;
    for (int y = grid.margin; y + grid.cell.height() <= page.height() - grid.margin; y += stepY)
        for (int x = grid.margin; x + grid.cell.width() <= page.width() - grid.margin; x += stepX)
            cells.push_back({.name = QString::number(cells.size()),
                             .place = QRect(QPoint(x, y), grid.cell),
                             .quarterTurns = 0,
                             .whole = grid.cell,
                             .offset = {},
                             .animation = {}});
    if (cells.empty())
        return UT_Error{QStringLiteral("not one cell of %1 pixels fits on a page of %2 with a margin of %3")
                            .arg(text(grid.cell), text(page))
                            .arg(grid.margin)};
    return cells;
}

UT_Result<void> checkRegions(const std::vector<SheetRegion>& regions, const QSize& page)
{
    for (const SheetRegion& region : regions)
        if (UT_Result<void> checked = checkAlone(region, page); !checked)
            return checked;
    return checkApart(regions);
}
