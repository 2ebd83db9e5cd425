// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_SvgPaintServers: the gradients, patterns and pictures that areas of an SVG file are painted with. Gradients and
// patterns are brought down to their average colour.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "QuarvelDrawingIO/private/DIO_GradientFade.h"
#include "QuarvelDrawingIO/private/DIO_SvgStyle.h"

#include <QBrush>
#include <QImage>
#include <QSet>

#include <functional>
#include <map>
#include <optional>
#include <tuple>

/// A paint server in use.
struct DIO_PaintServer
{
    DIO_Paint paint;
    double opacity = 1.0; ///< the average of its colours' opacities; 1 of a picture, whose pixels have their own
    QImage picture = {};  ///< what a picture shows, stretched over the rectangle that it paints; else null
};

class DIO_SvgPaintServers
{
public:
    DIO_SvgPaintServers(const DIO_XmlTree& tree, const DIO_StyleSheet& sheet) : _tree(tree), _sheet(sheet) {}

    /// The server that "#id" names, or -1 when it paints nothing.
    int find(const QString& reference);

    /// The pattern that "#id" names; null when it names none.
    const DIO_XmlNode* patternCalled(const QString& reference) const;

    /// Whether one of a pattern's tile and its content is a part of the box of what it paints while the other is not,
    /// so that each box has an average of its own.
    bool dependsOnBox(const DIO_XmlNode& pattern) const;

    /// The server that such a pattern is for a shape with a box of this size, or -1 when it paints nothing.
    int findFor(const QString& reference, const QSizeF& box);

    /// The server that paints with the same paint, but opaque.
    int opaqueTwinOf(int server);

    /// How the opacity of the gradient that "#id" names runs; none when "#id" names no gradient, when it does not fade,
    /// or when it repeats.
    ///
    /// @param viewport what percentages are relative to
    std::optional<DIO_GradientFade> fadeOf(const QString& reference, const QSizeF& viewport) const;

    /// The server that stands for an embedded picture.
    int addPicture(const DIO_XmlNode& image, const QImage& picture);

    /// Gives the average colour of a pattern's tile, its gaps included, where the box of what it paints has this size;
    /// an empty box stands for the page. Gives nothing when it paints nothing.
    using PatternAverage = std::function<std::optional<QColor>(const DIO_XmlNode& pattern, const QSizeF& box)>;
    void setPatternAverage(PatternAverage average) { _patternAverage = std::move(average); }

    /// The first of a server and those that it links to, in turn, for which a condition holds; null when there is none.
    const DIO_XmlNode* firstOf(const DIO_XmlNode& server,
                               const std::function<bool(const DIO_XmlNode&)>& isWanted) const;

    /// An attribute of a server or, where it has none, of the first that has one among those that it links to.
    QString attributeOf(const DIO_XmlNode& server, const char* name) const;

    /// All servers in use.
    const std::vector<DIO_PaintServer>& servers() const { return _servers; }

private:
    QGradientStops stopsOf(const DIO_XmlNode& gradient) const;
    int create(const DIO_XmlNode& node, DIO_Paint::Kind kind, const QGradientStops& stops);

    const DIO_XmlTree& _tree;
    const DIO_StyleSheet& _sheet;
    QHash<const DIO_XmlNode*, int> _indexOf;
    std::map<std::tuple<const DIO_XmlNode*, double, double>, int> _boxedIndexOf;
    QSet<const DIO_XmlNode*> _averaged; // at this moment
    QHash<int, int> _opaqueOf;
    mutable QHash<const DIO_XmlNode*, QGradientStops> _stopsOf; // by the gradient that holds them
    std::vector<DIO_PaintServer> _servers;
    PatternAverage _patternAverage;
};
