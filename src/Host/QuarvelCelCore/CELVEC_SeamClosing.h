// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Closing the seams of pixels that are painted already, for drawings that change their pixels after painting. The
// rasteriser closes what it paints itself (CELVEC_RenderArgs::closesSeams).
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

/// Gives every pixel with the coverage a the coverage 1 - (1 - a)^2, and the colours that belong to it. Leaves pixmaps
/// of other formats than float as they are.
QUARVELCELCORE_EXPORT void CELVEC_closeSeams(CEL_PixmapArea& pixmap);
