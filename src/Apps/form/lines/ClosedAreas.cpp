// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Cells that are farther from all lines than half of a gap form the areas' cores. The cores grow over the free cells,
// so that two areas meet in the middle of a gap, and then over the lines, so that they meet in the middle of a line.
#include "form/lines/ClosedAreas.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "form/bitmap/pixels/ConnectedPixels.h"
#include "form/bitmap/pixels/PixelDistances.h"
#include "form/lines/AreaOutline.h"
#include "form/lines/LineDepths.h"
#include "form/raster/CellMask.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>

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
    return GR_imageInFormat(image, QImage::Format_Alpha8);
}

PixelPlane<char> cellsOfLines(const QImage& image, const Grid& grid)
{
    PixelPlane<char> cells(grid.width, grid.height, 0);
    for (int y = 0; y < grid.height; ++y) {
        const std::span row(image.constScanLine(y), static_cast<std::size_t>(grid.width));
        std::ranges::transform(row, cells.row(y).begin(),
                               [](uchar coverage) { return static_cast<char>(coverage >= kLeastCoverage ? 1 : 0); });
    }
    return cells;
}

// Marks the cells for whose values a function returns 1.
template<typename Value, typename Function>
PixelPlane<char> marked(const PixelPlane<Value>& plane, Function function)
{
    PixelPlane<char> marks(plane.width(), plane.height(), 0);
    for (int y = 0; y < plane.height(); ++y)
        std::ranges::transform(plane.row(y), marks.row(y).begin(), function);
    return marks;
}

// The cores of the areas in a part of the picture: what is farther from all lines than half of a gap.
//
// @param open    nonzero for the cells of the part
// @param halfGap as a part of the longer side
ConnectedParts coresOf(const PixelPlane<std::int16_t>& depths, const PixelPlane<char>& open, double halfGap)
{
    const int far = static_cast<int>(kPixelStep * halfGap * std::max(depths.width(), depths.height()));
    PixelPlane<char> cores(depths.width(), depths.height(), 0);
    for (int y = 0; y < depths.height(); ++y) {
        const std::span<const std::int16_t> depth = depths.row(y);
        std::transform(depth.begin(), depth.end(), open.row(y).begin(), cores.row(y).begin(),
                       [far](int deep, char isOpen) { return static_cast<char>((deep > far) & (isOpen != 0)); });
    }
    return connectedPartsOf(cores);
}

// The areas that lines and gaps separate in a part of the picture, numbered; kNoLabel outside that part and in areas
// narrower than a gap.
PixelPlane<int> separateAreas(const ConnectedParts& cores, const PixelPlane<char>& open)
{
    return grown(cores.labels, open).labels;
}

