// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Unknown XML as values, independent of the document it was read from.
#include "QuarvelPersistentObj/PO_UnknownXml.h"

namespace {

PO_XmlPiece pieceOf(const QDomElement& element)
{
    PO_XmlPiece piece;
    piece.name = element.tagName();
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i)
        piece.attributes.insert(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
    for (QDomNode node = element.firstChild(); !node.isNull(); node = node.nextSibling()) {
        if (node.isElement())
            piece.content.push_back(pieceOf(node.toElement()));
        else if (node.isText() || node.isCDATASection())
            piece.content.push_back({QString(), node.nodeValue(), {}, {}});
    }
    return piece;
}

void writePiece(PO_XmlWriter& writer, const PO_XmlPiece& piece)
{
    if (piece.name.isEmpty()) {
        writer.escapedText(piece.text);
        return;
    }
    writer.startElement(piece.name);
    for (auto it = piece.attributes.cbegin(); it != piece.attributes.cend(); ++it)
        writer.escapedAttribute(it.key(), it.value());
    for (const PO_XmlPiece& inner : piece.content)
        writePiece(writer, inner);
    writer.endElement();
}

} // namespace

void PO_UnknownXml::clear()
{
    _attributes.clear();
    _elements.clear();
}

void PO_UnknownXml::addAttribute(const QString& name, const QString& escapedValue)
{
    _attributes.insert(name, escapedValue);
}

void PO_UnknownXml::addElement(const QDomElement& element)
{
    _elements.push_back(pieceOf(element));
}

void PO_UnknownXml::writeAttributes(PO_XmlWriter& writer) const
{
    for (auto it = _attributes.cbegin(); it != _attributes.cend(); ++it)
        writer.escapedAttribute(it.key(), it.value());
}

void PO_UnknownXml::writeElements(PO_XmlWriter& writer) const
{
    for (const PO_XmlPiece& piece : _elements)
        writePiece(writer, piece);
}
