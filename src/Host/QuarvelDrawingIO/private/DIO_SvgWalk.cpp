// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The elements of the tree, and the limits.
#include "QuarvelDrawingIO/private/DIO_SvgWalk.h"

#include "QuarvelDrawingIO/private/DIO_PixelLimit.h"
#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"
#include "QuarvelDrawingIO/private/DIO_SvgText.h"
#include "QuarvelDrawingIO/private/DIO_SvgTransform.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <QScopeGuard>

#include <algorithm>

namespace {

constexpr int kMaxInstances = 100'000;
// What is visited again for each copy, marker, mask, clip and box: a few seconds of work, and far more than real
// drawings ask for that repeat much.
constexpr int kMaxRepeated = 250'000;
constexpr qint64 kMaxBytes = 256 * 1024 * 1024;
constexpr int kMaxDepth = 800;

bool paintsNothing(const DIO_SvgStyle& style)
{
    return style.fill.kind == DIO_SvgPaint::Kind::NONE &&
           (style.stroke.kind == DIO_SvgPaint::Kind::NONE || style.strokeWidth <= 0.0);
}

// The painting library drops lines of no length, whose caps are dots. They are written a thousandth of a width long,
// which nobody sees.
QString withDots(const QString& data, const DIO_SvgStyle& style)
{
    if (style.lineCap == u"butt" || style.stroke.kind == DIO_SvgPaint::Kind::NONE || !(style.strokeWidth > 0.0))
        return data;
    QString all = data;
    for (const QPointF& dot : DIO_pathDots(data))
        all += QStringLiteral(" M%1 %2h%3")
                   .arg(DIO_number(dot.x()), DIO_number(dot.y()), DIO_number(style.strokeWidth / 1000.0));
    return all;
}

} // namespace

DIO_SvgWalk::DIO_SvgWalk(const DIO_XmlTree& tree, const DIO_SvgLayers& layers)
    : _tree(tree), _layers(layers), _servers(tree, _sheet), _main(_servers), _picturePixels(DIO_mostPixels())
{
    collectStyleSheets(tree.root);
    _servers.setPatternAverage(
        [this](const DIO_XmlNode& pattern, const QSizeF& box) { return averageOf(pattern, box); });
}

DIO_SvgWalk::Element DIO_SvgWalk::elementOf(const QString& name)
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

UT_Result<DIO_FlatSvg> DIO_SvgWalk::flatten(const QSizeF& viewport)
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
    return DIO_FlatSvg{_writer->document(), _servers.servers(), _picturePixels, _hidden, warnings()};
}

void DIO_SvgWalk::collectStyleSheets(const DIO_XmlNode& node)
{
    if (node.name == u"style")
        _sheet.add(node.textContent());
    for (const DIO_XmlNode& child : node.children)
        collectStyleSheets(child);
}

void DIO_SvgWalk::visitContent(const DIO_XmlNode& parent, const DIO_SvgStyle& style, const Surroundings& around)
{
    for (const DIO_XmlNode& child : parent.children) {
        if (!withinLimits())
            return;
        if (!child.isText())
            visit(child, style, around);
    }
}

void DIO_SvgWalk::visit(const DIO_XmlNode& node, const DIO_SvgStyle& outer, const Surroundings& around)
{
    const Element element = elementOf(node.name);
    if (element == Element::UNKNOWN)
        ++_leftOut[node.name];
    if (element == Element::UNKNOWN || element == Element::IGNORED ||
        !node.attribute(QLatin1String("requiredExtensions")).isEmpty())
        return;
    if ((around.inUse || around.inClip) && !countRepeated())
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
    write(visited, extras);
    endCuts(cuts);
    if (layer >= 0)
        _writer->mark(DIO_SvgMark::Command::NO_LAYER);
}

void DIO_SvgWalk::write(const Visited& visited, const DIO_FlatWriter::Extras& extras)
{
    const auto& [node, element, style, properties, around] = visited;
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
        writeShape(visited, extras);
        break;
    case Element::TEXT:
        writeText(visited, extras);
        break;
    case Element::PICTURE:
        writePicture(visited, extras);
        break;
    case Element::IGNORED:
    case Element::UNKNOWN:
        break;
    }
}

