// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Cells that are farther from all lines than half of a gap form the areas' cores. The cores grow over the free cells,
// so that two areas meet in the middle of a gap, and then over the lines, so that they meet in the middle of a line.
#include "form/lines/ClosedAreas.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "form/bitmap/pixels/PixelDistances.h"
#include "form/lines/AreaOutline.h"
#include "form/lines/AreaRuns.h"
#include "form/raster/CellMask.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>

namespace {

constexpr int kCells = 480;        // along the longer side
constexpr int kLeastCoverage = 24; // of 255, so that hairlines have no gaps
constexpr double kHalfGap = 0.006; // of the longer side
constexpr std::array kWiderHalfGaps{0.015, 0.03};
constexpr double kSquareGaps = 12.0;     // the least area behind a wider gap, in squares of the gap
constexpr double kSmallest = 0.0006;     // of the picture
constexpr double kLargestOpening = 0.42; // of an area's outline: the most that may lie on the picture's border
constexpr double kMostLeft = 0.15;       // of the enclosed cells that lie in areas without form, as in a pattern
constexpr double kPiece = 0.015;         // of the enclosed cells: a smaller area is a piece of a pattern
constexpr double kMostInPieces = 0.5;    // of the enclosed cells
constexpr std::size_t kMostAreas = 120;
constexpr int kOutside = 0;

QImage paintedLines(std::span<const DIO_Shape* const> lines, const Grid& grid)
{
    QImage image = GR_newImage(grid.bounds().size(), kFormatPainted);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(grid.toCells());
    for (const DIO_Shape* line : lines) {
        painter.setClipping(false);
        if (line->clip)
            painter.setClipPath(*line->clip);
        painter.fillPath(line->path, Qt::white);
    }
    painter.end();
    return image;
}

// @param image of kFormatPainted
CellBits cellsOfPainted(const QImage& image)
{
    const auto width = static_cast<std::size_t>(image.width());
    CellBits cells(image.width(), image.height());
    std::vector<std::uint8_t> coverage(width);
    for (int y = 0; y < image.height(); ++y) {
        const std::span row(reinterpret_cast<const QRgb*>(image.constScanLine(y)), width);
        std::ranges::transform(row, coverage.begin(),
                               [](QRgb pixel) { return static_cast<std::uint8_t>(qAlpha(pixel)); });
        cells.markFrom(y, coverage, kLeastCoverage);
    }
    return cells;
}

// @param image Alpha8
CellBits cellsOf(const QImage& image)
{
    CellBits cells(image.width(), image.height());
    for (int y = 0; y < image.height(); ++y)
        cells.markFrom(y, std::span(image.constScanLine(y), static_cast<std::size_t>(image.width())), kLeastCoverage);
    return cells;
}

CellBits withoutMarked(CellBits cells, const CellBits& others)
{
    cells.remove(others);
    return cells;
}

CellBits unmarked(const CellBits& cells)
{
    CellBits others(cells.width(), cells.height());
    for (const PixelRun& run : cells.runs(false))
        others.mark(run);
    return others;
}

// The cores of the areas in a part of the picture: what is farther from all lines than half of a gap.
//
// @param open   the cells of the part
// @param halfGap as a part of the longer side
AreaRuns coresOf(const CellBits& lines, const CellBits& open, double halfGap)
{
    CellBits near = lines;
    near.grow(static_cast<int>(kPixelStep * halfGap * std::max(lines.width(), lines.height())));
    return connectedAreas(withoutMarked(open, near));
}

// Whether a core may be that of a closed area, which reaches the picture's border on one side at the most.
bool mayBeClosed(const AreaRuns& cores)
{
    std::vector<std::array<bool, 4>> touches;
    for (const auto& [cells, area] : cores.runs) {
        touches.resize(std::max(touches.size(), static_cast<std::size_t>(area) + 1), std::array<bool, 4>{});
        std::array<bool, 4>& sides = touches[static_cast<std::size_t>(area)];
        sides[0] |= cells.from == 0;
        sides[1] |= cells.to == cores.width;
        sides[2] |= cells.row == 0;
        sides[3] |= cells.row == cores.height - 1;
    }
    return std::ranges::any_of(touches, [](const auto& sides) { return std::ranges::count(sides, true) < 2; });
}

// What decides whether an area is closed. Lengths are in edges of cells.
struct Enclosure
{
    int cells = 0;
    int outline = 0;              // without the picture's border
    std::array<int, 4> borders{}; // along the picture's left, top, right and bottom border

