// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Turns the pixels that an object owns, one by one, in double precision.
#include "jobs/shown/ObjectTilts.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "jobs/shown/PixelOwners.h"
#include "jobs/shown/SurfacePixel.h"
#include "jobs/shown/VisibleDrawing.h"

#include <cmath>
#include <numbers>

namespace {

template<typename Pixel>
void turn(const Rotation& rotation, Pixel& pixel)
{
    // Pixels that nothing covers have no surface.
    if (!(pixel.a > 0))
        return;
    const Math::Vector3d normal = NM_directionOf(pixel);
    // The sign of blue is that of the elevation here, not of z: all surfaces of a drawing face the viewer.
    const auto [x, y, z] = rotation.turned({normal.x, normal.y, std::abs(normal.z)});
    storeDirection({x, y, z}, pixel);
}

} // namespace

Rotation::Rotation(double right, double up)
{
    const double x = right * std::numbers::pi / 180.0;
    const double y = up * std::numbers::pi / 180.0;
    _sinX = std::sin(x);
    _cosX = std::cos(x);
    _sinY = std::sin(y);
    _cosY = std::cos(y);
}

std::array<double, 3> Rotation::turned(const std::array<double, 3>& normal) const
{
    const double x = _cosX * normal[0] + _sinX * normal[2];
    const double forward = _cosX * normal[2] - _sinX * normal[0];
    const double y = _cosY * normal[1] - _sinY * forward;
    const double z = _cosY * forward + _sinY * normal[1];
    if (z >= 0.0)
        return {x, y, z};
    const double length = std::hypot(x, y);
    return length > 0.0 ? std::array{x / length, y / length, 0.0} : std::array{1.0, 0.0, 0.0};
}

ObjectTilts::ObjectTilts(const std::vector<MO_Module*>& nodes, double frame)
{
    for (const MO_Module* const node : nodes)
        for (unsigned i = 0; i < node->nInPorts(); ++i) {
            const ObjectDefinition* const object = objectDefinitionBehind(*node->inPort(i));
            const double x = object ? object->tiltX()->value(frame) : 0.0;
            const double y = object ? object->tiltY()->value(frame) : 0.0;
            if (x != 0.0 || y != 0.0)
                _byInput.emplace(std::pair(node->instanceName(), static_cast<int>(i)), Rotation(x, y));
        }
}

void ObjectTilts::apply(CEL_PixmapArea& picture, const ShownInputs& inputs) const
{
    if (!any())
        return;
    std::vector<const Rotation*> rotations;
    for (const ShownInput& input : inputs) {
        const auto found = _byInput.find({input.node, input.port});
        rotations.push_back(found == _byInput.end() ? nullptr : &found->second);
    }
    CEL_withFormat(picture, [&](auto& pixels) {
        forOwnedPixels(pixels, inputs, [&](auto& pixel, std::size_t owner, int, int) {
            if (rotations[owner])
                turn(*rotations[owner], pixel);
        });
    });
}
