// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Conversion of a pixmap from one colour format to the other.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

/// The same picture in another format: 32767 becomes 1.0 and back (rounded to the nearest, halves away from zero,
/// clamped).
///
/// @return the pixmap itself when it has the format already; null when the formats cannot be converted (depth cannot)
QUARVELCELCORE_EXPORT UT_SharedPtr<CEL_PixmapArea> CEL_convertPixmap(const UT_SharedPtr<CEL_PixmapArea>& pixmap,
                                                                     int format);
