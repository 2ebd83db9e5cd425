// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rendering requests, their handlers and the entries that handlers leave for each other.
#include "QuarvelSceneCore/interfaces/MO_RenderingRequest.h"

#include "QuarvelSceneCore/interfaces/MO_RenderingRequestService.h"

MO_RenderingRequestHandler::~MO_RenderingRequestHandler() = default;

void MO_RenderingRequestHandler::processRequestBottomUpOnElementModuleComputed(BaseContext& context)
{
    processDrawing(context);
}

bool MO_RenderingRequestHandler::filterRequestForLeftPorts(const MO_Module&, int) const
{
    return true;
}

void MO_RenderingRequestHandler::BaseContext::addObject(const UT_DynKey& key, UT_SharedPtr<CEL_Message> object)
{
    _objects[&key] = std::move(object);
}

UT_SharedPtr<CEL_Message> MO_RenderingRequestHandler::BaseContext::findObject(const UT_DynKey& key) const
{
    const auto found = _objects.find(&key);
    return found == _objects.end() ? nullptr : found->second;
}

MO_RenderingRequest::MO_RenderingRequest(MO_Module* owner, std::unique_ptr<MO_RenderingRequestHandler> handler)
    : _owner(owner), _handler(std::move(handler))
{}

MO_RenderingRequest::~MO_RenderingRequest() = default;

UT_SharedPtr<MO_RenderingRequest>
MO_RenderingRequestService::createRenderingRequest(MO_Module* owner,
                                                   std::unique_ptr<MO_RenderingRequestHandler> handler)
{
    if (!owner || !handler)
        return nullptr;
    return UT_makeShared<MO_RenderingRequest>(owner, std::move(handler));
}
