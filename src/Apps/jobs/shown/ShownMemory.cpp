// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A sum of rectangles, and the law that was measured.
#include "jobs/shown/ShownMemory.h"

#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "jobs/shown/DrawingExtent.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostFrames = 24;
constexpr int kWidth = 720;

double shareAt(const MO_Port& input, int frame, const std::pair<int, int>& resolution)
{
    const QRectF canvas(0.0, 0.0, resolution.first, resolution.second);
    QRectF extent;
    for (const MO_ElementModule* const element : elementsBehind(input))
        extent |= extentOf(*element, frame, resolution) & canvas;
    return extent.width() * extent.height() / (canvas.width() * canvas.height());
}

} // namespace

double shownFrameBytes(const RD_RenderParameters& parameters, const ShownParts& wanted, double covered)
{
    const double pixel =
        parameters.celFormat() == CEL_FORMAT_RGBA16 ? sizeof(CEL_PixelRGBA16) : sizeof(CEL_PixelRGBAFloat);
    const double rendering = pixel * (2.0 * covered + 2.0);
    // Pictures for files have up to five floats a pixel; light has a surface and a picture of its own.
    const double writing =
        pixel * (1.0 + (wanted.drawing ? 1.0 : 0.0) + (wanted.channels ? 1.0 : 0.0)) + (wanted.drawing ? 56.0 : 20.0);
    const Math::Size2di size = RD_RenderJob(parameters).size();
    return static_cast<double>(size.width) * size.height * (std::max(rendering, writing) + 4.0);
}

double coveredShare(const ShownModule& shown, std::span<const int> frames)
{
    const MO_SceneCommon* const scene = shown.module().sceneCommon();
    const double height = scene ? scene->frameHeight() : kWidth;
    const std::pair<int, int> resolution(kWidth, std::max(1, static_cast<int>(height)));
    const std::size_t step = std::max<std::size_t>(1, frames.size() / kMostFrames);
    double largest = 0.0;
    for (std::size_t i = 0; i < frames.size(); i += step) {
        double sum = 0.0;
        for (const MO_Module* const node : shown.nodes())
            for (unsigned port = 0; port < node->nInPorts(); ++port)
                sum += shareAt(*node->inPort(port), frames[i], resolution);
        largest = std::max(largest, sum);
    }
    return largest;
}
