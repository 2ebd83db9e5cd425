// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Decoding of embedded pictures. Sizes are looked at before memory is allocated.
#include "QuarvelDrawingIO/private/DIO_EmbeddedPicture.h"

#include "QuarvelDrawingIO/private/DIO_PictureForm.h"
#include "QuarvelDrawingIO/private/DIO_PngParts.h"
#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QBuffer>
#include <QImageReader>

namespace {

QByteArray formatOf(const QByteArray& data)
{
    if (data.startsWith("\x89PNG"))
        return "png";
    if (data.startsWith("\xff\xd8\xff"))
        return "jpeg";
    if (data.startsWith("GIF8"))
        return "gif";
    if (data.startsWith("BM"))
        return "bmp";
    if (data.startsWith("RIFF") && data.mid(8, 4) == "WEBP")
        return "webp";
    return {};
}

bool isDataUrl(const QString& url)
{
    return url.startsWith(u"data:", Qt::CaseInsensitive);
}

QByteArray dataOf(const QString& url)
{
    const qsizetype comma = url.indexOf(u',');
    if (comma < 0)
        return {};
    const QByteArray body = QByteArray::fromPercentEncoding(QStringView(url).mid(comma + 1).toLatin1());
    return url.left(comma).contains(u"base64", Qt::CaseInsensitive) ? QByteArray::fromBase64(body) : body;
}

UT_Error undecodable()
{
    return {QStringLiteral("picture that cannot be decoded")};
}

} // namespace

UT_Result<QImage> DIO_decodePicture(const QString& url, qint64& pixelBudget)
{
    if (!isDataUrl(url))
        return UT_Error{QStringLiteral("picture in a file of its own")};
    QByteArray data = dataOf(url);
    const QByteArray format = formatOf(data);
    if (format.isEmpty())
        return undecodable();
    QBuffer buffer(&data);
    if (!buffer.open(QIODevice::ReadOnly) || !DIO_checkPngParts(buffer))
        return undecodable();
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!size.isValid())
        return undecodable();
    const qint64 pixels = qint64{size.width()} * size.height();
    if (pixels > pixelBudget)
        return UT_Error{QStringLiteral("picture that is too large")};
    // Readers use the memory of the image that they are given, and keep silent where they get none of their own.
    const QImage::Format stored = reader.imageFormat();
    QImage image = stored == QImage::Format_Invalid ? QImage() : GR_newImage(size, stored);
    if (!reader.read(&image) || image.isNull())
        return undecodable();
    pixelBudget -= pixels;
    return DIO_inOneForm(image);
}
