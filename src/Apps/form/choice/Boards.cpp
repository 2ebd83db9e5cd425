// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Boards.h"

#include "form/choice/JoinedParts.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <set>

namespace {

constexpr double kFilled = 0.95;   // of the box; the rest is rounded corners
constexpr double kGround = 0.85;   // of the box
constexpr double kSmallest = 0.02; // of the picture
constexpr double kLongest = 2.2;   // length to width: what is longer, such as a pencil, is round
constexpr double kAlong = 0.35;    // of an area's outline
constexpr int kNearBorder = 2;     // cells
constexpr int kFewest = 3;         // cells at a side that an area reaches
constexpr double kInked = 0.5;     // of a seam
constexpr double kCovered = 0.02;  // of an area, hidden by what lies on it

std::size_t placeOf(int index)
{
    return static_cast<std::size_t>(index);
}

class Board
{
public:
    Board(const FoundParts& found, const std::vector<ShapeFacts>& facts) : _found(found), _facts(facts)
    {
        for (const Part& part : found.parts)
            if (!part.isBackdrop && part.role != ObjectRole::FLAT)
                _box |= part.region.box();
    }

    // The parts of the ground, bottom up; empty if the drawing is no board.
    std::vector<int> ground() const
    {
        if (!isRectangle())
            return {};
        std::vector<int> candidates;
        std::ranges::copy_if(_found.order, std::back_inserter(candidates),
                             [&](int index) { return isOfGround(part(index)); });
        // Thousands of specks at the border are no board; to see how they lie on each other would take long.
        if (!isWhole(candidates))
            return {};
        std::vector<int> found;
        for (const int index : candidates)
            if (found.empty() || mayMoveDown(found, index))
                found.push_back(index);
        return isWhole(found) && !hasInkedSeam(found) ? found : std::vector<int>();
    }

private:
    const Part& part(int index) const { return _found.parts[placeOf(index)]; }

    // Whether the drawing fills a rectangle that is no rod.
    bool isRectangle() const
    {
        const QRect picture = _found.map.bounds();
        const double area = static_cast<double>(_box.width()) * _box.height();
        const auto [shorter, longer] = std::minmax({_box.width(), _box.height()});
        if (area < kSmallest * picture.width() * picture.height() || longer > kLongest * shorter)
            return false;
        double covered = area; // less what is found to be bare; few rows tell most drawings
        for (int y = _box.top(); y <= _box.bottom() && covered >= kFilled * area; ++y)
            _found.map.forEachStretch(y, _box.left(), _box.right() + 1, [&](int from, int to, const ShownCell& cell) {
                covered -= cell.part == PartMap::kNone || part(cell.part).isBackdrop ? to - from : 0;
            });
        return covered >= kFilled * area;
    }

    // Whether areas of several colours cover the rectangle.
    bool isWhole(const std::vector<int>& ground) const
    {
        CellMask together(_box);
        std::set<int> paints;
        for (const int index : ground) {
            together.unite(part(index).region);
            for (const int piece : part(index).body)
                paints.insert(_facts[placeOf(piece)].paint);
        }
        return paints.size() > 1 && together.area() >= kGround * _box.width() * _box.height();
    }

    // Whether a line parts two areas: they are separate things, such as drawers.
    bool hasInkedSeam(const std::vector<int>& ground) const
    {
        const auto isInked = [&](int index, int piece) {
            const Surroundings around = _found.map.around(_facts[placeOf(piece)], _facts);
            return std::ranges::any_of(around.parts, [&](const auto& met) {
                const auto& [other, meeting] = met;
                return other != index && std::ranges::find(ground, other) != ground.end() &&
                       meeting.contact >= kFewest && meeting.inked > kInked * meeting.contact;
            });
        };
        return std::ranges::any_of(ground, [&](int index) {
            return std::ranges::any_of(part(index).body, [&](int piece) { return isInked(index, piece); });
        });
    }

    bool isOfGround(const Part& part) const
    {
        const bool isBody = part.role == ObjectRole::BODY || part.role == ObjectRole::SLAB;
        if (!isBody || part.ink || part.isBackdrop || part.translucent)
            return false;
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
        int along = 0;
        int outline = 0;
        part.region.forEachAtOutline([&](int x, int y) {
            const bool atLeft = x < _box.left() + kNearBorder;
            const bool atTop = y < _box.top() + kNearBorder;
            const bool atRight = x > _box.right() - kNearBorder;
            const bool atBottom = y > _box.bottom() - kNearBorder;
            left += atLeft ? 1 : 0;
            top += atTop ? 1 : 0;
            right += atRight ? 1 : 0;
            bottom += atBottom ? 1 : 0;
            along += atLeft || atTop || atRight || atBottom ? 1 : 0;
            ++outline;
        });
        const bool isAcross = std::min(left, right) >= kFewest || std::min(top, bottom) >= kFewest;
        return isAcross || along > kAlong * outline;
    }

    // Whether nothing that lies between a part and the lowest of the ground would come to lie on the part.
    bool mayMoveDown(const std::vector<int>& ground, int upper) const
    {
        const CellMask& region = part(upper).region;
        const double most = kCovered * region.area();
        const auto lowest = std::ranges::find(_found.order, ground.front());
        return std::all_of(lowest + 1, std::ranges::find(_found.order, upper), [&](int between) {
            return std::ranges::find(ground, between) != ground.end() || part(between).region.overlap(region) <= most;
        });
    }

    const FoundParts& _found;
    const std::vector<ShapeFacts>& _facts;
    QRect _box; // of what is drawn, without a backdrop and shadows
};

// Whether the ground reaches every corner of the picture, which is no outline.
bool fillsPicture(const FoundParts& found, const std::vector<int>& ground)
{
    const QRect picture = found.map.bounds();
    const auto covers = [&](int x, int y) {
        return std::ranges::any_of(ground, [&](int index) { return found.parts[placeOf(index)].region.at(x, y); });
    };
    return covers(picture.left(), picture.top()) && covers(picture.right(), picture.top()) &&
           covers(picture.left(), picture.bottom()) && covers(picture.right(), picture.bottom());
}

bool areRectangles(const FoundParts& found, const std::vector<int>& ground)
{
    return std::ranges::all_of(ground, [&](int index) {
        const CellMask& region = found.parts[placeOf(index)].region;
        return region.area() >= kFilled * region.box().width() * region.box().height();
    });
}

} // namespace

FoundParts joinedBoards(FoundParts found, const std::vector<ShapeFacts>& facts)
{
    const std::vector<int> ground = Board(found, facts).ground();
    if (ground.empty())
        return found;
    const bool isPicture = fillsPicture(found, ground);
    if (isPicture && ground.size() > 1 && !areRectangles(found, ground)) // a landscape
        return found;
    Part& lowest = found.parts[placeOf(ground.front())];
    lowest.role = isPicture ? ObjectRole::FLAT : ObjectRole::SLAB;
    lowest.reason = QStringLiteral("areas that fill a rectangle");
    if (ground.size() == 1)
        return found;
    std::vector<int> homes(found.parts.size());
    std::iota(homes.begin(), homes.end(), 0);
    for (const int index : ground)
        homes[placeOf(index)] = ground.front();
    const QString reason = lowest.reason;
    return joinedParts(std::move(found), homes, reason);
}
