// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One pass finds the range of each object's heights, a second one changes the pixels. Double precision.
#include "jobs/shown/SurfaceLines.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/shown/PixelOwners.h"
#include "jobs/shown/SurfacePixel.h"
#include "jobs/shown/VisibleDrawing.h"

#include <tbb/enumerable_thread_specific.h>

#include <algorithm>
#include <cmath>

namespace {

// How far heights lie outside an object's own, from 0 to its rise, in pixels.
struct Range
{
    double below = 0.0;
    double above = 0.0;

    void add(const Range& other)
    {
        below = std::max(below, other.below);
        above = std::max(above, other.above);
    }
};

// An input's object, and the lines above it.
struct BentInput
{
    std::vector<const SurfaceLine*> lines;
    std::size_t object = 0;
    SurfaceElevation elevation = SurfaceElevation::NOWHERE;
    bool makesNormals = true;
};

struct BentObject
{
    double* rise = nullptr; // in the caller's table; null where the node has no such object
    double height = 0.0;    // of the rise before, 0 or more
    double sign = 1.0;      // -1 if the object sinks: elevations count downwards
    Range range = {};
};

// A height, and how fast it rises.
struct Bend
{
    double height = 0.0;
    double right = 0.0;
    double down = 0.0;
};

Bend bendAt(const std::vector<const SurfaceLine*>& lines, int x, int y)
{
    Bend bend;
    for (const SurfaceLine* const line : lines) {
        const StrokeRelief& strokes = line->strokes;
        if (!strokes.rect().contains(x, y))
            continue;
        const auto at = [&](int nearX, int nearY) { return static_cast<double>(strokes.nearHeight(nearX, nearY)); };
        bend.height += line->relief * at(x, y);
        bend.right += line->relief * (at(x + 1, y) - at(x - 1, y)) / 2.0;
        bend.down += line->relief * (at(x, y + 1) - at(x, y - 1)) / 2.0;
    }
    return bend;
}

Math::Vector3d directionOf(const Bend& bend)
{
    Math::Vector3d direction(-bend.right, -bend.down, 1.0);
    direction.normalize();
    return direction;
}

// The inputs of a picture with their objects.
class BentInputs
{
public:
    BentInputs(const std::vector<SurfaceLine>& lines, const std::vector<MO_Module*>& nodes, const ShownInputs& inputs,
               bool elevationInBlue, SurfaceRises& rises)
    {
        std::map<std::pair<QString, int>, std::size_t> known;
        for (const ShownInput& input : inputs) {
            BentInput bent;
            for (const SurfaceLine& line : lines)
                if (line.node == input.node && line.port > input.port)
                    bent.lines.push_back(&line);
            const auto [found, isNew] = known.emplace(std::pair(input.node, input.number), _objects.size());
            if (isNew)
                _objects.push_back(objectFor(input, rises));
            bent.object = found->second;
            const auto node = std::ranges::find(nodes, input.node, &MO_Module::instanceName);
            if (node != nodes.end()) {
                const NormalMapNode made(**node);
                bent.makesNormals = made.generatesNormals();
                bent.elevation = elevationPlace(bent.makesNormals, elevationInBlue || made.hasElevationInBlue());
            }
            _inputs.push_back(std::move(bent));
        }
    }

    // Widens the objects' ranges to all heights of the picture.
    template<typename Pixmap>
    void measure(Pixmap& pixels, const ShownInputs& inputs)
    {
        using Ranges = std::vector<Range>;
        tbb::enumerable_thread_specific<Ranges> found(Ranges(_objects.size()));
        forOwnedPixels(pixels, inputs, [&](const auto& pixel, std::size_t owner, int x, int y) {
            const BentInput& input = _inputs[owner];
            const BentObject& object = _objects[input.object];
            if (input.elevation == SurfaceElevation::NOWHERE || input.lines.empty() || !object.rise || !(pixel.a > 0))
                return;
            const double bent = object.sign * bendAt(input.lines, x, y).height;
            const double height = elevationIn(pixel, input.elevation) * object.height + bent;
            if (bent != 0.0)
                found.local()[input.object].add({-height, height - object.height});
        });
        for (const Ranges& some : found)
            for (std::size_t i = 0; i < some.size(); ++i)
                _objects[i].range.add(some[i]);
        for (const BentObject& object : _objects)
            if (object.rise)
                *object.rise = object.sign * (object.height + object.range.below + object.range.above);
    }

    template<typename Pixel>
    void bend(std::size_t owner, int x, int y, Pixel& pixel) const
    {
        const BentInput& input = _inputs[owner];
        const BentObject& object = _objects[input.object];
        if (!(pixel.a > 0))
            return;
        const Bend bend = bendAt(input.lines, x, y);
        if (input.makesNormals)
            addSurface(directionOf(bend), pixel);
        const double whole = object.height + object.range.below + object.range.above;
        const bool isChanged = bend.height != 0.0 || whole != object.height;
        if (!object.rise || !isChanged || !(whole > 0.0))
            return;
        const double height = elevationIn(pixel, input.elevation) * object.height + object.sign * bend.height;
        storeElevation((height + object.range.below) / whole, input.elevation, pixel);
    }

private:
    static BentObject objectFor(const ShownInput& input, SurfaceRises& rises)
    {
        const auto node = rises.find(input.node);
        if (node == rises.end())
            return {};
        const auto rise = node->second.find(input.number);
        if (rise == node->second.end())
            return {};
        return {&rise->second, std::abs(rise->second), rise->second < 0.0 ? -1.0 : 1.0};
    }

    std::vector<BentInput> _inputs;
    std::vector<BentObject> _objects;
};

} // namespace

bool bendsTheSurface(const ObjectDefinition& definition, double frame)
{
    return definition.relief()->value(frame) != 0.0 && !definition.objectEnabled()->value(frame);
}

std::vector<SurfaceLine> surfaceLinesOf(const std::vector<MO_Module*>& nodes, double frame)
{
    std::vector<SurfaceLine> lines;
    for (const MO_Module* const node : nodes)
        for (unsigned i = 0; i < node->nInPorts(); ++i)
            if (const ObjectDefinition* const definition = objectDefinitionBehind(*node->inPort(i));
                definition && bendsTheSurface(*definition, frame))
                lines.push_back({node->instanceName(), static_cast<int>(i), definition->relief()->value(frame)});
    return lines;
}

void showOnly(MO_Scene& scene, const SurfaceLine& line)
{
    ObjectDefinition* shown = nullptr;
    scene.root().forEachModule([&](MO_Module& module) {
        if (auto* const definition = dynamic_cast<ObjectDefinition*>(&module))
            definition->objectEnabled()->setLocalValue(false);
        if (module.instanceName() == line.node && NormalMapNode::is(module))
            shown = objectDefinitionBehind(*module.inPort(static_cast<unsigned>(line.port)));
    });
    if (shown)
        shown->objectEnabled()->setLocalValue(true);
}

void addSurfaceLines(CEL_PixmapArea& picture, const std::vector<SurfaceLine>& lines,
                     const std::vector<MO_Module*>& nodes, const ShownInputs& inputs, bool elevationInBlue,
                     SurfaceRises& rises)
{
    BentInputs bent(lines, nodes, inputs, elevationInBlue, rises);
    CEL_withFormat(picture, [&](auto& pixels) {
        bent.measure(pixels, inputs);
        forOwnedPixels(pixels, inputs,
                       [&](auto& pixel, std::size_t owner, int x, int y) { bent.bend(owner, x, y, pixel); });
    });
}
