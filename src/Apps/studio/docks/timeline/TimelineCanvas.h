// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// TimelineCanvas: the ruler with the frames, the cursor of the current frame, and the rows.
//
//   ruler: click, drag         go to a frame          arrow keys, Home, End   the same
//   key, exposure: drag        move it                Up, Down                another row
//   double click among keys    add a key              K, Delete               add a key, take one away
//   row's name: click          select the node        menu                    drawings and interpolation
//   border of the names: drag  make them wider
//
// A drag shows where things would go and becomes one command when the mouse is released.
#pragma once

#include "studio/docks/timeline/TimelineRows.h"
#include "studio/document/StudioDocument.h"

#include <QAbstractScrollArea>

#include <functional>

class QMenu;

/// The drawn part of the timeline. Lives on the window's thread; must not outlive the document.
class TimelineCanvas : public QAbstractScrollArea
{
    Q_OBJECT

public:
    /// Sizes in device-independent pixels.
    static constexpr int kFirstNameWidth = 150;
    static constexpr int kRulerHeight = 26;
    static constexpr int kRowHeight = 24;

    explicit TimelineCanvas(StudioDocument& document, QWidget* parent = nullptr);

    const std::vector<TimelineRow>& rows() const { return _rows; }
    /// The middle of a frame's cell in the pixels of the viewport; row -1 is the ruler.
    QPoint cellCenter(int row, double frame) const;
    /// The row that keys work on; -1 when there is none.
    int currentRow() const { return _currentRow; }
    void setCurrentRow(int row);
    /// The width of the rows' names, in device-independent pixels. The frames keep room for some of them.
    int nameWidth() const;
    void setNameWidth(int width);
    /// Marks the frames that are played; nothing for all.
    void showLoop(const std::optional<std::pair<int, int>>& loop);
    /// The menu for a cell; the caller owns it. Null when there is nothing to choose.
    QMenu* makeMenu(int row, int frame);

    QSize sizeHint() const override { return {640, 220}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    enum class Dragging
    {
        NOTHING,
        FRAME,
        START,
        NAME_BORDER
    };

    void refresh();
    void follow();
    void fitRange();
    void showFrame();
    bool isNameBorder(int x) const;
    double xOf(double frame) const;
    double frameAt(int x) const;
    int nearestFrame(int x) const;
    int rowAt(int y) const;
    int rowTop(int row) const;
    std::optional<double> startNear(int row, int x) const;
    std::optional<double> startAtCell(int row, int frame) const;
    void execute(MO_EditCommand command);
    QAction* addEntry(QMenu& menu, const QString& text, const std::function<MO_EditCommand()>& command);
    void fillDrawingMenu(QMenu& menu, const TimelineRow& row, int frame, bool isStart);
    void fillKeyMenu(QMenu& menu, const TimelineRow& row, int frame);
    void zoomBy(double factor);
    void paintGrid(QPainter& painter) const;
    void paintRuler(QPainter& painter) const;
    void paintRow(QPainter& painter, int row) const;
    void paintExposures(QPainter& painter, const TimelineRow& row, int top, bool isDragged) const;
    void paintKeys(QPainter& painter, const TimelineRow& row, int top, bool isDragged) const;
    void paintNames(QPainter& painter) const;
    void paintCursor(QPainter& painter) const;

    StudioDocument& _document;
    std::vector<TimelineRow> _rows;
    int _currentRow = -1;
    double _frameWidth = 14.0;
    std::optional<std::pair<int, int>> _loop;
    Dragging _dragging = Dragging::NOTHING;
    int _nameWidth = kFirstNameWidth; // may be too wide for the window: see nameWidth()
    double _dragFrom = 0.0;           // the start that is moved
    int _dragGrab = 0;                // the frame under the mouse when the drag began
    int _dragTo = 0;                  // where it would go
};
