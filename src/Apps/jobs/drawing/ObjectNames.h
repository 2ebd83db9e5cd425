// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Objects by their names: what a person says of "Head" or of "eye*" is said of the numbers that these objects have in
// one drawing.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "jobs/drawing/NormalMapSettings.h"

#include <QStringList>

/// Whether a name is meant by a word: the name itself, or a pattern with * for any letters and ? for one. Case does not
/// count.
bool isNamedBy(const QString& name, const QString& word);
/// Whether one of several names of an object is meant.
bool isNamedBy(const QStringList& names, const QString& word);

/// What the first says, and where it says nothing, what the second does.
ObjectSettings merged(const ObjectSettings& first, const ObjectSettings& second);

/// The wishes with everything that they say of objects by name said of their numbers. What a number is told already
/// stays; of several words for one object, the last counts.
///
/// @param names of the drawing's objects, number 1 first
/// @return an error when no object has such a name
UT_Result<ObjectWishes> withNumberedObjects(const ObjectWishes& wishes, const QStringList& names);

/// All that wishes say of one object: by its number before by its name, the last such word first, before what they say
/// of all objects.
///
/// @param names of the object; most have one
ObjectSettings wishesFor(const ObjectWishes& wishes, int number, const QStringList& names);
