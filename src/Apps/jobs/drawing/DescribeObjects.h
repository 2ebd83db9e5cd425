// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Describes the objects that were chosen for a drawing: as a table, as options of the command line, and as a picture.
#pragma once

#include "jobs/drawing/ReadDrawing.h"

#include <QImage>
#include <QJsonArray>
#include <QStringList>

/// Why an object is one, with what its role means for its form.
QString reasonInWords(const QString& reason, ObjectRole role);

/// A share of the picture, 0 to 1, in per cent.
QString shareInWords(double share);

/// A line of headings and a line for each object: its number, name, share of the picture, values, colours and why it is
/// an object.
QString describeObjects(const ReadDrawing& read);

/// The same for scripts: an object with the fields number, name, share (0 to 1), bevel, elevation, smoothness, colours
/// and why for each.
QJsonArray objectFields(const ReadDrawing& read);

/// The objects' values as words of a command line: --object 1:bevel=53.2:elevation=1.42:smoothness=2 and so on, an item
/// for each. They give the same picture again: what is said of an object holds before what the drawing says, and this
/// before what was chosen.
QStringList objectOptions(const LayeredDrawing& drawing, const ObjectWishes& said);

/// Paints each object in a colour of its own, with its number.
///
/// @param width the picture's width in pixels, at least 1
QImage paintObjects(const LayeredDrawing& drawing, int width);
