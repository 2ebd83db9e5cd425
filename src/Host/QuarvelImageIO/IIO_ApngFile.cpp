// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Frames are compressed like the pixels of a PNG. The number of frames is known only at the end, so it is written last.
#include "QuarvelImageIO/IIO_ApngFile.h"

#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "QuarvelImageIO/private/IIO_PngChunks.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace {

QImage imageOf(std::span<const std::uint8_t> rgba, const QSize& size)
{
    return QImage(rgba.data(), size.width(), size.height(), qsizetype{4} * size.width(), QImage::Format_RGBA8888);
}

// How long a frame is shown, in seconds, as a fraction of two 16-bit numbers: ten thousandths where they are exact.
// Whole rates are exact, too, and so are those of television, such as 24000/1001; for others the divisor is as large as
// it can be.
std::pair<std::uint16_t, std::uint16_t> delayOf(double framesPerSecond)
{
    constexpr double kMost = 65535.0;
    constexpr double kTenThousandths = 10000.0;
    const auto isWhole = [](double number) {
        return number >= 1.0 && number <= kMost && std::abs(number - std::round(number)) <= 1e-6 * number;
    };
    const auto fraction = [](double count, double divisor) {
        return std::pair(static_cast<std::uint16_t>(std::lround(count)),
                         static_cast<std::uint16_t>(std::lround(divisor)));
    };
    if (const double count = kTenThousandths / framesPerSecond; isWhole(count))
        return fraction(count, kTenThousandths);
    for (const double count : {1.0, 1001.0, 1000.0})
        if (isWhole(count * framesPerSecond))
            return fraction(count, count * framesPerSecond);
    const double count = std::max(1.0, std::floor(kMost / std::max(framesPerSecond, 1.0)));
    return fraction(count, count * framesPerSecond);
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
    const auto [count, divisor] = delayOf(_framesPerSecond);
    writeChunk("fcTL", IIO_bigEndian(_sequence++) + IIO_bigEndian(static_cast<std::uint32_t>(_size.width())) +
                           IIO_bigEndian(static_cast<std::uint32_t>(_size.height())) + IIO_bigEndian(kOrigin) +
                           IIO_bigEndian(kOrigin) + IIO_bigEndian(count) + IIO_bigEndian(divisor) +
                           QByteArray(2, '\0'));
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
