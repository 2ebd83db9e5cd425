// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RD_FrameRender: the rendering of one frame of one module; what RD_SoftRenderer makes for each call.
#pragma once

#include "QuarvelSceneCore/interfaces/RD_ScriptContext.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"

#include <optional>

/// Renders one frame once.
class RD_FrameRender
{
public:
    /// The reason why a frame was not finished; thrown and caught inside this library only.
    struct Aborted
    {
        UT_Error reason;
    };

    /// @param shown pixels elsewhere may be missing; without a value, all are made
    RD_FrameRender(double frame, const RD_RenderParameters& parameters, const std::optional<Math::Box2di>& shown,
                   const RD_SoftRenderer::Progress& progress, RD_KeptInputs* kept);

    /// What the module delivers; null when it delivers nothing.
    ///
    /// @throws Aborted
    CA_CelRef render(MO_Module& module);

private:
    /// A port on the path from the rendered module up to the current one.
    struct Step
    {
        const Step* downstream;
        const MO_Module* module;
        int port;
        bool rendersPixels;
        int depth;
    };

    /// A part of the whole work, from 0 to 1, for progress.
    struct Span
    {
        double from;
        double to;

        Span part(std::size_t index, std::size_t count) const;
    };

    static bool isDelivered(const Step* path);
    CA_CelRef renderSource(MO_Module& module, unsigned outPort, const Math::Box2di& rect, const Step* path,
                           const Span& span);
    CA_CelRef renderInput(MO_Module& module, int port, bool rendersPixels, const Math::Box2di& rect, const Step* path,
                          const Span& span);
    CA_CelRef renderElement(const MO_ElementModule& element, const Math::Box2di& rect, const Step* path);
    void process(MO_RenderingRequestHandler::BaseContext& drawing, const Step* path) const;
    void report(double done);

    RD_ScriptContext _script;
    std::optional<Math::Box2di> _shown;
    RD_SoftRenderer::Progress _progress;
    RD_KeptInputs* _kept;
    Math::Box2di _limit;
    double _done = 0.0;
    int _links = 0;
};
