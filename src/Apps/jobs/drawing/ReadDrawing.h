// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ReadDrawing: a drawing's file, read and made ready for a scene.
#pragma once

#include "form/ChosenObjects.h"
#include "form/FormSettings.h"
#include "jobs/drawing/DrawingScene.h"
#include "jobs/drawing/TileDrawing.h"

#include <QStringList>

/// A drawing in objects, and what was simplified in reading it.
struct ReadDrawing
{
    LayeredDrawing drawing;            ///< its layers are the objects
    std::vector<ChosenObject> objects; ///< what is known of them, one for each layer
    QStringList warnings;
};

/// Chooses the objects of a drawing and their form.
///
/// @param folder what the drawing's folder says of its objects
ReadDrawing chosenDrawing(const DIO_Drawing& drawing, const FormSettings& form, const ObjectWishes& folder = {});

/// Reads a drawing of any kind that the program knows and chooses its objects and their form.
///
/// @param tiling in which directions the drawing is laid beside itself first
/// @return an error when the file cannot be read, is of no known kind, or holds nothing that shows, or when its
/// folder's values make no sense; the text does not repeat the path
UT_Result<ReadDrawing> readDrawing(const QString& path, const FormSettings& form, const Tiling& tiling = {});
