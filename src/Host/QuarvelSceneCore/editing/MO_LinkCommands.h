// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of links between modules. MO_Scene::mayConnect() answers whether a link is possible.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

/// Links an input port to an output port, as MO_Scene::connect(). Null when they are linked already.
///
/// @return an error when the target is not part of a scene, and when MO_Scene::mayConnect() refuses
QUARVELSCENECORE_EXPORT UT_Result<MO_EditCommand> MO_connectCmd(MO_Module& source, MO_Module& target,
                                                                unsigned inPort = 0, unsigned outPort = 0);

/// Cuts the link of an input port. @return null when there is none
QUARVELSCENECORE_EXPORT MO_EditCommand MO_disconnectCmd(MO_Module& target, unsigned inPort = 0);

/// Moves the link of one input port to another one, as one change. Null when there is no such link, or both ports are
/// the same.
///
/// @return an error when the new link is refused
QUARVELSCENECORE_EXPORT UT_Result<MO_EditCommand> MO_moveLinkCmd(MO_Module& from, unsigned fromPort, MO_Module& to,
                                                                 unsigned toPort);
