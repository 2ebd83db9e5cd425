// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Signs: a disc that is most of the drawing and has one letter on it, or something across its middle, such as a bar or
// the hands of a clock. What is painted on balls reaches their outlines, or lies beside their middles, as highlights
// and the features of a face do.
#pragma once

#include "form/choice/PartFinder.h"

#include <span>
#include <vector>

/// Whether a shape is a disc and most of what is drawn.
///
/// @param drawn the box around everything, without a backdrop
bool isLargeDisc(const ShapeFacts& shape, const QRect& drawn);

/// Whether an area lies around a disc's rim and across its middle, and leaves most of the disc between them bare.
///
/// @param disc the box of the disc, inside the ring's outline
bool isRingWithBar(const CellMask& mask, const QRect& disc);

/// Whether something is painted across the middle of a disc, or one letter alone is painted on it, and the disc is no
/// face.
///
/// @param marks the opaque shapes that lie on it
/// @param objects those that are objects, and others
bool isSign(const ShapeFacts& disc, std::vector<const ShapeFacts*> marks, std::span<const ShapeFacts* const> objects);

/// Gives the signs among the parts a rim and a flat middle. A disc in a ring with a bar across it, which forbids
/// something, is flat up to the ring.
void findSigns(FoundParts& found, const std::vector<ShapeFacts>& facts);
