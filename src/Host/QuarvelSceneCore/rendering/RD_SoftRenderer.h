// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RD_SoftRenderer: renders a module of a scene at a frame.
//
// From the module upstream: a disabled module passes on its first input, a group is looked through, a module without a
// render interface passes on the picture of its first input, one with an interface gets its inputs in port order and
// makes a picture of them. At the leaves, the drawing shown at the frame is placed (position, scale and rotation of the
// element, the camera's truck factor) and passed through the rendering requests on its way down.
//
// A renderer keeps nothing between calls, unless the caller gives it a place to keep it in (RD_KeptInputs.h), and
// shares nothing with others: frames may be rendered on several threads at once as long as the scene does not change.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCelCore/CEL_Cel.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"
#include "QuarvelSceneCore/interfaces/RD_RenderParameters.h"

#include <functional>

class MO_Module;
class RD_KeptInputs;

/// Renders modules of scenes.
class QUARVELSCENECORE_EXPORT RD_SoftRenderer
{
public:
    /// Called with the finished part of the picture, from 0 to 1, never less than before; returns whether to go on.
    /// Called on the thread that renders.
    using Progress = std::function<bool(double done)>;

    /// The largest number of links that are followed for one frame. A module that feeds several others is rendered once
    /// for each of them, so a small graph can have a great many paths.
    static constexpr int kMaxLinks = 1000000;

    /// Renders one frame of a module.
    ///
    /// @param module     any module of the scene; what it would deliver on its first output port is rendered (for a
    /// module without output ports: what comes in at its first input)
    /// @param parameters the resolution is from 1 to RD_RenderParameters::kMaxResolution on both axes
    /// @param progress   may be empty
    /// @param kept       inputs of earlier renders to use, and to add to; may be null
    /// @return a cel whose picture is a pixmap in parameters.celFormat(), without pixels where nothing is shown;
    /// messages that came with the picture are still attached. An error when the resolution is out of range or the
    /// graph is too deep or has too many paths (REFUSED), the memory does not suffice (NO_MEMORY), or progress asked to
    /// stop (STOPPED).
    static UT_Result<CA_CelRef> render(MO_Module& module, double frame, const RD_RenderParameters& parameters,
                                       const Progress& progress = {}, RD_KeptInputs* kept = nullptr);
};
