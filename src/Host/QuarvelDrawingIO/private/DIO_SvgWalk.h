// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The walk through an SVG tree that flattening is made of: each element is written with its style, its transform and
// what cuts it, where it is met, copies included. What it writes and how often it follows a link are counted, so that
// a small file cannot unfold into an endless drawing.
//
// Its functions stand in files by what they write: DIO_SvgWalk.cpp the elements, DIO_SvgWalkCuts.cpp clips, masks and
// group opacity, DIO_SvgWalkMarkers.cpp markers, DIO_SvgWalkCopies.cpp copies, symbols and inner drawings,
// DIO_SvgWalkPictures.cpp embedded pictures, DIO_SvgWalkPatterns.cpp patterns.
#pragma once

#include "QuarvelDrawingIO/private/DIO_FlatWriter.h"
#include "QuarvelDrawingIO/private/DIO_StyleSheet.h"
#include "QuarvelDrawingIO/private/DIO_SvgFlattener.h"
#include "QuarvelDrawingIO/private/DIO_SvgPathData.h"

#include <QHash>
#include <QMap>
#include <QPainterPath>
#include <QSet>
#include <QTransform>

#include <cmath>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

/// The walk. Used once, by one thread.
class DIO_SvgWalk
{
public:
    /// The tree and the layers outlive the walk.
    DIO_SvgWalk(const DIO_XmlTree& tree, const DIO_SvgLayers& layers);

    /// Walks from the root; see DIO_flattenSvg().
    UT_Result<DIO_FlatSvg> flatten(const QSizeF& viewport);

private:
    enum class Element
    {
        GROUP,
        SWITCH,
        INNER_DRAWING,
        USE,
        SHAPE,
        TEXT,
        PICTURE,
        IGNORED, ///< defines, describes or names something; paints nothing by itself
        UNKNOWN
    };

    /// What the walk is inside of.
    struct Surroundings
    {
        QSizeF viewport;       ///< what percentages are relative to
        bool inUse = false;    ///< inside a copy, whose layers are not the file's layers
        bool inClip = false;   ///< what is written makes up a clip
        bool measured = false; ///< what is written is measured: of a picture, its frame

        /// What percentages of lengths without a direction are relative to.
        double diagonal() const { return std::hypot(viewport.width(), viewport.height()) / std::sqrt(2.0); }
    };

    /// An element with all that is known about it.
    struct Visited
    {
        const DIO_XmlNode& node;
        Element element;
        const DIO_SvgStyle& style;
        const DIO_SvgProperties& properties;
        const Surroundings& around;
    };

    /// What was begun around an element and has to be ended after it.
    struct Cuts
    {
        bool grouped = false;
        int clips = 0;
        bool masked = false;
        bool faded = false;
    };

    /// Where a marker stands on a path.
    struct MarkerPlace
    {
        QPointF at;
        QPointF direction;
        bool isStart;
    };

    /// An embedded picture.
    struct Picture
    {
        int server = -1; ///< -1 when it cannot be decoded, or shows nothing
        QSize size;      ///< in pixels; empty when it cannot be decoded
        QString leftOut; ///< why it cannot be decoded
    };

    /// Where the tiles of a pattern lie, and what they show.
    struct PatternTile
    {
        const DIO_XmlNode* content = nullptr; ///< its children are painted
        QSizeF size;                          ///< tiles lie side by side in steps of it
        QTransform toUser;                    ///< from the first tile, whose corner is 0, 0, to the shape's own units
        QTransform fromContent;               ///< from the content's units to the first tile

        /// What a tile shows, in the content's units.
        QRectF shown() const { return fromContent.inverted().mapRect(QRectF(QPointF(), size)); }
    };

    /// The areas of a pattern within a shape.
    struct TiledFill
    {
        QString data;
        QString transform; ///< from the data's units to the shape's
        int server = -1;
        double opacity = 1.0; ///< of what is painted
        bool evenOdd = false;
    };

    static Element elementOf(const QString& name);

    /// @{ Elements
    void collectStyleSheets(const DIO_XmlNode& node);
    void visitContent(const DIO_XmlNode& parent, const DIO_SvgStyle& style, const Surroundings& around);
    void visit(const DIO_XmlNode& node, const DIO_SvgStyle& outer, const Surroundings& around);
    void write(const Visited& visited, const DIO_FlatWriter::Extras& extras);
    void writeShape(const Visited& visited, const DIO_FlatWriter::Extras& extras);
    void writeText(const Visited& visited, const DIO_FlatWriter::Extras& extras);

    /// Writes the fill of a shape whose gradient fades: in its average colour, cut by a mask of the gradient's opacity.
    void writeFadingFill(const Visited& visited, const QString& data, const DIO_GradientFade& fade, double opacity);
    QString transformOf(const Visited& visited); ///< as an attribute
    /// @}

    /// @{ Limits and warnings
    void refuse(const QString& why); ///< the first reason is kept
    bool withinLimits();
    bool countInstance(); ///< false when there are too many copies
    bool countRepeated(); ///< false when too many elements are in copies, clips and masks
    void noteWhatIsLeftOut(const DIO_SvgProperties& properties);
    QStringList warnings() const;
    /// @}

    /// @{ Clips, masks and group opacity

