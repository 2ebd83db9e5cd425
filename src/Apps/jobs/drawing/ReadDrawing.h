// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ReadDrawing: reads a drawing's file and prepares it for a scene.
#pragma once

#include "form/ChosenObjects.h"
#include "form/FormSettings.h"
#include "jobs/drawing/DrawingScene.h"
#include "jobs/drawing/TileDrawing.h"

#include <QStringList>

/// A drawing in objects, with warnings about simplifications.
struct ReadDrawing
{
    LayeredDrawing drawing;            ///< its layers are the objects
    std::vector<ChosenObject> objects; ///< the objects' properties, one for each layer
    QStringList warnings;
};

/// Chooses the objects of a drawing and their forms.
///
/// @param folder the values that the drawing's folder gives
ReadDrawing chosenDrawing(const DIO_Drawing& drawing, const FormSettings& form, const ObjectWishes& folder = {});

/// Reads a drawing of any supported kind and chooses its objects and their forms.
///
/// @param tiling the directions in which the drawing is repeated first
/// @return an error if the file cannot be read, is of an unknown kind or shows nothing, or if its folder's values are
/// invalid. An error about the file does not repeat its path.
UT_Result<ReadDrawing> readDrawing(const QString& path, const FormSettings& form, const Tiling& tiling = {});
