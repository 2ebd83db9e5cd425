// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From a rendered frame to the pictures of one drawing, and to their files.
#pragma once

#include "NormalMapOptions.h"
#include "OutputFiles.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "RenderedDrawing.h"
#include "jobs/drawing/NormalMapJob.h"

#include <functional>

/// What a picture was made of, as its file says.
struct PictureOrigin
{
    QString drawing;   ///< the drawing's path, of which the name is noted
    QByteArray digest; ///< of all that determines the drawing's files (KeptMaps.h); empty: none
};

/// The pictures that a run makes.
enum class PictureKind
{
    NORMAL_MAP,
    ELEVATION,
    LIT,
    DRAWING,
    HEIGHT, ///< floats until it is written, because the range of a file of integers follows from the whole picture
    OCCLUSION,
    NUMBERS,
    GLOSS
};

/// A picture that is made for a file.
struct WantedPicture
{
    PictureKind kind;
    QString file;
};

/// The pictures that have a file, in the order in which they are made.
std::vector<WantedPicture> picturesOf(const OutputFiles& files);

/// Takes a picture that was made for a file.
using TakePicture = std::function<UT_Result<void>(PictureKind kind, const QString& file, IIO_Picture picture)>;

/// Whether a file of a normal map holds the drawing, with the vectors in layers of their own.
bool holdsLayers(const NormalMapOptions& options, const QString& file);

/// Whether masks of gloss are written as roughness.
bool takesRoughness(const NormalMapOptions& options);

/// What the files need rendered.
ShownParts wantedPictures(const NormalMapOptions& options, const OutputFiles& files);

/// Makes the pictures of the files that have a name, one after the other.
///
/// @param progress told after each
UT_Result<void> makePictures(const RenderedDrawing& rendered, const NormalMapOptions& options, const OutputFiles& files,
                             const TakePicture& take, const JobProgress& progress = {});

/// Writes a picture, whole or not at all.
UT_Result<void> writePicture(IIO_Picture picture, const QString& file, const NormalMapOptions& options,
                             const PictureOrigin& origin);

/// The same for a normal map, with those for mirrored sprites where the options want them.
UT_Result<void> writeMap(IIO_Picture map, const QString& file, const NormalMapOptions& options,
                         const PictureOrigin& origin);

/// Writes a picture of this kind, with what belongs to it.
UT_Result<void> writeFinished(PictureKind kind, IIO_Picture picture, const QString& file,
                              const NormalMapOptions& options, const PictureOrigin& origin);

/// Makes and writes the pictures and the page. Each file appears whole or not at all.
UT_Result<void> writePictures(const RenderedDrawing& rendered, const NormalMapOptions& options,
                              const OutputFiles& files, const PictureOrigin& origin, const JobProgress& progress);
