// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Values of objects in words, the same on the command line, in a drawing and in a folder's file:
//
//     head:bevel=60:elevation=0.5     the object called head; in a name, * matches any characters and ? matches one
//     2:cutout                        object 2
//     all:smoothness=3                every object
//
//     bevel=B        how far the rounding reaches inwards from the edge; the picture is 720 units wide
//     elevation=E    how high it rises; below 0 it sinks
//     smoothness=S   the shape of the rise
//     level=L        the object's own level, 0 to 1
//     coverage       multiplies the levels of its colours by its coverage
//     cutout         gives it no volume; it cuts a hole into the objects below
//     hidden         leaves it out; the last three also take =yes and =no
//     tilt=X,Y       it faces X degrees to the right and Y degrees upwards; negative: to the left, down
//     rim=B,H        a second bevel at its outline: B wide, and H times as high; =B alone takes
//                    ObjectDefinition::kRimHeight
//     relief=R       it is not seen, but bends the surface below along its strokes: R halves of their width up, below 0
//                    down; 0: it is an object again
//     role=crease    a relief of -0.5, role=ridge one of 0.5, role=object none
//
// Numbers lie within ObjectLimits.h.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "jobs/drawing/NormalMapSettings.h"

#include <QStringList>

/// Whether a text is the name of a value, such as "bevel", in upper or lower case.
bool isObjectWord(const QString& key);

/// Sets the value of one word, such as "bevel=60", in an object's settings.
///
/// @return an error that says what was expected; then nothing is set
UT_Result<void> takeObjectWord(ObjectSettings& object, const QString& word);

/// Sets the values of words such as "head:bevel=60:elevation=0.5" in the wishes. Later words take precedence.
///
/// @return an error that says what was expected; then nothing is set
UT_Result<void> takeObjectWords(ObjectWishes& wishes, const QString& words);

/// The words for bevel, elevation, smoothness, tilt and rim, of those that are set: "bevel=24:elevation=0.5:rim=3,1".
/// takeObjectWord() takes each of them.
QString objectWords(const ObjectSettings& object);

/// The words for what becomes an object, in the order of ObjectChoice.
const QStringList& objectChoiceWords();

/// The words for the form that objects get, in the order of FormShape.
const QStringList& formShapeWords();
