// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Adds up the rectangles of objects and applies the measured law.
#include "jobs/shown/ShownMemory.h"

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
constexpr double kPlanesBytes = 2.0 * sizeof(float); // the mask and the blurred plane

double pixelBytes(const RD_RenderParameters& used)
{
    return used.celFormat() == CEL_FORMAT_RGBA16 ? sizeof(CEL_PixelRGBA16) : sizeof(CEL_PixelRGBAFloat);
}

double objectBytes(const HeldShares& held, double pixel)
{
    return pixel * (held.inputs + held.results) + kPlanesBytes * held.planes;
}

double frameArea(const RD_RenderParameters& parameters)
{
    return static_cast<double>(parameters.resolution.first) * parameters.resolution.second;
}

// The part of the frame and its margins that an input may touch, relative to the frame.
double shareAt(const MO_Port& input, int frame, const RD_RenderParameters& parameters)
{
    const auto& [width, height] = parameters.resolution;
    const RD_Margins& margins = parameters.margins;
    const QRectF canvas =
        QRectF(0.0, 0.0, width, height).adjusted(-margins.left, -margins.top, margins.right, margins.bottom);
    QRectF extent;
    for (const MO_ElementModule* const element : elementsBehind(input))
        extent |= extentOf(*element, frame, parameters.resolution) & canvas;
    return extent.width() * extent.height() / frameArea(parameters);
}

// What is held of one object beside the inputs that were composed before.
struct HeldObject
{
    double painted = 0.0;
    double all = 0.0;
    int inputs = 0;

    HeldShares shares() const { return {painted, all, inputs > 1 ? all : 0.0}; }
};

HeldShares heldBy(const MO_Module& node, int frame, const RD_RenderParameters& parameters)
{
    double composed = 0.0;
    std::map<int, HeldObject> objects; // by their numbers
    for (unsigned i = 0; i < node.nInPorts(); ++i) {
        const MO_Port& input = *node.inPort(i);
        const double share = shareAt(input, frame, parameters);
        HeldObject& object = objects[objectNumberBehind(input, frame)];
        (elementsBehind(input).size() > 1 ? composed : object.painted) += share;
        object.all += share;
        ++object.inputs;
    }
    HeldShares most;
    const double pixel = pixelBytes(parameters);
    for (const auto& [number, object] : objects)
        if (objectBytes(object.shares(), pixel) > objectBytes(most, pixel))
            most = object.shares();
    most.inputs += composed;
    return most;
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
    double most = 0.0;
    for (std::size_t i = 0; i < frames.size(); i += stepThrough(frames)) {
        used.margins = marginsFor(shown.nodes(), frames[i], parameters);
        const bool hasRims = ObjectRims(shown.nodes(), frames[i]).any();
        const bool hasLines = !surfaceLinesOf(shown.nodes(), frames[i]).empty();
        // The first picture and the drawing are kept while rims are rendered, and while the heights of strokes are
        // found, which takes up to seven planes of floats.
        const double kept =
            (hasRims || hasLines ? 2.0 * pixelBytes(used) : 0.0) + (hasLines ? 7.0 * sizeof(float) : 0.0);
        most =
            std::max(most, shownFrameBytes(used, wanted, heldShares(shown, frames[i], used)) + kept * frameArea(used));
    }
    return most;
}

double shownFrameBytes(const RD_RenderParameters& used, const ShownParts& wanted, const HeldShares& held)
{
    const double pixel = pixelBytes(used);
    const double rendering = pixel + objectBytes(held, pixel);
    // Pictures for files have up to five floats per pixel; lighting needs a surface and a picture of its own.
    const double writing =
        pixel * (1.0 + (wanted.drawing ? 1.0 : 0.0) + (wanted.channels ? 1.0 : 0.0)) + (wanted.drawing ? 60.0 : 20.0);
    return frameArea(used) * (std::max(rendering, writing) + 4.0);
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

HeldShares heldShares(const ShownModule& shown, int frame, const RD_RenderParameters& parameters)
{
    const double pixel = pixelBytes(parameters);
    HeldShares most;
    for (const MO_Module* const node : shown.nodes())
        if (const HeldShares held = heldBy(*node, frame, parameters);
            objectBytes(held, pixel) > objectBytes(most, pixel))
            most = held;
    return most;
}
