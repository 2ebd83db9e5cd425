// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a module's picture means. Pixels alone do not tell normals from colours, so the graph is asked: the module that
// makes the picture is looked for upstream, through displays, groups, disabled modules and what only joins pictures.
#pragma once

#include "QuarvelSceneCore/graph/MO_Module.h"

#include <vector>

/// The meanings of a rendered picture.
enum class RenderedKind
{
    NORMALS,   ///< directions of a Vallorin node
    ELEVATION, ///< the heights of a Vallorin node that makes no normals
    COLOURS    ///< anything else
};

/// What a module's picture is made of.
struct PictureSource
{
    RenderedKind kind = RenderedKind::COLOURS;
    std::vector<MO_Module*> nodes; ///< the Vallorin nodes whose pictures it shows, in the order they were met
};

/// Looks upstream. A picture that joins normals with anything else counts as colours.
PictureSource pictureSourceOf(MO_Module& module);
