// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectsSeen: how much of the picture each object of a scene takes, and in which colours, for lists of objects.
#pragma once

#include "jobs/scene/ObjectInputs.h"

#include <span>

struct SeenObject
{
    double share = 0.0;  ///< of the picture, 0 to 1, without what others hide
    QStringList colours; ///< "#rrggbb", up to four, the largest first; empty for sprites
};

/// What is seen of each object at a frame, in the inputs' order.
///
/// @param inputs all of one node, in the order of its ports
std::vector<SeenObject> objectsSeen(const MO_Scene& scene, std::span<const ObjectInput> inputs, double frame);
