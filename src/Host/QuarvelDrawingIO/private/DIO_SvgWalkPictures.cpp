// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Embedded pictures, which keep their pixels.
#include "QuarvelDrawingIO/private/DIO_SvgWalk.h"

#include "QuarvelDrawingIO/private/DIO_EmbeddedPicture.h"
#include "QuarvelDrawingIO/private/DIO_PictureForm.h"
#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"
#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <algorithm>

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
