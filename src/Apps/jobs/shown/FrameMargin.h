// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How far beyond the frame a frame is rendered, so that the frame's border is no outline: what leaves the frame keeps
// its form to the last pixel, as if the picture went on.
//
// A pixel's normal depends on what lies within the reach of the blur, ceil(4 sigma) pixels with sigma = bevel / 720 x
// width / 4, and a few pixels more for the clip and the neighbours of the normals. But an object's heights are also
// divided by the difference between its highest and its lowest blurred value, and the lowest may be anywhere on its
// outline. So an object that sticks out is rendered whole, as long as that is not more than half of the frame on a
// side; of one that sticks out further, as far as the blur reaches.
//
// A frame whose objects all keep away from its border has no margin and is rendered as if there were none of this.
#pragma once

#include "QuarvelSceneCore/graph/MO_Module.h"
#include "QuarvelSceneCore/interfaces/RD_RenderParameters.h"

#include <vector>

/// The margins that the objects of Vallorin nodes need at a frame.
///
/// @param nodes their pictures are what is rendered
RD_Margins marginsFor(const std::vector<MO_Module*>& nodes, double frame, const RD_RenderParameters& parameters);
