// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a drawing, and the folder that it lies in, say of the volume of its objects. The values are those of
// ObjectWords.h. What a person says of a run counts before both, a drawing before its folder.
//
// A drawing says it of its layers: in SVG files by attributes, data-vallorin-bevel="40", or in any file with named
// layers by words behind a layer's name, "Head bevel=40 elevation=0.5".
//
// A folder says it in a file called vallorin.objects, a line each:
//
//     # every drawing in this folder
//     all:smoothness=2
//     head:bevel=40:elevation=0.5
//     [hero_*.svg]
//     # the files that are called so, up to the next such line
//     'eye*:bevel=4'
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "jobs/drawing/NormalMapSettings.h"

/// Moves the values that stand behind the names of layers to the layers' values. A name keeps its first word.
void takeValuesFromNames(DIO_Drawing& drawing);

/// What the folder of a drawing says of its objects; nothing where there is no such file. That no object has a name is
/// no error: the folder speaks for many drawings.
///
/// @return an error that names the file and the line when one makes no sense
UT_Result<ObjectWishes> readFolderWishes(const QString& drawing);

/// What an object's values and its folder's wishes say of it.
///
/// @param values   see DIO_Layer::values
/// @param warnings gets a line for each value that makes no sense
ObjectSettings ownSettings(const QStringList& values, const ObjectWishes& folder, int number, const QString& name,
                           QStringList& warnings);
