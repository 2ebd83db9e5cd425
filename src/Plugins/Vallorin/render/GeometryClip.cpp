// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Keeps the last five rows of geometry. Their union is spread sideways and moved to the left edge of the reach.
#include "render/GeometryClip.h"

#include "render/ElevationKernels.h"

#include <algorithm>

namespace {

constexpr int kWordBits = 64;

// Sets each bit that is set itself or has one of the four below it set, across words.
void spreadUpwards(std::span<std::uint64_t> words)
{
    std::uint64_t below = 0;
    for (std::uint64_t& word : words) {
        const std::uint64_t here = word;
        for (int shift = 1; shift <= 4; ++shift)
            word |= here << shift | below >> (kWordBits - shift);
        below = here;
    }
}

// Moves all bits down by this many; zeros fill the end.
void shiftDown(std::span<std::uint64_t> words, int bits)
{
    const auto whole = std::min(static_cast<std::size_t>(bits / kWordBits), words.size());
    const int rest = bits % kWordBits;
    if (whole > 0) {
        std::ranges::copy(words.subspan(whole), words.begin());
        std::ranges::fill(words.last(whole), std::uint64_t{0});
    }
    if (rest == 0)
        return;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::uint64_t above = i + 1 < words.size() ? words[i + 1] : 0;
        words[i] = words[i] >> rest | above << (kWordBits - rest);
    }
}

// Clears all but the first bits.
void keepFirst(std::span<std::uint64_t> words, int bits)
{
    const auto whole = static_cast<std::size_t>(bits / kWordBits);
    if (whole >= words.size())
        return;
    words[whole] &= (std::uint64_t{1} << (bits % kWordBits)) - 1;
    std::ranges::fill(words.subspan(whole + 1), std::uint64_t{0});
}

} // namespace

NearGeometry::NearGeometry(const CEL_PixmapAreaZ& mask, const Math::Box2di& rect)
    : _mask(mask), _reach(mask.allocatedRect().isEmpty() ? Math::Box2di() : mask.allocatedRect().getEnlarged(kReach))
{
    const int width = _reach.width();
    _reach = _reach.getIntersection(rect);
    if (_reach.isEmpty())
        _reach = Math::Box2di();
    const auto words = static_cast<std::size_t>((width + kWordBits - 1) / kWordBits);
    _near.assign(words, 0);
    for (auto& row : _geometry)
        row.assign(words, 0);
    for (int y = _reach.y1 - kReach; y < _reach.y1 + kReach && !_reach.isEmpty(); ++y)
        pack(y);
}

std::span<const std::uint64_t> NearGeometry::nextRow(int y)
{
    pack(y + kReach);
    for (std::size_t i = 0; i < _near.size(); ++i)
        _near[i] = _geometry[0][i] | _geometry[1][i] | _geometry[2][i] | _geometry[3][i] | _geometry[4][i];
    spreadUpwards(_near);
    shiftDown(_near, _reach.x1 - (_mask.allocatedRect().x1 - kReach));
    keepFirst(_near, _reach.width());
    return _near;
}

void NearGeometry::pack(int y)
{
    std::vector<std::uint64_t>& row = rowFor(y);
    const Math::Box2di& rect = _mask.allocatedRect();
    if (y < rect.y1 || y >= rect.y2) {
        std::ranges::fill(row, std::uint64_t{0});
        return;
    }
    const std::span<const CEL_PixelFloat> values = _mask.row(y);
    VolumeRowKernels::packPositive({&values.data()->value, values.size()}, row.data());
}

std::vector<std::uint64_t>& NearGeometry::rowFor(int y)
{
    constexpr int kCount = 2 * kReach + 1;
    return _geometry[static_cast<std::size_t>(((y % kCount) + kCount) % kCount)];
}
