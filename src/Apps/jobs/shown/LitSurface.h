// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes the surface that light falls on from a frame that was rendered with its drawing.
#pragma once

#include "QuarvelNormalMap/NM_Surface.h"
#include "jobs/shown/ShownFrame.h"

/// The drawing that light falls on, as NM_drawingPicture() makes it, of 16-bit samples. Colours that a person takes for
/// normals belong to no drawing: light falls on grey there.
///
/// @param frame with its drawing
UT_Result<IIO_Picture> litDrawing(const ShownFrame& frame);

/// The surface of a frame: litDrawing() with the frame's normals.
///
/// @param frame with its drawing
/// @return an error if it does not fit in memory or its picture holds no normals
UT_Result<NM_Surface> litSurface(const ShownFrame& frame);
