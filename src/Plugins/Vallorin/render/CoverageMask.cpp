// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// First the box of the positive values is found; then the mask is computed inside it only.
#include "render/CoverageMask.h"

#include "render/AccumulatorKernels.h"

#include <algorithm>

namespace {

constexpr int kMargin = 2;

template<typename Pixel>
bool isPositive(const Pixel& pixel)
{
    return pixel.r > 0;
}

template<typename Pixel>
bool hasPositive(std::span<const Pixel> row)
{
    return std::ranges::any_of(row, isPositive<Pixel>);
}

// Skips the pixels inside the box that is known so far.
template<typename Pixel>
Math::Box2di positiveBox(const CEL_PixmapOf<Pixel>& pixmap)
{
    const Math::Box2di& rect = pixmap.allocatedRect();
    int top = rect.y1;
    while (top < rect.y2 && !hasPositive(pixmap.row(top)))
        ++top;
    if (top == rect.y2)
        return {};
    int bottom = rect.y2;
    while (!hasPositive(pixmap.row(bottom - 1)))
        --bottom;
    std::ptrdiff_t first = rect.width();
    std::ptrdiff_t end = 0;
    for (int y = top; y < bottom; ++y) {
        const std::span<const Pixel> row = pixmap.row(y);
        first = std::find_if(row.begin(), row.begin() + first, isPositive<Pixel>) - row.begin();
        end = row.rend() - std::find_if(row.rbegin(), row.rend() - end, isPositive<Pixel>);
    }
    return {rect.x1 + static_cast<int>(first), top, rect.x1 + static_cast<int>(end), bottom};
}

// Row y of the mask. It may extend beyond the columns that it shares with the accumulator.
template<typename Pixel>
void weighRow(const CEL_PixmapOf<Pixel>& accumulator, const Math::Box2di& common, int y, std::span<CEL_PixelFloat> row,
              int x1)
{
    if (y < common.y1 || y >= common.y2) {
        std::ranges::fill(row, CEL_PixelFloat{});
        return;
    }
    const auto first = static_cast<std::size_t>(common.x1 - x1);
    const auto width = static_cast<std::size_t>(common.width());
    std::ranges::fill(row.first(first), CEL_PixelFloat{});
    std::ranges::fill(row.subspan(first + width), CEL_PixelFloat{});
    const auto from = static_cast<std::size_t>(common.x1 - accumulator.allocatedRect().x1);
    VolumeRowKernels::weigh(accumulator.row(y).subspan(from, width), &row[first].value);
}

} // namespace

template<typename Pixel>
UT_SharedPtr<CEL_PixmapAreaZ> makeMask(const CEL_PixmapOf<Pixel>& accumulator)
{
    const Math::Box2di& rect = accumulator.allocatedRect();
    if (rect.isEmpty())
        return nullptr;
    auto mask = UT_makeShared<CEL_PixmapAreaZ>(accumulator.size(), accumulator.canvasRect());
    const Math::Box2di box = positiveBox<Pixel>(accumulator).getEnlarged(kMargin);
    const Math::Box2di common = box.getIntersection(rect);
    mask->realloc(box, false);
    for (int y = box.y1; y < box.y2; ++y)
        weighRow<Pixel>(accumulator, common, y, mask->row(y), box.x1);
    return mask;
}

template UT_SharedPtr<CEL_PixmapAreaZ> makeMask<CEL_PixelRGBA16>(const CEL_PixmapAreaRGBA16&);
template UT_SharedPtr<CEL_PixmapAreaZ> makeMask<CEL_PixelRGBAFloat>(const CEL_PixmapAreaRGBAFloat&);
