// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Qt presses each frame as a PNG of its own; its chunks are taken over. How many frames there are is known only at the
// end, so that this number is written last.
#include "QuarvelImageIO/IIO_ApngFile.h"

#include "QuarvelImageIO/IIO_AtomicFile.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr qsizetype kSignatureLength = 8;
constexpr qsizetype kChunkFrame = 12; // length, type, checksum

std::array<std::uint32_t, 256> crcTable()
{
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t remainder = i;
        for (int bit = 0; bit < 8; ++bit)
            remainder = (remainder & 1U) != 0U ? 0xedb88320U ^ (remainder >> 1U) : remainder >> 1U;
        table[i] = remainder;
    }
    return table;
}

// The checksum of PNG chunks: CRC-32 as in ISO 3309.
std::uint32_t crcOf(const QByteArray& bytes)
{
    static const std::array<std::uint32_t, 256> table = crcTable();
    std::uint32_t crc = 0xffffffffU;
    for (const char byte : bytes)
        crc = table[(crc ^ static_cast<std::uint8_t>(byte)) & 0xffU] ^ (crc >> 8U);
    return crc ^ 0xffffffffU;
}

template<typename Number>
QByteArray bigEndian(Number number)
{
    QByteArray bytes(sizeof(Number), Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

struct Chunk
{
    QByteArray type;
    QByteArray data;
};

// The chunks of a PNG that Qt made a moment ago.
std::vector<Chunk> chunksOf(const QByteArray& png)
{
    std::vector<Chunk> chunks;
    for (qsizetype at = kSignatureLength; at + kChunkFrame <= png.size();) {
        const auto length = static_cast<qsizetype>(qFromBigEndian<std::uint32_t>(png.constData() + at));
        if (length > png.size() - at - kChunkFrame)
            break;
        chunks.push_back({png.mid(at + 4, 4), png.mid(at + 8, length)});
        at += length + kChunkFrame;
    }
    return chunks;
}

// Header of eight bits a channel, colours and coverage, not interlaced.
QByteArray headerOf(const QSize& size)
{
    return bigEndian(static_cast<std::uint32_t>(size.width())) + bigEndian(static_cast<std::uint32_t>(size.height())) +
           QByteArray("\x08\x06\x00\x00\x00", 5);
}

} // namespace

IIO_ApngWriter::IIO_ApngWriter(const QString& path, const QSize& size, double framesPerSecond)
    : _path(path), _size(size), _framesPerSecond(std::clamp(framesPerSecond, 0.01, 1000.0))
{}

IIO_ApngWriter::~IIO_ApngWriter() = default;

UT_Result<void> IIO_ApngWriter::open()
{
    if (_size.isEmpty())
        return UT_Error{QStringLiteral("cannot write \"%1\": a film has at least one pixel").arg(_path)};
    _file = std::make_unique<IIO_AtomicFile>(_path);
    if (auto opened = _file->open(); !opened)
        return opened;
    _file->device().write("\x89PNG\r\n\x1a\n", kSignatureLength);
    writeChunk("IHDR", headerOf(_size));
    _animationControlAt = _file->device().pos();
    writeAnimationControl();
    return {};
}

UT_Result<void> IIO_ApngWriter::add(std::span<const std::uint8_t> rgba)
{
    assert(_file && rgba.size() == std::size_t{4} * static_cast<std::size_t>(_size.width()) *
                                       static_cast<std::size_t>(_size.height()));
    const QImage image(rgba.data(), _size.width(), _size.height(), qsizetype{4} * _size.width(),
                       QImage::Format_RGBA8888);
    QBuffer buffer;
    QImageWriter writer(&buffer, QByteArrayLiteral("png"));
    if (!writer.write(image))
        return UT_Error{QStringLiteral("cannot write \"%1\": %2").arg(_path, writer.errorString())};
    return writeImage(buffer.data());
}

UT_Result<void> IIO_ApngWriter::finish()
{
    assert(_file);
    if (_frames == 0)
        return UT_Error{QStringLiteral("cannot write \"%1\": a film has at least one frame").arg(_path)};
    writeChunk("IEND", {});
    if (!_file->device().seek(_animationControlAt))
        return UT_Error{QStringLiteral("cannot write \"%1\": %2").arg(_path, _file->device().errorString())};
    writeAnimationControl();
    return _file->commit();
}

void IIO_ApngWriter::writeChunk(const char* type, const QByteArray& data)
{
    const QByteArray checked = QByteArray(type) + data;
    _file->device().write(bigEndian(static_cast<std::uint32_t>(data.size())) + checked + bigEndian(crcOf(checked)));
}

void IIO_ApngWriter::writeAnimationControl()
{
    constexpr std::uint32_t kForEver = 0;
    writeChunk("acTL", bigEndian(_frames) + bigEndian(kForEver));
}

void IIO_ApngWriter::writeFrameControl()
{
    constexpr std::uint32_t kOrigin = 0;
    constexpr double kDenominator = 10000.0;
    const double seconds = 1.0 / _framesPerSecond;
    // Two 16-bit numbers: short delays in ten thousandths of a second, long ones in hundredths.
    const double unit = seconds < 6.0 ? kDenominator : 100.0;
    writeChunk("fcTL", bigEndian(_sequence++) + bigEndian(static_cast<std::uint32_t>(_size.width())) +
                           bigEndian(static_cast<std::uint32_t>(_size.height())) + bigEndian(kOrigin) +
                           bigEndian(kOrigin) + bigEndian(static_cast<std::uint16_t>(std::lround(seconds * unit))) +
                           bigEndian(static_cast<std::uint16_t>(unit)) + QByteArray(2, '\0'));
}

UT_Result<void> IIO_ApngWriter::writeImage(const QByteArray& png)
{
    const std::vector<Chunk> chunks = chunksOf(png);
    if (chunks.empty() || chunks.front().data != headerOf(_size))
        return UT_Error{
            QStringLiteral("cannot write \"%1\": a frame was not pressed with colours and coverage").arg(_path)};
    writeFrameControl();
    for (const Chunk& chunk : chunks)
        if (chunk.type == "IDAT") {
            if (_frames == 0)
                writeChunk("IDAT", chunk.data);
            else
                writeChunk("fdAT", bigEndian(_sequence++) + chunk.data);
        }
    ++_frames;
    return {};
}
