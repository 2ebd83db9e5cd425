// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node's part in rendering a frame: how much it needs of its input, its request to the drawings upstream, and its
// render handler with its parameters.
#include "QuarvelSceneCore/AT_BoolAttr.h"
#include "QuarvelSceneCore/AT_DoubleAttr.h"
#include "QuarvelSceneCore/AT_StringAttr.h"
#include "QuarvelSceneCore/MO_PortContext.h"
#include "QuarvelSceneCore/MO_RenderingRequestService.h"
#include "QuarvelSceneCore/RD_ScriptContext.h"
#include "node/Vallorin.h"
#include "node/VallorinRequestHandler.h"
#include "parameters/NormalQuality.h"
#include "parameters/VallorinImpl.h"
#include "render/VallorinRenderHandler.h"
#include "render/VolumeModel.h"

#include <cmath>
#include <limits>

namespace {

/// A growth in whole pixels: truncated, and clamped to 0 .. four diagonals of the picture. A longer bevel would look
/// the same, but take memory without limit.
int growthInPixels(double growth, const std::pair<int, int>& resolution)
{
    const double diagonals = 4.0 * std::hypot(resolution.first, resolution.second);
    const double limit = std::min<double>(diagonals, std::numeric_limits<int>::max());
    return growth > 0.0 ? static_cast<int>(std::min(growth, limit)) : 0;
}

} // namespace

Math::Box2di Vallorin::computeInputRect(const MO_PortContext& context, int, const Math::Box2di& rect)
{
    const double bevel = _impl->largestBevel.of(_impl->objectList->localValue());
    const double blurScale = _impl->blurScale->value(context.frameKey().frame);
    const double growth = context.resolution().first * blurScale * bevel / kUnitsAcross + 0.5;
    return rect.getEnlarged(growthInPixels(growth, context.resolution()));
}

void Vallorin::insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port)
{
    if (!enabled())
        return;
    MO_CompositeModuleBase::insertRenderingRequestForSrcPort(context, port);
    context.insertRequest(MO_RenderingRequestService::createRenderingRequest(this, createRequestHandler()));
}

std::unique_ptr<MO_RenderingRequestHandler> Vallorin::createRequestHandler()
{
    return std::make_unique<VallorinRequestHandler>(_impl->colours.of(colorInformation()->localValue()));
}

UT_SharedPtr<MO_SoftRenderInterface>
Vallorin::createSoftRenderInterface(const RD_ScriptContext& context,
                                    const std::vector<node_render::PortRenderInfo>& ports)
{
    const double frame = context.globalFrameKey().frame;
    const bool isFloat = context.renderJob().parameters().imageProcessingFormat == 1;
    const MO_CompositeModuleBitmapHandler::CompositeModuleInterface module{this, isFloat, !isFloat, false, {1.0, -1.0}};

    const auto handler = UT_makeShared<VallorinRenderHandler>(frame, module, ports);
    handler->colorInformation = _impl->colorInformation->localValue();
    handler->objectInformation = _impl->objectList->localValue();
    handler->blurScale = _impl->blurScale->value(frame);
    handler->elevationScale = _impl->elevationScale->value(frame);
    handler->elevationSmoothness = _impl->elevationSmoothness->value(frame);
    handler->generateNormals = _impl->generateNormals->localValue();
    handler->useTruckFactor = _impl->useTruckFactor->localValue();
    handler->depthInBlue = _impl->depthInBlue->localValue();
    handler->clipBlurredWithGeometry = _impl->clipBlurredWithGeometry->localValue();
    handler->normalQuality = _impl->normalQuality->value(frame);
    return handler;
}
