// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// An exact Euclidean nearest-pixel transform in two passes, after A. Meijster, J. Roerdink and W. Hesselink, "A general
// algorithm for computing distance transforms in linear time" (2000): first, in every column, the nearest covered row;
// then, in every row, the lower envelope of the parabolas that these distances define. All steps use integers, so that
// nothing depends on rounding. Covered pixels that are too far away do not count, so the picture is padded in bands:
// each needs only the rows that are near enough, and its nearest rows fit into a processor's cache.
#include "QuarvelNormalMap/NM_Padding.h"

#include "QuarvelNormalMap/private/NM_Rows.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <cstdlib>
#include <vector>

namespace {

constexpr int kNone = -1;

// For every pixel of some rows, the nearest of their covered rows in its column, counted from the picture's first row;
// of two equally near rows, the upper one.
class NearestRows
{
public:
    // The rows from first to end - 1.
    template<typename Sample>
    static NearestRows of(const IIO_Picture& picture, int first, int end)
    {
        NearestRows result(picture.width(), first, end);
        for (int y = first; y < end; ++y)
            result.sweepDown(y, picture.row<Sample>(picture.dataWindow().y1 + y));
        for (int y = end - 2; y >= first; --y)
            result.sweepUp(y);
        return result;
    }

    std::span<const int> row(int y) const { return {_rows.data() + offset(y), static_cast<std::size_t>(_width)}; }

private:
    NearestRows(int width, int first, int end)
        : _width(width)
        , _first(first)
        , _rows(static_cast<std::size_t>(width) * static_cast<std::size_t>(end - first), kNone)
    {}

    std::size_t offset(int y) const { return static_cast<std::size_t>(y - _first) * static_cast<std::size_t>(_width); }

    template<typename Sample>
    void sweepDown(int y, std::span<const Sample> pixels)
    {
        int* here = _rows.data() + offset(y);
        // The row above, or this one, which holds kNone.
        const int* above = y == _first ? here : here - _width;
        for (std::size_t x = 0; x < static_cast<std::size_t>(_width); ++x)
            here[x] = pixels[4 * x + 3] > 0 ? y : above[x];
    }

    void sweepUp(int y)
    {
        int* here = _rows.data() + offset(y);
        const int* below = here + _width;
        // Without branches, so that compilers vectorise it.
        for (int x = 0; x < _width; ++x) {
            const int lower = below[x];
            const int upper = here[x];
            const bool isNearer = (upper == kNone) | (lower - y < y - upper);
            here[x] = (lower != kNone) & isNearer ? lower : upper;
        }
    }

    int _width;
    int _first;
    std::vector<int> _rows;
};

// The columns whose covered pixels are the nearest for some pixel of one row, from left to right.
class Envelope
{
public:
    explicit Envelope(int width)
    {
        _columns.reserve(static_cast<std::size_t>(width));
        _starts.reserve(static_cast<std::size_t>(width));
    }

    // rows: the nearest covered row of every column. Left out are columns whose covered row is farther from y than the
    // distance, and those whose neighbours are covered in row y as they are: for every pixel without coverage, one of
    // the ends of that run of covered pixels is nearer.
    void build(std::span<const int> rows, int y, int distance)
    {
        _columns.clear();
        _starts.clear();
        _rows = rows;
        _y = y;
        for (int column = 0; column < static_cast<int>(rows.size()); ++column)
            if (rows[static_cast<std::size_t>(column)] != kNone && std::abs(verticalDistance(column)) <= distance &&
                !isInsideRun(column))
                add(column);
    }

    bool isEmpty() const { return _columns.empty(); }
    std::size_t size() const { return _columns.size(); }
    int column(std::size_t i) const { return _columns[i]; }
    // The first pixel for which column(i) is the nearest.
    std::int64_t start(std::size_t i) const { return _starts[i]; }

    std::int64_t squaredDistance(std::int64_t x, int column) const
    {
        const std::int64_t dx = x - column;
        const std::int64_t dy = verticalDistance(column);
        return dx * dx + dy * dy;
    }

private:
    int verticalDistance(int column) const { return _rows[static_cast<std::size_t>(column)] - _y; }

    bool isInsideRun(int column) const
    {
        return column > 0 && column + 1 < static_cast<int>(_rows.size()) && verticalDistance(column - 1) == 0 &&
               verticalDistance(column) == 0 && verticalDistance(column + 1) == 0;
    }

