// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The objects that were chosen for a drawing, for people: as a table, as options to be pasted, and as a picture.
#pragma once

#include "jobs/drawing/ReadDrawing.h"

#include <QImage>

/// A line for each object: its number, name, share of the picture, values, colours and why it is an object; with a line
/// of headings.
QString describeObjects(const ReadDrawing& read);

/// The chosen values as words of a command line: --object 1:bevel=53.2:elevation=1.42:smoothness=2 and so on. They give
/// the picture that the choice gives.
QString objectOptions(const LayeredDrawing& drawing);

/// The objects in a colour of their own each, with their numbers.
///
/// @param width of the picture in pixels, at least 1
QImage paintObjects(const LayeredDrawing& drawing, int width);
