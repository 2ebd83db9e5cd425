// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LayerAssembly: makes a drawing whose layers are the parts that were found. A shape that several parts wear goes into
// the layer of each, clipped to the part's outline, so that the layers, painted in their order, show the unchanged
// drawing.
#pragma once

#include "form/choice/PartFinder.h"

/// Makes every part a layer.
///
/// @param drawing the drawing in which the parts were found
ChosenObjects assembleLayers(const DIO_Drawing& drawing, const std::vector<ShapeFacts>& facts, const FoundParts& found,
                             const Grid& grid);
