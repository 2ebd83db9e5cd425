// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_PaletteCollector: the palettes that a node can use.
#pragma once

#include "QuarvelGraphicCore/CM_Palette.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <vector>

class MO_Node;

/// The palettes of the node's scene, in the scene's order; none for a null node and for a node outside a scene.
QUARVELSCENECORE_EXPORT std::vector<CM_SharedPtr<CM_Palette>> MO_PaletteCollector(const MO_Node* node);
