// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// In which format nodes are rendered: 16-bit, or float where 16 bits leave grain.
//
// In 16 bits an object's blurred mask has 32767 steps, and a normal is made of the differences of neighbours. On a form
// that rises by h pixels the normals of neighbours differ by about h / 1300 degrees for that alone. This is seen where
// the form bends by less from pixel to pixel: where it is wide too, the more so the wider. Measured on discs from 512
// to 2048 pixels, with bevels w from 17 to 1365 pixels: where w h is below 30000 square pixels, the grain stays below
// 0.12 degrees or is hidden by the form's own bending.
//
// Narrow forms gain nothing by float and cost half as much time again, so they stay in 16 bits; and so do drawings with
// levels of colours other than full, which the node's float path does not carry.
//
// In float the node has coverage of its own in two places, which are put right here. Where shapes of one object abut,
// their antialiased pixels leave a seam: of two halves that cover three quarters together, a groove of a quarter. In 16
// bits the node merges the coverage a of such a pixel twice, to 1 - (1 - a)^2, and hardly any groove is left: measured
// on a disc of two halves, the normals at the seam are off by 0.4 degrees at a bevel of 17 pixels where float is off by
// 2.3. So drawings are given to the node with that coverage. And where several objects cover a pixel in part, the
// node's float output has no coverage at all; the coverage of the drawing is taken instead.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelSceneCore/graph/MO_Module.h"
#include "QuarvelSceneCore/interfaces/RD_RenderParameters.h"

#include <vector>

/// Whether nodes are to be rendered in float: 16 bits leave grain at this size of the picture at some frame of the
/// scene, and float loses nothing. All frames of a scene have the same answer, so that nothing changes between them.
bool needsFloat(const std::vector<MO_Module*>& nodes, const RD_RenderParameters& parameters);

/// Changes the graph so that antialiased pixels of what comes in at a node cover as much in float as in 16 bits.
void closeSeams(MO_Module& node);

/// Gives the pixels of a float picture the coverage of the drawing that belongs to it. Pixels without anything, zero in
/// all four channels, stay as they are.
void takeCoverage(CEL_PixmapAreaRGBAFloat& picture, const CEL_PixmapArea& drawing);
