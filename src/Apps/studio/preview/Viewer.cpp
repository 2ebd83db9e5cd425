// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Mouse and keyboard; what is painted is in ViewerPainting.cpp.
#include "studio/preview/Viewer.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <cmath>

namespace {

constexpr double kFitMargin = 16.0;
constexpr double kZoomStep = 1.25;
constexpr double kHandleReach = 16.0;

double halfShorterSide(const QSizeF& size)
{
    return std::min(size.width(), size.height()) / 2.0;
}

} // namespace

Viewer::Viewer(LightModel& lights, QWidget* parent) : QWidget(parent), _lights(lights)
{
    setObjectName(QStringLiteral("viewer"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Picture"));
    connect(&lights, &LightModel::changed, this, &Viewer::lightChanged);
    connect(&lights, &LightModel::currentChanged, this, [this] { update(); });
}

void Viewer::setFrame(const RenderedFramePtr& frame)
{
    const QSizeF before = pictureSize();
    _frame = frame;
    if (_fitted && pictureSize() != before)
        fit();
    update();
}

void Viewer::setMessage(const QString& message)
{
    _message = message;
    update();
}

void Viewer::setProgress(double done)
{
    _progress = done;
    update();
}

void Viewer::setKind(PictureKind kind)
{
    if (kind == _kind)
        return;
    _kind = kind;
    update();
    Q_EMIT kindChanged(kind);
}

QSizeF Viewer::pictureSize() const
{
    return _frame ? QSizeF(_frame->fullSize) : QSizeF();
}

QRectF Viewer::pictureRect() const
{
    return _transform.toView(QRectF(QPointF(), pictureSize()));
}

void Viewer::setTransform(const ViewTransform& transform, bool fitted)
{
    _transform = transform;
    _fitted = fitted;
    update();
    Q_EMIT zoomChanged(_transform.zoom);
}

void Viewer::fit()
{
    ViewTransform fitted = _transform;
    fitted.view = size();
    fitted.density = devicePixelRatioF();
    fitted.fit(pictureSize(), kFitMargin);
    setTransform(fitted, true);
}

void Viewer::zoomTo(double zoom)
{
    ViewTransform zoomed = _transform;
    zoomed.zoomAbout(zoomed.middle(), zoom / zoomed.zoom);
    setTransform(zoomed, false);
}

void Viewer::zoomIn()
{
    zoomTo(_transform.zoom * kZoomStep);
}

void Viewer::zoomOut()
{
    zoomTo(_transform.zoom / kZoomStep);
}

void Viewer::pan(const QPointF& by)
{
    ViewTransform panned = _transform;
    panned.centre -= by / panned.scale();
    setTransform(panned, false);
}

void Viewer::resizeEvent(QResizeEvent*)
{
    _transform.view = size();
    _transform.density = devicePixelRatioF();
    if (_fitted)
        fit();
}

void Viewer::wheelEvent(QWheelEvent* event)
{
    // With Shift some systems turn the wheel sideways.
    const QPoint turned = event->angleDelta();
    const double steps = (turned.y() != 0 ? turned.y() : turned.x()) / 120.0;
    event->accept();
    if (event->modifiers().testFlag(Qt::ShiftModifier) && showsLights()) {
        raiseLight(std::pow(1.1, steps));
        return;
    }
    ViewTransform zoomed = _transform;
    zoomed.zoomAbout(event->position(), std::pow(kZoomStep, steps));
    setTransform(zoomed, false);
}

bool Viewer::showsLights() const
{
    return _kind == PictureKind::LIT && _frame;
}

QPointF Viewer::handle(const StudioLight& light) const
{
    const QSizeF size = pictureSize();
    const double unit = halfShorterSide(size);
    return _transform.toView(
        QPointF(size.width() / 2.0 + light.place.x() * unit, size.height() / 2.0 - light.place.y() * unit));
}

int Viewer::lightAt(const QPointF& place) const
{
    if (!showsLights())
        return -1;
    // The current light lies on top.
    for (int i = -1; i < _lights.count(); ++i) {
        const int index = i < 0 ? _lights.current() : i;
        const QPointF away = handle(_lights.lights().at(static_cast<std::size_t>(index))) - place;
        if (std::hypot(away.x(), away.y()) <= kHandleReach)
            return index;
    }
    return -1;
}

void Viewer::moveLight(const QPointF& handle)
{
    const QSizeF size = pictureSize();
    const double unit = halfShorterSide(size);
    const QPointF place = _transform.toPicture(handle);
    StudioLight light = _lights.lights().at(static_cast<std::size_t>(_lights.current()));
    light.place = {(place.x() - size.width() / 2.0) / unit, (size.height() / 2.0 - place.y()) / unit};
    _lights.setLight(_lights.current(), light);
}

void Viewer::nudgeLight(const QPointF& by)
{
    constexpr double kNudge = 0.05;
    StudioLight light = _lights.lights().at(static_cast<std::size_t>(_lights.current()));
    light.place += kNudge * QPointF(by.x(), -by.y());
    _lights.setLight(_lights.current(), light);
}

void Viewer::raiseLight(double factor)
{
    StudioLight light = _lights.lights().at(static_cast<std::size_t>(_lights.current()));
    light.height *= factor;
    _lights.setLight(_lights.current(), light);
}

void Viewer::mousePressEvent(QMouseEvent* event)
{
    const QPointF place = event->position();
    const bool left = event->button() == Qt::LeftButton;
    if (_drag != Drag::NONE || (!left && event->button() != Qt::MiddleButton))
        return;
    if (!left || !showsLights()) {
        _drag = Drag::PAN;
        _grabbed = place;
    } else {
        _drag = Drag::LIGHT;
        const int light = lightAt(place);
        _lights.setCurrent(light);
        _grabbed =
            light < 0 ? QPointF() : handle(_lights.lights().at(static_cast<std::size_t>(_lights.current()))) - place;
        if (light < 0)
            moveLight(place);
    }
    updateCursor(place);
}

void Viewer::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF place = event->position();
    if (_drag == Drag::PAN) {
        pan(place - _grabbed);
        _grabbed = place;
    } else if (_drag == Drag::LIGHT)
        moveLight(place + _grabbed);
    updateCursor(place);
    const QPointF here = _transform.toPicture(place);
    const QPoint pixel(static_cast<int>(std::floor(here.x())), static_cast<int>(std::floor(here.y())));
    const bool inside = _frame && QRect(QPoint(), _frame->fullSize).contains(pixel);
    Q_EMIT hovered(inside ? std::optional(pixel) : std::nullopt);
}

void Viewer::mouseReleaseEvent(QMouseEvent* event)
{
    const auto button = _drag == Drag::LIGHT ? Qt::LeftButton : event->button();
    if (event->button() != button)
        return;
    if (_drag == Drag::LIGHT)
        _lights.endChange();
    _drag = Drag::NONE;
    updateCursor(event->position());
}

void Viewer::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton)
        fit();
    else
        mousePressEvent(event);
}

void Viewer::keyPressEvent(QKeyEvent* event)
{
    QPointF by;
    switch (event->key()) {
    case Qt::Key_Left:
        by = {-1.0, 0.0};
        break;
    case Qt::Key_Right:
        by = {1.0, 0.0};
        break;
    case Qt::Key_Up:
        by = {0.0, -1.0};
        break;
    case Qt::Key_Down:
        by = {0.0, 1.0};
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    constexpr double kPanStep = 40.0;
    if (event->modifiers().testFlag(Qt::AltModifier) && showsLights())
        nudgeLight(by);
    else
        pan(-kPanStep * by);
}

void Viewer::leaveEvent(QEvent*)
{
    Q_EMIT hovered(std::nullopt);
}

void Viewer::updateCursor(const QPointF& place)
{
    if (_drag == Drag::PAN)
        setCursor(Qt::ClosedHandCursor);
    else if (_drag == Drag::LIGHT)
        setCursor(Qt::SizeAllCursor);
    else
        setCursor(lightAt(place) >= 0 ? Qt::SizeAllCursor : Qt::ArrowCursor);
}

void Viewer::lightChanged()
{
    _lit.lightChanged();
    if (_kind == PictureKind::LIT)
        update();
}
