// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Adds up the rectangles of objects and applies the measured law.
#include "jobs/shown/ShownMemory.h"

#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "jobs/shown/DrawingExtent.h"
#include "jobs/shown/FrameMargin.h"
#include "jobs/shown/ObjectRims.h"
#include "jobs/shown/SurfaceLines.h"
#include "jobs/shown/VisibleDrawing.h"

#include <algorithm>
#include <cmath>
#include <map>

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

double pixelBytes(const RD_RenderParameters& used)
{
    return static_cast<double>(CEL_bytesPerPixel(used.celFormat()));
}

double shareHeldBy(const MO_Module& node, int frame, const std::pair<int, int>& resolution)
{
    double composed = 0.0;
    std::map<int, double> painted; // by the object's number
    for (unsigned i = 0; i < node.nInPorts(); ++i) {
        const MO_Port& input = *node.inPort(i);
        const bool isComposed = elementsBehind(input).size() > 1;
        (isComposed ? composed : painted[objectNumberBehind(input, frame)]) += shareAt(input, frame, resolution);
    }
    const auto largest = std::ranges::max_element(painted, {}, [](const auto& object) { return object.second; });
    return composed + (largest == painted.end() ? 0.0 : largest->second);
}

std::size_t stepThrough(std::span<const int> frames)
{
    return std::max<std::size_t>(1, frames.size() / kMostFrames);
}

} // namespace

double shownFrameBytes(const ShownModule& shown, std::span<const int> frames, const RD_RenderParameters& parameters,
                       const ShownParts& wanted)
{
    RD_RenderParameters used = shown.usedFor(parameters, wanted);
    bool hasRims = false;
    bool hasLines = false;
    for (std::size_t i = 0; i < frames.size(); i += stepThrough(frames)) {
        const RD_Margins margins = marginsFor(shown.nodes(), frames[i], parameters);
        used.margins.left = std::max(used.margins.left, margins.left);
        used.margins.top = std::max(used.margins.top, margins.top);
        used.margins.right = std::max(used.margins.right, margins.right);
        used.margins.bottom = std::max(used.margins.bottom, margins.bottom);
        hasRims = hasRims || ObjectRims(shown.nodes(), frames[i]).any();
        hasLines = hasLines || !surfaceLinesOf(shown.nodes(), frames[i]).empty();
    }
    // The first picture and the drawing are kept while rims are rendered, and while the heights of strokes are found,
    // which takes up to seven planes of floats.
    const Math::Size2di size = RD_RenderJob(used).size();
    const double perPixel =
        (hasRims || hasLines ? 2.0 * pixelBytes(used) : 0.0) + (hasLines ? 7.0 * sizeof(float) : 0.0);
    const double kept = perPixel * size.width * size.height;
    return shownFrameBytes(used, wanted, heldShare(shown, frames)) + kept;
}

double shownFrameBytes(const RD_RenderParameters& used, const ShownParts& wanted, double held)
{
    const double pixel = pixelBytes(used);
    const double rendering = pixel * (2.0 * held + 2.0);
    // Pictures for files have up to five floats per pixel; lighting needs a surface and a picture of its own.
    const double writing =
        pixel * (1.0 + (wanted.drawing ? 1.0 : 0.0) + (wanted.channels ? 1.0 : 0.0)) + (wanted.drawing ? 60.0 : 20.0);
    const Math::Size2di size = RD_RenderJob(used).size();
    return static_cast<double>(size.width) * size.height * (std::max(rendering, writing) + 4.0);
}

UT_Error tooLarge(const QString& what, const std::pair<int, int>& resolution, double needed, double budget)
{
    // As --memory takes it.
    const auto gigabytes = [](double bytes) {
        return QString::number(bytes / (1024.0 * 1024.0 * 1024.0), 'f', 2) + QStringLiteral("G");
    };
    const auto [width, height] = sizeThatFits(resolution, needed, budget);
    return {QStringLiteral("%1 of %2 x %3 pixels needs about %4 of memory and %5 are allowed; %6 x %7 pixels fit")
                .arg(what)
                .arg(resolution.first)
                .arg(resolution.second)
                .arg(gigabytes(needed), gigabytes(budget))
                .arg(width)
                .arg(height),
            UT_ErrorKind::NO_MEMORY};
}

std::pair<int, int> sizeThatFits(const std::pair<int, int>& resolution, double needed, double budget)
{
    const double factor = std::sqrt(std::min(1.0, budget / needed));
    const auto side = [&](int length) { return std::max(1, static_cast<int>(length * factor)); };
    return {side(resolution.first), side(resolution.second)};
}

double heldShare(const ShownModule& shown, std::span<const int> frames)
{
    const MO_SceneCommon* const scene = shown.module().sceneCommon();
    const std::pair<int, int> resolution(kWidth, scene ? scene->heightInPixels(kWidth) : kWidth);
    double largest = 0.0;
    for (std::size_t i = 0; i < frames.size(); i += stepThrough(frames))
        for (const MO_Module* const node : shown.nodes())
            largest = std::max(largest, shareHeldBy(*node, frames[i], resolution));
    return largest;
}
