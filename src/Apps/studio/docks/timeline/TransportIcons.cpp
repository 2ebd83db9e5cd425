// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The signs stand on a grid of 16 units.
#include "studio/docks/timeline/TransportIcons.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int kSide = 16;

QPainterPath triangle(double tip, double base)
{
    QPainterPath path(QPointF(base, 3));
    path.lineTo(tip, 8);
    path.lineTo(base, 13);
    path.closeSubpath();
    return path;
}

QPainterPath bar(double left, double width)
{
    QPainterPath path;
    path.addRect(left, 3, width, 10);
    return path;
}

QPainterPath shapeOf(TransportSign sign)
{
    switch (sign) {
    case TransportSign::FIRST:
        return bar(3, 2) + triangle(6, 13);
    case TransportSign::BACK:
        return triangle(4, 10) + bar(11, 1.5);
    case TransportSign::PLAY:
        return triangle(13, 4);
    case TransportSign::STOP:
        return bar(3, 10);
    case TransportSign::FORTH:
        return triangle(12, 6) + bar(3.5, 1.5);
    case TransportSign::LAST:
        return bar(11, 2) + triangle(10, 3);
    }
    return {};
}

QPixmap pixmapOf(const QPainterPath& path, const QColor& color, int ratio)
{
    QPixmap pixmap(kSide * ratio, kSide * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, color);
    return pixmap;
}

} // namespace

QIcon transportIcon(TransportSign sign, const QPalette& palette)
{
    const QPainterPath path = shapeOf(sign);
    QIcon icon;
    for (const int ratio : {1, 2, 3}) {
        icon.addPixmap(pixmapOf(path, palette.color(QPalette::Active, QPalette::ButtonText), ratio));
        icon.addPixmap(pixmapOf(path, palette.color(QPalette::Disabled, QPalette::ButtonText), ratio), QIcon::Disabled);
    }
    return icon;
}
