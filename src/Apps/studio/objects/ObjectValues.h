// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The values of an object that people set: their names, limits and steps. The first three are in the node's object
// table. The others belong to the Object Definitions of its drawings, where they can be animated.
#pragma once

#include "jobs/drawing/ObjectLimits.h"
#include "studio/objects/SceneObjects.h"

#include <QCoreApplication>

/// A value of an object.
enum class ObjectValue
{
    BEVEL, ///< from here on, values of the node's table
    ELEVATION,
    SMOOTHNESS,
    RIM, ///< from here on, values of the Object Definitions
    TILT_RIGHT,
    TILT_UP
};

inline constexpr ObjectValue kObjectValues[] = {ObjectValue::BEVEL, ObjectValue::ELEVATION,  ObjectValue::SMOOTHNESS,
                                                ObjectValue::RIM,   ObjectValue::TILT_RIGHT, ObjectValue::TILT_UP};

/// Whether a value is in the node's table.
constexpr bool isInTable(ObjectValue value)
{
    return value <= ObjectValue::SMOOTHNESS;
}

double valueOf(const NormalMapObject& values, ObjectValue value); ///< of the table
double valueOf(const SceneObject& object, ObjectValue value);

/// The limits of a value, which a field offers as its range.
const ValueLimits& limitsOf(ObjectValue value);
/// By how much a step of a field changes a value.
double stepOf(ObjectValue value);

/// The nearest number within the limits. An elevation of 0, with which the node would treat the object as empty,
/// becomes the smallest possible one (givenElevation).
double clampedTo(ObjectValue value, double number);

/// Bevel, elevation, smoothness, rim and tilt of an object.
ObjectSettings settingsOf(const SceneObject& object);
/// The settings with all numbers clamped.
ObjectSettings clamped(ObjectSettings settings);

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
