// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The walk through the tree. What it writes and how often it follows a link are counted, so that a small file cannot
// unfold into an endless drawing.
#include "QuarvelDrawingIO/private/DIO_SvgFlattener.h"

#include "QuarvelDrawingIO/private/DIO_FlatWriter.h"
#include "QuarvelDrawingIO/private/DIO_PictureAverage.h"
#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"
#include "QuarvelDrawingIO/private/DIO_SvgRecording.h"
#include "QuarvelDrawingIO/private/DIO_SvgText.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <QMap>
#include <QScopeGuard>
#include <QSet>

#include <algorithm>
#include <cmath>
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
    }

    UT_Result<DIO_FlatSvg> flatten(const QSizeF& viewport)
    {
        _ancestry.push_back(&_tree.root);
        const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
        const Surroundings around{viewport};
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
        DIO_FlatWriter::Extras extras{node.attribute(QLatin1String("transform")), opacity,
                                      properties.value(QStringLiteral("vector-effect")) == u"non-scaling-stroke"};
        const DIO_SvgStyle style = outer.inheritedBy(properties, around.diagonal());
        const Cuts cuts = around.inClip ? Cuts() : beginCuts({node, element, style, properties, around}, extras);
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
        if (!style.visible || (paintsNothing(style) && !around.inClip))
            return;
        for (const char* marker : {"marker-start", "marker-mid", "marker-end"})
            if (node.attribute(QLatin1String(marker)).startsWith(u"url"))
                ++_leftOut[QStringLiteral("line-end marker")];
        const QString data = DIO_shapePath(node, around.viewport, style.fontSize);
        if (data.isEmpty())
            return;
        if (around.inClip)
            _writer->clipPath(data, style.clipEvenOdd, extras.transform);
        else
            _writer->path(data, style, extras);
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
        const DIO_XmlNode* clip = referenced(visited.properties, "clip-path", u"clipPath", "clip");
        const DIO_XmlNode* const mask = referenced(visited.properties, "mask", u"mask", "mask");
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
            clip = referenced(own, "clip-path", u"clipPath", "clip");
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
        const bool isSingle = visited.element == Element::SHAPE || visited.element == Element::PICTURE;
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

    // The element that a property refers to, if it is of the right kind and does not contain what refers to it.
    const DIO_XmlNode* referenced(const DIO_SvgProperties& properties, const char* property, QStringView kind,
                                  const char* words)
    {
        const QString value = properties.value(QLatin1String(property)).trimmed();
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
