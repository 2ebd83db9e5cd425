// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The outline is halfway between text and ground, so that black and white swatches end somewhere in both themes.
#include "studio/docks/scene/ColourSwatch.h"

#include "studio/docks/graph/NodeColors.h"

#include <QPainter>
#include <QPixmap>

QColor toQColor(const CM_Rgba& colour)
{
    return {colour.red, colour.green, colour.blue, colour.alpha};
}

QIcon colourSwatch(const QColor& colour, const QPalette& palette, double ratio)
{
    const int pixels = static_cast<int>(kColourSwatch * ratio);
    QPixmap pixmap(pixels, pixels);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box(1.5, 1.5, kColourSwatch - 3, kColourSwatch - 3);
    if (colour.alpha() < 255) {
        painter.fillRect(box, Qt::white);
        painter.fillRect(box, QBrush(Qt::gray, Qt::Dense4Pattern));
    }
    painter.setBrush(colour);
    painter.setPen(QPen(blended(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.5), 1));
    painter.drawRoundedRect(box, 3, 3);
    return QIcon(pixmap);
}
