// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Merges an input of an object into the object's accumulator: first its own level, then its colours' (VolumeModel.h).
//
// The object's level counts only where it is higher than the accumulator's; the colours' level always does. In 16 bits
// a colour must cover more than 1024 of 32767 to count.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

/// Grows the accumulator to hold the input, within its canvas, and merges the input into it. G and B of the merged
/// pixels become 0.
template<typename Pixel>
void mergeCoverage(CEL_PixmapOf<Pixel>& accumulator, const CEL_PixmapOf<Pixel>& input);
