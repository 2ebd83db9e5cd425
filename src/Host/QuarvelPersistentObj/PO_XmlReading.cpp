// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reading documents. A stream reader, which builds no tree, runs over the bytes first: it finds errors and their lines,
// and refuses documents whose tree would expand entities or nest without limit.
#include "QuarvelPersistentObj/PO_XmlReading.h"

#include "QuarvelPersistentObj/PO_XmlText.h"

#include <QCoreApplication>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>

namespace {

constexpr int kDeepest = 200;
constexpr int kMostAttributes = 1000;

QString translated(const char* text)
{
    return QCoreApplication::translate("PO_XmlReading", text);
}

// The offset of the end of a comment, a CDATA section or a processing instruction. For an element, the offset given;
// the end of the bytes for markup that never ends and for a document type, which is refused later.
qsizetype afterMarkup(const QByteArray& bytes, qsizetype bracket)
{
    constexpr std::array<std::pair<const char*, const char*>, 4> kKinds = {
        {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}, {"<!", ""}}};
    for (const auto& [begin, end] : kKinds) {
        if (!QByteArrayView(bytes).sliced(bracket).startsWith(begin))
            continue;
        const qsizetype last = *end ? bytes.indexOf(end, bracket + qstrlen(begin)) : -1;
        return last < 0 ? bytes.size() : last;
    }
    return bracket;
}

// Counts the attributes of the element whose bracket precedes the offset, and moves the offset to its end.
int countAttributes(const QByteArray& bytes, qsizetype& offset)
{
    int attributes = 0;
    for (char quote = 0; offset < bytes.size(); ++offset) {
        const char c = bytes.at(offset);
        if (quote != 0)
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '=')
            ++attributes;
        else if (c == '>')
            break;
    }
    return attributes;
}

// The offset of an element with too many attributes; nothing when there is none. The stream reader compares each
// attribute of an element with all others, so a million of them would keep it busy for hours.
std::optional<qsizetype> findTooManyAttributes(const QByteArray& bytes)
{
    for (qsizetype offset = bytes.indexOf('<'); offset >= 0; offset = bytes.indexOf('<', offset)) {
        const qsizetype bracket = offset;
        offset = afterMarkup(bytes, bracket);
        if (offset == bracket && countAttributes(bytes, ++offset) > kMostAttributes)
            return bracket;
    }
    return std::nullopt;
}

// What is wrong with the document; empty when it may be read. The reader stays at the error.
QString findError(QXmlStreamReader& reader, qint64 maxParts)
{
    int depth = 0;
    qint64 parts = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::DTD:
            return translated("a document type is not allowed here");
        case QXmlStreamReader::StartElement:
            if (++depth > kDeepest)
                return translated("elements are nested too deeply");
            parts += 1 + reader.attributes().size();
            if (parts > maxParts)
                return translated("there are more than %1 elements and attributes").arg(maxParts);
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
    return {translated("%1, line %2: %3").arg(source, QString::number(line), reason)};
}

qint64 lineAt(const QByteArray& bytes, qsizetype offset)
{
    return 1 + std::count(bytes.begin(), bytes.begin() + offset, '\n');
}

} // namespace

UT_Result<QDomDocument> PO_parseDocument(const QByteArray& bytes, const QString& source, qint64 maxParts)
{
    // Encodings with zero bytes are not the host's, and would hide brackets from the search below.
    if (const qsizetype zero = bytes.indexOf('\0'); zero >= 0)
        return errorAt(source, lineAt(bytes, zero), translated("a byte is zero"));
    if (const auto where = findTooManyAttributes(bytes))
        return errorAt(source, lineAt(bytes, *where),
                       translated("an element has more than %1 attributes").arg(kMostAttributes));
    QXmlStreamReader reader(bytes);
    reader.setNamespaceProcessing(false);
    const QString error = findError(reader, maxParts);
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
