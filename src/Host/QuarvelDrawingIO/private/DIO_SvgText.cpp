// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Splitting of texts into lines, and their white space.
#include "QuarvelDrawingIO/private/DIO_SvgText.h"

#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace {

class TextReader
{
public:
    TextReader(std::vector<const DIO_XmlNode*>& ancestry, const DIO_StyleSheet& sheet, const QSizeF& viewport)
        : _ancestry(ancestry), _sheet(sheet), _viewport(viewport)
    {}

    void readContent(const DIO_XmlNode& node, const DIO_SvgStyle& style, bool preserve)
    {
        place(node, style);
        const QString space = node.attribute(QLatin1String("xml:space"));
        preserve = space.isNull() ? preserve : space == u"preserve";
        for (const DIO_XmlNode& child : node.children) {
            if (child.isText())
                addRun(child.text, style, preserve);
            else if (child.name == u"tspan" || child.name == u"a" || child.name == u"textPath")
                readSpan(child, style, preserve);
        }
    }

    std::vector<DIO_TextLine> takeLines()
    {
        for (DIO_TextLine& line : _lines)
            if (!line.runs.empty() && line.runs.back().text.endsWith(u' '))
                line.runs.back().text.chop(1);
        std::erase_if(_lines, [](const DIO_TextLine& line) {
            return std::all_of(line.runs.begin(), line.runs.end(),
                               [](const DIO_TextRun& run) { return run.text.trimmed().isEmpty(); });
        });
        return std::move(_lines);
    }

private:
    void readSpan(const DIO_XmlNode& span, const DIO_SvgStyle& outer, bool preserve)
    {
        _ancestry.push_back(&span);
        const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
        if (properties.value(QStringLiteral("display")) != u"none")
            readContent(span, outer.inheritedBy(properties, std::hypot(_viewport.width(), _viewport.height())),
                        preserve);
        _ancestry.pop_back();
    }

    // Starts a line where the element says where it stands.
    void place(const DIO_XmlNode& node, const DIO_SvgStyle& style)
    {
        const auto length = [&](const char* name, double percentOf) {
            return DIO_readLength(node.attribute(QLatin1String(name)), {percentOf, style.fontSize});
        };
        const std::optional<double> x = length("x", _viewport.width());
        const std::optional<double> y = length("y", _viewport.height());
        const double dx = length("dx", _viewport.width()).value_or(0.0);
        const double dy = length("dy", _viewport.height()).value_or(0.0);
        if (!_lines.empty() && !x && !y)
            return;
        DIO_TextLine line;
        line.x = x.value_or(_lines.empty() ? 0.0 : _lines.back().x) + dx;
        line.y = y.value_or(_lines.empty() ? 0.0 : _lines.back().y) + dy;
        _lines.push_back(line);
    }

    void addRun(QString text, const DIO_SvgStyle& style, bool preserve)
    {
        static const QRegularExpression breaks(QStringLiteral("[\\r\\n\\t]"));
        static const QRegularExpression spaces(QStringLiteral(" {2,}"));
        DIO_TextLine& line = _lines.back();
        text.replace(breaks, QStringLiteral(" "));
        if (!preserve) {
            text.replace(spaces, QStringLiteral(" "));
            if (text.startsWith(u' ') && (line.runs.empty() || line.runs.back().text.endsWith(u' ')))
                text.remove(0, 1);
        }
        if (!text.isEmpty() && style.visible)
            line.runs.push_back({text, style});
    }

    std::vector<const DIO_XmlNode*>& _ancestry;
    const DIO_StyleSheet& _sheet;
    QSizeF _viewport;
    std::vector<DIO_TextLine> _lines;
};

} // namespace

std::vector<DIO_TextLine> DIO_readTextLines(const DIO_XmlNode& text, const DIO_SvgStyle& style,
                                            std::vector<const DIO_XmlNode*>& ancestry, const DIO_StyleSheet& sheet,
                                            const QSizeF& viewport)
{
    TextReader reader(ancestry, sheet, viewport);
    reader.readContent(text, style, false);
    return reader.takeLines();
}
