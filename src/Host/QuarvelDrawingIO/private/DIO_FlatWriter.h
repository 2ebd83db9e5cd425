// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_FlatWriter: writes the elements of a flattened document, each with all its properties.
#pragma once

#include "QuarvelDrawingIO/private/DIO_SvgMarks.h"
#include "QuarvelDrawingIO/private/DIO_SvgPaintServers.h"

#include <QBuffer>
#include <QXmlStreamWriter>

#include <set>

class DIO_FlatWriter
{
public:
    explicit DIO_FlatWriter(DIO_SvgPaintServers& servers);

    /// How an element differs from what its style says.
    struct Extras
    {
        QString transform;
        double opacity = 1.0;
        bool fixedStrokeWidth = false; ///< the stroke's width is not transformed
    };

    void beginGroup(const QString& transform, double opacity = 1.0);
    void endGroup();
    void path(const QString& data, const DIO_SvgStyle& style, const Extras& extras);
    /// A path in the paint of a server.
    void serverPath(const QString& data, int server, const Extras& extras, bool evenOdd = false);
    /// A path that makes up a clip.
    void clipPath(const QString& data, bool evenOdd, const QString& transform);
    /// Clips what follows to a rectangle, until the mark CLIP_POP.
    void clipTo(const QRectF& rectangle);
    void beginText(double x, double y, const DIO_SvgStyle& style, const Extras& extras);
    void textRun(const QString& text, const DIO_SvgStyle& style);
    void endText();
    void mark(DIO_SvgMark::Command command, int argument = 0);

    qint64 size() const { return _buffer.size(); }
    int depth() const { return _depth; }

    /// The document with everything that was written.
    QByteArray document();

private:
    QString reference(int server);
    void beginElement(const QString& name, const Extras& extras);
    void attribute(const char* name, const QString& value) { _xml.writeAttribute(QLatin1String(name), value); }
    void attribute(const char* name, double value);
    void writeStyle(const DIO_SvgStyle& style);
    bool writePaint(const char* name, const DIO_SvgPaint& paint, double opacity);
    void writeStroke(const DIO_SvgStyle& style);
    void writeFont(const DIO_SvgStyle& style);
    QByteArray definitions() const;

    DIO_SvgPaintServers& _servers;
    std::set<int> _used; // servers: a drawing may have hundreds, and most documents are of one shape
    QByteArray _body;
    QBuffer _buffer;
    QXmlStreamWriter _xml;
    int _depth = 0;
};
