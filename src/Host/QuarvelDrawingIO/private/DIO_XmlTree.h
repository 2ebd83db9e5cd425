// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_XmlTree: the elements of an SVG file as a plain tree, read within limits.
//
// Kept are the elements of the root's own namespace and the attributes that this library understands. Attributes of
// other namespaces carry short names that do not depend on the file's prefixes: "inkscape:label", "ai:layer",
// "sketch:type", "xlink:href". Everything else is skipped while reading. External entities and
// document types are never loaded; internal entities are expanded up to a total size.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <utility>
#include <vector>

/// An element, or a piece of text between elements (then its name is empty and only its text counts).
struct DIO_XmlNode
{
    QString name;
    std::vector<std::pair<QString, QString>> attributes;
    std::vector<DIO_XmlNode> children;
    QString text;

    bool isText() const { return name.isEmpty(); }

    /// An attribute's value, a null string when it is not there.
    QString attribute(QLatin1String attributeName) const;

    /// What the element links to, trimmed; empty when it links to nothing.
    QString link() const;

    /// All text inside, in document order.
    QString textContent() const;
};

/// A whole file.
struct DIO_XmlTree
{
    DIO_XmlNode root;
    QHash<QString, const DIO_XmlNode*> byId; ///< the first element of each id

    DIO_XmlTree() = default;
    DIO_XmlTree(DIO_XmlTree&&) = default;
    DIO_XmlTree(const DIO_XmlTree&) = delete;
    ~DIO_XmlTree() = default;
    DIO_XmlTree& operator=(DIO_XmlTree&&) = delete;
    DIO_XmlTree& operator=(const DIO_XmlTree&) = delete;

    /// Fills byId. Call it when the tree will not be moved any more, since byId points into it.
    void index();

    /// The element that a "#id" names, or null.
    const DIO_XmlNode* find(QStringView reference) const;
};

/// Reads the tree of an SVG document.
///
/// @param path what messages call the file
UT_Result<DIO_XmlTree> DIO_readXmlTree(const QByteArray& data, const QString& path);
