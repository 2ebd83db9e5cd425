// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Presets: values under a name that a person thinks in: a pillow, a coin, paper. Those of the program come first, then
// the person's own, which are kept in the settings.
#pragma once

#include "studio/objects/SceneObjects.h"

/// Values for objects of any size.
struct ObjectPreset
{
    QString name;
    /// The bevel as a multiple of half the object's breadth; 0 where it is absolute.
    double bevelOfBreadth = 0.0;
    NormalMapObject values; ///< the bevel counts where it is absolute; the number never does
};

/// The program's presets.
std::vector<ObjectPreset> builtInPresets();

/// The person's own presets, in the order in which they were saved.
std::vector<ObjectPreset> ownPresets();
/// Keeps values under a name, in place of those that had the name before.
void saveOwnPreset(const QString& name, const NormalMapObject& values);
void removeOwnPreset(const QString& name);

/// What a preset makes of an object.
///
/// @param breadth the shorter side of the object's rectangle, in units of which the picture is 720 wide; 0 when nobody
/// knows it, which counts as a middling one
NormalMapObject valuesOf(const ObjectPreset& preset, double breadth);
