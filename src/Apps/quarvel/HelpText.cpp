// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Blocks are told apart by how their lines are indented.
#include "HelpText.h"

#include <QRegularExpression>

namespace {

constexpr qsizetype kDeepestEntry = 6; // blanks before a long option that has no short name

qsizetype indentOf(const QString& line)
{
    qsizetype blanks = 0;
    while (blanks < line.size() && line[blanks] == QLatin1Char(' '))
        ++blanks;
    return blanks;
}

QRegularExpressionMatchIterator namesIn(const QString& term)
{
    static const QRegularExpression name(QStringLiteral("(?<![\\w-])--?[a-z][a-z-]*"));
    return name.globalMatch(term);
}

// The line in which an entry begins: its term, and behind two blanks its explanation.
HelpEntry firstLineOfEntry(const QString& line)
{
    static const QRegularExpression gap(QStringLiteral(" {2,}"));
    const QString trimmed = line.trimmed();
    const qsizetype end = trimmed.indexOf(gap);
    if (end < 0)
        return {trimmed, {}};
    return {trimmed.left(end), {trimmed.mid(end).trimmed()}};
}

void readIndented(const QStringList& lines, HelpBlock& block)
{
    if (lines.first().trimmed().startsWith(QLatin1String("quarvel "))) {
        for (const QString& line : lines)
            block.commandLines << line.mid(2);
        return;
    }
    for (const QString& line : lines)
        if (indentOf(line) <= kDeepestEntry || block.entries.empty())
            block.entries.push_back(firstLineOfEntry(line));
        else
            block.entries.back().text << line.trimmed();
}

HelpBlock readBlock(const QStringList& lines)
{
    HelpBlock block;
    const bool indented = indentOf(lines.first()) > 0;
    const bool hasHeading = !indented && lines.size() > 1 && indentOf(lines[1]) > 0;
    if (hasHeading)
        block.heading = lines.first();
    if (indented || hasHeading)
        readIndented(lines.sliced(hasHeading ? 1 : 0), block);
    else
        block.paragraph = lines.join(QLatin1Char(' '));
    return block;
}

} // namespace

QString CommandHelp::purpose() const
{
    return text.section(QLatin1Char('\n'), 0, 0).section(QStringLiteral(" - "), 1);
}

QStringList HelpEntry::optionNames() const
{
    QStringList names;
    if (isOption())
        for (auto found = namesIn(term); found.hasNext();)
            names << found.next().captured();
    return names;
}

QString HelpEntry::optionValue() const
{
    qsizetype end = 0;
    for (auto found = namesIn(term); found.hasNext();)
        end = found.next().capturedEnd();
    return isOption() ? term.mid(end).trimmed() : QString();
}

std::vector<HelpBlock> readHelpText(const QString& text)
{
    std::vector<HelpBlock> blocks;
    QStringList lines;
    const QStringList all = text.split(QLatin1Char('\n')).sliced(1) << QString();
    for (const QString& line : all) {
        if (!line.isEmpty()) {
            lines << line;
            continue;
        }
        if (!lines.isEmpty())
            blocks.push_back(readBlock(lines));
        lines.clear();
    }
    return blocks;
}
