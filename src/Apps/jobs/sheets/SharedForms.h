// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Gives all frames of an animation the same values. Values chosen for each frame separately would differ slightly, and
// the light on the sprite would flicker.
#pragma once

#include "jobs/drawing/ReadDrawing.h"

#include <span>

/// Gives corresponding objects of several frames the same form: the one with the median bevel. The largest object of a
/// role corresponds to the largest of that role in the other frames, the second largest to the second, and so on. The
/// form follows from an object's extent, so a confusion of similar objects hardly matters.
void shareForms(std::span<ReadDrawing*> frames);
