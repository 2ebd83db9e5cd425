// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PO_XmlWriter: writes XML whose bytes depend only on what is written. Elements come out in the order in which they are
// started, indented by two spaces; the attributes of one element are sorted by name, so that an unknown element that
// was read is written back unchanged. Encoding is UTF-8, lines end with a line feed.
#pragma once

#include "QuarvelPersistentObj/QuarvelPersistentObjExport.h"

#include <QMap>
#include <QString>
#include <QXmlStreamWriter>

#include <cstdint>
#include <optional>

/// Writes one XML document, or a piece of one.
///
/// Texts may hold any characters (see PO_XmlText.h); names of elements and attributes come from the program and must be
/// valid XML names. Not thread-safe: one writer, one thread.
class QUARVELPERSISTENTOBJ_EXPORT PO_XmlWriter
{
public:
    /// Writes to a device that is open for writing and outlives the writer.
    explicit PO_XmlWriter(QIODevice& device);
    /// Appends to a text that outlives the writer.
    explicit PO_XmlWriter(QString& text);
    PO_XmlWriter(const PO_XmlWriter&) = delete;
    PO_XmlWriter& operator=(const PO_XmlWriter&) = delete;
    /// Writes pending output; open elements stay open.
    ~PO_XmlWriter();

    /// Writes the XML declaration: first of all, and only in documents.
    void startDocument();
    /// Ends the open elements and the last line.
    void endDocument();

    void startElement(const QString& name);
    /// Ends the element started last; one without content is written as <name/>.
    void endElement();

    /// Adds an attribute to the element just started; to be called before its first subnode. The later value of a
    /// repeated name counts.
    void attribute(const QString& name, const QString& value);
    void attribute(const QString& name, const char* utf8);
    void attribute(const QString& name, bool value);
    void attribute(const QString& name, int value);
    void attribute(const QString& name, std::int64_t value);
    /// An attribute with a number in the form of PO_formatDouble().
    void attribute(const QString& name, double value);

    /// A text inside the current element. It is read back even when it is only white space.
    void text(const QString& value);

    /// An attribute whose value is escaped already, to write back what was read.
    void escapedAttribute(const QString& name, const QString& value);
    void escapedText(const QString& value);

    /// True when the device reported an error; the output is then incomplete.
    bool hasError() const;

private:
    void writePending();

    QXmlStreamWriter _stream;
    std::optional<QString> _pendingName;
    QMap<QString, QString> _pendingAttributes;
};
