// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The walk through the tree. What it writes and how often it follows a link are counted, so that a small file cannot
// unfold into an endless drawing.
#include "QuarvelDrawingIO/private/DIO_SvgFlattener.h"

#include "QuarvelDrawingIO/private/DIO_FlatWriter.h"
#include "QuarvelDrawingIO/private/DIO_PictureAverage.h"
#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"
#include "QuarvelDrawingIO/private/DIO_SvgPathData.h"
#include "QuarvelDrawingIO/private/DIO_SvgRecording.h"
#include "QuarvelDrawingIO/private/DIO_SvgText.h"
#include "QuarvelDrawingIO/private/DIO_SvgTransform.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <QMap>
#include <QScopeGuard>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

constexpr int kMaxInstances = 100'000;
constexpr qint64 kMaxBytes = 256 * 1024 * 1024;
constexpr int kMaxDepth = 800;
constexpr qint64 kMaxPicturePixels = 256 * 1024 * 1024;

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

Element elementOf(const QString& name)
{
    static const QHash<QString, Element> elements = {
        {QStringLiteral("g"), Element::GROUP},
        {QStringLiteral("a"), Element::GROUP},
        {QStringLiteral("switch"), Element::SWITCH},
        {QStringLiteral("svg"), Element::INNER_DRAWING},
        {QStringLiteral("use"), Element::USE},
        {QStringLiteral("path"), Element::SHAPE},
        {QStringLiteral("rect"), Element::SHAPE},
        {QStringLiteral("circle"), Element::SHAPE},
        {QStringLiteral("ellipse"), Element::SHAPE},
        {QStringLiteral("line"), Element::SHAPE},
        {QStringLiteral("polyline"), Element::SHAPE},
        {QStringLiteral("polygon"), Element::SHAPE},
        {QStringLiteral("text"), Element::TEXT},
        {QStringLiteral("image"), Element::PICTURE},
        {QStringLiteral("foreignObject"), Element::UNKNOWN},
        {QStringLiteral("script"), Element::UNKNOWN},
        {QStringLiteral("set"), Element::UNKNOWN},
        {QStringLiteral("animate"), Element::UNKNOWN},
        {QStringLiteral("animateMotion"), Element::UNKNOWN},
        {QStringLiteral("animateTransform"), Element::UNKNOWN},
        {QStringLiteral("animateColor"), Element::UNKNOWN},
        {QStringLiteral("video"), Element::UNKNOWN},
        {QStringLiteral("audio"), Element::UNKNOWN},
    };
    return elements.value(name, Element::IGNORED);
}

// What the walk is within of.
struct Surroundings
{
    QSizeF viewport;
    bool inUse = false;  ///< a copy: its layers are not the file's layers
    bool inClip = false; ///< what is written makes up a clip

    double diagonal() const { return std::hypot(viewport.width(), viewport.height()) / std::sqrt(2.0); }
};

bool paintsNothing(const DIO_SvgStyle& style)
{
    return style.fill.kind == DIO_SvgPaint::Kind::NONE &&
           (style.stroke.kind == DIO_SvgPaint::Kind::NONE || style.strokeWidth <= 0.0);
}

QString matrixText(const QTransform& t)
{
    return QStringLiteral("matrix(%1 %2 %3 %4 %5 %6)")
        .arg(DIO_number(t.m11()), DIO_number(t.m12()), DIO_number(t.m21()), DIO_number(t.m22()), DIO_number(t.dx()),
             DIO_number(t.dy()));
}

class Flattener
{
public:
    Flattener(const DIO_XmlTree& tree, const DIO_SvgLayers& layers)
        : _tree(tree), _layers(layers), _servers(tree, _sheet), _main(_servers)
    {
        collectStyleSheets(tree.root);
        _servers.setPatternAverage([this](const DIO_XmlNode& pattern) { return averageOf(pattern); });
    }

