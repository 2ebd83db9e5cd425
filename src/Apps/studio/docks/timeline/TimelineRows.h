// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// TimelineRows: what the timeline shows below its ruler: a row for the exposures of each element, and one for each
// attribute of the selected node that may change over time, and one for each number of the camera and the lights that
// has keys (the camera's also without keys, when no node is selected); with the commands for what people do to a row.
#pragma once

#include "QuarvelSceneCore/attributes/AT_AnimatableAttr.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <memory>
#include <optional>
#include <vector>

class StudioDocument;

/// One row; the pointers are valid as long as the scene's graph does not change.
struct TimelineRow
{
    MO_ElementModule* element = nullptr;    ///< for a row of exposures
    AT_AnimatableAttr* attribute = nullptr; ///< for a row of keys
    MO_Module* module = nullptr;            ///< the node that the row belongs to; null for the camera and the lights
    QString label;

    friend bool operator==(const TimelineRow&, const TimelineRow&) = default;
};

/// The rows of a document as it is.
std::vector<TimelineRow> timelineRows(const StudioDocument& document);

/// Where the key or the exposure that is in force at a frame begins; for keys only one at exactly this frame counts.
std::optional<double> timelineStartAt(const TimelineRow& row, double frame);

/// Moves a key or the beginning of an exposure to another frame, in place of what is there. @return null when nothing
/// would change
MO_EditCommand moveCmd(const TimelineRow& row, double from, int to);

/// Takes a key or an exposure away. @return null when there is none at exactly this frame
MO_EditCommand removeCmd(const TimelineRow& row, double frame);

/// Adds a key of the value that the attribute has there. @return null when there is one, and for exposures
MO_EditCommand addKeyCmd(const TimelineRow& row, int frame);

/// Changes how the value gets from the key to the next one; a Bezier key gets handles that make the way smooth.
///
/// @return null when there is no key at exactly this frame or nothing would change
MO_EditCommand interpolationCmd(const TimelineRow& row, double frame, AT_Curve::Interpolation interpolation);
