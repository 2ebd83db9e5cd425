// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The copy of a module's scene.
#include "jobs/shown/SceneCopies.h"

#include "QuarvelSceneCore/graph/MO_SceneCopy.h"

UT_Result<SceneCopy> copySceneOf(const MO_Module& module)
{
    auto scene = MO_copyScene(dynamic_cast<const MO_Scene&>(*module.sceneCommon()));
    if (!scene)
        return scene.error();
    SceneCopy copy{std::move(*scene), nullptr};
    copy.module = copy.scene->findModule(module.instanceName());
    return copy;
}
