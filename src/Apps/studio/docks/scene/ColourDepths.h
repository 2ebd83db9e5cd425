// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The colour table of a normal-map node as people see it: every colour of the scene's palettes, and how deep it lies. A
// colour without a depth is not in the node's table: where it is painted, the object's own level holds.
#pragma once

#include "QuarvelGraphicCore/CM_Color.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "studio/document/StudioDocument.h"

#include <QColor>

#include <optional>
#include <vector>

/// The range of depths. A table in a file may hold others, which stay unchanged until they are edited.
constexpr int kCarvedDepth = 0;  ///< the colour is carved in fully
constexpr int kAddedDepth = 255; ///< the colour adds fully to the volume

/// A colour and its depth. A plain value.
struct ColourDepth
{
    CM_ColorId_t id;
    QString name;
    QColor colour; ///< invalid for a colour that is in no palette any more
    std::optional<int> depth;
};

/// The node whose colour table is edited: the selected one, or else the one whose picture the scene shows; null when
/// there is none.
MO_Module* nodeWithDepths(const StudioDocument& document);

/// The colours of the scene's palettes in their order, each once, and after them those that are in the node's table
/// alone.
std::vector<ColourDepth> colourDepthsOf(const MO_Scene& scene, MO_Module& node);

/// Gives colours a depth, or takes them out of the node's table. Commands for the same colours that follow each other
/// merge. The other rows of the table keep their values and their order; new ones come last.
///
/// @return null when nothing would change
MO_EditCommand setDepthsCmd(MO_Module& node, const std::vector<ColourDepth>& colours, std::optional<int> depth);
