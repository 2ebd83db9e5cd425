// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RenderPage: a page that plays frames in a light which follows the pointer.
#pragma once

#include "QuarvelNormalMap/NM_MapForm.h"
#include "jobs/frames/RenderFrames.h"
#include "jobs/page/LitPageFile.h"

/// What the page is made of.
struct RenderPageSettings
{
    std::vector<int> frames; ///< in this order
    /// Of frames that are written to files. Where there are several, the page's are at most LitFrames::kMaxWidth wide.
    RD_RenderParameters parameters;
    NM_MapForm form; ///< of the normal maps
    QString file;
    QString name;
    double framesPerSecond = 24.0;
    int atOnce = 1;
    std::optional<NM_LightingSettings> lighting; ///< nothing: the scene's own
};

/// Renders the page. Its folder is made. Of the watcher, progress and stop are used. The scene must not change
/// meanwhile.
///
/// @return an error, and there is no new file, when a frame or the page failed, the module shows no normals, or
///     watcher.stop said to stop
UT_Result<void> renderPage(const ShownModule& shown, const RenderPageSettings& settings,
                           const RenderFramesWatcher& watcher);
