// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads pixels of all formats as numbers.
#include "studio/preview/RenderedFrame.h"

#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelNormalMap/NM_Direction.h"

#include <cmath>

namespace {

template<typename Pixel>
std::array<double, 4> fractionsOf(const Pixel& pixel)
{
    constexpr auto kFull = static_cast<double>(CEL_PixelTraits<Pixel>::kFull);
    return {pixel.r / kFull, pixel.g / kFull, pixel.b / kFull, pixel.a / kFull};
}

// Calls a function with the pixel at a place, if there is one.
template<typename Function>
void withPixel(const UT_SharedPtr<CEL_PixmapArea>& pixmap, const QPoint& place, const Function& function)
{
    if (!pixmap)
        return;
    CEL_withFormat(*pixmap, [&](const auto& pixels) {
        if (const auto* const pixel = pixels.find(place.x(), place.y()))
            function(*pixel);
    });
}

std::array<double, 4> coloursAt(const QImage& image, const QPoint& place)
{
    const QColor colour = image.pixelColor(place);
    return {colour.redF(), colour.greenF(), colour.blueF(), colour.alphaF()};
}

} // namespace

QPoint RenderedFrame::pixelAt(const QPointF& place, const QSize& image) const
{
    return {static_cast<int>(std::floor(place.x() * image.width() / fullSize.width())),
            static_cast<int>(std::floor(place.y() * image.height() / fullSize.height()))};
}

QPoint RenderedFrame::pixelAt(const QPoint& pixel, const QSize& image) const
{
    return pixelAt(QPointF(pixel) + QPointF(0.5, 0.5), image);
}

qsizetype RenderedFrame::bytes() const
{
    // The node's pixels are float where 16 bits would leave grain.
    constexpr auto kOf16Bits = static_cast<qsizetype>(sizeof(CEL_PixelRGBA16));
    const qsizetype finer = node ? CEL_bytesPerPixel(node->format()) - kOf16Bits : 0;
    const qsizetype others = channels ? CEL_bytesPerPixel(channels->format()) : 0;
    qsizetype bits = 0;
    if (inputs)
        for (const ShownInput& input : *inputs)
            bits += static_cast<qsizetype>(input.coverage.bytes());
    return qsizetype{size.width()} * size.height() * (kBytesPerPixel + finer + others) + bits;
}

std::optional<FramePixel> pixelOf(const RenderedFrame& frame, const QPoint& pixel)
{
    if (!QRect(QPoint(), frame.fullSize).contains(pixel))
        return std::nullopt;
    const QPoint here = frame.pixelAt(pixel, frame.size);
    FramePixel read;
    if (frame.kind == RenderedKind::COLOURS) {
        read.channels = coloursAt(frame.drawing, here);
        return read;
    }
    const bool hasNormals = frame.kind == RenderedKind::NORMALS;
    read.hasElevation = true;
    read.hasNormal = hasNormals;
    read.normal = {0.0, 0.0, 1.0};
    withPixel(frame.node, here, [&](const auto& shown) {
        read.channels = fractionsOf(shown);
        read.elevation = hasNormals ? (shown.a > 0 ? read.channels[2] : 0.0) : read.channels[0];
        const Math::Vector3d normal = hasNormals ? NM_directionOf(shown) : NM_kFacingViewer;
        read.normal = {normal.x, -normal.y, normal.z};
    });
    if (frame.channels)
        withPixel(frame.channels, here, [&](const auto& shown) { read.channels = fractionsOf(shown); });
    return read;
}
