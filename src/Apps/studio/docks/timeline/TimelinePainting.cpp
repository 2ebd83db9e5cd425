// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How the timeline is painted. Only the frames that can be seen are looked at, so that scenes may be long.
#include "studio/docks/timeline/TimelineCanvas.h"

#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "studio/docks/graph/NodeColors.h"
#include "studio/docks/timeline/ShortNames.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kKeyRadius = 5.5;
constexpr double kRoomForNumber = 30.0;

// The distance between numbers of the ruler that leaves them room.
int rulerStep(double frameWidth)
{
    constexpr double kLeastDistance = 44.0;
    for (int power = 1;; power *= 10)
        for (const int step : {1, 2, 5})
            if (step * power * frameWidth >= kLeastDistance)
                return step * power;
}

QPainterPath diamond(const QPointF& center)
{
    QPainterPath path(center + QPointF(0, -kKeyRadius));
    path.lineTo(center + QPointF(kKeyRadius, 0));
    path.lineTo(center + QPointF(0, kKeyRadius));
    path.lineTo(center + QPointF(-kKeyRadius, 0));
    path.closeSubpath();
    return path;
}

} // namespace

void TimelineCanvas::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Base));
    painter.save();
    painter.setClipRect(QRect(nameWidth(), 0, viewport()->width() - nameWidth(), viewport()->height()));
    paintGrid(painter);
    painter.save();
    painter.setClipRect(QRect(nameWidth(), kRulerHeight, viewport()->width(), viewport()->height()), Qt::IntersectClip);
    for (int row = 0; row < static_cast<int>(_rows.size()); ++row)
        if (rowTop(row) < viewport()->height() && rowTop(row) + kRowHeight > kRulerHeight)
            paintRow(painter, row);
    painter.restore();
    paintRuler(painter);
    paintCursor(painter);
    painter.restore();
    paintNames(painter);
}

void TimelineCanvas::paintGrid(QPainter& painter) const
{
    const QColor base = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    const MO_Scene& scene = _document.scene();
    const int step = rulerStep(_frameWidth);
    const double end = xOf(scene.lastFrame() + 1.0);
    painter.setPen(QPen(blended(base, text, 0.07), 1));
    const qint64 from = nearestFrame(nameWidth());
    const qint64 to = nearestFrame(viewport()->width());
    for (qint64 frame = from - (from % step + step) % step; frame <= to; frame += step)
        painter.drawLine(QPointF(xOf(static_cast<double>(frame)) + 0.5, kRulerHeight),
                         QPointF(xOf(static_cast<double>(frame)) + 0.5, viewport()->height()));
    painter.fillRect(QRectF(end, 0, viewport()->width(), viewport()->height()), blended(base, text, 0.06));
    painter.fillRect(QRectF(xOf(_document.currentFrame()), kRulerHeight, _frameWidth, viewport()->height()),
                     blended(base, palette().color(QPalette::Highlight), 0.18));
}

void TimelineCanvas::paintRuler(QPainter& painter) const
{
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    painter.fillRect(QRect(nameWidth(), 0, viewport()->width(), kRulerHeight), window);
    if (_loop) {
        const QRectF played(xOf(_loop->first), 0, xOf(_loop->second + 1.0) - xOf(_loop->first), kRulerHeight);
        painter.fillRect(played, blended(window, palette().color(QPalette::Highlight), 0.3));
    }
    const int step = rulerStep(_frameWidth);
    const MO_Scene& scene = _document.scene();
    QFont font = this->font();
    font.setPixelSize(11);
    painter.setFont(font);
    const qint64 from = nearestFrame(nameWidth());
    const qint64 to = nearestFrame(viewport()->width());
    for (qint64 frame = std::max<qint64>(from - (from % step + step) % step, scene.firstFrame()); frame <= to;
         ++frame) {
        const double x = xOf(static_cast<double>(frame)) + 0.5;
        const qint64 toNext = (step - (frame % step + step) % step) % step;
        const bool isFirst = frame == scene.firstFrame();
        const bool isNumbered = toNext == 0 || (isFirst && static_cast<double>(toNext) * _frameWidth >= kRoomForNumber);
        if (!isNumbered && _frameWidth < 5.0)
            continue;
        painter.setPen(QPen(blended(window, text, 0.7), 1));
        painter.drawLine(QPointF(x, kRulerHeight - (isNumbered ? 8 : 4)), QPointF(x, kRulerHeight - 1));
        if (!isNumbered)
            continue;
        painter.setPen(blended(window, text, 0.8));
        painter.drawText(QRectF(x + 3, 2, 60, kRulerHeight - 8), Qt::AlignLeft | Qt::AlignVCenter,
                         QString::number(frame));
    }
    painter.setPen(QPen(blended(window, text, 0.25), 1));
    painter.drawLine(QPointF(0, kRulerHeight - 0.5), QPointF(viewport()->width(), kRulerHeight - 0.5));
}

