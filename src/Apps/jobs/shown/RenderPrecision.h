// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Chooses the format in which nodes are rendered: 16 bits, or float where 16 bits would leave visible grain.
//
// In 16 bits an object's blurred mask has 32767 steps, and a normal is computed from the differences of neighbours. On
// a form that rises by h pixels, this rounding alone makes the normals of neighbours differ by about h / 1300 degrees.
// The difference is visible where the form bends by less from pixel to pixel, that is, on wide forms. Measured on discs
// from 512 to 2048 pixels with bevels w from 17 to 1365 pixels: if w h is less than 30000 square pixels, the grain
// stays below 0.12 degrees or is hidden by the form's own bending.
//
// Narrow forms do not gain from float, which takes 1.5 times as long, so they stay in 16 bits. So do drawings with
// colour levels other than full, which the node's float path does not support.
//
// The node's coverage in float differs in two cases, which this file corrects. First, where shapes of one object abut,
// their antialiased pixels leave a seam: two halves that together cover three quarters leave a groove of one quarter.
// In 16 bits the node merges the coverage a of such a pixel twice, to 1 - (1 - a)^2, which leaves hardly any groove: on
// a disc of two halves with a bevel of 17 pixels, the normals at the seam are off by 0.4 degrees in 16 bits and by 2.3
// in float. So in float the node gets drawings with the merged coverage. Second, where several objects partly cover a
// pixel, the node's float output has no coverage at all, so it gets the coverage of the drawing.
#pragma once

#include "QuarvelCelCore/CEL_CoveragePlane.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelSceneCore/graph/MO_Module.h"
#include "QuarvelSceneCore/interfaces/RD_RenderParameters.h"

#include <vector>

/// Whether to render nodes in float: 16 bits leave grain at this size of the picture at some frame of the scene, and
/// the drawings do not need 16 bits. The answer is the same for all frames of a scene, so that the look does not change
/// between frames.
bool needsFloat(const std::vector<MO_Module*>& nodes, const RD_RenderParameters& parameters);

/// Changes the graph so that antialiased pixels of a node's inputs have the same coverage in float as in 16 bits.
void closeSeams(MO_Module& node);

/// Gives the pixels of a float picture the coverage of its drawing. Empty pixels, zero in all four channels, stay
/// unchanged.
void takeCoverage(CEL_PixmapAreaRGBAFloat& picture, const CEL_PixmapArea& drawing);
/// The same where the drawing was painted in 16 bits and only its coverage is known.
void takeCoverage(CEL_PixmapAreaRGBAFloat& picture, const CEL_CoveragePlane& coverage);