    UT_Result<DIO_FlatSvg> flatten(const QSizeF& viewport)
    {
        _ancestry.push_back(&_tree.root);
        const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
        const Surroundings around{viewport};
        _viewport = viewport;
        visitContent(_tree.root, DIO_SvgStyle().inheritedBy(properties, around.diagonal()), around);
        if (_sheet.exhausted())
            refuse(QStringLiteral("has style sheets that take too long to apply"));
        if (!_problem.isEmpty())
            return UT_Error{_problem};
        return DIO_FlatSvg{_writer->document(), _servers.servers(), _hidden, warnings()};
    }

private:
    void collectStyleSheets(const DIO_XmlNode& node)
    {
        if (node.name == u"style")
            _sheet.add(node.textContent());
        for (const DIO_XmlNode& child : node.children)
            collectStyleSheets(child);
    }

    void refuse(const QString& why)
    {
        if (_problem.isEmpty())
            _problem = why;
    }

    bool withinLimits()
    {
        if (_writer->size() > kMaxBytes)
            refuse(QStringLiteral("unfolds into more than %1 MiB of shapes").arg(kMaxBytes / (1024 * 1024)));
        if (_ancestry.size() > kMaxDepth || _writer->depth() > kMaxDepth)
            refuse(QStringLiteral("nests groups and copies more than %1 deep").arg(kMaxDepth));
        return _problem.isEmpty();
    }

    void visitContent(const DIO_XmlNode& parent, const DIO_SvgStyle& style, const Surroundings& around)
    {
        for (const DIO_XmlNode& child : parent.children) {
            if (!withinLimits())
                return;
            if (!child.isText())
                visit(child, style, around);
        }
    }

    void visit(const DIO_XmlNode& node, const DIO_SvgStyle& outer, const Surroundings& around)
    {
        const Element element = elementOf(node.name);
        if (element == Element::UNKNOWN)
            ++_leftOut[node.name];
        if (element == Element::UNKNOWN || element == Element::IGNORED ||
            !node.attribute(QLatin1String("requiredExtensions")).isEmpty())
            return;

        _ancestry.push_back(&node);
        const auto leave = qScopeGuard([this] { _ancestry.pop_back(); });
        const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
        const int layer = around.inUse || around.inClip ? -1 : _layers.indexOf.value(&node, -1);
        const double opacity =
            std::clamp(DIO_readNumber(properties.value(QStringLiteral("opacity"))).value_or(1.0), 0.0, 1.0);
        if (properties.value(QStringLiteral("display")).trimmed() == u"none" || (opacity <= 0.0 && !around.inClip)) {
            if (layer >= 0)
                _hidden.append(_layers.names[layer]);
            return;
        }
        noteWhatIsLeftOut(properties);

        if (layer >= 0)
            _writer->mark(DIO_SvgMark::Command::LAYER, layer);
        const DIO_SvgStyle style = outer.inheritedBy(properties, around.diagonal());
        const Visited visited{node, element, style, properties, around};
        DIO_FlatWriter::Extras extras{transformOf(visited), opacity,
                                      properties.value(QStringLiteral("vector-effect")) == u"non-scaling-stroke"};
        const Cuts cuts = around.inClip ? Cuts() : beginCuts(visited, extras);
        write(node, element, style, extras, around, properties);
        endCuts(cuts);
        if (layer >= 0)
            _writer->mark(DIO_SvgMark::Command::NO_LAYER);
    }

    void write(const DIO_XmlNode& node, Element element, const DIO_SvgStyle& style,
               const DIO_FlatWriter::Extras& extras, const Surroundings& around, const DIO_SvgProperties& properties)
    {
        switch (element) {
        case Element::GROUP:
            _writer->beginGroup(extras.transform, extras.opacity);
            visitContent(node, style, around);
            _writer->endGroup();
            break;
        case Element::SWITCH:
            _writer->beginGroup(extras.transform, extras.opacity);
            if (const DIO_XmlNode* branch = DIO_shownBranch(node); branch && withinLimits())
                visit(*branch, style, around);
            _writer->endGroup();
            break;
        case Element::INNER_DRAWING:
            _writer->beginGroup(extras.transform, extras.opacity);
            writeInnerDrawing(node, node, style, around, properties);
            _writer->endGroup();
            break;
        case Element::USE:
            _writer->beginGroup(extras.transform, extras.opacity);
            writeUse(node, style, around);
            _writer->endGroup();
            break;
        case Element::SHAPE:
            writeShape(node, style, extras, around);
            break;
        case Element::TEXT:
            writeText(node, style, extras, around);
            break;
        case Element::PICTURE:
            writePicture(node, extras, around);
            break;
        case Element::IGNORED:
        case Element::UNKNOWN:
            break;
        }
    }