void TimelineCanvas::paintRow(QPainter& painter, int row) const
{
    const QColor base = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    const int top = rowTop(row);
    const TimelineRow& shown = _rows[static_cast<std::size_t>(row)];
    const bool isDragged = _dragging == Dragging::START && row == _currentRow;
    painter.setPen(QPen(blended(base, text, 0.1), 1));
    painter.drawLine(QPointF(nameWidth(), top + kRowHeight - 0.5),
                     QPointF(viewport()->width(), top + kRowHeight - 0.5));
    if (shown.element)
        paintExposures(painter, shown, top, isDragged);
    else
        paintKeys(painter, shown, top, isDragged);
}

void TimelineCanvas::paintExposures(QPainter& painter, const TimelineRow& row, int top, bool isDragged) const
{
    AT_ExposureSheet sheet = row.element->drawingAttr()->exposures();
    if (isDragged && _dragTo != _dragFrom) {
        const int from = static_cast<int>(_dragFrom);
        const QString name = sheet.drawing(from);
        sheet.removeExposure(from);
        sheet.setExposure(_dragTo, name);
    }
    const QColor base = palette().color(QPalette::Base);
    const QColor color = kindColor(row.element->keyword(), palette());
    const QColor fill = blended(base, color, isDark(palette()) ? 0.35 : 0.25);
    QFont font = this->font();
    font.setPixelSize(11);
    painter.setFont(font);
    const auto& exposures = sheet.exposures();
    const double end = _document.scene().lastFrame() + 1.0;
    for (auto it = exposures.begin(); it != exposures.end(); ++it) {
        const auto next = std::next(it);
        const double left = xOf(it->first);
        const double right = std::min(xOf(next == exposures.end() ? end : next->first), xOf(end));
        if (it->second.isEmpty() || right <= left || right < nameWidth() || left > viewport()->width())
            continue;
        const QRectF block(left + 0.5, top + 3.5, right - left - 1.5, kRowHeight - 8);
        painter.setPen(QPen(color, 1));
        painter.setBrush(fill);
        painter.drawRoundedRect(block, 3, 3);
        painter.setPen(palette().color(QPalette::Text));
        const QRectF room = block.adjusted(4, 0, -2, 0).intersected(QRectF(nameWidth() + 2, 0, 1.0e6, 1.0e6));
        if (room.width() > 6)
            painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                             QFontMetricsF(font).elidedText(it->second, Qt::ElideRight, room.width()));
    }
}

