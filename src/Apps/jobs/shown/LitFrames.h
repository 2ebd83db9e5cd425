// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LitFrames: frames of a scene for previews. Normals are shown as light on the drawing that they belong to; elevation
// and colours are shown unlit.
#pragma once

#include "QuarvelNormalMap/NM_Lighting.h"
#include "jobs/shown/ShownFrame.h"

#include <cstdint>
#include <optional>
#include <vector>

/// The size of frames to look at: in the same shape, at most LitFrames::kMaxWidth pixels wide.
std::pair<int, int> previewSize(const std::pair<int, int>& size);

/// Makes lit frames, as bytes. Several may be made on several threads at once.
class LitFrames
{
public:
    /// The largest width of a preview, in pixels.
    static constexpr int kMaxWidth = 960;

    /// @param module the rendered module; must outlive this object
    /// @param shown the meaning of its picture
    /// @param final  the parameters of the frames that are written to files
    /// @param lighting the light; without a value, the scene's own light at each frame
    LitFrames(const ShownModule& module, RenderedKind shown, const RD_RenderParameters& final,
              const std::optional<NM_LightingSettings>& lighting = {});

    /// The size of the frames: the final one, scaled down to a width of kMaxWidth if it is wider.
    const std::pair<int, int>& size() const { return _parameters.resolution; }

    /// Renders a frame as bytes R G B A, straight, rows without gaps.
    UT_Result<std::vector<std::uint8_t>> render(int frame) const;

private:
    const ShownModule& _module;
    RenderedKind _shown;
    RD_RenderParameters _parameters;
    std::optional<NM_LightingSettings> _lighting;
};
