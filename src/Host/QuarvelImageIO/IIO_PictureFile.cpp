// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The table of formats and the look-ups in it.
#include "QuarvelImageIO/IIO_PictureFile.h"

#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelBaseCore/UT_PlainFile.h"
#include "QuarvelImageIO/IIO_ExrFile.h"
#include "QuarvelImageIO/IIO_PngFile.h"
#include "QuarvelImageIO/private/IIO_QtImage.h"

#include <QFile>
#include <QImageWriter>

#include <algorithm>

namespace {

// A format with its writer and reader.
struct Format
{
    using Write = UT_Result<void> (*)(const QString& path, const IIO_Picture& picture, const IIO_WriteOptions& options);
    using Read = UT_Result<IIO_Picture> (*)(const QString& path);

    IIO_PictureFormat about;
    Write write;
    Read read;
    const char* lastBytes = ""; // in hexadecimal; only for formats whose reader accepts a truncated file
};

// The formats that are written through Qt. Qt's name for a format is its suffix.
template<bool alpha>
UT_Result<void> writeEightBit(const QString& path, const IIO_Picture& picture, const IIO_WriteOptions& options)
{
    const auto wide = IIO_imageOf(picture);
    const auto image = wide ? IIO_image8(*wide, alpha) : wide;
    if (!image)
        return image.error().at(QStringLiteral("cannot write \"%1\"").arg(path));
    return IIO_writeImage(path, *image, UT_fileSuffix(path).toLatin1(), options.quality);
}

UT_Result<IIO_Picture> readEightBit(const QString& path)
{
    return IIO_readImage(path, UT_fileSuffix(path).toLatin1());
}

template<bool alpha>
Format eightBit(const QString& suffix, bool texts, bool exact)
{
    return {{suffix, IIO_SampleType::UINT16, 8, alpha, texts, exact}, writeEightBit<alpha>, readEightBit};
}

const std::vector<Format>& table()
{
    static const std::vector<Format> formats = [] {
        std::vector<Format> rows = {
            {{QStringLiteral("png"), IIO_SampleType::UINT16, 16, true},
             IIO_writePng,
             IIO_readPng,
             "0000000049454e44ae426082"},
            {{QStringLiteral("exr"), IIO_SampleType::FLOAT, 32, true}, IIO_writeExr, IIO_readExr},
            eightBit<false>(QStringLiteral("jpg"), true, false),
            eightBit<false>(QStringLiteral("jpeg"), true, false),
            eightBit<false>(QStringLiteral("bmp"), false, true),
            eightBit<true>(QStringLiteral("webp"), false, false),
        };
        const QList<QByteArray> known = QImageWriter::supportedImageFormats();
        std::erase_if(rows, [&](const Format& format) {
            return format.read == readEightBit && !known.contains(format.about.suffix.toLatin1());
        });
        return rows;
    }();
    return formats;
}

const Format* formatOf(const QString& path)
{
    const auto found = std::ranges::find(table(), UT_fileSuffix(path), [](const Format& f) { return f.about.suffix; });
    return found == table().end() ? nullptr : &*found;
}

UT_Error unknownSuffix(const QString& path)
{
    QStringList names;
    for (const IIO_PictureFormat& format : IIO_pictureFormats())
        names << QLatin1Char('.') + format.suffix;
    return {QStringLiteral("\"%1\" does not end in the name of a picture format; take one of %2")
                .arg(path, names.join(QStringLiteral(", ")))};
}

} // namespace

const std::vector<IIO_PictureFormat>& IIO_pictureFormats()
{
    static const std::vector<IIO_PictureFormat> formats = [] {
        std::vector<IIO_PictureFormat> about;
        for (const Format& format : table())
            about.push_back(format.about);
        return about;
    }();
    return formats;
}

UT_Result<IIO_PictureFormat> IIO_pictureFormatOf(const QString& path)
{
    const Format* const format = formatOf(path);
    return format ? UT_Result<IIO_PictureFormat>(format->about) : unknownSuffix(path);
}

bool IIO_isFloatFile(const QString& path)
{
    const Format* const format = formatOf(path);
    return format && format->about.samples == IIO_SampleType::FLOAT;
}

bool IIO_hasEnd(const QString& path)
{
    const Format* const format = formatOf(path);
    const QByteArray end = QByteArray::fromHex(format ? format->lastBytes : "");
    if (end.isEmpty())
        return true;
    QFile file(path);
    return UT_openPlainFile(file) && file.seek(std::max<qint64>(0, file.size() - end.size())) && file.readAll() == end;
}

UT_Result<void> IIO_write(const QString& path, const IIO_Picture& picture, const IIO_WriteOptions& options)
{
    const Format* const format = formatOf(path);
    return format ? format->write(path, picture, options) : unknownSuffix(path);
}

UT_Result<IIO_Picture> IIO_read(const QString& path)
{
    const Format* const format = formatOf(path);
    if (!format)
        return unknownSuffix(path);
    if (const UT_Result<void> checked = UT_checkPlainFile(path); !checked)
        return UT_Error{QStringLiteral("cannot read \"%1\": %2").arg(path, checked.error().text)};
    return format->read(path);
}