// Whether a core may be that of a closed area, which reaches the picture's border on one side at the most.
bool mayBeClosed(const ConnectedParts& cores)
{
    const PixelPlane<int>& labels = cores.labels;
    std::vector<std::array<bool, 4>> touches(cores.pixels.size(), std::array{false, false, false, false});
    const auto touch = [&](int x, int y, std::size_t side) {
        if (const int core = labels.at(x, y); core >= 0)
            touches[static_cast<std::size_t>(core)][side] = true;
    };
    for (int y = 0; y < labels.height(); ++y) {
        touch(0, y, 0);
        touch(labels.width() - 1, y, 1);
    }
    for (int x = 0; x < labels.width(); ++x) {
        touch(x, 0, 2);
        touch(x, labels.height() - 1, 3);
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

// Calls a function with the area, the first cell and the cell after the last one of every stretch of a row that lies in
// one area.
template<typename Function>
void forEachStretch(std::span<const int> row, Function function)
{
    for (std::size_t from = 0, to = 0; from < row.size(); from = to) {
        while (to < row.size() && row[to] == row[from])
            ++to;
        if (row[from] >= 0)
            function(static_cast<std::size_t>(row[from]), from, to);
    }
}

// How many cells of a stretch have another area beside them in a neighbouring row.
int otherCells(std::span<const int> neighbours, int area)
{
    return static_cast<int>(neighbours.size() - static_cast<std::size_t>(std::ranges::count(neighbours, area)));
}

std::vector<Enclosure> enclosuresOf(const PixelPlane<int>& areas)
{
    std::vector<Enclosure> found;
    const auto width = static_cast<std::size_t>(areas.width());
    for (int y = 0; y < areas.height(); ++y)
        forEachStretch(areas.row(y), [&](std::size_t area, std::size_t from, std::size_t to) {
            if (found.size() <= area)
                found.resize(area + 1);
            Enclosure& own = found[area];
            const int cells = static_cast<int>(to - from);
            own.cells += cells;
            ++(from > 0 ? own.outline : own.borders[0]);
            ++(to < width ? own.outline : own.borders[2]);
            for (const bool below : {false, true}) {
                const int other = below ? y + 1 : y - 1;
                if (other >= 0 && other < areas.height())
                    own.outline += otherCells(areas.row(other).subspan(from, to - from), static_cast<int>(area));
                else
                    own.borders[below ? 3 : 1] += cells;
            }
        });
    return found;
}

// Makes all areas that are not closed one area, kOutside, and numbers the others from 1; returns their number.
int joinOutside(PixelPlane<int>& areas)
{
    std::vector<int> numbers;
    int count = 0;
    for (const Enclosure& area : enclosuresOf(areas))
        numbers.push_back(area.isClosed() ? ++count : kOutside);
    for (int y = 0; y < areas.height(); ++y)
        for (int& area : areas.row(y))
            if (area >= 0)
                area = numbers[static_cast<std::size_t>(area)];
    return count;
}

// Finds areas outside that wider gaps separate, and numbers those that are closed and large compared with the gap from
// count + 1; returns the last number. A wide gap is closed only towards the outside: inside an area it may be drawn.
int closeWiderGaps(PixelPlane<int>& areas, const PixelPlane<std::int16_t>& depths, int count)
{
    for (const double halfGap : kWiderHalfGaps) {
        const PixelPlane<char> outside =
            marked(areas, [](int area) { return static_cast<char>(area == kOutside ? 1 : 0); });
        const ConnectedParts cores = coresOf(depths, outside, halfGap);
        if (!mayBeClosed(cores))
            continue;
        const PixelPlane<int> found = separateAreas(cores, outside);
        const double gap = 2.0 * halfGap * std::max(areas.width(), areas.height());
        std::vector<int> numbers;
        for (const Enclosure& area : enclosuresOf(found))
            numbers.push_back(area.isClosed() && area.cells > kSquareGaps * gap * gap ? ++count : kOutside);
        for (int i = 0; i < areas.count(); ++i)
            if (found[i] >= 0)
                areas[i] = numbers[static_cast<std::size_t>(found[i])];
    }
    return count;
}

// The cells between lines that are too close to each other for an area.
int cellsInNarrowAreas(const PixelPlane<int>& areas, const PixelPlane<char>& lines)
{
    int cells = 0;
    for (int y = 0; y < areas.height(); ++y)
        cells += std::transform_reduce(areas.row(y).begin(), areas.row(y).end(), lines.row(y).begin(), 0, std::plus(),
                                       [](int area, char line) { return (area < 0) & (line == 0) ? 1 : 0; });
    return cells;
}

// The cells of each area; the box of an area without cells is empty.
std::vector<CellMask> masksOf(const PixelPlane<int>& areas, int count)
{
    std::vector<QRect> boxes(static_cast<std::size_t>(count) + 1);
    for (int y = 0; y < areas.height(); ++y)
        forEachStretch(areas.row(y), [&](std::size_t area, std::size_t from, std::size_t to) {
            boxes[area] |= QRect(static_cast<int>(from), y, static_cast<int>(to - from), 1);
        });
    std::vector<CellMask> masks(boxes.begin() + 1, boxes.end());
    for (int y = 0; y < areas.height(); ++y)
        forEachStretch(areas.row(y), [&](std::size_t area, std::size_t from, std::size_t to) {
            if (area > kOutside)
                masks[area - 1].append(y, static_cast<int>(from), static_cast<int>(to));
        });
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
    const QRect& box = mask.box();
    const ConnectedParts parts = connectedPartsOf(mask.planeOf(box));
    const auto largest = static_cast<int>(std::ranges::max_element(parts.pixels) - parts.pixels.begin());
    return CellMask::where(box,
                           [&](int x, int y) { return parts.labels.at(x - box.left(), y - box.top()) == largest; });
}

// The mask with what it surrounds.
CellMask withoutHoles(const CellMask& mask)
{
    const QRect box = mask.box().adjusted(-1, -1, 1, 1);
    const PixelPlane<char> uncovered =
        marked(mask.planeOf(box), [](char covered) { return static_cast<char>(covered != 0 ? 0 : 1); });
    const PixelPlane<int> parts = connectedPartsOf(uncovered).labels;
    const int around = parts.at(0, 0);
    return CellMask::where(mask.box(), [&](int x, int y) { return parts.at(x - box.left(), y - box.top()) != around; });
}

// @param lines a picture of the grid's size
std::vector<QPainterPath> areasBetween(const QImage& lines, const Grid& grid)
{
    const PixelPlane<char> inked = cellsOfLines(lines, grid);
    const PixelPlane<std::int16_t> depths = depthsBetween(inked);
    const PixelPlane<char> open = marked(inked, [](char line) { return static_cast<char>(line != 0 ? 0 : 1); });
    PixelPlane<int> areas = separateAreas(coresOf(depths, open, kHalfGap), open);
    const int count = closeWiderGaps(areas, depths, joinOutside(areas));
    int left = cellsInNarrowAreas(areas, inked);
    areas = grown(areas, PixelPlane<char>(grid.width, grid.height, 1)).labels;

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
    return areasBetween(paintedLines(lines, grid), grid);
}

std::vector<QPainterPath> closedAreas(const QImage& lines)
{
    const Grid grid = Grid::over(QRectF(lines.rect()), std::min(kCells, std::max(lines.width(), lines.height())));
    const QSize size = grid.bounds().size();
    if (lines.size() == size)
        return areasBetween(lines, grid);
    const QImage scaled = GR_withPixels(lines.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return areasBetween(GR_imageInFormat(scaled, QImage::Format_Alpha8), grid);
}
