// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Coverage has 256 levels, and coverages are multiplied and laid over each other as Qt's painter does it: products are
// divided by 255 and rounded.
#include "form/raster/ShapePainter.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QHash>
#include <QPainter>

#include <algorithm>

namespace {

constexpr std::size_t kMostCellsKept = 32 << 20;

QRect boundsInCells(const QRectF& bounds, const Grid& grid)
{
    if (bounds.isNull())
        return {};
    // A number of cells far outside the grid may not fit into an int.
    const QRectF reach = QRectF(grid.bounds()).adjusted(-1.0, -1.0, 1.0, 1.0);
    return (grid.toCells().mapRect(bounds) & reach).toAlignedRect() & grid.bounds();
}

QRect boundsInCells(const DIO_Shape& shape, const Grid& grid)
{
    const QRectF bounds = shape.path.boundingRect();
    return boundsInCells(shape.clip ? bounds & shape.clip->boundingRect() : bounds, grid);
}

// The box with a cell around it: what is painted up to a cell's border may reach into the next one by a rounding.
QRect withMargin(const QRect& box, const Grid& grid)
{
    return box.isEmpty() ? QRect() : box.adjusted(-1, -1, 1, 1) & grid.bounds();
}

// A sample of the elements tells most paths apart, and those that it does not are compared. Paths of many thousand
// elements clip thousands of shapes in some drawings.
std::size_t hashOf(const QPainterPath& path)
{
    constexpr int kSample = 64;
    std::size_t hash = qHashMulti(0, path.elementCount(), static_cast<int>(path.fillRule()));
    const int step = std::max(1, path.elementCount() / kSample);
    for (int i = 0; i < path.elementCount(); i += step) {
        const QPainterPath::Element element = path.elementAt(i);
        hash = qHashMulti(hash, element.x, element.y, static_cast<int>(element.type));
    }
    return hash;
}

unsigned product(unsigned a, unsigned b)
{
    const unsigned whole = a * b;
    return (whole + (whole >> 8) + 128U) >> 8;
}

// Lays coverage over other coverage.
void layOver(std::span<const std::uint8_t> coverage, std::span<std::uint8_t> below)
{
    for (std::size_t i = 0; i < below.size(); ++i)
        below[i] = static_cast<std::uint8_t>(coverage[i] + product(below[i], 255U - coverage[i]));
}

void layOver(std::span<const std::uint8_t> coverage, std::span<const std::uint8_t> clip, std::span<std::uint8_t> below)
{
    for (std::size_t i = 0; i < below.size(); ++i) {
        const unsigned inside = product(coverage[i], clip[i]);
        below[i] = static_cast<std::uint8_t>(inside + product(below[i], 255U - inside));
    }
}

} // namespace

// The cells of a row of a part of the box.
std::span<const std::uint8_t> ShapePainter::Coverage::row(const QRect& part, int y) const
{
    const auto width = static_cast<std::size_t>(box.width());
    const auto first =
        static_cast<std::size_t>(y - box.top()) * width + static_cast<std::size_t>(part.left() - box.left());
    return std::span(cells).subspan(first, static_cast<std::size_t>(part.width()));
}

std::span<std::uint8_t> ShapePainter::Coverage::row(const QRect& part, int y)
{
    const auto width = static_cast<std::size_t>(box.width());
    const auto first =
        static_cast<std::size_t>(y - box.top()) * width + static_cast<std::size_t>(part.left() - box.left());
    return std::span(cells).subspan(first, static_cast<std::size_t>(part.width()));
}

