// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RenderPreview: renders a film of lit frames.
#pragma once

#include "jobs/frames/RenderFrames.h"
#include "jobs/shown/LitFrames.h"

/// The content and the form of the film.
struct RenderPreviewSettings
{
    std::vector<int> frames; ///< in the order of the film
    RD_RenderParameters parameters;
    RenderedKind shown = RenderedKind::NORMALS;
    QString file; ///< ends in .mp4, .gif or .png
    double framesPerSecond = 24.0;
    int atOnce = 1;
    std::optional<NM_LightingSettings> lighting; ///< without a value, the scene's own light
};

/// Renders the film and creates its folder. Calls progress and stop of the watcher. The scene must not change
/// meanwhile.
///
/// @return the path of the film (FilmFile::path), or an error, without a new file, if a frame or the film failed or
/// watcher.stop returned true
UT_Result<QString> renderPreview(const ShownModule& shown, const RenderPreviewSettings& settings,
                                 const RenderFramesWatcher& watcher);
