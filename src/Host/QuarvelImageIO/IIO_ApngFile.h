// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Animated PNG files: a PNG whose first image every viewer shows. The other frames follow in chunks of their own.
//
//     signature IHDR acTL fcTL IDAT... fcTL fdAT... fcTL fdAT... IEND
//
// fcTL and fdAT share one sequence of numbers; a fdAT holds its number and then what an IDAT holds. The film repeats
// for ever.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelImageIO/QuarvelImageIOExport.h"

#include <QSize>

#include <memory>
#include <span>
#include <vector>

class IIO_AtomicFile;

/// Writes a film frame by frame. The complete file appears with finish(), or not at all. Only one thread may use a
/// writer at a time.
class QUARVELIMAGEIO_EXPORT IIO_ApngWriter
{
public:
    /// @param path            the file to make or replace
    /// @param size the size of every frame, in pixels
    /// @param framesPerSecond clamped to 1/100 .. 1000
    IIO_ApngWriter(const QString& path, const QSize& size, double framesPerSecond);
    ~IIO_ApngWriter();
    IIO_ApngWriter(const IIO_ApngWriter&) = delete;
    IIO_ApngWriter& operator=(const IIO_ApngWriter&) = delete;

    /// Begins the file. Must be called first.
    UT_Result<void> open();

    /// Adds a frame.
    ///
    /// @param rgba 4 x width x height bytes R G B A, straight, rows without gaps
    UT_Result<void> add(std::span<const std::uint8_t> rgba);

    /// Completes the file and gives it its name.
    ///
    /// @return an error if there is no frame or a write failed; an older file is then unchanged
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
