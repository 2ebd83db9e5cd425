// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectList: lists the objects of a scene with their values, as the objects of a drawing are listed
// (jobs/drawing/DescribeObjects.h).
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <QJsonArray>
#include <QStringList>

/// A table of the objects at a scene's first frame, a line each below a line of titles: the inputs of its Vallorin
/// nodes that lead to an Object Definition, and the definitions that lead to no node. Names and values are those that
/// `quarvel set SCENE --object` takes.
QStringList listSceneObjects(const MO_Scene& scene);

/// The same for scripts: number, name, definition and, where a node has them, bevel, elevation, smoothness, tilt and
/// rim; of a drawing that bends the surface its relief.
QJsonArray sceneObjectFields(const MO_Scene& scene);
