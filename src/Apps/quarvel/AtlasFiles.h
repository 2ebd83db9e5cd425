// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The atlas files that are written beside the maps of an atlas's pages.
#pragma once

#include "NormalMapOptions.h"
#include "OutputFiles.h"

#include <vector>

/// Writes the atlas of the maps; and, for Godot's own atlases, one whose frames show drawing and map together.
///
/// @param files of the pages, in the atlas's order
/// @return the files that were written
UT_Result<QStringList> writeAtlases(const NormalMapOptions& options, const std::vector<OutputFiles>& files);
