// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The clip of a blurred object to its own drawing: a blurred pixel stays only where the unblurred mask has geometry (R
// or G above 0) at most two pixels away in x and in y.
#pragma once

#include "reference/Image.h"

namespace reference {

/// Whether the mask has geometry in the 5 x 5 pixels around (x, y), the centre included. Missing pixels have none.
bool geometryNear16(const RefImage16& mask, int x, int y);
bool geometryNearFloat(const RefImageFloat& mask, int x, int y);

/// Sets every blurred pixel without geometry near it to zero in all channels. The allocated rectangle stays.
void clipToGeometry16(RefImage16& blurred, const RefImage16& mask);
void clipToGeometryFloat(RefImageFloat& blurred, const RefImageFloat& mask);

} // namespace reference
