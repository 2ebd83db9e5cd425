// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Andrew's monotone chain, in integers.
#include "form/bitmap/pixels/ConvexHull.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace {

// Above 0 if the path from a over b to c turns right on the screen.
std::int64_t turn(const QPoint& a, const QPoint& b, const QPoint& c)
{
    return std::int64_t(b.x() - a.x()) * (c.y() - a.y()) - std::int64_t(b.y() - a.y()) * (c.x() - a.x());
}

void append(std::vector<QPoint>& chain, std::size_t from, const QPoint& point)
{
    while (chain.size() >= from + 2 && turn(chain[chain.size() - 2], chain.back(), point) <= 0)
        chain.pop_back();
    chain.push_back(point);
}

} // namespace

ConvexHull::ConvexHull(std::vector<QPoint> points)
{
    std::ranges::sort(points, {}, [](const QPoint& p) { return std::pair(p.x(), p.y()); });
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (points.size() < 3)
        return;
    for (const QPoint& point : points)
        append(_corners, 0, point);
    const std::size_t back = _corners.size() - 1;
    for (std::size_t i = points.size() - 1; i-- > 0;)
        append(_corners, back, points[i]);
    _corners.pop_back();
    const auto [low, high] = std::ranges::minmax(_corners, {}, &QPoint::y);
    _top = low.y();
    _bottom = high.y();
}

ConvexHull ConvexHull::around(const ConvexHull& a, const ConvexHull& b)
{
    std::vector<QPoint> points = a._corners;
    points.insert(points.end(), b._corners.begin(), b._corners.end());
    return ConvexHull(std::move(points));
}

double ConvexHull::area() const
{
    std::int64_t twice = 0;
    for (std::size_t i = 0; i < _corners.size(); ++i) {
        const QPoint& a = _corners[i];
        const QPoint& b = _corners[(i + 1) % _corners.size()];
        twice += std::int64_t(a.x()) * b.y() - std::int64_t(b.x()) * a.y();
    }
    return std::abs(static_cast<double>(twice)) / 2.0;
}

double ConvexHull::span() const
{
    double longest = 0.0;
    for (const QPoint& a : _corners)
        for (const QPoint& b : _corners)
            longest = std::max(longest, std::hypot(a.x() - b.x(), a.y() - b.y()));
    return longest;
}

std::pair<int, int> ConvexHull::pixelsIn(int row) const
{
    const double y = row + 0.5;
    double left = std::numeric_limits<double>::max();
    double right = std::numeric_limits<double>::lowest();
    for (std::size_t i = 0; i < _corners.size(); ++i) {
        const QPoint& a = _corners[i];
        const QPoint& b = _corners[(i + 1) % _corners.size()];
        if ((a.y() > y) == (b.y() > y))
            continue;
        const double x = a.x() + (y - a.y()) * (b.x() - a.x()) / (b.y() - a.y());
        left = std::min(left, x);
        right = std::max(right, x);
    }
    if (left > right)
        return {0, 0};
    return {static_cast<int>(std::floor(left - 0.5)) + 1, static_cast<int>(std::ceil(right - 0.5))};
}
