// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// First the box, which grows with the first and last positive value of each row; then the mask inside of it, so that
// nothing is computed for what the crop drops.
#include "render/CoverageMask.h"

#include "render/PixelTraits.h"

namespace {

constexpr int kMargin = 2;

template<typename Pixel>
Math::Box2di positiveBox(const CEL_PixmapOf<Pixel>& pixmap)
{
    const auto isPositive = [](const Pixel& pixel) { return pixel.r > 0; };
    const Math::Box2di& rect = pixmap.allocatedRect();
    Math::Box2di box;
    for (int y = rect.y1; y < rect.y2; ++y) {
        const std::span<const Pixel> row = pixmap.row(y);
        const auto first = std::find_if(row.begin(), row.end(), isPositive);
        if (first == row.end())
            continue;
        const auto last = std::find_if(row.rbegin(), row.rend(), isPositive);
        box.add(
            {rect.x1 + static_cast<int>(first - row.begin()), y, rect.x1 + static_cast<int>(row.rend() - last), y + 1});
    }
    return box;
}

template<typename Pixel>
void maskRow(std::span<const Pixel> accumulated, std::span<Pixel> mask)
{
    using Traits = VolumeTraits<Pixel>;
    for (std::size_t i = 0; i < mask.size(); ++i)
        mask[i] = {Traits::weighted(accumulated[i].r, accumulated[i].a), 0, 0, Traits::kFull};
}

} // namespace

template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> makeMask(const CEL_PixmapOf<Pixel>& accumulator)
{
    const Math::Box2di& rect = accumulator.allocatedRect();
    if (rect.isEmpty())
        return nullptr;
    auto mask = UT_makeShared<CEL_PixmapOf<Pixel>>(accumulator.size(), accumulator.canvasRect());
    const Math::Box2di box = positiveBox<Pixel>(accumulator).getEnlarged(kMargin);
    const Math::Box2di common = box.getIntersection(rect);
    mask->realloc(box, !(common == box));
    if (common.isEmpty())
        return mask;
    const auto width = static_cast<std::size_t>(common.width());
    const auto from = static_cast<std::size_t>(common.x1 - rect.x1);
    const auto to = static_cast<std::size_t>(common.x1 - box.x1);
    for (int y = common.y1; y < common.y2; ++y)
        maskRow<Pixel>(accumulator.row(y).subspan(from, width), mask->row(y).subspan(to, width));
    return mask;
}

template UT_SharedPtr<CEL_PixmapAreaRGBA16> makeMask<CEL_PixelRGBA16>(const CEL_PixmapAreaRGBA16&);
template UT_SharedPtr<CEL_PixmapAreaRGBAFloat> makeMask<CEL_PixelRGBAFloat>(const CEL_PixmapAreaRGBAFloat&);
