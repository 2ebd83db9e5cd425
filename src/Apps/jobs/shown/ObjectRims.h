// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectRims: a fine rim on a large form, the edge of a coin or of a button. The node gives an object one bevel; a rim
// is a second one. The node renders the objects' shapes a second time with the rims as their only form, and the two
// surfaces are added: their heights, and so their slopes.
//
//     node, with the objects' own values ──► picture ──┐
//     node, with the rims' values ──────────► rims ────┴──► the sum, object by object
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "jobs/shown/InputCoverage.h"

#include <map>
#include <vector>

class MO_Module;

/// The rims of the objects of nodes at a frame.
class ObjectRims
{
public:
    ObjectRims() = default;
    ObjectRims(const std::vector<MO_Module*>& nodes, double frame);

    /// Whether any object has a rim.
    bool any() const { return !_tables.empty(); }

    /// The object tables for the second rendering, by the names of the nodes: the rims, and all other objects flat.
    /// Empty if no object has a rim.
    const std::map<QString, QString>& tables() const { return _tables; }

    /// Adds the heights of the rims of a node's objects to those of their highest places.
    ///
    /// @param rises by object number (NormalMapNode::rises)
    void addRises(const QString& node, std::map<int, double>& rises) const;

    /// Adds the second rendering's surface to the picture, in the pixels of objects with rims (PixelOwners.h). The
    /// elevation becomes the share of the sum's height. Alpha stays as it is.
    ///
    /// @param rims            the second rendering, with the elevation in blue where it holds normals
    /// @param inputs          of the same frame, in the same coordinates
    /// @param elevationInBlue whether the picture's blue is the elevation for all nodes; otherwise each node's
    /// attribute tells
    void addTo(CEL_PixmapArea& picture, const CEL_PixmapArea& rims, const ShownInputs& inputs,
               bool elevationInBlue) const;

private:
    struct Rim
    {
        double rise;  // of the rim, in units of which the picture is 720 wide
        double share; // of the rim in the height of both together
    };
    struct Node
    {
        bool makesNormals;
        bool elevationInBlue;    // by its own attribute
        std::map<int, Rim> rims; // by object number
    };

    std::map<QString, QString> _tables;
    std::map<QString, Node> _nodes;
};
