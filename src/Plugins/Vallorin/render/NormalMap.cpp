// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The normals, a run of pixels at a time. Of the cross products only what is not known beforehand is computed:
//
//     (2, 0, across) x (0, 2, down)      = 2 (-across, -down, 2)
//     (2, 2, falling) x (-2, 2, rising)  = 2 (rising - falling, -(rising + falling), 4)
//
// The factor 2 goes when the vector is normalised, and so do the halves of the mean of two normals. Factors of 2 are
// exact in every operation, so the results are those of the full vectors, to the last bit.
#include "render/NormalMap.h"

#include "render/NormalSmoothing.h"
#include "render/PixelTraits.h"

#include <array>

namespace {

constexpr std::size_t kRun = 128;

template<typename Value>
using Run = std::array<Value, kRun>;

// Differences of opposite neighbours, in float, as depths are stored. The first two are zero where one of the four axis
// neighbours is missing: a level place stores the same x and y as the zero normal.
struct Slopes
{
    Run<float> across;       // right - left
    Run<float> down;         // below - above
    Run<float> falling;      // below right - above left
    Run<float> rising;       // below left - above right
    Run<float> hasDiagonals; // 1 where all eight neighbours are there, else 0
};

struct Directions
{
    Run<double> x;
    Run<double> y;
};

// A run of depths and the rows above and below it. All three have a pixel more on either side.
struct DepthRun
{
    const CEL_PixelFloat* above;
    const CEL_PixelFloat* here;
    const CEL_PixelFloat* below;
    std::size_t length;
};

// 1 where all four are there, else 0; a factor instead of a branch keeps the loops free of jumps.
float areThere(float a, float b, float c, float d)
{
    return static_cast<float>(int{a != 0.0F} & int{b != 0.0F} & int{c != 0.0F} & int{d != 0.0F});
}

void measureAxes(const DepthRun& z, Slopes& slopes)
{
    const CEL_PixelFloat* const leftOf = z.here - 1;
    const CEL_PixelFloat* const rightOf = z.here + 1;
    for (std::size_t i = 0; i < z.length; ++i) {
        const float left = leftOf[i].value;
        const float right = rightOf[i].value;
        const float above = z.above[i].value;
        const float below = z.below[i].value;
        const float axes = areThere(left, right, above, below);
        slopes.across[i] = axes * (right - left);
        slopes.down[i] = axes * (below - above);
        slopes.hasDiagonals[i] = axes;
    }
}

void measureDiagonals(const DepthRun& z, Slopes& slopes)
{
    const CEL_PixelFloat* const aboveLeftOf = z.above - 1;
    const CEL_PixelFloat* const aboveRightOf = z.above + 1;
    const CEL_PixelFloat* const belowLeftOf = z.below - 1;
    const CEL_PixelFloat* const belowRightOf = z.below + 1;
    for (std::size_t i = 0; i < z.length; ++i) {
        const float aboveLeft = aboveLeftOf[i].value;
        const float aboveRight = aboveRightOf[i].value;
        const float belowLeft = belowLeftOf[i].value;
        const float belowRight = belowRightOf[i].value;
        slopes.falling[i] = belowRight - aboveLeft;
        slopes.rising[i] = belowLeft - aboveRight;
        slopes.hasDiagonals[i] *= areThere(aboveLeft, aboveRight, belowLeft, belowRight);
    }
}

double length(double x, double y, double z)
{
    return std::sqrt(x * x + y * y + z * z);
}

void findFromAxes(const Slopes& slopes, std::size_t count, Directions& normals)
{
    for (std::size_t i = 0; i < count; ++i) {
        const double x = -slopes.across[i];
        const double y = -slopes.down[i];
        const double size = length(x, y, 2.0);
        normals.x[i] = x / size;
        normals.y[i] = y / size;
    }
}

void findFromAxesAndDiagonals(const Slopes& slopes, std::size_t count, Directions& normals)
{
    for (std::size_t i = 0; i < count; ++i) {
        const double axisX = -slopes.across[i];
        const double axisY = -slopes.down[i];
        const double axisSize = length(axisX, axisY, 2.0);
        const double x = axisX / axisSize;
        const double y = axisY / axisSize;

        const double falling = slopes.falling[i];
        const double rising = slopes.rising[i];
        const double diagonalX = rising - falling;
        const double diagonalY = -(rising + falling);
        const double diagonalSize = length(diagonalX, diagonalY, 4.0);

        const double sumX = x + diagonalX / diagonalSize;
        const double sumY = y + diagonalY / diagonalSize;
        const double sumSize = length(sumX, sumY, 2.0 / axisSize + 4.0 / diagonalSize);
        const double has = slopes.hasDiagonals[i];
        normals.x[i] = has * (sumX / sumSize) + (1.0 - has) * x;
        normals.y[i] = has * (sumY / sumSize) + (1.0 - has) * y;
    }
}

template<typename Pixel>
Pixel emptyPixel()
{
    return {0, 0, VolumeTraits<Pixel>::kFull, 0};
}

// The widest part of a row whose neighbours are all inside the pixmap.
template<typename Pixel>
void normalRun(const DepthRun& z, const Pixel* blurred, int quality, Pixel* normals)
{
    using Traits = VolumeTraits<Pixel>;
    const auto isBlack = [](const CEL_PixelFloat& depth) { return depth.isBlack(); };
    if (std::all_of(z.here, z.here + z.length, isBlack)) {
        std::fill_n(normals, z.length, emptyPixel<Pixel>());
        return;
    }
    Slopes slopes;
    Directions directions;
    measureAxes(z, slopes);
    if (quality == FOUR_NEIGHBOURS)
        findFromAxes(slopes, z.length, directions);
    else {
        measureDiagonals(z, slopes);
        findFromAxesAndDiagonals(slopes, z.length, directions);
    }
    Run<typename Traits::Channel> red;
    Run<typename Traits::Channel> green;
    for (std::size_t i = 0; i < z.length; ++i) {
        red[i] = Traits::component(directions.x[i]);
        green[i] = Traits::component(directions.y[i]);
    }
    for (std::size_t i = 0; i < z.length; ++i)
        normals[i] = z.here[i].isBlack() ? emptyPixel<Pixel>() : Pixel{red[i], green[i], blurred[i].b, Traits::kFull};
}

// Pixels at the pixmap's edge: a neighbour is missing, so there is no slope.
template<typename Pixel>
void edgeRun(std::span<const CEL_PixelFloat> depth, std::span<const Pixel> blurred, std::span<Pixel> normals)
{
    using Traits = VolumeTraits<Pixel>;
    const auto middle = Traits::component(0.0);
    for (std::size_t i = 0; i < normals.size(); ++i)
        normals[i] = depth[i].isBlack() ? emptyPixel<Pixel>() : Pixel{middle, middle, blurred[i].b, Traits::kFull};
}

template<typename Pixel>
void normalRow(const CEL_PixmapAreaZ& depth, int y, std::span<const Pixel> blurred, int quality,
               std::span<Pixel> normals)
{
    const std::span<const CEL_PixelFloat> here = depth.row(y);
    const Math::Box2di& rect = depth.allocatedRect();
    const std::size_t width = here.size();
    if (y == rect.y1 || y == rect.y2 - 1 || width < 3) {
        edgeRun<Pixel>(here, blurred, normals);
        return;
    }
    edgeRun<Pixel>(here.first(1), blurred.first(1), normals.first(1));
    edgeRun<Pixel>(here.last(1), blurred.last(1), normals.last(1));
    const CEL_PixelFloat* const above = depth.row(y - 1).data();
    const CEL_PixelFloat* const below = depth.row(y + 1).data();
    for (std::size_t i = 1; i < width - 1; i += kRun) {
        const std::size_t count = std::min(kRun, width - 1 - i);
        normalRun<Pixel>({above + i, here.data() + i, below + i, count}, blurred.data() + i, quality,
                         normals.data() + i);
    }
}

} // namespace

template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> buildNormals(const CEL_PixmapAreaZ& depth, const CEL_PixmapOf<Pixel>& blurred,
                                               int quality)
{
    auto normals = UT_makeShared<CEL_PixmapOf<Pixel>>(depth.size(), depth.canvasRect());
    normals->realloc(depth.allocatedRect(), false);
    for (int y = depth.allocatedRect().y1; y < depth.allocatedRect().y2; ++y)
        normalRow<Pixel>(depth, y, blurred.row(y), quality, normals->row(y));
    if (quality == EIGHT_NEIGHBOURS_SMOOTHED)
        return smoothNormals<Pixel>(*normals);
    return normals;
}

template UT_SharedPtr<CEL_PixmapAreaRGBA16> buildNormals<CEL_PixelRGBA16>(const CEL_PixmapAreaZ&,
                                                                          const CEL_PixmapAreaRGBA16&, int);
template UT_SharedPtr<CEL_PixmapAreaRGBAFloat> buildNormals<CEL_PixelRGBAFloat>(const CEL_PixmapAreaZ&,
                                                                                const CEL_PixmapAreaRGBAFloat&, int);
