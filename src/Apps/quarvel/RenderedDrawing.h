// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the pictures of one drawing, or of one sprite of a sheet, are made of.
#pragma once

#include "NormalMapOptions.h"
#include "OutputFiles.h"
#include "jobs/drawing/GlossJob.h"
#include "jobs/drawing/NormalMapJob.h"

/// A drawing that was rendered.
struct RenderedDrawing
{
    ShownFrame frame;
    RenderedGloss gloss;       ///< without a picture if no file needs it
    bool showsNothing = false; ///< all objects are hidden or cut out
};

/// Renders what the files need.
///
/// @param settings those of the options, or changed ones; objects that are named get their numbers here
/// @param atOnce how many drawings are rendered at the same time; each may take its share of the memory
UT_Result<RenderedDrawing> renderDrawing(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                         const NormalMapOptions& options, const OutputFiles& files,
                                         const JobProgress& progress = {}, int atOnce = 1);
