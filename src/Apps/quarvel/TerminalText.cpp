// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Escapes what terminals would interpret.
#include "TerminalText.h"

#include "Terminal.h"

#include <algorithm>

namespace {

bool isControl(QChar c)
{
    return c.category() == QChar::Other_Control && c != u'\n' && c != u'\t';
}

bool changesDirection(QChar c)
{
    return c == u'\u061c' || c == u'\u200e' || c == u'\u200f' || (c >= u'\u2028' && c <= u'\u202e') ||
           (c >= u'\u2066' && c <= u'\u2069');
}

QString written(QChar c)
{
    const bool small = c.unicode() < 0x100;
    return (small ? QStringLiteral("\\x") : QStringLiteral("\\u")) +
           QString::number(c.unicode(), 16).rightJustified(small ? 2 : 4, u'0');
}

} // namespace

QString visibleText(const QString& text)
{
    const auto isObeyed = [](QChar c) { return isControl(c) || changesDirection(c); };
    if (std::none_of(text.begin(), text.end(), isObeyed))
        return text;
    QString result;
    for (const QChar c : text)
        result += isObeyed(c) ? written(c) : QString(c);
    return result;
}

void writeText(std::FILE* stream, const QString& text)
{
    const QString shown = stream == stderr || isTerminal(stream) ? visibleText(text) : text;
    std::fputs(shown.toUtf8().constData(), stream);
}
