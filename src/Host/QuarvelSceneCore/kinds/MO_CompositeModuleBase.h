// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_CompositeModuleBase: the base of modules that make one picture out of several.
#pragma once

#include "QuarvelSceneCore/graph/MO_AutoInPortsModule.h"

/// A module with automatic input ports and one output. Deriving classes supply the object that makes the picture
/// (MO_Module::createSoftRenderInterface).
class QUARVELSCENECORE_EXPORT MO_CompositeModuleBase : public MO_AutoInPortsModule
{
public:
    MO_CompositeModuleBase();
    ~MO_CompositeModuleBase() override;
};
