// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The meaning of a module's picture. Pixels alone do not tell normals from colours, so the meaning is derived from the
// graph: the search for the module that makes the picture goes upstream through displays, groups, disabled modules and
// modules that only join pictures.
#pragma once

#include "QuarvelSceneCore/graph/MO_Module.h"

#include <vector>

/// The meanings of a rendered picture.
enum class RenderedKind
{
    NORMALS,   ///< the normals of a Vallorin node
    ELEVATION, ///< the elevation of a Vallorin node that does not make normals
    COLOURS    ///< anything else
};

/// The sources of a module's picture.
struct PictureSource
{
    RenderedKind kind = RenderedKind::COLOURS;
    std::vector<MO_Module*> nodes; ///< the Vallorin nodes whose pictures it shows, in the order of the search
};

/// Searches upstream. A picture that joins normals with anything else counts as colours.
PictureSource pictureSourceOf(MO_Module& module);
