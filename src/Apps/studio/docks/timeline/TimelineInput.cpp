// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Mouse, keys, menu and tool tips of the timeline.
#include "studio/docks/timeline/TimelineCanvas.h"

#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

void TimelineCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint position = event->position().toPoint();
    if (isNameBorder(position.x())) {
        _dragging = Dragging::NAME_BORDER;
        return;
    }
    const int row = rowAt(position.y());
    if (row >= 0)
        setCurrentRow(row);
    if (position.x() < nameWidth()) {
        if (MO_Module* const module = row >= 0 ? _rows[static_cast<std::size_t>(row)].module : nullptr)
            _document.setSelection({module});
        return;
    }
    const std::optional<double> start = row >= 0 ? startNear(row, position.x()) : std::nullopt;
    _dragging = start ? Dragging::START : Dragging::FRAME;
    _dragGrab = nearestFrame(position.x());
    if (start) {
        _dragFrom = *start;
        _dragTo = static_cast<int>(std::floor(*start));
    }
    _document.setCurrentFrame(_dragGrab);
}

void TimelineCanvas::mouseMoveEvent(QMouseEvent* event)
{
    const int x = event->position().toPoint().x();
    const int frame = nearestFrame(x);
    if (_dragging == Dragging::NOTHING) {
        viewport()->setCursor(isNameBorder(x) ? Qt::SplitHCursor : Qt::ArrowCursor);
    } else if (_dragging == Dragging::NAME_BORDER) {
        setNameWidth(x);
    } else if (_dragging == Dragging::FRAME) {
        _document.setCurrentFrame(frame);
    } else if (_dragging == Dragging::START) {
        const MO_Scene& scene = _document.scene();
        const double to = std::floor(_dragFrom) + frame - _dragGrab;
        _dragTo = static_cast<int>(std::clamp<double>(to, scene.firstFrame(), scene.lastFrame()));
        viewport()->update();
    }
}

void TimelineCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const Dragging dragged = std::exchange(_dragging, Dragging::NOTHING);
    if (dragged == Dragging::START && _currentRow >= 0 && _dragTo != std::floor(_dragFrom)) {
        execute(moveCmd(_rows[static_cast<std::size_t>(_currentRow)], _dragFrom, _dragTo));
        _document.setCurrentFrame(_dragTo);
    }
    viewport()->update();
}

void TimelineCanvas::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const int row = rowAt(position.y());
    if (event->button() == Qt::LeftButton && row >= 0 && position.x() >= nameWidth() && !startNear(row, position.x()))
        execute(addKeyCmd(_rows[static_cast<std::size_t>(row)], nearestFrame(position.x())));
}

void TimelineCanvas::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    zoomBy(std::pow(1.0015, event->angleDelta().y()));
    event->accept();
}

