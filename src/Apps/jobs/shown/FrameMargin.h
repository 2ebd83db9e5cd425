// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How far outside the frame to render, so that the frame's border does not act as an outline: an object that leaves the
// frame keeps its form up to the last pixel, as if the picture continued.
//
// A pixel's normal depends on the pixels within the reach of the blur, ceil(4 sigma) pixels with sigma = bevel / 720 x
// width / 4, and on a few more for the clip and the neighbours of the normals. But an object's heights are also divided
// by the difference between its highest and its lowest blurred value, and the lowest may be anywhere on its outline. So
// an object that reaches outside the frame by up to half of the frame's size is rendered completely; a larger object is
// rendered as far as the blur reaches.
//
// A frame whose objects all stay away from its border has no margin.
#pragma once

#include "QuarvelSceneCore/graph/MO_Module.h"
#include "QuarvelSceneCore/interfaces/RD_RenderParameters.h"

#include <vector>

/// The margins that the objects of Vallorin nodes need at a frame.
///
/// @param nodes the nodes whose pictures are rendered
RD_Margins marginsFor(const std::vector<MO_Module*>& nodes, double frame, const RD_RenderParameters& parameters);
