// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelDrawingIO/private/layered/DIO_FileLimits.h"

#include "QuarvelBaseCore/UT_PlainFile.h"

#include <zlib.h>

QString DIO_layerName(const QString& groups, const QString& name)
{
    constexpr qsizetype kMostLetters = 1000;
    return (groups + name.right(kMostLetters)).right(kMostLetters);
}

UT_Error DIO_damaged()
{
    return {QStringLiteral("the file is damaged or cut off; save it again from the program that made it")};
}

UT_Error DIO_tooManyLayers()
{
    return {QStringLiteral("it has more than the %1 layers that can be read").arg(DIO_kMostLayers)};
}

UT_Error DIO_tooDeepGroups()
{
    return {QStringLiteral("its groups lie more than %1 deep in each other").arg(DIO_kDeepestGroup)};
}

UT_Result<QByteArray> DIO_readBytes(const QString& path)
{
    constexpr qint64 kMost = 1'000'000'000;
    QFile file(path);
    if (const UT_Result<void> opened = UT_openPlainFile(file); !opened)
        return opened.error();
    if (file.size() > kMost)
        return UT_Error{QStringLiteral("the file is larger than the gigabyte that can be read")};
    return file.readAll();
}

std::span<const std::uint8_t> DIO_bytesOf(const QByteArray& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

UT_Result<void> DIO_PixelBudget::take(std::int64_t width, std::int64_t height)
{
    if (width <= 0 || height <= 0)
        return DIO_damaged();
    // The product of two numbers of 32 bits may be more than 64 bits with a sign hold.
    if (width > _most / height)
        return UT_Error{QStringLiteral("a picture in it has ") + DIO_tooManyPixels(width, height)};
    _left -= width * height;
    if (_left < 0)
        return UT_Error{QStringLiteral("its pictures have more than the %1 million pixels for which there is memory "
                                       "together; make it smaller, or split it")
                            .arg(DIO_kMostPicturesInAll * _most / 1'000'000)};
    return {};
}

UT_Result<std::vector<std::uint8_t>> DIO_inflate(std::span<const std::uint8_t> packed, std::size_t size)
{
    // The format cannot compress better than about 1 : 1030.
    constexpr std::size_t kBestRatio = 1040;
    if (size / kBestRatio > packed.size() + 1)
        return DIO_damaged();
    std::vector<std::uint8_t> bytes(size);
    auto made = static_cast<uLongf>(bytes.size());
    const int end = uncompress(bytes.data(), &made, packed.data(), static_cast<uLong>(packed.size()));
    if (end != Z_OK || made != size)
        return DIO_damaged();
    return bytes;
}