    void writeShape(const DIO_XmlNode& node, const DIO_SvgStyle& style, const DIO_FlatWriter::Extras& extras,
                    const Surroundings& around)
    {
        if (!style.visible || (paintsNothing(style) && !around.inClip && !hasMarkers(node, style)))
            return;
        const QString data = DIO_shapePath(node, around.viewport, style.fontSize);
        if (data.isEmpty())
            return;
        if (around.inClip) {
            _writer->clipPath(data, style.clipEvenOdd, extras.transform);
        } else if (hasMarkers(node, style)) {
            _writer->beginGroup(extras.transform, extras.opacity);
            _writer->path(withDots(data, style), style, {{}, 1.0, extras.fixedStrokeWidth});
            writeMarkers(data, style, around);
            _writer->endGroup();
        } else {
            _writer->path(withDots(data, style), style, extras);
        }
    }

    // The library forgets lines without length, whose caps are dots; a thousandth of a width is not to be seen.
    static QString withDots(const QString& data, const DIO_SvgStyle& style)
    {
        if (style.lineCap == u"butt" || style.stroke.kind == DIO_SvgPaint::Kind::NONE || !(style.strokeWidth > 0.0))
            return data;
        QString all = data;
        for (const QPointF& dot : DIO_pathDots(data))
            all += QStringLiteral(" M%1 %2h%3")
                       .arg(DIO_number(dot.x()), DIO_number(dot.y()), DIO_number(style.strokeWidth / 1000.0));
        return all;
    }

    static bool hasMarkers(const DIO_XmlNode& node, const DIO_SvgStyle& style)
    {
        const bool mayHave =
            node.name == u"path" || node.name == u"line" || node.name == u"polyline" || node.name == u"polygon";
        const auto isOne = [](const QString& marker) { return marker.startsWith(u"url("); };
        return mayHave && (isOne(style.markerStart) || isOne(style.markerMid) || isOne(style.markerEnd));
    }

    void writeMarkers(const QString& data, const DIO_SvgStyle& style, const Surroundings& around)
    {
        const std::vector<DIO_PathVertex> vertices = DIO_pathVertices(data);
        for (std::size_t i = 0; i < vertices.size(); ++i) {
            const bool isFirst = i == 0;
            const bool isLast = i + 1 == vertices.size();
            if (isFirst)
                writeMarker(style.markerStart, {vertices[i].at, vertices[i].onwards, true}, style, around);
            if (isLast)
                writeMarker(style.markerEnd, {vertices[i].at, vertices[i].into, false}, style, around);
            if (!isFirst && !isLast)
                writeMarker(style.markerMid, {vertices[i].at, between(vertices[i]), false}, style, around);
        }
    }

    // The direction in the middle between those of the two segments at a vertex.
    static QPointF between(const DIO_PathVertex& vertex)
    {
        const auto unit = [](const QPointF& p) { return p.isNull() ? p : p / std::hypot(p.x(), p.y()); };
        const QPointF both = unit(vertex.into) + unit(vertex.onwards);
        return both.isNull() ? vertex.onwards : both;
    }

    struct MarkerPlace
    {
        QPointF at;
        QPointF direction;
        bool isStart;
    };

