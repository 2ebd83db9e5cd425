// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each pixel is decoded once, into a window of three rows that keeps x, y and z apart. A pixel without a normal is the
// zero vector there: adding it changes no bit of a sum, so the loops need not ask.
#include "render/NormalSmoothing.h"

#include "MultiStageKvd/NormalParser.h"
#include "render/PixelTraits.h"

#include <array>
#include <limits>
#include <vector>

namespace {

constexpr std::size_t kRun = 128;

using Run = std::array<double, kRun>;

// The decoded normals of one row, with one column more on either side.
struct SampleRow
{
    explicit SampleRow(std::size_t width) : x(width + 2), y(width + 2), z(width + 2), exists(width + 2) {}

    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    std::vector<std::uint8_t> exists;
};

// Three neighbouring rows, moving down. What the parser does not find, in a row or beyond the pixmap, is zero.
class SampleWindow
{
public:
    explicit SampleWindow(const CEL_PixmapArea& normals)
        : _parser(normals)
        , _rect(normals.allocatedRect())
        , _rows{SampleRow(width()), SampleRow(width()), SampleRow(width())}
    {
        load(_rows[2], _rect.y1);
    }

    void moveTo(int y)
    {
        std::swap(_rows[0], _rows[1]);
        std::swap(_rows[1], _rows[2]);
        load(_rows[2], y + 1);
    }

    const SampleRow& above() const { return _rows[0]; }
    const SampleRow& here() const { return _rows[1]; }
    const SampleRow& below() const { return _rows[2]; }

private:
    std::size_t width() const { return static_cast<std::size_t>(_rect.width()); }

    void load(SampleRow& row, int y) const
    {
        for (std::size_t i = 1; i <= width(); ++i) {
            Math::Vector3d normal;
            row.exists[i] = _parser.normalAt(_rect.x1 - 1 + static_cast<int>(i), y, normal);
            row.x[i] = normal.x;
            row.y[i] = normal.y;
            row.z[i] = normal.z;
        }
    }

    NormalParser _parser;
    Math::Box2di _rect;
    std::array<SampleRow, 3> _rows;
};

// One component, summed over 3 x 3 neighbourhoods, in eighths: the sums are normalised, and a power of two more or less
// changes no bit of that. The pointers are to the first neighbourhood's left column. Other orders of the summands would
// round differently.
void sumUp(const double* above, const double* here, const double* below, std::size_t count, Run& sums)
{
    for (std::size_t i = 0; i < count; ++i) {
        double sum = here[i];
        sum += above[i + 1];
        sum += 2.0 * here[i + 1];
        sum += below[i + 1];
        sum += here[i + 2];
        sum += 0.5 * above[i];
        sum += 0.5 * below[i];
        sum += 0.5 * above[i + 2];
        sum += 0.5 * below[i + 2];
        sums[i] = sum;
    }
}

// x and y of the normalised sums. A sum that cancels out stays zero; any other is far longer than the smallest double.
void normalise(Run& x, Run& y, const Run& z, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const double length = std::sqrt(x[i] * x[i] + y[i] * y[i] + z[i] * z[i]);
        const double divisor = std::max(length, std::numeric_limits<double>::min());
        x[i] /= divisor;
        y[i] /= divisor;
    }
}

bool existsAround(const SampleRow& row, std::size_t left)
{
    return row.exists[left + 1] != 0 || row.exists[left] != 0 || row.exists[left + 2] != 0;
}

template<typename Pixel>
void smoothRun(const SampleWindow& window, std::size_t first, std::span<Pixel> pixels)
{
    using Traits = VolumeTraits<Pixel>;
    const SampleRow& above = window.above();
    const SampleRow& here = window.here();
    const SampleRow& below = window.below();
    const std::size_t count = pixels.size();
    Run x;
    Run y;
    Run z;
    sumUp(above.x.data() + first, here.x.data() + first, below.x.data() + first, count, x);
    sumUp(above.y.data() + first, here.y.data() + first, below.y.data() + first, count, y);
    sumUp(above.z.data() + first, here.z.data() + first, below.z.data() + first, count, z);
    normalise(x, y, z, count);
    for (std::size_t i = 0; i < count; ++i) {
        if (!existsAround(here, first + i) && !existsAround(above, first + i) && !existsAround(below, first + i))
            continue;
        pixels[i].r = Traits::component(x[i]);
        pixels[i].g = Traits::component(y[i]);
    }
}

} // namespace

template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> smoothNormals(const CEL_PixmapOf<Pixel>& normals)
{
    auto smoothed = normals.clone().template dynamicCast<CEL_PixmapOf<Pixel>>();
    const Math::Box2di rect = normals.allocatedRect();
    if (rect.isEmpty())
        return smoothed;
    SampleWindow window(normals);
    for (int y = rect.y1; y < rect.y2; ++y) {
        window.moveTo(y);
        const std::span<Pixel> row = smoothed->row(y);
        for (std::size_t i = 0; i < row.size(); i += kRun)
            smoothRun<Pixel>(window, i, row.subspan(i, std::min(kRun, row.size() - i)));
    }
    return smoothed;
}

template UT_SharedPtr<CEL_PixmapAreaRGBA16> smoothNormals<CEL_PixelRGBA16>(const CEL_PixmapAreaRGBA16&);
template UT_SharedPtr<CEL_PixmapAreaRGBAFloat> smoothNormals<CEL_PixelRGBAFloat>(const CEL_PixmapAreaRGBAFloat&);
