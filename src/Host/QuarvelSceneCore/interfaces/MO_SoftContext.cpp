// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The rendering of one module's picture, and the helpers around it.
#include "QuarvelSceneCore/interfaces/MO_SoftContext.h"

#include "QuarvelCelCore/CEL_PixmapFactory.h"
#include "QuarvelSceneCore/interfaces/MO_SoftRenderServices.h"

namespace {

CA_CelRef celAt(const std::map<int, CA_CelRef>& cels, int port)
{
    const auto found = cels.find(port);
    return found == cels.end() ? nullptr : found->second;
}

} // namespace

MO_SoftContext::MO_SoftContext(const RD_RenderJob& job, const MO_FrameKey& frameKey, const MO_Module* module,
                               const Math::Box2di& outputRect)
    : _job(job), _frameKey(frameKey), _module(module), _outputRect(outputRect)
{}

MO_SoftContext::~MO_SoftContext() = default;

MO_PortContext MO_SoftContext::portContext(int port) const
{
    return MO_PortContext(_frameKey, _job.parameters().resolution, _module, port);
}

CA_CelRef MO_SoftContext::inputCel(int port) const
{
    return celAt(_inputs, port);
}

void MO_SoftContext::setInputCel(int port, const CA_CelRef& cel)
{
    _inputs[port] = cel;
}

CA_CelRef MO_SoftContext::outputCel(int port) const
{
    return celAt(_outputs, port);
}

void MO_SoftContext::setOutputCel(int port, const CA_CelRef& cel) const
{
    _outputs[port] = cel;
}

CA_CelRef MO_SoftRenderServices::createBlankCel(const MO_SoftContext& context)
{
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(CEL_PixmapFactory::create2d(context.mainCelFormat2d(), context.size(), context.canvas()));
    return cel;
}

void MO_SoftRenderServices::setBlankCel(const MO_SoftContext& context, int port)
{
    context.setOutputCel(port, createBlankCel(context));
}
