// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a person does to objects, as undoable changes under names that tell what happened: "Bevel of Head 24 → 60".
// Picture, table and bar all make their changes here. Every function takes the objects as they are in the scene at the
// moment, changes all of them, names the last one (the current one), and gives null when nothing would change.
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

/// The texts of this room that no widget says.
class ObjectTexts
{
    Q_DECLARE_TR_FUNCTIONS(ObjectTexts)

public:
    /// "Bevel".
    static QString name(ObjectValue value);
    /// What the value does, with its unit, for tool tips.
    static QString explanation(ObjectValue value);
    /// A number as people write it, without digits that say nothing.
    static QString number(double value);
    /// "Head", or "3 objects".
    static QString subject(const std::vector<SceneObject>& objects);
    /// "Bevel of Head".
    static QString valueOf(ObjectValue value, const std::vector<SceneObject>& objects);
};

double valueOf(const NormalMapObject& values, ObjectValue value);
/// Puts a value in, held to what has a meaning: bevel and smoothness are not negative, and an elevation of 0, for which
/// the node takes the object away, becomes the smallest that counts.
void setValue(NormalMapObject& values, ObjectValue value, double number);

/// Changes one value; consecutive changes of it merge.
///
/// @param change from the values of an object to the number that it gets
MO_EditCommand changeValueCmd(const std::vector<SceneObject>& objects, ObjectValue value,
                              const std::function<double(const SceneObject&)>& change);

/// Gives all three values to the objects; each object keeps its number.
///
/// @param name for the undo menu, with %1 for what is changed
/// @param values from an object to what it gets
MO_EditCommand giveValuesCmd(const std::vector<SceneObject>& objects, const QString& name,
                             const std::function<NormalMapObject(const SceneObject&)>& values);

/// Lets the objects sink in (their elevation becomes negative) or rise.
MO_EditCommand carveCmd(const std::vector<SceneObject>& objects, bool carve);
/// Makes the objects cut-outs (number 0), or objects again: with a number that is still in the table and that nobody
/// has, which brings their values back, or else the next one that is free.
///
/// @param all the scene's objects
MO_EditCommand cutOutCmd(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all, bool cutOut,
                         double frame);
MO_EditCommand hideCmd(const std::vector<SceneObject>& objects, bool hidden);
/// Hides all other objects of the same nodes, and shows these ones; or shows everything again.
MO_EditCommand soloCmd(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all, bool solo);
/// Whether these objects are the only ones of their nodes that are shown, and there are others.
bool areSolo(const std::vector<SceneObject>& objects, const std::vector<SceneObject>& all);
