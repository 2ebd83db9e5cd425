// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SceneSnapshot: the scene as it was at one moment, for the thread that renders. It renders what the viewer shows of a
// frame: the node's picture with the elevation beside the normals, and the drawing that the node works on. The scene's
// thread only notes down what the scene is; the copy is made by the first render.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"
#include "jobs/shown/ShownFrame.h"
#include "studio/preview/DrawingCache.h"
#include "studio/preview/RenderedFrame.h"

#include <memory>

/// A scene's copy. Made on the scene's thread; then used by one other thread at a time.
class SceneSnapshot
{
public:
    /// @param nodeName the module to look at; when it is empty or gone, the scene's output, or what comes nearest to
    /// one
    SceneSnapshot(const MO_Scene& scene, const QString& nodeName);
    ~SceneSnapshot();
    SceneSnapshot(const SceneSnapshot&) = delete;
    SceneSnapshot& operator=(const SceneSnapshot&) = delete;

    /// Whether there is anything to render.
    bool isEmpty() const { return _module.isEmpty(); }

    /// Renders a frame.
    ///
    /// @param fullSize what the frame counts as
    /// @param size     what it is rendered in
    /// @param drawings where a drawing may be found that was painted before, and this one is kept; or null
    /// @return an error when it cannot be rendered or progress said to stop
    UT_Result<std::shared_ptr<RenderedFrame>> render(int frame, const QSize& fullSize, const QSize& size,
                                                     const RD_SoftRenderer::Progress& progress,
                                                     DrawingCache* drawings = nullptr);

    /// Whether the node's blue channel holds something else than the elevation, so that renderChannels() has more to
    /// show than render().
    bool hasOtherBlue() { return source().hasOtherBlue(); }
    /// Renders what the node delivers with its attributes as they are.
    UT_Result<UT_SharedPtr<CEL_PixmapArea>> renderChannels(int frame, const QSize& size,
                                                           const RD_SoftRenderer::Progress& progress);

private:
    ShownModule& source();

    QString _module; // its name
    DrawingState _state;
    MO_SceneCapture _capture;
    std::unique_ptr<MO_Scene> _scene;
    std::unique_ptr<ShownModule> _shown;
};

/// The module that a scene shows when none is named: its first display, or the first node that makes normal maps, or
/// the last module; null for an empty scene.
MO_Module* shownModule(const MO_Scene& scene);
