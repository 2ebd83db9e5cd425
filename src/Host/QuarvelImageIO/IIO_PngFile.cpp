// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Through Qt's PNG writer, which takes rows of 16-bit samples as they lie in the picture.
#include "QuarvelImageIO/IIO_PngFile.h"

#include "QuarvelImageIO/private/IIO_QtImage.h"

namespace {

// On the scale of Qt's writer, where a tenth is about one level of zlib. Beyond level 6 files hardly shrink and smooth
// pictures take ten times as long.
int qtCompression(IIO_Compression compression)
{
    switch (compression) {
    case IIO_Compression::NONE:
        return 0;
    case IIO_Compression::FAST:
        return 20;
    case IIO_Compression::SMALL:
        return 70;
    }
    return 20;
}

} // namespace

UT_Result<void> IIO_writePng(const QString& path, const IIO_Picture& picture, const IIO_WriteOptions& options)
{
    const auto image = IIO_imageOf(picture);
    if (!image)
        return UT_Error{QStringLiteral("cannot write \"%1\": %2").arg(path, image.error().text)};
    return IIO_writeImage(path, *image, "png", qtCompression(options.compression), -1);
}

UT_Result<IIO_Picture> IIO_readPng(const QString& path)
{
    return IIO_readImage(path, "png");
}
