// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One drawing of `quarvel normalmap`: read, rendered, written.
#pragma once

#include "NormalMapOptions.h"
#include "OutputFiles.h"
#include "RunProgress.h"
#include "jobs/sheets/ReadAtlas.h"

#include <QStringList>

#include <functional>
#include <vector>

/// Which of the drawings is done, and how.
struct DrawingTask
{
    std::size_t index = 0;       ///< among the options' drawings
    int atOnce = 1;              ///< how many drawings are worked on at the same time
    std::function<bool()> stops; ///< whether the run must stop; asked from the task's thread
};

/// What came of a drawing.
struct DrawingEnd
{
    UT_Result<void> done;
    QString chosen;       ///< for people: the objects' values as options, how many there are where they would fill the
                          ///< screen, or how many sprites there are
    QStringList warnings; ///< of the drawing
    bool isKept = false;  ///< the maps were complete before
    int ownSide = 0;      ///< the longer side of the map in pixels, if a vector drawing decided it; else 0
};

/// Makes the maps of a drawing and shows how far they are. Several may be made at once, on a thread each.
///
/// @param regions of the atlas that the drawing is a page of; none for other drawings
DrawingEnd runDrawing(const NormalMapOptions& options, const DrawingTask& task, const OutputFiles& files,
                      const std::vector<SheetRegion>& regions, RunProgress& progress);
