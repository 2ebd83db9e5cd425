// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The fast compression is that of ISA-L at level 0 with Huffman codes fitted to the bytes: a third of the time of zlib,
// for a result hardly larger. ISA-L's levels 1 and 2 compress better, but their choice between matches depends on the
// address of their state, so that the same bytes would not always become the same piece. zlib makes the small files and
// the uncompressed ones.
#include "QuarvelImageIO/private/IIO_Deflate.h"

#include <isa-l/igzip_lib.h>
#include <zlib.h>

#include <algorithm>
#include <cassert>
#include <memory>
#include <new>
#include <utility>

namespace {

using Bytes = std::vector<std::uint8_t>;

// Higher levels make files hardly smaller, and smooth pictures take ten times as long.
constexpr int kSmallLevel = 6;

// The largest compressed size: deflate adds at most a few bytes to each block of 64 KiB that it cannot compress.
std::size_t roomFor(std::size_t bytes)
{
    return bytes + bytes / 1024 + 256;
}

// New bytes of a vector are cleared, which takes as long as a tenth of the compression.
void growTo(std::size_t bytes, Bytes& room)
{
    if (room.size() < bytes)
        room.resize(bytes);
}

// Finding the symbols takes nearly as long as the compression. So they are looked for in a quarter of many bytes only,
// in parts that are long enough for matches across several rows of a picture. That makes files larger by 3 to 5
// thousandths.
void countSymbols(std::span<const std::uint8_t> bytes, isal_huff_histogram& histogram)
{
    constexpr std::size_t kPart = std::size_t{64} << 10;
    constexpr std::size_t kStep = 4 * kPart;
    const std::size_t part = bytes.size() < kStep ? kStep : kPart;
    for (std::size_t from = 0; from < bytes.size(); from += kStep) {
        const auto some = bytes.subspan(from, std::min(part, bytes.size() - from));
        isal_update_histogram(const_cast<std::uint8_t*>(some.data()), static_cast<int>(some.size()), &histogram);
    }
}

// Huffman codes that are short for frequent symbols of the bytes and cover all other symbols too. Null if they cannot
// be made.
std::unique_ptr<isal_hufftables> codesFor(std::span<const std::uint8_t> bytes)
{
    const auto histogram = std::make_unique<isal_huff_histogram>();
    auto codes = std::make_unique<isal_hufftables>();
    countSymbols(bytes, *histogram);
    return isal_create_hufftables(codes.get(), histogram.get()) == 0 ? std::move(codes) : nullptr;
}

} // namespace

std::uint32_t IIO_Deflate::checksumOf(std::span<const std::uint8_t> bytes)
{
    return isal_adler32(1, bytes.data(), bytes.size());
}

std::span<const std::uint8_t> IIO_Deflate::compress(std::span<const std::uint8_t> bytes, bool isLast, Bytes& room) const
{
    const std::size_t length =
        _compression == IIO_Compression::FAST ? compressFast(bytes, isLast, room) : compressWell(bytes, isLast, room);
    return std::span<const std::uint8_t>(room).first(length);
}

std::size_t IIO_Deflate::compressFast(std::span<const std::uint8_t> bytes, bool isLast, Bytes& room)
{
    const std::unique_ptr<isal_hufftables> codes = codesFor(bytes);
    isal_zstream stream{};
    isal_deflate_init(&stream);
    if (codes)
        stream.hufftables = codes.get();
    stream.end_of_stream = isLast ? 1 : 0;
    stream.flush = isLast ? NO_FLUSH : SYNC_FLUSH;
    stream.next_in = const_cast<std::uint8_t*>(bytes.data());
    stream.avail_in = static_cast<std::uint32_t>(bytes.size());
    do {
        // One pass is enough unless the output exceeds roomFor().
        const std::size_t used = stream.total_out;
        growTo(used + roomFor(bytes.size()), room);
        stream.next_out = room.data() + used;
        stream.avail_out = static_cast<std::uint32_t>(room.size() - used);
        [[maybe_unused]] const int state = isal_deflate(&stream);
        assert(state == COMP_OK);
    } while (stream.avail_out == 0);
    assert(stream.avail_in == 0);
    return stream.total_out;
}

std::size_t IIO_Deflate::compressWell(std::span<const std::uint8_t> bytes, bool isLast, Bytes& room) const
{
    constexpr int kRawStream = -15;
    constexpr int kMostMemory = 9;
    const bool isSmall = _compression == IIO_Compression::SMALL;
    z_stream stream{};
    if (deflateInit2(&stream, isSmall ? kSmallLevel : Z_NO_COMPRESSION, Z_DEFLATED, kRawStream, kMostMemory,
                     isSmall ? Z_FILTERED : Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::bad_alloc();
    constexpr std::size_t kFlushMark = 16;
    growTo(deflateBound(&stream, static_cast<uLong>(bytes.size())) + kFlushMark, room);
    stream.next_in = const_cast<Bytef*>(bytes.data());
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = room.data();
    stream.avail_out = static_cast<uInt>(room.size());
    deflate(&stream, isLast ? Z_FINISH : Z_SYNC_FLUSH);
    assert(stream.avail_in == 0 && stream.avail_out > 0);
    const std::size_t length = stream.total_out;
    deflateEnd(&stream);
    return length;
}