    bool isClosed() const
    {
        const auto touched = std::ranges::count_if(borders, [](int edges) { return edges > 0; });
        const int border = borders[0] + borders[1] + borders[2] + borders[3];
        return touched == 0 || (touched == 1 && border < kLargestOpening * (border + outline));
    }
};

// Calls a function with every two runs of one area that lie beside each other in neighbouring rows, and the number of
// cells with which they do.
template<typename Function>
void forEachNeighbouring(std::span<const AreaRun> runs, Function function)
{
    std::size_t above = 0;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const PixelRun& cells = runs[i].cells;
        const int area = runs[i].area;
        const auto isBefore = [&](const PixelRun& other) {
            return other.row < cells.row - 1 || (other.row == cells.row - 1 && other.to <= cells.from);
        };
        while (isBefore(runs[above].cells))
            ++above;
        for (std::size_t j = above; runs[j].cells.row == cells.row - 1 && runs[j].cells.from < cells.to; ++j)
            if (runs[j].area == area)
                function(area, std::min(cells.to, runs[j].cells.to) - std::max(cells.from, runs[j].cells.from));
    }
}

std::vector<Enclosure> enclosuresOf(const AreaRuns& areas)
{
    std::vector<Enclosure> found;
    for (const auto& [cells, area] : areas.runs) {
        if (area < 0)
            continue;
        if (found.size() <= static_cast<std::size_t>(area))
            found.resize(static_cast<std::size_t>(area) + 1);
        Enclosure& own = found[static_cast<std::size_t>(area)];
        const int count = cells.to - cells.from;
        own.cells += count;
        ++(cells.from > 0 ? own.outline : own.borders[0]);
        ++(cells.to < areas.width ? own.outline : own.borders[2]);
        (cells.row > 0 ? own.outline : own.borders[1]) += count;
        (cells.row + 1 < areas.height ? own.outline : own.borders[3]) += count;
    }
    forEachNeighbouring(areas.runs, [&](int area, int cells) {
        if (area >= 0)
            found[static_cast<std::size_t>(area)].outline -= 2 * cells;
    });
    return found;
}

// Makes all areas that are not closed one area, kOutside, and numbers the others from 1; returns their number.
int joinOutside(AreaRuns& areas)
{
    std::vector<int> numbers;
    int count = 0;
    for (const Enclosure& area : enclosuresOf(areas))
        numbers.push_back(area.isClosed() ? ++count : kOutside);
    for (AreaRun& run : areas.runs)
        if (run.area >= 0)
            run.area = numbers[static_cast<std::size_t>(run.area)];
    return count;
}

CellBits cellsOutside(const AreaRuns& areas)
{
    CellBits outside(areas.width, areas.height);
    for (const auto& [cells, area] : areas.runs)
        if (area == kOutside)
            outside.mark(cells);
    return outside;
}

// Finds areas outside that wider gaps separate, and numbers those that are closed and large compared with the gap from
// count + 1; returns the last number. A wide gap is closed only towards the outside: inside an area it may be drawn.
int closeWiderGaps(AreaRuns& areas, const CellBits& lines, int count)
{
    for (const double halfGap : kWiderHalfGaps) {
        const CellBits outside = cellsOutside(areas);
        const AreaRuns cores = coresOf(lines, outside, halfGap);
        if (!mayBeClosed(cores))
            continue;
        AreaRuns found = grownOver(cores, outside);
        const double gap = 2.0 * halfGap * std::max(areas.width, areas.height);
        std::vector<int> numbers;
        for (const Enclosure& area : enclosuresOf(found))
            numbers.push_back(area.isClosed() && area.cells > kSquareGaps * gap * gap ? ++count : kOutside);
        for (AreaRun& run : found.runs)
            run.area = run.area >= 0 ? numbers[static_cast<std::size_t>(run.area)] : kOutside;
        std::erase_if(areas.runs, [](const AreaRun& run) { return run.area == kOutside; });
        std::vector<AreaRun> both;
        std::ranges::merge(
            areas.runs, found.runs, std::back_inserter(both), {},
            [](const AreaRun& run) { return std::pair(run.cells.row, run.cells.from); },
            [](const AreaRun& run) { return std::pair(run.cells.row, run.cells.from); });
        areas.runs = std::move(both);
    }
    return count;
}

// The cells between lines that are too close to each other for an area.
int cellsInNarrowAreas(const AreaRuns& areas)
{
    int narrow = 0;
    for (const auto& [cells, area] : areas.runs)
        narrow += area == kNoLabel ? cells.to - cells.from : 0;
    return narrow;
}

// The cells of each area; the box of an area without cells is empty.
std::vector<CellMask> masksOf(const AreaRuns& areas, int count)
{
    std::vector<QRect> boxes(static_cast<std::size_t>(count) + 1);
    for (const auto& [cells, area] : areas.runs)
        if (area > kOutside)
            boxes[static_cast<std::size_t>(area)] |= QRect(cells.from, cells.row, cells.to - cells.from, 1);
    std::vector<CellMask> masks(boxes.begin() + 1, boxes.end());
    for (const auto& [cells, area] : areas.runs)
        if (area > kOutside)
            masks[static_cast<std::size_t>(area) - 1].append(cells.row, cells.from, cells.to);
    return masks;
}

