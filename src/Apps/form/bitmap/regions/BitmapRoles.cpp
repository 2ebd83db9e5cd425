// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A backdrop lies along the picture's border, an opening is dark and holds other regions, a shadow is translucent.
#include "form/bitmap/regions/BitmapRoles.h"

#include "form/bitmap/regions/InnerRegions.h"

#include <algorithm>

namespace {

// In a picture that is opaque up to its borders, the backdrop takes at least this share of them.
constexpr double kBackdrop = 0.5;
// A shadow has less than this alpha. If translucent regions make up half of the drawing or more, none is a shadow.
constexpr double kShadow = 0.8;
constexpr double kDarkOpening = 37.0;
constexpr double kDarkerThanAround = 16.0;
// The regions that an opening holds have more than this share of its pixels.
constexpr double kHeld = 0.1;

class Roles
{
public:
    Roles(const RegionGraph& graph, const StackingOrder& stacking, const FlatRegion& flat, bool opaque)
        : _graph(graph), _inner(graph), _flat(flat)
    {
        int along = 0;
        for (const int number : stacking.bottomUp) {
            const int edges = graph.region(number).frameEdges;
            along += edges;
            if (_backdrop < 0 || edges > graph.region(_backdrop).frameEdges)
                _backdrop = number;
            if (graph.region(number).alpha < kShadow)
                _translucent += graph.region(number).pixels;
        }
        if (!opaque || graph.region(_backdrop).frameEdges < kBackdrop * along)
            _backdrop = -1;
    }

    BitmapRole of(int number)
    {
        const Region& region = _graph.region(number);
        if (number == _backdrop)
            return {ObjectRole::FLAT, QStringLiteral("the backdrop")};
        if (number == _flat.number)
            return {ObjectRole::SLAB, _flat.reason};
        if (std::ranges::find(_flat.fields, number) != _flat.fields.end())
            return {ObjectRole::FLAT, QStringLiteral("a field beside a bar in a ring")};
        if (region.alpha < kShadow && 2 * _translucent < _graph.coveredPixels())
            return {ObjectRole::FLAT, QStringLiteral("semi-transparent")};
        if (isOpening(number))
            return {ObjectRole::OPENING, QStringLiteral("dark and holds others")};
        if (const int base = _graph.mainNeighbour(number); base >= 0 && isInside(number, base))
            if (const Verdict verdict = _inner.judge(number, base, base == _flat.number);
                verdict.kind == Verdict::Kind::OBJECT)
                return {verdict.role, verdict.reason};
        return {ObjectRole::BODY, _graph.seamsOf(number).empty() ? QStringLiteral("a part of its own")
                                                                 : QStringLiteral("a region of one colour")};
    }

private:
    bool isInside(int number, int base) const
    {
        return _graph.region(base).pixels > _graph.region(number).pixels &&
               _graph.seamShare(number, base) >= kInsideShare;
    }

    bool isOpening(int number) const
    {
        const Region& own = _graph.region(number);
        const int around = _graph.mainNeighbour(number);
        if (own.colour.lightness > kDarkOpening || own.clearEdges + own.frameEdges > 0 || around < 0 ||
            _graph.region(around).colour.lightness < own.colour.lightness + kDarkerThanAround ||
            _graph.region(around).pixels < own.pixels)
            return false;
        int held = 0;
        for (const auto& [other, seam] : _graph.seamsOf(number))
            if (other != around && _graph.region(other).pixels < 2 * own.pixels &&
                _graph.seamShare(other, number) > 0.35)
                held += _graph.region(other).pixels;
        return held > kHeld * own.pixels;
    }

    const RegionGraph& _graph;
    InnerRegions _inner;
    const FlatRegion& _flat;
    int _backdrop = -1;
    int _translucent = 0; // pixels
};

} // namespace

std::vector<BitmapRole> bitmapRolesOf(const RegionGraph& graph, const StackingOrder& stacking, const FlatRegion& flat,
                                      bool painted, bool opaque)
{
    Roles roles(graph, stacking, flat, opaque);
    std::vector<BitmapRole> result;
    for (const int number : stacking.bottomUp)
        result.push_back(painted && !opaque ? BitmapRole{ObjectRole::BODY, QStringLiteral("painted; a part of its own")}
                                            : roles.of(number));
    return result;
}
