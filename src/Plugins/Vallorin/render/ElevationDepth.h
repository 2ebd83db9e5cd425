// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From a blurred mask to the object's surface as a depth pixmap (VolumeModel.h).
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

/// Builds the depth pixmap of a blurred mask, of the same size, canvas and allocated rectangle.
///
/// A pixel without elevation gets the depth low, any other (1 - x) low + x high, x being its share of the span of
/// positive values to the power 1 / smoothness (linear when the smoothness is 0, 1, negative or no number). Without any
/// positive value all pixels stay black.
///
/// @param blurred its B receives the elevation (16-bit: 1 to 32766; float: 0 to 1), and R becomes 0 where there is none
/// @param high    finite; depths are held to +-1e38, so that they stay numbers
template<typename Pixel>
UT_SharedPtr<CEL_PixmapAreaZ> buildDepth(CEL_PixmapOf<Pixel>& blurred, double low, double high, double smoothness);
