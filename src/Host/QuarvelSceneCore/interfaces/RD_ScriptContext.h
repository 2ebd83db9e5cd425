// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RD_ScriptContext: the script of one frame: the modules' requests for it. It is written before the frame is rendered,
// module by module from the rendered one upstream, and then only read.
//
// A request belongs to the input port that was being scripted when it was inserted. Every port is scripted once,
// whatever the number of paths that lead to it. Requests of modules upstream come before those downstream.
#pragma once

#include "QuarvelSceneCore/graph/MO_FrameKey.h"
#include "QuarvelSceneCore/interfaces/MO_RenderingRequest.h"
#include "QuarvelSceneCore/interfaces/RD_RenderJob.h"

#include <set>
#include <vector>

/// The requests for one frame. Written by one thread, then read by any number.
class QUARVELSCENECORE_EXPORT RD_ScriptContext
{
public:
    using Request = UT_SharedPtr<MO_RenderingRequest>;

    /// The longest chain of modules on one path; modules further upstream are not scripted.
    static constexpr int kMaxDepth = 2000;

    RD_ScriptContext(const MO_FrameKey& globalFrameKey, const RD_RenderJob& renderJob);
    ~RD_ScriptContext();
    RD_ScriptContext(const RD_ScriptContext&) = delete;
    RD_ScriptContext& operator=(const RD_ScriptContext&) = delete;

    /// The frame that is rendered.
    const MO_FrameKey& globalFrameKey() const { return _globalFrameKey; }
    const RD_RenderJob& renderJob() const { return _renderJob; }

    /// Asks a module to insert the requests for one of its input ports (MO_Module::insertRenderingRequestForSrcPort),
    /// unless that has happened already.
    void scriptPort(MO_Module& module, int port);
    /// The same for all input ports of a module, in order.
    void scriptPorts(MO_Module& module);
    /// True when a path was longer than kMaxDepth.
    bool isTooDeep() const { return _tooDeep; }

    /// Adds a request for the port of its owner that is being scripted, or for every port of its owner when none is.
    /// Null adds nothing.
    void insertRequest(const Request& request);

    /// All requests, in the order in which they were inserted.
    const std::vector<Request>& requests() const { return _requests; }
    /// The requests of a module for one of its input ports, in the order in which they were inserted.
    std::vector<Request> requestsFor(const MO_Module& module, int port) const;

private:
    using PortKey = std::pair<const MO_Module*, int>;
    static constexpr int kEveryPort = -1;

    MO_FrameKey _globalFrameKey;
    RD_RenderJob _renderJob;
    std::vector<PortKey> _path;
    std::set<PortKey> _scripted;
    std::vector<Request> _requests;
    std::map<PortKey, std::vector<Request>> _requestsByPort;
    bool _tooDeep = false;
};
