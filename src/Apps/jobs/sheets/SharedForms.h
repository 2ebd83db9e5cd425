// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One set of values for all frames of an animation. Values that are chosen from each frame alone differ a little from
// frame to frame, and the light on the sprite would flicker.
#pragma once

#include "jobs/drawing/ReadDrawing.h"

#include <span>

/// Gives objects that correspond in several frames the same form: the one whose bevel is in the middle. The largest
/// object of a role corresponds to the largest of that role in the other frames, the second largest to the second, and
/// so on: the form follows from an object's extent, so that it matters little which of two alike is which.
void shareForms(std::span<ReadDrawing*> frames);
