// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ReadDrawing: a drawing's file, read and made ready for a scene.
#pragma once

#include "jobs/drawing/DrawingScene.h"

#include <QStringList>

/// A drawing and what was simplified in reading it.
struct ReadDrawing
{
    LayeredDrawing drawing;
    QStringList warnings;
};

/// Reads a drawing of any kind that the program knows.
///
/// @return an error when the file cannot be read, is of no known kind, or holds nothing that shows; the text does not
/// repeat the path
UT_Result<ReadDrawing> readDrawing(const QString& path, ObjectGrouping grouping);
