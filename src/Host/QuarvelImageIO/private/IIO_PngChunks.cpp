// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ISA-L computes the checksums, several times as fast as zlib: one thread sums up a whole file.
#include "QuarvelImageIO/private/IIO_PngChunks.h"

#include <isa-l/crc.h>

#include <algorithm>

namespace {

std::uint32_t checksumOf(const QByteArray& head, std::span<const std::uint8_t> more)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(head.constData());
    const std::uint32_t checksum = crc32_gzip_refl(0, bytes, static_cast<std::uint64_t>(head.size()));
    return crc32_gzip_refl(checksum, more.data(), more.size());
}

// Whether tEXt can hold the text: printable Latin-1 characters and line feeds.
bool isPlainText(const QString& text)
{
    return std::ranges::all_of(text, [](QChar character) {
        const char16_t code = character.unicode();
        return code == u'\n' || (code >= 0x20 && code < 0x7f) || (code >= 0xa0 && code <= 0xff);
    });
}

} // namespace

void IIO_PngChunks::writeSignature()
{
    _device.write(QByteArrayLiteral("\x89PNG\r\n\x1a\n"));
}

void IIO_PngChunks::write(const char* type, const QByteArray& data, std::span<const std::uint8_t> more)
{
    const auto length = static_cast<std::uint32_t>(static_cast<std::size_t>(data.size()) + more.size());
    const QByteArray head = type + data;
    _device.write(IIO_bigEndian(length) + head);
    if (!more.empty())
        _device.write(reinterpret_cast<const char*>(more.data()), static_cast<qint64>(more.size()));
    _device.write(IIO_bigEndian(checksumOf(head, more)));
}

void IIO_PngChunks::writeHeader(const QSize& size, const IIO_PngForm& form)
{
    constexpr std::uint8_t kDeflate = 0;
    constexpr std::uint8_t kFilterPerRow = 0;
    constexpr std::uint8_t kNotInterlaced = 0;
    write("IHDR", IIO_bigEndian(static_cast<std::uint32_t>(size.width())) +
                      IIO_bigEndian(static_cast<std::uint32_t>(size.height())) + IIO_bigEndian(form.bitDepth) +
                      IIO_bigEndian(form.colourType) + IIO_bigEndian(kDeflate) + IIO_bigEndian(kFilterPerRow) +
                      IIO_bigEndian(kNotInterlaced));
}

void IIO_PngChunks::writeDensity(int dotsPerMetre)
{
    constexpr std::uint8_t kPerMetre = 1;
    const QByteArray dots = IIO_bigEndian(static_cast<std::uint32_t>(dotsPerMetre));
    write("pHYs", dots + dots + IIO_bigEndian(kPerMetre));
}

void IIO_PngChunks::writeText(const QString& key, const QString& value)
{
    if (isPlainText(value))
        write("tEXt", key.toLatin1() + '\0' + value.toLatin1());
    else // Uncompressed; no language; no translation of the key.
        write("iTXt", key.toLatin1() + QByteArray(5, '\0') + value.toUtf8());
}
