// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Viewer: shows a frame as drawing, elevation, normal map or lit, to be zoomed and panned; in the lit picture the
// lights are moved with the mouse.
//
//   wheel                     zooms about the cursor
//   middle button             pans; so does the left one where there are no lights to move
//   left button, lit          takes hold of a light, or takes the current light to where it is pressed
//   wheel with Shift, lit     raises and lowers the current light
//   arrow keys                pan; with Alt, lit: move the current light
#pragma once

#include "studio/preview/LitImage.h"
#include "studio/preview/PictureKind.h"
#include "studio/preview/ViewTransform.h"

#include <QWidget>

#include <optional>

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

    double zoom() const { return _transform.zoom; }
    const ViewTransform& transform() const { return _transform; }

    /// Where a light's handle is.
    QPointF handle(const StudioLight& light) const;
    /// The image that is shown, in the frame's pixels; null when there is none.
    QImage shownImage();

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

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    enum class Drag
    {
        NONE,
        PAN,
        LIGHT
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

    void paintChecker(QPainter& painter, const QRectF& rect) const;
    void paintPicture(QPainter& painter, const QRectF& rect);
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
    Drag _drag = Drag::NONE;
    QPointF _grabbed; // where the mouse was; for a light: from the mouse to its handle
};
