// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// First the box of the positive values is found; then the mask is computed inside it only.
#include "render/CoverageMask.h"

#include <algorithm>

namespace {

constexpr int kMargin = 2;

template<typename Pixel>
bool isPositive(const Pixel& pixel)
{
    return pixel.r > 0;
}

// Skips the pixels inside the box that is known so far.
template<typename Pixel>
Math::Box2di positiveBox(AccumulatedRows<Pixel>& accumulator)
{
    const Math::Box2di& rect = accumulator.rect();
    const auto hasPositive = [&](int y) {
        return std::ranges::any_of(accumulator.pixels(y, rect.x1, rect.x2), isPositive<Pixel>);
    };
    int top = rect.y1;
    while (top < rect.y2 && !hasPositive(top))
        ++top;
    if (top == rect.y2)
        return {};
    int bottom = rect.y2;
    while (!hasPositive(bottom - 1))
        --bottom;
    int first = rect.x2;
    int end = rect.x1;
    for (int y = top; y < bottom; ++y) {
        const std::span<const Pixel> left = accumulator.pixels(y, rect.x1, first);
        first = rect.x1 + static_cast<int>(std::ranges::find_if(left, isPositive<Pixel>) - left.begin());
        const std::span<const Pixel> right = accumulator.pixels(y, end, rect.x2);
        end += static_cast<int>(right.rend() - std::find_if(right.rbegin(), right.rend(), isPositive<Pixel>));
    }
    return {first, top, end, bottom};
}

// Row y of the mask. It may extend beyond the columns that it shares with the accumulator.
template<typename Pixel>
void weighRow(AccumulatedRows<Pixel>& accumulator, const Math::Box2di& common, int y, std::span<CEL_PixelFloat> row,
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
    if (width > 0)
        accumulator.weigh(y, common.x1, common.x2, &row[first].value);
}

} // namespace

template<typename Pixel>
UT_SharedPtr<CEL_PixmapAreaZ> makeMask(AccumulatedRows<Pixel> accumulator)
{
    const Math::Box2di& rect = accumulator.rect();
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

template UT_SharedPtr<CEL_PixmapAreaZ> makeMask<CEL_PixelRGBA16>(AccumulatedRows<CEL_PixelRGBA16>);
template UT_SharedPtr<CEL_PixmapAreaZ> makeMask<CEL_PixelRGBAFloat>(AccumulatedRows<CEL_PixelRGBAFloat>);
