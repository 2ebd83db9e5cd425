// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LayerMatch: finds the layers of a drawing again after the drawing was read anew. Names from the file are reliable,
// but names that were chosen for nameless shapes shift when a shape is added below them, so both name and place count:
//
//     score = overlap + 1/2 for the same name + 1/2 for the same shapes
//
// where overlap is the area that both bounding rectangles share, divided by the area that they cover together. Pairs
// are made by falling score. A pair needs the same name or an overlap of kSamePlace. A drawing
// that was and is a single layer always matches: the layer has its file's name, which may have changed.
#pragma once

#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <vector>

/// Without the same name, layers that overlap less than this are different ones.
inline constexpr double kSamePlace = 0.7;

/// Whether two drawings have equal shapes, painted in the same colours of their palettes.
bool haveSameShapes(const CELVEC_Kvd& one, const CELVEC_Kvd& other);

/// @return for each fresh element the index of the earlier element that it matches; -1 for a new one
std::vector<int> matchLayers(const std::vector<MO_ElementModule*>& before,
                             const std::vector<const MO_ElementModule*>& fresh);
