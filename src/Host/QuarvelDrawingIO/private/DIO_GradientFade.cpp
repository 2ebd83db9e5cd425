// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// For each step, the ranges of places with at least its opacity are found among the stops; ranges become strips of a
// linear gradient and rings of a radial one.
#include "QuarvelDrawingIO/private/DIO_GradientFade.h"

#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int kSteps = 16;
// Gradients with more stops are those of programs, and change little from stop to stop.
constexpr int kMostStops = 64;
constexpr double kEndless = std::numeric_limits<double>::infinity();

/// Places from low to high, along the gradient.
struct Range
{
    double low;
    double high;

    bool operator==(const Range&) const = default;
};

using Ranges = std::vector<Range>;

void add(Ranges& ranges, const Range& next)
{
    if (!ranges.empty() && ranges.back().high >= next.low)
        ranges.back().high = std::max(ranges.back().high, next.high);
    else
        ranges.push_back(next);
}

// The part of a segment between two stops with at least a value, if any.
void addSegment(Ranges& ranges, const DIO_GradientFade::Stop& from, const DIO_GradientFade::Stop& to, double value)
{
    const bool begins = from.opacity >= value;
    const bool ends = to.opacity >= value;
    if (!begins && !ends)
        return;
    if (begins && ends)
        return add(ranges, {from.at, to.at});
    const double crossing = from.at + (value - from.opacity) / (to.opacity - from.opacity) * (to.at - from.at);
    add(ranges, begins ? Range{from.at, crossing} : Range{crossing, to.at});
}

double opacityAt(const std::vector<DIO_GradientFade::Stop>& stops, double at)
{
    const auto after = std::ranges::upper_bound(stops, at, {}, &DIO_GradientFade::Stop::at);
    if (after == stops.begin() || after == stops.end())
        return after == stops.begin() ? stops.front().opacity : stops.back().opacity;
    const auto before = after - 1;
    return std::lerp(before->opacity, after->opacity, (at - before->at) / (after->at - before->at));
}

// At most kMostStops; if there are more, the first, the last and the values at even distances between them.
std::vector<DIO_GradientFade::Stop> fewStops(const std::vector<DIO_GradientFade::Stop>& stops)
{
    if (stops.size() <= kMostStops)
        return stops;
    std::vector<DIO_GradientFade::Stop> few{stops.front()};
    for (int i = 1; i < kMostStops - 1; ++i) {
        const double at = std::lerp(stops.front().at, stops.back().at, static_cast<double>(i) / (kMostStops - 1));
        few.push_back({at, opacityAt(stops, at)});
    }
    few.push_back(stops.back());
    return few;
}

// Before the first stop and after the last, the opacity is that of the stop.
Ranges atLeast(const std::vector<DIO_GradientFade::Stop>& stops, double value)
{
    Ranges ranges;
    if (stops.front().opacity >= value)
        ranges.push_back({-kEndless, stops.front().at});
    for (std::size_t i = 1; i < stops.size(); ++i)
        addSegment(ranges, stops[i - 1], stops[i], value);
    if (stops.back().opacity >= value)
        add(ranges, {stops.back().at, kEndless});
    return ranges;
}

QString pointText(const QPointF& point)
{
    return DIO_number(point.x()) + u' ' + DIO_number(point.y());
}

QString rectPath(const QRectF& rect)
{
    return DIO_rectPath(rect.x(), rect.y(), rect.width(), rect.height());
}

/// Strips across a linear gradient, long enough for a place.
class Strips
{
public:
    Strips(const DIO_GradientFade& fade, const QRectF& place) : _start(fade.start), _along(fade.end - fade.start)
    {
        for (const QPointF& corner : {place.topLeft(), place.topRight(), place.bottomLeft(), place.bottomRight()}) {
            _first = std::min(_first, placeOf(corner));
            _last = std::max(_last, placeOf(corner));
            _reach = std::max(_reach, std::hypot(corner.x() - _start.x(), corner.y() - _start.y()));
        }
    }

    QString path(const Ranges& ranges) const
    {
        const double length = std::hypot(_along.x(), _along.y());
        const QPointF aside = QPointF(-_along.y(), _along.x()) / length * (1.0 + _reach);
        QString text;
        for (const Range& range : ranges) {
            const QPointF low = _start + _along * std::max(range.low, _first - 1.0);
            const QPointF high = _start + _along * std::min(range.high, _last + 1.0);
            if (range.low < _last + 1.0 && range.high > _first - 1.0)
                text += QStringLiteral("M%1L%2L%3L%4Z")
                            .arg(pointText(low + aside), pointText(high + aside), pointText(high - aside),
                                 pointText(low - aside));
        }
        return text;
    }

private:
    double placeOf(const QPointF& point) const
    {
        return QPointF::dotProduct(point - _start, _along) / QPointF::dotProduct(_along, _along);
    }

    QPointF _start;
    QPointF _along;
    double _first = kEndless;
    double _last = -kEndless;
    double _reach = 0.0;
};

// The circle on which a radial gradient has its colours of a place; they lie inside each other.
QString circlePath(const DIO_GradientFade& fade, double at)
{
    const QPointF centre = fade.start + (fade.end - fade.start) * at;
    const double radius = fade.radius * at;
    const QString arc = QStringLiteral("A%1 %1 0 1 0 ").arg(DIO_number(radius));
    const QString left = pointText(centre - QPointF(radius, 0.0));
    return u'M' + left + arc + pointText(centre + QPointF(radius, 0.0)) + arc + left + u'Z';
}

// Between two circles, or beyond one, up to the borders of the place.
QString ringsPath(const DIO_GradientFade& fade, const Ranges& ranges, const QRectF& place)
{
    QString text;
    for (const Range& range : ranges) {
        if (range.high <= 0.0)
            continue;
        text += range.high < kEndless ? circlePath(fade, range.high) : rectPath(place);
        if (range.low > 0.0)
            text += circlePath(fade, range.low);
    }
    return text;
}

} // namespace

bool DIO_GradientFade::isVisible() const
{
    const auto [least, most] = std::ranges::minmax(stops, {}, &Stop::opacity);
    return most.opacity - least.opacity > 0.5 / kSteps && (isRadial ? radius > 0.0 : start != end);
}

std::vector<DIO_FadeArea> DIO_areasOf(const DIO_GradientFade& fade, const QRectF& place)
{
    std::vector<DIO_FadeArea> areas;
    const Strips strips(fade, place);
    const std::vector<DIO_GradientFade::Stop> stops = fewStops(fade.stops);
    Ranges last;
    for (int step = 1; step <= kSteps; ++step) {
        // Half a step lower than the value, so that the steps lie around the true opacity.
        const Ranges ranges = atLeast(stops, (step - 0.5) / kSteps);
        const QString path = fade.isRadial ? ringsPath(fade, ranges, place) : strips.path(ranges);
        if (path.isEmpty())
            break;
        // An area that stays the same has the highest of its values.
        if (ranges == last)
            areas.pop_back();
        areas.push_back({path, static_cast<double>(step) / kSteps});
        last = ranges;
    }
    return areas;
}
