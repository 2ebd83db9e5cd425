// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Looks into a film that was just encoded. An encoder's word is not enough: on a full disk ffmpeg writes a film that is
// cut off and says that all went well.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

/// The programs that films of the kinds mp4 and gif are made with: ffmpeg, and ffprobe, which comes with it.
struct FilmPrograms
{
    QString encoder;
    QString prober;

    /// Where the search path finds both; nothing is missing when isComplete().
    static FilmPrograms find();
    bool isComplete() const { return !encoder.isEmpty() && !prober.isEmpty(); }
};

/// Decodes a film to its end.
///
/// @param frames how many it is to have
/// @return an error when it has another number of them, or one cannot be decoded
UT_Result<void> readBackFilm(const FilmPrograms& programs, const QString& film, int frames);
