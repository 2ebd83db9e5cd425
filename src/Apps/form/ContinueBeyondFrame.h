// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Continues objects that end at the picture's border outside it. Artists cut busts and landscapes off at the border;
// without the continuation, the bevel would round such a body towards an edge that it does not have. The added shapes
// lie outside the picture, so they only reach the bevel if the picture is rendered with a margin.
#pragma once

#include "form/ChosenObjects.h"

/// Continues every layer that the picture's border cuts, by half of the picture's longer side. Layers that continue
/// outside the picture by themselves stay unchanged, and so do tiles (SLAB) and backdrops (FLAT).
///
/// @param page the frame of the picture; a side where it lies outside the drawing's shows where the drawing ends, and
///             nothing continues there
void continueBeyondFrame(ChosenObjects& chosen, const QRectF& page);
