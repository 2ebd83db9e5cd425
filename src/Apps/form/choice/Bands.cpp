// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Bands.h"

#include "form/choice/JoinRules.h"
#include "form/choice/JoinedParts.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr double kLarge = 0.01;  // of the picture: smaller parts are not looked at
constexpr double kFilled = 0.92; // of the box; the rest is rounded corners

class Bands
{
public:
    Bands(const FoundParts& found, const std::vector<ShapeFacts>& facts) : _found(found), _facts(facts)
    {
        const double least = kLarge * found.map.bounds().width() * found.map.bounds().height();
        for (std::size_t place = 0; place < found.order.size(); ++place) {
            const Part& part = this->part(found.order[place]);
            if (part.role != ObjectRole::BODY || part.ink || part.isBackdrop)
                continue;
            if (const int area = part.region.area(); area >= least)
                _large.push_back({found.order[place], place, area});
        }
    }

    // For each part the part that it becomes a piece of; empty if no two are bands of one rectangle.
    std::vector<int> homes() const
    {
        for (std::size_t upper = 1; upper < _large.size(); ++upper)
            for (std::size_t lower = 0; lower < upper; ++lower)
                if (fillRectangle(_large[lower], _large[upper]) && mayMoveDown(_large[lower], _large[upper]) &&
                    haveSeam(_large[lower].index, _large[upper].index)) {
                    std::vector<int> homes(_found.parts.size());
                    std::iota(homes.begin(), homes.end(), 0);
                    homes[static_cast<std::size_t>(_large[upper].index)] = _large[lower].index;
                    return homes;
                }
        return {};
    }

private:
    struct Candidate
    {
        int index;
        std::size_t place; // in the stack
        int area;
    };

    const Part& part(int index) const { return _found.parts[static_cast<std::size_t>(index)]; }

    bool fillRectangle(const Candidate& lower, const Candidate& upper) const
    {
        const QRect box = part(lower.index).region.box() | part(upper.index).region.box();
        const double least = kFilled * box.width() * box.height();
        if (lower.area + upper.area < least)
            return false;
        CellMask both = part(lower.index).region;
        both.unite(part(upper.index).region);
        const int together = both.area();
        const int overlap = lower.area + upper.area - together;
        return together >= least && overlap <= kAbutting * std::min(lower.area, upper.area);
    }

    // Whether nothing that lies between them in the stack would come to lie on the upper one.
    bool mayMoveDown(const Candidate& lower, const Candidate& upper) const
    {
        const QRect box = part(upper.index).region.box();
        for (std::size_t place = lower.place + 1; place < upper.place; ++place)
            if (part(_found.order[place]).region.box().intersects(box))
                return false;
        return true;
    }

    bool haveSeam(int one, int other) const { return continues(one, other) || continues(other, one); }

    // Whether one of a part's pieces is a piece of the other part as well.
    bool continues(int index, int other) const
    {
        return std::ranges::any_of(part(index).body, [&](int piece) {
            const ShapeFacts& shape = _facts[static_cast<std::size_t>(piece)];
            return !joinsPart(shape, part(other), _facts, _found.map.around(shape, _facts).with(other)).isEmpty();
        });
    }

    const FoundParts& _found;
    const std::vector<ShapeFacts>& _facts;
    std::vector<Candidate> _large; // bottom up
};

} // namespace

FoundParts joinedBands(FoundParts found, const std::vector<ShapeFacts>& facts)
{
    for (std::vector<int> homes = Bands(found, facts).homes(); !homes.empty(); homes = Bands(found, facts).homes())
        found = joinedParts(std::move(found), homes, QStringLiteral("bands side by side"));
    return found;
}
