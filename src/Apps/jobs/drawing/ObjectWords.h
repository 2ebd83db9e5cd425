// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is said of objects in words, the same on a command line, in a drawing and in a folder's file:
//
//     head:bevel=60:elevation=0.5     the object called head; a name may have * for any letters and ? for one
//     2:cutout                        object 2
//     all:smoothness=3                every object
//
//     bevel=B        how far the rounding reaches in from the edge, in units of which the picture is 720 wide; 0 to
//                    kMostBevel
//     elevation=E    how high it rises; below 0 it sinks
//     smoothness=S   the shape of the rise, 0.01 to 128
//     level=L        the object's own level, 0 to 1
//     coverage       multiplies the levels of its colours by its coverage
//     cutout         makes no volume: it cuts a hole into what lies below
//     hidden         leaves it out; these three take yes and no too
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "jobs/drawing/NormalMapSettings.h"

#include <QStringList>

/// The widest bevel that a person can mean: it reaches across the picture more than a hundred times.
inline constexpr double kMostBevel = 100'000.0;

/// Whether a text is a value's name, such as "bevel", in any case.
bool isObjectWord(const QString& key);

/// Adds what one word, such as "bevel=60", says of an object.
///
/// @return an error that says what was expected; then nothing is added
UT_Result<void> takeObjectWord(ObjectSettings& object, const QString& word);

/// Adds what words such as "head:bevel=60:elevation=0.5" say. What is said later counts.
///
/// @return an error that says what was expected; then nothing is added
UT_Result<void> takeObjectWords(ObjectWishes& wishes, const QString& words);
