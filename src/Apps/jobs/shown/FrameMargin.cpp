// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Treats each object as a rectangle and measures how far it reaches outside each side of the frame.
#include "jobs/shown/FrameMargin.h"

#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "jobs/shown/DrawingExtent.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/shown/VisibleDrawing.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

// The clip reads pixels up to two away; a smoothed normal is computed from normals one pixel away, and each of these
// from heights one pixel farther.
constexpr int kNeighbours = 4;
// An object with a pixel in the outermost row or column needs heights outside it.
constexpr double kTouching = 1.0;
// Margins are multiples of this, so that an object that moves needs few different ones.
constexpr int kStep = 32;

// The rectangles of a node's objects, by object number.
std::map<int, QRectF> extentsOf(const MO_Module& node, double frame, const std::pair<int, int>& resolution)
{
    std::map<int, QRectF> extents;
    for (unsigned i = 0; i < node.nInPorts(); ++i) {
        const MO_Port& input = *node.inPort(i);
        const int number = objectNumberBehind(input, frame);
        if (number < 1)
            continue;
        for (const MO_ElementModule* const element : elementsBehind(input))
            extents[number] |= extentOf(*element, frame, resolution);
    }
    return extents;
}

// In pixels.
double blurReach(const NormalMapNode& node, double bevel, double frame, int width)
{
    const double sigma = bevel * node.bevelFactor(frame) / MO_SceneCommon::kFrameWidth * width / 4.0;
    return std::isfinite(sigma) && sigma > 0.0 ? std::ceil(4.0 * sigma) : 0.0;
}

// @param beyond how far the object reaches outside the side; 0 or less if it does not
// @param length the frame's length at right angles to the side
int marginOn(double beyond, double reach, int length)
{
    if (beyond <= 0.0)
        return 0;
    const double needed = beyond <= std::max(reach, length / 2.0) ? beyond : reach;
    const int pixels =
        static_cast<int>(std::min(std::ceil(needed), static_cast<double>(RD_RenderParameters::kMaxResolution))) +
        kNeighbours;
    return (pixels + kStep - 1) / kStep * kStep;
}

void grow(RD_Margins& margins, const RD_Margins& other)
{
    margins.left = std::max(margins.left, other.left);
    margins.top = std::max(margins.top, other.top);
    margins.right = std::max(margins.right, other.right);
    margins.bottom = std::max(margins.bottom, other.bottom);
}

// Clamps margins so that the picture is not larger than the renderer accepts.
void hold(int length, int& before, int& after)
{
    const int most = (RD_RenderParameters::kMaxResolution - length) / 2;
    before = std::clamp(before, 0, std::max(0, most));
    after = std::clamp(after, 0, std::max(0, most));
}

} // namespace

RD_Margins marginsFor(const std::vector<MO_Module*>& nodes, double frame, const RD_RenderParameters& parameters)
{
    RD_Margins margins;
    const auto [width, height] = parameters.resolution;
    for (MO_Module* const module : nodes) {
        const NormalMapNode node(*module);
        const auto extents = extentsOf(*module, frame, parameters.resolution);
        for (const NormalMapObject& object : node.objects()) {
            const auto extent = extents.find(object.number);
            if (extent == extents.end() || extent->second.isEmpty())
                continue;
            const double reach = blurReach(node, object.bevel, frame, width);
            // An unclipped blur extends the object by its reach.
            const double tail = std::max(kTouching, node.clips() ? 0.0 : reach);
            const QRectF rect = extent->second.adjusted(-tail, -tail, tail, tail);
            grow(margins,
                 {marginOn(-rect.left(), reach, width), marginOn(-rect.top(), reach, height),
                  marginOn(rect.right() - width, reach, width), marginOn(rect.bottom() - height, reach, height)});
        }
    }
    hold(width, margins.left, margins.right);
    hold(height, margins.top, margins.bottom);
    return margins;
}