    void add(int column)
    {
        // Drops columns that the new one beats at the first pixel for which they were the nearest.
        while (!_columns.empty() &&
               squaredDistance(_starts.back(), _columns.back()) > squaredDistance(_starts.back(), column)) {
            _columns.pop_back();
            _starts.pop_back();
        }
        const std::int64_t start = _columns.empty() ? 0 : firstWon(_columns.back(), column);
        if (start < static_cast<std::int64_t>(_rows.size())) {
            _columns.push_back(column);
            _starts.push_back(start);
        }
    }

    // The first pixel that is nearer to the right column than to the left one. At pixel 0 the left one is at least as
    // near, or add() would have dropped it, so no operand is negative.
    std::int64_t firstWon(int left, int right) const
    {
        const std::int64_t lead = squaredDistance(0, right) - squaredDistance(0, left);
        assert(lead >= 0);
        return lead / (2 * (std::int64_t{right} - left)) + 1;
    }

    std::vector<int> _columns;
    std::vector<std::int64_t> _starts;
    std::span<const int> _rows;
    int _y = 0;
};

// Visits only the pixels that are near enough to the column that is the nearest for them.
template<typename Sample>
void padRow(IIO_Picture& picture, const Envelope& envelope, std::span<const int> rows, int y, int distance)
{
    const int firstRow = picture.dataWindow().y1;
    const std::span<Sample> pixels = picture.row<Sample>(firstRow + y);
    const std::int64_t furthest = std::int64_t{distance} * distance;
    for (std::size_t i = 0; i < envelope.size(); ++i) {
        const int column = envelope.column(i);
        const std::int64_t next = i + 1 < envelope.size() ? envelope.start(i + 1) : picture.width();
        const std::int64_t first = std::max(envelope.start(i), std::int64_t{column} - distance);
        const std::int64_t end = std::min(next, std::int64_t{column} + distance + 1);
        const auto sourceRow = firstRow + rows[static_cast<std::size_t>(column)];
        const Sample* const source = picture.row<Sample>(sourceRow).data() + 4 * static_cast<std::size_t>(column);
        for (std::int64_t x = first; x < end; ++x) {
            Sample* const target = pixels.data() + 4 * x;
            if (!(target[3] > 0) && envelope.squaredDistance(x, column) <= furthest)
                std::copy_n(source, 3, target);
        }
    }
}

template<typename Sample>
bool hasGaps(std::span<const Sample> pixels)
{
    for (std::size_t i = 3; i < pixels.size(); i += 4)
        if (!(pixels[i] > 0))
            return true;
    return false;
}

template<typename Sample>
void padBand(IIO_Picture& picture, int from, int to, int distance, Envelope& envelope)
{
    const int reach = std::min(distance, picture.height());
    const NearestRows nearest =
        NearestRows::of<Sample>(picture, std::max(0, from - reach), std::min(to + reach, picture.height()));
    for (int y = from; y < to; ++y) {
        if (!hasGaps<Sample>(picture.row<Sample>(picture.dataWindow().y1 + y)))
            continue;
        envelope.build(nearest.row(y), y, distance);
        if (!envelope.isEmpty())
            padRow<Sample>(picture, envelope, nearest.row(y), y, distance);
    }
}

// Bands are padded in parallel: only pixels without coverage are written, and only pixels with coverage are copied.
template<typename Sample>
void pad(IIO_Picture& picture, int distance)
{
    constexpr int kSmallest = 64;
    const int rows = std::max(kSmallest, 2 * std::min(distance, picture.height()));
    const int bands = (picture.height() + rows - 1) / rows;
    VL_parallelFor(tbb::blocked_range<int>(0, bands, 1), [&](const tbb::blocked_range<int>& range) {
        Envelope envelope(picture.width());
        for (int i = range.begin(); i < range.end(); ++i)
            padBand<Sample>(picture, i * rows, std::min((i + 1) * rows, picture.height()), distance, envelope);
    });
}

} // namespace

void NM_padColours(IIO_Picture& picture, int distance)
{
    assert(picture.channels() == IIO_channelsRgba());
    if (distance <= 0)
        return;
    if (picture.sampleType() == IIO_SampleType::UINT16)
        pad<std::uint16_t>(picture, distance);
    else
        pad<float>(picture, distance);
}
