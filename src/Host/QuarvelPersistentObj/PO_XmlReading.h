// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reading of the host's XML: a document from untrusted bytes, and the texts and numbers of its elements. Texts come
// back with the escapes of PO_XmlText.h resolved.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelPersistentObj/QuarvelPersistentObjExport.h"

#include <QByteArray>
#include <QDomDocument>

#include <limits>
#include <optional>

/// Parses a document.
///
/// Refuses bytes that are not well-formed XML, documents with a document type (the host's files have none, so no entity
/// is ever expanded or fetched), elements nested deeper than 200, and elements with more than 1000 attributes. Reads
/// nothing but the bytes.
///
/// @param source where the bytes come from, for the error's text: "PATH, line N: reason"
/// @param maxParts the most elements and attributes, together, that the document may have: the tree of a file made of
/// "<a/>" takes a hundred times the memory of its bytes
QUARVELPERSISTENTOBJ_EXPORT UT_Result<QDomDocument>
PO_parseDocument(const QByteArray& bytes, const QString& source, qint64 maxParts = std::numeric_limits<qint64>::max());

/// The text of an XML attribute; the fallback when the element does not have it.
QUARVELPERSISTENTOBJ_EXPORT QString PO_attribute(const QDomElement& element, const QString& name,
                                                 const QString& fallback = QString());
/// The number in an XML attribute; nothing when it is missing or not a number.
QUARVELPERSISTENTOBJ_EXPORT std::optional<double> PO_doubleAttribute(const QDomElement& element, const QString& name);
/// The integer in an XML attribute; nothing when it is missing or not an integer.
QUARVELPERSISTENTOBJ_EXPORT std::optional<int> PO_intAttribute(const QDomElement& element, const QString& name);
/// The truth value in an XML attribute; nothing when it is missing or not a truth value.
QUARVELPERSISTENTOBJ_EXPORT std::optional<bool> PO_boolAttribute(const QDomElement& element, const QString& name);
/// The text directly inside an element, without that of its children.
QUARVELPERSISTENTOBJ_EXPORT QString PO_text(const QDomElement& element);
