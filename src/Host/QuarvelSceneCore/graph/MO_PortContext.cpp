// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The context of a port: what its scene's camera does.
#include "QuarvelSceneCore/graph/MO_PortContext.h"

#include "QuarvelSceneCore/graph/MO_Module.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"

MO_PortContext::MO_PortContext(const MO_FrameKey& frameKey, const std::pair<int, int>& resolution,
                               const MO_Module* module, int port)
    : MO_BaseContext(frameKey, resolution), _module(module), _port(port)
{}

double MO_PortContext::truckFactor() const
{
    const MO_SceneCommon* const scene = _module ? _module->sceneCommon() : nullptr;
    return scene ? scene->truckFactor(frameKey().frame) : 1.0;
}
