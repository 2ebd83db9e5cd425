// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A shape lies inside the rectangle of its control points. The code reads them one by one because
// QPainterPath::controlPointRect() caches its result in the path, and frames are rendered on several threads.
#include "jobs/shown/DrawingExtent.h"

#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"

#include <algorithm>
#include <unordered_set>

namespace {

QRectF extentOf(const QPainterPath& path)
{
    if (path.elementCount() == 0)
        return {};
    QPointF least = path.elementAt(0);
    QPointF most = least;
    for (int i = 1; i < path.elementCount(); ++i) {
        const QPointF point = path.elementAt(i);
        least = {std::min(least.x(), point.x()), std::min(least.y(), point.y())};
        most = {std::max(most.x(), point.x()), std::max(most.y(), point.y())};
    }
    return {least, most};
}

} // namespace

QRectF extentOf(const CELVEC_Kvd& drawing)
{
    QRectF extent;
    for (const GR_Art art : kGR_allArts)
        for (const CELVEC_Shape& shape : drawing.shapes(art)) {
            const QRectF own = extentOf(shape.path);
            extent |= shape.clip ? own & extentOf(*shape.clip) : own;
        }
    return extent;
}

QRectF extentOf(const MO_ElementModule& element, double frame, const std::pair<int, int>& resolution)
{
    const auto drawing = element.drawingAt(frame);
    if (!drawing)
        return {};
    const MO_SceneCommon* const scene = element.sceneCommon();
    const QTransform toPixel =
        scene ? scene->sceneToPixel(frame, resolution) : MO_SceneCommon::sceneToPixel(resolution, 1.0);
    return (element.drawingToScene(frame) * toPixel).mapRect(extentOf(*drawing));
}

std::vector<const MO_ElementModule*> elementsBehind(const MO_Port& input)
{
    std::vector<const MO_ElementModule*> elements;
    std::unordered_set<const MO_Module*> met;
    std::vector<const MO_Port*> open{&input};
    while (!open.empty()) {
        const MO_Port* const source = open.back()->realSrcPort();
        open.pop_back();
        if (!source || !source->module())
            continue;
        const MO_Module& module = *source->module();
        if (!met.insert(&module).second)
            continue;
        for (unsigned i = 0; i < module.nInPorts(); ++i)
            if (const MO_Port* const port = module.inPort(i))
                open.push_back(port);
        if (const auto* element = dynamic_cast<const MO_ElementModule*>(&module))
            elements.push_back(element);
    }
    return elements;
}