// What the pixels of a picture cover.
//
// @param origin the cell that lies in the canvas's corner
void ShapePainter::paintPicture(const DIO_Shape& shape, const QPoint& origin, Coverage& coverage)
{
    const QRect& box = coverage.box;
    if (_canvas.isNull())
        _canvas = GR_newImage(_grid.bounds().size(), kFormatPainted);
    const auto row = [&](int y) {
        QRgb* const pixels = reinterpret_cast<QRgb*>(_canvas.scanLine(y - origin.y()));
        return std::span(pixels, static_cast<std::size_t>(_canvas.width()))
            .subspan(static_cast<std::size_t>(box.left() - origin.x()), static_cast<std::size_t>(box.width()));
    };
    for (int y = box.top(); y <= box.bottom(); ++y)
        std::ranges::fill(row(y), 0U);
    QPainter painter(&_canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(_grid.toCells() * QTransform::fromTranslate(-origin.x(), -origin.y()));
    painter.drawImage(shape.path.boundingRect(), GR_imageInFormat(shape.picture, QImage::Format_Alpha8));
    painter.end();
    for (int y = box.top(); y <= box.bottom(); ++y)
        std::ranges::transform(row(y), coverage.row(box, y).begin(),
                               [](QRgb pixel) { return static_cast<std::uint8_t>(qAlpha(pixel)); });
}

// Without its clip.
//
// @param part where it is wanted
ShapePainter::Coverage ShapePainter::ofShape(const DIO_Shape& shape, const QRect& part, const QPoint& origin)
{
    Coverage coverage{withMargin(boundsInCells(shape.path.boundingRect(), _grid), _grid) & part, {}};
    if (coverage.box.isEmpty())
        return coverage;
    coverage.cells.resize(static_cast<std::size_t>(coverage.box.width()) *
                          static_cast<std::size_t>(coverage.box.height()));
    if (shape.picture.isNull())
        _paths.find(shape.path, coverage.box, coverage.cells);
    else
        paintPicture(shape, origin, coverage);
    return coverage;
}

const ShapePainter::Coverage& ShapePainter::kept(const QPainterPath& path)
{
    const std::size_t hash = hashOf(path);
    const auto [first, last] = _kept.equal_range(hash);
    const auto known = std::find_if(first, last, [&](const auto& entry) { return entry.second.path == path; });
    if (known != last)
        return known->second.coverage;
    Kept added{path, ofShape({path, std::nullopt, 1.0, 0, {}}, _grid.bounds(), {})};
    _cellsKept += added.coverage.cells.size();
    return _kept.emplace(hash, std::move(added))->second.coverage;
}

// Whether coverage reaches cells of a part that other coverage does not fill.
bool ShapePainter::showsIn(const Coverage& coverage, const QRect& part, const Coverage& together)
{
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const std::span<const std::uint8_t> below = together.row(part, y);
        const std::span<const std::uint8_t> above = coverage.row(part, y);
        for (std::size_t x = 0; x < above.size(); ++x)
            if (above[x] > 0 && below[x] < 255)
                return true;
    }
    return false;
}

// Lays what a shape covers over what others cover.
//
// @param part the box of the shape, inside that of the others
void ShapePainter::add(const DIO_Shape& shape, const QRect& part, Coverage& together)
{
    const auto isFull = [](std::uint8_t cell) { return cell == 255; };
    bool changes = false;
    for (int y = part.top(); y <= part.bottom() && !changes; ++y)
        changes = !std::ranges::all_of(together.row(part, y), isFull);
    if (!changes)
        return;
    if (!shape.clip) {
        const Coverage own = ofShape(shape, part, together.box.topLeft());
        for (int y = own.box.top(); y <= own.box.bottom(); ++y)
            layOver(own.row(own.box, y), together.row(own.box, y));
        return;
    }
    const Coverage picture = shape.picture.isNull() ? Coverage() : ofShape(shape, part, together.box.topLeft());
    const Coverage& own = shape.picture.isNull() ? kept(shape.path) : picture;
    const QRect inside = part & own.box;
    if (!showsIn(own, inside, together))
        return;
    const Coverage& clip = kept(*shape.clip);
    const QRect common = inside & clip.box;
    for (int y = common.top(); y <= common.bottom(); ++y)
        layOver(own.row(common, y), clip.row(common, y), together.row(common, y));
}

CellMask ShapePainter::mask(std::span<const DIO_Shape> shapes)
{
    std::vector<QRect> boxes;
    QRect box;
    for (const DIO_Shape& shape : shapes)
        box |= boxes.emplace_back(boundsInCells(shape, _grid));
    if (box.isEmpty())
        return CellMask(box);
    if (shapes.size() == 1 && !shapes.front().clip)
        return CellMask::ofCoverage(box, ofShape(shapes.front(), box, box.topLeft()).cells);
    if (_cellsKept > kMostCellsKept) {
        _kept.clear();
        _cellsKept = 0;
    }
    const auto cells = static_cast<std::size_t>(box.width()) * static_cast<std::size_t>(box.height());
    Coverage together{box, std::vector<std::uint8_t>(cells)};
    for (std::size_t i = 0; i < shapes.size(); ++i)
        add(shapes[i], withMargin(boxes[i], _grid) & box, together);
    return CellMask::ofCoverage(box, together.cells);
}
