// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LayerMatch: which layer of a drawing that was read again is which of before. Names that a file gives are reliable;
// names that were chosen for nameless shapes move on when a shape is drawn before them. So both name and place count:
//
//     score = overlap + 1/2 for the same name + 1/2 for the same shapes
//
// where overlap is the area that both bounding rectangles share, divided by the area that they cover together. Pairs
// are made by falling score. A pair needs the same name or an overlap of kSamePlace. Where a drawing is one layer,
// before and now, that is it, whatever its name: it is called after its file, which may be another one.
#pragma once

#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <vector>

/// Without the same name, layers that overlap less than this are different ones.
inline constexpr double kSamePlace = 0.7;

/// @return for each of the fresh elements the index of the element of before that it is; -1 for a new one
std::vector<int> matchLayers(const std::vector<MO_ElementModule*>& before,
                             const std::vector<const MO_ElementModule*>& fresh);
