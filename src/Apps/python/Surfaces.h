// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What scripts ask for beside the normals: heights, ambient occlusion, object numbers, gloss.
#pragma once

#include "Arrays.h"
#include "jobs/shown/GlossDrawing.h"

#include <map>
#include <string>
#include <vector>

/// The pictures that are wanted beside the normals.
struct SurfaceWishes
{
    bool height = false;
    bool occlusion = false;
    bool numbers = false;
    GlossSettings gloss; ///< without colours: none

    /// What a frame has to be rendered with.
    ShownParts parts() const;
};

/// The wishes in a script's words.
///
/// @param also  "height", "occlusion", "numbers"
/// @param gloss colours such as "#9aa" or "all", each with its gloss from 0 to 1
/// @return an error that names what is no such word, colour or number
UT_Result<SurfaceWishes> surfaceWishes(const std::vector<std::string>& also,
                                       const std::map<std::string, double>& gloss);

/// Makes the wanted pictures of a frame that was rendered with the wishes' parts; all but gloss, which is no part of
/// it.
UT_Result<void> addSurfaces(Maps& maps, const ShownFrame& frame, const SurfaceWishes& wishes);
