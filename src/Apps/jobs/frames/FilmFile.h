// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FilmFile: writes pictures as a film. The program ffmpeg makes mp4 and gif if it and ffprobe are installed. Animated
// PNG (png) is written without it, and replaces the other kinds if ffmpeg is missing.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QSize>

#include <memory>
#include <span>

/// A film that is being written. The complete file appears with finish(), or not at all. Only one thread may use it at
/// a time.
class FilmFile
{
public:
    virtual ~FilmFile() = default;
    FilmFile(const FilmFile&) = delete;
    FilmFile& operator=(const FilmFile&) = delete;

    /// Begins a film of the kind of the path's suffix.
    ///
    /// @param size the size of every frame, in pixels
    /// @return an error if the suffix is not that of a film, or the file cannot be made
    static UT_Result<std::unique_ptr<FilmFile>> create(const QString& path, const QSize& size, double framesPerSecond);

    /// Returns an error if the path's suffix is not that of a film.
    static UT_Result<void> check(const QString& path);

    /// The file that create() makes now for this path: if ffmpeg is missing, its suffix is .png instead of the
    /// requested one. Empty for an empty path.
    static QString fileFor(const QString& path);

    /// The path of the film; see fileFor().
    const QString& path() const { return _path; }

    /// Adds a frame: bytes R G B A, straight, rows without gaps.
    virtual UT_Result<void> add(std::span<const std::uint8_t> rgba) = 0;

    /// Completes the film. It gets its name if all frames can be read back from it.
    virtual UT_Result<void> finish() = 0;

protected:
    explicit FilmFile(const QString& path) : _path(path) {}

private:
    QString _path;
};
