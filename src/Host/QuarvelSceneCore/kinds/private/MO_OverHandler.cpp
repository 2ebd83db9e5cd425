// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One picture over another, on associated channels: S + D (1 - alpha of S), in double precision, rounded once to what
// the channel holds.
#include "QuarvelSceneCore/kinds/private/MO_OverHandler.h"

#include <algorithm>

namespace {

template<typename Pixel>
Pixel over(const Pixel& top, const Pixel& bottom)
{
    using Traits = CEL_PixelTraits<Pixel>;
    constexpr double kFull = static_cast<double>(Traits::kFull);
    const double through = (kFull - static_cast<double>(top.a)) / kFull;
    const auto channel = [through](auto t, auto b) {
        return Traits::toChannel(static_cast<double>(t) + static_cast<double>(b) * through);
    };
    return {channel(top.r, bottom.r), channel(top.g, bottom.g), channel(top.b, bottom.b), channel(top.a, bottom.a)};
}

template<typename Pixel>
void paintOver(const CEL_PixmapArea& top, CEL_PixmapArea& target)
{
    const auto& source = static_cast<const CEL_PixmapOf<Pixel>&>(top);
    auto& pixels = static_cast<CEL_PixmapOf<Pixel>&>(target);
    pixels.reallocToFit(source);
    const Math::Box2di rect = source.allocatedRect();
    const auto skipped = static_cast<std::size_t>(rect.isEmpty() ? 0 : rect.x1 - pixels.allocatedRect().x1);
    for (int y = rect.y1; y < rect.y2 && !rect.isEmpty(); ++y) {
        const auto from = source.row(y);
        const auto to = pixels.row(y).subspan(skipped, from.size());
        for (std::size_t i = 0; i < from.size(); ++i)
            to[i] = over(from[i], to[i]);
    }
}

} // namespace

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
        // Drawings become pixels only now, one at a time.
        const auto source = std::exchange(cel, nullptr)->convertTo(format)->pixmap();
        if (!source)
            continue;
        if (format == CEL_FORMAT_RGBA16)
            paintOver<CEL_PixelRGBA16>(*source, *target);
        else
            paintOver<CEL_PixelRGBAFloat>(*source, *target);
    }
    setCel(context, delivered);
}
