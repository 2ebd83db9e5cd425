// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SceneSnapshot: the state of the scene at one moment, for the thread that renders. It renders all that the viewer
// shows of a frame: the node's picture with normals and elevation, and the node's drawing. The scene's thread only
// captures the state; the first render makes the copy of the scene.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/graph/MO_SceneCopy.h"
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"
#include "jobs/shown/ShownFrame.h"
#include "studio/preview/DrawingCache.h"
#include "studio/preview/RenderedFrame.h"

#include <memory>

/// A copy of a scene. It is constructed on the scene's thread and then used by one other thread at a time.
class SceneSnapshot
{
public:
    /// @param nodeName the module to show; if it is empty or does not exist, shownModule() of the scene
    SceneSnapshot(const MO_Scene& scene, const QString& nodeName);
    ~SceneSnapshot();
    SceneSnapshot(const SceneSnapshot&) = delete;
    SceneSnapshot& operator=(const SceneSnapshot&) = delete;

    /// Whether there is anything to render.
    bool isEmpty() const { return _module.isEmpty(); }

    /// Renders a frame.
    ///
    /// @param fullSize the size of the full picture
    /// @param size the size to render
    /// @param drawings the cache of painted drawings to use and fill, or null
    /// @return an error if the frame cannot be rendered or progress returned false
    UT_Result<std::shared_ptr<RenderedFrame>> render(int frame, const QSize& fullSize, const QSize& size,
                                                     const RD_SoftRenderer::Progress& progress,
                                                     DrawingCache* drawings = nullptr);

    /// Whether the node's own blue channel is not the elevation, so that renderChannels() gives a different picture
    /// than render(); false where nothing can be rendered.
    bool hasOtherBlue();
    /// Renders the node's picture with its attributes unchanged.
    UT_Result<UT_SharedPtr<CEL_PixmapArea>> renderChannels(int frame, const QSize& size,
                                                           const RD_SoftRenderer::Progress& progress);

private:
    UT_Result<ShownModule*> source();

    QString _module; // its name
    DrawingState _state;
    MO_SceneCapture _capture;
    std::unique_ptr<MO_Scene> _scene;
    std::unique_ptr<ShownModule> _shown;
};

/// The module that a scene shows if none is named: its output module, or the first normal-map node, or the last module;
/// null for an empty scene.
MO_Module* shownModule(const MO_Scene& scene);
