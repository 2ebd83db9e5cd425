// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node's attributes by name, for the rest of the module.
#pragma once

#include "node/ObjectColours.h"
#include "node/Vallorin.h"
#include "parameters/LargestBevel.h"

class AT_BoolAttr;
class AT_DoubleAttr;

/// The ten attributes of a node. They belong to the node that they are registered with; this record only points to
/// them.
struct Vallorin::Impl
{
    /// Makes the attributes and registers them with the node, in the order in which editors show them.
    ///
    /// @param owner must outlive the record
    explicit Impl(MO_Node& owner);

    MO_Node* node;
    AT_StringAttr* colorInformation;      ///< the colour table as text
    AT_StringAttr* objectList;            ///< the object table as text
    AT_DoubleAttr* blurScale;             ///< multiplies every bevel; 0 to 10
    AT_DoubleAttr* elevationScale;        ///< multiplies every elevation; 0 to 10
    AT_DoubleAttr* elevationSmoothness;   ///< multiplies every smoothness; 0.1 to 128
    AT_BoolAttr* generateNormals;         ///< off: the output is the elevation itself
    AT_BoolAttr* useTruckFactor;          ///< whether bevels and elevations grow as the camera moves in
    AT_BoolAttr* depthInBlue;             ///< whether the blue channel holds the elevation
    AT_BoolAttr* clipBlurredWithGeometry; ///< whether bevels end where the drawing does
    NormalQuality* normalQuality;
    LargestBevel largestBevel; ///< of the object table
    LatestColours colours;     ///< of the colour table
};
