// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Downwards, row by row, with a window of the last three rows of the surface, and of the normals where they are
// smoothed. What lies beyond the rectangle counts as black, which comes to the same: a pixel at the edge misses a
// neighbour either way.
#include "render/NormalMap.h"

#include "render/NormalKernels.h"
#include "render/PixelTraits.h"
#include "render/SmoothingKernels.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

using VolumeRowKernels::DepthRows;
using VolumeRowKernels::NormalRow;
using VolumeRowKernels::NormalRows;

// Columns of both, and what lies between them.
ColumnSpan united(const ColumnSpan& a, const ColumnSpan& b)
{
    if (a.isEmpty() || b.isEmpty())
        return a.isEmpty() ? b : a;
    return {std::min(a.first, b.first), std::max(a.end, b.end)};
}

// A row of floats with a zero on either side.
class PaddedRow
{
public:
    explicit PaddedRow(int width) : _values(static_cast<std::size_t>(width) + 2) {}

    // The value of the first column.
    float* data() { return _values.data() + 1; }
    const float* data() const { return _values.data() + 1; }

    void clear(const ColumnSpan& columns) { std::fill_n(data() + columns.first, columns.width(), 0.0F); }

private:
    std::vector<float> _values;
};

// One row of the surface.
struct SurfaceRow
{
    explicit SurfaceRow(int width) : share(width), depth(width) {}

    PaddedRow share;
    PaddedRow depth;
    ColumnSpan columns; // where it is not black
};

// One row of normals.
struct SampleRow
{
    explicit SampleRow(int width) : x(width), y(width), z(width) {}

    NormalRow from(int column) { return {x.data() + column, y.data() + column, z.data() + column}; }

    PaddedRow x;
    PaddedRow y;
    PaddedRow z;
    ColumnSpan columns; // where it is not zero
};

// The last rows of something, one for each remainder of y.
template<typename Row, int kCount>
class RowRing
{
public:
    explicit RowRing(int width) : _rows(kCount, Row(width)) {}

    Row& at(int y) { return _rows[static_cast<std::size_t>(((y % kCount) + kCount) % kCount)]; }

private:
    std::vector<Row> _rows;
};

template<typename Pixel>
class NormalBuilder
{
public:
    NormalBuilder(const ElevationSurface& surface, int quality, CEL_PixmapOf<Pixel>& normals)
        : _surface(surface)
        , _rect(surface.rect())
        , _quality(quality)
        , _normals(normals)
        , _surfaceRows(_rect.width())
        , _samples(quality == EIGHT_NEIGHBOURS_SMOOTHED ? _rect.width() : 0)
    {}

    void build()
    {
        load(_rect.y1);
        for (int y = _rect.y1; y < _rect.y2; ++y) {
            load(y + 1);
            store(y);
        }
    }

    void buildSmoothed()
    {
        load(_rect.y1);
        load(_rect.y1 + 1);
        sample(_rect.y1);
        for (int y = _rect.y1; y < _rect.y2; ++y) {
            load(y + 2);
            sample(y + 1);
            storeSmoothed(y);
        }
    }

private:
    using Row = SurfaceRow;

    void load(int y)
    {
        Row& row = _surfaceRows.at(y);
        row.depth.clear(row.columns);
        const bool isInside = y >= _rect.y1 && y < _rect.y2;
        row.columns = isInside ? _surface.row(y, row.share.data(), row.depth.data()) : ColumnSpan{};
    }

    DepthRows depthAround(int y, int column)
    {
        return {_surfaceRows.at(y - 1).depth.data() + column, _surfaceRows.at(y).depth.data() + column,
                _surfaceRows.at(y + 1).depth.data() + column};
    }

    // The columns of a row that are not empty pixels; the others become ones.
    std::span<Pixel> pixelsOf(int y, const ColumnSpan& columns)
    {
        constexpr Pixel kEmpty{0, 0, VolumeTraits<Pixel>::kFull, 0};
        const std::span<Pixel> row = _normals.row(y);
        std::ranges::fill(row.first(static_cast<std::size_t>(columns.first)), kEmpty);
        std::ranges::fill(row.subspan(static_cast<std::size_t>(columns.end)), kEmpty);
        return row.subspan(static_cast<std::size_t>(columns.first), static_cast<std::size_t>(columns.width()));
    }

    void store(int y)
    {
        Row& row = _surfaceRows.at(y);
        VolumeRowKernels::storeNormals(depthAround(y, row.columns.first), _quality != FOUR_NEIGHBOURS,
                                       row.share.data() + row.columns.first, pixelsOf(y, row.columns));
    }

    void sample(int y)
    {
        SampleRow& samples = _samples.at(y);
        for (PaddedRow* const component : {&samples.x, &samples.y, &samples.z})
            component->clear(samples.columns);
        samples.columns = _surfaceRows.at(y).columns;
        const auto count = static_cast<std::size_t>(samples.columns.width());
        const DepthRows depth = depthAround(y, samples.columns.first);
        if constexpr (std::is_same_v<Pixel, CEL_PixelRGBA16>)
            VolumeRowKernels::readBackNormals16(depth, count, samples.from(samples.columns.first));
        else
            VolumeRowKernels::readBackNormalsFloat(depth, count, samples.from(samples.columns.first));
    }

    // An empty pixel beside others is smoothed too.
    ColumnSpan smoothedColumns(int y)
    {
        const ColumnSpan columns =
            united(united(_samples.at(y - 1).columns, _samples.at(y).columns), _samples.at(y + 1).columns);
        if (columns.isEmpty())
            return columns;
        return {std::max(columns.first - 1, 0), std::min(columns.end + 1, _rect.width())};
    }

    void storeSmoothed(int y)
    {
        const ColumnSpan columns = smoothedColumns(y);
        const int first = columns.first;
        const NormalRows normals{_samples.at(y - 1).from(first), _samples.at(y).from(first),
                                 _samples.at(y + 1).from(first)};
        VolumeRowKernels::storeSmoothedNormals(normals, depthAround(y, first), _surfaceRows.at(y).share.data() + first,
                                               pixelsOf(y, columns));
    }

    const ElevationSurface& _surface;
    Math::Box2di _rect;
    int _quality;
    CEL_PixmapOf<Pixel>& _normals;
    // Smoothing a row looks at normals a row further down, and these at depths a row further.
    RowRing<SurfaceRow, 4> _surfaceRows;
    RowRing<SampleRow, 3> _samples;
};

} // namespace

template<typename Pixel>
void buildNormals(const ElevationSurface& surface, int quality, CEL_PixmapOf<Pixel>& normals)
{
    normals.realloc(surface.rect(), false);
    NormalBuilder<Pixel> builder(surface, quality, normals);
    if (quality == EIGHT_NEIGHBOURS_SMOOTHED)
        builder.buildSmoothed();
    else
        builder.build();
}

template void buildNormals<CEL_PixelRGBA16>(const ElevationSurface&, int, CEL_PixmapAreaRGBA16&);
template void buildNormals<CEL_PixelRGBAFloat>(const ElevationSurface&, int, CEL_PixmapAreaRGBAFloat&);
