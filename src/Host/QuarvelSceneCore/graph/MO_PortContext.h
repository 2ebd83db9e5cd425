// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_PortContext: a question about what comes through one input port of a module.
#pragma once

#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"
#include "QuarvelSceneCore/graph/MO_BaseContext.h"

class MO_Module;

/// The frame, the resolution and the input port of a question. A plain value; the module must outlive it.
class QUARVELSCENECORE_EXPORT MO_PortContext : public MO_BaseContext
{
public:
    /// @param module the module whose port is meant; may be null, the context then belongs to no scene
    /// @param port   the index of the input port
    MO_PortContext(const MO_FrameKey& frameKey, const std::pair<int, int>& resolution, const MO_Module* module,
                   int port);

    const MO_Module* module() const { return _module; }
    int port() const { return _port; }

    /// How much the scene's camera magnifies at the frame; 1 with no camera move, and for a module outside a scene.
    double truckFactor() const;

private:
    const MO_Module* _module;
    int _port;
};
