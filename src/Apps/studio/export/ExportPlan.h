// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ExportPlan: converts a person's choices to the runs that the command line would make, one for each picture. Choices
// that do not fit the scene are rejected here, before anything is rendered.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/frames/RenderFrames.h"
#include "studio/export/ExportChoices.h"

#include <memory>
#include <vector>

/// Everything that an export needs, with its own copy of the scene.
struct ExportPlan
{
    std::unique_ptr<MO_Scene> scene;
    std::unique_ptr<ShownModule> shown;
    std::vector<RenderFramesSettings> runs; ///< one for each picture, in their order

    /// @return an error when the choices do not fit the scene
    static UT_Result<ExportPlan> of(const MO_Scene& scene, const ExportChoices& choices);
};

/// The pictures that a module can give.
QList<ExportPicture> exportPicturesOf(RenderedKind kind);

/// The existing files that the export would replace; empty if the choices do not fit the scene.
QStringList filesToReplace(const MO_Scene& scene, const ExportChoices& choices);

/// Whether all files may be written: none is a file that the scene was made of, under whatever name, and none but those
/// of the first picture, whose name is chosen, is a link.
UT_Result<void> checkExportFiles(const MO_Scene& scene, const ExportChoices& choices);

/// The width at which a pixel of the picture is a unit of the drawing (for a sprite, one of its pixels). Of drawings in
/// several scales, that of most elements counts, else that of the first. 1920 if there is none.
int ownWidth(const MO_Scene& scene);
