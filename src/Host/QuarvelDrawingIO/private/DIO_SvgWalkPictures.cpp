// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Embedded pictures, which keep their pixels, and patterns, which are written as one colour, their average.
#include "QuarvelDrawingIO/private/DIO_SvgWalk.h"

#include "QuarvelDrawingIO/private/DIO_EmbeddedPicture.h"
#include "QuarvelDrawingIO/private/DIO_PictureForm.h"
#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"
#include "QuarvelDrawingIO/private/DIO_SvgRecording.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <algorithm>
#include <utility>

namespace {

// Where an element says one side only, the other one follows from the picture's proportions.
QSizeF naturalSize(const DIO_XmlNode& image, const QSizeF& viewport, const QSizeF& pixels)
{
    const auto width = DIO_readLength(image.attribute(QLatin1String("width")), {viewport.width(), 16.0});
    const auto height = DIO_readLength(image.attribute(QLatin1String("height")), {viewport.height(), 16.0});
    if (pixels.isEmpty() || width.has_value() == height.has_value())
        return pixels;
    return width ? QSizeF(*width, *width * pixels.height() / pixels.width())
                 : QSizeF(*height * pixels.width() / pixels.height(), *height);
}

} // namespace

const DIO_SvgWalk::Picture& DIO_SvgWalk::pictureOf(const DIO_XmlNode& image)
{
    const auto known = _pictures.constFind(&image);
    if (known != _pictures.constEnd())
        return *known;
    Picture picture;
    const UT_Result<QImage> decoded = DIO_decodePicture(image.link(), _picturePixels);
    if (decoded) {
        picture.size = decoded->size();
        picture.server = DIO_showsSomething(*decoded) ? _servers.addPicture(image, *decoded) : -1;
    } else {
        picture.leftOut = decoded.error().text;
    }
    return *_pictures.insert(&image, picture);
}

void DIO_SvgWalk::writePicture(const Visited& visited, const DIO_FlatWriter::Extras& extras)
{
    const auto& [node, element, style, properties, around] = visited;
    if (!style.visible || (around.inClip && !around.measured))
        return;
    const Picture picture = pictureOf(node);
    const QRectF frame = frameOf(node, node, around, naturalSize(node, around.viewport, picture.size));
    if (!(frame.width() > 0.0 && frame.height() > 0.0))
        return;
    if (around.measured)
        return _writer->clipPath(DIO_rectPath(frame.x(), frame.y(), frame.width(), frame.height()), false,
                                 extras.transform);
    if (!picture.leftOut.isEmpty())
        ++_leftOut[picture.leftOut];
    if (picture.server < 0)
        return;
    const QRectF box(QPointF(), QSizeF(picture.size));
    const DIO_AspectFit fit = DIO_readAspectFit(node.attribute(QLatin1String("preserveAspectRatio")));
    const QRectF whole = DIO_fitTransform(box, frame, fit).mapRect(box);
    // What a picture that fills its frame has too much of is cut off.
    constexpr double kNothing = 1e-9;
    const double slack = kNothing * std::max(frame.width(), frame.height());
    const bool reachesOut = !frame.adjusted(-slack, -slack, slack, slack).contains(whole);
    _writer->beginGroup(extras.transform);
    if (reachesOut)
        _writer->clipTo(frame);
    _writer->serverPath(DIO_rectPath(whole.x(), whole.y(), whole.width(), whole.height()), picture.server,
                        {{}, extras.opacity});
    if (reachesOut)
        _writer->mark(DIO_SvgMark::Command::CLIP_POP);
    _writer->endGroup();
}

DIO_SvgStyle DIO_SvgWalk::withPatterns(const Visited& visited)
{
    DIO_SvgStyle style = visited.style;
    for (DIO_SvgPaint* const paint : {&style.fill, &style.stroke}) {
        if (paint->kind != DIO_SvgPaint::Kind::REFERENCE || !_servers.dependsOnBox(paint->reference))
            continue;
        paint->server = _servers.findFor(paint->reference, boxOf(visited).size());
        if (paint->server < 0)
            paint->kind = paint->colour.isValid() ? DIO_SvgPaint::Kind::COLOUR : DIO_SvgPaint::Kind::NONE;
    }
    return style;
}

std::optional<QColor> DIO_SvgWalk::averageOf(const DIO_XmlNode& pattern, const QSizeF& box)
{
    const auto attribute = [&](const char* name) { return _servers.attributeOf(pattern, name); };
    const DIO_XmlNode* const owner = _servers.firstOf(pattern, [](const DIO_XmlNode& node) {
        return std::ranges::any_of(node.children, [](const DIO_XmlNode& child) { return !child.isText(); });
    });
    if (!owner)
        return std::nullopt;
    const bool inParts = attribute("patternUnits") != u"userSpaceOnUse";
    const bool contentInParts = attribute("patternContentUnits") == u"objectBoundingBox";
    const QSizeF page = box.isEmpty() || !inParts ? _viewport : box;
    const QSizeF whole = inParts && contentInParts ? QSizeF(1.0, 1.0) : page;
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
