// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// "quarvel normalmap" for pages of many sprites: every sprite is rendered alone, in its own frame's measure, and the
// result is placed where the sprite lies on the page.
#pragma once

#include "NormalMapOptions.h"
#include "OutputFiles.h"
#include "WritePictures.h"
#include "jobs/drawing/NormalMapJob.h"
#include "jobs/sheets/Sheet.h"

/// What came of a page.
struct SheetResult
{
    int sprites = 0; ///< rendered; cells that show nothing are not
    QStringList warnings;
};

/// Renders a page and writes its pictures. Nothing is written unless all of it was rendered.
///
/// @param page    its path, and what its pictures say of it
/// @param regions of an atlas, or none where the options say cells
UT_Result<SheetResult> runSheet(const PictureOrigin& page, const std::vector<SheetRegion>& regions,
                                const NormalMapOptions& options, const OutputFiles& files, const JobProgress& progress);
