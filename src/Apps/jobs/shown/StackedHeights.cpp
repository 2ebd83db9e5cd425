// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One pass collects the borders, a second one raises the pixels. Sums are double precision, in the order of the pixels.
#include "jobs/shown/StackedHeights.h"

#include <map>

namespace {

// The pixels of a lower object along a border.
struct Border
{
    double sum = 0.0; // of the heights
    double count = 0.0;
};

class Borders
{
public:
    void add(std::uint32_t upper, std::uint32_t lower, float heightOfLower)
    {
        Border& border = _borders[{upper, lower}];
        border.sum += static_cast<double>(heightOfLower);
        border.count += 1.0;
    }

    // How far each object is raised, by its index. Pairs come in the order of the upper object, so that what lies below
    // it has its place.
    std::vector<float> bases(std::size_t objects) const
    {
        std::vector<float> bases(objects + 1);
        std::vector<Border> all(objects + 1);
        for (const auto& [pair, border] : _borders) {
            const auto& [upper, lower] = pair;
            Border& own = all[upper];
            own.sum += border.sum + border.count * static_cast<double>(bases[lower]);
            own.count += border.count;
            bases[upper] = static_cast<float>(own.sum / own.count);
        }
        return bases;
    }

private:
    std::map<std::pair<std::uint32_t, std::uint32_t>, Border> _borders; // by the upper and the lower object
};

// The object of every pixel, with its height.
class Pixels
{
public:
    Pixels(const ObjectPlane& objects, const Math::Box2di& rect, const NM_HeightField& heights)
        : _heights(heights), _indices(width() * static_cast<std::size_t>(heights.height()))
    {
        for (int y = 0; y < heights.height(); ++y)
            objects.indicesOfRow(rect.y1 + y, rect.x1,
                                 {_indices.data() + static_cast<std::size_t>(y) * width(), width()});
    }

    std::uint32_t indexAt(int x, int y) const
    {
        return _indices[static_cast<std::size_t>(y) * width() + static_cast<std::size_t>(x)];
    }

    // The border between a pixel and the next one in the direction.
    void addBorder(int x, int y, int dx, int dy, Borders& borders) const
    {
        const std::uint32_t here = indexAt(x, y);
        const std::uint32_t next = indexAt(x + dx, y + dy);
        if (here == next || here == 0 || next == 0)
            return;
        if (here > next)
            borders.add(here, next, heightBehind(x + dx, y + dy, dx, dy));
        else
            borders.add(next, here, heightBehind(x, y, -dx, -dy));
    }

private:
    std::size_t width() const { return static_cast<std::size_t>(_heights.width()); }

    // The height two steps farther from the border, as far as the object reaches: antialiased pixels at the border
    // itself hold a mixture.
    float heightBehind(int x, int y, int dx, int dy) const
    {
        constexpr int kSteps = 2;
        const std::uint32_t own = indexAt(x, y);
        for (int step = 0; step < kSteps && isInside(x + dx, y + dy) && indexAt(x + dx, y + dy) == own; ++step) {
            x += dx;
            y += dy;
        }
        return _heights.row(y)[static_cast<std::size_t>(x)];
    }

    bool isInside(int x, int y) const { return x >= 0 && x < _heights.width() && y >= 0 && y < _heights.height(); }

    const NM_HeightField& _heights;
    std::vector<std::uint32_t> _indices;
};

} // namespace

void stackObjects(const ObjectPlane& objects, const Math::Box2di& rect, NM_HeightField& heights)
{
    const Pixels pixels(objects, rect, heights);
    Borders borders;
    for (int y = 0; y < heights.height(); ++y)
        for (int x = 0; x < heights.width(); ++x) {
            if (x + 1 < heights.width())
                pixels.addBorder(x, y, 1, 0, borders);
            if (y + 1 < heights.height())
                pixels.addBorder(x, y, 0, 1, borders);
        }
    const std::vector<float> bases = borders.bases(objects.objects().size());
    for (int y = 0; y < heights.height(); ++y)
        for (int x = 0; x < heights.width(); ++x)
            heights.row(y)[static_cast<std::size_t>(x)] += bases[pixels.indexAt(x, y)];
}
