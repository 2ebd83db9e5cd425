// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The values that a drawing and its folder give to the objects, in the words of ObjectWords.h. The settings of a run
// take precedence over both, and a drawing over its folder.
//
// A drawing gives values to its layers: in SVG files by attributes, data-vallorin-bevel="40", or in any file with named
// layers by words after a layer's name, "Head bevel=40 elevation=0.5".
//
// A folder gives values in a file called vallorin.objects, one object per line:
//
//     # every drawing in this folder
//     all:smoothness=2
//     head:bevel=40:elevation=0.5
//     [hero_*.svg]
//     # only files with such names, up to the next line in brackets
//     'eye*:bevel=4'
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "form/ChosenObjects.h"
#include "jobs/drawing/NormalMapSettings.h"

/// Moves the values after the names of layers to the layers' values. A name always keeps its first word.
void takeValuesFromNames(DIO_Drawing& drawing);

/// The path of the file in which a drawing's folder gives values, whether there is one or not.
QString folderWishesFile(const QString& drawing);

/// Reads the values that a drawing's folder gives to its objects; empty if there is no such file. Names that no object
/// has are not an error, because the file is for many drawings.
///
/// @return an error with file and line if a line is invalid
UT_Result<ObjectWishes> readFolderWishes(const QString& drawing);

/// Combines the values that the drawing and its folder give to an object. A layer with the role RELIEF has the
/// relief of its name (form/ReliefLayers.h) if nothing else gives it one.
///
/// @param values   see DIO_Layer::values
/// @param warnings receives a line for each invalid value
ObjectSettings ownSettings(const QStringList& values, const ObjectWishes& folder, int number, const QString& name,
                           ObjectRole role, QStringList& warnings);
