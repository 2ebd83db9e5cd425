// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes small drawings for tests from the content of an SVG of 100 x 100 units, paints them and compares the pictures.
#pragma once

#include "QuarvelDrawingIO/DIO_SvgReader.h"
#include "form/ChooseObjects.h"

#include <QImage>
#include <QPainter>

#include <gmock/gmock.h>

namespace form_drawings {

inline DIO_Drawing read(const QByteArray& content, DIO_Grouping grouping = DIO_Grouping::AUTO)
{
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' "
                           "xmlns:inkscape='http://www.inkscape.org/namespaces/inkscape' "
                           "width='100' height='100' viewBox='0 0 100 100'>" +
                           content + "</svg>";
    const UT_Result<DIO_Drawing> drawing = DIO_readSvgData(svg, QStringLiteral("test.svg"), grouping);
    EXPECT_TRUE(drawing) << (drawing ? "" : drawing.error().text.toStdString());
    return drawing ? *drawing : DIO_Drawing();
}

inline ChosenObjects chosen(const QByteArray& content, ObjectChoice choice = ObjectChoice::AUTO)
{
    return chooseObjects(read(content, groupingFor(choice)), choice);
}

inline std::size_t countOf(const QByteArray& content)
{
    return chosen(content).objects.size();
}

inline std::vector<ObjectRole> rolesOf(const QByteArray& content)
{
    std::vector<ObjectRole> roles;
    for (const ChosenObject& object : chosen(content).objects)
        roles.push_back(object.role);
    return roles;
}

inline QByteArray circle(double x, double y, double r, const char* fill)
{
    return QStringLiteral("<circle cx='%1' cy='%2' r='%3' fill='%4'/>").arg(x).arg(y).arg(r).arg(fill).toUtf8();
}

inline QByteArray rect(double x, double y, double width, double height, const char* fill)
{
    return QStringLiteral("<rect x='%1' y='%2' width='%3' height='%4' fill='%5'/>")
        .arg(x)
        .arg(y)
        .arg(width)
        .arg(height)
        .arg(fill)
        .toUtf8();
}

inline QByteArray line(const char* path, const char* stroke = "#111111", double width = 2.0)
{
    return QStringLiteral("<path d='%1' fill='none' stroke='%2' stroke-width='%3'/>")
        .arg(path, stroke)
        .arg(width)
        .toUtf8();
}

/// All layers of a drawing, painted in their order.
inline QImage painted(const DIO_Drawing& drawing, int longSide)
{
    const double scale = longSide / std::max(drawing.viewBox.width(), drawing.viewBox.height());
    QImage image((drawing.viewBox.size() * scale).toSize().expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.translate(-drawing.viewBox.topLeft());
    for (const DIO_Layer& layer : drawing.layers)
        for (const DIO_Shape& shape : layer.shapes) {
            painter.setClipping(false);
            if (shape.clip)
                painter.setClipPath(*shape.clip);
            QColor colour = drawing.palette[static_cast<std::size_t>(shape.paint)].colour;
            colour.setAlphaF(static_cast<float>(shape.opacity));
            painter.fillPath(shape.path, colour);
        }
    return image;
}

inline int distance(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other)), std::abs(qAlpha(one) - qAlpha(other))});
}

/// The number of pixels in which two pictures differ and whose neighbours differ too. Single differing pixels do not
/// count: if a shape is painted twice, the antialiasing of its edges differs by a pixel.
inline int pixelsThatDiffer(const QImage& one, const QImage& other)
{
    constexpr int kSeen = 24;
    const auto differs = [&](int x, int y) { return distance(one.pixel(x, y), other.pixel(x, y)) > kSeen; };
    int differing = 0;
    for (int y = 1; y < one.height() - 1; ++y)
        for (int x = 1; x < one.width() - 1; ++x) {
            bool all = true;
            for (int i = 0; i < 9 && all; ++i)
                all = differs(x - 1 + i % 3, y - 1 + i / 3);
            differing += all ? 1 : 0;
        }
    return differing;
}

} // namespace form_drawings
