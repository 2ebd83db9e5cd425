// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The files that a scene was made of must not be written over by its pictures: the drawing would be lost, and a scene
// that follows its files would take a picture of itself for it.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <QStringList>

#include <optional>

/// The first of these files which is one that the scene was made of, under whatever name: through links, too.
std::optional<QString> originAmong(const MO_Scene& scene, const QStringList& files);
