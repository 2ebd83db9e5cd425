// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is written as one colour, its average: embedded pictures, and patterns.
#include "QuarvelDrawingIO/private/DIO_SvgWalk.h"

#include "QuarvelDrawingIO/private/DIO_PictureAverage.h"
#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"
#include "QuarvelDrawingIO/private/DIO_SvgRecording.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <algorithm>
#include <utility>

void DIO_SvgWalk::writePicture(const Visited& visited, const DIO_FlatWriter::Extras& extras)
{
    const DIO_XmlNode& node = visited.node;
    const Surroundings& around = visited.around;
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

std::optional<QColor> DIO_SvgWalk::averageOf(const DIO_XmlNode& pattern)
{
    const auto attribute = [&](const char* name) { return _servers.attributeOf(pattern, name); };
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
