// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One picture over another and one picture cut out of another (Porter and Duff's "over" and "out", 1984). Channels are
// associated, computed in double precision and rounded once to what the format holds; rows are worked on in parallel.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

/// Paints top over target: each channel becomes T + D (1 - alpha of T). The target's rectangle grows to hold the top's.
///
/// @param top of the target's format, one of the two colour formats
QUARVELCELCORE_EXPORT void CEL_paintOver(const CEL_PixmapArea& top, CEL_PixmapArea& target);

/// Cuts a shape out of target: each channel is multiplied by (1 - alpha of the shape). The target's rectangle stays.
///
/// @param shape of the target's format, one of the two colour formats
QUARVELCELCORE_EXPORT void CEL_cutOut(const CEL_PixmapArea& shape, CEL_PixmapArea& target);
