// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_GroupBorderModule: where the ports of a group continue inside it. A group has two: the entry has one output port
// for each input port of the group, the exit one input port for each of its output ports. They belong to the group and
// cannot be removed; files do not mention them.
#pragma once

#include "QuarvelSceneCore/graph/MO_Module.h"

/// The inner side of a group's input or output ports.
class QUARVELSCENECORE_EXPORT MO_GroupBorderModule : public MO_Module
{
public:
    enum class Side
    {
        ENTRY, ///< has output ports: what comes into the group
        EXIT   ///< has input ports: what leaves the group
    };

    explicit MO_GroupBorderModule(Side side);
    ~MO_GroupBorderModule() override;

    Side side() const { return _side; }

    /// "GROUP_ENTRY" or "GROUP_EXIT".
    QString keyword() const override;
    QString baseDisplayName() const override;

private:
    friend class XUGroup;

    Side _side;
};
