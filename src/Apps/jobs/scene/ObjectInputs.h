// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectInputs: the objects that the nodes of a scene have, for lists of them and for changes in words.
#pragma once

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <QStringList>

#include <vector>

/// An input of a Vallorin node that shows an object. It is invalid after the scene has changed.
struct ObjectInput
{
    MO_Module* node;
    const MO_Port* port;
    ObjectDefinition* definition; ///< gives the input its object (objectDefinitionBehind)
    QStringList elements;         ///< the names of the elements upstream of it
    QStringList reasons = {};     ///< why their drawings are an object (MO_DrawingOrigin::reason), each once
};

/// The inputs of all Vallorin nodes that lead to an enabled Object Definition, in the nodes' order.
std::vector<ObjectInput> objectInputsOf(const MO_Scene& scene);
