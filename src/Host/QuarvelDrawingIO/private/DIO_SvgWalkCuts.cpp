// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What cuts an element: clips, masks, the opacity of groups, and gradients that fade.
#include "QuarvelDrawingIO/private/DIO_SvgWalk.h"

#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"
#include "QuarvelDrawingIO/private/DIO_SvgRecording.h"
#include "QuarvelDrawingIO/private/DIO_SvgTransform.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <QScopeGuard>
#include <QSet>

#include <algorithm>
#include <utility>

const DIO_XmlNode* DIO_SvgWalk::referenced(const QString& property, QStringView kind, const char* words)
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

DIO_SvgWalk::Cuts DIO_SvgWalk::beginCuts(const Visited& visited, DIO_FlatWriter::Extras& extras)
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
    for (QSet<const DIO_XmlNode*> seen; clip && !seen.contains(clip) && countRepeated(); ++cuts.clips) {
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

void DIO_SvgWalk::endCuts(const Cuts& cuts)
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

void DIO_SvgWalk::writeClip(const DIO_XmlNode& clip, const DIO_SvgProperties& properties, const Visited& visited)
{
    Surroundings inner = visited.around;
    inner.inClip = true;
    _writer->mark(DIO_SvgMark::Command::CLIP_BEGIN);
    _writer->beginGroup(clip.attribute(QLatin1String("transform")));
    writeInUnits(clip, "clipPathUnits", properties, inner, visited);
    _writer->endGroup();
    _writer->mark(DIO_SvgMark::Command::CLIP_END);
}

void DIO_SvgWalk::writeMask(const DIO_XmlNode& mask, const Visited& visited)
{
    countInstance();
    _ancestry.push_back(&mask);
    const auto leave = qScopeGuard([this] { _ancestry.pop_back(); });
    const DIO_SvgProperties properties = DIO_cascade(_sheet, _ancestry);
    const DIO_MaskKind kind = properties.value(QStringLiteral("mask-type")).trimmed() == u"alpha"
                                  ? DIO_MaskKind::COVERAGE
                                  : DIO_MaskKind::BRIGHTNESS;
    Surroundings inner = visited.around;
    inner.inUse = true;
    const std::optional<QRectF> region = regionOf(mask, visited);
    _writer->mark(DIO_SvgMark::Command::MASK_BEGIN, static_cast<int>(kind));
    if (region) {
        _writer->clipTo(*region);
    }
    writeInUnits(mask, "maskContentUnits", properties, inner, visited);
    if (region)
        _writer->mark(DIO_SvgMark::Command::CLIP_POP);
    _writer->mark(DIO_SvgMark::Command::MASK_END);
}

std::optional<QRectF> DIO_SvgWalk::regionOf(const DIO_XmlNode& mask, const Visited& visited)
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
    return QRectF(box.x() + region.x() * box.width(), box.y() + region.y() * box.height(), region.width() * box.width(),
                  region.height() * box.height());
}

void DIO_SvgWalk::writeInUnits(const DIO_XmlNode& cutting, const char* unitsName, const DIO_SvgProperties& properties,
                               const Surroundings& inner, const Visited& visited)
{
    QString units;
    if (cutting.attribute(QLatin1String(unitsName)) == u"objectBoundingBox") {
        const QRectF box = boxOf(visited);
        units = DIO_matrixText(QTransform(box.width(), 0.0, 0.0, box.height(), box.x(), box.y()));
    }
    _writer->beginGroup(units);
    visitContent(cutting, DIO_SvgStyle().inheritedBy(properties, inner.diagonal()), inner);
    _writer->endGroup();
}

QRectF DIO_SvgWalk::boxOf(const Visited& visited)
{
    DIO_FlatWriter scratch(_servers);
    DIO_FlatWriter* const before = std::exchange(_writer, &scratch);
    Surroundings inner = visited.around;
    inner.inClip = true;
    inner.measured = true;
    write({visited.node, visited.element, visited.style, visited.properties, inner}, {});
    _writer = before;
    return DIO_boundsOfSvg(scratch.document());
}

bool DIO_SvgWalk::paintsSeveralShapes(const Visited& visited)
{
    const bool isSingle = (visited.element == Element::SHAPE && !hasMarkers(visited.node, visited.style)) ||
                          visited.element == Element::PICTURE;
    const DIO_SvgStyle& style = visited.style;
    return !isSingle || (style.fill.kind != DIO_SvgPaint::Kind::NONE && style.stroke.kind != DIO_SvgPaint::Kind::NONE &&
                         style.strokeWidth > 0.0);
}

void DIO_SvgWalk::writeFadingFill(const Visited& visited, const QString& data, const DIO_GradientFade& fade,
                                  double opacity)
{
    const QRectF box = boxOf(visited);
    const QTransform toUser = fade.isInBox
                                  ? fade.transform * QTransform(box.width(), 0.0, 0.0, box.height(), box.x(), box.y())
                                  : fade.transform;
    const int server = _servers.find(visited.style.fill.reference);
    if (!toUser.isInvertible() || server < 0)
        return;
    // The mask is by brightness: opaque greys replace what they cover, so that each step has exactly its value.
    _writer->mark(DIO_SvgMark::Command::MASK_BEGIN, static_cast<int>(DIO_MaskKind::NESTED_BRIGHTNESS));
    _writer->beginGroup(DIO_matrixText(toUser));
    DIO_SvgStyle painted;
    painted.evenOdd = true;
    for (const DIO_FadeArea& area : DIO_areasOf(fade, toUser.inverted().mapRect(box))) {
        const auto grey = static_cast<float>(area.opacity);
        painted.fill.colour = QColor::fromRgbF(grey, grey, grey);
        _writer->path(area.path, painted, {});
    }
    _writer->endGroup();
    _writer->mark(DIO_SvgMark::Command::MASK_END);
    _writer->serverPath(data, _servers.opaqueTwinOf(server), {{}, opacity, false}, visited.style.evenOdd);
    _writer->mark(DIO_SvgMark::Command::MASK_POP);
}
