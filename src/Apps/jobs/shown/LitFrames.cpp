// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts a shown frame to bytes, lit or unlit.
#include "jobs/shown/LitFrames.h"

#include "QuarvelImageIO/IIO_Samples.h"
#include "QuarvelNormalMap/NM_DrawingPicture.h"
#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "jobs/shown/LitSurface.h"
#include "jobs/shown/SceneLighting.h"

namespace {

using Samples = std::uint16_t;
using Bytes = std::vector<std::uint8_t>;

Bytes bytesOf(const IIO_Picture& picture)
{
    const auto count = static_cast<std::size_t>(picture.channelCount());
    const bool grey = count < 3;
    const bool covered = count == 2 || count == 4;
    Bytes bytes;
    bytes.reserve(std::size_t{4} * static_cast<std::size_t>(picture.width()) *
                  static_cast<std::size_t>(picture.height()));
    for (int y = picture.dataWindow().y1; y < picture.dataWindow().y2; ++y) {
        const auto row = picture.row<Samples>(y);
        for (std::size_t i = 0; i < row.size(); i += count) {
            for (std::size_t c = 0; c < 3; ++c)
                bytes.push_back(IIO_toSample8(row[i + (grey ? 0 : c)]));
            bytes.push_back(covered ? IIO_toSample8(row[i + count - 1]) : std::uint8_t{255});
        }
    }
    return bytes;
}

UT_Result<Bytes> asItIs(const ShownFrame& frame, RenderedKind shown)
{
    const auto picture = shown == RenderedKind::ELEVATION
                             ? NM_elevationOf(*frame.picture, frame.elevationChannel(), frame.window, frame.window,
                                              IIO_SampleType::UINT16)
                             : NM_drawingPicture(*frame.picture, frame.window, IIO_SampleType::UINT16);
    if (!picture)
        return picture.error();
    return bytesOf(*picture);
}

UT_Result<Bytes> lit(const ShownFrame& frame, const NM_LightingSettings& lighting)
{
    const UT_Result<NM_Surface> surface = litSurface(frame);
    if (!surface)
        return surface.error();
    Bytes bytes(static_cast<std::size_t>(frame.window.area()) * 4);
    NM_light(*surface, lighting, NM_ScreenPixels::RGBA, bytes);
    return bytes;
}

} // namespace

std::pair<int, int> previewSize(const std::pair<int, int>& size)
{
    if (size.first <= LitFrames::kMaxWidth)
        return size;
    const double height = static_cast<double>(size.second) * LitFrames::kMaxWidth / size.first;
    return {LitFrames::kMaxWidth, MO_SceneCommon::wholePixels(height)};
}

LitFrames::LitFrames(const ShownModule& module, RenderedKind shown, const RD_RenderParameters& final,
                     const std::optional<NM_LightingSettings>& lighting)
    : _module(module), _shown(shown), _parameters(final), _lighting(lighting)
{
    _parameters.resolution = previewSize(final.resolution);
}

UT_Result<Bytes> LitFrames::render(int frame) const
{
    const bool isLit = _shown == RenderedKind::NORMALS;
    const auto made =
        _module.render(frame, _parameters, {.elevation = _shown == RenderedKind::ELEVATION, .drawing = isLit});
    if (!made)
        return made.error();
    if (!isLit)
        return asItIs(*made, _shown);
    return lit(*made, _lighting ? *_lighting : sceneLighting(_module.module(), frame));
}
