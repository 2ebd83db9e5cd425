// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectTilts: turns the normals of objects that do not face the viewer, an arm that comes forward or a head at an
// angle. The node makes every object face the viewer; this turns the vectors of its picture afterwards, object by
// object, around the picture's vertical axis first and then around its horizontal one.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "jobs/shown/InputCoverage.h"

#include <array>
#include <map>

class MO_Module;

/// A rotation of directions in picture coordinates: x right, y down, z towards the viewer.
class Rotation
{
public:
    /// Turns what faces the viewer by degrees to the right, then by degrees upwards. (0, 0) changes nothing.
    Rotation(double right, double up);

    /// The turned vector. One that turns away from the viewer is moved to the horizon, z = 0, since a normal map has no
    /// place for it.
    ///
    /// @param normal of unit length
    std::array<double, 3> turned(const std::array<double, 3>& normal) const;

private:
    double _sinX;
    double _cosX;
    double _sinY;
    double _cosY;
};

/// The tilts of the objects of nodes at a frame.
class ObjectTilts
{
public:
    ObjectTilts() = default;
    ObjectTilts(const std::vector<MO_Module*>& nodes, double frame);

    /// Whether any object is tilted.
    bool any() const { return !_byInput.empty(); }

    /// Turns the normals of the pixels that tilted inputs own (PixelOwners.h). Blue and alpha stay as they are.
    ///
    /// @param inputs of the same frame, in the same coordinates
    void apply(CEL_PixmapArea& picture, const ShownInputs& inputs) const;

private:
    std::map<std::pair<QString, int>, Rotation> _byInput; // by node and port
};
