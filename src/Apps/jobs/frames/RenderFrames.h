// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RenderFrames: renders frames of a scene into files, several at once. Each file appears whole or not at all, and its
// bytes do not depend on how many frames are rendered at once. Frames that are made of the same (FrameDigest.h) are
// rendered once. A frame that fails does not keep the others from being rendered.
#pragma once

#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelSceneCore/interfaces/RD_RenderParameters.h"
#include "jobs/frames/FrameFileName.h"
#include "jobs/shown/FramePicture.h"
#include "jobs/shown/ShownFrame.h"

#include <functional>
#include <optional>
#include <vector>

/// What is rendered, and how.
struct RenderFramesSettings
{
    std::vector<int> frames;
    RD_RenderParameters parameters;
    FramePictureSettings picture;
    /// Whether the frames are written lit (16 bits, sRGB) instead of as the picture says.
    bool lit = false;
    std::optional<NM_LightingSettings> lighting; ///< for lit frames; nothing: the scene's own
    QString lightNote;                           ///< what the files of lit frames say of the light
    FrameFileName file;
    int atOnce = 1; ///< how many frames are rendered at the same time
    /// Frames are left alone whose file is complete and made of the same: it says the frame's digest.
    bool resume = false;
};

/// How a frame ended.
enum class FrameEnd
{
    WRITTEN,
    KEPT, ///< its file was there already
    FAILED
};

/// Who wants to know how a run goes. Calls come from several threads, one at a time.
struct RenderFramesWatcher
{
    /// A frame ended. The text is the reason of a failure.
    std::function<void(int frame, FrameEnd end, const QString& reason)> ended;
    /// How much of the run is done, 0 to 1; never less than before.
    std::function<void(double done)> progress;
    /// Asked often, from several threads at once: whether to stop. Files that are being written are finished.
    std::function<bool()> stop;
};

/// How a run ended.
struct RenderFramesResult
{
    int written = 0;
    int kept = 0;
    int failed = 0;
    bool stopped = false; ///< some frames were not rendered because watcher.stop said so
};

/// Renders frames of a module. Its scene must not change meanwhile. Folders of files are made.
RenderFramesResult renderFrames(const ShownModule& shown, const RenderFramesSettings& settings,
                                const RenderFramesWatcher& watcher);
