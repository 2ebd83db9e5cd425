// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes undoable commands that change objects, with names that tell what happened: "Bevel of Head 24 → 60". Picture,
// table and bar all use them. Every function takes the current objects of the scene, changes all of them, uses the
// current one (SceneObjects.h) in the name, and returns null if nothing would change. A change at a frame sets keys
// there for values that are animated.
#pragma once

#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "studio/objects/ObjectValues.h"

#include <functional>

/// Changes one value; consecutive changes of the same value merge.
///
/// @param change computes an object's new number, which is clamped
MO_EditCommand changeValueCmd(const std::vector<SceneObject>& objects, ObjectValue value, double frame,
                              const std::function<double(const SceneObject&)>& change);

/// Gives the objects several values at once.
///
/// @param name for the undo menu, with %1 for the changed objects
/// @param values computes an object's new values; those that are not set, and all but bevel, elevation, smoothness, rim
/// and tilt, stay as they are
MO_EditCommand giveValuesCmd(const std::vector<SceneObject>& objects, double frame, const QString& name,
                             const std::function<ObjectSettings(const SceneObject&)>& values);

/// Makes the objects face another direction; consecutive changes merge. Tilts are clamped to 90 degrees each way.
///
/// @param change computes an object's new tilt
MO_EditCommand tiltCmd(const std::vector<SceneObject>& objects, double frame,
                       const std::function<ObjectTilt(const SceneObject&)>& change);

/// Lets the objects sink in (their elevation becomes negative) or rise.
MO_EditCommand carveCmd(const std::vector<SceneObject>& objects, double frame, bool carve);
/// Makes the objects cut-outs (number 0), or objects again. An object gets an unused number that is still in the table,
/// which brings its values back, or else the next unused number.
///
/// @param all the scene's objects
MO_EditCommand cutOutCmd(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all, bool cutOut,
                         double frame);
/// Makes one object of those that are of the current one's node: it has the number, the values, the tilt and the rim of
/// the current one. Cut-outs stay what they are.
MO_EditCommand joinCmd(const std::vector<SceneObject>& objects, double frame);
/// Makes as many objects of each as it has definitions, with its values; the first one keeps its number.
///
/// @param all the scene's objects
MO_EditCommand separateCmd(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all, double frame);
MO_EditCommand hideCmd(const std::vector<SceneObject>& objects, bool hidden);
/// Shows these objects and hides all others of the same nodes, or shows all of them again.
MO_EditCommand soloCmd(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all, bool solo);
/// Whether these objects are shown, there are others of the same nodes, and all others are hidden.
bool areSolo(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all);
