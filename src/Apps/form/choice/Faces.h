// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Faces: a face is told by its eyes, so that it stays a body whatever its colour is beside that of the hair, the hood
// or the mane that it lies on.
#pragma once

#include "form/choice/ShapeFacts.h"

#include <span>

/// Whether two later shapes inside a shape are its eyes: the only two of their paint and size there, darker than it,
/// small, side by side, on either side of its middle and above its chin. The pupils of bright eyes count.
///
/// @param inside the later shapes inside the shape
bool holdsEyes(const ShapeFacts& face, std::span<const ShapeFacts* const> inside);

/// Whether a shape lies where a round face has its mouth: on the axis, below the middle, and not large.
bool isPlacedAsMouth(const ShapeFacts& shape, const ShapeFacts& face);

/// Whether a shape in a round face with eyes lies where the mouth is, and is no line.
///
/// @param inside the later shapes inside the face
bool isOpenMouth(const ShapeFacts& shape, const ShapeFacts& face, std::span<const ShapeFacts* const> inside);
