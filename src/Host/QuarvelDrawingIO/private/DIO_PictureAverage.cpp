// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Decoding of embedded pictures, and averages of images.
#include "QuarvelDrawingIO/private/DIO_PictureAverage.h"

#include "QuarvelDrawingIO/private/DIO_AverageColour.h"

#include <QBuffer>
#include <QImageReader>
#include <QUrl>

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

QByteArray dataOf(const QString& url)
{
    const qsizetype comma = url.indexOf(u',');
    if (!url.startsWith(u"data:", Qt::CaseInsensitive) || comma < 0)
        return {};
    const QByteArray body = QByteArray::fromPercentEncoding(QStringView(url).mid(comma + 1).toLatin1());
    return url.left(comma).contains(u"base64", Qt::CaseInsensitive) ? QByteArray::fromBase64(body) : body;
}

} // namespace

std::optional<DIO_PictureAverage> DIO_averagePicture(const QString& url, qint64& pixelBudget)
{
    QByteArray data = dataOf(url);
    const QByteArray format = formatOf(data);
    if (format.isEmpty())
        return std::nullopt;
    QBuffer buffer(&data);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    const qint64 pixels = qint64(size.width()) * size.height();
    if (!size.isValid() || pixels > pixelBudget)
        return std::nullopt;
    pixelBudget -= pixels;
    const QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;
    return DIO_PictureAverage{image.size(), DIO_averageColour(image)};
}
