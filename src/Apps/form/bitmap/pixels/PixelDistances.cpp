// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Depths take two passes. Areas grow in the order of distance, with a bucket for each pending distance (Dial's
// algorithm).
#include "form/bitmap/pixels/PixelDistances.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr int kDiagonalStep = 4;
constexpr int kFar = std::numeric_limits<int>::max() / 2;

struct Neighbour
{
    int x;
    int y;
    int step;
};

constexpr std::array kBefore = {Neighbour{-1, 0, kPixelStep}, Neighbour{-1, -1, kDiagonalStep},
                                Neighbour{0, -1, kPixelStep}, Neighbour{1, -1, kDiagonalStep}};
constexpr std::array kAround = {Neighbour{-1, 0, kPixelStep},     Neighbour{1, 0, kPixelStep},
                                Neighbour{0, -1, kPixelStep},     Neighbour{0, 1, kPixelStep},
                                Neighbour{-1, -1, kDiagonalStep}, Neighbour{1, -1, kDiagonalStep},
                                Neighbour{-1, 1, kDiagonalStep},  Neighbour{1, 1, kDiagonalStep}};

// The shortest path to another label over the neighbours that the sweep has visited already; sign is -1 for the sweep
// from the last pixel to the first.
int overNeighbours(const PixelPlane<int>& labels, const PixelPlane<int>& distances, int x, int y, int sign)
{
    int least = distances.at(x, y);
    for (const Neighbour& n : kBefore) {
        const int nx = x + sign * n.x;
        const int ny = y + sign * n.y;
        if (!distances.contains(nx, ny))
            continue;
        const bool own = labels.at(nx, ny) == labels.at(x, y);
        least = std::min(least, n.step + (own ? distances.at(nx, ny) : 0));
    }
    return least;
}

// The same for a pixel that is not at the picture's border. `before` is the index offset to the neighbour in the row
// that was visited before.
int overInnerNeighbours(const PixelPlane<int>& labels, const PixelPlane<int>& distances, int i, int before, int sign)
{
    const int own = labels[i];
    const auto over = [&](int other, int step) { return step + (labels[other] == own ? distances[other] : 0); };
    return std::min({distances[i], over(i - sign, kPixelStep), over(i + before - sign, kDiagonalStep),
                     over(i + before, kPixelStep), over(i + before + sign, kDiagonalStep)});
}

void sweepRow(const PixelPlane<int>& labels, PixelPlane<int>& depths, int y, int sign)
{
    const int width = labels.width();
    const bool inner = y > 0 && y + 1 < labels.height();
    for (int k = 0; k < width; ++k) {
        const int x = sign > 0 ? k : width - 1 - k;
        const int i = y * width + x;
        if (labels[i] < 0)
            continue;
        depths[i] = inner && x > 0 && x + 1 < width ? overInnerNeighbours(labels, depths, i, -sign * width, sign)
                                                    : overNeighbours(labels, depths, x, y, sign);
    }
}

// Pixels to continue from, by their distance. No step is longer than kDiagonalStep, so the buckets are used in turn.
class Front
{
public:
    void add(int pixel, int distance)
    {
        bucket(distance).push_back(pixel);
        ++_waiting;
    }
    bool isEmpty() const { return _waiting == 0; }
    // Removes and returns the pixels of a distance.
    std::vector<int> take(int distance)
    {
        std::vector<int> pixels;
        pixels.swap(bucket(distance));
        _waiting -= pixels.size();
        return pixels;
    }

private:
    std::vector<int>& bucket(int distance) { return _buckets[static_cast<std::size_t>(distance) % _buckets.size()]; }

    std::array<std::vector<int>, kDiagonalStep + 1> _buckets;
    std::size_t _waiting = 0;
};

} // namespace

PixelPlane<int> depthsInside(const PixelPlane<int>& labels)
{
    PixelPlane<int> depths(labels.width(), labels.height(), 0);
    for (int i = 0; i < labels.count(); ++i)
        depths[i] = labels[i] < 0 ? 0 : kFar;
    for (int y = 0; y < labels.height(); ++y)
        sweepRow(labels, depths, y, 1);
    for (int y = labels.height() - 1; y >= 0; --y)
        sweepRow(labels, depths, y, -1);
    // An area without a border would be infinitely deep.
    const int most = kPixelStep * (std::max(labels.width(), labels.height()) / 2 + 1);
    for (int i = 0; i < depths.count(); ++i)
        depths[i] = std::min(depths[i], most);
    return depths;
}

NearestAreas grown(const PixelPlane<int>& labels, const PixelPlane<char>& open)
{
    NearestAreas nearest{PixelPlane<int>(labels.width(), labels.height(), kNoLabel),
                         PixelPlane<int>(labels.width(), labels.height(), kFar)};
    Front front;
    for (int i = 0; i < labels.count(); ++i)
        if (labels[i] >= 0) {
            nearest.labels[i] = labels[i];
            nearest.distances[i] = 0;
        }
    const int width = labels.width();
    const auto relax = [&](int pixel, int other, int step) {
        const int distance = nearest.distances[pixel] + step;
        if (!open[other] || labels[other] >= 0 || distance > nearest.distances[other])
            return;
        if (distance < nearest.distances[other]) {
            nearest.distances[other] = distance;
            nearest.labels[other] = nearest.labels[pixel];
            front.add(other, distance);
        } else
            nearest.labels[other] = std::min(nearest.labels[other], nearest.labels[pixel]);
    };
    const auto relaxAround = [&](int pixel, int x, int y) {
        const bool inner = x > 0 && y > 0 && x + 1 < width && y + 1 < labels.height();
        for (const Neighbour& n : kAround)
            if (inner || labels.contains(x + n.x, y + n.y))
                relax(pixel, pixel + n.y * width + n.x, n.step);
    };
    // Most pixels lie in areas, so the first steps are looked for from the pixels that do not.
    for (int y = 0; y < labels.height(); ++y)
        for (int x = 0; x < width; ++x) {
            const int pixel = y * width + x;
            if (labels[pixel] >= 0 || !open[pixel])
                continue;
            for (const Neighbour& n : kAround)
                if (labels.contains(x + n.x, y + n.y) && labels.at(x + n.x, y + n.y) >= 0)
                    relax(pixel + n.y * width + n.x, pixel, n.step);
        }
    for (int distance = 1; !front.isEmpty(); ++distance)
        for (const int pixel : front.take(distance))
            // A shorter path may have been found after the pixel was added.
            if (nearest.distances[pixel] == distance)
                relaxAround(pixel, pixel % width, pixel / width);
    return nearest;
}
