// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Animated PNG files: a PNG whose first image every viewer shows, with more of them behind it in chunks of their own.
//
//     signature IHDR acTL fcTL IDAT... fcTL fdAT... fcTL fdAT... IEND
//
// fcTL and fdAT share one row of sequence numbers; a fdAT is an IDAT behind its number. The film starts again when it
// is at its end.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelImageIO/QuarvelImageIOExport.h"

#include <QSize>

#include <memory>
#include <span>
#include <vector>

class IIO_AtomicFile;

/// A film being written, frame by frame. The file appears whole with finish(), or not at all. For one thread at a time.
class QUARVELIMAGEIO_EXPORT IIO_ApngWriter
{
public:
    /// @param path            the file to make or replace
    /// @param size            of every frame, in pixels
    /// @param framesPerSecond held to 1/100 .. 1000
    IIO_ApngWriter(const QString& path, const QSize& size, double framesPerSecond);
    ~IIO_ApngWriter();
    IIO_ApngWriter(const IIO_ApngWriter&) = delete;
    IIO_ApngWriter& operator=(const IIO_ApngWriter&) = delete;

    /// Begins the file; to be called first.
    UT_Result<void> open();

    /// Adds a frame.
    ///
    /// @param rgba bytes R G B A, straight, rows without gaps: 4 x width x height of them
    UT_Result<void> add(std::span<const std::uint8_t> rgba);

    /// Ends the file and gives it its name.
    ///
    /// @return an error when there is no frame or a write failed; what was there before is then unchanged
    UT_Result<void> finish();

private:
    void writeChunk(const char* type, const QByteArray& data, std::span<const std::uint8_t> more = {});
    void writeAnimationControl();
    void writeFrameControl();
    void writeFrame(const std::vector<std::vector<std::uint8_t>>& parts);

    QString _path;
    QSize _size;
    double _framesPerSecond;
    std::unique_ptr<IIO_AtomicFile> _file;
    std::uint32_t _frames = 0;
    std::uint32_t _sequence = 0;
    std::int64_t _animationControlAt = 0;
};
