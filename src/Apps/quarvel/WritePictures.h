// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From a rendered frame to the files of one drawing.
#pragma once

#include "NormalMapOptions.h"
#include "OutputFiles.h"
#include "jobs/drawing/NormalMapJob.h"

/// What the files need rendered.
ShownParts wantedPictures(const NormalMapOptions& options, const OutputFiles& files);

/// Writes the files. Each appears whole or not at all.
///
/// @param drawing  the drawing's path, noted in the files
/// @param progress told after each file
UT_Result<void> writePictures(const ShownFrame& frame, const NormalMapOptions& options, const OutputFiles& files,
                              const QString& drawing, const JobProgress& progress);
