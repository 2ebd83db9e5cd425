// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lays objects on each other. The node gives every object its own height above the picture's plane, because normals
// need no more; as a height, an eye on a head would be the floor of a deep hole. So each object is raised as a whole,
// by the average height of the lower objects along the border that it shares with them. Slopes do not change.
#pragma once

#include "QuarvelNormalMap/NM_HeightField.h"
#include "jobs/shown/ObjectPlane.h"

/// Raises the pixels of each object. An object that touches no lower one stays where it is.
///
/// @param rect    the rectangle of the heights, in the plane's coordinates
/// @param heights of each object above the picture's plane
void stackObjects(const ObjectPlane& objects, const Math::Box2di& rect, NM_HeightField& heights);
