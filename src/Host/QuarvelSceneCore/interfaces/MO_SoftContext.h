// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_SoftContext: the rendering of one module's picture for one frame: what is asked for, what comes in, where the
// result goes.
#pragma once

#include "QuarvelCelCore/CEL_Cel.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"
#include "QuarvelSceneCore/graph/MO_PortContext.h"
#include "QuarvelSceneCore/interfaces/RD_RenderJob.h"

#include <map>

/// One module's rendering. Used by one thread at a time. The results belong to the rendering, not to the value of the
/// context: whoever can read the context can deliver them.
class QUARVELSCENECORE_EXPORT MO_SoftContext
{
public:
    /// @param module     the module that is rendered; may be null for a picture of no scene
    /// @param outputRect the pixels that are asked for
    MO_SoftContext(const RD_RenderJob& job, const MO_FrameKey& frameKey, const MO_Module* module,
                   const Math::Box2di& outputRect);
    ~MO_SoftContext();
    MO_SoftContext(const MO_SoftContext&) = delete;
    MO_SoftContext& operator=(const MO_SoftContext&) = delete;

    /// The format of colour cels in this render, a value of CEL_Format.
    int mainCelFormat2d() const { return _job.parameters().celFormat(); }
    /// The pixels that are asked for: the canvas for a frame, more or less for the input of another module.
    const Math::Box2di& outputRect() const { return _outputRect; }
    int resolutionX() const { return _job.parameters().resolution.first; }
    int resolutionY() const { return _job.parameters().resolution.second; }
    /// The size of the pictures.
    Math::Size2di size() const { return _job.size(); }
    /// The pixels of the pictures: the scene's frame, and margins where the render has them.
    Math::Box2di canvas() const { return _job.canvas(); }

    const MO_FrameKey& frameKey() const { return _frameKey; }
    const MO_Module* module() const { return _module; }
    /// The context of questions about one of the module's input ports.
    MO_PortContext portContext(int port) const;

    /// The cel that is delivered to an input port, during that port's turn; null when none is.
    CA_CelRef inputCel(int port) const;
    /// For the renderer: delivers a cel to an input port; null takes it back.
    void setInputCel(int port, const CA_CelRef& cel);

    /// The module's picture on an output port; null as long as there is none.
    CA_CelRef outputCel(int port = 0) const;
    /// Hands over the module's picture.
    void setOutputCel(int port, const CA_CelRef& cel) const;

private:
    RD_RenderJob _job;
    MO_FrameKey _frameKey;
    const MO_Module* _module;
    Math::Box2di _outputRect;
    std::map<int, CA_CelRef> _inputs;
    mutable std::map<int, CA_CelRef> _outputs;
};
