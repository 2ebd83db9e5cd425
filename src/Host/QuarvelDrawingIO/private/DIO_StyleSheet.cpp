// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reading and matching of style sheets. Rules are found by one key of their last compound, so that a drawing with a
// class for every element does not compare every rule with every element.
#include "QuarvelDrawingIO/private/DIO_StyleSheet.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

// About as many letters as are searched for a class in the time of another comparison.
constexpr qsizetype kLettersAtOnce = 64;
// What a rule takes in memory; 200,000 rules are possible.
constexpr qint64 kWorkOfRule = 100;

QString withoutComments(QString text)
{
    static const QRegularExpression comment(QStringLiteral("/\\*.*?(\\*/|$)"),
                                            QRegularExpression::DotMatchesEverythingOption);
    text.remove(comment);
    text.remove(QStringLiteral("<!--"));
    text.remove(QStringLiteral("-->"));
    return text;
}

// Where the block that opens at `open` closes, or the text's end.
qsizetype endOfBlock(QStringView text, qsizetype open)
{
    int depth = 0;
    for (qsizetype i = open; i < text.size(); ++i) {
        if (text[i] == u'{')
            ++depth;
        else if (text[i] == u'}' && --depth == 0)
            return i;
    }
    return text.size();
}

// Splits at separators outside quotes and parentheses, since a data URL holds semicolons.
std::vector<QStringView> splitDeclarations(QStringView text)
{
    std::vector<QStringView> parts;
    QChar quote;
    int depth = 0;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (!quote.isNull())
            quote = c == quote ? QChar() : quote;
        else if (c == u'"' || c == u'\'')
            quote = c;
        else if (c == u'(')
            ++depth;
        else if (c == u')')
            depth = std::max(0, depth - 1);
        else if (c == u';' && depth == 0) {
            parts.push_back(text.mid(start, i - start));
            start = i + 1;
        }
    }
    parts.push_back(text.mid(start));
    return parts;
}

bool hasClass(QStringView classes, QStringView wanted)
{
    for (qsizetype at = classes.indexOf(wanted); at >= 0; at = classes.indexOf(wanted, at + 1)) {
        const qsizetype end = at + wanted.size();
        if ((at == 0 || classes[at - 1].isSpace()) && (end == classes.size() || classes[end].isSpace()))
            return true;
    }
    return false;
}

QStringList classesOf(const DIO_XmlNode& node)
{
    return node.attribute(QLatin1String("class")).simplified().split(u' ', Qt::SkipEmptyParts);
}

} // namespace

std::vector<DIO_Declaration> DIO_readDeclarations(QStringView text)
{
    std::vector<DIO_Declaration> declarations;
    for (const QStringView part : splitDeclarations(text)) {
        const qsizetype colon = part.indexOf(u':');
        if (colon <= 0)
            continue;
        DIO_Declaration declaration;
        declaration.property = part.left(colon).trimmed().toString().toLower();
        declaration.value = part.mid(colon + 1).trimmed().toString();
        if (const qsizetype mark = declaration.value.lastIndexOf(u'!');
            mark >= 0 && QStringView(declaration.value).mid(mark + 1).trimmed() == u"important") {
            declaration.important = true;
            declaration.value = declaration.value.left(mark).trimmed();
        }
        declarations.push_back(std::move(declaration));
    }
    return declarations;
}

void DIO_StyleSheet::add(const QString& styleText)
{
    const QString all = withoutComments(styleText);
    const QStringView text(all);
    qsizetype position = 0;
    // No search goes beyond the next rule, since there may be a million of them.
    while (position < text.size() && !exhausted()) {
        const qsizetype open = text.indexOf(u'{', position);
        const QStringView beforeBlock = text.mid(position, open < 0 ? -1 : open - position);
        const bool atRule = beforeBlock.trimmed().startsWith(u'@');
        const qsizetype semicolon = atRule ? beforeBlock.indexOf(u';') : -1;
        if (semicolon >= 0) {
            position += semicolon + 1;
            continue;
        }
        if (open < 0)
            return;
        const qsizetype close = endOfBlock(text, open);
        if (!atRule)
            addRule(text.mid(position, open - position), text.mid(open + 1, close - open - 1));
        position = close + 1;
    }
}

