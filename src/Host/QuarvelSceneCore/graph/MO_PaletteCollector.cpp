// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The palettes that a node can use are those of its scene.
#include "QuarvelSceneCore/graph/MO_PaletteCollector.h"

#include "QuarvelSceneCore/graph/MO_Node.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"

std::vector<CM_SharedPtr<CM_Palette>> MO_PaletteCollector(const MO_Node* node)
{
    const MO_SceneCommon* const scene = node ? node->sceneCommon() : nullptr;
    return scene ? scene->palettes() : std::vector<CM_SharedPtr<CM_Palette>>();
}
