// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NormalMapJob: renders the pictures that people want of one drawing, the node's output and, registered with it to the
// pixel, the elevation and the drawing itself.
#pragma once

#include "jobs/drawing/DrawingScene.h"

#include <functional>

/// Which pictures are rendered beside the node's output.
struct WantedPictures
{
    bool elevation = false;
    bool drawing = false;
    bool blueAsSet = false; ///< the node's blue channel is looked at, so it must hold what the settings say
};

/// What was rendered. All pixmaps share the canvas frame; what is not wanted is null.
struct RenderedPictures
{
    Math::Box2di frame;
    UT_SharedPtr<CEL_PixmapArea> node; ///< the node's output
    UT_SharedPtr<CEL_PixmapArea>
        elevation;                        ///< red: the elevation of what the node shows at each pixel, alpha: coverage
    UT_SharedPtr<CEL_PixmapArea> drawing; ///< the drawing in its colours, cut where cut-outs cut
};

/// Told how much is done, from 0 to 1; returns whether to go on.
using JobProgress = std::function<bool(double done)>;

/// Renders a drawing with the loaded plug-in.
///
/// @return an error when the settings do not fit the drawing, the picture does not fit in memory, or progress said to
/// stop
UT_Result<RenderedPictures> renderNormalMap(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                            const WantedPictures& wanted, const JobProgress& progress = {});
