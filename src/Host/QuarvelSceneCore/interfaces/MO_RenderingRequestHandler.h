// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_RenderingRequestHandler: what a module does with the drawings upstream of it before they are rendered: repaint
// them, replace them, attach messages.
//
// When the drawing of an element is computed, it passes through the requests between the element and the module that
// renders pixels from it, the nearest to the element first, all with the same context: the next handler finds what the
// earlier ones left there. A module that renders pixels and has a request of its own claims the drawing: requests
// further downstream do not see it. A drawing that is reached on several paths passes once for each.
#pragma once

#include "QuarvelBaseCore/UT_DynKey.h"
#include "QuarvelCelCore/CEL_Cel.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"
#include "QuarvelSceneCore/graph/MO_FrameKey.h"

#include <map>

class MO_Module;

/// Handles the drawings of one request. One handler may be called on several threads at once, each with a context of
/// its own.
class QUARVELSCENECORE_EXPORT MO_RenderingRequestHandler
{
public:
    class BaseContext;

    MO_RenderingRequestHandler() = default;
    MO_RenderingRequestHandler(const MO_RenderingRequestHandler&) = delete;
    MO_RenderingRequestHandler& operator=(const MO_RenderingRequestHandler&) = delete;
    virtual ~MO_RenderingRequestHandler();

    /// The drawing of an element upstream was computed. Calls processDrawing() unless overridden.
    virtual void processRequestBottomUpOnElementModuleComputed(BaseContext& context);

    /// Works on one drawing.
    virtual void processDrawing(BaseContext& context) = 0;

    /// Whether the request concerns drawings that come in through a port of a module between the request's owner and
    /// the drawing. It is asked for each such port, as ports left of the owner in the flow; one refusal hides the
    /// drawing from the request. True unless overridden.
    virtual bool filterRequestForLeftPorts(const MO_Module& module, int port) const;
};

/// One drawing on its way through the requests.
class QUARVELSCENECORE_EXPORT MO_RenderingRequestHandler::BaseContext
{
public:
    BaseContext(const CA_CelRef& drawing, const MO_FrameKey& frameKey) : _drawing(drawing), _frameKey(frameKey) {}

    /// The drawing; a handler may replace or remove it.
    CA_CelRef& drawing() { return _drawing; }
    const CA_CelRef& drawing() const { return _drawing; }
    /// The frame that is rendered.
    const MO_FrameKey& frameKey() const { return _frameKey; }

    /// Leaves an entry for later handlers, replacing the one under the same key.
    void addObject(const UT_DynKey& key, UT_SharedPtr<CEL_Message> object);
    /// The entry under a key; null when there is none.
    UT_SharedPtr<CEL_Message> findObject(const UT_DynKey& key) const;

private:
    CA_CelRef _drawing;
    MO_FrameKey _frameKey;
    std::map<const UT_DynKey*, UT_SharedPtr<CEL_Message>> _objects;
};
