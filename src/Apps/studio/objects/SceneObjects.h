// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The objects of a scene as people see them: a name, a number, the values of the node's table, and the modules that
// make them. The graph and the table stay the only truth; this is a look at both, made anew whenever it is needed.
#pragma once

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/shown/NormalMapNode.h"

#include <QList>
#include <QString>

#include <vector>

/// An object of a node. A look at the scene: void once the scene changes.
struct SceneObject
{
    MO_Module* node = nullptr; ///< the normal-map node
    QString name;              ///< its definition's, without "-Definition"; of several ones, the first
    /// What gives the object its number, in the order of the node's inputs; at least one.
    std::vector<ObjectDefinition*> definitions;
    std::vector<MO_ElementModule*> elements; ///< what is drawn of it
    std::vector<int> ports;                  ///< the node's inputs that it comes in at
    NormalMapObject values;                  ///< the number is 0 for a cut-out, which has no values
    bool isHidden = false;

    int number() const { return values.number; }
    /// It is not seen; what lies below it is taken away where it is.
    bool isCutOut() const { return values.number == 0; }
    /// Its elements, then its definitions: what is selected in graph and timeline when the object is.
    QList<MO_Module*> modules() const;
};

/// All objects of a scene at a frame: node after node, in each of them the topmost object first. Definitions of one
/// number are one object; each cut-out stands for itself.
std::vector<SceneObject> objectsOf(const MO_Scene& scene, double frame);

/// Those of which a definition is selected, or an element while none of its definitions is; in the order of the
/// selection, the one selected last at the end.
std::vector<SceneObject> selectedOf(const std::vector<SceneObject>& objects, const QList<MO_Module*>& selection);

/// Their modules, each once, in the order of the objects.
QList<MO_Module*> modulesOf(const std::vector<SceneObject>& objects);

/// Whether both mean the same object: a definition of one is a definition of the other.
bool isSame(const SceneObject& one, const SceneObject& other);
