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
    QRect box;
    for (const DIO_Shape& shape : shapes)
        box |= boundsInCells(shape, grid);
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
    for (const DIO_Shape& shape : shapes)
        paint(painter, shape, copy);
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

void CellMask::unite(const CellMask& other)
{
    if (!_box.contains(other._box)) {
        CellMask larger(_box | other._box);
        forEach([&](int x, int y) { larger.set(x, y); });
        *this = std::move(larger);
    }
    other.forEach([&](int x, int y) { set(x, y); });
}