// Between two keys a line tells that the value is on its way; a dotted one that it holds.
void TimelineCanvas::paintKeys(QPainter& painter, const TimelineRow& row, int top, bool isDragged) const
{
    AT_Curve curve = row.attribute->curve();
    if (isDragged && _dragTo != _dragFrom && curve.keyAt(_dragFrom)) {
        AT_Curve::Key key = *curve.keyAt(_dragFrom);
        curve.removeKey(_dragFrom);
        key.frame = _dragTo;
        curve.setKey(key);
    }
    const QColor base = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    const QColor current = palette().color(QPalette::Link);
    const bool isCurrentRow = _currentRow >= 0 && &row == &_rows[static_cast<std::size_t>(_currentRow)];
    const double y = top + kRowHeight / 2.0 - 0.5;
    const auto place = [&](const AT_Curve::Key& key) { return QPointF(xOf(key.frame) + _frameWidth / 2, y); };
    const auto& keys = curve.keys();
    for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
        const bool holds = keys[i].interpolation == AT_Curve::Interpolation::HOLD;
        const bool isSmooth = keys[i].interpolation == AT_Curve::Interpolation::BEZIER;
        painter.setPen(QPen(blended(base, text, 0.6), isSmooth ? 2.5 : 1.2, holds ? Qt::DotLine : Qt::SolidLine));
        painter.drawLine(place(keys[i]), place(keys[i + 1]));
    }
    for (const AT_Curve::Key& key : keys) {
        const bool isCurrent = key.frame == _document.currentFrame() && isCurrentRow;
        painter.setPen(QPen(isCurrent ? current : blended(base, text, 0.75), 1.3));
        painter.setBrush(isCurrent ? current : blended(base, text, 0.3));
        if (key.interpolation == AT_Curve::Interpolation::HOLD)
            painter.drawRect(QRectF(place(key) - QPointF(4.5, 4.5), QSizeF(9, 9)));
        else if (key.interpolation == AT_Curve::Interpolation::BEZIER)
            painter.drawEllipse(place(key), kKeyRadius - 0.5, kKeyRadius - 0.5);
        else
            painter.drawPath(diamond(place(key)));
    }
}

void TimelineCanvas::paintNames(QPainter& painter) const
{
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    painter.fillRect(QRect(0, 0, nameWidth(), viewport()->height()), window);
    painter.save();
    painter.setClipRect(QRect(0, kRulerHeight, nameWidth(), viewport()->height()));
    QFont font = this->font();
    font.setPixelSize(12);
    painter.setFont(font);
    const auto roomOf = [this](int row) {
        const double indent = _rows[static_cast<std::size_t>(row)].element ? 8 : 18;
        return QRectF(0, rowTop(row), nameWidth(), kRowHeight).adjusted(indent, 0, -6, 0);
    };
    std::vector<RoomForName> full;
    full.reserve(_rows.size());
    for (int row = 0; row < static_cast<int>(_rows.size()); ++row)
        full.push_back({_rows[static_cast<std::size_t>(row)].label, roomOf(row).width()});
    const std::vector<QString> names = shortNames(full, QFontMetricsF(font));
    for (int row = 0; row < static_cast<int>(_rows.size()); ++row) {
        const TimelineRow& shown = _rows[static_cast<std::size_t>(row)];
        const QRectF place(0, rowTop(row), nameWidth(), kRowHeight);
        const bool isCurrent = row == _currentRow;
        const bool isSelected = shown.element && _document.selection().contains(shown.module);
        const double share = !isCurrent ? (isSelected ? 0.2 : 0.0) : hasFocus() ? 0.45 : 0.2;
        painter.fillRect(place, blended(window, palette().color(QPalette::Highlight), share));
        painter.setPen(shown.element || isCurrent ? text : blended(window, text, 0.75));
        painter.drawText(roomOf(row), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         names[static_cast<std::size_t>(row)]);
    }
    painter.restore();
    painter.setPen(QPen(blended(window, text, 0.25), 1));
    painter.drawLine(QPointF(nameWidth() - 0.5, 0), QPointF(nameWidth() - 0.5, viewport()->height()));
    painter.drawLine(QPointF(0, kRulerHeight - 0.5), QPointF(nameWidth(), kRulerHeight - 0.5));
}

void TimelineCanvas::paintCursor(QPainter& painter) const
{
    // The accent itself is too faint on the frames that are played.
    const QColor colour = palette().color(QPalette::Link);
    const double left = xOf(_document.currentFrame());
    const double middle = left + _frameWidth / 2;
    const double width = std::max(_frameWidth, 9.0);
    QPainterPath head(QPointF(middle - width / 2, kRulerHeight - 13));
    head.lineTo(middle + width / 2, kRulerHeight - 13);
    head.lineTo(middle + width / 2, kRulerHeight - 6);
    head.lineTo(middle, kRulerHeight - 1);
    head.lineTo(middle - width / 2, kRulerHeight - 6);
    head.closeSubpath();
    painter.fillPath(head, colour);
    painter.setPen(QPen(colour, 1.2));
    painter.drawLine(QPointF(middle, kRulerHeight - 2), QPointF(middle, viewport()->height()));
}
