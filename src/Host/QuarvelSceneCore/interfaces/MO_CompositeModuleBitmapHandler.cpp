// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Passing the context's cels on in the formats that the module accepts.
#include "QuarvelSceneCore/interfaces/MO_CompositeModuleBitmapHandler.h"

#include "QuarvelSceneCore/interfaces/MO_SoftRenderServices.h"

MO_SoftRenderInterface::~MO_SoftRenderInterface() = default;

MO_CompositeModuleBitmapHandler::MO_CompositeModuleBitmapHandler(const CompositeModuleInterface& module,
                                                                 const std::vector<node_render::PortRenderInfo>& ports)
    : _module(module), _ports(ports)
{}

MO_CompositeModuleBitmapHandler::~MO_CompositeModuleBitmapHandler() = default;

void MO_CompositeModuleBitmapHandler::softRender(MO_SoftContext& context, int port)
{
    const CA_CelRef cel = asAccepted(context, context.inputCel(port));
    if (!cel)
        return;
    _delivered = true;
    acceptInputCel(context, cel);
}

void MO_CompositeModuleBitmapHandler::finish(MO_SoftContext& context)
{
    finishRender(context, _delivered ? MO_SoftRenderServices::createBlankCel(context) : nullptr);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): nodes that keep the cel override this.
void MO_CompositeModuleBitmapHandler::acceptInputCel(const MO_SoftContext&, CA_CelRef) {}

void MO_CompositeModuleBitmapHandler::setCel(const MO_SoftContext& context, const CA_CelRef& cel)
{
    context.setOutputCel(0, cel);
}

CA_CelRef MO_CompositeModuleBitmapHandler::asAccepted(const MO_SoftContext& context, const CA_CelRef& cel) const
{
    const auto pixmap = cel ? cel->pixmap() : nullptr;
    if (!pixmap)
        return cel;
    switch (pixmap->format()) {
    case CEL_FORMAT_RGBAFLOAT:
        return _module.acceptsFloatCels ? cel : cel->convertTo(context.mainCelFormat2d());
    case CEL_FORMAT_RGBA16:
        return _module.accepts16BitCels ? cel : cel->convertTo(context.mainCelFormat2d());
    case CEL_FORMAT_Z:
        return _module.acceptsDepthCels ? cel : nullptr;
    case CEL_FORMAT_NONE:
        break;
    }
    return cel;
}
