// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two passes: the first finds the rectangle around the covered pixels, the second sets its bits.
#include "jobs/shown/InputCoverage.h"

#include "QuarvelCelCore/CEL_WithFormat.h"

#include <algorithm>

namespace {

template<typename Pixel>
bool isCovered(const Pixel& pixel)
{
    return static_cast<double>(pixel.a) * 2.0 >= static_cast<double>(CEL_PixelTraits<Pixel>::kFull);
}

} // namespace

CoverageBits::CoverageBits(const CEL_PixmapArea& pixmap, const Math::Box2di& window)
{
    CEL_withFormat(pixmap, [&](const auto& pixels) { take(pixels, window); });
}

template<typename Pixel>
void CoverageBits::take(const CEL_PixelStore<Pixel>& pixels, const Math::Box2di& window)
{
    const Math::Box2di known = pixels.allocatedRect().getIntersection(window);
    if (known.isEmpty())
        return;
    const auto from = static_cast<std::size_t>(known.x1 - pixels.allocatedRect().x1);
    const auto rowOf = [&](int y) { return pixels.row(y).subspan(from, static_cast<std::size_t>(known.width())); };
    Math::Box2di around{known.x2, known.y2, known.x1, known.y1};
    for (int y = known.y1; y < known.y2; ++y) {
        const auto row = rowOf(y);
        const auto first = std::ranges::find_if(row, isCovered<Pixel>);
        if (first == row.end())
            continue;
        const auto last = std::find_if(row.rbegin(), row.rend(), isCovered<Pixel>);
        around.x1 = std::min(around.x1, known.x1 + static_cast<int>(first - row.begin()));
        around.x2 = std::max(around.x2, known.x1 + static_cast<int>(row.rend() - last));
        around.y1 = std::min(around.y1, y);
        around.y2 = y + 1;
    }
    if (around.isEmpty())
        return;
    _rect = around;
    _stride = (static_cast<std::size_t>(around.width()) + 63) / 64;
    _words.assign(_stride * static_cast<std::size_t>(around.height()), 0);
    const auto inRow = static_cast<std::size_t>(around.x1 - known.x1);
    for (int y = around.y1; y < around.y2; ++y) {
        const auto row = rowOf(y).subspan(inRow, static_cast<std::size_t>(around.width()));
        std::uint64_t* const words = _words.data() + wordOf(around.x1, y);
        for (std::size_t x = 0; x < row.size(); ++x)
            words[x / 64] |= std::uint64_t{isCovered(row[x])} << (x % 64);
    }
}
