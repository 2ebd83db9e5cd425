// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Renders one drawing in the gloss of its colours.
#pragma once

#include "jobs/drawing/NormalMapJob.h"
#include "jobs/shown/GlossDrawing.h"

/// A drawing in greys.
struct RenderedGloss
{
    UT_SharedPtr<CEL_PixmapArea> picture; ///< associated greys, in the coordinates of the normal map
    std::vector<QColor> missing;          ///< listed colours that the drawing does not have
};

/// Renders the drawing as it is lit, without hidden objects and cut-outs, in the gloss of its colours.
///
/// @return an error if the settings do not fit the drawing or it does not fit in memory
UT_Result<RenderedGloss> renderGloss(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                     const GlossSettings& gloss);
