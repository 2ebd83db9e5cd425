// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RenderPreview: a film of lit frames.
#pragma once

#include "jobs/frames/RenderFrames.h"
#include "jobs/shown/LitFrames.h"

/// What the film is made of.
struct RenderPreviewSettings
{
    std::vector<int> frames; ///< in this order
    RD_RenderParameters parameters;
    RenderedKind shown = RenderedKind::NORMALS;
    QString file; ///< ends in .mp4, .gif or .png
    double framesPerSecond = 24.0;
    int atOnce = 1;
    std::optional<NM_LightingSettings> lighting; ///< nothing: the scene's own
};

/// Renders the film; so many frames at once, in the order of the list. Its folder is made. Of the watcher, progress and
/// stop are used. The scene must not change meanwhile.
///
/// @return the file that was made (FilmFile::path); an error, and there is no file, when a frame or the film failed or
///     watcher.stop said to stop
UT_Result<QString> renderPreview(const ShownModule& shown, const RenderPreviewSettings& settings,
                                 const RenderFramesWatcher& watcher);