    /// The element that a property refers to; null when it is not of that kind, or contains what refers to it.
    ///
    /// @param words what a warning calls it
    const DIO_XmlNode* referenced(const QString& property, QStringView kind, const char* words);

    /// Begins the clips, the mask and the fading that an element asks for. Where that is needed, the element's
    /// transform and opacity are written already and taken out of the extras.
    Cuts beginCuts(const Visited& visited, DIO_FlatWriter::Extras& extras);
    void endCuts(const Cuts& cuts);
    void writeClip(const DIO_XmlNode& clip, const DIO_SvgProperties& properties, const Visited& visited);
    void writeMask(const DIO_XmlNode& mask, const Visited& visited);

    /// The rectangle outside which a mask lets nothing through. None for the default, which is a tenth larger than what
    /// is masked and cuts off nothing but the ends of wide lines.
    std::optional<QRectF> regionOf(const DIO_XmlNode& mask, const Visited& visited);

    /// Writes the content of a clip or a mask, whose units may be the box of what it cuts.
    void writeInUnits(const DIO_XmlNode& cutting, const char* unitsName, const DIO_SvgProperties& properties,
                      const Surroundings& inner, const Visited& visited);

    /// The rectangle around an element's areas, without strokes, in the element's own units.
    QRectF boxOf(const Visited& visited);

    /// False for a single fill or stroke, whose opacity is the group's.
    static bool paintsSeveralShapes(const Visited& visited);
    /// @}

    /// @{ Markers
    static bool hasMarkers(const DIO_XmlNode& node, const DIO_SvgStyle& style);
    void writeMarkers(const QString& data, const DIO_SvgStyle& style, const Surroundings& around);
    void writeMarker(const QString& reference, const MarkerPlace& place, const DIO_SvgStyle& style,
                     const Surroundings& around);
    /// Degrees, clockwise on the page.
    static double turnOf(const DIO_XmlNode& marker, const MarkerPlace& place);
    /// @}

    /// @{ Copies, symbols and inner drawings

    /// The rectangle of x, y, width and height; what the user of an element does not say, the element does.
    static QRectF frameOf(const DIO_XmlNode& user, const DIO_XmlNode& node, const Surroundings& around,
                          QSizeF fallback);

    /// Writes an <svg> inside the drawing, or a <symbol>.
    void writeInnerDrawing(const DIO_XmlNode& node, const DIO_XmlNode& user, const DIO_SvgStyle& style,
                           const Surroundings& around, const DIO_SvgProperties& properties);
    void writeUse(const DIO_XmlNode& node, const DIO_SvgStyle& style, const Surroundings& around);
    void writeSymbol(const DIO_XmlNode& symbol, const DIO_XmlNode& user, const DIO_SvgStyle& outer,
                     const Surroundings& around);
    /// @}

    /// @{ Pictures
    void writePicture(const Visited& visited, const DIO_FlatWriter::Extras& extras);
    const Picture& pictureOf(const DIO_XmlNode& image); ///< decodes each picture once
    /// @}

    /// @{ Patterns

    /// @param box of what is painted; none when nothing can be shown
    std::optional<PatternTile> tileOf(const DIO_XmlNode& pattern, const QRectF& box) const;
    QByteArray contentOf(const PatternTile& tile); ///< as a flattened document

    /// The average colour of a pattern's tile, gaps included; none when the tile has no size or nothing in it.
    ///
    /// @param box the size of the box of what is painted; empty: that of the page
    std::optional<QColor> averageOf(const DIO_XmlNode& pattern, const QSizeF& box);
    /// The style with the servers of its patterns, where they depend on the shape's box.
    DIO_SvgStyle withPatterns(const Visited& visited);
    /// What a tile paints, from 0, 0 to its size; empty when that is too detailed, null when the pattern is painted
    /// with itself or there are too many boxes.
    ///
    /// @param box the size of the box of what is painted
    const QPainterPath* areaOf(const DIO_XmlNode& pattern, const PatternTile& tile, const QSizeF& box);
    /// The fill of a shape by a pattern with gaps; none for other fills, and where it would be too much.
    std::optional<TiledFill> tiledFillOf(const Visited& visited, const DIO_SvgPaint& fill);
    void writeTiledFill(const Visited& visited, const QString& data, const TiledFill& tiled, double opacity);
    /// @}

    const DIO_XmlTree& _tree;
    QSizeF _viewport; ///< the root's
    const DIO_SvgLayers& _layers;
    DIO_StyleSheet _sheet;
    DIO_SvgPaintServers _servers;
    DIO_FlatWriter _main;
    DIO_FlatWriter* _writer = &_main;          ///< the document, or a scratch document while something is measured
    std::vector<const DIO_XmlNode*> _ancestry; ///< from the root to the element that is visited
    QHash<const DIO_XmlNode*, Picture> _pictures;
    std::map<std::tuple<const DIO_XmlNode*, double, double>, QPainterPath> _patternAreas;
    QSet<const DIO_XmlNode*> _openPatterns; ///< whose areas are put together at this moment
    int _patternElements = 0;
    QMap<QString, int> _leftOut; ///< what was left out, and how often
    QStringList _hidden;
    QString _problem;
    qint64 _picturePixels; ///< how many more may be decoded
    int _instances = 0;
    int _repeated = 0;
};
