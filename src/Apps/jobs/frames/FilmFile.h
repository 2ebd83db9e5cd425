// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FilmFile: pictures become a film. Films of the kinds mp4 and gif are made by the program ffmpeg where it and ffprobe
// are installed; animated PNG (png) is written here, and takes the place of the other kinds where ffmpeg is missing.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QSize>

#include <memory>
#include <span>

/// A film being written. It appears whole with finish(), or not at all. For one thread at a time.
class FilmFile
{
public:
    virtual ~FilmFile() = default;
    FilmFile(const FilmFile&) = delete;
    FilmFile& operator=(const FilmFile&) = delete;

    /// Makes a film of the kind that the path's end names.
    ///
    /// @param size of every frame, in pixels
    /// @return an error when the end names no kind of film, or the file cannot be made
    static UT_Result<std::unique_ptr<FilmFile>> create(const QString& path, const QSize& size, double framesPerSecond);

    /// The kind that a path's end names is known.
    static UT_Result<void> check(const QString& path);

    /// The file that appears. Not the path asked for when ffmpeg is missing: then its end is .png.
    const QString& path() const { return _path; }

    /// Adds a frame: bytes R G B A, straight, rows without gaps.
    virtual UT_Result<void> add(std::span<const std::uint8_t> rgba) = 0;

    /// Ends the film: it gets its name when all frames can be read back from it.
    virtual UT_Result<void> finish() = 0;

protected:
    explicit FilmFile(const QString& path) : _path(path) {}

private:
    QString _path;
};
