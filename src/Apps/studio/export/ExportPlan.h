// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ExportPlan: from what a person chose to the runs that the command line would make of it, one for each picture. What
// does not fit the scene is found out here, before anything is rendered.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/frames/RenderFrames.h"
#include "studio/export/ExportChoices.h"

#include <memory>
#include <vector>

/// All that an export needs; it has a copy of the scene.
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

/// The files that are there already and would be replaced. None where the choices do not fit the scene.
QStringList filesToReplace(const MO_Scene& scene, const ExportChoices& choices);

/// The width at which a pixel of the picture is a unit of the drawing, which for a sprite is its own pixel; 1920 where
/// the drawings of the scene have several sizes.
int ownWidth(const MO_Scene& scene);
