// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Copies of whole scenes and of single modules, for rendering in the background while the original is edited.
//
// A copy takes two steps, of which only the first, the shorter one, has to be done where the scene is edited: what the
// scene is at a moment is noted down (MO_SceneCapture), and the scene is built of the notes.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <memory>

/// What a scene is at one moment. Made on the scene's thread, which costs writing its XML to memory; the rest may be
/// done on another one.
class QUARVELSCENECORE_EXPORT MO_SceneCapture
{
public:
    explicit MO_SceneCapture(const MO_Scene& scene);
    ~MO_SceneCapture();
    MO_SceneCapture(const MO_SceneCapture&) = delete;
    MO_SceneCapture& operator=(const MO_SceneCapture&) = delete;

    /// The scene as it was; see MO_copyScene(). To be called once.
    ///
    /// @return an error when the scene is larger than its file may be (XUGroup::mayBeFiled())
    UT_Result<std::unique_ptr<MO_Scene>> makeScene();

private:
    UT_Result<void> _mayBeCopied;
    QString _xml;
    std::vector<CM_SharedPtr<CM_Palette>> _palettes;
    /// Modules that hold nothing but what lies in files, in the order of the scene's modules; null for those that have
    /// nothing there.
    std::vector<std::unique_ptr<MO_Module>> _files;
};

/// A scene of its own that equals the one given. Modules, attributes, animation and links are new objects; drawings are
/// new ones that share their shapes; palettes are the same objects, so they must not be changed while the copy renders.
/// To be called on the scene's thread; the copy may then be used on another one.
///
/// @return an error when the scene is larger than its file may be (XUGroup::mayBeFiled())
QUARVELSCENECORE_EXPORT UT_Result<std::unique_ptr<MO_Scene>> MO_copyScene(const MO_Scene& scene);

/// A module equal to the one given, outside any graph; its drawings are the same objects.
///
/// @return an error when it is a group that is larger than a file may be (XUGroup::mayBeFiled())
QUARVELSCENECORE_EXPORT UT_Result<std::unique_ptr<MO_Module>> MO_copyModule(const MO_Module& module);
