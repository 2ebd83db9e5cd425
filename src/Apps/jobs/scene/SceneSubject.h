// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SceneSubject: what a subject of "quarvel set" (SetAttribute.h) stands for in a scene.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <QStringList>

#include <functional>

/// Something of a scene that has a value in words. It is invalid after the scene has lost it.
struct SceneSubject
{
    /// Its value, in the notation in which it is set.
    std::function<QString()> inWords;
    /// Makes the command that gives it the value of words, at least one. Null if nothing would change; an error says
    /// what was expected.
    std::function<UT_Result<MO_EditCommand>(const QStringList& words)> change;
};

/// Finds what a subject stands for.
///
/// @return an error that says what could stand there, and which of it was meant when it was mistyped
UT_Result<SceneSubject> findSubject(MO_Scene& scene, const QString& subject);
