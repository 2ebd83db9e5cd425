// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What becomes of colours when drawings are read again. One that is new joins the palette, and the tables of the nodes
// as an import lists it. One that nothing is painted in any more leaves both, unless a person gave it another value,
// another name or a level: that is kept in case the colour comes back.
#pragma once

#include "QuarvelGraphicCore/CM_Palette.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/import/StepsCommand.h"

#include <set>
#include <vector>

/// The colours that shapes of these elements' drawings are painted in.
std::set<CM_ColorId_t> coloursPaintedBy(const std::vector<MO_ElementModule*>& elements);

/// The step that lists colours in a node's table with the levels that the fresh scene's node gives them. Colours that
/// the node lists already keep their rows.
///
/// @param node    the node whose table grows; it must outlive the step
/// @param colours which colours; a person may have taken others out of the table
/// @param fresh   the scene that importDrawings() made of the files
StepsCommand::Step listColours(MO_Module& node, const std::set<CM_ColorId_t>& colours, const MO_Scene& fresh);

/// The step after all others: colours that nothing is painted in any more leave the scene.
///
/// @param scene   the scene; it must outlive the step
/// @param painted the colours that the drawings were painted in before
StepsCommand::Step dropColours(MO_Scene& scene, const std::set<CM_ColorId_t>& painted);
