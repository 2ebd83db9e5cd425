// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Goes down row by row, with a window of the last rows of the surface, and of the normals where they are smoothed.
// Pixels outside the rectangle count as black, which makes no difference: a pixel at the edge lacks a neighbour either
// way.
#include "render/NormalMap.h"

#include "QuarvelVectorLanes/VL_RowWindow.h"
#include "render/NormalKernels.h"
#include "render/PixelTraits.h"
#include "render/SmoothingKernels.h"
#include "render/StreamKernels.h"

#include <algorithm>
#include <vector>

namespace {

using VolumeRowKernels::DepthRows;
using VolumeRowKernels::NormalRow;
using VolumeRowKernels::NormalRows;
using VolumeRowKernels::Reader;
using VolumeRowKernels::Stores;

// A row of numbers with a zero on either side.
template<typename Value>
class PaddedRow
{
public:
    explicit PaddedRow(int width) : _values(static_cast<std::size_t>(width) + 2) {}

    // The value of the first column.
    Value* data() { return _values.data() + 1; }
    const Value* data() const { return _values.data() + 1; }

    // Clears the former columns that are not among the kept ones.
    void clear(const ColumnSpan& former, const ColumnSpan& kept)
    {
        const int end = std::min(former.end, kept.isEmpty() ? former.end : kept.first);
        const int first = std::max(former.first, kept.isEmpty() ? former.end : kept.end);
        std::fill_n(data() + former.first, std::max(end - former.first, 0), Value{0});
        std::fill_n(data() + first, std::max(former.end - first, 0), Value{0});
    }

private:
    std::vector<Value> _values;
};

// One row of the surface.
struct SurfaceRow
{
    explicit SurfaceRow(int width) : share(width), depth(width) {}

    PaddedRow<float> share;
    PaddedRow<float> depth;
    ColumnSpan columns; // where it is not black
};

// One row of normals.
template<typename Component>
struct SampleRow
{
    explicit SampleRow(int width) : x(width), y(width), z(width) {}

    NormalRow<Component> from(int column) { return {x.data() + column, y.data() + column, z.data() + column}; }

    PaddedRow<Component> x;
    PaddedRow<Component> y;
    PaddedRow<Component> z;
    ColumnSpan columns; // where it is not zero
};

// A ring of equal rows.
template<typename Row>
VL_RowRing<Row> ringOf(std::size_t rows, int width)
{
    return VL_RowRing<Row>(std::vector<Row>(rows, Row(width)));
}

template<typename Pixel>
class NormalBuilder
{
public:
    /// @param rows of the pixmaps that are filled, at most
    NormalBuilder(const ElevationSurface& surface, int quality, int rows)
        : _surface(surface)
        , _rect(surface.rect())
        , _quality(quality)
        , _stores(VolumeRowKernels::storesFor(
              std::int64_t{_rect.width()} * rows * static_cast<std::int64_t>(sizeof(Pixel)), Reader::SOON))
        , _line(_stores == Stores::CACHED ? 0 : static_cast<std::size_t>(_rect.width()))
        , _surfaceRows(ringOf<SurfaceRow>(4, _rect.width()))
        , _samples(ringOf<Samples>(3, quality == HIGH_NORMAL_QUALITY ? _rect.width() : 0))
    {}

    /// Fills a pixmap whose rectangle is the next rows of the surface's.
    void fill(CEL_PixmapOf<Pixel>& normals)
    {
        const Math::Box2di& rows = normals.allocatedRect();
        for (int y = rows.y1; y < rows.y2; ++y) {
            if (isSmoothed())
                fillSmoothed(y, normals.row(y));
            else
                fillPlain(y, normals.row(y));
        }
        VL_finishStores();
    }

private:
    using Component = typename VolumeTraits<Pixel>::NormalComponent;
    using Samples = SampleRow<Component>;

    bool isSmoothed() const { return _quality == HIGH_NORMAL_QUALITY; }

    void fillPlain(int y, std::span<Pixel> row)
    {
        if (y == _rect.y1)
            load(y);
        load(y + 1);
        store(y, row);
    }

    void fillSmoothed(int y, std::span<Pixel> row)
    {
        if (y == _rect.y1) {
            load(y);
            load(y + 1);
            sample(y);
        }
        load(y + 2);
        sample(y + 1);
        storeSmoothed(y, row);
    }

    void load(int y)
    {
        SurfaceRow& row = _surfaceRows.at(y);
        const bool isInside = y >= _rect.y1 && y < _rect.y2;
        const ColumnSpan columns = isInside ? _surface.row(y, row.share.data(), row.depth.data()) : ColumnSpan{};
        row.depth.clear(row.columns, columns);
        row.columns = columns;
    }

    DepthRows depthAround(int y, int column)
    {
        return {_surfaceRows.at(y - 1).depth.data() + column, _surfaceRows.at(y).depth.data() + column,
                _surfaceRows.at(y + 1).depth.data() + column};
    }

