// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ReadDrawing: a drawing's file, read and made ready for a scene.
#pragma once

#include "form/ChosenObjects.h"
#include "form/FormSettings.h"
#include "jobs/drawing/DrawingScene.h"

#include <QStringList>

/// A drawing in objects, and what was simplified in reading it.
struct ReadDrawing
{
    LayeredDrawing drawing;            ///< its layers are the objects
    std::vector<ChosenObject> objects; ///< what is known of them, one for each layer
    QStringList warnings;
};

/// Reads a drawing of any kind that the program knows and chooses its objects and their form.
///
/// @return an error when the file cannot be read, is of no known kind, or holds nothing that shows; the text does not
/// repeat the path
UT_Result<ReadDrawing> readDrawing(const QString& path, const FormSettings& form);
