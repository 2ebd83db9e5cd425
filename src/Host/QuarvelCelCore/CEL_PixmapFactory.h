// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CEL_PixmapFactory: makes pixmaps by format.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

namespace CEL_PixmapFactory {

/// A new pixmap without pixels.
///
/// @param format a value of CEL_Format
/// @param size   the picture's width and height
/// @param canvas the picture's rectangle
/// @return null for a number that is not a format of pixmaps
QUARVELCELCORE_EXPORT UT_SharedPtr<CEL_PixmapArea> create2d(int format, const Math::Size2di& size,
                                                            const Math::Box2di& canvas);

} // namespace CEL_PixmapFactory
