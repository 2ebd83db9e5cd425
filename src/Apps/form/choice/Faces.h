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
