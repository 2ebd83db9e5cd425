// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Handles are light discs with a dark rim, like the lights, so that they are visible on any picture and in any theme.
#include "studio/objects/ObjectHandles.h"

#include <QPalette>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr double kRadius = 10.0;
constexpr double kReach = 13.0;
constexpr double kInset = 16.0; // from the view's border
constexpr double kApart = 30.0; // between handles of small objects
constexpr double kPullOfOne = 100.0;
constexpr double kWideBevel = 100.0;
constexpr double kPullOfDegree = 2.0;
const QColor kDark(20, 20, 24);
const QColor kLight(0xf4, 0xf5, 0xf7);

QPointF heldIn(const QPointF& place, const QRectF& rect)
{
    return {std::clamp(place.x(), rect.left(), std::max(rect.left(), rect.right())),
            std::clamp(place.y(), rect.top(), std::max(rect.top(), rect.bottom()))};
}

// How a disc that faces as the tilt says is seen: from its own coordinates to those of the view, y down. Rotation
// (jobs/shown/ObjectTilts.h) turns directions the same way.
QTransform seenDisc(const ObjectTilt& tilt)
{
    const double x = tilt.x * std::numbers::pi / 180.0;
    const double y = tilt.y * std::numbers::pi / 180.0;
    return {std::cos(x), std::sin(x) * std::sin(y), 0.0, std::cos(y), 0.0, 0.0};
}

// The tip of a needle of length 1 upright on that disc.
QPointF seenNeedle(const ObjectTilt& tilt)
{
    const double x = tilt.x * std::numbers::pi / 180.0;
    const double y = tilt.y * std::numbers::pi / 180.0;
    return {std::sin(x), -std::cos(x) * std::sin(y)};
}

// A symbol for the value, within a square of side 12 around the origin.
QPainterPath symbolOf(ObjectValue value)
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
    default: // a dome, for smoothness; rim and tilt have no such handle
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

std::optional<ObjectValue> valueOf(ObjectHandle handle)
{
    if (handle == ObjectHandle::TILT)
        return std::nullopt;
    return kObjectValues[static_cast<std::size_t>(handle)];
}

ObjectHandles::ObjectHandles(const QRectF& object, const QRectF& view, const ObjectTilt& tilt)
    : _isEmpty(object.isEmpty()), _tilt(tilt)
{
    const QRectF usable = view.adjusted(kInset, kInset, -kInset, -kInset);
    const double halfWidth = std::max(object.width() / 2.0, kApart);
    const double halfHeight = std::max(object.height() / 2.0, kApart);
    const QPointF middle = object.center();
    const std::array<QPointF, 4> wanted = {middle + QPointF(halfWidth, 0.0), middle - QPointF(0.0, halfHeight),
                                           middle + QPointF(halfWidth, halfHeight), middle - QPointF(halfWidth, 0.0)};
    std::ranges::transform(wanted, _places, [&](const QPointF& place) { return heldIn(place, usable); });
    // Handles that were moved into the view may overlap in a corner.
    for (std::size_t i = 1; i < wanted.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (std::hypot(_places[i].x() - _places[j].x(), _places[i].y() - _places[j].y()) < kApart)
                _places[i] = heldIn(_places[j] + (i == 1 ? QPointF(-kApart, 0.0) : QPointF(0.0, kApart)), usable);
}

std::optional<ObjectHandle> ObjectHandles::at(const QPointF& place) const
{
    if (_isEmpty)
        return std::nullopt;
    for (const ObjectHandle handle : kObjectHandles) {
        const QPointF away = this->place(handle) - place;
        if (std::hypot(away.x(), away.y()) <= kReach)
            return handle;
    }
    return std::nullopt;
}

// A ball is crossed by the needle's shadow; its tip shows where the object faces.
QPainterPath ObjectHandles::pictogram(ObjectHandle handle) const
{
    if (const auto value = valueOf(handle))
        return symbolOf(*value);
    constexpr double kNeedle = 6.0;
    constexpr double kTip = 1.6;
    const QPointF tip = seenNeedle(_tilt) * kNeedle;
    QPainterPath path;
    path.moveTo(-kNeedle, 0.0);
    path.lineTo(kNeedle, 0.0);
    path.moveTo(0.0, -kNeedle);
    path.lineTo(0.0, kNeedle);
    path.addEllipse(tip, kTip, kTip);
    return path;
}

void ObjectHandles::paint(QPainter& painter, const QPalette& palette, std::optional<ObjectHandle> hot) const
{
    if (_isEmpty)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    for (const ObjectHandle handle : kObjectHandles) {
        const bool isHot = hot == handle;
        painter.setPen(QPen(kDark, 2.0));
        painter.setBrush(isHot ? palette.color(QPalette::Highlight) : kLight);
        painter.drawEllipse(place(handle), kRadius, kRadius);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(isHot ? palette.color(QPalette::HighlightedText) : kDark, 1.8, Qt::SolidLine, Qt::RoundCap,
                            Qt::RoundJoin));
        painter.drawPath(pictogram(handle).translated(place(handle)));
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
    default:
        break;
    }
    return std::max(0.0, rounded(from + way.x() / kPullOfOne * care, carefully ? 0.01 : 0.05));
}

ObjectTilt pulledTilt(const ObjectTilt& from, const QPointF& way, bool carefully)
{
    const double step = carefully ? 0.1 : 1.0;
    const double degrees = carefully ? 0.1 / kPullOfDegree : 1.0 / kPullOfDegree;
    const auto turned = [&](double angle, double pull) {
        return clampedTo(ObjectValue::TILT_RIGHT, rounded(angle + pull * degrees, step));
    };
    return {turned(from.x, way.x()), turned(from.y, -way.y())};
}

void paintFacing(QPainter& painter, const QPointF& place, const ObjectTilt& tilt)
{
    constexpr double kDisc = 30.0;
    constexpr double kNeedle = 44.0;
    QPainterPath facing;
    facing.addEllipse(QPointF(), kDisc, kDisc);
    facing = seenDisc(tilt).map(facing);
    facing.moveTo(QPointF());
    facing.lineTo(seenNeedle(tilt) * kNeedle);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    // Light on dark, so that it is visible on any picture.
    for (const auto& [colour, width] : {std::pair(kDark, 4.5), std::pair(kLight, 2.0)}) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(facing.translated(place));
    }
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
