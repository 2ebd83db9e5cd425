// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_SoftContext: the rendering of one module's picture for one frame: the requested pixels, the inputs, the result.
#pragma once

#include "QuarvelCelCore/CEL_Cel.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"
#include "QuarvelSceneCore/graph/MO_PortContext.h"
#include "QuarvelSceneCore/interfaces/RD_RenderJob.h"

#include <map>
#include <optional>

/// One module's rendering. Used by one thread at a time. Results can be set through a const context, because they
/// belong to the rendering and not to the context's value.
class QUARVELSCENECORE_EXPORT MO_SoftContext
{
public:
    /// @param module     the module that is rendered; may be null for a picture outside a scene
    /// @param outputRect the requested pixels
    MO_SoftContext(const RD_RenderJob& job, const MO_FrameKey& frameKey, const MO_Module* module,
                   const Math::Box2di& outputRect);
    ~MO_SoftContext();
    MO_SoftContext(const MO_SoftContext&) = delete;
    MO_SoftContext& operator=(const MO_SoftContext&) = delete;

    /// The format of colour cels in this render, a value of CEL_Format.
    int mainCelFormat2d() const { return _job.parameters().celFormat(); }
    /// The requested pixels: the canvas for a frame; possibly more or less for the input of another module.
    const Math::Box2di& outputRect() const { return _outputRect; }
    /// Where the module's picture is looked at; it may lack pixels elsewhere. Without a value, all of it is.
    const std::optional<Math::Box2di>& shownRect() const { return _shownRect; }
    /// For the renderer.
    void setShownRect(const Math::Box2di& rect) { _shownRect = rect; }
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

    /// The cel that an input port delivers, during that port's turn; null when there is none.
    CA_CelRef inputCel(int port) const;
    /// For the renderer: sets the cel of an input port; null removes it.
    void setInputCel(int port, const CA_CelRef& cel);

    /// The module's picture on an output port; null until it is set.
    CA_CelRef outputCel(int port = 0) const;
    /// Delivers the module's picture.
    void setOutputCel(int port, const CA_CelRef& cel) const;

private:
    RD_RenderJob _job;
    MO_FrameKey _frameKey;
    const MO_Module* _module;
    Math::Box2di _outputRect;
    std::optional<Math::Box2di> _shownRect;
    std::map<int, CA_CelRef> _inputs;
    mutable std::map<int, CA_CelRef> _outputs;
};
