// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The objects of a scene as people see them: a name, a number, the values of the node's table, and the modules that
// make them. Only the graph and the table store this; a SceneObject is a copy that is made again whenever it is needed.
#pragma once

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/drawing/NormalMapSettings.h"
#include "jobs/shown/NormalMapNode.h"

#include <QList>
#include <QString>

#include <vector>

/// An object of a node. It is invalid after the scene has changed.
struct SceneObject
{
    MO_Module* node = nullptr; ///< the normal-map node
    QString name;              ///< the first definition's name without "-Definition"
    /// The definitions that give the object its number, in the order of the node's inputs; at least one.
    std::vector<ObjectDefinition*> definitions;
    std::vector<MO_ElementModule*> elements; ///< the elements of its drawings
    std::vector<int> ports;                  ///< the inputs of the node that show it
    NormalMapObject values;                  ///< the number is 0 for a cut-out, which has no values
    ObjectTilt tilt;                         ///< of the first definition
    ObjectRim rim;                           ///< of the first definition
    bool isHidden = false;

    int number() const { return values.number; }
    /// Whether the object is invisible and removes what lies below it.
    bool isCutOut() const { return values.number == 0; }
    /// Its elements, then its definitions. These are selected in graph and timeline when the object is selected.
    QList<MO_Module*> modules() const;
};

/// All objects of a scene at a frame, node after node, the topmost object of each node first. Definitions with the same
/// number are one object; each cut-out is an object of its own.
std::vector<SceneObject> objectsOf(const MO_Scene& scene, double frame);

/// The selected objects: those with a selected definition, or with a selected element none of whose definitions is
/// selected. In the order of the selection, the one selected last at the end.
std::vector<SceneObject> selectedOf(const std::vector<SceneObject>& objects, const QList<MO_Module*>& selection);

/// The object whose values stand for all of them: the last one that is no cut-out, since cut-outs have no values. Null
/// if there is none.
const SceneObject* currentOf(const std::vector<SceneObject>& objects);

/// The modules of objects, each once, in the order of the objects.
QList<MO_Module*> modulesOf(const std::vector<SceneObject>& objects);

/// The object with the values, the tilt and the rim that it got when its drawing came in, whether the program chose
/// them or the drawing gave them: those of the first definition that keeps them. An object that was made by hand has
/// the values of a new row, faces the viewer and has no rim.
SceneObject asChosen(const SceneObject& object);

/// Whether both mean the same object: a definition of one is a definition of the other.
bool isSame(const SceneObject& one, const SceneObject& other);