void DIO_StyleSheet::addRule(QStringView selectors, QStringView block)
{
    _blocks.push_back(DIO_readDeclarations(block));
    for (const QStringView selector : selectors.split(u',')) {
        _workLeft -= kWorkOfRule;
        if (exhausted())
            return;
        Rule rule;
        rule.block = _blocks.size() - 1;
        if (!readSelector(selector.trimmed(), rule))
            continue;
        const Compound& last = rule.selector.back();
        QString key = last.type.isEmpty() ? QStringLiteral("*") : last.type;
        if (!last.id.isEmpty())
            key = u'#' + last.id;
        else if (!last.classes.isEmpty())
            key = u'.' + last.classes.front();
        _byKey.insert(key, _rules.size());
        _rules.push_back(std::move(rule));
    }
}

bool DIO_StyleSheet::readSelector(QStringView text, Rule& rule)
{
    const QString spaced = text.toString().replace(QStringLiteral(">"), QStringLiteral(" > ")).simplified();
    bool child = false;
    for (const QStringView word : QStringView(spaced).split(u' ', Qt::SkipEmptyParts)) {
        if (word == u">") {
            child = true;
            continue;
        }
        Compound compound;
        if (!readCompound(word, compound))
            return false;
        compound.child = std::exchange(child, false);
        rule.specificity += (compound.id.isEmpty() ? 0 : 1'000'000) + 1000 * static_cast<int>(compound.classes.size()) +
                            (compound.type.isEmpty() ? 0 : 1);
        rule.selector.push_back(std::move(compound));
    }
    return !rule.selector.empty() && !child;
}

bool DIO_StyleSheet::readCompound(QStringView text, Compound& compound)
{
    static const QRegularExpression part(QStringLiteral("\\G([.#]?)([\\w\\-\\x{80}-\\x{10FFFF}]+|\\*)"));
    qsizetype position = 0;
    while (position < text.size()) {
        const QRegularExpressionMatch match = part.match(text, position);
        if (!match.hasMatch())
            return false;
        const QString name = match.captured(2);
        if (match.captured(1) == u".")
            compound.classes.append(name);
        else if (match.captured(1) == u"#")
            compound.id = name;
        else if (position > 0)
            return false;
        else if (name != u"*")
            compound.type = name;
        position = match.capturedEnd();
    }
    return true;
}

bool DIO_StyleSheet::matches(const Rule& rule, std::span<const DIO_XmlNode* const> ancestry) const
{
    const auto fits = [&](const Compound& compound, const DIO_XmlNode& node) {
        --_workLeft;
        if (!compound.type.isEmpty() && compound.type != node.name)
            return false;
        if (!compound.id.isEmpty() && compound.id != node.attribute(QLatin1String("id")))
            return false;
        if (compound.classes.isEmpty())
            return true;
        const QString classes = node.attribute(QLatin1String("class"));
        _workLeft -= compound.classes.size() * classes.size() / kLettersAtOnce;
        return std::all_of(compound.classes.begin(), compound.classes.end(),
                           [&](const QString& wanted) { return hasClass(classes, wanted); });
    };
    // Each ancestor selector takes the nearest ancestor that matches. That misses a match only for "a > b c" with
    // nested b's.
    std::size_t node = ancestry.size();
    for (std::size_t i = rule.selector.size(); i-- > 0;) {
        const bool exactly = i + 1 == rule.selector.size() || rule.selector[i + 1].child;
        if (node == 0)
            return false;
        --node;
        while (!fits(rule.selector[i], *ancestry[node])) {
            if (exactly || node == 0)
                return false;
            --node;
        }
    }
    return true;
}

std::vector<DIO_Declaration> DIO_StyleSheet::declarationsFor(std::span<const DIO_XmlNode* const> ancestry) const
{
    std::vector<DIO_Declaration> result;
    if (_rules.empty())
        return result;
    const DIO_XmlNode& node = *ancestry.back();
    QStringList keys{QStringLiteral("*"), node.name, u'#' + node.attribute(QLatin1String("id"))};
    for (const QString& name : classesOf(node))
        keys.append(u'.' + name);
    keys.removeDuplicates();

    std::vector<std::size_t> found;
    for (const QString& key : keys)
        for (auto [rule, end] = _byKey.equal_range(key); rule != end && !exhausted(); ++rule)
            if (matches(_rules[*rule], ancestry))
                found.push_back(*rule);
    std::sort(found.begin(), found.end(), [&](std::size_t a, std::size_t b) {
        return std::pair(_rules[a].specificity, a) < std::pair(_rules[b].specificity, b);
    });
    for (const std::size_t rule : found) {
        const std::vector<DIO_Declaration>& block = _blocks[_rules[rule].block];
        _workLeft -= static_cast<qint64>(block.size());
        if (exhausted())
            break;
        result.insert(result.end(), block.begin(), block.end());
    }
    return result;
}
