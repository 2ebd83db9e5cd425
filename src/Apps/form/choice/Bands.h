// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Bands: the bands of a flag, a sign or a box, painted side by side. A band that is painted last, between two others,
// is a piece of the first of them when it is found; then the other one is a piece, too.
#pragma once

#include "form/choice/PartFinder.h"

/// Joins parts that share a long seam, without ink on it, and fill a rectangle together.
FoundParts joinedBands(FoundParts found, const std::vector<ShapeFacts>& facts);
