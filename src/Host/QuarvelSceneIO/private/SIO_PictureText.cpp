// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts pictures to and from PNG. The PNG holds only the pixels, without density, texts or colour space, so that its
// bytes depend on the pixels alone.
#include "QuarvelSceneIO/private/SIO_PictureText.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "QuarvelSceneIO/private/SIO_Limits.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <cstring>

namespace {

bool isDeep(QImage::Format format)
{
    switch (format) {
    case QImage::Format_BGR30:
    case QImage::Format_A2BGR30_Premultiplied:
    case QImage::Format_RGB30:
    case QImage::Format_A2RGB30_Premultiplied:
    case QImage::Format_Grayscale16:
        return true;
    default:
        return QImage::toPixelFormat(format).bitsPerPixel() > 32;
    }
}

bool isPremultiplied(QImage::Format format)
{
    const QPixelFormat pixel = QImage::toPixelFormat(format);
    return pixel.alphaUsage() == QPixelFormat::UsesAlpha && pixel.premultiplied() == QPixelFormat::Premultiplied;
}

QImage::Format plainFormat(QImage::Format format, bool premultiplied)
{
    if (isDeep(format))
        return premultiplied ? QImage::Format_RGBA64_Premultiplied : QImage::Format_RGBA64;
    return premultiplied ? QImage::Format_ARGB32_Premultiplied : QImage::Format_ARGB32;
}

bool isSmallEnough(const QSize& size, qint64 bytesPerPixel)
{
    return size.width() > 0 && size.height() > 0 && std::max(size.width(), size.height()) <= kSIO_maxPictureSide &&
           qint64{size.width()} * size.height() * bytesPerPixel <= kSIO_maxPictureBytes;
}

// Copies the pixels' bytes into an image of another format with pixels of the same size, without converting them.
QImage pixelsOf(const QImage& image, QImage::Format format)
{
    QImage pixels = GR_newImage(image.size(), format);
    const auto length = static_cast<std::size_t>(std::min(image.bytesPerLine(), pixels.bytesPerLine()));
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(pixels.scanLine(y), image.constScanLine(y), length);
    return pixels;
}

} // namespace

QImage SIO_plainPicture(const QImage& picture)
{
    const QImage::Format format = plainFormat(picture.format(), isPremultiplied(picture.format()));
    return pixelsOf(picture.format() == format ? picture : GR_imageInFormat(picture, format), format);
}

std::optional<QString> SIO_pictureText(const QImage& plain)
{
    if (!isSmallEnough(plain.size(), plain.depth() / 8))
        return std::nullopt;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!pixelsOf(plain, plainFormat(plain.format(), false)).save(&buffer, "PNG"))
        return std::nullopt;
    return QString::fromLatin1(buffer.data().toBase64());
}

std::optional<QImage> SIO_parsePicture(const QString& text, bool premultiplied)
{
    QString packed = text;
    packed.removeIf([](QChar c) { return c.isSpace(); });
    const auto decoded = QByteArray::fromBase64Encoding(packed.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return std::nullopt;
    QByteArray bytes = *decoded;
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "png");
    reader.setAutoDetectImageFormat(false);
    // Only the header has been read so far; a pixel takes at most eight bytes in memory.
    if (!reader.canRead() || !isSmallEnough(reader.size(), isDeep(reader.imageFormat()) ? 8 : 4))
        return std::nullopt;
    const QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;
    const QImage::Format straight = plainFormat(image.format(), false);
    const QImage converted = image.format() == straight ? image : GR_imageInFormat(image, straight);
    return pixelsOf(converted, plainFormat(straight, premultiplied));
}
