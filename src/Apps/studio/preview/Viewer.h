// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Viewer: shows a frame as drawing, elevation, normal map or lit, to be zoomed and panned; in the lit picture the
// lights are moved by their handles. What else the left button does is up to the tool.
//
//   wheel                     zooms about the cursor
//   middle button             pans; so does the left one with Ctrl
//   left button               takes hold of a light, or of the border between before and after; else it is the tool's
//   wheel with Shift, lit     raises and lowers the current light
//   arrow keys                pan; with Alt, lit: move the current light
//   B, held                   shows the drawing as it was
//   Escape                    ends what the tool is about
#pragma once

#include "studio/preview/LitImage.h"
#include "studio/preview/PictureKind.h"
#include "studio/preview/ViewOptions.h"
#include "studio/preview/ViewTransform.h"

#include <QWidget>

#include <optional>

class ViewerTool;

/// The view of a picture.
class Viewer : public QWidget
{
    Q_OBJECT

public:
    explicit Viewer(LightModel& lights, QWidget* parent = nullptr);

    /// Shows a frame; null shows the message instead.
    void setFrame(const RenderedFramePtr& frame);
    const RenderedFramePtr& frame() const { return _frame; }
    /// What is said when there is no frame to show.
    void setMessage(const QString& message);
    /// A thin line that says how much of the next picture is done; a negative value hides it.
    void setProgress(double done);

    PictureKind kind() const { return _kind; }
    void setKind(PictureKind kind);

    /// Null for no tool, as at the beginning. A tool must be taken away before it goes.
    void setTool(ViewerTool* tool);
    const ViewOptions& options() const { return _options; }
    void setOptions(const ViewOptions& options);
    /// The kind that is seen: the drawing while it is looked back at.
    PictureKind seenKind() const { return _looksBack ? PictureKind::DRAWING : _kind; }

    double zoom() const { return _transform.zoom; }
    const ViewTransform& transform() const { return _transform; }

    /// Where a light's handle is.
    QPointF handle(const StudioLight& light) const;
    /// The image that is shown, in the frame's pixels; null when there is none. Right of the border, where there is
    /// one.
    QImage shownImage();
    /// Where the border between before and after is seen.
    std::optional<double> borderPlace() const;

    QSize sizeHint() const override { return {640, 480}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): what precedes are no slots
    /// Shows the whole picture, and goes on doing so when the window changes its size.
    void fit();
    void zoomTo(double zoom);
    void zoomIn();
    void zoomOut();

Q_SIGNALS:
    void zoomChanged(double zoom);
    /// The pixel under the cursor, or nothing.
    void hovered(std::optional<QPoint> place);
    void kindChanged(PictureKind kind);
    /// Another frame is shown, or another part of it.
    void viewChanged();
    /// The right button was pressed, or the menu key.
    void menuWanted(const QPoint& place);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    enum class Drag
    {
        NONE,
        PAN,
        LIGHT,
        BORDER,
        TOOL
    };

    QSizeF pictureSize() const;
    QRectF pictureRect() const;
    void setTransform(const ViewTransform& transform, bool fitted);
    void pan(const QPointF& by);
    int lightAt(const QPointF& place) const;
    void moveLight(const QPointF& handle);
    void nudgeLight(const QPointF& by);
    void raiseLight(double factor);
    bool showsLights() const;
    void updateCursor(const QPointF& place);
    void lightChanged();
    bool isOnBorder(const QPointF& place) const;
    void moveBorder(const QPointF& place);
    void lookBack(bool back);
    QImage imageOf(PictureKind kind);

    void paintBackdrop(QPainter& painter, const QRectF& rect) const;
    void paintChecker(QPainter& painter, const QRectF& rect) const;
    void paintPictures(QPainter& painter, const QRectF& rect);
    void paintPicture(QPainter& painter, const QRectF& rect, const QRectF& visible, const QImage& image);
    void paintBorder(QPainter& painter, const QRectF& rect) const;
    void paintLights(QPainter& painter) const;
    void paintLight(QPainter& painter, const StudioLight& light, bool isCurrent) const;
    void paintMessage(QPainter& painter, const QString& message) const;
    void paintProgress(QPainter& painter) const;
    QString explanation() const;

    LightModel& _lights;
    RenderedFramePtr _frame;
    LitImage _lit;
    QString _message;
    double _progress = -1.0;
    PictureKind _kind = PictureKind::LIT;
    ViewTransform _transform;
    bool _fitted = true;
    ViewerTool* _tool = nullptr;
    ViewOptions _options;
    bool _looksBack = false;
    Drag _drag = Drag::NONE;
    QPointF _grabbed; // where the mouse was; for a light: from the mouse to its handle
};
