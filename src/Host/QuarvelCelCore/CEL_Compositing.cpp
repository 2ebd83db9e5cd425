// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One loop over the rows that both pictures have.
#include "QuarvelCelCore/CEL_Compositing.h"

#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelCelCore/private/CEL_PixelOver.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

namespace {

template<auto kOperation, typename Pixel>
void work(const CEL_PixelStore<Pixel>& source, CEL_PixelStore<Pixel>& pixels)
{
    const Math::Box2di rect = source.allocatedRect().getIntersection(pixels.allocatedRect());
    if (rect.isEmpty())
        return;
    const auto from = static_cast<std::size_t>(rect.x1 - source.allocatedRect().x1);
    const auto to = static_cast<std::size_t>(rect.x1 - pixels.allocatedRect().x1);
    const auto width = static_cast<std::size_t>(rect.width());
    VL_parallelFor(tbb::blocked_range<int>(rect.y1, rect.y2, 16), [&](const tbb::blocked_range<int>& rows) {
        for (int y = rows.begin(); y < rows.end(); ++y) {
            const auto above = source.row(y).subspan(from, width);
            const auto below = pixels.row(y).subspan(to, width);
            for (std::size_t i = 0; i < width; ++i)
                // Where nothing is painted, the lower pixel stays unchanged.
                if (above[i] != Pixel{})
                    below[i] = kOperation(above[i], below[i]);
        }
    });
}

} // namespace

void CEL_paintOver(const CEL_PixmapArea& top, CEL_PixmapArea& target)
{
    assert(top.format() == target.format());
    target.reallocToFit(top);
    CEL_withFormat(target, [&](auto& pixels) {
        using Pixel = CEL_PixelOf<decltype(pixels)>;
        if (const auto* const source = CEL_asFormat<Pixel>(top))
            work<CEL_pixelOver<Pixel>, Pixel>(*source, pixels);
    });
}

void CEL_cutOut(const CEL_PixmapArea& shape, CEL_PixmapArea& target)
{
    assert(shape.format() == target.format());
    CEL_withFormat(target, [&](auto& pixels) {
        using Pixel = CEL_PixelOf<decltype(pixels)>;
        if (const auto* const source = CEL_asFormat<Pixel>(shape))
            work<CEL_pixelCut<Pixel>, Pixel>(*source, pixels);
    });
}
