// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From an object's depth to its normals (VolumeModel.h).
//
// The normal at (x, y) is that of the plane through its four neighbours: the cross product of (2, 0, zRight - zLeft)
// and (0, 2, zBelow - zAbove), normalised. Better qualities average it with the one of the four diagonal neighbours,
// where all of them are there. A pixel that misses one of its four neighbours has no slope: its normal is the zero
// vector, stored as the middle of both channels.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

/// The values of the node's quality, for the passes.
enum NormalPasses
{
    FOUR_NEIGHBOURS = 0,
    EIGHT_NEIGHBOURS = 1,
    EIGHT_NEIGHBOURS_SMOOTHED = 2
};

/// Builds the normal pixmap of a depth pixmap, of the same size, canvas and allocated rectangle: R and G the normal, B
/// the elevation, A full. A pixel whose depth is black is empty: (0, 0, full, 0).
///
/// @param blurred holds the elevation in B
/// @param quality a value of NormalPasses; others are like EIGHT_NEIGHBOURS
template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> buildNormals(const CEL_PixmapAreaZ& depth, const CEL_PixmapOf<Pixel>& blurred,
                                               int quality);
