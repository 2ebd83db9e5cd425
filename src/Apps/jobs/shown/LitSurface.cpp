// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Combines the drawing and the normals of a frame.
#include "jobs/shown/LitSurface.h"

#include "QuarvelNormalMap/NM_DrawingPicture.h"

namespace {

void makeGrey(IIO_Picture& picture)
{
    constexpr std::uint16_t kGrey = 45000;
    for (int y = picture.dataWindow().y1; y < picture.dataWindow().y2; ++y) {
        const auto row = picture.row<std::uint16_t>(y);
        for (std::size_t i = 0; i < row.size(); i += 4)
            row[i] = row[i + 1] = row[i + 2] = kGrey;
    }
}

} // namespace

UT_Result<IIO_Picture> litDrawing(const ShownFrame& frame)
{
    auto drawing = NM_drawingPicture(*frame.drawing, frame.window, IIO_SampleType::UINT16);
    if (drawing && frame.kind == RenderedKind::COLOURS)
        makeGrey(*drawing);
    return drawing;
}

UT_Result<NM_Surface> litSurface(const ShownFrame& frame)
{
    const auto drawing = litDrawing(frame);
    if (!drawing)
        return drawing.error();
    UT_Result<NM_Surface> surface = NM_Surface::create({frame.window.width(), frame.window.height()});
    if (!surface)
        return surface;
    if (const auto set = surface->setDrawing(*drawing); !set)
        return set.error();
    if (const auto set = surface->setNormals(*frame.picture, frame.window); !set)
        return set.error();
    return surface;
}
