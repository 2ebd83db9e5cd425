// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds the drawn pixels from the places where neighbouring pixels differ: these places lie on one grid, so the size of
// its squares divides all distances between them. For most pictures, a few rows are enough to see that the size is 1.
#include "form/bitmap/pictures/OwnResolution.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <numeric>

namespace {

// The coarsest grid that all changes so far lie on.
class GridOfChanges
{
public:
    void add(int place)
    {
        if (_first < 0)
            _first = place;
        _size = std::gcd(_size, place - _first);
    }
    bool isFine() const { return _size == 1; }
    // 0 for fewer than two places.
    int size() const { return _size; }
    int first() const { return _first; }

private:
    int _first = -1;
    int _size = 0;
};

template<typename Pixel>
std::span<const Pixel> rowOf(const QImage& image, int y)
{
    return {reinterpret_cast<const Pixel*>(image.constScanLine(y)), static_cast<std::size_t>(image.width())};
}

template<typename Pixel>
void addChangesInRow(const QImage& image, int y, GridOfChanges& columns)
{
    const auto row = rowOf<Pixel>(image, y);
    for (std::size_t x = 1; x < row.size() && !columns.isFine(); ++x)
        if (row[x] != row[x - 1])
            columns.add(static_cast<int>(x));
}

template<typename Pixel>
PixelCells drawnPixels(const QImage& image)
{
    GridOfChanges columns;
    GridOfChanges rows;
    for (int y = 0; y < image.height() && !columns.isFine() && !rows.isFine(); ++y) {
        const bool changed = y > 0 && std::memcmp(image.constScanLine(y), image.constScanLine(y - 1),
                                                  static_cast<std::size_t>(image.width()) * sizeof(Pixel)) != 0;
        if (changed)
            rows.add(y);
        if (y == 0 || changed)
            addChangesInRow<Pixel>(image, y, columns);
    }
    // A direction with fewer than two changes fits every grid.
    const int size = std::gcd(columns.size(), rows.size());
    if (size <= 1 || columns.isFine() || rows.isFine())
        return {};
    const auto offset = [size](int first) { return first < 0 ? 0 : (size - first % size) % size; };
    return {size, offset(columns.first()), offset(rows.first())};
}

// The average of a cell, its colours weighted by coverage.
class CellSum
{
public:
    void add(QRgb pixel)
    {
        const auto alpha = static_cast<std::uint64_t>(qAlpha(pixel));
        _red += alpha * static_cast<std::uint64_t>(qRed(pixel));
        _green += alpha * static_cast<std::uint64_t>(qGreen(pixel));
        _blue += alpha * static_cast<std::uint64_t>(qBlue(pixel));
        _alpha += alpha;
        ++_count;
    }
    QRgb average() const
    {
        if (_alpha == 0)
            return 0;
        const auto channel = [this](std::uint64_t sum) { return static_cast<int>((sum + _alpha / 2) / _alpha); };
        // A cell with any coverage keeps some.
        const auto alpha = std::max<std::uint64_t>(1, (_alpha + _count / 2) / _count);
        return qRgba(channel(_red), channel(_green), channel(_blue), static_cast<int>(alpha));
    }

private:
    std::uint64_t _red = 0;
    std::uint64_t _green = 0;
    std::uint64_t _blue = 0;
    std::uint64_t _alpha = 0;
    std::uint64_t _count = 0;
};

PixelPlane<QRgb> averages(const QImage& image, const PixelCells& cells)
{
    PixelPlane<QRgb> plane(cells.columns(image.width()), cells.rows(image.height()));
    std::vector<CellSum> sums(static_cast<std::size_t>(plane.width()));
    for (int y = 0; y < image.height(); ++y) {
        const auto row = rowOf<QRgb>(image, y);
        for (int x = 0; x < image.width(); ++x)
            sums[static_cast<std::size_t>(cells.cellX(x))].add(row[static_cast<std::size_t>(x)]);
        if (y + 1 < image.height() && cells.cellY(y + 1) == cells.cellY(y))
            continue;
        std::ranges::transform(sums, plane.row(cells.cellY(y)).begin(), &CellSum::average);
        std::ranges::fill(sums, CellSum());
    }
    return plane;
}

PixelPlane<QRgb> firstPixels(const QImage& image, const PixelCells& cells)
{
    PixelPlane<QRgb> plane(cells.columns(image.width()), cells.rows(image.height()));
    for (int y = 0; y < plane.height(); ++y) {
        const auto from = rowOf<QRgb>(image, std::max(0, y * cells.size - cells.offsetY));
        const auto to = plane.row(y);
        for (int x = 0; x < plane.width(); ++x)
            to[static_cast<std::size_t>(x)] =
                from[static_cast<std::size_t>(std::max(0, x * cells.size - cells.offsetX))];
    }
    return plane;
}

} // namespace

PixelCells drawnPixelsOf(const QImage& image)
{
    return image.depth() > 32 ? drawnPixels<std::uint64_t>(image) : drawnPixels<QRgb>(image);
}

OwnPicture ownPictureOf(const QImage& image)
{
    const QImage pixels = GR_imageInFormat(image, QImage::Format_ARGB32);
    OwnPicture own;
    own.cells = drawnPixelsOf(image);
    const int side = std::max(own.cells.columns(image.width()), own.cells.rows(image.height()));
    const int reduction = (side + kLargestSide - 1) / kLargestSide;
    own.reduced = reduction > 1;
    own.cells.size *= reduction;
    own.colours = own.reduced ? averages(pixels, own.cells) : firstPixels(pixels, own.cells);
    return own;
}
