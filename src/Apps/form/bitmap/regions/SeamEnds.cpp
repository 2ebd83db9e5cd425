// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// An angle is measured as a share of the samples of a disc around the point. The samples lie symmetrically around it,
// so mirrored pictures have the same angles.
#include "form/bitmap/regions/SeamEnds.h"

#include <QPoint>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// The number of samples across the disc, about.
constexpr double kSamplesAcross = 17.0;

// The offsets from a pixel's corner to the sampled pixels of a disc around it.
std::vector<QPoint> discAround(double radius)
{
    // With an odd step, samples lie in the middle of pixels.
    const int step = std::max(1, static_cast<int>(2.0 * radius / kSamplesAcross) | 1);
    std::vector<QPoint> disc;
    const int reach = static_cast<int>(radius / step) + 1;
    for (int j = -reach; j < reach; ++j)
        for (int i = -reach; i < reach; ++i) {
            const double x = (i + 0.5) * step;
            const double y = (j + 0.5) * step;
            if (x * x + y * y <= radius * radius)
                disc.emplace_back(static_cast<int>(std::floor(x)), static_cast<int>(std::floor(y)));
        }
    return disc;
}

// The distinct labels of the four pixels around a corner, in ascending order.
std::vector<int> around(const PixelPlane<int>& labels, int x, int y)
{
    std::vector<int> found = {labels.at(x - 1, y - 1), labels.at(x, y - 1), labels.at(x - 1, y), labels.at(x, y)};
    std::ranges::sort(found);
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

bool differ(int a, int b, int c, int d)
{
    const int others = (b != a ? 1 : 0) + (c != a && c != b ? 1 : 0) + (d != a && d != b && d != c ? 1 : 0);
    return others >= 2;
}

} // namespace

std::vector<SeamPoint> seamPointsOf(const PixelPlane<int>& labels, double radius)
{
    const std::vector<QPoint> disc = discAround(radius);
    std::vector<SeamPoint> points;
    for (int y = 1; y < labels.height(); ++y)
        for (int x = 1; x < labels.width(); ++x) {
            if (!differ(labels.at(x - 1, y - 1), labels.at(x, y - 1), labels.at(x - 1, y), labels.at(x, y)))
                continue;
            SeamPoint point{around(labels, x, y), {}};
            for (const QPoint& offset : disc) {
                // Samples outside the picture take the nearest pixel of its border.
                const int label = labels.at(std::clamp(x + offset.x(), 0, labels.width() - 1),
                                            std::clamp(y + offset.y(), 0, labels.height() - 1));
                const auto known = std::ranges::find(point.angles, label, &std::pair<int, double>::first);
                if (known == point.angles.end())
                    point.angles.emplace_back(label, 1.0);
                else
                    known->second += 1.0;
            }
            for (auto& angle : point.angles)
                angle.second *= 360.0 / static_cast<double>(disc.size());
            points.push_back(std::move(point));
        }
    return points;
}