// Whether the areas are the many pieces of a pattern, such as a net.
bool isPattern(const std::vector<int>& sizes, int enclosed)
{
    int inPieces = 0;
    for (const int cells : sizes)
        inPieces += cells < kPiece * enclosed ? cells : 0;
    return inPieces > kMostInPieces * enclosed;
}

// The largest connected part of a mask.
CellMask largestPart(const CellMask& mask)
{
    std::vector<PixelRun> runs;
    mask.forEachRun([&](int y, int from, int to) { runs.push_back({y, from, to}); });
    const ConnectedRuns connected = connectedPartsOf(runs);
    if (connected.pixels.size() == 1)
        return mask;
    const auto largest = static_cast<int>(std::ranges::max_element(connected.pixels) - connected.pixels.begin());
    CellMask part(mask.box());
    for (std::size_t i = 0; i < runs.size(); ++i)
        if (connected.parts[i] == largest)
            part.append(runs[i].row, runs[i].from, runs[i].to);
    return part;
}

// The runs between those of a mask in its box, and in one cell around it.
std::vector<PixelRun> runsAround(const CellMask& mask)
{
    const QRect box = mask.box().adjusted(-1, -1, 1, 1);
    std::vector<PixelRun> around;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        int from = box.left();
        for (const CellRun& run : mask.runs(y)) {
            around.push_back({y, from, run.from});
            from = run.to;
        }
        around.push_back({y, from, box.right() + 1});
    }
    return around;
}

// The mask with what it surrounds.
CellMask withoutHoles(const CellMask& mask)
{
    const std::vector<PixelRun> around = runsAround(mask);
    const ConnectedRuns connected = connectedPartsOf(around);
    if (connected.pixels.size() == 1)
        return mask;
    CellMask filled(mask.box());
    for (std::size_t i = 1; i < around.size(); ++i) {
        const auto& [y, from, to] = around[i];
        const PixelRun& before = around[i - 1];
        const bool isHole = connected.parts[i] != 0;
        if (before.row == y)
            filled.append(y, before.to, from);
        if (isHole)
            filled.append(y, from, to);
    }
    return filled;
}

// @param lines of the grid's size
std::vector<QPainterPath> areasBetween(const CellBits& lines, const Grid& grid)
{
    const CellBits open = unmarked(lines);
    AreaRuns areas = grownOver(coresOf(lines, open, kHalfGap), open);
    const int count = closeWiderGaps(areas, lines, joinOutside(areas));
    int left = cellsInNarrowAreas(areas);
    areas = grownOverAll(areas);

    const double least = kSmallest * grid.width * grid.height;
    int enclosed = 0;
    std::vector<int> sizes;
    std::vector<std::pair<int, CellMask>> large; // area, mask
    for (const CellMask& mask : masksOf(areas, count)) {
        const int cells = mask.area();
        (cells > least ? enclosed : left) += cells;
        if (cells > least)
            sizes.push_back(cells);
        if (cells > least)
            large.emplace_back(0, withoutHoles(largestPart(mask)));
    }
    if (left > kMostLeft * (enclosed + left) || isPattern(sizes, enclosed))
        return {};
    for (auto& [cells, mask] : large)
        cells = mask.area();
    std::ranges::stable_sort(large, std::greater(), [](const auto& one) { return one.first; });
    large.resize(std::min(large.size(), kMostAreas));

    const QTransform toDrawing = grid.toCells().inverted();
    std::vector<QPainterPath> outlines;
    outlines.reserve(large.size());
    for (const auto& [cells, mask] : large)
        outlines.push_back(toDrawing.map(outlineOf(mask)));
    return outlines;
}

} // namespace

std::vector<QPainterPath> closedAreas(std::span<const DIO_Shape* const> lines, const QRectF& frame)
{
    const Grid grid = Grid::over(frame, kCells);
    return areasBetween(cellsOfPainted(paintedLines(lines, grid)), grid);
}

std::vector<QPainterPath> closedAreas(const QImage& lines)
{
    const Grid grid = Grid::over(QRectF(lines.rect()), std::min(kCells, std::max(lines.width(), lines.height())));
    const QSize size = grid.bounds().size();
    if (lines.size() == size)
        return areasBetween(cellsOf(lines), grid);
    const QImage scaled = GR_withPixels(lines.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return areasBetween(cellsOf(GR_imageInFormat(scaled, QImage::Format_Alpha8)), grid);
}
