// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes a scene by a subject and words for its new value:
//
//     Normal-Map.BlurScale     1.5                    the value, for all frames
//     Normal-Map.BlurScale     1:0.5 24:2.0           keys at frames; keys at other frames are unchanged
//     Normal-Map.BlurScale     1:0.5:hold 24:2:bezier interpolation after a key: hold, linear (the default) or bezier
//     Normal-Map.bevel-multiplier 1.5                 the same attribute by its name in the command line and the window
//     Normal-Map.BlurScale     =Hero.ScaleX           a link to another attribute; "=" alone removes the link
//     Hero.Drawing             1:walk_1 3:walk_2 9:   the drawing shown from a frame on; none from frame 9 on
//     .TruckFactor             1:1 48:1.4             the camera's attribute
//     .Light2.Intensity        1:0 12:1               a light's attribute; lights are numbered from 1 in scene order
//     .Lights.AmbientRed       120                    an attribute of the lights together
//     lights                   sunset                 other lights: a preset, add, or remove and a number
//     rate                     25                     the frames per second for playing
//     Hero.name                Heroine                a module's name
//     Hero.enabled             no                     whether the module is enabled
//     frames                   1-48                   the frames of the scene
//     height                   405                    the height of the frame; its width is 720 units
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/scene/ChangedValue.h"

#include <QStringList>

#include <vector>

/// Changes the scene by undoable commands. If any word is invalid, nothing changes.
///
/// @param subject the subject, as above
/// @param words   its new value, at least one
/// @return the value that changed, of tables the rows that did; empty if nothing would change; or an error that says
/// what was expected
UT_Result<std::vector<ChangedValue>> setInScene(MO_Scene& scene, CO_CommandStack& stack, const QString& subject,
                                                const QStringList& words);
