// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Presets: values with descriptive names: a pillow, a coin, paper. The program's presets come first, then the user's
// own, which are stored in the settings.
#pragma once

#include "studio/objects/SceneObjects.h"

/// Values for objects of any size.
struct ObjectPreset
{
    QString name;
    /// The bevel as a multiple of half the object's breadth; 0 if values.bevel is used instead.
    double bevelOfBreadth = 0.0;
    ObjectSettings values; ///< bevel is used if bevelOfBreadth is 0; values that are not set are left as they are
};

/// The program's presets.
std::vector<ObjectPreset> builtInPresets();

/// The user's own presets, in the order in which they were saved.
std::vector<ObjectPreset> ownPresets();
/// Stores values with a name and replaces a preset with the same name.
void saveOwnPreset(const QString& name, const ObjectSettings& values);
void removeOwnPreset(const QString& name);

/// The values that a preset gives to an object.
///
/// @param breadth the shorter side of the object's rectangle in scene units, of which the picture is 720 wide; 0 if it
/// is unknown, which counts as a medium one
ObjectSettings valuesOf(const ObjectPreset& preset, double breadth);
