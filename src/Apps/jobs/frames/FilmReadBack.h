// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Checks a film that was just encoded. The encoder's exit code is not enough: on a full disk ffmpeg writes a truncated
// film and reports success.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

/// The programs that make films of the kinds mp4 and gif: ffmpeg, and ffprobe, which comes with it.
struct FilmPrograms
{
    QString encoder;
    QString prober;

    /// Finds both on the search path; isComplete() tells whether both were found.
    static FilmPrograms find();
    bool isComplete() const { return !encoder.isEmpty() && !prober.isEmpty(); }
};

/// Decodes a film to its end.
///
/// @param frames the expected number of frames
/// @return an error if the film has another number of frames, or one cannot be decoded
UT_Result<void> readBackFilm(const FilmPrograms& programs, const QString& film, int frames);