    void writeMarker(const QString& reference, const MarkerPlace& place, const DIO_SvgStyle& style,
                     const Surroundings& around)
    {
        const DIO_XmlNode* const marker = referenced(reference, u"marker", "line-end marker");
        if (!marker || !countInstance() || !withinLimits())
            return;
        _ancestry.push_back(marker);
        const auto leave = qScopeGuard([this] { _ancestry.pop_back(); });
        const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
        const auto length = [&](const char* name, double otherwise) {
            return DIO_readLength(marker->attribute(QLatin1String(name)), {otherwise, style.fontSize})
                .value_or(otherwise);
        };
        const QRectF frame(0.0, 0.0, length("markerWidth", 3.0), length("markerHeight", 3.0));
        if (!(frame.width() > 0.0 && frame.height() > 0.0))
            return;
        const std::optional<QRectF> viewBox = DIO_readViewBox(marker->attribute(QLatin1String("viewBox")));
        const DIO_AspectFit fit = DIO_readAspectFit(marker->attribute(QLatin1String("preserveAspectRatio")));
        const QTransform content = viewBox ? DIO_fitTransform(*viewBox, frame, fit) : QTransform();
        const QPointF fixed = content.map(QPointF(length("refX", 0.0), length("refY", 0.0)));
        const bool isFixed = marker->attribute(QLatin1String("markerUnits")) == u"userSpaceOnUse";
        const double scale = isFixed ? 1.0 : style.strokeWidth;
        QTransform toPlace;
        toPlace.translate(place.at.x(), place.at.y());
        toPlace.rotate(turnOf(*marker, place));
        toPlace.scale(scale, scale);
        toPlace.translate(-fixed.x(), -fixed.y());

        Surroundings inner = around;
        inner.inUse = true;
        inner.viewport = viewBox ? viewBox->size() : frame.size();
        DIO_SvgStyle own;
        own.contextFill = style.fill;
        own.contextStroke = style.stroke;
        const bool clipped = properties.value(QStringLiteral("overflow"), QStringLiteral("hidden")) == u"hidden";
        _writer->beginGroup(matrixText(toPlace));
        if (clipped) {
            _writer->mark(DIO_SvgMark::Command::CLIP_BEGIN);
            _writer->clipPath(DIO_rectPath(0.0, 0.0, frame.width(), frame.height()), false, {});
            _writer->mark(DIO_SvgMark::Command::CLIP_END);
        }
        _writer->beginGroup(matrixText(content));
        visitContent(*marker, own.inheritedBy(properties, inner.diagonal()), inner);
        _writer->endGroup();
        if (clipped)
            _writer->mark(DIO_SvgMark::Command::CLIP_POP);
        _writer->endGroup();
    }

    // In degrees.
    static double turnOf(const DIO_XmlNode& marker, const MarkerPlace& place)
    {
        const QString orient = marker.attribute(QLatin1String("orient")).trimmed();
        if (!orient.startsWith(u"auto"))
            return DIO_readNumber(orient).value_or(0.0);
        const double along = std::atan2(place.direction.y(), place.direction.x()) * 180.0 / std::numbers::pi;
        return along + (place.isStart && orient == u"auto-start-reverse" ? 180.0 : 0.0);
    }

    // The average colour of a pattern's tile, its gaps included.
    std::optional<QColor> averageOf(const DIO_XmlNode& pattern)
    {
        const auto attribute = [&](const char* name) {
            const DIO_XmlNode* const owner = _servers.firstOf(
                pattern, [name](const DIO_XmlNode& node) { return !node.attribute(QLatin1String(name)).isEmpty(); });
            return owner ? owner->attribute(QLatin1String(name)) : QString();
        };
        const DIO_XmlNode* const owner = _servers.firstOf(pattern, [](const DIO_XmlNode& node) {
            return std::ranges::any_of(node.children, [](const DIO_XmlNode& child) { return !child.isText(); });
        });
        if (!owner)
            return std::nullopt;
        // Without the box of what is painted, parts of it are taken for parts of the page; only the content's own units
        // make a difference then.
        const bool inParts = attribute("patternUnits") != u"userSpaceOnUse";
        const bool contentInParts = attribute("patternContentUnits") == u"objectBoundingBox";
        const QSizeF whole = inParts && contentInParts ? QSizeF(1.0, 1.0) : _viewport;
        const auto length = [&](const char* name, double percentOf) {
            const QString text = attribute(name);
            const double value = DIO_readLength(text, {percentOf, 16.0}).value_or(0.0);
            return inParts && !text.contains(u'%') ? value * percentOf : value;
        };
        const QRectF tile = DIO_readViewBox(attribute("viewBox"))
                                .value_or(QRectF(length("x", whole.width()), length("y", whole.height()),
                                                 length("width", whole.width()), length("height", whole.height())));
        if (!(tile.width() > 0.0 && tile.height() > 0.0))
            return std::nullopt;
        DIO_FlatWriter scratch(_servers);
        DIO_FlatWriter* const before = std::exchange(_writer, &scratch);
        _ancestry.push_back(owner);
        Surroundings inside{tile.size()};
        inside.inUse = true;
        const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
        visitContent(*owner, DIO_SvgStyle().inheritedBy(properties, inside.diagonal()), inside);
        _ancestry.pop_back();
        _writer = before;
        const QColor average = DIO_averageOfSvg(scratch.document(), tile, _servers.servers());
        return average.alpha() > 0 ? std::optional(average) : std::nullopt;
    }

