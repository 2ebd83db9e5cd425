// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_AutoInPortsModule: a module that takes any number of inputs. After its last linked input port there is always one
// free port for the next link: linking it adds another, and cutting the last links removes the surplus. Ports between
// linked ones stay, linked or not, because the order of the inputs matters.
#pragma once

#include "QuarvelSceneCore/graph/MO_AutoPortsNode.h"
#include "QuarvelSceneCore/graph/MO_Module.h"

/// A module with automatic input ports. It begins with none: the deriving class adds the first one when it is ready for
/// it (MO_Node::addInImagePort).
class QUARVELSCENECORE_EXPORT MO_AutoInPortsModule : public MO_Module, public MO_AutoPortsNode
{
public:
    MO_AutoInPortsModule();
    ~MO_AutoInPortsModule() override;

    /// kMaxPorts unless overridden.
    unsigned maxInPorts() const override;

    MO_AutoPortsNode* portManipulator() override;
    bool isValidAutoPort(unsigned index) const override;
    MO_Port* insertInPort(unsigned index) override;
    bool removeInPort(unsigned index) override;

protected:
    void inPortChanged() override;

private:
    void keepOneFreePortAtTheEnd();
};
