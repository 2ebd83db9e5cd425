// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the timeline does; how it is painted stands in TimelinePainting.cpp.
#include "studio/docks/timeline/TimelineCanvas.h"

#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeastFrameWidth = 2.0;
constexpr double kMostFrameWidth = 60.0;
constexpr double kReach = 8.0;

} // namespace

TimelineCanvas::TimelineCanvas(StudioDocument& document, QWidget* parent)
    : QAbstractScrollArea(parent), _document(document)
{
    setObjectName(QStringLiteral("TimelineCanvas"));
    setAccessibleName(tr("Timeline"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    connect(&_document, &StudioDocument::sceneReplaced, this, &TimelineCanvas::follow);
    connect(&_document, &StudioDocument::sceneChanged, this, &TimelineCanvas::refresh);
    connect(&_document, &StudioDocument::stateChanged, this, &TimelineCanvas::refresh);
    connect(&_document, &StudioDocument::lightsChanged, this, &TimelineCanvas::refresh);
    connect(&_document, &StudioDocument::selectionChanged, this, &TimelineCanvas::follow);
    connect(&_document, &StudioDocument::currentFrameChanged, this, &TimelineCanvas::showFrame);
    follow();
}

void TimelineCanvas::refresh()
{
    std::vector<TimelineRow> rows = timelineRows(_document);
    if (rows != _rows) {
        _dragging = Dragging::NOTHING;
        _rows = std::move(rows);
        _currentRow = std::min(_currentRow, static_cast<int>(_rows.size()) - 1);
    }
    fitRange();
    viewport()->update();
}

void TimelineCanvas::follow()
{
    refresh();
    const MO_Module* const current = _document.currentModule();
    const bool fits = _currentRow >= 0 && _rows[static_cast<std::size_t>(_currentRow)].module == current;
    if (current && !fits)
        for (std::size_t i = _rows.size(); i-- > 0;)
            if (_rows[i].module == current)
                setCurrentRow(static_cast<int>(i));
}

void TimelineCanvas::setCurrentRow(int row)
{
    _currentRow = std::clamp(row, -1, static_cast<int>(_rows.size()) - 1);
    if (_currentRow >= 0) {
        const int top = _currentRow * kRowHeight;
        const int visible = viewport()->height() - kRulerHeight;
        QScrollBar& bar = *verticalScrollBar();
        if (visible >= kRowHeight)
            bar.setValue(std::clamp(bar.value(), top + kRowHeight - visible, top));
    }
    viewport()->update();
}

void TimelineCanvas::fitRange()
{
    const MO_Scene& scene = _document.scene();
    const double frames = static_cast<double>(scene.lastFrame()) - scene.firstFrame() + 1.0;
    const int width = viewport()->width() - kNameWidth;
    const int height = viewport()->height() - kRulerHeight;
    const double needed = std::min(frames * _frameWidth + 2 * kReach, 1.0e9);
    horizontalScrollBar()->setRange(0, std::max(0, static_cast<int>(needed) - width));
    horizontalScrollBar()->setPageStep(std::max(1, width));
    horizontalScrollBar()->setSingleStep(static_cast<int>(_frameWidth));
    verticalScrollBar()->setRange(0, std::max(0, static_cast<int>(_rows.size()) * kRowHeight - height));
    verticalScrollBar()->setPageStep(std::max(1, height));
    verticalScrollBar()->setSingleStep(kRowHeight);
}

void TimelineCanvas::showFrame()
{
    const double x = xOf(_document.currentFrame());
    QScrollBar& bar = *horizontalScrollBar();
    if (x < kNameWidth)
        bar.setValue(bar.value() + static_cast<int>(x - kNameWidth));
    else if (x + _frameWidth > viewport()->width())
        bar.setValue(bar.value() + static_cast<int>(x + _frameWidth - viewport()->width()));
    viewport()->update();
}

double TimelineCanvas::xOf(double frame) const
{
    return kNameWidth + kReach + (frame - _document.scene().firstFrame()) * _frameWidth -
           horizontalScrollBar()->value();
}

double TimelineCanvas::frameAt(int x) const
{
    return _document.scene().firstFrame() + (x - kNameWidth - kReach + horizontalScrollBar()->value()) / _frameWidth;
}

int TimelineCanvas::nearestFrame(int x) const
{
    const MO_Scene& scene = _document.scene();
    const double first = scene.firstFrame();
    const double last = scene.lastFrame();
    return static_cast<int>(std::clamp(std::floor(frameAt(x)), first, last));
}

int TimelineCanvas::rowTop(int row) const
{
    return kRulerHeight + row * kRowHeight - verticalScrollBar()->value();
}

int TimelineCanvas::rowAt(int y) const
{
    const int row = y < kRulerHeight ? -1 : (y - kRulerHeight + verticalScrollBar()->value()) / kRowHeight;
    return row < static_cast<int>(_rows.size()) ? row : -1;
}

QPoint TimelineCanvas::cellCenter(int row, double frame) const
{
    const int y = row < 0 ? kRulerHeight / 2 : rowTop(row) + kRowHeight / 2;
    return {static_cast<int>(xOf(frame) + _frameWidth / 2), y};
}

// The key or the exposure that the mouse would take.
std::optional<double> TimelineCanvas::startNear(int row, int x) const
{
    const TimelineRow& found = _rows[static_cast<std::size_t>(row)];
    if (!found.attribute)
        return timelineStartAt(found, std::floor(frameAt(x)));
    std::optional<double> nearest;
    double least = std::max(kReach, _frameWidth / 2);
    for (const AT_Curve::Key& key : found.attribute->curve().keys()) {
        const double distance = std::abs(xOf(key.frame) + _frameWidth / 2 - x);
        if (distance <= least) {
            least = distance;
            nearest = key.frame;
        }
    }
    return nearest;
}

// What begins in a cell.
std::optional<double> TimelineCanvas::startAtCell(int row, int frame) const
{
    if (row < 0)
        return std::nullopt;
    const TimelineRow& found = _rows[static_cast<std::size_t>(row)];
    const std::optional<double> start = timelineStartAt(found, frame);
    return start == frame ? start : std::nullopt;
}

void TimelineCanvas::execute(MO_EditCommand command)
{
    _document.execute(std::move(command));
}

void TimelineCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint position = event->position().toPoint();
    const int row = rowAt(position.y());
    if (row >= 0)
        setCurrentRow(row);
    if (position.x() < kNameWidth) {
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
    const int frame = nearestFrame(event->position().toPoint().x());
    if (_dragging == Dragging::FRAME) {
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
    if (event->button() == Qt::LeftButton && row >= 0 && position.x() >= kNameWidth && !startNear(row, position.x()))
        execute(addKeyCmd(_rows[static_cast<std::size_t>(row)], nearestFrame(position.x())));
}

void TimelineCanvas::zoomBy(double factor)
{
    _frameWidth = std::clamp(_frameWidth * factor, kLeastFrameWidth, kMostFrameWidth);
    fitRange();
    showFrame();
}

void TimelineCanvas::showLoop(const std::optional<std::pair<int, int>>& loop)
{
    _loop = loop;
    viewport()->update();
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

QMenu* TimelineCanvas::makeMenu(int row, int frame)
{
    if (row < 0 || row >= static_cast<int>(_rows.size()))
        return nullptr;
    const TimelineRow found = _rows[static_cast<std::size_t>(row)];
    auto* menu = new QMenu(this);
    const std::optional<double> start = startAtCell(row, frame);
    const auto add = [&](QMenu& to, const QString& text, auto command) {
        return to.addAction(text, this, [this, command] { execute(command()); });
    };
    if (found.element) {
        AT_DrawingAttr* const attr = found.element->drawingAttr();
        QMenu* const drawings = menu->addMenu(tr("Show from Frame %1").arg(frame));
        for (const auto& [name, kvd] : found.element->drawings())
            add(*drawings, name, [attr, frame, drawing = name] { return MO_exposeCmd(*attr, frame, drawing); });
        add(*menu, tr("Show Nothing from Frame %1").arg(frame),
            [attr, frame] { return MO_exposeCmd(*attr, frame, QString()); });
        if (start)
            add(*menu, tr("Remove Exposure"), [found, frame] { return removeCmd(found, frame); });
        return menu;
    }
    if (!start) {
        add(*menu, tr("Add Key at Frame %1").arg(frame), [found, frame] { return addKeyCmd(found, frame); });
        return menu;
    }
    const AT_Curve::Interpolation now = found.attribute->curve().keyAt(frame)->interpolation;
    using Interpolation = AT_Curve::Interpolation;
    for (const auto& [kind, text] : {std::pair(Interpolation::HOLD, tr("Hold until the Next Key")),
                                     std::pair(Interpolation::LINEAR, tr("Straight to the Next Key")),
                                     std::pair(Interpolation::BEZIER, tr("Smooth to the Next Key"))}) {
        QAction* const action =
            add(*menu, text, [found, frame, kind = kind] { return interpolationCmd(found, frame, kind); });
        action->setCheckable(true);
        action->setChecked(kind == now);
    }
    menu->addSeparator();
    add(*menu, tr("Delete Key"), [found, frame] { return removeCmd(found, frame); });
    return menu;
}

void TimelineCanvas::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const int row = byKeyboard ? _currentRow : rowAt(event->pos().y());
    if (!byKeyboard && row >= 0)
        setCurrentRow(row);
    if (!byKeyboard && event->pos().x() >= kNameWidth) {
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

void TimelineCanvas::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    fitRange();
}

void TimelineCanvas::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void TimelineCanvas::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
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
        help->pos().x() < kNameWidth
            ? found.label
            : tr("%1, frame %2: %3").arg(found.label, QString::number(frame), value.isEmpty() ? tr("nothing") : value);
    QToolTip::showText(help->globalPos(), text, viewport());
    return true;
}
