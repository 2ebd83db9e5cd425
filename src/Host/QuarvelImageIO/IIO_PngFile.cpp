// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PNG files are written here, in parallel, because Qt's writer on one thread took half of the time of a command that
// makes a normal map. Qt reads them.
#include "QuarvelImageIO/IIO_PngFile.h"

#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "QuarvelImageIO/private/IIO_PngChunks.h"
#include "QuarvelImageIO/private/IIO_QtImage.h"

#include <QBuffer>

#include <new>

namespace {

QString writing(const QString& path)
{
    return QStringLiteral("cannot write \"%1\"").arg(path);
}

void writeChunks(QIODevice& device, const QImage& image, IIO_Compression compression)
{
    IIO_PngChunks chunks(device);
    chunks.writeSignature();
    chunks.writeHeader(image.size(), IIO_pngFormOf(image));
    chunks.writeDensity(image.dotsPerMeterX());
    for (const QString& key : image.textKeys())
        chunks.writeText(key, image.text(key));
    for (const auto& part : IIO_compressPngPixels(image, compression))
        chunks.write("IDAT", {}, part);
    chunks.write("IEND", {});
}

UT_Result<QImage> imageFor(const IIO_Picture& picture, const IIO_WriteOptions& options)
{
    auto wide = IIO_imageOf(picture);
    const bool alpha = picture.channels().contains(QStringLiteral("A"));
    return wide && options.pngBits == 8 ? IIO_image8(*wide, alpha) : std::move(wide);
}

UT_Error noMemory()
{
    return UT_noMemory(QStringLiteral("the picture"), QStringLiteral("make it smaller"));
}

} // namespace

UT_Result<void> IIO_writePng(const QString& path, const IIO_Picture& picture, const IIO_WriteOptions& options)
{
    const auto image = imageFor(picture, options);
    if (!image)
        return image.error().at(writing(path));
    IIO_AtomicFile file(path);
    if (auto opened = file.open(); !opened)
        return opened;
    try {
        writeChunks(file.device(), *image, options.compression);
    } catch (const std::bad_alloc&) {
        return noMemory().at(writing(path));
    }
    return file.commit();
}

UT_Result<QByteArray> IIO_pngBytes(const IIO_Picture& picture, const IIO_WriteOptions& options)
{
    const auto image = imageFor(picture, options);
    if (!image)
        return image.error();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    try {
        writeChunks(buffer, *image, options.compression);
    } catch (const std::bad_alloc&) {
        return noMemory();
    }
    return buffer.data();
}

UT_Result<IIO_Picture> IIO_readPng(const QString& path)
{
    return IIO_readImage(path, "png");
}
