// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Mouse and keyboard; ViewerPainting.cpp paints the view.
#include "studio/preview/Viewer.h"

#include "studio/preview/ViewerTool.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

constexpr double kZoomStep = 1.25;
// Steps of the wheel and the keys that follow each other faster are one change, in milliseconds.
constexpr int kOneChange = 1000;
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
    _lightRests.setSingleShot(true);
    _lightRests.setInterval(kOneChange);
    connect(&_lightRests, &QTimer::timeout, &lights, &LightModel::endChange);
}

void Viewer::setFrame(const RenderedFramePtr& frame)
{
    const QSizeF before = pictureSize();
    _frame = frame;
    if (_fitted && pictureSize() != before)
        fit();
    update();
    Q_EMIT viewChanged();
}

void Viewer::setTool(ViewerTool* tool)
{
    if (_drag == Drag::TOOL)
        _drag = Drag::NONE;
    _tool = tool;
    update();
}

void Viewer::setOptions(const ViewOptions& options)
{
    _options = options;
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
    Q_EMIT lightHandlesChanged();
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
    Q_EMIT viewChanged();
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
    // On some systems, Shift turns a wheel event into horizontal scrolling.
    const QPoint turned = event->angleDelta();
    const double steps = (turned.y() != 0 ? turned.y() : turned.x()) / 120.0;
    event->accept();
    // A touchpad tells of fingers that rest on it, too.
    if (turned.isNull())
        return;
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
    return seenKind() == PictureKind::LIT && _frame && _frame->kind == RenderedKind::NORMALS;
}

std::vector<QPointF> Viewer::lightHandles() const
{
    std::vector<QPointF> handles;
    if (showsLights())
        std::ranges::transform(_lights.lights(), std::back_inserter(handles),
                               [this](const StudioLight& light) { return handle(light); });
    return handles;
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
    // The current light is on top, so it is checked first.
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
    changeLight(light);
}

void Viewer::raiseLight(double factor)
{
    StudioLight light = _lights.lights().at(static_cast<std::size_t>(_lights.current()));
    light.height *= factor;
    changeLight(light);
}

// Nobody tells of the last step.
void Viewer::changeLight(const StudioLight& light)
{
    _lights.setLight(_lights.current(), light);
    _lightRests.start();
}

std::optional<double> Viewer::borderPlace() const
{
    if (!_frame || !_options.border)
        return std::nullopt;
    const QRectF shown = pictureRect();
    return shown.left() + *_options.border * shown.width();
}

bool Viewer::isOnBorder(const QPointF& place) const
{
    constexpr double kReach = 6.0;
    const auto border = borderPlace();
    return border && std::abs(place.x() - *border) <= kReach;
}

void Viewer::moveBorder(const QPointF& place)
{
    const QRectF shown = pictureRect();
    _options.border = std::clamp((place.x() - shown.left()) / shown.width(), 0.0, 1.0);
    update();
}

void Viewer::lookBack(bool back)
{
    if (back == _looksBack)
        return;
    _looksBack = back;
    update();
}

void Viewer::mousePressEvent(QMouseEvent* event)
{
    const QPointF place = event->position();
    const bool left = event->button() == Qt::LeftButton;
    if (_drag != Drag::NONE || (!left && event->button() != Qt::MiddleButton))
        return;
    const int light = left ? lightAt(place) : -1;
    if (!left || event->modifiers().testFlag(Qt::ControlModifier)) {
        _drag = Drag::PAN;
        _grabbed = place;
    } else if (light >= 0) {
        _drag = Drag::LIGHT;
        _lightRests.stop();
        _lights.endChange();
        _lights.setCurrent(light);
        _grabbed = handle(_lights.lights().at(static_cast<std::size_t>(light))) - place;
    } else if (isOnBorder(place)) {
        _drag = Drag::BORDER;
    } else if (_tool && _frame) {
        _drag = Drag::TOOL;
        _tool->press(place, event->modifiers());
    }
    updateCursor(place);
}

void Viewer::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF place = event->position();
    switch (_drag) {
    case Drag::PAN:
        pan(place - _grabbed);
        _grabbed = place;
        break;
    case Drag::LIGHT:
        moveLight(place + _grabbed);
        break;
    case Drag::BORDER:
        moveBorder(place);
        break;
    case Drag::TOOL:
        _tool->drag(place, event->modifiers());
        break;
    case Drag::NONE:
        if (_tool && lightAt(place) < 0 && !isOnBorder(place))
            _tool->hover(place);
        else if (_tool)
            _tool->leave();
        break;
    }
    updateCursor(place);
    const QPointF here = _transform.toPicture(place);
    const QPoint pixel(static_cast<int>(std::floor(here.x())), static_cast<int>(std::floor(here.y())));
    const bool inside = _frame && QRect(QPoint(), _frame->fullSize).contains(pixel);
    Q_EMIT hovered(inside ? std::optional(pixel) : std::nullopt);
}

void Viewer::mouseReleaseEvent(QMouseEvent* event)
{
    const bool takesLeft = _drag == Drag::LIGHT || _drag == Drag::BORDER || _drag == Drag::TOOL;
    if (takesLeft && event->button() != Qt::LeftButton)
        return;
    switch (std::exchange(_drag, Drag::NONE)) {
    case Drag::LIGHT:
        _lights.endChange();
        break;
    case Drag::TOOL:
        _tool->release(event->position(), event->modifiers());
        break;
    default:
        break;
    }
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
    case Qt::Key_B:
        return lookBack(true);
    case Qt::Key_Escape:
        // The tool must not receive the release of the button that is still pressed.
        if (_tool && _tool->cancel()) {
            if (_drag == Drag::TOOL)
                _drag = Drag::NONE;
            return;
        }
        [[fallthrough]];
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

void Viewer::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_B && !event->isAutoRepeat())
        lookBack(false);
    else
        QWidget::keyReleaseEvent(event);
}

void Viewer::focusOutEvent(QFocusEvent* event)
{
    lookBack(false);
    QWidget::focusOutEvent(event);
}

void Viewer::contextMenuEvent(QContextMenuEvent* event)
{
    if (_tool && _frame && event->reason() == QContextMenuEvent::Mouse)
        _tool->aim(event->pos());
    Q_EMIT menuWanted(event->reason() == QContextMenuEvent::Keyboard ? rect().center() : event->pos());
}

void Viewer::leaveEvent(QEvent*)
{
    if (_tool)
        _tool->leave();
    Q_EMIT hovered(std::nullopt);
}

void Viewer::updateCursor(const QPointF& place)
{
    if (_drag == Drag::PAN)
        setCursor(Qt::ClosedHandCursor);
    else if (_drag == Drag::LIGHT || (_drag == Drag::NONE && lightAt(place) >= 0))
        setCursor(Qt::SizeAllCursor);
    else if (_drag == Drag::BORDER || (_drag == Drag::NONE && isOnBorder(place)))
        setCursor(Qt::SplitHCursor);
    else
        setCursor(_tool && _frame ? _tool->cursor(place) : Qt::ArrowCursor);
}

void Viewer::lightChanged()
{
    _lit.lightChanged();
    if (_kind != PictureKind::LIT)
        return;
    update();
    if (!_lights.isTurning())
        Q_EMIT lightHandlesChanged();
}
