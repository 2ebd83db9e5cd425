// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Depths take two passes. Areas grow in the order of distance, with a bucket for each pending distance (Dial's
// algorithm).
#include "form/bitmap/pixels/PixelDistances.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>

namespace {

constexpr int kFar = std::numeric_limits<int>::max() / 2;

struct Neighbour
{
    int x;
    int y;
    int step;
};

constexpr std::array kAround = {Neighbour{-1, 0, kPixelStep},     Neighbour{1, 0, kPixelStep},
                                Neighbour{0, -1, kPixelStep},     Neighbour{0, 1, kPixelStep},
                                Neighbour{-1, -1, kDiagonalStep}, Neighbour{1, -1, kDiagonalStep},
                                Neighbour{-1, 1, kDiagonalStep},  Neighbour{1, 1, kDiagonalStep}};

// A row of a plane of labels, and of the depths of its pixels.
struct DepthRow
{
    std::span<const int> labels;
    std::span<int> depths;
};

// Shortens the paths of a row by those over a pixel of the row that was visited before.
//
// @param shift the neighbour's x minus the pixel's, -1 to 1
void comeFrom(const DepthRow& before, const DepthRow& row, int shift, int step)
{
    const std::size_t count = row.depths.size() - (shift == 0 ? 0 : 1);
    const std::size_t from = shift > 0 ? 1 : 0;
    const std::size_t to = shift < 0 ? 1 : 0;
    for (std::size_t i = 0; i < count; ++i) {
        const bool own = before.labels[from + i] == row.labels[to + i];
        row.depths[to + i] = std::min(row.depths[to + i], step + (own ? before.depths[from + i] : 0));
    }
}

// Shortens the paths of a row by those over the pixel that was visited before in the row itself.
//
// @param sign 1 for the sweep from left to right, -1 for the other one
void goAlong(const DepthRow& row, int sign)
{
    const auto width = static_cast<int>(row.depths.size());
    int label = row.labels[static_cast<std::size_t>(sign > 0 ? 0 : width - 1)];
    int depth = std::numeric_limits<int>::max() - kPixelStep;
    for (int k = 0; k < width; ++k) {
        const auto x = static_cast<std::size_t>(sign > 0 ? k : width - 1 - k);
        depth = std::min(row.depths[x], kPixelStep + (row.labels[x] == label ? depth : 0));
        label = row.labels[x];
        row.depths[x] = depth;
    }
}

// Outside all areas the depth stays 0 through both sweeps.
void sweep(const PixelPlane<int>& labels, PixelPlane<int>& depths, int sign)
{
    for (int k = 0; k < labels.height(); ++k) {
        const int y = sign > 0 ? k : labels.height() - 1 - k;
        const DepthRow row{labels.row(y), depths.row(y)};
        if (k > 0) {
            const DepthRow before{labels.row(y - sign), depths.row(y - sign)};
            comeFrom(before, row, 0, kPixelStep);
            comeFrom(before, row, -1, kDiagonalStep);
            comeFrom(before, row, 1, kDiagonalStep);
        }
        goAlong(row, sign);
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
    // Removes and returns the pixels of a distance, which stay until the next call.
    std::span<const int> take(int distance)
    {
        _taken.clear();
        _taken.swap(bucket(distance));
        _waiting -= _taken.size();
        return _taken;
    }

private:
    std::vector<int>& bucket(int distance) { return _buckets[static_cast<std::size_t>(distance) % _buckets.size()]; }

    std::array<std::vector<int>, kDiagonalStep + 1> _buckets;
    std::vector<int> _taken;
    std::size_t _waiting = 0;
};

// A row before any area has grown.
void startFrom(std::span<const int> labels, std::span<int> nearest, std::span<int> distances)
{
    std::ranges::transform(labels, nearest.begin(), [](int label) { return std::max(label, kNoLabel); });
    std::ranges::transform(labels, distances.begin(), [](int label) { return label < 0 ? kFar : 0; });
}

} // namespace

PixelPlane<int> depthsInside(const PixelPlane<int>& labels)
{
    PixelPlane<int> depths(labels.width(), labels.height(), 0);
    for (int i = 0; i < labels.count(); ++i)
        depths[i] = labels[i] < 0 ? 0 : kFar;
    sweep(labels, depths, 1);
    sweep(labels, depths, -1);
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
    for (int y = 0; y < labels.height(); ++y)
        startFrom(labels.row(y), nearest.labels.row(y), nearest.distances.row(y));
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
    const auto comeToPixel = [&](int x, int y) {
        const int pixel = y * width + x;
        const bool inner = x > 0 && y > 0 && x + 1 < width && y + 1 < labels.height();
        for (const Neighbour& n : kAround)
            if (const int other = pixel + n.y * width + n.x;
                (inner || labels.contains(x + n.x, y + n.y)) && labels[other] >= 0)
                relax(other, pixel, n.step);
    };
    std::vector<char> free(static_cast<std::size_t>(width));
    for (int y = 0; y < labels.height(); ++y) {
        const std::span<const int> row = labels.row(y);
        std::transform(row.begin(), row.end(), open.row(y).begin(), free.begin(),
                       [](int label, char isOpen) { return static_cast<char>((label < 0) & (isOpen != 0)); });
        for (auto at = nextOf(free, 0, 1); at < free.size(); at = nextOf(free, at + 1, 1))
            comeToPixel(static_cast<int>(at), y);
    }
    for (int distance = 1; !front.isEmpty(); ++distance)
        for (const int pixel : front.take(distance))
            // A shorter path may have been found after the pixel was added.
            if (nearest.distances[pixel] == distance)
                relaxAround(pixel, pixel % width, pixel / width);
    return nearest;
}
