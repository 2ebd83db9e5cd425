// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One walk per line and direction. Lines of one direction share no pixel, so they are walked in parallel; directions
// follow one after the other, so that every pixel's sum has one order.
#include "QuarvelNormalMap/NM_Occlusion.h"

#include "QuarvelNormalMap/NM_MaskPicture.h"
#include "QuarvelNormalMap/private/NM_Rows.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <array>
#include <cmath>

namespace {

// The angles between 0 and 45 degrees are those of (1, 0), (2, 1) and (1, 1): 0, 26.565 and 45 degrees. A direction has
// half of the angle to each of its neighbours.
constexpr double kStraight = 26.56505117707799 / 360.0;
constexpr double kKnight = 22.5 / 360.0;
constexpr double kDiagonal = 18.43494882292201 / 360.0;

constexpr std::array<NM_OcclusionDirection, 16> kDirections{{{1, 0, kStraight},
                                                             {2, 1, kKnight},
                                                             {1, 1, kDiagonal},
                                                             {1, 2, kKnight},
                                                             {0, 1, kStraight},
                                                             {-1, 2, kKnight},
                                                             {-1, 1, kDiagonal},
                                                             {-2, 1, kKnight},
                                                             {-1, 0, kStraight},
                                                             {-2, -1, kKnight},
                                                             {-1, -1, kDiagonal},
                                                             {-1, -2, kKnight},
                                                             {0, -1, kStraight},
                                                             {1, -2, kKnight},
                                                             {1, -1, kDiagonal},
                                                             {2, -1, kKnight}}};

struct Place
{
    int x;
    int y;
};

// A pixel that a walk has passed: how many steps from the line's beginning it lies, and how high.
struct Passed
{
    int step;
    double height;
};

double sineOf(double slope)
{
    return slope / std::sqrt(1.0 + slope * slope);
}

// The flatter of two slopes, 0 if one rises and the other falls.
double flatter(double a, double b)
{
    if (a * b <= 0.0)
        return 0.0;
    return std::abs(a) < std::abs(b) ? a : b;
}

class Walk
{
public:
    Walk(const NM_HeightField& heights, const NM_OcclusionDirection& direction, NM_HeightField& openness)
        : _heights(heights)
        , _direction(direction)
        , _length(std::sqrt(static_cast<double>(direction.x * direction.x + direction.y * direction.y)))
        , _openness(openness)
    {}

    // Walks against the direction, so that what a pixel looks at has been passed before.
    void along(Place place, std::vector<Passed>& hull) const
    {
        hull.clear();
        double before = 0.0;
        for (int step = 0; isInside(place); ++step) {
            const double here = heightAt(place);
            const Place next{place.x - _direction.x, place.y - _direction.y};
            if (step > 0) {
                const double horizon = horizonOf(step, here, hull);
                const double behind = isInside(next) ? here - heightAt(next) : before - here;
                occlude(place, horizon / _length, flatter(before - here, behind) / _length);
            }
            hull.push_back({step, here});
            before = here;
            place = next;
        }
    }

private:
    bool isInside(Place place) const
    {
        return place.x >= 0 && place.x < _heights.width() && place.y >= 0 && place.y < _heights.height();
    }

    double heightAt(Place place) const
    {
        return static_cast<double>(_heights.row(place.y)[static_cast<std::size_t>(place.x)]);
    }

    // The steepest slope to a pixel passed before, per step. What the hull hides from here it hides from all pixels
    // that follow.
    static double horizonOf(int step, double height, std::vector<Passed>& hull)
    {
        const auto slopeTo = [&](const Passed& passed) { return (passed.height - height) / (step - passed.step); };
        double slope = slopeTo(hull.back());
        while (hull.size() > 1) {
            const double farther = slopeTo(hull[hull.size() - 2]);
            if (farther < slope)
                break;
            slope = farther;
            hull.pop_back();
        }
        return slope;
    }

    void occlude(Place place, double horizon, double surface) const
    {
        if (horizon <= surface)
            return;
        float& open = _openness.row(place.y)[static_cast<std::size_t>(place.x)];
        open -= static_cast<float>(_direction.share * (sineOf(horizon) - sineOf(surface)));
    }

    const NM_HeightField& _heights;
    const NM_OcclusionDirection& _direction;
    double _length; // of a step
    NM_HeightField& _openness;
};

// The places where lines begin: those whose neighbour in the direction lies outside.
std::vector<Place> beginnings(const NM_HeightField& heights, const NM_OcclusionDirection& direction)
{
    const int width = heights.width();
    const int height = heights.height();
    std::vector<Place> places;
    for (int y = 0; y < height; ++y) {
        const int beyond = y + direction.y;
        if (beyond < 0 || beyond >= height) {
            for (int x = 0; x < width; ++x)
                places.push_back({x, y});
            continue;
        }
        const int columns = std::min(std::abs(direction.x), width);
        for (int i = 0; i < columns; ++i)
            places.push_back({direction.x > 0 ? width - columns + i : i, y});
    }
    return places;
}

void walkAll(const NM_HeightField& heights, const NM_OcclusionDirection& direction, NM_HeightField& openness)
{
    const std::vector<Place> places = beginnings(heights, direction);
    const Walk walk(heights, direction, openness);
    VL_parallelFor(tbb::blocked_range<std::size_t>(0, places.size()), [&](const auto& range) {
        std::vector<Passed> hull;
        for (std::size_t i = range.begin(); i < range.end(); ++i)
            walk.along(places[i], hull);
    });
}

} // namespace

std::span<const NM_OcclusionDirection> NM_occlusionDirections()
{
    return kDirections;
}

UT_Result<NM_HeightField> NM_openness(const NM_HeightField& heights)
{
    auto openness = NM_HeightField::create({heights.width(), heights.height()});
    if (!openness)
        return openness;
    for (int y = 0; y < openness->height(); ++y)
        std::ranges::fill(openness->row(y), 1.0F);
    for (const NM_OcclusionDirection& direction : kDirections)
        walkAll(heights, direction, *openness);
    for (int y = 0; y < openness->height(); ++y)
        for (float& open : openness->row(y))
            open = std::max(open, 0.0F);
    return openness;
}

UT_Result<IIO_Picture> NM_occlusionPicture(const NM_HeightField& openness, const Math::Box2di& rect,
                                           const CEL_PixmapArea& coverage, const Math::Box2di& frame,
                                           IIO_SampleType samples, int pad)
{
    constexpr float kWhite = 1.0F;
    const auto valueAt = [&](int x, int y) { return openness.row(y - rect.y1)[static_cast<std::size_t>(x - rect.x1)]; };
    auto picture = NM_maskPicture(coverage, frame, samples, valueAt, kWhite, pad);
    if (picture)
        picture->metadata() = NM_metadataOf(QStringLiteral("occlusion"));
    return picture;
}
