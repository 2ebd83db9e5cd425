// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelDrawingIO/private/layered/DIO_AsepritePixels.h"

namespace {

QRgb pixelAt(std::span<const std::uint8_t> bytes, const DIO_AsepriteMode& mode, bool isBackground)
{
    if (mode.depth == 32)
        return qRgba(bytes[0], bytes[1], bytes[2], bytes[3]);
    if (mode.depth == 16)
        return qRgba(bytes[0], bytes[0], bytes[0], bytes[1]);
    const std::size_t index = bytes[0];
    const bool isTransparent = !isBackground && bytes[0] == mode.transparentIndex;
    return isTransparent || index >= mode.palette.size() ? 0 : mode.palette[index];
}

std::span<QRgb> rowOf(QImage& image, int y)
{
    return {reinterpret_cast<QRgb*>(image.scanLine(y)), static_cast<std::size_t>(image.width())};
}

} // namespace

QImage DIO_asepriteImage(std::span<const std::uint8_t> bytes, const QSize& size, const DIO_AsepriteMode& mode,
                         bool isBackground)
{
    QImage image(size, QImage::Format_ARGB32);
    if (image.isNull())
        return image;
    const std::size_t step = mode.pixelBytes();
    for (int y = 0; y < size.height(); ++y)
        for (QRgb& pixel : rowOf(image, y)) {
            pixel = pixelAt(bytes.first(step), mode, isBackground);
            bytes = bytes.subspan(step);
        }
    return image;
}

QImage DIO_asepriteTileMap(std::span<const std::uint8_t> map, const QSize& size, const DIO_AsepriteTileBits& bits,
                           const DIO_AsepriteTiles& tiles)
{
    const int side = tiles.tile.width();
    const int rise = tiles.tile.height();
    QImage image(size.width() * side, size.height() * rise, QImage::Format_ARGB32);
    if (image.isNull())
        return image;
    image.fill(0);
    DIO_ByteReader<DIO_ByteOrder::LITTLE> reader(map);
    for (int row = 0; row < size.height(); ++row)
        for (int column = 0; column < size.width(); ++column) {
            const std::uint32_t code = reader.u32();
            const std::uint32_t number = code & bits.number;
            // Number 0 shows nothing.
            if (number == 0 || number >= static_cast<std::uint32_t>(tiles.count))
                continue;
            const int top = static_cast<int>(number) * rise;
            for (int y = 0; y < rise; ++y) {
                QRgb* const target = rowOf(image, row * rise + y).data() + column * side;
                for (int x = 0; x < side; ++x) {
                    int fromX = (code & bits.mirroredX) != 0 ? side - 1 - x : x;
                    int fromY = (code & bits.mirroredY) != 0 ? rise - 1 - y : y;
                    if ((code & bits.transposed) != 0)
                        std::swap(fromX, fromY);
                    if (fromX < side && fromY < rise)
                        target[x] = tiles.all.pixel(fromX, top + fromY);
                }
            }
        }
    return image;
}
