// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The writer delays the start of an element until its first subnode or its end, to sort the attributes.
#include "QuarvelPersistentObj/PO_XmlWriter.h"

#include "QuarvelPersistentObj/PO_XmlText.h"
#include "QuarvelPersistentObj/private/XmlCharacters.h"

#include <algorithm>
#include <cassert>

namespace {

constexpr int kIndent = 2;

} // namespace

PO_XmlWriter::PO_XmlWriter(QIODevice& device) : _stream(&device)
{
    _stream.setAutoFormatting(true);
    _stream.setAutoFormattingIndent(kIndent);
}

PO_XmlWriter::PO_XmlWriter(QString& text) : _stream(&text)
{
    _stream.setAutoFormatting(true);
    _stream.setAutoFormattingIndent(kIndent);
}

PO_XmlWriter::~PO_XmlWriter()
{
    writePending();
}

void PO_XmlWriter::startDocument()
{
    _stream.writeStartDocument();
}

void PO_XmlWriter::endDocument()
{
    writePending();
    _stream.writeEndDocument();
}

void PO_XmlWriter::startElement(const QString& name)
{
    writePending();
    _pendingName = name;
}

void PO_XmlWriter::endElement()
{
    writePending();
    _stream.writeEndElement();
}

void PO_XmlWriter::attribute(const QString& name, const QString& value)
{
    assert(_pendingName);
    _pendingAttributes.insert(name, PO_escape(value));
}

void PO_XmlWriter::attribute(const QString& name, const char* utf8)
{
    attribute(name, QString::fromUtf8(utf8));
}

void PO_XmlWriter::attribute(const QString& name, bool value)
{
    attribute(name, PO_formatBool(value));
}

void PO_XmlWriter::attribute(const QString& name, int value)
{
    attribute(name, QString::number(value));
}

void PO_XmlWriter::attribute(const QString& name, std::int64_t value)
{
    attribute(name, QString::number(value));
}

void PO_XmlWriter::attribute(const QString& name, double value)
{
    attribute(name, PO_formatDouble(value));
}

void PO_XmlWriter::text(const QString& value)
{
    if (value.isEmpty())
        return;
    // Readers drop a text that is only white space (of any kind in Unicode), so its first character is escaped.
    const bool blank = std::all_of(value.begin(), value.end(), [](QChar c) { return c.isSpace(); });
    escapedText(blank ? XmlCharacters::escapeOf(value[0]) + PO_escape(value.mid(1)) : PO_escape(value));
}

void PO_XmlWriter::escapedAttribute(const QString& name, const QString& value)
{
    assert(_pendingName);
    _pendingAttributes.insert(name, XmlCharacters::escape(value, XmlCharacters::Underscores::KEPT));
}

void PO_XmlWriter::escapedText(const QString& value)
{
    writePending();
    _stream.writeCharacters(XmlCharacters::escape(value, XmlCharacters::Underscores::KEPT));
}

bool PO_XmlWriter::hasError() const
{
    return _stream.hasError();
}

void PO_XmlWriter::writePending()
{
    if (!_pendingName)
        return;
    _stream.writeStartElement(*_pendingName);
    for (auto it = _pendingAttributes.cbegin(); it != _pendingAttributes.cend(); ++it)
        _stream.writeAttribute(it.key(), it.value());
    _pendingName.reset();
    _pendingAttributes.clear();
}
