// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Numbers have fixed widths, so that the line does not jump while the mouse moves.
#include "studio/window/PixelReadOut.h"

#include "studio/objects/ObjectsInFrame.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

QString number(double value, int width = 0)
{
    return QStringLiteral("%1").arg(value, width, 'f', 3);
}

QString colourText(const QImage& image, const RenderedFrame& frame, const QPoint& place)
{
    const QColor colour = image.pixelColor(frame.pixelAt(place, image.size()));
    if (colour.alpha() == 0)
        return PixelReadOut::tr("nothing");
    const QString text = PixelReadOut::tr("%1   red %2  green %3  blue %4")
                             .arg(colour.name())
                             .arg(colour.red(), 3)
                             .arg(colour.green(), 3)
                             .arg(colour.blue(), 3);
    return colour.alpha() == 255 ? text : text + PixelReadOut::tr("  opacity %1 %").arg(qRound(colour.alphaF() * 100));
}

// The depth of a place: its share of the object's elevation.
QString elevationText(double share, const SceneObject* object, double atFrame)
{
    if (!object || object->isCutOut())
        return PixelReadOut::tr("elevation 0");
    const double whole = object->values.elevation * NormalMapNode(*object->node).riseFactor(atFrame);
    return PixelReadOut::tr("elevation %1 of %2 units")
        .arg(QString::number(share * whole, 'f', 1), QString::number(whole, 'f', 1));
}

QString normalText(const FramePixel& pixel)
{
    const auto& [x, y, z] = pixel.normal;
    const double tilt = std::acos(std::clamp(z, -1.0, 1.0)) * 180.0 / std::numbers::pi;
    return PixelReadOut::tr("normal %1 %2 %3   tilt %4\u00b0")
        .arg(number(x, 6), number(y, 6), number(z, 6))
        .arg(tilt, 4, 'f', 1);
}

} // namespace

QString PixelReadOut::text(const RenderedFrame& frame, PictureKind kind, const QImage& shown,
                           const std::vector<SceneObject>& objects, const QPoint& place, double atFrame)
{
    const auto pixel = pixelOf(frame, place);
    if (!pixel)
        return {};
    const std::vector<SceneObject> here = objectsAt(frame, objects, QPointF(place) + QPointF(0.5, 0.5));
    const SceneObject* const object = here.empty() ? nullptr : &here.front();
    QString text = QStringLiteral("%1, %2    ").arg(place.x(), 4).arg(place.y(), 4);
    if (kind == PictureKind::ELEVATION && pixel->hasElevation)
        text += elevationText(pixel->elevation, object, atFrame);
    else if (kind == PictureKind::NORMALS && pixel->hasNormal)
        text += normalText(*pixel);
    else if (kind == PictureKind::DRAWING || shown.isNull())
        text += colourText(frame.drawing, frame, place);
    else
        text += colourText(shown, frame, place);
    return object ? text + QStringLiteral("    ") + object->name : text;
}

QString PixelReadOut::rawText(const RenderedFrame& frame, const QPoint& place)
{
    const auto pixel = pixelOf(frame, place);
    if (!pixel)
        return {};
    const auto& [red, green, blue, alpha] = pixel->channels;
    QString text = tr("%1, %2    R %3  G %4  B %5  A %6")
                       .arg(place.x(), 4)
                       .arg(place.y(), 4)
                       .arg(number(red), number(green), number(blue), number(alpha));
    const auto& normal = pixel->normal;
    if (pixel->hasNormal)
        text += tr("    normal %1 %2 %3").arg(number(normal[0], 6), number(normal[1], 6), number(normal[2], 6));
    if (pixel->hasElevation)
        text += tr("    elevation %1").arg(number(pixel->elevation));
    return text;
}
