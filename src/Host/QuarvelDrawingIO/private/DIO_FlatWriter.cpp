// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writing of flattened documents. Colours are written as #rrggbb and an opacity, lengths as plain numbers, so that the
// library that paints the document has nothing to interpret.
#include "QuarvelDrawingIO/private/DIO_FlatWriter.h"

#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"

#include <QStringList>

#include <algorithm>

DIO_FlatWriter::DIO_FlatWriter(DIO_SvgPaintServers& servers) : _servers(servers), _buffer(&_body), _xml(&_buffer)
{
    _buffer.open(QIODevice::WriteOnly);
}

QString DIO_FlatWriter::reference(int server)
{
    _used.insert(server);
    return QStringLiteral("url(#s%1)").arg(server);
}

void DIO_FlatWriter::attribute(const char* name, double value)
{
    attribute(name, DIO_number(value));
}

void DIO_FlatWriter::beginElement(const QString& name, const Extras& extras)
{
    _xml.writeStartElement(name);
    if (!extras.transform.isEmpty())
        attribute("transform", extras.transform);
    if (extras.opacity < 1.0)
        attribute("opacity", extras.opacity);
    if (extras.fixedStrokeWidth)
        attribute("vector-effect", QStringLiteral("non-scaling-stroke"));
}

void DIO_FlatWriter::beginGroup(const QString& transform, double opacity)
{
    ++_depth;
    beginElement(QStringLiteral("g"), {transform, opacity, false});
}

void DIO_FlatWriter::endGroup()
{
    --_depth;
    _xml.writeEndElement();
}

void DIO_FlatWriter::path(const QString& data, const DIO_SvgStyle& style, const Extras& extras)
{
    beginElement(QStringLiteral("path"), extras);
    writeStyle(style);
    attribute("d", data);
    _xml.writeEndElement();
}

void DIO_FlatWriter::serverPath(const QString& data, int server, const Extras& extras, bool evenOdd)
{
    beginElement(QStringLiteral("path"), extras);
    attribute("fill", reference(server));
    if (evenOdd)
        attribute("fill-rule", QStringLiteral("evenodd"));
    attribute("d", data);
    _xml.writeEndElement();
}

void DIO_FlatWriter::clipPath(const QString& data, bool evenOdd, const QString& transform)
{
    beginElement(QStringLiteral("path"), {transform, 1.0, false});
    if (evenOdd)
        attribute("fill-rule", QStringLiteral("evenodd"));
    attribute("d", data);
    _xml.writeEndElement();
}

void DIO_FlatWriter::clipTo(const QRectF& rectangle)
{
    mark(DIO_SvgMark::Command::CLIP_BEGIN);
    clipPath(DIO_rectPath(rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height()), false, {});
    mark(DIO_SvgMark::Command::CLIP_END);
}

void DIO_FlatWriter::beginText(double x, double y, const DIO_SvgStyle& style, const Extras& extras)
{
    beginElement(QStringLiteral("text"), extras);
    attribute("x", x);
    attribute("y", y);
    attribute("xml:space", QStringLiteral("preserve"));
    writeStyle(style);
    writeFont(style);
}

void DIO_FlatWriter::textRun(const QString& text, const DIO_SvgStyle& style)
{
    _xml.writeStartElement(QStringLiteral("tspan"));
    writeStyle(style);
    writeFont(style);
    _xml.writeCharacters(text);
    _xml.writeEndElement();
}

void DIO_FlatWriter::endText()
{
    _xml.writeEndElement();
}

void DIO_FlatWriter::mark(DIO_SvgMark::Command command, int argument)
{
    _xml.writeStartElement(QStringLiteral("polyline"));
    attribute("fill", QStringLiteral("none"));
    attribute("stroke", QStringLiteral("#000000"));
    attribute("points", QString::fromLatin1(DIO_SvgMark{command, argument}.points()));
    _xml.writeEndElement();
}

void DIO_FlatWriter::writeStyle(const DIO_SvgStyle& style)
{
    writePaint("fill", style.fill, style.fillOpacity);
    if (style.evenOdd)
        attribute("fill-rule", QStringLiteral("evenodd"));
    if (style.strokeWidth > 0.0 && writePaint("stroke", style.stroke, style.strokeOpacity))
        writeStroke(style);
}

bool DIO_FlatWriter::writePaint(const char* name, const DIO_SvgPaint& paint, double opacity)
{
    const bool isReference = paint.kind == DIO_SvgPaint::Kind::REFERENCE;
    const int server = !isReference ? -1 : paint.server >= 0 ? paint.server : _servers.find(paint.reference);
    if (server >= 0) {
        attribute(name, reference(server));
    } else if (paint.kind != DIO_SvgPaint::Kind::NONE && paint.colour.isValid()) {
        attribute(name, paint.colour.name());
        opacity *= static_cast<double>(paint.colour.alphaF());
    } else {
        attribute(name, QStringLiteral("none"));
        return false;
    }
    if (opacity < 1.0)
        _xml.writeAttribute(QLatin1String(name) + QStringLiteral("-opacity"), DIO_number(opacity));
    return true;
}

void DIO_FlatWriter::writeStroke(const DIO_SvgStyle& style)
{
    attribute("stroke-width", style.strokeWidth);
    attribute("stroke-linecap", style.lineCap);
    attribute("stroke-linejoin", style.lineJoin);
    attribute("stroke-miterlimit", style.miterLimit);
    if (style.dashes.empty())
        return;
    // The painting library drops dashes of no length, whose caps are dots. They are written a thousandth of a width
    // long, which nobody sees.
    const double dot = style.lineCap == u"butt" ? 0.0 : style.strokeWidth / 1000.0;
    QStringList dashes;
    for (std::size_t i = 0; i < style.dashes.size(); ++i) {
        const bool isGap = i % 2 == 1;
        const bool afterDot = isGap && style.dashes[i - 1] == 0.0;
        dashes.append(DIO_number(isGap ? std::max(0.0, style.dashes[i] - (afterDot ? dot : 0.0))
                                       : std::max(style.dashes[i], dot)));
    }
    attribute("stroke-dasharray", dashes.join(u','));
    attribute("stroke-dashoffset", style.dashOffset);
}

void DIO_FlatWriter::writeFont(const DIO_SvgStyle& style)
{
    attribute("font-size", style.fontSize);
    for (auto property = style.font.constKeyValueBegin(); property != style.font.constKeyValueEnd(); ++property)
        _xml.writeAttribute(property->first, property->second);
}

QByteArray DIO_FlatWriter::definitions() const
{
    QByteArray definitions = "<defs>";
    for (const int used : _used) {
        const DIO_PaintServer& server = _servers.servers()[static_cast<std::size_t>(used)];
        const QByteArray colour = server.paint.colour.name().toLatin1();
        const QByteArray stop =
            " stop-color=\"" + colour + "\" stop-opacity=\"" + QByteArray::number(server.opacity) + "\"/>";
        const QByteArray number = QByteArray::number(used);
        const QByteArray x = QByteArray::number(kDIO_serverX, 'f', 0);
        definitions += "<linearGradient id=\"s" + number + "\" gradientUnits=\"userSpaceOnUse\" x1=\"" + x +
                       "\" y1=\"" + number + "\" x2=\"0\" y2=\"" + number + "\"><stop offset=\"0\"" + stop +
                       "<stop offset=\"1\"" + stop + "</linearGradient>";
    }
    return definitions + "</defs>";
}

QByteArray DIO_FlatWriter::document()
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100\" height=\"100\" viewBox=\"0 0 100 100\">" +
           definitions() + _body + "</svg>";
}
