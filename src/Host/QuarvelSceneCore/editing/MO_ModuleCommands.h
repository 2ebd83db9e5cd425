// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of the modules of a group: adding, removing, renaming, switching
// and moving them.
#pragma once

#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "QuarvelSceneCore/graph/XUGroup.h"

#include <optional>
#include <utility>
#include <vector>

/// Adds a module after the others of a group.
///
/// @param source if not null, a module of the group whose first output is linked to the first input of the new one in
/// the same change; nothing is linked where one of the two has no such port
QUARVELSCENECORE_EXPORT MO_EditCommand MO_addModuleCmd(XUGroup& group, std::unique_ptr<MO_Module> module,
                                                       MO_Module* source = nullptr);

/// Removes modules of one group, with their links.
///
/// @return null when there are none or they are not all of one group
QUARVELSCENECORE_EXPORT MO_EditCommand MO_removeModulesCmd(const std::vector<MO_Module*>& modules);

/// Adds copies of modules of one group after the others, with the links among them. Attributes, animation and drawings
/// are those of the originals; the names get a number.
///
/// @param copies if not null, gets the modules that the command will add, in the order of the originals
/// @return null when there are none or they are not all of one group; an error when the scene would have more modules
/// than its file may (XUGroup::kMaxModulesInFile)
QUARVELSCENECORE_EXPORT UT_Result<MO_EditCommand> MO_duplicateModulesCmd(const std::vector<MO_Module*>& modules,
                                                                         std::vector<MO_Module*>* copies = nullptr);

/// Renames a module; a name that is taken gets a number. @return null when it has the name
QUARVELSCENECORE_EXPORT MO_EditCommand MO_renameCmd(MO_Module& module, const QString& name);

/// Switches modules on or off. @return null when nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_enableCmd(const std::vector<MO_Module*>& modules, bool enabled);

/// Puts modules of one group at other places of its view (MO_Module::graphPlace()); without a place, a module goes back
/// to where the view places it.
///
/// @return null when nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand
MO_placeModulesCmd(const std::vector<std::pair<MO_Module*, std::optional<MO_GraphPlace>>>& places);
