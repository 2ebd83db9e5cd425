// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_EditCommand: an undoable change of a scene. This folder holds all of them, by what they change; an attribute makes
// the commands that set its own value itself (AT_DoubleAttr::setValueCmd and its like), as plug-ins call them.
//
//   MO_AttrCommands.h     what drives an attribute, its curve, its exposures
//   MO_KeyCommands.h      single keys and exposures on the time line
//   MO_ModuleCommands.h   modules come and go, are renamed and switched
//   MO_LinkCommands.h     links between modules
//   MO_GroupCommands.h    the ports of groups
//   MO_LightCommands.h    the lights of a scene
//   MO_SceneCommands.h    the frames, the height and the frame rate of a scene
//   MO_PaletteCommands.h  palettes and their colours
//
// Making a command changes nothing and tells nobody: it looks at the scene as it is, and a change that is not possible
// gives no command. Undo restores what was there exactly: the saved bytes are the same as before. A module that a
// command takes out of the graph lives on in the command, so other commands may refer to it, and undo brings back the
// very same object.
//
// Commands are made and executed on the scene's thread, executed in the state that they were made for, and must not
// outlive the scene.
#pragma once

#include "QuarvelCommand/CO_Command.h"

#include <memory>

/// A command that belongs to whoever holds it, until a stack or another command takes it over. Null when there is
/// nothing to change.
using MO_EditCommand = std::unique_ptr<CO_Command>;
