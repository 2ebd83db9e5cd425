// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// GraphLayout: where the nodes of a group stand. A node that somebody moved stands where it was put. The places of all
// others follow from the graph and are saved nowhere: pictures flow from the top to the bottom, each node stands in the
// row above its nearest consumer's, and within the rows nodes are ordered and moved so that links are short and cross
// seldom. Nodes without any link stand to the right. Moving a node by hand moves no other one.
//
// A graph that people look at keeps its places: when links change or nodes come, those that stand already stay.
//
// The order within rows is found by the barycentre heuristic of layered drawings; the places by isotonic regression,
// which moves a row's nodes as little as possible from where their links want them without overlap.
#pragma once

#include "QuarvelSceneCore/graph/XUGroup.h"

#include <QHash>
#include <QRectF>

/// Boxes by modules, in the units of the view; y down.
using GraphLayout = QHash<const MO_Module*, QRectF>;
/// The middles of boxes.
using NodePlaces = QHash<const MO_Module*, QPointF>;

/// The size of a node's box; wider where many ports need the room.
QSizeF nodeSize(const MO_Module& module);

/// Where a port stands in a box: inputs along the upper edge, outputs along the lower one.
QPointF portPlace(const QRectF& box, bool isInput, unsigned index, unsigned count);

/// Lays out the graph of a group. The group's entry and exit are part of it, unless it is the outermost one.
///
/// @param standing nodes that stay where they stand, unless they were moved by hand since; a new node is put beside
/// what it is linked to, where there is room
GraphLayout layoutGraph(const XUGroup& group, const NodePlaces& standing = {});