void TimelineCanvas::keyPressEvent(QKeyEvent* event)
{
    const int frame = _document.currentFrame();
    const MO_Scene& scene = _document.scene();
    const bool hasRow = _currentRow >= 0;
    switch (event->key()) {
    case Qt::Key_Left:
        return _document.setCurrentFrame(frame > scene.firstFrame() ? frame - 1 : frame);
    case Qt::Key_Right:
        return _document.setCurrentFrame(frame < scene.lastFrame() ? frame + 1 : frame);
    case Qt::Key_Home:
        return _document.setCurrentFrame(scene.firstFrame());
    case Qt::Key_End:
        return _document.setCurrentFrame(scene.lastFrame());
    case Qt::Key_Up:
        return setCurrentRow(std::max(0, _currentRow - 1));
    case Qt::Key_Down:
        return setCurrentRow(_currentRow + 1);
    case Qt::Key_Plus:
        return zoomBy(1.25);
    case Qt::Key_Minus:
        return zoomBy(0.8);
    case Qt::Key_K:
        return hasRow ? execute(addKeyCmd(_rows[static_cast<std::size_t>(_currentRow)], frame)) : void();
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        return hasRow ? execute(removeCmd(_rows[static_cast<std::size_t>(_currentRow)], frame)) : void();
    case Qt::Key_Escape:
        _dragging = Dragging::NOTHING;
        return viewport()->update();
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

QAction* TimelineCanvas::addEntry(QMenu& menu, const QString& text, const std::function<MO_EditCommand()>& command)
{
    return menu.addAction(text, this, [this, command] { execute(command()); });
}

QMenu* TimelineCanvas::makeMenu(int row, int frame)
{
    if (row < 0 || row >= static_cast<int>(_rows.size()))
        return nullptr;
    const TimelineRow& found = _rows[static_cast<std::size_t>(row)];
    auto* const menu = new QMenu(this);
    const bool isStart = startAtCell(row, frame).has_value();
    if (found.element)
        fillDrawingMenu(*menu, found, frame, isStart);
    else if (isStart)
        fillKeyMenu(*menu, found, frame);
    else
        addEntry(*menu, tr("Add Key at Frame %1").arg(frame), [found, frame] { return addKeyCmd(found, frame); });
    return menu;
}

void TimelineCanvas::fillDrawingMenu(QMenu& menu, const TimelineRow& row, int frame, bool isStart)
{
    AT_DrawingAttr* const attr = row.element->drawingAttr();
    QMenu* const drawings = menu.addMenu(tr("Show from Frame %1").arg(frame));
    for (const auto& [name, kvd] : row.element->drawings())
        addEntry(*drawings, name, [attr, frame, drawing = name] { return MO_exposeCmd(*attr, frame, drawing); });
    addEntry(menu, tr("Show Nothing from Frame %1").arg(frame),
             [attr, frame] { return MO_exposeCmd(*attr, frame, QString()); });
    if (isStart)
        addEntry(menu, tr("Remove Exposure"), [row, frame] { return removeCmd(row, frame); });
}

void TimelineCanvas::fillKeyMenu(QMenu& menu, const TimelineRow& row, int frame)
{
    using Interpolation = AT_Curve::Interpolation;
    const Interpolation now = row.attribute->curve().keyAt(frame)->interpolation;
    for (const auto& [kind, text] : {std::pair(Interpolation::HOLD, tr("Hold until the Next Key")),
                                     std::pair(Interpolation::LINEAR, tr("Straight to the Next Key")),
                                     std::pair(Interpolation::BEZIER, tr("Smooth to the Next Key"))}) {
        QAction* const action =
            addEntry(menu, text, [row, frame, kind = kind] { return interpolationCmd(row, frame, kind); });
        action->setCheckable(true);
        action->setChecked(kind == now);
    }
    menu.addSeparator();
    addEntry(menu, tr("Delete Key"), [row, frame] { return removeCmd(row, frame); });
}

void TimelineCanvas::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const int row = byKeyboard ? _currentRow : rowAt(event->pos().y());
    if (!byKeyboard && row >= 0)
        setCurrentRow(row);
    if (!byKeyboard && event->pos().x() >= nameWidth()) {
        const std::optional<double> start = row >= 0 && _rows[static_cast<std::size_t>(row)].attribute
                                                ? startNear(row, event->pos().x())
                                                : std::nullopt;
        _document.setCurrentFrame(start ? static_cast<int>(std::floor(*start)) : nearestFrame(event->pos().x()));
    }
    const int frame = _document.currentFrame();
    QMenu* const menu = makeMenu(row, frame);
    if (!menu)
        return;
    menu->setObjectName(QStringLiteral("TimelineMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(byKeyboard ? viewport()->mapToGlobal(cellCenter(row, frame)) : event->globalPos());
}

bool TimelineCanvas::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int row = rowAt(help->pos().y());
    if (row < 0) {
        QToolTip::showText(help->globalPos(), tr("Click or drag to go to a frame"), viewport());
        return true;
    }
    const TimelineRow& found = _rows[static_cast<std::size_t>(row)];
    const int frame = nearestFrame(help->pos().x());
    const QString value =
        found.attribute ? found.attribute->displayText(frame) : found.element->drawingAttr()->drawing(frame);
    const QString text =
        help->pos().x() < nameWidth()
            ? found.label
            : tr("%1, frame %2: %3").arg(found.label, QString::number(frame), value.isEmpty() ? tr("nothing") : value);
    QToolTip::showText(help->globalPos(), text, viewport());
    return true;
}
