// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Qt's painter computes the coverage of cells in 256 levels; a cell counts as covered from the middle level.
#include "form/raster/CellMask.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <numeric>

namespace {

constexpr int kHalf = 128;

QRect boundsInCells(const DIO_Shape& shape, const Grid& grid)
{
    QRectF bounds = shape.path.boundingRect();
    if (shape.clip)
        bounds &= shape.clip->boundingRect();
    if (bounds.isNull())
        return {};
    // A number of cells far outside the grid may not fit into an int.
    const QRectF reach = QRectF(grid.bounds()).adjusted(-1.0, -1.0, 1.0, 1.0);
    return (grid.toCells().mapRect(bounds) & reach).toAlignedRect() & grid.bounds();
}

// Paints a copy of the path that is reused for all shapes: the painter caches about three kilobytes in every path that
// it paints.
void paint(QPainter& painter, const DIO_Shape& shape, QPainterPath& copy)
{
    painter.setClipping(false);
    if (shape.clip)
        painter.setClipPath(*shape.clip);
    copy.clear();
    copy.addPath(shape.path);
    copy.setFillRule(shape.path.fillRule());
    if (shape.picture.isNull())
        painter.fillPath(copy, Qt::white);
    else
        painter.drawImage(shape.path.boundingRect(), GR_imageInFormat(shape.picture, QImage::Format_Alpha8));
}

// Whether all pixels of a box are opaque, so that what is painted there changes nothing.
bool isOpaque(const QImage& image, const QRect& box)
{
    for (int y = box.top(); y <= box.bottom(); ++y) {
        const QRgb* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        if (!std::all_of(row + box.left(), row + box.right() + 1, [](QRgb pixel) { return qAlpha(pixel) == 255; }))
            return false;
    }
    return true;
}

std::span<const QRgb> pixelRow(const QImage& image, int y)
{
    return {reinterpret_cast<const QRgb*>(image.constScanLine(y)), static_cast<std::size_t>(image.width())};
}

} // namespace

CellMask::CellMask(const QRect& box) : _box(box)
{
    _cells.assign(
        static_cast<std::size_t>(std::max(0, box.width())) * static_cast<std::size_t>(std::max(0, box.height())), 0);
}

CellMask CellMask::of(std::span<const DIO_Shape> shapes, const Grid& grid)
{
    std::vector<QRect> boxes;
    QRect box;
    for (const DIO_Shape& shape : shapes)
        box |= boxes.emplace_back(boundsInCells(shape, grid));
    CellMask mask(box);
    if (box.isEmpty())
        return mask;
    QImage image = GR_newImage(box.size(), kFormatPainted);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(grid.toCells() * QTransform::fromTranslate(-box.left(), -box.top()));
    QPainterPath copy;
    for (std::size_t i = 0; i < shapes.size(); ++i)
        // A cell around the box, since edges at its border may be painted into the next one.
        if (!isOpaque(image, boxes[i].adjusted(-1, -1, 1, 1).translated(-box.topLeft()) & image.rect()))
            paint(painter, shapes[i], copy);
    painter.end();

    int most = 0;
    for (int y = 0; y < box.height(); ++y)
        for (const QRgb pixel : pixelRow(image, y))
            most = std::max(most, qAlpha(pixel));
    const int least = std::max(1, std::min(kHalf, most / 2));
    std::size_t i = 0;
    for (int y = 0; y < box.height(); ++y)
        for (const QRgb pixel : pixelRow(image, y))
            mask._cells[i++] = qAlpha(pixel) >= least ? 1 : 0;
    return mask;
}

int CellMask::area() const
{
    return std::accumulate(_cells.begin(), _cells.end(), 0);
}

int CellMask::overlap(const CellMask& other) const
{
    const QRect common = _box & other._box;
    int cells = 0;
    for (int y = common.top(); y <= common.bottom(); ++y) {
        const std::uint8_t* const own = &_cells[index(common.left(), y)];
        const std::uint8_t* const others = &other._cells[other.index(common.left(), y)];
        for (int i = 0; i < common.width(); ++i)
            cells += own[i] & others[i];
    }
    return cells;
}

void CellMask::unite(const CellMask& other)
{
    if (!_box.contains(other._box)) {
        CellMask larger(_box | other._box);
        larger.add(*this);
        *this = std::move(larger);
    }
    add(other);
}

void CellMask::add(const CellMask& other)
{
    for (int y = other._box.top(); y <= other._box.bottom(); ++y) {
        std::uint8_t* const own = &_cells[index(other._box.left(), y)];
        const std::span<const std::uint8_t> others = other.row(y);
        for (std::size_t i = 0; i < others.size(); ++i)
            own[i] |= others[i];
    }
}
