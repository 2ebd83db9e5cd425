// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RD_RenderJob: a render's parameters, and what follows from them.
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelBaseCore/Math_Size2di.h"
#include "QuarvelSceneCore/interfaces/RD_RenderParameters.h"

/// A render. A plain value, the same for all its frames.
class RD_RenderJob
{
public:
    explicit RD_RenderJob(const RD_RenderParameters& parameters) : _parameters(parameters) {}

    const RD_RenderParameters& parameters() const { return _parameters; }
    /// The pixels of the scene's frame: from (0, 0), the upper left corner, to the resolution.
    Math::Box2di frame() const
    {
        return Math::Box2di(0, 0, _parameters.resolution.first, _parameters.resolution.second);
    }
    /// The pixels of the pictures: the frame and its margins.
    Math::Box2di canvas() const
    {
        const auto [width, height] = _parameters.resolution;
        const RD_Margins& margins = _parameters.margins;
        return Math::Box2di(-margins.left, -margins.top, width + margins.right, height + margins.bottom);
    }
    /// The size of the pictures.
    Math::Size2di size() const { return {canvas().width(), canvas().height()}; }

private:
    RD_RenderParameters _parameters;
};
