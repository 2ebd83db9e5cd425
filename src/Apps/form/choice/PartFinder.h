// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PartFinder: goes through a drawing's shapes in the order of painting and decides about each from what the grid shows
// where the shape is about to be painted.
#pragma once

#include "form/choice/FoundParts.h"

/// Finds the parts. Every shape with an area on the grid ends up in at least one of them.
FoundParts findParts(const std::vector<ShapeFacts>& facts, const Grid& grid);
