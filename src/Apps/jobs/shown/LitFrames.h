// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LitFrames: frames of a scene to look at. Normals are shown as light on the drawing that they belong to; elevation and
// colours are shown as they are.
//
// The drawing is what the inputs of the Vallorin node show, put together in their order, without cut-outs and what is
// switched off. Where several such nodes are joined it is a grey surface of the same outline.
#pragma once

#include "QuarvelSceneCore/rendering/RD_RenderParameters.h"
#include "jobs/shown/RenderedKind.h"

#include <cstdint>
#include <vector>

/// Renders lit frames. While it lives, the scene has a module more, and nobody else may change or save it.
class LitFrames
{
public:
    /// No preview is wider than this.
    static constexpr int kMaxWidth = 960;

    /// @param module what is rendered
    /// @param source what its picture is made of
    /// @param shown  what its picture is taken for
    LitFrames(MO_Module& module, const PictureSource& source, RenderedKind shown, const RD_RenderParameters& final);
    ~LitFrames();
    LitFrames(const LitFrames&) = delete;
    LitFrames& operator=(const LitFrames&) = delete;

    /// The size of the frames: the final one, or in its shape kMaxWidth pixels wide.
    const std::pair<int, int>& size() const { return _parameters.resolution; }

    /// A frame as bytes R G B A, straight, rows without gaps. Frames may be rendered on several threads at once.
    UT_Result<std::vector<std::uint8_t>> render(int frame) const;

private:
    void addColours(MO_Module& node);

    MO_Module& _module;
    RenderedKind _source;
    RenderedKind _shown;
    RD_RenderParameters _parameters;
    MO_Module* _colours = nullptr;
};
