// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_CompositeModuleBitmapHandler: the base for making one picture out of several, pixel by pixel. It passes each cel
// of the context to acceptInputCel(), and at the end a cel to start from to finishRender().
#pragma once

#include "QuarvelCelCore/CEL_Cel.h"
#include "QuarvelSceneCore/interfaces/MO_SoftContext.h"
#include "QuarvelSceneCore/interfaces/MO_SoftRenderInterface.h"
#include "QuarvelSceneCore/interfaces/node_render.h"

#include <utility>
#include <vector>

/// Makes one picture from input cels.
class QUARVELSCENECORE_EXPORT MO_CompositeModuleBitmapHandler : public MO_SoftRenderInterface
{
public:
    /// What the handler is told about its module.
    struct CompositeModuleInterface
    {
        MO_Module* node = nullptr;
        /// Which pixmaps acceptInputCel() takes. A pixmap in a colour format that is not accepted is converted to the
        /// render's main format first; a depth pixmap that is not accepted is left out. Vector drawings are passed on
        /// unchanged.
        bool acceptsFloatCels = false;
        bool accepts16BitCels = false;
        bool acceptsDepthCels = false;
        /// The depth range, low and high, of a picture without depth; low > high means empty.
        std::pair<double, double> emptyDepthRange{1.0, -1.0};
    };

    MO_CompositeModuleBitmapHandler(const CompositeModuleInterface& module,
                                    const std::vector<node_render::PortRenderInfo>& ports);
    ~MO_CompositeModuleBitmapHandler() override;

    const CompositeModuleInterface& moduleInterface() const { return _module; }
    const std::vector<node_render::PortRenderInfo>& ports() const { return _ports; }

    /// Passes the port's cel to acceptInputCel(), if there is one.
    void softRender(MO_SoftContext& context, int port) override;
    /// Calls finishRender().
    void finish(MO_SoftContext& context) override;

protected:
    /// Takes an input cel; never null. Does nothing unless overridden.
    virtual void acceptInputCel(const MO_SoftContext& context, CA_CelRef cel);

    /// Makes the picture and delivers it with setCel().
    ///
    /// @param delivered a cel whose pixmap has the render's size, canvas and main format and no pixels; null when no
    /// input delivered a cel
    virtual void finishRender(const MO_SoftContext& context, CA_CelRef delivered) = 0;

    /// Delivers the module's picture.
    void setCel(const MO_SoftContext& context, const CA_CelRef& cel);

private:
    CA_CelRef asAccepted(const MO_SoftContext& context, const CA_CelRef& cel) const;

    CompositeModuleInterface _module;
    std::vector<node_render::PortRenderInfo> _ports;
    bool _delivered = false;
};
