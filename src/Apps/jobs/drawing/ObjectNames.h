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

/// What the first says, and where it says nothing, what the second does.
ObjectSettings merged(const ObjectSettings& first, const ObjectSettings& second);

/// The settings with everything that they say of objects by name said of their numbers. What a number is told already
/// stays; of several words for one object, the last counts.
///
/// @param names of the drawing's objects, number 1 first
/// @return an error when no object has such a name
UT_Result<NormalMapSettings> withNumberedObjects(const NormalMapSettings& settings, const QStringList& names);
