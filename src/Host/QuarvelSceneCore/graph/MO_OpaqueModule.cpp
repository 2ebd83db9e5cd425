// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The stand-in for modules of an unknown kind.
#include "QuarvelSceneCore/graph/MO_OpaqueModule.h"

MO_OpaqueModule::MO_OpaqueModule(const QString& keyword) : MO_Module(0), _keyword(keyword) {}

MO_OpaqueModule::~MO_OpaqueModule() = default;

bool MO_OpaqueModule::needInPort(unsigned index)
{
    while (index < kMaxPorts && nInPorts() <= index)
        addInImagePort();
    return index < nInPorts();
}

bool MO_OpaqueModule::needOutPort(unsigned index)
{
    while (index < kMaxPorts && nOutPorts() <= index)
        addOutImagePort();
    return index < nOutPorts();
}

QString MO_OpaqueModule::keyword() const
{
    return _keyword;
}

QString MO_OpaqueModule::baseDisplayName() const
{
    return _keyword;
}