    void writeText(const DIO_XmlNode& node, const DIO_SvgStyle& style, const DIO_FlatWriter::Extras& extras,
                   const Surroundings& around)
    {
        for (const DIO_TextLine& line : DIO_readTextLines(node, style, _ancestry, _sheet, around.viewport)) {
            _writer->beginText(line.x, line.y, style, extras);
            for (const DIO_TextRun& run : line.runs)
                _writer->textRun(run.text, run.style);
            _writer->endText();
        }
    }

    void writePicture(const DIO_XmlNode& node, const DIO_FlatWriter::Extras& extras, const Surroundings& around)
    {
        const QString link = node.link();
        if (around.inClip)
            return;
        if (!link.startsWith(u"data:", Qt::CaseInsensitive)) {
            ++_leftOut[QStringLiteral("picture in a file of its own")];
            return;
        }
        if (!_pictures.contains(&node)) {
            Picture picture;
            if (const std::optional<DIO_PictureAverage> average = DIO_averagePicture(link, _picturePixels)) {
                picture.server = _servers.addPicture(node, average->colour);
                picture.size = average->size;
            }
            _pictures.insert(&node, picture);
        }
        const Picture picture = _pictures.value(&node);
        if (picture.server < 0) {
            ++_leftOut[QStringLiteral("picture that cannot be decoded")];
            return;
        }
        const QRectF box(QPointF(), QSizeF(picture.size));
        const QRectF frame = frameOf(node, node, around, box.size());
        if (!(frame.width() > 0.0 && frame.height() > 0.0))
            return;
        const DIO_AspectFit fit = DIO_readAspectFit(node.attribute(QLatin1String("preserveAspectRatio")));
        const QRectF painted = DIO_fitTransform(box, frame, fit).mapRect(box) & frame;
        _writer->serverPath(DIO_rectPath(painted.x(), painted.y(), painted.width(), painted.height()), picture.server,
                            extras);
    }

    // The rectangle of x, y, width and height; what the user of an element does not say, the element does.
    static QRectF frameOf(const DIO_XmlNode& user, const DIO_XmlNode& node, const Surroundings& around, QSizeF fallback)
    {
        const auto length = [&](const char* name, double percentOf, double otherwise) {
            for (const DIO_XmlNode* from : {&user, &node})
                if (const auto value = DIO_readLength(from->attribute(QLatin1String(name)), {percentOf, 16.0}))
                    return *value;
            return otherwise;
        };
        const double x = length("x", around.viewport.width(), 0.0);
        const double y = length("y", around.viewport.height(), 0.0);
        return {x, y, length("width", around.viewport.width(), fallback.width()),
                length("height", around.viewport.height(), fallback.height())};
    }

    // An <svg> inside of the drawing, or a <symbol>.
    void writeInnerDrawing(const DIO_XmlNode& node, const DIO_XmlNode& user, const DIO_SvgStyle& style,
                           const Surroundings& around, const DIO_SvgProperties& properties)
    {
        QRectF frame = frameOf(user, node, around, around.viewport);
        if (&user != &node)
            frame.moveTo(0.0, 0.0); // The copy's place is part of the <use>'s transform.
        const std::optional<QRectF> viewBox = DIO_readViewBox(node.attribute(QLatin1String("viewBox")));
        if (!(frame.width() > 0.0 && frame.height() > 0.0))
            return;
        Surroundings inner = around;
        inner.viewport = viewBox ? viewBox->size() : frame.size();
        const bool clipped = properties.value(QStringLiteral("overflow"), QStringLiteral("hidden")) == u"hidden";
        if (clipped && !around.inClip) {
            _writer->mark(DIO_SvgMark::Command::CLIP_BEGIN);
            _writer->clipPath(DIO_rectPath(frame.x(), frame.y(), frame.width(), frame.height()), false, {});
            _writer->mark(DIO_SvgMark::Command::CLIP_END);
        }
        const DIO_AspectFit fit = DIO_readAspectFit(node.attribute(QLatin1String("preserveAspectRatio")));
        _writer->beginGroup(matrixText(viewBox ? DIO_fitTransform(*viewBox, frame, fit)
                                               : QTransform::fromTranslate(frame.x(), frame.y())));
        visitContent(node, style, inner);
        _writer->endGroup();
        if (clipped && !around.inClip)
            _writer->mark(DIO_SvgMark::Command::CLIP_POP);
    }