void DIO_SvgWalk::writeShape(const Visited& visited, const DIO_FlatWriter::Extras& extras)
{
    const DIO_XmlNode& node = visited.node;
    const DIO_SvgStyle& style = visited.style;
    const Surroundings& around = visited.around;
    if (!style.visible || (paintsNothing(style) && !around.inClip && !hasMarkers(node, style)))
        return;
    const QString data = DIO_shapePath(node, around.viewport, style.fontSize);
    if (data.isEmpty())
        return;
    const std::optional<DIO_GradientFade> fade = around.inClip || style.fill.kind != DIO_SvgPaint::Kind::REFERENCE
                                                     ? std::nullopt
                                                     : _servers.fadeOf(style.fill.reference, around.viewport);
    if (around.inClip)
        return _writer->clipPath(data, style.clipEvenOdd, extras.transform);
    DIO_SvgStyle rest = withPatterns(visited);
    const std::optional<TiledFill> tiled = tiledFillOf(visited, rest.fill);
    if (!fade && !tiled && !hasMarkers(node, style))
        return _writer->path(withDots(data, rest), rest, extras);

    // The opacity stands at what is painted: at the group, it would fade the mask, too.
    _writer->beginGroup(extras.transform);
    if (fade) {
        writeFadingFill(visited, data, *fade, extras.opacity * style.fillOpacity);
        rest.fill = {};
    }
    if (tiled) {
        writeTiledFill(visited, data, *tiled, extras.opacity * style.fillOpacity);
        rest.fill = {};
    }
    if (!paintsNothing(rest))
        _writer->path(withDots(data, rest), rest, {{}, extras.opacity, extras.fixedStrokeWidth});
    if (hasMarkers(node, style))
        writeMarkers(data, style, around);
    _writer->endGroup();
}

void DIO_SvgWalk::writeText(const Visited& visited, const DIO_FlatWriter::Extras& extras)
{
    const DIO_SvgStyle& style = visited.style;
    for (const DIO_TextLine& line :
         DIO_readTextLines(visited.node, style, _ancestry, _sheet, visited.around.viewport)) {
        _writer->beginText(line.x, line.y, style, extras);
        for (const DIO_TextRun& run : line.runs)
            _writer->textRun(run.text, run.style);
        _writer->endText();
    }
}

QString DIO_SvgWalk::transformOf(const Visited& visited)
{
    const QString attribute = visited.node.attribute(QLatin1String("transform"));
    const std::optional<QTransform> styled = DIO_styledTransform(
        visited.properties, attribute, visited.around.viewport, visited.style.fontSize, [&] { return boxOf(visited); });
    return styled ? DIO_matrixText(*styled) : attribute;
}

void DIO_SvgWalk::refuse(const QString& why)
{
    if (_problem.isEmpty())
        _problem = why;
}

bool DIO_SvgWalk::withinLimits()
{
    if (_writer->size() > kMaxBytes)
        refuse(QStringLiteral("unfolds into more than %1 MiB of shapes").arg(kMaxBytes / (1024 * 1024)));
    if (_ancestry.size() > kMaxDepth || _writer->depth() > kMaxDepth)
        refuse(QStringLiteral("nests groups and copies more than %1 deep").arg(kMaxDepth));
    return _problem.isEmpty();
}

bool DIO_SvgWalk::countInstance()
{
    if (++_instances > kMaxInstances)
        refuse(QStringLiteral("makes more than %1 copies of its parts").arg(kMaxInstances));
    return _instances <= kMaxInstances;
}

bool DIO_SvgWalk::countRepeated()
{
    if (++_repeated > kMaxRepeated)
        refuse(QStringLiteral("makes copies, clips and masks of more than %1 elements").arg(kMaxRepeated));
    return _repeated <= kMaxRepeated;
}

void DIO_SvgWalk::noteWhatIsLeftOut(const DIO_SvgProperties& properties)
{
    const QString filter = properties.value(QStringLiteral("filter")).trimmed();
    if (!filter.isEmpty() && filter != u"none")
        ++_leftOut[QStringLiteral("filter")];
    const QString blend = properties.value(QStringLiteral("mix-blend-mode")).trimmed();
    if (!blend.isEmpty() && blend != u"normal")
        ++_leftOut[QStringLiteral("blend mode")];
}

QStringList DIO_SvgWalk::warnings() const
{
    if (_leftOut.isEmpty())
        return {};
    QStringList parts;
    for (auto part = _leftOut.constKeyValueBegin(); part != _leftOut.constKeyValueEnd(); ++part)
        parts.append(QStringLiteral("%1 (%2)").arg(part->first).arg(part->second));
    return {QStringLiteral("left out: ") + parts.join(QStringLiteral(", "))};
}
