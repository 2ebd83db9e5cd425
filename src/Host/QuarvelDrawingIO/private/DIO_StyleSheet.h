// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_StyleSheet: the style sheets of an SVG file, and which properties they give to an element.
//
// Understood are the selectors that drawing programs write: types, classes, ids and *, combined on one element and by
// descent ("g .a") or parenthood ("g > .a"). Rules with other selectors, and at-rules (imports, fonts, media), have no
// effect, so nothing outside the file is ever read.
#pragma once

#include "QuarvelDrawingIO/private/DIO_XmlTree.h"

#include <QMultiHash>
#include <QStringList>

#include <span>
#include <vector>

/// A property and its value, as written.
struct DIO_Declaration
{
    QString property;
    QString value;
    bool important = false;
};

/// Reads "property: value; property: value".
std::vector<DIO_Declaration> DIO_readDeclarations(QStringView text);

class DIO_StyleSheet
{
public:
    /// Adds the rules of a <style> element's text after those that are there.
    void add(const QString& text);

    /// The declarations for an element, weakest first.
    ///
    /// @param ancestry the element's ancestors from the root down, and the element itself last
    std::vector<DIO_Declaration> declarationsFor(std::span<const DIO_XmlNode* const> ancestry) const;

    /// True when matching took more work than any honest drawing needs; from then on no rule matches.
    bool exhausted() const { return _workLeft <= 0; }

private:
    struct Compound
    {
        QString type;
        QString id;
        QStringList classes;
        bool child = false; ///< the compound before it must match the parent, not just any ancestor
    };
    struct Rule
    {
        std::vector<Compound> selector;
        int specificity = 0;
        std::size_t block = 0;
    };

    void addRule(QStringView selectors, QStringView block);
    static bool readSelector(QStringView text, Rule& rule);
    static bool readCompound(QStringView text, Compound& compound);
    bool matches(const Rule& rule, std::span<const DIO_XmlNode* const> ancestry) const;

    std::vector<std::vector<DIO_Declaration>> _blocks;
    std::vector<Rule> _rules;
    QMultiHash<QString, std::size_t> _byKey; ///< rules by "#id", ".class", type or "*" of the selector's last compound
    mutable qint64 _workLeft = 20'000'000;
};
