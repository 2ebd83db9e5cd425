// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// zlib unpacks block by block, so that a small file cannot take more memory than the limit says.
#include "QuarvelDrawingIO/private/DIO_Gunzip.h"

#include <zlib.h>

#include <array>

bool DIO_isGzip(const QByteArray& bytes)
{
    return bytes.startsWith("\x1f\x8b");
}

std::optional<QByteArray> DIO_gunzip(const QByteArray& bytes, qint64 limit)
{
    constexpr int kGzip = 16 + MAX_WBITS; // zlib's way of asking for gzip's header
    z_stream stream{};
    if (inflateInit2(&stream, kGzip) != Z_OK)
        return std::nullopt;
    QByteArray input = bytes;
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    QByteArray unpacked;
    std::array<char, 65536> block{};
    int state = Z_OK;
    while (state == Z_OK && unpacked.size() <= limit) {
        stream.next_out = reinterpret_cast<Bytef*>(block.data());
        stream.avail_out = static_cast<uInt>(block.size());
        state = inflate(&stream, Z_NO_FLUSH);
        unpacked.append(block.data(), static_cast<qsizetype>(block.size() - stream.avail_out));
    }
    inflateEnd(&stream);
    if (unpacked.size() > limit)
        return unpacked.left(limit + 1);
    return state == Z_STREAM_END ? std::optional(unpacked) : std::nullopt;
}
