// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paints the view: the backdrop or a checkerboard behind transparent pixels, the picture, the lights' handles.
#include "studio/preview/Viewer.h"

#include "studio/preview/FrameImages.h"
#include "studio/preview/ShownPixels.h"
#include "studio/preview/ViewerTool.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace {

constexpr int kCheckerCell = 8;
constexpr double kDiscRadius = 9.0;

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

QColor surroundings(const QPalette& palette)
{
    return isDark(palette) ? QColor(0x1c, 0x1d, 0x20) : QColor(0xc9, 0xcc, 0xd1);
}

QPixmap checkerTile(const QPalette& palette, double density)
{
    const bool dark = isDark(palette);
    const int side = static_cast<int>(std::lround(2 * kCheckerCell * density));
    QPixmap tile(side, side);
    tile.fill(dark ? QColor(0x2c, 0x2d, 0x31) : QColor(0xff, 0xff, 0xff));
    QPainter painter(&tile);
    const QColor other = dark ? QColor(0x36, 0x38, 0x3d) : QColor(0xe9, 0xea, 0xed);
    painter.fillRect(0, 0, side / 2, side / 2, other);
    painter.fillRect(side / 2, side / 2, side - side / 2, side - side / 2, other);
    painter.end();
    tile.setDevicePixelRatio(density);
    return tile;
}

// Rounds to whole screen pixels, so that edges are sharp.
QRectF snapped(const QRectF& rect, double density)
{
    const auto whole = [density](double value) { return std::round(value * density) / density; };
    return {QPointF(whole(rect.left()), whole(rect.top())), QPointF(whole(rect.right()), whole(rect.bottom()))};
}

} // namespace

void Viewer::paintEvent(QPaintEvent*)
{
    if (_transform.density != devicePixelRatioF()) {
        _transform.density = devicePixelRatioF();
        if (_fitted)
            _transform.fit(pictureSize(), kFitMargin);
    }
    QPainter painter(this);
    painter.fillRect(rect(), surroundings(palette()));
    if (_frame) {
        const QRectF shown = snapped(pictureRect(), _transform.density);
        paintBackdrop(painter, shown);
        paintPictures(painter, shown);
        if (_tool)
            _tool->paint(painter);
        paintLights(painter);
        paintBorder(painter, shown);
    }
    const QString said = _frame ? explanation() : _message;
    if (!said.isEmpty())
        paintMessage(painter, said);
    paintProgress(painter);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.0));
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

void Viewer::paintChecker(QPainter& painter, const QRectF& shown) const
{
    painter.save();
    painter.setBrushOrigin(shown.topLeft());
    painter.fillRect(shown & QRectF(rect()), QBrush(checkerTile(palette(), _transform.density)));
    painter.restore();
}

void Viewer::paintBackdrop(QPainter& painter, const QRectF& shown) const
{
    const bool isSeenThrough = seenKind() == PictureKind::LIT || seenKind() == PictureKind::DRAWING;
    const ViewBackdrop& backdrop = _options.backdrop;
    if (!isSeenThrough || (backdrop.picture.isNull() && !backdrop.colour.isValid()))
        return paintChecker(painter, shown);
    painter.fillRect(shown & QRectF(rect()), backdrop.colour.isValid() ? backdrop.colour : Qt::black);
    if (backdrop.picture.isNull())
        return;
    // Fills the frame without distortion; the parts that do not fit are cut off.
    const QSizeF size = QSizeF(backdrop.picture.size()).scaled(shown.size(), Qt::KeepAspectRatioByExpanding);
    painter.save();
    painter.setClipRect(shown);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(shown.center() - QPointF(size.width() / 2.0, size.height() / 2.0), size),
                      backdrop.picture);
    painter.restore();
}

QImage Viewer::imageOf(PictureKind kind)
{
    switch (kind) {
    case PictureKind::DRAWING:
        return _frame->drawing;
    case PictureKind::ELEVATION:
        return _frame->elevation;
    case PictureKind::NORMALS:
        return _frame->normals;
    case PictureKind::LIT:
        break;
    }
    if (_frame->kind != RenderedKind::NORMALS)
        return _frame->drawing;
    return _lit.image(_frame, _lights.lighting());
}

QImage Viewer::shownImage()
{
    return _frame ? channelOf(imageOf(seenKind()), _options.channel) : QImage();
}