    void writeUse(const DIO_XmlNode& node, const DIO_SvgStyle& style, const Surroundings& around)
    {
        const QString link = node.link();
        const DIO_XmlNode* const target = _tree.find(link);
        const bool endless = std::find(_ancestry.begin(), _ancestry.end(), target) != _ancestry.end();
        if (!target || endless) {
            ++_leftOut[link.startsWith(u'#') ? (endless ? QStringLiteral("copy of what contains the copy")
                                                        : QStringLiteral("copy of something that is not there"))
                                             : QStringLiteral("copy from another file")];
            return;
        }
        if (!countInstance())
            return;
        Surroundings inner = around;
        inner.inUse = true;
        const DIO_LengthContext horizontal{around.viewport.width(), style.fontSize};
        const DIO_LengthContext vertical{around.viewport.height(), style.fontSize};
        const double x = DIO_readLength(node.attribute(QLatin1String("x")), horizontal).value_or(0.0);
        const double y = DIO_readLength(node.attribute(QLatin1String("y")), vertical).value_or(0.0);
        _writer->beginGroup(matrixText(QTransform::fromTranslate(x, y)));
        if (withinLimits()) {
            if (target->name == u"symbol")
                writeSymbol(*target, node, style, inner);
            else
                visit(*target, style, inner);
        }
        _writer->endGroup();
    }

    bool countInstance()
    {
        if (++_instances > kMaxInstances)
            refuse(QStringLiteral("makes more than %1 copies of its parts").arg(kMaxInstances));
        return _instances <= kMaxInstances;
    }

    void writeSymbol(const DIO_XmlNode& symbol, const DIO_XmlNode& user, const DIO_SvgStyle& outer,
                     const Surroundings& around)
    {
        _ancestry.push_back(&symbol);
        const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
        const DIO_SvgStyle style = outer.inheritedBy(properties, around.diagonal());
        if (symbol.attribute(QLatin1String("viewBox")).isEmpty())
            visitContent(symbol, style, around);
        else
            writeInnerDrawing(symbol, user, style, around, properties);
        _ancestry.pop_back();
    }

    // An element with all that is known of it.
    struct Visited
    {
        const DIO_XmlNode& node;
        Element element;
        const DIO_SvgStyle& style;
        const DIO_SvgProperties& properties;
        const Surroundings& around;
    };

    // What was begun around an element.
    struct Cuts
    {
        bool grouped = false;
        int clips = 0;
        bool masked = false;
        bool faded = false;
    };

    // Begins the clips, the mask and the fading that an element asks for. Then the element's transform and opacity are
    // already written, too, where that was needed.
    Cuts beginCuts(const Visited& visited, DIO_FlatWriter::Extras& extras)
    {
        const auto valueOf = [&](const char* property) { return visited.properties.value(QLatin1String(property)); };
        const DIO_XmlNode* clip = referenced(valueOf("clip-path"), u"clipPath", "clip");
        const DIO_XmlNode* const mask = referenced(valueOf("mask"), u"mask", "mask");
        Cuts cuts;
        if (clip || mask) {
            cuts.grouped = true;
            _writer->beginGroup(extras.transform);
            extras.transform.clear();
        }
        for (QSet<const DIO_XmlNode*> seen; clip && !seen.contains(clip); ++cuts.clips) {
            seen.insert(clip);
            _ancestry.push_back(clip);
            const DIO_SvgProperties own = DIO_cascade(_sheet, _ancestry);
            writeClip(*clip, own, visited);
            _ancestry.pop_back();
            clip = referenced(own.value(QStringLiteral("clip-path")), u"clipPath", "clip");
        }
        if (mask)
            writeMask(*mask, visited);
        cuts.masked = mask != nullptr;
        cuts.faded = extras.opacity < 1.0 && paintsSeveralShapes(visited);
        if (cuts.faded) {
            _writer->mark(DIO_SvgMark::Command::FADE_BEGIN, qRound(extras.opacity * kDIO_fullOpacity));
            extras.opacity = 1.0;
        }
        return cuts;
    }

