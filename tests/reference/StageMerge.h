// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The merge of the rendering stage: the target holds a drawing's own coverage, the source the same drawing painted in
// greys of the colour table. The result carries two layers: (value R, coverage A) is the object's level over the
// drawing's shape, (value G, coverage B) is the grey and its coverage. The two formats differ in more than their
// numbers, on purpose.
#pragma once

#include "reference/Image.h"

#include <cstdint>

namespace reference {

/// The object's level as a 16-bit channel: objectLevel x 255 truncated, its low byte (of the two's complement, so that
/// -0.5 gives 129) spread to 0 ... 32767. NaN, and a level whose product does not fit an int, count as 0.
std::int16_t stageLevel16(double objectLevel);

/// The object's level as a float channel, not quantised. A level that is not finite, or beyond a float's range, counts
/// as 0.
float stageLevelFloat(double objectLevel);

/// Merges `source` into `target` over the target's whole allocated rectangle; a pixel that the source lacks merges
/// nothing.
void stageMerge16(RefImage16& target, const RefImage16& source, double objectLevel, bool scaleByCoverage);

/// The float variant: blue defaults to 0.5, and green and blue are truncated to whole numbers.
void stageMergeFloat(RefImageFloat& target, const RefImageFloat& source, double objectLevel, bool scaleByCoverage);

} // namespace reference
