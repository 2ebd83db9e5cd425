// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The elements of a scene by what they were read from, and where they lie in the frame.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <QStringList>

#include <array>
#include <vector>

/// All elements, in the order of the graph.
std::vector<MO_ElementModule*> allElements(const MO_Scene& scene);

/// Paths as elements keep them: absolute, and each file in one spelling.
QStringList originPaths(const QStringList& files);

/// The elements whose drawings were read from these files, in the order of the graph.
std::vector<MO_ElementModule*> elementsFrom(const MO_Scene& scene, const QStringList& files);

/// The files that the scene's drawings were read from: a list for each set of files that was read together, each once.
std::vector<QStringList> originsOf(const MO_Scene& scene);

/// Scale x, scale y, position x and position y of an element, without its keys.
using ElementPlacing = std::array<double, 4>;

/// The attributes that a placing is made of, in its order.
std::array<AT_DoubleAttr*, 4> placingAttrs(const MO_ElementModule& element);

ElementPlacing placingOf(const MO_ElementModule& element);

/// The placing that most of the elements have, which nobody moved by hand. There must be at least one element.
ElementPlacing usualPlacing(const std::vector<MO_ElementModule*>& elements);
