// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The header's layout, all little-endian: a magic number, a version with flags, then for each attribute its name and
// its type, both ended by a zero, the length of its value and the value; an empty name ends the list.
#include "QuarvelImageIO/private/IIO_ExrHeader.h"

#include <QtEndian>

#include <array>
#include <optional>

namespace {

constexpr quint32 kMagic = 20000630;
constexpr quint32 kTiled = 0x200;
constexpr quint32 kDeepOrSeveralParts = 0x1800;
constexpr qsizetype kLongestName = 255;

// The limits of a compression: the lines in a block, and the largest number of bytes that one compressed byte can stand
// for.
struct Compression
{
    qint64 lines;
    qint64 growth;
};

// Indexed by the compression's number in the file. RLE can expand 2 bytes to 128, zlib 1 byte to 1032; PXR24 discards a
// quarter of the data before zlib; PIZ can expand about 10 bits to 255 samples of 2 bytes, B44A 3 bytes to 16 samples
// of 2 bytes; DWA applies RLE before zlib.
constexpr std::array<Compression, 10> kCompressions = {
    {{1, 1}, {1, 64}, {1, 1032}, {16, 1032}, {32, 512}, {16, 1376}, {32, 11}, {32, 11}, {32, 66048}, {256, 66048}}};

struct Promise
{
    std::optional<std::array<qint32, 4>> dataWindow; // the first column and line, the last column and line
    std::optional<std::array<quint32, 2>> tile;      // its width and height
    std::optional<quint8> compression;
    qint64 bytesPerPixel = 0;
};

UT_Error problem(const char* why)
{
    return {QString::fromUtf8(why)};
}

quint32 u32(const QByteArray& bytes, qsizetype offset)
{
    return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

// Reads a text up to its terminating zero; std::nullopt if it is longer than a name can be or the file ends first.
std::optional<QByteArray> readName(QIODevice& device)
{
    QByteArray name;
    for (char c = 0; device.getChar(&c) && name.size() <= kLongestName; name += c)
        if (c == 0)
            return name;
    return std::nullopt;
}

// The bytes of one pixel with all channels. The list holds for each channel its name with a terminating zero and 16
// bytes, the first four of which are the type (integers and floats take four bytes, half floats two). Subsampled
// channels count in full, because this program does not read them anyway.
qint64 bytesPerPixelOf(const QByteArray& channels)
{
    qint64 bytes = 0;
    for (qsizetype offset = 0; offset < channels.size() && channels.at(offset) != 0;) {
        const qsizetype end = channels.indexOf('\0', offset) + 1;
        if (end == 0 || end + 16 > channels.size())
            break;
        bytes += u32(channels, end) == 1 ? 2 : 4;
        offset = end + 16;
    }
    return bytes;
}

// The library allocates memory for the thumbnail by its width and height, so these must agree with its size.
bool isWholePreview(const QByteArray& value)
{
    return value.size() >= 8 && quint64{u32(value, 0)} * u32(value, 4) == static_cast<quint64>(value.size() - 8) / 4;
}

UT_Result<void> readAttribute(const QByteArray& name, const QByteArray& type, const QByteArray& value, Promise& promise)
{
    if (type == "preview" && !isWholePreview(value))
        return problem("its thumbnail is damaged");
    if (name == "dataWindow" && value.size() == 16) {
        auto& window = promise.dataWindow.emplace();
        for (qsizetype i = 0; i < 4; ++i)
            window[static_cast<std::size_t>(i)] = static_cast<qint32>(u32(value, 4 * i));
    } else if (name == "tiles" && value.size() >= 8) {
        promise.tile = {u32(value, 0), u32(value, 4)};
    } else if (name == "compression" && value.size() == 1) {
        promise.compression = static_cast<quint8>(value.at(0));
    } else if (name == "channels") {
        promise.bytesPerPixel = bytesPerPixelOf(value);
    }
    return {};
}

UT_Result<Promise> readAttributes(QIODevice& device)
{
    Promise promise;
    for (;;) {
        const auto name = readName(device);
        if (!name)
            return problem("its header is damaged");
        if (name->isEmpty())
            return promise;
        const auto type = readName(device);
        const QByteArray length = device.read(4);
        if (!type || length.size() != 4)
            return problem("its header is damaged");
        const auto size = static_cast<qint32>(u32(length, 0));
        if (size < 0 || size > device.size() - device.pos())
            return problem("its header promises more than the file holds");
        if (auto read = readAttribute(*name, *type, device.read(size), promise); !read)
            return read.error();
    }
}

qint64 divideUp(qint64 a, qint64 b)
{
    return (a + b - 1) / b;
}

UT_Result<void> compare(const Promise& promise, bool tiled, qint64 bytesLeft)
{
    if (!promise.dataWindow || !promise.compression || *promise.compression >= kCompressions.size() ||
        promise.bytesPerPixel == 0 || (tiled && !promise.tile))
        return problem("its header is damaged, or of a kind that this program does not read");
    const auto& [x1, y1, x2, y2] = *promise.dataWindow;
    const qint64 width = qint64{x2} - x1 + 1;
    const qint64 height = qint64{y2} - y1 + 1;
    if (width < 1 || height < 1 || (tiled && ((*promise.tile)[0] == 0 || (*promise.tile)[1] == 0)))
        return problem("its picture is empty");
    const Compression& compression = kCompressions[*promise.compression];
    const qint64 blocks = tiled ? divideUp(width, (*promise.tile)[0]) * divideUp(height, (*promise.tile)[1])
                                : divideUp(height, compression.lines);
    // Each block has an entry of eight bytes in the table, and at least its place and its length before its bytes.
    constexpr qint64 kLeastOfABlock = 16;
    if (blocks > bytesLeft / kLeastOfABlock)
        return problem("its header promises more lines than the file can hold");
    // In double precision, because the product of three large numbers may overflow an integer.
    const double pixels = static_cast<double>(width) * static_cast<double>(height);
    if (pixels * static_cast<double>(promise.bytesPerPixel) >
        static_cast<double>(bytesLeft) * static_cast<double>(compression.growth))
        return problem("its header promises more pixels than the file can hold");
    return {};
}

UT_Result<void> checkFromHere(QIODevice& device)
{
    const QByteArray begin = device.read(8);
    if (begin.size() != 8 || u32(begin, 0) != kMagic)
        return problem("it is not an OpenEXR file");
    const quint32 version = u32(begin, 4);
    if ((version & kDeepOrSeveralParts) != 0)
        return problem("it has several parts or deep pixels, which this program does not read");
    const auto promise = readAttributes(device);
    if (!promise)
        return promise.error();
    return compare(*promise, (version & kTiled) != 0, device.size() - device.pos());
}

} // namespace

UT_Result<void> IIO_checkExrHeader(QIODevice& device)
{
    auto checked = checkFromHere(device);
    if (!device.seek(0))
        return UT_Error{device.errorString()};
    return checked;
}
