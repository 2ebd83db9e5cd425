// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PO_UnknownXml: the attributes and elements that an object found in its XML and did not understand, because a newer
// version wrote them. It keeps them and writes them back, so that saving a scene loses nothing.
#pragma once

#include "QuarvelPersistentObj/PO_XmlWriter.h"

#include <QDomElement>

#include <vector>

/// A piece of XML as a value: an element with its attributes and content, or a text where the name is empty.
struct PO_XmlPiece
{
    QString name;
    QString text;
    QMap<QString, QString> attributes;
    std::vector<PO_XmlPiece> content;

    friend bool operator==(const PO_XmlPiece&, const PO_XmlPiece&) = default;
};

/// What an object read without understanding it.
class QUARVELPERSISTENTOBJ_EXPORT PO_UnknownXml
{
public:
    friend bool operator==(const PO_UnknownXml&, const PO_UnknownXml&) = default;

    bool isEmpty() const { return _attributes.isEmpty() && _elements.empty(); }
    void clear();

    /// Keeps an attribute, with its value as it is in the file (escapes included).
    void addAttribute(const QString& name, const QString& escapedValue);
    /// Keeps an element with its whole content, except comments and processing instructions.
    void addElement(const QDomElement& element);

    /// Writes the kept attributes; to be called from the object's writeXmlAttributes().
    void writeAttributes(PO_XmlWriter& writer) const;
    /// Writes the kept elements, in the order in which they were read; to be called at the end of writeXmlSubnodes().
    void writeElements(PO_XmlWriter& writer) const;

private:
    QMap<QString, QString> _attributes;
    std::vector<PO_XmlPiece> _elements;
};