    // Writes a row: store(pixels) fills the given columns, the others become empty pixels.
    template<typename Store>
    void writeRow(std::span<Pixel> row, const ColumnSpan& columns, const Store& store)
    {
        constexpr Pixel kEmpty{0, 0, VolumeTraits<Pixel>::kFull, 0};
        const auto first = static_cast<std::size_t>(columns.first);
        const auto width = static_cast<std::size_t>(columns.width());
        VolumeRowKernels::fillPixels(row.first(first), kEmpty, _stores);
        VolumeRowKernels::fillPixels(row.subspan(first + width), kEmpty, _stores);
        if (_stores == Stores::CACHED) {
            store(row.subspan(first, width));
            return;
        }
        store(std::span<Pixel>(_line).first(width));
        VolumeRowKernels::copyPixels(_line.data(), row.subspan(first, width), _stores);
    }

    void store(int y, std::span<Pixel> row)
    {
        SurfaceRow& surface = _surfaceRows.at(y);
        const int first = surface.columns.first;
        writeRow(row, surface.columns, [&](std::span<Pixel> pixels) {
            VolumeRowKernels::storeNormals(depthAround(y, first), _quality != LOW_NORMAL_QUALITY,
                                           surface.share.data() + first, pixels);
        });
    }

    void sample(int y)
    {
        Samples& samples = _samples.at(y);
        const ColumnSpan columns = _surfaceRows.at(y).columns;
        for (PaddedRow<Component>* const component : {&samples.x, &samples.y, &samples.z})
            component->clear(samples.columns, columns);
        samples.columns = columns;
        VolumeRowKernels::readBackNormals(depthAround(y, samples.columns.first),
                                          static_cast<std::size_t>(samples.columns.width()),
                                          samples.from(samples.columns.first));
    }

    // The columns with a normal in their 3 x 3 neighbourhood: empty pixels beside others are smoothed too.
    ColumnSpan smoothedColumns(int y)
    {
        const ColumnSpan columns =
            _samples.at(y - 1).columns.unitedWith(_samples.at(y).columns).unitedWith(_samples.at(y + 1).columns);
        if (columns.isEmpty())
            return columns;
        return {std::max(columns.first - 1, 0), std::min(columns.end + 1, _rect.width())};
    }

    void storeSmoothed(int y, std::span<Pixel> row)
    {
        const ColumnSpan columns = smoothedColumns(y);
        const int first = columns.first;
        const SurfaceRow& surface = _surfaceRows.at(y);
        const NormalRows<Component> normals{_samples.at(y - 1).from(first), _samples.at(y).from(first),
                                            _samples.at(y + 1).from(first)};
        writeRow(row, columns, [&](std::span<Pixel> pixels) {
            VolumeRowKernels::smoothNormals(normals, surface.depth.data() + first, surface.share.data() + first,
                                            pixels);
        });
    }

    const ElevationSurface& _surface;
    Math::Box2di _rect;
    int _quality;
    Stores _stores;
    std::vector<Pixel> _line; // collects a row that is then written past the cache
    // Smoothing row y needs normals down to row y + 1, and those need depths down to row y + 2.
    VL_RowRing<SurfaceRow> _surfaceRows;
    VL_RowRing<Samples> _samples;
};

} // namespace

template<typename Pixel>
void buildNormals(const ElevationSurface& surface, int quality, CEL_PixmapOf<Pixel>& normals)
{
    normals.realloc(surface.rect(), false);
    NormalBuilder<Pixel>(surface, quality, surface.rect().height()).fill(normals);
}

template<typename Pixel>
void buildNormalBands(const ElevationSurface& surface, int quality, const CEL_PixmapArea& like, int rows,
                      const TakeBand& take)
{
    const Math::Box2di& rect = surface.rect();
    NormalBuilder<Pixel> builder(surface, quality, std::min(rows, rect.height()));
    for (int y = rect.y1; y < rect.y2; y += rows) {
        const auto band = UT_makeShared<CEL_PixmapOf<Pixel>>(like.size(), like.canvasRect());
        band->realloc({rect.x1, y, rect.x2, std::min(y + rows, rect.y2)}, false);
        builder.fill(*band);
        take(band);
    }
}

template void buildNormals<CEL_PixelRGBA16>(const ElevationSurface&, int, CEL_PixmapAreaRGBA16&);
template void buildNormals<CEL_PixelRGBAFloat>(const ElevationSurface&, int, CEL_PixmapAreaRGBAFloat&);
template void buildNormalBands<CEL_PixelRGBA16>(const ElevationSurface&, int, const CEL_PixmapArea&, int,
                                                const TakeBand&);
template void buildNormalBands<CEL_PixelRGBAFloat>(const ElevationSurface&, int, const CEL_PixmapArea&, int,
                                                   const TakeBand&);
