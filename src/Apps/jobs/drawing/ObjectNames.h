// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds objects by their names: values set for "Head" or "eye*" apply to the numbers of these objects in a drawing.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "jobs/drawing/NormalMapSettings.h"

#include <QStringList>

/// Whether a word matches a name: the word is the name or a pattern with * for any characters and ? for one. Case is
/// ignored.
bool isNamedBy(const QString& name, const QString& word);
/// Whether a word matches one of several names of an object.
bool isNamedBy(const QStringList& names, const QString& word);

/// What is wrong with a number or a name that no object has.
///
/// @param said "7", or "called \"head\""
/// @param objects how the message lists the objects that there are
UT_Error noSuchObject(const QString& said, const QStringList& objects);

/// The values of the first, and the second's for those that the first does not set.
ObjectSettings merged(const ObjectSettings& first, const ObjectSettings& second);

/// Replaces names by numbers in wishes. Values set by number take precedence over those set by name; if several words
/// match one object, the last takes precedence.
///
/// @param names of the drawing's objects, number 1 first
/// @return an error if no object matches one of the names
UT_Result<ObjectWishes> withNumberedObjects(const ObjectWishes& wishes, const QStringList& names);

/// All values that wishes set for one object. Values set by number take precedence over those set by name, of which the
/// last take precedence, and these over values for all objects.
///
/// @param names the names of the object; most have one
ObjectSettings wishesFor(const ObjectWishes& wishes, int number, const QStringList& names);