void Viewer::paintPictures(QPainter& painter, const QRectF& shown)
{
    const QRectF visible = shown & QRectF(rect());
    const auto border = borderPlace();
    if (!border)
        return paintPicture(painter, shown, visible, shownImage());
    const auto part = [&](double from, double to) {
        return visible & QRectF(QPointF(from, shown.top()), QPointF(to, shown.bottom()));
    };
    paintPicture(painter, shown, part(shown.left(), *border), imageOf(PictureKind::DRAWING));
    paintPicture(painter, shown, part(*border, shown.right()), shownImage());
}

void Viewer::paintPicture(QPainter& painter, const QRectF& shown, const QRectF& visible, const QImage& image)
{
    if (image.isNull() || visible.isEmpty())
        return;
    const bool smooth = _transform.zoom != 1.0 && !showsPixels(_transform, *_frame);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
    const double scaleX = image.width() / shown.width();
    const double scaleY = image.height() / shown.height();
    const QRectF source((visible.left() - shown.left()) * scaleX, (visible.top() - shown.top()) * scaleY,
                        visible.width() * scaleX, visible.height() * scaleY);
    painter.drawImage(visible, image, source);
}

void Viewer::paintBorder(QPainter& painter, const QRectF& shown) const
{
    const auto border = borderPlace();
    if (!border)
        return;
    const QRectF seen = shown & QRectF(rect());
    const QLineF line(*border, seen.top(), *border, seen.bottom());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(20, 20, 24, 210), 4.0));
    painter.drawLine(line);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.drawLine(line);
    painter.setPen(QPen(QColor(20, 20, 24, 210), 1.5));
    painter.setBrush(Qt::white);
    painter.drawEllipse(line.center(), 7.0, 7.0);
}

void Viewer::paintLights(QPainter& painter) const
{
    if (!showsLights())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < _lights.count(); ++i)
        if (i != _lights.current())
            paintLight(painter, _lights.lights()[static_cast<std::size_t>(i)], false);
    paintLight(painter, _lights.lights()[static_cast<std::size_t>(_lights.current())], true);
}

void Viewer::paintLight(QPainter& painter, const StudioLight& light, bool isCurrent) const
{
    constexpr int kRays = 8;
    const QPointF centre = handle(light);
    QPainterPath rays;
    for (int i = 0; i < kRays; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / kRays;
        const QPointF direction(std::cos(angle), std::sin(angle));
        rays.moveTo(centre + (kDiscRadius + 3.0) * direction);
        rays.lineTo(centre + (kDiscRadius + (isCurrent ? 8.0 : 6.0)) * direction);
    }
    // Light on dark, so that it is visible on any picture.
    const QColor dark(20, 20, 24, 210);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(dark, 4.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(rays);
    painter.setPen(QPen(isCurrent ? QColor(255, 255, 255) : QColor(205, 205, 210), 2.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(rays);
    painter.setPen(QPen(dark, 4.5));
    painter.setBrush(light.colour);
    painter.drawEllipse(centre, kDiscRadius, kDiscRadius);
    painter.setPen(QPen(isCurrent ? QColor(255, 255, 255) : QColor(205, 205, 210), 2.0));
    painter.drawEllipse(centre, kDiscRadius, kDiscRadius);
}

QString Viewer::explanation() const
{
    const bool wantsNormals = _kind == PictureKind::LIT || _kind == PictureKind::NORMALS;
    if (_frame->kind == RenderedKind::COLOURS && _kind != PictureKind::DRAWING)
        return tr("\"%1\" shows colours: there is no volume to look at.\n"
                  "Connect it to a normal-map node, or look at the drawing.")
            .arg(_frame->nodeName);
    if (_frame->kind == RenderedKind::ELEVATION && wantsNormals)
        return tr("The node makes no normals, so there is nothing to light.\n"
                  "Switch on \"Generate Normals\" in its properties.");
    return {};
}

void Viewer::paintMessage(QPainter& painter, const QString& message) const
{
    constexpr double kMargin = 14.0;
    const QRectF all = QRectF(rect()).adjusted(24.0, 24.0, -24.0, -24.0);
    const QRectF text = painter.boundingRect(all, Qt::AlignCenter | Qt::TextWordWrap, message);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor ground = palette().color(QPalette::Window);
    ground.setAlpha(225);
    painter.setBrush(ground);
    painter.drawRoundedRect(text.adjusted(-kMargin, -kMargin, kMargin, kMargin), 8.0, 8.0);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(all, Qt::AlignCenter | Qt::TextWordWrap, message);
}

void Viewer::paintProgress(QPainter& painter) const
{
    if (_progress < 0.0)
        return;
    constexpr double kThickness = 3.0;
    QColor colour = palette().color(QPalette::Highlight);
    painter.fillRect(QRectF(0.0, 0.0, width() * std::max(0.04, _progress), kThickness), colour);
}
