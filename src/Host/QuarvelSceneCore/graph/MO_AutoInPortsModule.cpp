// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Automatic input ports: their number follows from the last linked one.
#include "QuarvelSceneCore/graph/MO_AutoInPortsModule.h"

#include <algorithm>

MO_AutoPortsNode::~MO_AutoPortsNode() = default;

MO_AutoInPortsModule::MO_AutoInPortsModule() = default;

MO_AutoInPortsModule::~MO_AutoInPortsModule() = default;

unsigned MO_AutoInPortsModule::maxInPorts() const
{
    return kMaxPorts;
}

MO_AutoPortsNode* MO_AutoInPortsModule::portManipulator()
{
    return this;
}

bool MO_AutoInPortsModule::isValidAutoPort(unsigned index) const
{
    if (index >= nInPorts())
        return false;
    return index + 1 < nInPorts() || inPort(index)->isConnected();
}

MO_Port* MO_AutoInPortsModule::insertInPort(unsigned index)
{
    return nInPorts() < maxInPorts() ? insertInImagePort(index) : nullptr;
}

bool MO_AutoInPortsModule::removeInPort(unsigned index)
{
    if (index >= nInPorts())
        return false;
    dropInPort(index);
    if (nInPorts() == 0)
        addInImagePort();
    keepOneFreePortAtTheEnd();
    return true;
}

void MO_AutoInPortsModule::inPortChanged()
{
    keepOneFreePortAtTheEnd();
}

void MO_AutoInPortsModule::keepOneFreePortAtTheEnd()
{
    unsigned used = nInPorts();
    while (used > 0 && !inPort(used - 1)->isConnected())
        --used;
    const unsigned wanted = std::min(used + 1, std::max(maxInPorts(), used));
    while (nInPorts() > wanted)
        dropInPort(nInPorts() - 1);
    while (nInPorts() < wanted)
        addInImagePort();
}
