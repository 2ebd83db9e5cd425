// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of a scene beside those of attributes, which make their own commands: modules come and go, are
// linked, renamed and switched, elements get drawings, the scene gets frames and palettes.
//
// A module that a command takes out of the graph lives on in the command, so other commands may refer to it and undo
// brings back the very same object. Undo restores what was there exactly: the saved bytes are the same as before.
// Commands are executed on the scene's thread and must not outlive the scene.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCommand/CO_Command.h"
#include "QuarvelGraphicCore/CM_Palette.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <memory>
#include <vector>

using MO_EditCommand = std::unique_ptr<CO_Command>;

/// Adds a module behind the others of a group.
QUARVELSCENECORE_EXPORT MO_EditCommand MO_addModuleCmd(XUGroup& group, std::unique_ptr<MO_Module> module);

/// Takes modules of one group out, with their links.
///
/// @return null when there are none or they are not all of one group
QUARVELSCENECORE_EXPORT MO_EditCommand MO_removeModulesCmd(const std::vector<MO_Module*>& modules);

/// Adds copies of modules of one group behind the others, with the links among them; attributes, animation and
/// drawings are those of the originals, names get a number.
///
/// @param copies if not null, gets the modules that the command will add, in the order of the originals
/// @return null when there are none or they are not all of one group
QUARVELSCENECORE_EXPORT MO_EditCommand MO_duplicateModulesCmd(const std::vector<MO_Module*>& modules,
                                                              std::vector<MO_Module*>* copies = nullptr);

/// Links an input port to an output port, as MO_Scene::connect().
///
/// @return an error when there is no such port or the link is refused
QUARVELSCENECORE_EXPORT UT_Result<MO_EditCommand> MO_connectCmd(MO_Module& source, MO_Module& target,
                                                                unsigned inPort = 0, unsigned outPort = 0);

/// Cuts the link of an input port. @return null when there is none
QUARVELSCENECORE_EXPORT MO_EditCommand MO_disconnectCmd(MO_Module& target, unsigned inPort = 0);

/// Renames a module; a name that is taken gets a number. @return null when it has the name
QUARVELSCENECORE_EXPORT MO_EditCommand MO_renameCmd(MO_Module& module, const QString& name);

/// Switches modules on or off. @return null when nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_enableCmd(const std::vector<MO_Module*>& modules, bool enabled);

/// Changes the frames that the scene consists of. @return null when nothing would change, or last < first
QUARVELSCENECORE_EXPORT MO_EditCommand MO_frameRangeCmd(MO_Scene& scene, int first, int last);

/// Changes the frame's height in scene units. @return null when nothing would change, or it is not a positive number
QUARVELSCENECORE_EXPORT MO_EditCommand MO_frameHeightCmd(MO_Scene& scene, double height);

/// Gives an element a drawing, in place of the one of that name; a null drawing takes it away.
///
/// @return null when nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_drawingCmd(MO_ElementModule& element, const QString& name,
                                                     const UT_SharedPtr<CELVEC_Kvd>& drawing);

/// Appends a palette to the scene's. @return null when it is null or there already
QUARVELSCENECORE_EXPORT MO_EditCommand MO_addPaletteCmd(MO_Scene& scene, const CM_SharedPtr<CM_Palette>& palette);
