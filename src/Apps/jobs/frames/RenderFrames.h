// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RenderFrames: renders frames of a scene into files, several at once. Each file appears complete or not at all, and
// its bytes do not depend on how many frames are rendered at once. Frames with equal digests (FrameDigest.h) are
// rendered once. If a frame fails, the others are still rendered, unless the disk is full.
#pragma once

#include "QuarvelNormalMap/NM_HeightField.h"
#include "QuarvelNormalMap/NM_Lighting.h"
#include "QuarvelSceneCore/interfaces/RD_RenderParameters.h"
#include "jobs/frames/FrameFileName.h"
#include "jobs/shown/FramePicture.h"
#include "jobs/shown/GlossDrawing.h"
#include "jobs/shown/ShownFrame.h"

#include <functional>
#include <optional>
#include <vector>

/// What the files of a run hold.
enum class FrameContent
{
    PICTURE,   ///< the module's picture, as FramePictureSettings says
    LIT,       ///< the drawing in light, sRGB; 16 bits, or 8 if the picture's form says so
    DRAWING,   ///< the drawing that the module works on, as FramePictureSettings writes colours
    HEIGHT,    ///< how high each pixel lies (jobs/shown/SurfacePictures.h)
    OCCLUSION, ///< how much light of all sides reaches it
    NUMBERS,   ///< the number of its object
    GLOSS      ///< the gloss of the drawing's colours (jobs/shown/GlossDrawing.h)
};

/// What is rendered, and how.
struct RenderFramesSettings
{
    std::vector<int> frames;
    RD_RenderParameters parameters;
    FramePictureSettings picture;
    FrameContent content = FrameContent::PICTURE;
    std::optional<NM_LightingSettings> lighting; ///< for lit frames; nothing: the scene's own
    /// What the files of lit frames say of the light.
    QString lightNote = QStringLiteral("of the scene");
    NM_HeightRange heights; ///< that files of integers with heights hold
    GlossSettings gloss;
    bool roughness = false; ///< files hold 1 - gloss
    FrameFileName file;
    int atOnce = 1; ///< the largest number of frames that are rendered at the same time
    /// Whether to skip frames whose file is complete and contains the frame's digest.
    bool resume = false;
};

/// What the frames of a run are made of.
ShownParts partsOf(const RenderFramesSettings& run);

/// How a frame ended.
enum class FrameEnd
{
    WRITTEN,
    KEPT, ///< its file existed already
    FAILED
};

/// Callbacks for the progress of a run. Several threads call ended and progress, one at a time.
struct RenderFramesWatcher
{
    /// A frame ended. The text is the reason for a failure.
    std::function<void(int frame, FrameEnd end, const QString& reason)> ended;
    /// The finished part of the run, 0 to 1; never decreases.
    std::function<void(double done)> progress;
    /// Whether to stop. Called often, from several threads at once. Files that are being written are finished first.
    std::function<bool()> stop;
};

/// How a run ended.
struct RenderFramesResult
{
    int written = 0;
    int kept = 0;
    int failed = 0;
    bool stopped = false; ///< some frames were not rendered because watcher.stop returned true
};

/// Renders frames of a module. Its scene must not change meanwhile. Creates the folders of the files.
RenderFramesResult renderFrames(const ShownModule& shown, const RenderFramesSettings& settings,
                                const RenderFramesWatcher& watcher);
