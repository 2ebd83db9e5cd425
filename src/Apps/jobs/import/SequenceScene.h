// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The scene of a sequence of drawings: that of a single drawing (DrawingScene.h), with drawings that change from frame
// to frame.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "form/FormSettings.h"
#include "jobs/drawing/NormalMapSettings.h"
#include "jobs/import/DrawingSequence.h"

/// The values set for the objects of a sequence.
struct SequenceWishes
{
    ObjectWishes person; ///< naming an object that does not exist is an error
    ObjectWishes folder; ///< see OwnValues.h
};

/// Builds the scene. Its nodes: an element and an Object Definition for each layer, the Vallorin node "Normal-Map", the
/// composite "Drawing", and "Display", which shows the normal map.
///
/// @param warnings receives a line for each invalid value of a layer
/// @return an error if the plug-in is not loaded, or if wishes.person names an object that does not exist
UT_Result<std::unique_ptr<MO_Scene>> buildSequenceScene(const DrawingSequence& sequence, const FormSettings& form,
                                                        const SequenceWishes& wishes, QStringList& warnings);
