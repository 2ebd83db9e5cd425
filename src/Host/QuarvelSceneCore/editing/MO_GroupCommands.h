// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of the ports of groups.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "QuarvelSceneCore/graph/XUGroup.h"

/// Adds an input or an output port to a group, after the others. @return null when it has MO_Node::kMaxPorts
QUARVELSCENECORE_EXPORT MO_EditCommand MO_addGroupPortCmd(XUGroup& group, bool isInput);

/// Removes the last input or output port of a group.
///
/// @return an error when there is none or it is linked, inside the group or outside
QUARVELSCENECORE_EXPORT UT_Result<MO_EditCommand> MO_removeGroupPortCmd(XUGroup& group, bool isInput);
