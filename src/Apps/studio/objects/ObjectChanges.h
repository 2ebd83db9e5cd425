// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes undoable commands that change objects, with names that tell what happened: "Bevel of Head 24 → 60". Picture,
// table and bar all use them. Every function takes the current objects of the scene, changes all of them, uses the last
// one (the current object) in the name, and returns null if nothing would change.
#pragma once

#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "studio/objects/SceneObjects.h"

#include <QCoreApplication>

#include <functional>

/// A value of an object.
enum class ObjectValue
{
    BEVEL,
    ELEVATION,
    SMOOTHNESS
};

inline constexpr ObjectValue kObjectValues[] = {ObjectValue::BEVEL, ObjectValue::ELEVATION, ObjectValue::SMOOTHNESS};

/// The texts of this folder outside widgets.
class ObjectTexts
{
    Q_DECLARE_TR_FUNCTIONS(ObjectTexts)

public:
    /// "Bevel".
    static QString name(ObjectValue value);
    /// What the value does, with its unit, for tool tips.
    static QString explanation(ObjectValue value);
    /// "Tilt".
    static QString tiltName();
    /// A number for people, without insignificant digits.
    static QString number(double value);
    /// "12, -5".
    static QString tilt(const ObjectTilt& tilt);
    /// "Head", or "3 objects".
    static QString subject(const std::vector<SceneObject>& objects);
    /// "Tilt of Head", or "Tilt of 3 objects".
    static QString ofObjects(const QString& what, const std::vector<SceneObject>& objects);
    /// "Bevel of Head".
    static QString valueOf(ObjectValue value, const std::vector<SceneObject>& objects);
};

double valueOf(const NormalMapObject& values, ObjectValue value);
/// Sets a value, clamped to its valid range: bevel and smoothness are not negative, and an elevation of 0, with which
/// the node would treat the object as empty, becomes the smallest possible one.
void setValue(NormalMapObject& values, ObjectValue value, double number);

/// Changes one value; consecutive changes of the same value merge.
///
/// @param change computes an object's new number
MO_EditCommand changeValueCmd(const std::vector<SceneObject>& objects, ObjectValue value,
                              const std::function<double(const SceneObject&)>& change);

/// Sets all three values of the objects; each object keeps its number.
///
/// @param name for the undo menu, with %1 for the changed objects
/// @param values computes an object's new values
MO_EditCommand giveValuesCmd(const std::vector<SceneObject>& objects, const QString& name,
                             const std::function<NormalMapObject(const SceneObject&)>& values);

/// Makes the objects face another direction at a frame, as an animated object does from there on; consecutive changes
/// merge. Tilts are clamped to 90 degrees each way.
///
/// @param change computes an object's new tilt
MO_EditCommand tiltCmd(const std::vector<SceneObject>& objects, double frame,
                       const std::function<ObjectTilt(const SceneObject&)>& change);

/// Lets the objects sink in (their elevation becomes negative) or rise.
MO_EditCommand carveCmd(const std::vector<SceneObject>& objects, bool carve);
/// Makes the objects cut-outs (number 0), or objects again. An object gets an unused number that is still in the table,
/// which brings its values back, or else the next unused number.
///
/// @param all the scene's objects
MO_EditCommand cutOutCmd(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all, bool cutOut,
                         double frame);
MO_EditCommand hideCmd(const std::vector<SceneObject>& objects, bool hidden);
/// Shows these objects and hides all others of the same nodes, or shows all of them again.
MO_EditCommand soloCmd(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all, bool solo);
/// Whether these objects are shown, there are others of the same nodes, and all others are hidden.
bool areSolo(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all);
