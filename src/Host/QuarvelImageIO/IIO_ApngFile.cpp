// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Frames are compressed like the pixels of a PNG. The number of frames is known only at the end, so it is written last.
#include "QuarvelImageIO/IIO_ApngFile.h"

#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "QuarvelImageIO/private/IIO_PngChunks.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace {

QImage imageOf(std::span<const std::uint8_t> rgba, const QSize& size)
{
    return QImage(rgba.data(), size.width(), size.height(), qsizetype{4} * size.width(), QImage::Format_RGBA8888);
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
    constexpr IIO_PngForm kColoursAndCoverage{.bitDepth = 8, .colourType = 6, .channels = 4, .imageChannels = 4};
    IIO_PngChunks chunks(_file->device());
    chunks.writeSignature();
    chunks.writeHeader(_size, kColoursAndCoverage);
    _animationControlAt = _file->device().pos();
    writeAnimationControl();
    return {};
}

UT_Result<void> IIO_ApngWriter::add(std::span<const std::uint8_t> rgba)
{
    assert(_file && rgba.size() == std::size_t{4} * static_cast<std::size_t>(_size.width()) *
                                       static_cast<std::size_t>(_size.height()));
    try {
        writeFrame(IIO_compressPngPixels(imageOf(rgba, _size), IIO_Compression::SMALL));
    } catch (const std::bad_alloc&) {
        return UT_noMemory(QStringLiteral("the film"), QStringLiteral("make it smaller"))
            .at(QStringLiteral("cannot write \"%1\"").arg(_path));
    }
    return {};
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

void IIO_ApngWriter::writeChunk(const char* type, const QByteArray& data, std::span<const std::uint8_t> more)
{
    IIO_PngChunks(_file->device()).write(type, data, more);
}

void IIO_ApngWriter::writeAnimationControl()
{
    constexpr std::uint32_t kForEver = 0;
    writeChunk("acTL", IIO_bigEndian(_frames) + IIO_bigEndian(kForEver));
}

void IIO_ApngWriter::writeFrameControl()
{
    constexpr std::uint32_t kOrigin = 0;
    constexpr double kDenominator = 10000.0;
    const double seconds = 1.0 / _framesPerSecond;
    // The delay is a fraction of two 16-bit numbers: short delays count ten thousandths of a second, long ones
    // hundredths.
    const double unit = seconds < 6.0 ? kDenominator : 100.0;
    writeChunk("fcTL", IIO_bigEndian(_sequence++) + IIO_bigEndian(static_cast<std::uint32_t>(_size.width())) +
                           IIO_bigEndian(static_cast<std::uint32_t>(_size.height())) + IIO_bigEndian(kOrigin) +
                           IIO_bigEndian(kOrigin) +
                           IIO_bigEndian(static_cast<std::uint16_t>(std::lround(seconds * unit))) +
                           IIO_bigEndian(static_cast<std::uint16_t>(unit)) + QByteArray(2, '\0'));
}

void IIO_ApngWriter::writeFrame(const std::vector<std::vector<std::uint8_t>>& parts)
{
    writeFrameControl();
    for (const auto& part : parts)
        if (_frames == 0)
            writeChunk("IDAT", {}, part);
        else
            writeChunk("fdAT", IIO_bigEndian(_sequence++), part);
    ++_frames;
}
