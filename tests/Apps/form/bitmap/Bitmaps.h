// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paints bitmaps for tests, makes drawings of them, and paints the objects of a drawing.
#pragma once

#include "form/bitmap/BitmapObjects.h"

#include <QPainter>

#include <functional>

/// What a test paints.
using Paint = std::function<void(QPainter&)>;

/// A transparent picture after `paint` has painted on it.
inline QImage painted(const QSize& size, const Paint& paint, bool antialiased = true)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, antialiased);
    painter.setPen(Qt::NoPen);
    paint(painter);
    painter.end();
    return image;
}

/// The drawing that the reader of bitmaps makes of a picture.
inline DIO_Drawing bitmapDrawing(const QImage& image)
{
    DIO_Drawing drawing;
    drawing.name = QStringLiteral("sprite");
    drawing.size = image.size();
    drawing.viewBox = QRectF(QPointF(), drawing.size);
    drawing.palette.push_back({DIO_Paint::Kind::SOLID, QColor(90, 90, 90), QStringLiteral("#5a5a5a")});
    DIO_Shape shape;
    shape.path.addRect(drawing.viewBox);
    shape.picture = image;
    drawing.layers.push_back({QStringLiteral("sprite"), true, {shape}});
    return drawing;
}

inline ChosenObjects objectsOf(const QImage& image)
{
    const DIO_Drawing drawing = bitmapDrawing(image);
    return chooseBitmapObjects(drawing, drawing.viewBox);
}

/// The drawing's pictures, painted one over the other at their places. With 8 bits a channel, because with 16 bits Qt
/// multiplies by alpha in two ways, depending on where a run of pixels begins, and the results differ in the last bit.
inline QImage paintedAgain(const DIO_Drawing& drawing)
{
    QImage image(drawing.size.toSize(), QImage::Format_RGBA64_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    for (const DIO_Layer& layer : drawing.layers)
        for (const DIO_Shape& shape : layer.shapes)
            painter.drawImage(shape.path.boundingRect(), shape.picture);
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

/// The pixels of an object in a picture of the drawing's size.
inline QImage layerOf(const ChosenObjects& chosen, std::size_t object)
{
    const DIO_Shape& shape = chosen.drawing.layers[object].shapes.front();
    const QPoint corner = shape.path.boundingRect().topLeft().toPoint();
    const QSize size = chosen.drawing.size.toSize();
    return shape.picture.copy(QRect(-corner, size));
}

/// The number of the topmost object that covers a pixel; -1 if none does.
inline int objectAt(const ChosenObjects& chosen, int x, int y)
{
    for (std::size_t i = chosen.objects.size(); i-- > 0;)
        if (layerOf(chosen, i).pixelColor(x, y).alpha() > 0)
            return static_cast<int>(i);
    return -1;
}
