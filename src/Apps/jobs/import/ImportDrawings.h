// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Import: drawings, sequences of them, and animations become scenes.
//
//   SVG drawings    one drawing a frame; layers of the same name are one element through all frames
//   bitmaps         one layer a file, named after it; files that differ in the frame number alone are one layer
//   one drawing     of either kind: its objects are chosen from the drawing
//   layered files   OpenRaster, PSD, Krita, Aseprite: as SVG drawings
//   an animation    in the Lottie format: its top-level layers become elements
//   moving pictures one file of several frames, GIF, WebP, animated PNG or Aseprite: in the file's own frame rate
//
// The frame number is the last run of digits in a file's name. The result does not depend on the order of the files.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_LottieReader.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/drawing/NormalMapSettings.h"
#include "jobs/import/DrawingSequence.h"

#include <functional>

/// How files are imported.
struct ImportSettings
{
    FormSettings form; ///< where the objects of a single drawing, and every object's values, come from
    DIO_LottieLimits lottie;
    /// Called now and then with how much is done, 0 to 1, or 0 where that is unknown; returning false stops. Calls come
    /// from the importing thread. May be empty.
    std::function<bool(double done)> goOn = {};
    ObjectWishes wishes = {}; ///< what is said of the objects; holds before what the form gives
};

/// A scene that was made of drawings.
struct ImportedScene
{
    std::unique_ptr<MO_Scene> scene;
    QStringList warnings; ///< what was left out or simplified, a line each, for people to read
};

/// The ends of the names of files that can be imported, lower case, without dot, sorted.
QStringList importableSuffixes();

/// Reads files of one kind into a sequence.
///
/// @return an error, which names the file, when one cannot be read or the files do not go together; one of the kind
///     STOPPED when settings.goOn said to stop
UT_Result<DrawingSequence> readSequence(const QStringList& files, const ImportSettings& settings);

/// Makes a scene of files of one kind. The plug-ins must be loaded.
///
/// @return an error, which names the file, when one cannot be read or the files do not go together
UT_Result<ImportedScene> importDrawings(const QStringList& files, const ImportSettings& settings);
