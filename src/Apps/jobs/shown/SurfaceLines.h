// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SurfaceLines: drawings that bend the surface of what lies below instead of being seen. Along their strokes runs a
// groove (a crease in cloth, a wrinkle) or a ridge, as wide as the stroke. Such a drawing leads to an input of a node,
// so that the inputs below it are known, through an Object Definition with a relief whose object is switched off, so
// that the node ignores it.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "jobs/shown/InputCoverage.h"
#include "jobs/shown/strokes/StrokeRelief.h"

#include <map>
#include <vector>

class MO_Module;
class MO_Scene;
class ObjectDefinition;

/// An input of a node whose drawing bends the surface.
struct SurfaceLine
{
    QString node;
    int port = 0;
    double relief = 0.0;       ///< the height of its middle, in multiples of half of its width; negative for grooves
    StrokeRelief strokes = {}; ///< its strokes in a frame, of relief 1
};

/// Whether a definition belongs to a drawing that bends the surface at a frame.
bool bendsTheSurface(const ObjectDefinition& definition, double frame);

/// The inputs whose drawings bend the surface at a frame, in the order of the nodes and of their inputs. Their strokes
/// are not filled in.
std::vector<SurfaceLine> surfaceLinesOf(const std::vector<MO_Module*>& nodes, double frame);

/// Changes a copy of a scene so that one of these drawings is the only visible input of all nodes.
void showOnly(MO_Scene& scene, const SurfaceLine& line);

/// The heights of the highest places of the objects of nodes, in pixels: by node and number.
using SurfaceRises = std::map<QString, std::map<int, double>>;

/// Adds the strokes to the surface of the pixels that inputs below them own (PixelOwners.h). If this leaves the range
/// of an object's elevations, from its outline to its rise, the range grows, and the elevation becomes the share of the
/// larger one.
///
/// @param nodes           whose picture it is
/// @param inputs          of the same frame, in the same coordinates
/// @param elevationInBlue whether the picture's blue is the elevation for all nodes; otherwise each node's attribute
/// tells
/// @param rises           before and after; without the elevation in the picture, they stay as they are
void addSurfaceLines(CEL_PixmapArea& picture, const std::vector<SurfaceLine>& lines,
                     const std::vector<MO_Module*>& nodes, const ShownInputs& inputs, bool elevationInBlue,
                     SurfaceRises& rises);
