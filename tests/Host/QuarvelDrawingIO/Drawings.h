// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Small SVG drawings for tests, and questions about what was read of them.
#pragma once

#include "QuarvelDrawingIO/DIO_SvgReader.h"

#include <ostream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace drawings {

/// A document with a viewBox of 100 x 100 around some elements.
inline QByteArray document(const QByteArray& content)
{
    return QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
                      "xmlns:inkscape=\"http://www.inkscape.org/namespaces/inkscape\" "
                      "xmlns:i=\"http://ns.adobe.com/AdobeIllustrator/10.0/\" viewBox=\"0 0 100 100\">") +
           content + "</svg>";
}

/// Reads a whole document; a failure to read is a failure of the test, and yields an empty drawing.
inline DIO_Drawing readDocument(const QByteArray& data, DIO_Grouping grouping = DIO_Grouping::AUTO)
{
    UT_Result<DIO_Drawing> drawing = DIO_readSvgData(data, QStringLiteral("test.svg"), grouping);
    if (drawing)
        return std::move(*drawing);
    ADD_FAILURE() << drawing.error().text.toStdString();
    return {};
}

/// Reads some elements.
inline DIO_Drawing read(const QByteArray& content, DIO_Grouping grouping = DIO_Grouping::AUTO)
{
    return readDocument(document(content), grouping);
}

/// The message that a document is refused with; empty when it is read.
inline QString refusal(const QByteArray& data)
{
    const UT_Result<DIO_Drawing> drawing = DIO_readSvgData(data, QStringLiteral("test.svg"));
    return drawing ? QString() : drawing.error().text;
}

inline bool covers(const DIO_Shape& shape, double x, double y)
{
    return shape.path.contains(QPointF(x, y)) && (!shape.clip || shape.clip->contains(QPointF(x, y)));
}

/// All shapes, bottom up.
inline std::vector<DIO_Shape> shapesOf(const DIO_Drawing& drawing)
{
    std::vector<DIO_Shape> shapes;
    for (const DIO_Layer& layer : drawing.layers)
        shapes.insert(shapes.end(), layer.shapes.begin(), layer.shapes.end());
    return shapes;
}

/// The name of the paint that shows at a point; empty where there is none.
inline QString paintAt(const DIO_Drawing& drawing, double x, double y)
{
    QString name;
    for (const DIO_Shape& shape : shapesOf(drawing))
        if (covers(shape, x, y))
            name = drawing.palette[static_cast<std::size_t>(shape.paint)].name;
    return name;
}

/// How opaque the drawing is at a point: shapes of opacities a and b make up 1 - (1 - a)(1 - b).
inline double opacityAt(const DIO_Drawing& drawing, double x, double y)
{
    double clear = 1.0;
    for (const DIO_Shape& shape : shapesOf(drawing))
        if (covers(shape, x, y))
            clear *= 1.0 - shape.opacity;
    return 1.0 - clear;
}

/// The names of the layers, bottom up.
inline QStringList layerNames(const DIO_Drawing& drawing)
{
    QStringList names;
    for (const DIO_Layer& layer : drawing.layers)
        names.append(layer.name);
    return names;
}

} // namespace drawings
