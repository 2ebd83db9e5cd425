// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From rendered frames to what a page shows of them.
#pragma once

#include "QuarvelNormalMap/NM_MapForm.h"
#include "jobs/page/LitPageFile.h"
#include "jobs/shown/ShownFrame.h"

/// The pictures of a frame, with the default light.
///
/// @param frame     with its drawing; normals, or colours that a person takes for them
/// @param form      of the normal map; it has 16 bits a channel whatever the form says, since 8 are too few to light by
/// @param elevation whether to take the elevation, too; the frame holds it
/// @return an error when they do not fit in memory or the frame holds no normals
UT_Result<LitPageFrame> litPageFrame(const ShownFrame& frame, const NM_MapForm& form, bool elevation);
