// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the timeline shows and where; TimelineInput.cpp says what mouse and keys do, TimelinePainting.cpp how it is
// painted.
#include "studio/docks/timeline/TimelineCanvas.h"

#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeastFrameWidth = 2.0;
constexpr double kMostFrameWidth = 60.0;
constexpr double kReach = 8.0;
constexpr int kLeastNameWidth = 60;
constexpr int kRoomForFrames = 80; // beside the names
constexpr int kBorderReach = 4;    // of the mouse around the names' border

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
    connect(&_document, &StudioDocument::edited, this, &TimelineCanvas::refresh);
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
    const int width = viewport()->width() - nameWidth();
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
    if (x < nameWidth())
        bar.setValue(bar.value() + static_cast<int>(x - nameWidth()));
    else if (x + _frameWidth > viewport()->width())
        bar.setValue(bar.value() + static_cast<int>(x + _frameWidth - viewport()->width()));
    viewport()->update();
}

int TimelineCanvas::nameWidth() const
{
    return std::max(kLeastNameWidth, std::min(_nameWidth, viewport()->width() - kRoomForFrames));
}

void TimelineCanvas::setNameWidth(int width)
{
    _nameWidth = std::max(kLeastNameWidth, width);
    fitRange();
    viewport()->update();
}

bool TimelineCanvas::isNameBorder(int x) const
{
    return std::abs(x - nameWidth()) <= kBorderReach;
}

double TimelineCanvas::xOf(double frame) const
{
    return nameWidth() + kReach + (frame - _document.scene().firstFrame()) * _frameWidth -
           horizontalScrollBar()->value();
}

double TimelineCanvas::frameAt(int x) const
{
    return _document.scene().firstFrame() + (x - nameWidth() - kReach + horizontalScrollBar()->value()) / _frameWidth;
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
