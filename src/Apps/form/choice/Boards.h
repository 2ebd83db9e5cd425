// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Boards: a flag, a box or a picture in a frame whose ground is put together from several areas, such as stripes, a
// cross, or sky and meadow. Where a drawing fills a rectangle, the areas that reach across it, or run along its border,
// are one flat thing with a rim; what lies within it stays as it was found.
#pragma once

#include "form/choice/PartFinder.h"

/// Joins the areas that make up the ground of a rectangle to a slab. Sheet.h finds boards of a single rectangle.
FoundParts joinedBoards(FoundParts found, const std::vector<ShapeFacts>& facts);
