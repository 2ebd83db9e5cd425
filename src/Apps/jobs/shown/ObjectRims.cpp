// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The rims' values for the node, and the sum of the two pictures.
#include "jobs/shown/ObjectRims.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "form/ElevationUnit.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/shown/PixelOwners.h"
#include "jobs/shown/SurfacePixel.h"
#include "jobs/shown/VisibleDrawing.h"

#include <cmath>

namespace {

// A rim as the Object Definition keeps it.
struct RimValues
{
    double bevel;
    double height;
};

// By object number. If several definitions give one object a rim, the first input's counts.
std::map<int, RimValues> rimsOf(const MO_Module& node, double frame)
{
    std::map<int, RimValues> rims;
    for (unsigned i = 0; i < node.nInPorts(); ++i) {
        const ObjectDefinition* const object = objectDefinitionBehind(*node.inPort(i));
        if (!object || object->objectId(frame) < 1)
            continue;
        const RimValues rim{object->rimBevel()->value(frame), object->rimHeight()->value(frame)};
        if (rim.bevel > 0.0 && rim.height > 0.0)
            rims.emplace(object->objectId(frame), rim);
    }
    return rims;
}

// The row of the second rendering. A rim rises from the outline as its object does, so that an object that sinks has a
// rim that sinks.
NormalMapObject rowFor(const NormalMapObject& object, const std::map<int, RimValues>& rims)
{
    const auto found = rims.find(object.number);
    if (found == rims.end())
        return {object.number, 0.0, kNoElevation, 1.0};
    const RimValues& rim = found->second;
    return {object.number, rim.bevel, std::copysign(rim.bevel * rim.height / kRiseOfElevation, object.elevation), 1.0};
}

} // namespace

ObjectRims::ObjectRims(const std::vector<MO_Module*>& nodes, double frame)
{
    for (MO_Module* const module : nodes) {
        const std::map<int, RimValues> values = rimsOf(*module, frame);
        if (values.empty())
            continue;
        const NormalMapNode node(*module);
        Node& known = _nodes[module->instanceName()];
        known = {node.generatesNormals(), node.hasElevationInBlue(), {}};
        std::vector<NormalMapObject> rows;
        for (const NormalMapObject& object : node.objects()) {
            rows.push_back(rowFor(object, values));
            const double rise = rows.back().elevation * node.riseFactor(frame);
            const double both = std::abs(rows.back().elevation) + std::abs(object.elevation);
            if (values.contains(object.number))
                known.rims.insert_or_assign(object.number, Rim{rise, std::abs(rows.back().elevation) / both});
        }
        _tables[module->instanceName()] = objectTableText(rows);
    }
}

void ObjectRims::addRises(const QString& node, std::map<int, double>& rises) const
{
    const auto found = _nodes.find(node);
    if (found == _nodes.end())
        return;
    for (const auto& [number, rim] : found->second.rims)
        rises[number] += rim.rise;
}

void ObjectRims::addTo(CEL_PixmapArea& picture, const CEL_PixmapArea& rims, const ShownInputs& inputs,
                       bool elevationInBlue) const
{
    // What each input adds; null for objects without a rim.
    struct Addition
    {
        const Node* node = nullptr;
        double share = 0.0;
        SurfaceElevation elevation = SurfaceElevation::NOWHERE;
    };
    std::vector<Addition> additions(inputs.size());
    for (std::size_t i = 0; i < inputs.size(); ++i)
        if (const auto node = _nodes.find(inputs[i].node); node != _nodes.end())
            if (const auto rim = node->second.rims.find(inputs[i].number); rim != node->second.rims.end())
                additions[i] = {
                    &node->second, rim->second.share,
                    elevationPlace(node->second.makesNormals, elevationInBlue || node->second.elevationInBlue)};
    const auto add = [&](auto& pixels, const auto& rimPixels) {
        const Math::Box2di& known = rimPixels.allocatedRect();
        forOwnedPixels(pixels, inputs, [&](auto& pixel, std::size_t owner, int x, int y) {
            const Addition& what = additions[owner];
            if (!what.node || !(pixel.a > 0) || !known.contains(x, y))
                return;
            const auto& rim = rimPixels.row(y)[static_cast<std::size_t>(x - known.x1)];
            const double own = elevationIn(pixel, what.elevation);
            const double added = elevationIn(rim, elevationPlace(what.node->makesNormals, true));
            if (what.node->makesNormals)
                addSurface(NM_directionOf(rim), pixel);
            storeElevation(own + what.share * (added - own), what.elevation, pixel);
        });
    };
    CEL_withFormat(picture,
                   [&](auto& pixels) { CEL_withFormat(rims, [&](const auto& rimPixels) { add(pixels, rimPixels); }); });
}
