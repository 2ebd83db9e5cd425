// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LayerAssembly: makes a drawing whose layers are the parts that were found. A shape that several parts wear goes into
// the layer of each, held to the part's outline by a clip; so the layers, painted in their order, show the drawing as
// it was.
#pragma once

#include "form/choice/PartFinder.h"

/// The drawing in objects. Every part becomes a layer.
///
/// @param drawing what the parts were found in
ChosenObjects assembleLayers(const DIO_Drawing& drawing, const std::vector<ShapeFacts>& facts, const FoundParts& found,
                             const Grid& grid);