    void endCuts(const Cuts& cuts)
    {
        if (cuts.faded)
            _writer->mark(DIO_SvgMark::Command::FADE_END);
        if (cuts.masked)
            _writer->mark(DIO_SvgMark::Command::MASK_POP);
        for (int i = 0; i < cuts.clips; ++i)
            _writer->mark(DIO_SvgMark::Command::CLIP_POP);
        if (cuts.grouped)
            _writer->endGroup();
    }

    // A single fill or stroke has nothing to be faded with.
    static bool paintsSeveralShapes(const Visited& visited)
    {
        const bool isSingle = (visited.element == Element::SHAPE && !hasMarkers(visited.node, visited.style)) ||
                              visited.element == Element::PICTURE;
        const DIO_SvgStyle& style = visited.style;
        return !isSingle || (style.fill.kind != DIO_SvgPaint::Kind::NONE &&
                             style.stroke.kind != DIO_SvgPaint::Kind::NONE && style.strokeWidth > 0.0);
    }

    void writeClip(const DIO_XmlNode& clip, const DIO_SvgProperties& properties, const Visited& visited)
    {
        Surroundings inner = visited.around;
        inner.inClip = true;
        _writer->mark(DIO_SvgMark::Command::CLIP_BEGIN);
        _writer->beginGroup(clip.attribute(QLatin1String("transform")));
        writeInUnits(clip, "clipPathUnits", properties, inner, visited);
        _writer->endGroup();
        _writer->mark(DIO_SvgMark::Command::CLIP_END);
    }

    void writeMask(const DIO_XmlNode& mask, const Visited& visited)
    {
        countInstance();
        _ancestry.push_back(&mask);
        const auto leave = qScopeGuard([this] { _ancestry.pop_back(); });
        const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
        const bool byCoverage = properties.value(QStringLiteral("mask-type")).trimmed() == u"alpha";
        Surroundings inner = visited.around;
        inner.inUse = true;
        const std::optional<QRectF> region = regionOf(mask, visited);
        _writer->mark(DIO_SvgMark::Command::MASK_BEGIN, byCoverage ? 1 : 0);
        if (region) {
            _writer->mark(DIO_SvgMark::Command::CLIP_BEGIN);
            _writer->clipPath(DIO_rectPath(region->x(), region->y(), region->width(), region->height()), false, {});
            _writer->mark(DIO_SvgMark::Command::CLIP_END);
        }
        writeInUnits(mask, "maskContentUnits", properties, inner, visited);
        if (region)
            _writer->mark(DIO_SvgMark::Command::CLIP_POP);
        _writer->mark(DIO_SvgMark::Command::MASK_END);
    }

    // The rectangle outside of which a mask lets nothing through. The usual one, a tenth larger than what is masked,
    // cuts nothing off but the ends of wide lines.
    std::optional<QRectF> regionOf(const DIO_XmlNode& mask, const Visited& visited)
    {
        const bool isGiven =
            std::ranges::any_of(std::initializer_list<const char*>{"x", "y", "width", "height"},
                                [&](const char* name) { return !mask.attribute(QLatin1String(name)).isEmpty(); });
        if (!isGiven)
            return std::nullopt;
        const bool inUserSpace = mask.attribute(QLatin1String("maskUnits")) == u"userSpaceOnUse";
        const QSizeF whole = inUserSpace ? visited.around.viewport : QSizeF(1.0, 1.0);
        const auto length = [&](const char* name, double percentOf, double otherwise) {
            return DIO_readLength(mask.attribute(QLatin1String(name)), {percentOf, visited.style.fontSize})
                .value_or(otherwise * percentOf);
        };
        const QRectF region(length("x", whole.width(), -0.1), length("y", whole.height(), -0.1),
                            length("width", whole.width(), 1.2), length("height", whole.height(), 1.2));
        if (inUserSpace)
            return region;
        const QRectF box = boxOf(visited);
        return QRectF(box.x() + region.x() * box.width(), box.y() + region.y() * box.height(),
                      region.width() * box.width(), region.height() * box.height());
    }

