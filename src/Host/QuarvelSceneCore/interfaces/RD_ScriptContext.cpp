// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writing the script of a frame.
#include "QuarvelSceneCore/interfaces/RD_ScriptContext.h"

#include "QuarvelSceneCore/graph/MO_Module.h"

RD_ScriptContext::RD_ScriptContext(const MO_FrameKey& globalFrameKey, const RD_RenderJob& renderJob)
    : _globalFrameKey(globalFrameKey), _renderJob(renderJob)
{}

RD_ScriptContext::~RD_ScriptContext() = default;

void RD_ScriptContext::scriptPort(MO_Module& module, int port)
{
    if (_path.size() >= kMaxDepth) {
        _tooDeep = true;
        return;
    }
    const PortKey key(&module, port);
    if (!_scripted.insert(key).second)
        return;
    _path.push_back(key);
    module.insertRenderingRequestForSrcPort(*this, port);
    _path.pop_back();
}

void RD_ScriptContext::scriptPorts(MO_Module& module)
{
    for (unsigned i = 0; i < module.nInPorts(); ++i)
        scriptPort(module, static_cast<int>(i));
}

void RD_ScriptContext::insertRequest(const Request& request)
{
    if (!request)
        return;
    const bool scripted = !_path.empty() && _path.back().first == request->owner();
    _requests.push_back(request);
    _requestsByPort[PortKey(request->owner(), scripted ? _path.back().second : kEveryPort)].push_back(request);
}

std::vector<RD_ScriptContext::Request> RD_ScriptContext::requestsFor(const MO_Module& module, int port) const
{
    std::vector<Request> found;
    for (const int key : {kEveryPort, port}) {
        const auto requests = _requestsByPort.find(PortKey(&module, key));
        if (requests != _requestsByPort.end())
            found.insert(found.end(), requests->second.begin(), requests->second.end());
    }
    return found;
}
