// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The escape, one UTF-16 code unit after the other.
//
// An underscore is escaped when "xHHHH" follows it, with or without an underscore at the end: the next character may be
// escaped, and its escape begins with an underscore.
#include "QuarvelPersistentObj/private/XmlCharacters.h"

#include <algorithm>

namespace {

constexpr qsizetype kEscapeLength = 7; // _xHHHH_
constexpr qsizetype kDigits = 4;

bool isUpperHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F');
}

// True when the text continues with _xHHHH at this position.
bool beginsEscape(QStringView text, qsizetype at)
{
    if (text.size() - at < kEscapeLength - 1 || text[at] != u'_' || text[at + 1] != u'x')
        return false;
    const QStringView digits = text.sliced(at + 2, kDigits);
    return std::all_of(digits.begin(), digits.end(), isUpperHexDigit);
}

bool isEscape(QStringView text, qsizetype at)
{
    return text.size() - at >= kEscapeLength && beginsEscape(text, at) && text[at + kEscapeLength - 1] == u'_';
}

// True for a code unit that XML can hold and readers keep unchanged, surrogates not considered.
bool isPlain(QChar c)
{
    return c == u'\t' || c == u'\n' || (c >= u' ' && c != QChar(0xfffe) && c != QChar(0xffff));
}

// Whether a text is plain everywhere and has no underscore, as coordinates are.
bool needsNoEscape(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return isPlain(c) && !c.isSurrogate() && c != u'_'; });
}

bool isPair(QStringView text, qsizetype at)
{
    return at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
}

} // namespace

QString XmlCharacters::escapeOf(QChar c)
{
    return QStringLiteral("_x%1_").arg(QString::number(c.unicode(), 16).toUpper(), kDigits, QLatin1Char('0'));
}

QString XmlCharacters::escape(const QString& text, Underscores underscores)
{
    if (needsNoEscape(text))
        return text;
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (isPair(text, i)) {
            result += c;
            result += text[++i];
        } else if (c.isSurrogate() || !isPlain(c) || (underscores == Underscores::ESCAPED && beginsEscape(text, i))) {
            result += escapeOf(c);
        } else {
            result += c;
        }
    }
    return result;
}

QString XmlCharacters::unescape(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isEscape(text, i)) {
            result += QChar(text.mid(i + 2, kDigits).toUShort(nullptr, 16));
            i += kEscapeLength - 1;
        } else {
            result += text[i];
        }
    }
    return result;
}
