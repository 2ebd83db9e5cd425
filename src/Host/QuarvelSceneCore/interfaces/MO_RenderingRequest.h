// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_RenderingRequest: a module's request concerning the drawings upstream of it, for one frame.
#pragma once

#include "QuarvelBaseCore/UT_SharedPtr.h"
#include "QuarvelSceneCore/interfaces/MO_RenderingRequestHandler.h"

#include <memory>

/// A request: who made it and what handles it. Made by MO_RenderingRequestService.
class QUARVELSCENECORE_EXPORT MO_RenderingRequest : public UT_ShareBaseSafe
{
public:
    MO_RenderingRequest(MO_Module* owner, std::unique_ptr<MO_RenderingRequestHandler> handler);
    ~MO_RenderingRequest() override;

    /// The module that made the request; it must outlive the request.
    MO_Module* owner() const { return _owner; }
    MO_RenderingRequestHandler& handler() const { return *_handler; }

private:
    MO_Module* _owner;
    std::unique_ptr<MO_RenderingRequestHandler> _handler;
};
