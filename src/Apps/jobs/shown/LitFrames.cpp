// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A shown frame, lit or as it is, in bytes.
#include "jobs/shown/LitFrames.h"

#include "QuarvelImageIO/IIO_Samples.h"
#include "QuarvelNormalMap/NM_DrawingPicture.h"
#include "QuarvelNormalMap/NM_Layers.h"
#include "QuarvelNormalMap/NM_Lighting.h"

#include <algorithm>
#include <cmath>

namespace {

using Samples = std::uint16_t;
using Bytes = std::vector<std::uint8_t>;

std::pair<int, int> previewSize(const std::pair<int, int>& size)
{
    if (size.first <= LitFrames::kMaxWidth)
        return size;
    const double height = static_cast<double>(size.second) * LitFrames::kMaxWidth / size.first;
    return {LitFrames::kMaxWidth, std::max(1, static_cast<int>(std::lround(height)))};
}

void makeGrey(IIO_Picture& picture)
{
    constexpr Samples kGrey = 45000;
    for (int y = picture.dataWindow().y1; y < picture.dataWindow().y2; ++y) {
        const auto row = picture.row<Samples>(y);
        for (std::size_t i = 0; i < row.size(); i += 4)
            row[i] = row[i + 1] = row[i + 2] = kGrey;
    }
}

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

UT_Result<Bytes> lit(const ShownFrame& frame)
{
    auto drawing = NM_drawingPicture(*frame.drawing, frame.window, IIO_SampleType::UINT16);
    if (!drawing)
        return drawing.error();
    // Colours that a person takes for normals belong to no drawing.
    if (frame.kind == RenderedKind::COLOURS)
        makeGrey(*drawing);
    UT_Result<NM_Surface> surface = NM_Surface::create({frame.window.width(), frame.window.height()});
    if (!surface)
        return surface.error();
    if (const auto set = surface->setDrawing(*drawing); !set)
        return set.error();
    if (const auto set = surface->setNormals(*frame.picture, frame.window); !set)
        return set.error();
    Bytes bytes(static_cast<std::size_t>(frame.window.area()) * 4);
    NM_light(*surface, NM_LightingSettings{}, NM_ScreenPixels::RGBA, bytes);
    return bytes;
}

} // namespace

LitFrames::LitFrames(const ShownModule& module, RenderedKind shown, const RD_RenderParameters& final)
    : _module(module), _shown(shown), _parameters(final)
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
    return isLit ? lit(*made) : asItIs(*made, _shown);
}
