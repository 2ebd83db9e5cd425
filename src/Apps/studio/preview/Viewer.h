// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Viewer: shows a frame as drawing, elevation, normal map or lit. The view can be zoomed and panned. In the lit
// picture, handles move the lights. The tool defines what else the left button does.
//
//   wheel                     zooms around the cursor
//   middle button             pans; so does the left one with Ctrl
//   left button               drags a light or the border between before and after; else the tool uses it
//   wheel with Shift, lit     raises and lowers the current light
//   arrow keys                pan; with Alt, lit: move the current light
//   B, held                   shows the unlit drawing
//   Escape                    cancels the tool's action
#pragma once

#include "studio/preview/LitImage.h"
#include "studio/preview/PictureKind.h"
#include "studio/preview/ViewOptions.h"
#include "studio/preview/ViewTransform.h"

#include <QTimer>
#include <QWidget>

#include <optional>

class ViewerTool;

/// The view of a picture.
class Viewer : public QWidget
{
    Q_OBJECT

public:
    explicit Viewer(LightModel& lights, QWidget* parent = nullptr);

    /// Shows a frame, or the message if it is null.
    void setFrame(const RenderedFramePtr& frame);
    const RenderedFramePtr& frame() const { return _frame; }
    /// Sets the message that is shown if there is no frame.
    void setMessage(const QString& message);
    /// Shows the progress of the next picture as a thin line; a negative value hides it.
    void setProgress(double done);

    PictureKind kind() const { return _kind; }
    void setKind(PictureKind kind);

    /// Sets the tool, or none with null, as initially. A tool must be removed before it is destroyed.
    void setTool(ViewerTool* tool);
    const ViewOptions& options() const { return _options; }
    void setOptions(const ViewOptions& options);
    /// The visible kind: the drawing while B is held, else kind().
    PictureKind seenKind() const { return _looksBack ? PictureKind::DRAWING : _kind; }

    double zoom() const { return _transform.zoom; }
    const ViewTransform& transform() const { return _transform; }

    /// The place of a light's handle.
    QPointF handle(const StudioLight& light) const;
    /// The places of the handles that are shown; empty if the picture is not lit.
    std::vector<QPointF> lightHandles() const;
    /// The shown image (right of the border, if there is one), in the frame's pixels; null if there is none.
    QImage shownImage();
    /// The place of the border between before and after in the view, if there is one.
    std::optional<double> borderPlace() const;

    QSize sizeHint() const override { return {640, 480}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): the functions above are not slots
    /// Shows the whole picture, also after the window has changed its size.
    void fit();
    void zoomTo(double zoom);
    void zoomIn();
    void zoomOut();

Q_SIGNALS:
    void zoomChanged(double zoom);
    /// The pixel under the cursor, or std::nullopt outside the picture.
    void hovered(std::optional<QPoint> place);
    void kindChanged(PictureKind kind);
    /// The frame or its visible part has changed.
    void viewChanged();
    /// Handles of lights have appeared, gone, or moved, except by turning.
    void lightHandlesChanged();
    /// The right button or the menu key was pressed.
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

    /// Around a picture that fits into the view, in the view's coordinates.
    static constexpr double kFitMargin = 16.0;

    QSizeF pictureSize() const;
    QRectF pictureRect() const;
    void setTransform(const ViewTransform& transform, bool fitted);
    void pan(const QPointF& by);
    int lightAt(const QPointF& place) const;
    void changeLight(const StudioLight& light);
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
    QTimer _lightRests; // after steps of the wheel and the keys
    Drag _drag = Drag::NONE;
    QPointF _grabbed; // the last place of the mouse; for a light, the vector from the mouse to its handle
};
