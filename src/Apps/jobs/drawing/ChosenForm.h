// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The form that an object got when its drawing came in, as its Object Definition keeps it in the scene:
//
//     24:1:1.8               bevel, elevation and smoothness
//     24:1:1.8:30:-10:4:1    the same with a tilt of 30 and -10 degrees, and a rim 4 wide and as high
//
// Objects without tilt and rim have the short text, which scenes had before there were tilts and rims.
#pragma once

#include "jobs/drawing/NormalMapSettings.h"

/// The text for a form. Bevel, elevation and smoothness must be set; tilt and rim count as none where they are not.
QString chosenFormText(const ObjectSettings& form);

/// The form that a text stands for: bevel, elevation, smoothness, tilt and rim are set and finite.
///
/// @return nothing for a text that is no form
std::optional<ObjectSettings> chosenFormOf(const QString& text);
