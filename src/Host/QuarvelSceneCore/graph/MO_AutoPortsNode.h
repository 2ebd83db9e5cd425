// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_AutoPortsNode: the interface of nodes that add and remove input ports as links are made and cut.
#pragma once

#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

class MO_Port;

/// Adds and removes input ports. Pointers to a removed port become invalid.
class QUARVELSCENECORE_EXPORT MO_AutoPortsNode
{
public:
    MO_AutoPortsNode() = default;
    MO_AutoPortsNode(const MO_AutoPortsNode&) = delete;
    MO_AutoPortsNode& operator=(const MO_AutoPortsNode&) = delete;
    virtual ~MO_AutoPortsNode();

    /// True for a port that is one of the node's inputs; false for the free port at the end, which waits for the next
    /// link, and for larger indices.
    virtual bool isValidAutoPort(unsigned index) const = 0;

    /// Inserts a free input port before the one at an index (at the end for larger indices).
    ///
    /// @return null when the node takes no more ports
    virtual MO_Port* insertInPort(unsigned index) = 0;

    /// Cuts the link of an input port and removes the port; the ports after it move up. A new free port is added at the
    /// end when there is none.
    ///
    /// @return false when there is no port at the index
    virtual bool removeInPort(unsigned index) = 0;
};
