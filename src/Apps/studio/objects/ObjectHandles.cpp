// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Handles are light discs with a dark rim, like the lights, so that they are visible on any picture and in any theme.
#include "studio/objects/ObjectHandles.h"

#include <QPainterPath>
#include <QPalette>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kRadius = 10.0;
constexpr double kReach = 13.0;
constexpr double kInset = 16.0; // from the view's border
constexpr double kApart = 30.0; // between handles of small objects
constexpr double kPullOfOne = 100.0;
constexpr double kWideBevel = 100.0;

QPointF heldIn(const QPointF& place, const QRectF& rect)
{
    return {std::clamp(place.x(), rect.left(), std::max(rect.left(), rect.right())),
            std::clamp(place.y(), rect.top(), std::max(rect.top(), rect.bottom()))};
}

// A symbol for the handle's effect, within a square of side 12 around the origin.
QPainterPath pictogram(ObjectValue value)
{
    QPainterPath path;
    switch (value) {
    case ObjectValue::BEVEL: // a slope up to a plateau
        path.moveTo(6, 4);
        path.lineTo(0, -4);
        path.lineTo(-6, -4);
        break;
    case ObjectValue::ELEVATION: // an arrow with two heads
        path.moveTo(0, -6);
        path.lineTo(0, 6);
        path.moveTo(-3, -3);
        path.lineTo(0, -6);
        path.lineTo(3, -3);
        path.moveTo(-3, 3);
        path.lineTo(0, 6);
        path.lineTo(3, 3);
        break;
    case ObjectValue::SMOOTHNESS: // a dome
        path.moveTo(-6, 4);
        path.cubicTo(-6, -6, 6, -6, 6, 4);
        break;
    }
    return path;
}

double rounded(double value, double step)
{
    // Divides integers, so that 0.3 is the same double as a typed 0.3.
    return std::round(value / step) / std::round(1.0 / step);
}

} // namespace

ObjectHandles::ObjectHandles(const QRectF& object, const QRectF& view) : _isEmpty(object.isEmpty())
{
    const QRectF usable = view.adjusted(kInset, kInset, -kInset, -kInset);
    const double halfWidth = std::max(object.width() / 2.0, kApart);
    const double halfHeight = std::max(object.height() / 2.0, kApart);
    const QPointF middle = object.center();
    const std::array<QPointF, 3> wanted = {middle + QPointF(halfWidth, 0.0), middle - QPointF(0.0, halfHeight),
                                           middle + QPointF(halfWidth, halfHeight)};
    std::ranges::transform(wanted, _places, [&](const QPointF& place) { return heldIn(place, usable); });
    // Handles that were moved into the view may overlap in a corner.
    for (std::size_t i = 1; i < wanted.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (std::hypot(_places[i].x() - _places[j].x(), _places[i].y() - _places[j].y()) < kApart)
                _places[i] = heldIn(_places[j] + (i == 1 ? QPointF(-kApart, 0.0) : QPointF(0.0, kApart)), usable);
}

std::optional<ObjectValue> ObjectHandles::at(const QPointF& place) const
{
    if (_isEmpty)
        return std::nullopt;
    for (const ObjectValue value : kObjectValues) {
        const QPointF away = this->place(value) - place;
        if (std::hypot(away.x(), away.y()) <= kReach)
            return value;
    }
    return std::nullopt;
}

void ObjectHandles::paint(QPainter& painter, const QPalette& palette, std::optional<ObjectValue> hot) const
{
    if (_isEmpty)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor dark(20, 20, 24);
    for (const ObjectValue value : kObjectValues) {
        const bool isHot = hot == value;
        painter.setPen(QPen(dark, 2.0));
        painter.setBrush(isHot ? palette.color(QPalette::Highlight) : QColor(0xf4, 0xf5, 0xf7));
        painter.drawEllipse(place(value), kRadius, kRadius);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(isHot ? palette.color(QPalette::HighlightedText) : dark, 1.8, Qt::SolidLine, Qt::RoundCap,
                            Qt::RoundJoin));
        painter.drawPath(pictogram(value).translated(place(value)));
    }
}

double pulled(double from, ObjectValue value, const QPointF& way, double unit, bool carefully)
{
    const double care = carefully ? 0.1 : 1.0;
    switch (value) {
    case ObjectValue::BEVEL:
        // Doubling a wide bevel must not need a longer pull than doubling a narrow one.
        return std::max(0.0, rounded(from - way.x() / std::max(unit, 1e-6) * std::max(1.0, from / kWideBevel) * care,
                                     carefully ? 0.1 : 1.0));
    case ObjectValue::ELEVATION:
        return rounded(from - way.y() / kPullOfOne * care, carefully ? 0.01 : 0.05);
    case ObjectValue::SMOOTHNESS:
        break;
    }
    return std::max(0.0, rounded(from + way.x() / kPullOfOne * care, carefully ? 0.01 : 0.05));
}

void paintBesideMouse(QPainter& painter, const QPointF& mouse, const QRectF& view, const QString& text)
{
    constexpr double kMargin = 6.0;
    QRectF box = painter.boundingRect(QRectF(), Qt::AlignLeft | Qt::AlignTop, text);
    box = QRectF(mouse + QPointF(18.0, 14.0), box.size() + QSizeF(2 * kMargin, kMargin));
    if (box.right() > view.right() - 4.0)
        box.moveRight(mouse.x() - 18.0);
    if (box.bottom() > view.bottom() - 4.0)
        box.moveBottom(mouse.y() - 14.0);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(20, 20, 24, 225));
    painter.drawRoundedRect(box, 4.0, 4.0);
    painter.setPen(Qt::white);
    painter.drawText(box, Qt::AlignCenter, text);
}
