// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of a graph that are made of others: a link that moves from one input to another, and the ports
// of groups.
#pragma once

#include "QuarvelSceneCore/editing/MO_EditCommands.h"

/// Takes the link of one input port and leads it to another one, as one change.
/// Null when there is no such link, or it leads there already.
///
/// @return an error, and nothing has changed, when the new link is refused
UT_Result<MO_EditCommand> moveLinkCmd(MO_Module& from, unsigned fromPort, MO_Module& to, unsigned toPort);

/// Adds an input or an output port to a group, behind the others.
MO_EditCommand addGroupPortCmd(XUGroup& group, bool isInput);

/// Takes the last input or output port of a group away.
///
/// @return an error when there is none or it is linked, inside of the group or outside
UT_Result<MO_EditCommand> removeGroupPortCmd(XUGroup& group, bool isInput);
