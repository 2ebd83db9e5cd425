// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The cels are converted to pixels one at a time, and each is painted over the earlier ones.
#include "QuarvelSceneCore/kinds/private/MO_OverHandler.h"

#include "QuarvelCelCore/CEL_Compositing.h"

#include <algorithm>

MO_OverHandler::MO_OverHandler(MO_Module* node, int celFormat, MO_CompositeType::CompositeOrder order,
                               const std::vector<node_render::PortRenderInfo>& ports)
    : MO_CompositeModuleBitmapHandler(
          {node, celFormat == CEL_FORMAT_RGBAFLOAT, celFormat == CEL_FORMAT_RGBA16, false, {1.0, -1.0}}, ports)
    , _order(order)
{}

MO_OverHandler::~MO_OverHandler() = default;

void MO_OverHandler::acceptInputCel(const MO_SoftContext&, CA_CelRef cel)
{
    _cels.push_back(std::move(cel));
}

void MO_OverHandler::finishRender(const MO_SoftContext& context, CA_CelRef delivered)
{
    if (_cels.size() <= 1) {
        setCel(context, _cels.empty() ? nullptr : _cels.front());
        return;
    }
    if (_order == MO_CompositeType::LAST_PORT_FIRST)
        std::reverse(_cels.begin(), _cels.end());
    const int format = context.mainCelFormat2d();
    const auto target = delivered->pixmap();
    for (CA_CelRef& cel : _cels) {
        // Drawings are rasterised only now, so that one at a time is in memory.
        const auto source = std::exchange(cel, nullptr)->convertTo(format)->pixmap();
        if (source)
            CEL_paintOver(*source, *target);
    }
    setCel(context, delivered);
}
