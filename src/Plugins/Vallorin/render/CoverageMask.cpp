// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The mask, row by row; the box of positive values grows with the first and last one of each row.
#include "render/CoverageMask.h"

#include "render/PixelTraits.h"

namespace {

constexpr int kMargin = 2;

template<typename Pixel>
Math::Box2di positiveBox(std::span<const Pixel> row, int x1, int y)
{
    const auto isPositive = [](const Pixel& pixel) { return pixel.r > 0; };
    const auto first = std::find_if(row.begin(), row.end(), isPositive);
    if (first == row.end())
        return {};
    const auto last = std::find_if(row.rbegin(), row.rend(), isPositive);
    return {x1 + static_cast<int>(first - row.begin()), y, x1 + static_cast<int>(row.rend() - last), y + 1};
}

template<typename Pixel>
void maskRow(std::span<Pixel> row)
{
    using Traits = VolumeTraits<Pixel>;
    for (Pixel& pixel : row)
        pixel = {Traits::weighted(pixel.r, pixel.a), 0, 0, Traits::kFull};
}

} // namespace

template<typename Pixel>
bool prepareMask(CEL_PixmapOf<Pixel>& pixmap)
{
    const Math::Box2di rect = pixmap.allocatedRect();
    if (rect.isEmpty())
        return false;
    Math::Box2di positive;
    for (int y = rect.y1; y < rect.y2; ++y) {
        const std::span<Pixel> row = pixmap.row(y);
        positive.add(positiveBox<Pixel>(row, rect.x1, y));
        maskRow(row);
    }
    pixmap.realloc(positive.getEnlarged(kMargin), true);
    return true;
}

template bool prepareMask<CEL_PixelRGBA16>(CEL_PixmapAreaRGBA16&);
template bool prepareMask<CEL_PixelRGBAFloat>(CEL_PixmapAreaRGBAFloat&);