    // The content of a clip or a mask, whose units may be the box of what it cuts.
    void writeInUnits(const DIO_XmlNode& cutting, const char* unitsName, const DIO_SvgProperties& properties,
                      const Surroundings& inner, const Visited& visited)
    {
        QString units;
        if (cutting.attribute(QLatin1String(unitsName)) == u"objectBoundingBox") {
            const QRectF box = boxOf(visited);
            units = matrixText(QTransform(box.width(), 0.0, 0.0, box.height(), box.x(), box.y()));
        }
        _writer->beginGroup(units);
        visitContent(cutting, DIO_SvgStyle().inheritedBy(properties, inner.diagonal()), inner);
        _writer->endGroup();
    }

    // The rectangle around an element's areas in its own units; strokes do not count.
    QRectF boxOf(const Visited& visited)
    {
        DIO_FlatWriter scratch(_servers);
        DIO_FlatWriter* const before = std::exchange(_writer, &scratch);
        Surroundings inner = visited.around;
        inner.inClip = true;
        write(visited.node, visited.element, visited.style, {}, inner, visited.properties);
        _writer = before;
        return DIO_boundsOfSvg(scratch.document());
    }

    // The transform of an element, as an attribute.
    QString transformOf(const Visited& visited)
    {
        const QString attribute = visited.node.attribute(QLatin1String("transform"));
        const std::optional<QTransform> styled =
            DIO_styledTransform(visited.properties, attribute, visited.around.viewport, visited.style.fontSize,
                                [&] { return boxOf(visited); });
        return styled ? matrixText(*styled) : attribute;
    }

    // The element that a property refers to, if it is of the right kind and does not contain what refers to it.
    const DIO_XmlNode* referenced(const QString& property, QStringView kind, const char* words)
    {
        const QString value = property.trimmed();
        if (value.isEmpty() || value == u"none" || value == u"inherit")
            return nullptr;
        QString reference = value.section(u'(', 1).section(u')', 0, 0).trimmed();
        reference.remove(u'"').remove(u'\'');
        const DIO_XmlNode* const found = value.startsWith(u"url(") ? _tree.find(reference) : nullptr;
        if (found && found->name == kind && std::find(_ancestry.begin(), _ancestry.end(), found) == _ancestry.end())
            return found;
        ++_leftOut[QLatin1String(words)];
        return nullptr;
    }

    void noteWhatIsLeftOut(const DIO_SvgProperties& properties)
    {
        const QString filter = properties.value(QStringLiteral("filter")).trimmed();
        if (!filter.isEmpty() && filter != u"none")
            ++_leftOut[QStringLiteral("filter")];
        const QString blend = properties.value(QStringLiteral("mix-blend-mode")).trimmed();
        if (!blend.isEmpty() && blend != u"normal")
            ++_leftOut[QStringLiteral("blend mode")];
    }

    QStringList warnings() const
    {
        if (_leftOut.isEmpty())
            return {};
        QStringList parts;
        for (auto part = _leftOut.constKeyValueBegin(); part != _leftOut.constKeyValueEnd(); ++part)
            parts.append(QStringLiteral("%1 (%2)").arg(part->first).arg(part->second));
        return {QStringLiteral("left out: ") + parts.join(QStringLiteral(", "))};
    }

    struct Picture
    {
        int server = -1;
        QSize size;
    };

    const DIO_XmlTree& _tree;
    QSizeF _viewport;
    const DIO_SvgLayers& _layers;
    DIO_StyleSheet _sheet;
    DIO_SvgPaintServers _servers;
    DIO_FlatWriter _main;
    DIO_FlatWriter* _writer = &_main; ///< what is written to
    std::vector<const DIO_XmlNode*> _ancestry;
    QHash<const DIO_XmlNode*, Picture> _pictures;
    QMap<QString, int> _leftOut;
    QStringList _hidden;
    QString _problem;
    qint64 _picturePixels = kMaxPicturePixels;
    int _instances = 0;
};

} // namespace

UT_Result<DIO_FlatSvg> DIO_flattenSvg(const DIO_XmlTree& tree, const DIO_SvgLayers& layers, const QSizeF& viewport)
{
    return Flattener(tree, layers).flatten(viewport);
}
