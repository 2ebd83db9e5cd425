// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The neighbourhood is separable: a row's geometry is spread by 2 pixels sideways once, and a pixel is near geometry
// when one of the five spread rows around it says so. The cost does not depend on what is where.
#include "render/GeometryClip.h"

#include <array>
#include <cstdint>
#include <vector>

namespace {

constexpr int kReach = 2;

// The geometry of the mask's rows, spread sideways, on the columns of the blurred pixmap; the last five rows are kept.
template<typename Pixel>
class SpreadRows
{
public:
    SpreadRows(const CEL_PixmapOf<Pixel>& mask, const Math::Box2di& columns)
        : _mask(mask), _columns(columns), _geometry(static_cast<std::size_t>(columns.width() + 2 * kReach))
    {
        for (auto& row : _rows)
            row.assign(static_cast<std::size_t>(columns.width()), 0);
    }

    void load(int y)
    {
        std::vector<std::uint8_t>& spread = rowFor(y);
        std::fill(spread.begin(), spread.end(), std::uint8_t{0});
        const Math::Box2di& rect = _mask.allocatedRect();
        const int first = std::max(rect.x1, _columns.x1 - kReach);
        const int end = std::min(rect.x2, _columns.x2 + kReach);
        if (y < rect.y1 || y >= rect.y2 || first >= end)
            return;
        std::fill(_geometry.begin(), _geometry.end(), std::uint8_t{0});
        const auto source =
            _mask.row(y).subspan(static_cast<std::size_t>(first - rect.x1), static_cast<std::size_t>(end - first));
        std::uint8_t* target = _geometry.data() + (first - _columns.x1 + kReach);
        for (std::size_t i = 0; i < source.size(); ++i)
            target[i] = static_cast<std::uint8_t>(source[i].r > 0 || source[i].g > 0);
        const std::uint8_t* g = _geometry.data();
        for (std::size_t i = 0; i < spread.size(); ++i)
            spread[i] = static_cast<std::uint8_t>(g[i] | g[i + 1] | g[i + 2] | g[i + 3] | g[i + 4]);
    }

    bool isNear(std::size_t column) const
    {
        return (_rows[0][column] | _rows[1][column] | _rows[2][column] | _rows[3][column] | _rows[4][column]) != 0;
    }

private:
    std::vector<std::uint8_t>& rowFor(int y)
    {
        constexpr int kCount = 2 * kReach + 1;
        return _rows[static_cast<std::size_t>(((y % kCount) + kCount) % kCount)];
    }

    const CEL_PixmapOf<Pixel>& _mask;
    Math::Box2di _columns;
    std::vector<std::uint8_t> _geometry;
    std::array<std::vector<std::uint8_t>, 2 * kReach + 1> _rows;
};

} // namespace

template<typename Pixel>
void clipWithGeometry(CEL_PixmapOf<Pixel>& blurred, const CEL_PixmapOf<Pixel>& mask)
{
    const Math::Box2di rect = blurred.allocatedRect();
    if (rect.isEmpty())
        return;
    SpreadRows<Pixel> spread(mask, rect);
    for (int y = rect.y1 - kReach; y < rect.y1 + kReach; ++y)
        spread.load(y);
    for (int y = rect.y1; y < rect.y2; ++y) {
        spread.load(y + kReach);
        const std::span<Pixel> row = blurred.row(y);
        for (std::size_t i = 0; i < row.size(); ++i)
            row[i] = spread.isNear(i) ? row[i] : Pixel{};
    }
}

template void clipWithGeometry<CEL_PixelRGBA16>(CEL_PixmapAreaRGBA16&, const CEL_PixmapAreaRGBA16&);
template void clipWithGeometry<CEL_PixelRGBAFloat>(CEL_PixmapAreaRGBAFloat&, const CEL_PixmapAreaRGBAFloat&);
