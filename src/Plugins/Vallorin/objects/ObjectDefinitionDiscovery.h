// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Walks up the node graph in search of object definitions: which one governs an input, which object numbers are
// defined, which nodes define a number, which drawings belong to a number.
//
// Nothing is kept between two calls; each walks the graph as it is and evaluates the definitions at the given frame. A
// definition that is not enabled is treated like any other node. The walks do not record which modules they have
// visited: they rely on the graph having no circles.
#pragma once

#include <QString>

#include <set>

class MO_Module;
class ObjectDefinition;

/// The walks. To be called where the graph may be read and no other thread changes it. A null start module gives the
/// empty result.
namespace ObjectDefinitionDiscovery {

/// The definition that governs what a module delivers: the enabled one furthest upstream on the chain of first inputs,
/// the start module included. The chain ends at elements and at Vallorin nodes.
///
/// @return null when there is none; the definition belongs to the graph
ObjectDefinition* findObjectDefinition(MO_Module* start);

/// The object numbers that enabled definitions upstream give at a frame, the start module included. At a Vallorin node
/// every connected input is followed, at any other module the first connected one.
///
/// @param objectIds is cleared first
void collectObjectIds(MO_Module* start, double frame, std::set<int>& objectIds);

/// The names of the enabled definitions that give an object number at a frame, found on the same paths.
///
/// @param names  is cleared first
/// @param suffix unless empty, removed from the names wherever it occurs
void collectObjectDefinitionNames(MO_Module* start, int objectId, double frame, std::set<QString>& names,
                                  const QString& suffix);

/// The names of the elements with vector drawings that belong to an object at a frame: those whose nearest enabled
/// definition on the way to the start module gives the number.
///
/// At a Vallorin node the inputs are followed up to the first that is not connected, at a glue module the first two, at
/// any other module the first.
///
/// @param elementNames is cleared first
void findConnectedElements(MO_Module* start, int objectId, double frame, std::set<QString>& elementNames);

} // namespace ObjectDefinitionDiscovery
