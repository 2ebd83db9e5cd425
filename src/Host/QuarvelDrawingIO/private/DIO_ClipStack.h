// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_ClipStack: the clips in force, each inside the one before it.
#pragma once

#include "QuarvelDrawingIO/DIO_PathSets.h"

#include <QPainterPath>

#include <optional>
#include <vector>

class DIO_ClipStack
{
public:
    /// Begins a new clip; add() collects its paths.
    void begin() { _gathered = QPainterPath(); }
    bool isGathering() const { return _gathered.has_value(); }
    void add(const QPainterPath& path);

    /// Puts the collected clip in force, inside those that already are.
    void end();

    /// Removes the newest clip.
    void pop();

    /// The clip in force, or null where nothing is cut off.
    const QPainterPath* current() const { return _clips.empty() ? nullptr : &_clips.back(); }

    /// How many clips were too detailed to be intersected; of those, the inner one alone is in force.
    int skippedIntersections() const { return _skipped; }

private:
    QPainterPath intersection(const QPainterPath& outer, const QPainterPath& inner);

    std::optional<QPainterPath> _gathered;
    std::vector<QPainterPath> _clips;
    DIO_PathWork _work; // for the clips of one drawing
    int _skipped = 0;
};
