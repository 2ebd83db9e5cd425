// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One transform for all areas: a neighbour of another area is outside.
#include "jobs/drawing/LabelPlaces.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kStraight = 3;
constexpr int kDiagonal = 4;

class DeepPlaces
{
public:
    DeepPlaces(const QImage& areas, std::size_t count)
        : _rect(areas.rect())
        , _count(count)
        , _areas(static_cast<std::size_t>(areas.width()) * static_cast<std::size_t>(areas.height()))
        , _depths(_areas.size())
    {
        for (int y = 0; y < _rect.height(); ++y)
            for (int x = 0; x < _rect.width(); ++x)
                _areas[indexOf({x, y})] = areas.pixel(x, y);
        measureDepths();
    }

    std::vector<std::optional<QPoint>> find() const
    {
        struct Area
        {
            double x = 0.0;
            double y = 0.0;
            double pixels = 0.0;
            int deepest = 0;
            double nearest = 0.0;
        };
        std::vector<Area> found(_count);
        forPixels([&](std::size_t number, int x, int y) {
            Area& area = found[number];
            area.x += x;
            area.y += y;
            area.pixels += 1.0;
            area.deepest = std::max(area.deepest, _depths[indexOf({x, y})]);
        });
        std::vector<std::optional<QPoint>> places(_count);
        forPixels([&](std::size_t number, int x, int y) {
            Area& area = found[number];
            const double distance = std::hypot(x - area.x / area.pixels, y - area.y / area.pixels);
            const bool isDeep = 10 * _depths[indexOf({x, y})] >= 9 * area.deepest;
            if (!isDeep || (places[number] && distance >= area.nearest))
                return;
            places[number] = QPoint(x, y);
            area.nearest = distance;
        });
        return places;
    }

private:
    std::size_t indexOf(const QPoint& pixel) const
    {
        return static_cast<std::size_t>(pixel.y()) * static_cast<std::size_t>(_rect.width()) +
               static_cast<std::size_t>(pixel.x());
    }

    // Forwards from the neighbours above and on the left, then backwards from the others.
    void measureDepths()
    {
        for (int y = 0; y < _rect.height(); ++y)
            for (int x = 0; x < _rect.width(); ++x)
                _depths[indexOf({x, y})] = throughNeighbours({x, y}, -1);
        for (int y = _rect.height(); y-- > 0;)
            for (int x = _rect.width(); x-- > 0;) {
                int& depth = _depths[indexOf({x, y})];
                depth = std::min(depth, throughNeighbours({x, y}, 1));
            }
    }

    // The depth that a pixel has at most because of one half of its neighbours.
    int throughNeighbours(const QPoint& pixel, int step) const
    {
        return std::min({through(pixel, {-1, step}, kDiagonal), through(pixel, {0, step}, kStraight),
                         through(pixel, {1, step}, kDiagonal), through(pixel, {step, 0}, kStraight)});
    }

    int through(const QPoint& pixel, const QPoint& step, int weight) const
    {
        const QPoint beside = pixel + step;
        const bool isSame = _rect.contains(beside) && _areas[indexOf(beside)] == _areas[indexOf(pixel)];
        return isSame ? _depths[indexOf(beside)] + weight : weight;
    }

    template<typename Function>
    void forPixels(Function function) const
    {
        for (int y = 0; y < _rect.height(); ++y)
            for (int x = 0; x < _rect.width(); ++x)
                if (const QRgb pixel = _areas[indexOf({x, y})]; qAlpha(pixel) == 255 && (pixel & RGB_MASK) < _count)
                    function(static_cast<std::size_t>(pixel & RGB_MASK), x, y);
    }

    QRect _rect;
    std::size_t _count;
    std::vector<QRgb> _areas;
    std::vector<int> _depths;
};

} // namespace

std::vector<std::optional<QPoint>> labelPlaces(const QImage& areas, std::size_t count)
{
    return DeepPlaces(areas, count).find();
}
