// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Updates the drawings of a scene that were read again: their shapes come from the files as they are now, and
// everything that was set for their objects stays. Objects are found again by their layers' names and by their shapes
// (LayerMatch.h).
//
//   in both        the element gets the new drawings; number, bevel, keys, links, exposures and names that people gave
//                  stay; a name that came from the file follows it
//   only in files  an element with its Object Definition is added, where it lies among the others
//   only in scene  the element is empty from now on and keeps all that was set, in case the layer comes back
#pragma once

#include "QuarvelCommand/CO_Command.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <QStringList>

#include <memory>
#include <vector>

/// A change that brings drawings up to date.
struct DrawingUpdate
{
    std::unique_ptr<CO_Command> command; ///< null when nothing is different
    QStringList added;                   ///< layers that are new
    QStringList vanished;                ///< names of elements whose layers are in no file any more
};

/// Finds out what changes. Nothing is changed yet.
///
/// @param scene    whose drawings are brought up to date
/// @param elements the elements that the drawings belong to; none adds all drawings to the scene
/// @param fresh    the scene that importDrawings() makes of the files now; its modules are copied
/// @param name     what the change is called, for undo
DrawingUpdate updateDrawings(MO_Scene& scene, const std::vector<MO_ElementModule*>& elements, const MO_Scene& fresh,
                             const QString& name);
