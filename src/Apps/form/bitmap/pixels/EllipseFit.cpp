// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The conic is (1 + p) / 2 x² + (1 - p) / 2 y² + b xy + d x + e y + f = 0 with the five unknowns p, b, d, e, f, around
// the points' mean and in units of their mean distance from it, so that the normal equations are well conditioned.
#include "form/bitmap/pixels/EllipseFit.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr std::size_t kUnknowns = 5;
constexpr std::size_t kFewest = 12; // points
constexpr double kSingular = 1e-9;

using Row = std::array<double, kUnknowns + 1>;
using Equations = std::array<Row, kUnknowns>;

// Gaussian elimination with the largest pivot of each column.
std::optional<std::array<double, kUnknowns>> solved(Equations rows)
{
    for (std::size_t i = 0; i < kUnknowns; ++i) {
        const auto pivot = std::ranges::max_element(rows.begin() + static_cast<std::ptrdiff_t>(i), rows.end(), {},
                                                    [i](const Row& row) { return std::abs(row[i]); });
        std::swap(rows[i], *pivot);
        if (std::abs(rows[i][i]) < kSingular)
            return std::nullopt;
        for (std::size_t j = 0; j < kUnknowns; ++j) {
            const double factor = j == i ? 0.0 : rows[j][i] / rows[i][i];
            for (std::size_t k = 0; k <= kUnknowns; ++k)
                rows[j][k] -= factor * rows[i][k];
        }
    }
    std::array<double, kUnknowns> values{};
    for (std::size_t i = 0; i < kUnknowns; ++i)
        values[i] = rows[i][kUnknowns] / rows[i][i];
    return values;
}

// The normal equations of the fit, per point.
Equations equationsFor(std::span<const QPointF> points, const QPointF& mean, double unit)
{
    Equations sums{};
    for (const QPointF& point : points) {
        const QPointF at = (point - mean) / unit;
        const double xx = at.x() * at.x();
        const double yy = at.y() * at.y();
        const Row row{(xx - yy) / 2.0, at.x() * at.y(), at.x(), at.y(), 1.0, -(xx + yy) / 2.0};
        for (std::size_t i = 0; i < kUnknowns; ++i)
            for (std::size_t j = 0; j <= kUnknowns; ++j)
                sums[i][j] += row[i] * row[j] / static_cast<double>(points.size());
    }
    return sums;
}

} // namespace

std::optional<Ellipse> Ellipse::through(std::span<const QPointF> points)
{
    if (points.size() < kFewest)
        return std::nullopt;
    const auto count = static_cast<double>(points.size());
    QPointF mean;
    for (const QPointF& point : points)
        mean += point / count;
    double unit = 0.0;
    for (const QPointF& point : points)
        unit += std::hypot(point.x() - mean.x(), point.y() - mean.y()) / count;
    const auto values = solved(equationsFor(points, mean, std::max(unit, kSingular)));
    if (!values)
        return std::nullopt;
    const auto [p, b, d, e, f] = *values;

    // The axes are those of the matrix {(1 + p) / 2, b / 2; b / 2, (1 - p) / 2}, whose eigenvalues are (1 ± bent) / 2.
    const double bent = std::hypot(p, b);
    const double determinant = (1.0 - bent * bent) / 4.0;
    if (determinant < kSingular)
        return std::nullopt;
    const double x = (b * e / 4.0 - (1.0 - p) * d / 4.0) / determinant;
    const double y = (b * d / 4.0 - (1.0 + p) * e / 4.0) / determinant;
    const double level = -(f + (d * x + e * y) / 2.0);
    if (level < kSingular)
        return std::nullopt;
    Ellipse found;
    found._centre = mean + unit * QPointF(x, y);
    found._longRadius = unit * std::sqrt(2.0 * level / (1.0 - bent));
    found._shortRadius = unit * std::sqrt(2.0 * level / (1.0 + bent));
    const double turned = std::atan2(-b, -p) / 2.0;
    found._axis = {std::cos(turned), std::sin(turned)};
    return found;
}

double Ellipse::area() const
{
    return std::numbers::pi * _longRadius * _shortRadius;
}

double Ellipse::distance(const QPointF& point) const
{
    const QPointF off = point - _centre;
    const double u = (off.x() * _axis.x() + off.y() * _axis.y()) / _longRadius;
    const double v = (off.y() * _axis.x() - off.x() * _axis.y()) / _shortRadius;
    const double radius = std::hypot(u, v);
    const double slope = std::hypot(u / _longRadius, v / _shortRadius);
    return slope > 0.0 ? (radius - 1.0) * radius / slope : -_shortRadius;
}

double Ellipse::angleOf(const QPointF& point) const
{
    const QPointF off = point - _centre;
    const double u = (off.x() * _axis.x() + off.y() * _axis.y()) / _longRadius;
    const double v = (off.y() * _axis.x() - off.x() * _axis.y()) / _shortRadius;
    const double degrees = std::atan2(v, u) * 180.0 / std::numbers::pi;
    return degrees < 0.0 ? degrees + 360.0 : degrees;
}

std::pair<int, int> Ellipse::pixelsIn(int row, double margin) const
{
    const double a = _longRadius + margin;
    const double b = _shortRadius + margin;
    const double y = row + 0.5 - _centre.y();
    // Along the row, the ellipse is aa x² + 2 ab x y + bb y² = 1.
    const double aa = _axis.x() * _axis.x() / (a * a) + _axis.y() * _axis.y() / (b * b);
    const double ab = _axis.x() * _axis.y() * (1.0 / (a * a) - 1.0 / (b * b));
    const double bb = _axis.y() * _axis.y() / (a * a) + _axis.x() * _axis.x() / (b * b);
    const double root = ab * ab * y * y - aa * (bb * y * y - 1.0);
    if (root <= 0.0)
        return {0, 0};
    const double middle = _centre.x() - ab * y / aa;
    const double half = std::sqrt(root) / aa;
    return {static_cast<int>(std::floor(middle - half - 0.5)) + 1, static_cast<int>(std::ceil(middle + half - 0.5))};
}
