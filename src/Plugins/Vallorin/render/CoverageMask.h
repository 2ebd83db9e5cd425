// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Turns an accumulator into the mask that is blurred (VolumeModel.h), cropped to its positive values.
#pragma once

#include "render/AccumulatedRows.h"

/// Makes the mask of an accumulator, of the same size and canvas: the value times the coverage, in the channel's own
/// scale, as one plane. Its allocated rectangle is the box of the pixels whose value is positive, whatever their
/// coverage, and 2 pixels around it; pixels that the accumulator does not have are zero.
/// @return null when the accumulator holds no pixels; a mask without pixels when none has a positive value
template<typename Pixel>
UT_SharedPtr<CEL_PixmapAreaZ> makeMask(AccumulatedRows<Pixel> accumulator);
