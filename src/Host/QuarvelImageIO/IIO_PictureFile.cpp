// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The table of formats, asked of Qt once, and the dispatch on it.
#include "QuarvelImageIO/IIO_PictureFile.h"

#include "QuarvelImageIO/IIO_ExrFile.h"
#include "QuarvelImageIO/IIO_PngFile.h"
#include "QuarvelImageIO/private/IIO_QtImage.h"

#include <QFileInfo>
#include <QImageWriter>

#include <algorithm>

namespace {

std::vector<IIO_PictureFormat> listFormats()
{
    std::vector<IIO_PictureFormat> formats = {{QStringLiteral("png"), IIO_SampleType::UINT16, 16, true},
                                              {QStringLiteral("exr"), IIO_SampleType::FLOAT, 32, true}};
    const std::vector<IIO_PictureFormat> eightBit = {{QStringLiteral("jpg"), IIO_SampleType::UINT16, 8, false},
                                                     {QStringLiteral("jpeg"), IIO_SampleType::UINT16, 8, false},
                                                     {QStringLiteral("bmp"), IIO_SampleType::UINT16, 8, false},
                                                     {QStringLiteral("webp"), IIO_SampleType::UINT16, 8, true}};
    const QList<QByteArray> known = QImageWriter::supportedImageFormats();
    std::copy_if(eightBit.begin(), eightBit.end(), std::back_inserter(formats),
                 [&](const IIO_PictureFormat& format) { return known.contains(format.suffix.toLatin1()); });
    return formats;
}

UT_Error unknownSuffix(const QString& path)
{
    QStringList names;
    for (const IIO_PictureFormat& format : IIO_pictureFormats())
        names << QLatin1Char('.') + format.suffix;
    return {QStringLiteral("\"%1\" does not end in the name of a picture format; take one of %2")
                .arg(path, names.join(QStringLiteral(", ")))};
}

UT_Result<void> writeEightBit(const QString& path, const IIO_Picture& picture, const IIO_PictureFormat& format,
                              const IIO_WriteOptions& options)
{
    const auto wide = IIO_imageOf(picture);
    const auto image = wide ? IIO_image8(*wide, format.alpha) : wide;
    if (!image)
        return UT_Error{QStringLiteral("cannot write \"%1\": %2").arg(path, image.error().text)};
    return IIO_writeImage(path, *image, format.suffix.toLatin1(), options.quality);
}

} // namespace

const std::vector<IIO_PictureFormat>& IIO_pictureFormats()
{
    static const std::vector<IIO_PictureFormat> formats = listFormats();
    return formats;
}

UT_Result<IIO_PictureFormat> IIO_pictureFormatOf(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const auto& formats = IIO_pictureFormats();
    const auto found = std::find_if(formats.begin(), formats.end(),
                                    [&](const IIO_PictureFormat& format) { return format.suffix == suffix; });
    if (found == formats.end())
        return unknownSuffix(path);
    return *found;
}

UT_Result<void> IIO_write(const QString& path, const IIO_Picture& picture, const IIO_WriteOptions& options)
{
    const auto format = IIO_pictureFormatOf(path);
    if (!format)
        return format.error();
    if (format->suffix == QLatin1String("png"))
        return IIO_writePng(path, picture, options);
    if (format->suffix == QLatin1String("exr"))
        return IIO_writeExr(path, picture, options);
    return writeEightBit(path, picture, *format, options);
}

UT_Result<IIO_Picture> IIO_read(const QString& path)
{
    const auto format = IIO_pictureFormatOf(path);
    if (!format)
        return format.error();
    if (format->suffix == QLatin1String("png"))
        return IIO_readPng(path);
    if (format->suffix == QLatin1String("exr"))
        return IIO_readExr(path);
    return IIO_readImage(path, format->suffix.toLatin1());
}
