// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RD_RenderJob: a render with all that follows from its parameters.
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
    /// The size of the pictures.
    Math::Size2di size() const { return {_parameters.resolution.first, _parameters.resolution.second}; }
    /// The pixels of the scene's frame: from (0, 0), the upper left corner, to the resolution.
    Math::Box2di canvas() const
    {
        return Math::Box2di(0, 0, _parameters.resolution.first, _parameters.resolution.second);
    }

private:
    RD_RenderParameters _parameters;
};
