// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LitFrames: frames of a scene to look at. Normals are shown as light on the drawing that they belong to; elevation and
// colours are shown as they are.
#pragma once

#include "QuarvelNormalMap/NM_Lighting.h"
#include "jobs/shown/ShownFrame.h"

#include <cstdint>
#include <optional>
#include <vector>

/// Makes lit frames, as bytes. Several may be made on several threads at once.
class LitFrames
{
public:
    /// No preview is wider than this.
    static constexpr int kMaxWidth = 960;

    /// @param module what is rendered; must live longer
    /// @param shown  what its picture is taken for
    /// @param final  the parameters of the frames that are written to files
    /// @param lighting the light; nothing: the scene's own at each frame
    LitFrames(const ShownModule& module, RenderedKind shown, const RD_RenderParameters& final,
              const std::optional<NM_LightingSettings>& lighting = {});

    /// The size of the frames: the final one, or in its shape kMaxWidth pixels wide.
    const std::pair<int, int>& size() const { return _parameters.resolution; }

    /// A frame as bytes R G B A, straight, rows without gaps.
    UT_Result<std::vector<std::uint8_t>> render(int frame) const;

private:
    const ShownModule& _module;
    RenderedKind _shown;
    RD_RenderParameters _parameters;
    std::optional<NM_LightingSettings> _lighting;
};
