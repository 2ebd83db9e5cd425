// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Why the depth of a colour cannot be seen. The bevel of an object is a blur, of the depths of its colours too: what is
// painted in a colour has to be broad enough for it. And an object's heights are measured from its own lowest to its
// own highest place, so the only colour of an object has nothing to lie deeper than.
#pragma once

#include "studio/docks/scene/ColourDepths.h"
#include "studio/objects/SceneObjects.h"

#include <optional>

/// What a person is told of a depth that cannot be seen.
struct DepthHint
{
    QString text;                      ///< the reason and what helps against it; empty where nothing is to be said
    std::optional<SceneObject> object; ///< whose bevel is too wide; invalid after the scene has changed
    double bevel = 0.0;                ///< which bevel would show the depth
};

/// Why the depth cannot be seen; an empty hint where it can, where the colour has none, and where nothing is painted in
/// it at the current frame.
///
/// @param node the normal-map node that has the table of depths
DepthHint whyDepthIsUnseen(const StudioDocument& document, const MO_Module& node, const ColourDepth& colour);
