// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The rasteriser of vector drawings.
#pragma once

#include "QuarvelCelCore/CELVEC_Kvd.h"

/// Paints a drawing's selected art layers into a pixmap, with the colours of a transform, as CELVEC_Kvd::render
/// describes.
void CELVEC_rasterise(const CELVEC_Kvd& drawing, GR_GraphicOpsColorTransform& colors, const CELVEC_RenderArgs& args,
                      CEL_PixmapArea& target);

/// Paints it into a coverage, as CELVEC_Kvd::addCoverage describes.
void CELVEC_rasteriseCoverage(const CELVEC_Kvd& drawing, GR_GraphicOpsColorTransform& colors,
                              const CELVEC_RenderArgs& args, CEL_CoverageStep step, CEL_CoveragePlane& coverage);

/// A drawing and the colours that it is painted in.
struct CELVEC_ColouredDrawing
{
    const CELVEC_Kvd& drawing;
    GR_GraphicOpsColorTransform& colors;
};

/// Paints the alpha that two drawings share, as CELVEC_Kvd::sharedAlpha describes.
std::unique_ptr<CELVEC_AlphaPlane> CELVEC_rasteriseSharedAlpha(const CELVEC_ColouredDrawing& own,
                                                               const CELVEC_ColouredDrawing& white,
                                                               const CELVEC_RenderArgs& args);

/// The rectangle of the pixels that it would paint.
Math::Box2di CELVEC_rasterisedRect(const CELVEC_Kvd& drawing, GR_GraphicOpsColorTransform& colors,
                                   const CELVEC_RenderArgs& args);
