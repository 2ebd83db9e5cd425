// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The drawings say "currentColor" where they want the text's colour.
#include "studio/window/Icons.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

// Outside of any namespace, as the macro asks for.
static void loadResources()
{
    Q_INIT_RESOURCE(studio);
}

namespace {

QPixmap painted(const QByteArray& drawing, const QColor& colour, int side)
{
    QByteArray coloured = drawing;
    coloured.replace("currentColor", colour.name().toLatin1());
    QSvgRenderer renderer(coloured);
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setOpacity(colour.alphaF());
    renderer.render(&painter);
    return pixmap;
}

QByteArray drawingOf(const QString& name)
{
    loadResources();
    QFile file(QStringLiteral(":/studio/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

QIcon studioIcon(const QString& name, const QPalette& palette)
{
    const QByteArray drawing = drawingOf(QStringLiteral("icons/") + name);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    QColor faint = text;
    faint.setAlphaF(0.35F);
    QIcon icon;
    for (const int side : {16, 20, 24, 32, 40, 48, 64, 96}) {
        icon.addPixmap(painted(drawing, text, side), QIcon::Normal);
        icon.addPixmap(painted(drawing, faint, side), QIcon::Disabled);
    }
    return icon;
}

QIcon applicationIcon()
{
    const QByteArray drawing = drawingOf(QStringLiteral("application"));
    QIcon icon;
    for (const int side : {16, 32, 48, 64, 128, 256})
        icon.addPixmap(painted(drawing, Qt::black, side));
    return icon;
}
