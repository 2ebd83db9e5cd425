// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_EditCommand: an undoable change of a scene. This folder holds all of them, by what they change, except for the
// commands that set an attribute's own value, which the attribute makes (AT_DoubleAttr::setValueCmd and its like),
// because plug-ins call them there.
//
//   MO_AttrCommands.h     what drives an attribute, its curve, its exposures
//   MO_KeyCommands.h      single keys and exposures on the time line
//   MO_ModuleCommands.h   adding, removing, renaming and switching modules
//   MO_LinkCommands.h     links between modules
//   MO_GroupCommands.h    the ports of groups
//   MO_DrawingCommands.h  the drawings of elements
//   MO_LightCommands.h    the lights of a scene
//   MO_SceneCommands.h    the frames, the height and the frame rate of a scene
//   MO_PaletteCommands.h  palettes and their colours
//   MO_NamedChange.h      a change with a name that tells the values: "Bevel of Head 24 → 60"
//
// Making a command changes nothing and notifies nobody: it looks at the scene as it is, and an impossible change gives
// no command. Undo restores the earlier state exactly: the saved bytes are the same as before. A command keeps the
// modules that it takes out of the graph, so other commands may refer to them, and undo puts the same objects back.
//
// Commands are made and executed on the scene's thread, executed in the state that they were made for, and must not
// outlive the scene.
#pragma once

#include "QuarvelCommand/CO_Command.h"

#include <memory>

/// A command that belongs to its holder until a stack or another command takes it over. Null when there is nothing to
/// change.
using MO_EditCommand = std::unique_ptr<CO_Command>;
