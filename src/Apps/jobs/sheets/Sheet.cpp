// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Overlaps are found by a sweep down the page, so that ten thousand regions take little time.
#include "jobs/sheets/Sheet.h"

#include <algorithm>
#include <tuple>

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
    std::vector<const SheetRegion*> byTop;
    byTop.reserve(regions.size());
    for (const SheetRegion& region : regions)
        byTop.push_back(&region);
    const auto place = [](const SheetRegion* region) { return region->place; };
    std::ranges::stable_sort(byTop, {}, [](const SheetRegion* region) {
        const QRect& at = region->place;
        return std::tuple(at.top(), at.left(), at.bottom(), at.right());
    });
    // Only one of the regions at the same place, so that no more are open than columns of the page.
    const auto repeated = std::ranges::unique(byTop, {}, place);
    byTop.erase(repeated.begin(), repeated.end());
    std::vector<const SheetRegion*> open;
    for (const SheetRegion* region : byTop) {
        std::erase_if(open, [&](const SheetRegion* other) { return other->place.bottom() < region->place.top(); });
        for (const SheetRegion* other : open)
            if (other->place.intersects(region->place))
                return UT_Error{QStringLiteral("the regions \"%1\" (%2) and \"%3\" (%4) overlap")
                                    .arg(other->name, text(other->place), region->name, text(region->place))};
        open.push_back(region);
    }
    return {};
}
