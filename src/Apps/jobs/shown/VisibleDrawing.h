// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The drawing that belongs to a normal map: the inputs of the node, painted one over the other in the node's order.
// Only this place in the programs decides which input is visible at a frame:
//
//   - An input is visible if its object's number is 1 or more.
//   - Number 0 is a cut-out: it is invisible, and its coverage is removed from the objects below it, as the node does
//     in its own picture. So the drawing has the node's coverage, up to the last pixel of a soft edge.
//   - A disabled object is invisible, and so is an input that the node ignores.
//
// The number of a drawing comes from the node: the request handler that the node itself would use processes every
// drawing, and the message that it attaches holds the number. Pixels without a message, because several drawings were
// joined upstream, have the number of the definition that is farthest upstream along the first inputs, as in the node.
//
// Numbers are determined at the frame that is rendered, so they may be animated, and several threads may render frames
// at once.
#pragma once

#include "QuarvelCelCore/CEL_Cel.h"
#include "QuarvelCelCore/CEL_CoveragePlane.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/shown/InputCoverage.h"
#include "jobs/shown/ObjectPlane.h"

class ObjectDefinition;

/// What is noted of the inputs while they are painted.
struct DrawingNotes
{
    ShownInputs inputs;
    bool wantsObjects = false;
    ObjectPlane objects; ///< only if wanted
};

/// The number of the object that an input of a node shows at a frame according to the graph: 1 or more, 0 for a
/// cut-out, -1 for none. (The messages of drawings may differ from it where several are joined or disabled.)
int objectNumberBehind(const MO_Port& input, double frame);

/// The definition that determines this number; null if there is none.
ObjectDefinition* objectDefinitionBehind(const MO_Port& input);

/// Changes a scene so that it shows the drawing instead of normal maps: connects everything that was connected to a
/// node to a module that paints the node's inputs. The nodes stay in the scene, because other attributes may be linked
/// to theirs. Use it only on copies of scenes that are not saved.
///
/// @param shown a module of the scene
/// @param notes if not null, every render adds each input to them; then only one frame may be rendered at a time
/// @return the module to render for the drawing that belongs to the picture of `shown`
MO_Module& showDrawings(MO_Scene& scene, MO_Module& shown, DrawingNotes* notes = nullptr);

/// The same for the drawing's coverage alone, which takes half of the time. The module's pictures have no pixels then;
/// coverageOf() has what they carry.
///
/// @return null in scenes with several nodes, of which one may be an input of another
MO_Module* showCoverage(MO_Scene& scene, MO_Module& shown);

/// The drawing's coverage that a picture carries, in 16 bits; null where the modules between a node and the one that
/// was rendered do not pass it on.
UT_SharedPtr<CEL_CoveragePlane> coverageOf(const CEL_Cel& picture);
