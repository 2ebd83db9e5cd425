// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes a scene as a person writes it down: what is changed, and the words for its new value.
//
//     Normal-Map.BlurScale     1.5                    the value, for all frames
//     Normal-Map.BlurScale     1:0.5 24:2.0           keys at frames; those at other frames stay
//     Normal-Map.BlurScale     1:0.5:hold 24:2:bezier how it goes on from a key: hold, linear (the default) or bezier
//     Normal-Map.bevel-multiplier 1.5                 the same attribute, as the command line and the window call it
//     Normal-Map.BlurScale     =Hero.ScaleX           reads the other attribute; "=" alone ends that
//     Hero.Drawing             1:walk_1 3:walk_2 9:   which drawing is shown from a frame on; none behind frame 9
//     .TruckFactor             1:1 48:1.4             the camera's
//     .Light2.Intensity        1:0 12:1               a light's, counted from 1 in the order of the scene
//     .Lights.AmbientRed       120                    what the lights have in common
//     lights                   sunset                 other lights: a preset, add, or remove and a number
//     rate                     25                     how many frames a second are played
//     Hero.name                Heroine                a module's name
//     Hero.enabled             no                     its switch
//     frames                   1-48                   the frames of the scene
//     height                   405                    the height of the frame, in units of which it is 720 wide
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <QStringList>

/// Changes the scene by undoable commands. Whatever is wrong with one of the words, nothing changes.
///
/// @param subject what is changed, as above
/// @param words   its new value, at least one
/// @return whether anything was different before; an error that says what was expected
UT_Result<bool> setInScene(MO_Scene& scene, CO_CommandStack& stack, const QString& subject, const QStringList& words);
