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
/// Bytes that are no well-formed XML are refused, and so are documents with a document type (the host's files have
/// none, so that no entity is ever expanded or fetched), elements nested deeper than 200 and elements with more than
/// 1000 attributes. Never reads anything but the bytes.
///
/// @param source where the bytes come from, for the error's text: "PATH, line N: reason"
/// @param maxParts the most elements and attributes, together, that the document may have: a tree takes a hundred times
/// the memory of the bytes when all it holds is "<a/>"
QUARVELPERSISTENTOBJ_EXPORT UT_Result<QDomDocument>
PO_parseDocument(const QByteArray& bytes, const QString& source, qint64 maxParts = std::numeric_limits<qint64>::max());

/// The text of an XML attribute; the fallback when the element has none of that name.
QUARVELPERSISTENTOBJ_EXPORT QString PO_attribute(const QDomElement& element, const QString& name,
                                                 const QString& fallback = QString());
/// The number in an XML attribute; nothing when it is missing or no number.
QUARVELPERSISTENTOBJ_EXPORT std::optional<double> PO_doubleAttribute(const QDomElement& element, const QString& name);
/// The integer in an XML attribute; nothing when it is missing or none.
QUARVELPERSISTENTOBJ_EXPORT std::optional<int> PO_intAttribute(const QDomElement& element, const QString& name);
/// The truth value in an XML attribute; nothing when it is missing or none.
QUARVELPERSISTENTOBJ_EXPORT std::optional<bool> PO_boolAttribute(const QDomElement& element, const QString& name);
/// The text that stands directly inside of an element.
QUARVELPERSISTENTOBJ_EXPORT QString PO_text(const QDomElement& element);
