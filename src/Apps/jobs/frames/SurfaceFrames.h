// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Frames with what engines and compositors want beside normal maps: heights, ambient occlusion, object numbers, gloss.
#pragma once

#include "jobs/frames/RenderFrames.h"
#include "jobs/shown/SceneCopies.h"

#include <memory>

/// Makes the pictures of the frames of one run. Any number of threads may use it at once.
class SurfaceFrames
{
public:
    /// Whether such pictures are made here.
    static bool makes(FrameContent content);

    /// Copies the scene and paints it in values if the pictures hold gloss.
    ///
    /// @param shown, settings of the run; must outlive this object
    SurfaceFrames(const ShownModule& shown, const RenderFramesSettings& settings);
    ~SurfaceFrames();
    SurfaceFrames(const SurfaceFrames&) = delete;
    SurfaceFrames& operator=(const SurfaceFrames&) = delete;

    /// Makes the picture of a frame.
    UT_Result<IIO_Picture> render(int frame, const RD_SoftRenderer::Progress& progress) const;
    /// The metadata of its file.
    IIO_Metadata metadata(int frame) const;

private:
    UT_Result<void> paintGreys();
    UT_Result<IIO_Picture> gloss(int frame, const RD_SoftRenderer::Progress& progress) const;
    UT_Result<IIO_Picture> heights(const ShownFrame& frame) const;

    const ShownModule& _shown;
    const RenderFramesSettings& _settings;
    SceneCopy _greyScene;
    std::unique_ptr<ShownModule> _greys;
    UT_Result<void> _painted; // whether there are greys, where they are wanted
};

/// The settings for the frames of such pictures.
///
/// @param run  the settings of the run that makes the maps
/// @param file a file of a frame, whose format counts
RenderFramesSettings surfaceSettings(RenderFramesSettings run, FrameContent content, const QString& file);
