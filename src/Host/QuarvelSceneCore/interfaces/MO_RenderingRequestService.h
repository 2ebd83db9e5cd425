// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_RenderingRequestService: makes rendering requests.
#pragma once

#include "QuarvelSceneCore/interfaces/MO_RenderingRequest.h"

/// Makes rendering requests.
class QUARVELSCENECORE_EXPORT MO_RenderingRequestService
{
public:
    /// A request of a module, to be inserted with RD_ScriptContext::insertRequest().
    ///
    /// @return null when the owner or the handler is null
    static UT_SharedPtr<MO_RenderingRequest>
    createRenderingRequest(MO_Module* owner, std::unique_ptr<MO_RenderingRequestHandler> handler);
};
