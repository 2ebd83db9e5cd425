// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reading of documents. The bytes are first run through a stream reader, which needs no memory for what it reads: it
// finds the errors and their lines, and keeps documents away from the tree that would expand entities or nest without
// end.
#include "QuarvelPersistentObj/PO_XmlReading.h"

#include "QuarvelPersistentObj/PO_XmlText.h"

#include <QCoreApplication>
#include <QXmlStreamReader>

namespace {

constexpr int kDeepest = 200;

QString translated(const char* text)
{
    return QCoreApplication::translate("PO_XmlReading", text);
}

// What is wrong with the document; empty when it may be read. The reader stands where the error is.
QString findError(QXmlStreamReader& reader)
{
    int depth = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::DTD:
            return translated("a document type is not allowed here");
        case QXmlStreamReader::StartElement:
            if (++depth > kDeepest)
                return translated("elements are nested too deeply");
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        default:
            break;
        }
    }
    return reader.hasError() ? reader.errorString() : QString();
}

UT_Error errorAt(const QString& source, qint64 line, const QString& reason)
{
    return {translated("%1, line %2: %3").arg(source).arg(line).arg(reason)};
}

} // namespace

UT_Result<QDomDocument> PO_parseDocument(const QByteArray& bytes, const QString& source)
{
    QXmlStreamReader reader(bytes);
    reader.setNamespaceProcessing(false);
    const QString error = findError(reader);
    if (!error.isEmpty())
        return errorAt(source, reader.lineNumber(), error);
    QDomDocument document;
    QString reason;
    int line = 0;
    if (!document.setContent(bytes, false, &reason, &line))
        return errorAt(source, line, reason);
    return document;
}

QString PO_attribute(const QDomElement& element, const QString& name, const QString& fallback)
{
    return element.hasAttribute(name) ? PO_unescape(element.attribute(name)) : fallback;
}

std::optional<double> PO_doubleAttribute(const QDomElement& element, const QString& name)
{
    return PO_parseDouble(element.attribute(name));
}

std::optional<int> PO_intAttribute(const QDomElement& element, const QString& name)
{
    return PO_parseInt(element.attribute(name));
}

std::optional<bool> PO_boolAttribute(const QDomElement& element, const QString& name)
{
    return PO_parseBool(element.attribute(name));
}

QString PO_text(const QDomElement& element)
{
    QString text;
    for (QDomNode node = element.firstChild(); !node.isNull(); node = node.nextSibling())
        if (node.isText() || node.isCDATASection())
            text += node.nodeValue();
    return PO_unescape(text);
}
