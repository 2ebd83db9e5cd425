// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/bitmap/regions/RoundOutlines.h"

#include <algorithm>
#include <cmath>

namespace {

// How far points of an outline may lie from the ellipse: a part of its radius, and at least kLeastOff pixels.
constexpr double kOff = 0.035;
constexpr double kLeastOff = 1.2;
// The middle of a line between two regions lies half the line's width inside of the outline around the line.
constexpr double kOffAtSeams = 2.0;
// At least this share of an outline lies on the ellipse, and of the seams inside of it.
constexpr double kOnEllipse = 0.9;
// The least visible part of the outline, in steps of the turn around the centre.
constexpr int kSteps = 36;
constexpr int kLeastSteps = 15;
// A longer ellipse fits too many outlines.
constexpr double kLongest = 2.2;

double tolerance(const Ellipse& ellipse)
{
    return std::max(kLeastOff, kOff * std::sqrt(ellipse.longRadius() * ellipse.shortRadius()));
}

bool mostOf(const std::vector<QPointF>& points, double share, const auto& condition)
{
    return static_cast<double>(std::ranges::count_if(points, condition)) >= share * static_cast<double>(points.size());
}

int stepsSeen(const std::vector<QPointF>& points, const Ellipse& ellipse)
{
    std::array<bool, kSteps> seen{};
    for (const QPointF& point : points)
        seen[static_cast<std::size_t>(ellipse.angleOf(point) * kSteps / 360.0) % kSteps] = true;
    return static_cast<int>(std::ranges::count(seen, true));
}

} // namespace

RoundOutlines::RoundOutlines(const PixelPlane<int>& labels, std::size_t count) : _outlines(count)
{
    const auto edge = [&](int own, int other, const QPointF& middle) {
        if (own < 0 || own == other)
            return;
        Outline& outline = _outlines[static_cast<std::size_t>(own)];
        (other < 0 ? outline.clear : outline.seams[other]).push_back(middle);
    };
    for (int y = 0; y < labels.height(); ++y)
        for (int x = 0; x < labels.width(); ++x) {
            const int own = labels.at(x, y);
            if (x > 0) {
                edge(own, labels.at(x - 1, y), {double(x), y + 0.5});
                edge(labels.at(x - 1, y), own, {double(x), y + 0.5});
            }
            if (y > 0) {
                edge(own, labels.at(x, y - 1), {x + 0.5, double(y)});
                edge(labels.at(x, y - 1), own, {x + 0.5, double(y)});
            }
        }
}

std::optional<Ellipse> RoundOutlines::of(int number, std::span<const int> neighbours) const
{
    std::vector<QPointF> points = outline(number).clear;
    std::vector<QPointF> hidden;
    for (const auto& [other, seam] : outline(number).seams) {
        const bool own = std::ranges::find(neighbours, other) != neighbours.end();
        (own ? points : hidden).insert((own ? points : hidden).end(), seam.begin(), seam.end());
    }
    const std::optional<Ellipse> ellipse = Ellipse::through(points);
    if (!ellipse || ellipse->longRadius() > kLongest * ellipse->shortRadius())
        return std::nullopt;
    const double off = tolerance(*ellipse);
    const auto lieOn = [&](const QPointF& point) { return std::abs(ellipse->distance(point)) < off; };
    const auto lieInside = [&](const QPointF& point) { return ellipse->distance(point) < off; };
    const bool round = mostOf(points, kOnEllipse, lieOn) && mostOf(hidden, kOnEllipse, lieInside) &&
                       stepsSeen(points, *ellipse) >= kLeastSteps;
    return round ? ellipse : std::nullopt;
}

double RoundOutlines::seamShare(int number, int other, const Ellipse& round) const
{
    const auto seam = outline(number).seams.find(other);
    if (seam == outline(number).seams.end())
        return 0.0;
    const double off = kOffAtSeams * tolerance(round);
    const auto lieOn = [&](const QPointF& point) { return std::abs(round.distance(point)) < off; };
    return static_cast<double>(std::ranges::count_if(seam->second, lieOn)) / static_cast<double>(seam->second.size());
}
