// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Thumbnails are painted by the window's own painter: they need no more than to be recognised. A grey line around the
// shapes has enough contrast with black, white and the grounds of both themes, so that no object fades into its ground.
#include "studio/docks/scene/DrawingThumbnail.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr double kMargin = 2.0;
constexpr QRgb kOutline = 0xff8a8a8a;
constexpr double kOutlineWidth = 2.0; // half of it lies under the shape

template<typename Function>
void forEachShape(const CELVEC_Kvd& drawing, const Function& function)
{
    for (const GR_Art art : kGR_allArts)
        if (drawing.artSelector().isSelected(art))
            for (const CELVEC_Shape& shape : drawing.shapes(art))
                function(shape);
}

// Pictures have no outline of their own.
void paintOutline(QPainter& painter, const CELVEC_Shape& shape, double ratio)
{
    if (!shape.picture.isNull())
        return;
    QPen pen(QColor::fromRgb(kOutline), kOutlineWidth * ratio);
    pen.setCosmetic(true);
    painter.save();
    if (shape.clip)
        painter.setClipPath(*shape.clip);
    painter.strokePath(shape.path, pen);
    painter.restore();
}

void paintShape(QPainter& painter, const CELVEC_Kvd& drawing, const CELVEC_Shape& shape)
{
    painter.save();
    painter.setOpacity(shape.opacity);
    if (shape.clip)
        painter.setClipPath(*shape.clip);
    const auto color = drawing.palette() ? drawing.palette()->findColor(shape.color) : nullptr;
    if (!shape.picture.isNull()) {
        painter.drawImage(shape.path.boundingRect(), shape.picture);
    } else if (color) {
        const CM_Rgba& rgba = color->GetNominalColor();
        painter.fillPath(shape.path, QColor(rgba.red, rgba.green, rgba.blue, rgba.alpha));
    }
    painter.restore();
}

} // namespace

QPixmap drawingThumbnail(const CELVEC_Kvd& drawing, int side, double ratio)
{
    const int pixels = std::max(1, static_cast<int>(side * ratio));
    QPixmap pixmap(pixels, pixels);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QRectF bounds;
    forEachShape(drawing, [&](const CELVEC_Shape& shape) { bounds |= shape.path.controlPointRect(); });
    const double longest = std::max(bounds.width(), bounds.height());
    if (!(longest > 0.0))
        return pixmap;
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(side / 2.0, side / 2.0);
    painter.scale((side - 2 * kMargin) / longest, (side - 2 * kMargin) / longest);
    painter.translate(-bounds.center());
    forEachShape(drawing, [&](const CELVEC_Shape& shape) { paintOutline(painter, shape, ratio); });
    forEachShape(drawing, [&](const CELVEC_Shape& shape) { paintShape(painter, drawing, shape); });
    return pixmap;
}
