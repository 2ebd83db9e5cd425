// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each band of rows keeps the owners of three rows: of the row itself and of those beside it, for pixels at outlines.
#include "jobs/shown/ObjectTilts.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelNormalMap/NM_Direction.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"
#include "jobs/shown/VisibleDrawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr int kNobody = -1;

// The index of the input that owns each pixel of a row.
using Owners = std::vector<int>;

void findOwners(const ShownInputs& inputs, const Math::Box2di& rect, int y, Owners& owners)
{
    std::ranges::fill(owners, kNobody);
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const CoverageBits& coverage = inputs[i].coverage;
        const Math::Box2di known = coverage.rect().getIntersection(rect);
        if (known.isEmpty() || y < known.y1 || y >= known.y2)
            continue;
        // A cut-out removes what lies below it.
        const int owner = inputs[i].number == 0 ? kNobody : static_cast<int>(i);
        for (int x = known.x1; x < known.x2; ++x)
            if (coverage.covers(x, y))
                owners[static_cast<std::size_t>(x - rect.x1)] = owner;
    }
}

// The owner of a pixel, or the highest one around it.
int ownerNear(const std::array<Owners, 3>& rows, std::size_t x)
{
    if (rows[1][x] != kNobody)
        return rows[1][x];
    int highest = kNobody;
    for (const Owners& row : rows)
        for (std::size_t near = x > 0 ? x - 1 : 0; near < std::min(x + 2, row.size()); ++near)
            highest = std::max(highest, row[near]);
    return highest;
}

template<typename Pixel>
void store(const std::array<double, 3>& normal, Pixel& pixel)
{
    using Traits = CEL_PixelTraits<Pixel>;
    using Channel = typename Traits::Channel;
    const auto channel = [](double component) {
        const double value = (component + 1.0) / 2.0 * static_cast<double>(Traits::kFull);
        if constexpr (std::is_integral_v<Channel>)
            return static_cast<Channel>(std::lround(value));
        else
            return static_cast<Channel>(value);
    };
    pixel.r = channel(normal[0]);
    pixel.g = channel(normal[1]);
}

template<typename Pixel>
void turn(const Rotation& rotation, Pixel& pixel)
{
    // Pixels that nothing covers have no surface.
    if (!(pixel.a > 0))
        return;
    const Math::Vector3d normal = NM_directionOf(pixel);
    // The sign of blue is that of the elevation here, not of z: all surfaces of a drawing face the viewer.
    store(rotation.turned({normal.x, normal.y, std::abs(normal.z)}), pixel);
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
        const Math::Box2di& rect = pixels.allocatedRect();
        if (rect.isEmpty())
            return;
        constexpr int kBand = 64;
        VL_parallelFor(tbb::blocked_range<int>(rect.y1, rect.y2, kBand), [&](const tbb::blocked_range<int>& band) {
            std::array<Owners, 3> rows;
            for (Owners& row : rows)
                row.resize(static_cast<std::size_t>(rect.width()));
            findOwners(inputs, rect, band.begin() - 1, rows[1]);
            findOwners(inputs, rect, band.begin(), rows[2]);
            for (int y = band.begin(); y < band.end(); ++y) {
                std::ranges::rotate(rows, rows.begin() + 1);
                findOwners(inputs, rect, y + 1, rows[2]);
                const auto row = pixels.row(y);
                for (std::size_t x = 0; x < row.size(); ++x)
                    if (const int owner = ownerNear(rows, x);
                        owner != kNobody && rotations[static_cast<std::size_t>(owner)])
                        turn(*rotations[static_cast<std::size_t>(owner)], row[x]);
            }
        });
    });
}
