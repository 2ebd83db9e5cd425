// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The drawing that belongs to a normal map: what the inputs of the node show, one over the other in the node's order.
// This is the one place of the programs that says which input is seen at a frame:
//
//   - An input is seen when its object's number is 1 or more.
//   - Number 0 is a cut-out: it is not seen, and what lies below it is taken away by its coverage, as the node takes it
//     away from its own picture. So the drawing covers what the node covers, to the last pixel of a soft edge.
//   - An object that is switched off is not seen, and neither is an input that the node passes over.
//
// Which number a drawing has is not worked out here: every drawing is offered to the request handler that the node
// itself would use, and the message that it attaches holds the number. Only pixels, which carry no message because
// several drawings were joined on their way, have the number of the definition that is furthest upstream on the first
// inputs, as in the node.
//
// Since drawings are asked for at the frame that is rendered, numbers may be animated, and frames may be rendered on
// several threads at once.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/shown/InputCoverage.h"

class ObjectDefinition;

/// The number of the object that an input of a node shows at a frame: 1 or more, 0 for a cut-out, -1 for none, as far
/// as the graph says it. (What drawings say of themselves may differ where several are joined, or where they are
/// switched off.)
int objectNumberBehind(const MO_Port& input, double frame);

/// The definition that says so; null where there is none.
ObjectDefinition* objectDefinitionBehind(const MO_Port& input);

/// Changes a scene so that it shows the drawing where it showed normal maps: what was linked to a node is linked to a
/// module that paints what the node's inputs show. The nodes stay in the scene, for attributes that are linked to
/// theirs. For copies of scenes that nobody saves.
///
/// @param shown a module of the scene
/// @param inputs if not null, every render appends to it where each input shows; then frames are rendered one at a time
/// @return the module to render for the drawing that belongs to the picture of shown
MO_Module& showDrawings(MO_Scene& scene, MO_Module& shown, ShownInputs* inputs = nullptr);
