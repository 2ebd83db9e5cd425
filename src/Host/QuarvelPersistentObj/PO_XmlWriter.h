// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PO_XmlWriter: writes XML whose bytes depend on nothing but what is written. Elements come out in the order in which
// they are started, indented by two spaces; the attributes of one element are sorted by name, so that an element that
// was read without being understood goes back into the file as it came. Encoding is UTF-8, lines end with a line feed.
#pragma once

#include "QuarvelPersistentObj/QuarvelPersistentObjExport.h"

#include <QMap>
#include <QString>
#include <QXmlStreamWriter>

#include <cstdint>
#include <optional>

/// Writes one XML document, or a piece of one.
///
/// Texts may hold any characters (see PO_XmlText.h); names of elements and attributes are the program's own and must be
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
    /// Writes what is still pending; elements that are open stay open.
    ~PO_XmlWriter();

    /// The XML declaration; before everything else, and only in documents.
    void startDocument();
    /// Ends the elements that are still open, and the last line.
    void endDocument();

    void startElement(const QString& name);
    /// Ends the element started last; one without content is written as <name/>.
    void endElement();

    /// Gives the element just started an attribute; to be called before its first subnode. A name given twice keeps the
    /// later value.
    void attribute(const QString& name, const QString& value);
    void attribute(const QString& name, const char* utf8);
    void attribute(const QString& name, bool value);
    void attribute(const QString& name, int value);
    void attribute(const QString& name, std::int64_t value);
    /// A number in the form of PO_formatDouble().
    void attribute(const QString& name, double value);

    /// A text inside of the current element. It survives even when it is made of white space alone.
    void text(const QString& value);

    /// An attribute, a text whose escapes stand in it already: what was read and is written back as it came.
    void escapedAttribute(const QString& name, const QString& value);
    void escapedText(const QString& value);

    /// True when the device refused something; what was written is then incomplete.
    bool hasError() const;

private:
    void writePending();

    QXmlStreamWriter _stream;
    std::optional<QString> _pendingName;
    QMap<QString, QString> _pendingAttributes;
};
