// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two layers a pixel, in their order.
#include "render/CoverageMerge.h"

#include "render/PixelTraits.h"

namespace {

template<typename Pixel>
Pixel mergePixel(Pixel out, const Pixel& in)
{
    using Traits = VolumeTraits<Pixel>;
    if (Traits::isFull(in.a)) {
        out.r = in.r;
        out.a = Traits::kFull;
    } else if (in.a > 0 && in.r > out.r) {
        out.r = Traits::mergeValue(out.r, in.a, in.r);
        out.a = Traits::mergeCoverage(out.a, in.a);
    }
    if (Traits::isFull(in.b)) {
        out.r = in.g;
        out.a = Traits::kFull;
    } else if (Traits::isSecondLayer(in.b)) {
        out.r = Traits::mergeValue(out.r, in.b, in.g);
        out.a = Traits::mergeCoverage(out.a, in.b);
    }
    return {out.r, 0, 0, out.a};
}

} // namespace

template<typename Pixel>
void mergeCoverage(CEL_PixmapOf<Pixel>& accumulator, const CEL_PixmapOf<Pixel>& input)
{
    accumulator.reallocToFitAndClipToCanvas(input, true);
    const Math::Box2di common = accumulator.allocatedRect().getIntersection(input.allocatedRect());
    if (common.isEmpty())
        return;
    const auto width = static_cast<std::size_t>(common.width());
    const auto outX = static_cast<std::size_t>(common.x1 - accumulator.allocatedRect().x1);
    const auto inX = static_cast<std::size_t>(common.x1 - input.allocatedRect().x1);
    for (int y = common.y1; y < common.y2; ++y) {
        const std::span<Pixel> out = accumulator.row(y).subspan(outX, width);
        const std::span<const Pixel> in = input.row(y).subspan(inX, width);
        for (std::size_t i = 0; i < width; ++i) {
            const bool isNothing = in[i].a == 0 && in[i].b == 0;
            out[i] = isNothing ? Pixel{out[i].r, 0, 0, out[i].a} : mergePixel(out[i], in[i]);
        }
    }
}

template void mergeCoverage<CEL_PixelRGBA16>(CEL_PixmapAreaRGBA16&, const CEL_PixmapAreaRGBA16&);
template void mergeCoverage<CEL_PixelRGBAFloat>(CEL_PixmapAreaRGBAFloat&, const CEL_PixmapAreaRGBAFloat&);
