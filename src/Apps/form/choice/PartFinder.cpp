// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Three questions in turn: is it ink, does it lie inside a part (InnerRules), does it go on with one (JoinRules)?
#include "form/choice/PartFinder.h"

#include "form/choice/JoinRules.h"
#include "form/raster/CutSides.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace {

constexpr double kInside = 0.85;       // of a shape's area
constexpr double kInkLightness = 40.0; // darker lines are ink
constexpr double kInkWidth = 0.05;     // of the picture's longer side
constexpr double kInkElongation = 6.0;
constexpr double kShortLine = 2.5; // elongation of the shortest line that is as wide as the others
constexpr double kPenVaries = 0.25;
constexpr double kAlone = 0.6;     // of a shape's area beyond all parts: it is an object of its own
constexpr double kLeftOver = 0.08; // less than this much of a mark beyond all parts is left to one of them
constexpr double kInkLeftOver = 0.004;
constexpr double kBackdrop = 0.9; // of the picture
constexpr double kTranslucent = 0.7;

class PartFinder
{
public:
    PartFinder(const std::vector<ShapeFacts>& facts, const Grid& grid) : _facts(facts), _grid(grid), _map(grid)
    {
        findPen();
        for (const ShapeFacts& shape : facts)
            if (isInk(shape))
                _map.addInk(shape.mask);
    }

    FoundParts find()
    {
        _verdicts.resize(_facts.size());
        for (_shape = 0; _shape < static_cast<int>(_facts.size()); ++_shape) {
            if (facts().area == 0)
                continue;
            const Surroundings around = _map.around(facts(), _facts);
            Verdict verdict = judge(around);
            carryOut(verdict, around);
            _verdicts[static_cast<std::size_t>(_shape)] = verdict;
        }
        return {std::move(_parts), std::move(_order), std::move(_verdicts), std::move(_map)};
    }

private:
    const ShapeFacts& facts(int shape) const { return _facts[static_cast<std::size_t>(shape)]; }
    const ShapeFacts& facts() const { return facts(_shape); }
    Part& part(int index) { return _parts[static_cast<std::size_t>(index)]; }
    const Part& part(int index) const { return _parts[static_cast<std::size_t>(index)]; }

    bool isInk(const ShapeFacts& shape) const
    {
        if (shape.colour.lightness >= kInkLightness || shape.opacity < kTranslucent)
            return false;
        const bool likeOthers =
            _pen > 0.0 && shape.elongation() > kShortLine && std::abs(shape.width - _pen) < kPenVaries * _pen;
        return isLongInk(shape) || likeOthers;
    }

    // It fills the picture, its corners aside.
    bool isBackdrop(const ShapeFacts& shape) const
    {
        return shape.area > kBackdrop * _grid.width * _grid.height && cutSides(shape.mask, _map.bounds()).all();
    }

    bool reachesCorners(const CellMask& mask) const
    {
        const QRect all = _map.bounds();
        return mask.at(all.left(), all.top()) && mask.at(all.right(), all.top()) && mask.at(all.left(), all.bottom()) &&
               mask.at(all.right(), all.bottom());
    }

    bool isLongInk(const ShapeFacts& shape) const
    {
        return shape.colour.lightness < kInkLightness && shape.width < kInkWidth * _grid.longSide() &&
               shape.elongation() > kInkElongation && shape.opacity >= kTranslucent;
    }

    // The width of the drawing's ink: half of its long lines are thinner.
    void findPen()
    {
        std::vector<double> widths;
        for (const ShapeFacts& shape : _facts)
            if (isLongInk(shape))
                widths.push_back(shape.width);
        if (widths.size() < 3)
            return;
        const auto middle = widths.begin() + static_cast<std::ptrdiff_t>(widths.size() / 2);
        std::ranges::nth_element(widths, middle);
        _pen = *middle;
    }

    // --- what a shape is ---

    Verdict judge(const Surroundings& around)
    {
        if (const auto decided = _decided.find(_shape); decided != _decided.end())
            return decided->second;
        if (isInk(facts()))
            return {Verdict::Kind::INK, QStringLiteral("ink"), ObjectRole::BODY, -1};
        if (isBackdrop(facts()))
            return reachesCorners(facts().mask)
                       ? Verdict{Verdict::Kind::OBJECT, QStringLiteral("a backdrop"), ObjectRole::FLAT, -1}
                       : Verdict{Verdict::Kind::OBJECT, QStringLiteral("a tile"), ObjectRole::SLAB, -1};
        if (around.base != Surroundings::kNone && around.with(around.base).overlap >= kInside * facts().area)
            return judgeInside(around);
        if (facts().opacity < kTranslucent)
            return {Verdict::Kind::MARK, QStringLiteral("a shadow or a shine"), ObjectRole::FLAT, -1};
        return judgeBeside(around);
    }

    Verdict judgeInside(const Surroundings& around)
    {
        const std::vector<int> siblings = siblingsIn(around.base);
        int objects = 0;
        Verdict chosen;
        for (const int sibling : siblings) {
            const Verdict verdict = judgeInner(innerShape(sibling, around, static_cast<int>(siblings.size()) - 1));
            if (sibling == _shape || (verdict.kind == Verdict::Kind::OBJECT && chosen.kind != verdict.kind))
                chosen = sibling == _shape && chosen.kind == Verdict::Kind::OBJECT ? chosen : verdict;
            objects += verdict.kind == Verdict::Kind::OBJECT ? 1 : 0;
        }
        // Siblings are decided together: an eye is not an object and the other one a mark.
        const Verdict own = judgeInner(innerShape(_shape, around, static_cast<int>(siblings.size()) - 1));
        if (2 * objects < static_cast<int>(siblings.size()))
            chosen =
                own.kind == Verdict::Kind::OBJECT
                    ? Verdict{Verdict::Kind::MARK, QStringLiteral("as the others of its colour"), ObjectRole::BODY, -1}
                    : own;
        for (const int sibling : siblings)
            if (siblings.size() > 1)
                _decided[sibling] = chosen;
        return chosen;
    }

    // The shape and the later ones of its paint and about its size inside the same part.
    std::vector<int> siblingsIn(int base) const
    {
        std::vector<int> siblings{_shape};
        for (int other = _shape + 1; other < static_cast<int>(_facts.size()); ++other) {
            const ShapeFacts& sibling = facts(other);
            const bool alike = sibling.paint == facts().paint && sibling.area < 2 * facts().area &&
                               facts().area < 2 * sibling.area && sibling.opacity == facts().opacity;
            if (alike && !isInk(sibling) && coveredBy(sibling.mask, part(base).region) >= kInside)
                siblings.push_back(other);
        }
        return siblings;
    }

    static double coveredBy(const CellMask& mask, const CellMask& region)
    {
        if (!mask.box().intersects(region.box()))
            return 0.0;
        int covered = 0;
        int area = 0;
        mask.forEach([&](int x, int y) {
            ++area;
            covered += region.at(x, y) ? 1 : 0;
        });
        return area > 0 ? static_cast<double>(covered) / area : 0.0;
    }

    InnerShape innerShape(int shape, const Surroundings& around, int siblings) const
    {
        const Part& base = part(around.base);
        const ShapeFacts& body = facts(largestPiece(base));
        const double bodyArea = base.region.area();
        return {facts(shape),
                body,
                around.ground >= 0 ? facts(around.ground) : body,
                facts(shape).area / bodyArea,
                following(facts(shape), base.region),
                around.outlined,
                isConcentric(facts(shape), base.region, bodyArea),
                heldArea(shape) / facts(shape).area,
                siblings,
                static_cast<double>(_grid.width) * _grid.height};
    }

    int largestPiece(const Part& part) const
    {
        return *std::ranges::max_element(part.body, {}, [&](int shape) { return facts(shape).area; });
    }

    // The share of a shape's outline that runs along a region's.
    double following(const ShapeFacts& shape, const CellMask& region) const
    {
        const int near = std::max(2, _grid.longSide() / 110);
        const QRect inner = _map.bounds();
        double along = 0.0;
        shape.mask.forEachAtOutline([&](int x, int y) {
            constexpr std::array<std::array<int, 2>, 8> kAround{
                {{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-1, -1}, {1, -1}, {-1, 1}, {1, 1}}};
            for (const auto& [dx, dy] : kAround) {
                const int qx = x + near * dx;
                const int qy = y + near * dy;
                if (inner.contains(qx, qy) && !region.at(qx, qy)) {
                    along += 1.0;
                    return;
                }
            }
        });
        return along / std::max(1.0, shape.outline);
    }

    // A shape of a region's proportions and roundness, a good deal smaller, around the same centre.
    bool isConcentric(const ShapeFacts& shape, const CellMask& region, double regionArea) const
    {
        const QRect inner = shape.mask.box();
        const QRect outer = region.box();
        const double share = shape.area / regionArea;
        if (share < 0.16 || share > 0.95)
            return false;
        const double scale = std::sqrt(share);
        const double tolerance = 0.06 * std::max(outer.width(), outer.height());
        const auto near = [&](double a, double b) { return std::abs(a - b) < tolerance; };
        return near(inner.width(), scale * outer.width()) && near(inner.height(), scale * outer.height()) &&
               near(inner.left() + inner.right(), outer.left() + outer.right()) &&
               near(inner.top() + inner.bottom(), outer.top() + outer.bottom());
    }

    double heldArea(int shape) const
    {
        const ShapeFacts& holder = facts(shape);
        double held = 0.0;
        for (int other = shape + 1; other < static_cast<int>(_facts.size()); ++other) {
            const ShapeFacts& inner = facts(other);
            const bool may = inner.opacity >= kTranslucent && inner.area > 0 && inner.area < holder.area &&
                             holder.mask.box().intersects(inner.mask.box());
            if (may && coveredBy(inner.mask, holder.mask) >= kInside)
                held += inner.area;
        }
        return held;
    }

    Verdict judgeBeside(const Surroundings& around)
    {
        for (const auto& [index, meeting] : around.parts)
            for (const int piece : part(index).body) {
                const QString reason =
                    part(index).role == ObjectRole::BODY ? joins(facts(), facts(piece), meeting) : QString();
                if (!reason.isEmpty() && touches(facts(piece)) && mayGoOn(index, around))
                    return {Verdict::Kind::MERGED, reason, ObjectRole::BODY, index};
            }
        return {Verdict::Kind::OBJECT, placeOf(around), ObjectRole::BODY, -1};
    }

    bool touches(const ShapeFacts& piece) const
    {
        return piece.mask.box().adjusted(-2, -2, 2, 2).intersects(facts().mask.box());
    }

    static QString placeOf(const Surroundings& around)
    {
        if (around.base != Surroundings::kNone &&
            around.with(around.base).overlap > 3 * around.with(around.base).contact)
            return QStringLiteral("a part over a part");
        return around.parts.empty() ? QStringLiteral("a part by itself") : QStringLiteral("a part beside a part");
    }

    // Whether a piece of a part painted now is hidden by no part that lies above it.
    bool mayGoOn(int index, const Surroundings& around) const
    {
        const auto place = std::ranges::find(_order, index);
        int hidden = 0;
        for (auto above = place + 1; above != _order.end(); ++above)
            hidden += around.with(*above).overlap;
        return hidden <= std::max(4, facts().area / 100);
    }

    // --- what becomes of it ---

    void carryOut(Verdict& verdict, const Surroundings& around)
    {
        switch (verdict.kind) {
        case Verdict::Kind::OBJECT:
            addPart(verdict, _order.size());
            // What lies on a backdrop lies on nothing.
            if (isBackdrop(facts()))
                _map.paint(facts().mask, PartMap::kNone, PartMap::kNone);
            return;
        case Verdict::Kind::MERGED:
            extend(verdict.part);
            return;
        case Verdict::Kind::MARK:
            wear(verdict, around, 0.0);
            return;
        case Verdict::Kind::INK:
            wear(verdict, around, facts().width + 1.0);
            return;
        }
    }

    int addPart(const Verdict& verdict, std::size_t place)
    {
        const int index = static_cast<int>(_parts.size());
        Part part;
        part.body = {_shape};
        part.region = facts().mask;
        part.role = verdict.role;
        part.reason = verdict.reason;
        part.ink = verdict.kind == Verdict::Kind::INK;
        part.translucent = facts().opacity < 1.0;
        _parts.push_back(std::move(part));
        _order.insert(_order.begin() + static_cast<std::ptrdiff_t>(place), index);
        if (place + 1 == _order.size())
            _map.paint(facts().mask, _shape, index);
        return index;
    }

    void extend(int index)
    {
        part(index).body.push_back(_shape);
        part(index).region.unite(facts().mask);
        _map.paint(facts().mask, _shape, index);
    }

    // A mark goes to all parts that it is seen on, ink also to those beside it. What lies beyond all of them stays with
    // the part that has most of it, or becomes an object beneath them, or all of it an object above them.
    void wear(Verdict& verdict, const Surroundings& around, double reach)
    {
        const std::vector<Claim> claims = claimCells(reach);
        std::map<int, int> cells;
        int unclaimed = 0;
        for (const Claim& claim : claims)
            claim.part == PartMap::kNone ? ++unclaimed : ++cells[claim.part];
        if (unclaimed > kAlone * facts().area || cells.empty() || wouldShowTwice(cells, unclaimed)) {
            standAlone(verdict, around);
            return;
        }
        const auto home = std::ranges::max_element(cells, {}, [](const auto& entry) { return entry.second; })->first;
        const bool ink = verdict.kind == Verdict::Kind::INK;
        const bool solid = !ink && facts().opacity >= kTranslucent;
        const double spare = ink ? std::max(3.0, kInkLeftOver * facts().area) : kLeftOver * facts().area;
        const bool leftOver = !solid && unclaimed > spare;
        for (const auto& [index, count] : cells) {
            Part& wearer = part(index);
            const bool whole = !leftOver && (count + unclaimed >= 0.995 * facts().area || (index == home && !ink));
            wearer.worn.push_back({_shape, whole, std::max(reach, wearer.border)});
            if (ink)
                wearer.border = std::max(wearer.border, reach);
        }
        if (solid && unclaimed > kInkLeftOver * facts().area)
            growBy(home);
        if (leftOver)
            layBeneath(verdict, cells, claims);
        for (const Claim& claim : claims)
            if (claim.part != PartMap::kNone)
                _map.setCell(claim.x, claim.y, _shape, claim.part);
            else if (!leftOver)
                _map.setCell(claim.x, claim.y, _shape, home);
    }

    // What one sees through is painted once: not in two parts of which one is seen through the other.
    bool wouldShowTwice(const std::map<int, int>& cells, int unclaimed) const
    {
        const auto isTranslucent = [&](const auto& entry) { return part(entry.first).translucent; };
        return facts().opacity < 1.0 && (cells.size() > 1 || unclaimed > 0) &&
               std::ranges::any_of(cells, isTranslucent);
    }

    // A mark that goes beyond its part makes the part larger.
    void growBy(int home)
    {
        Part& wearer = part(home);
        std::erase_if(wearer.worn, [&](const WornShape& worn) { return worn.shape == _shape; });
        wearer.body.push_back(_shape);
        wearer.region.unite(facts().mask);
    }

    struct Claim
    {
        int x;
        int y;
        int part;
    };

    // The part that every cell of the shape goes to: the one that it shows, or the nearest within reach.
    std::vector<Claim> claimCells(double reach) const
    {
        std::vector<Claim> claims;
        facts().mask.forEach([&](int x, int y) {
            const int shown = _map.partAt(x, y);
            claims.push_back({x, y, shown != PartMap::kNone ? shown : nearestPart(x, y, reach)});
        });
        return claims;
    }

    int nearestPart(int x, int y, double reach) const
    {
        constexpr std::array<std::array<int, 2>, 8> kAround{
            {{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-1, -1}, {1, -1}, {-1, 1}, {1, 1}}};
        for (int far = 1; far <= static_cast<int>(reach); ++far)
            for (const auto& [dx, dy] : kAround)
                if (const int found = _map.partAt(x + far * dx, y + far * dy); found != PartMap::kNone)
                    return found;
        return PartMap::kNone;
    }

    void standAlone(Verdict& verdict, const Surroundings& around)
    {
        const bool ink = verdict.kind == Verdict::Kind::INK;
        if (ink)
            for (const auto& [index, meeting] : around.parts)
                if (part(index).ink && facts(part(index).body.front()).paint == facts().paint &&
                    mayGoOn(index, around)) {
                    extend(index);
                    verdict = {Verdict::Kind::MERGED, verdict.reason, ObjectRole::BODY, index};
                    return;
                }
        verdict.reason = ink ? QStringLiteral("ink beside nothing") : verdict.reason + QStringLiteral(" on nothing");
        if (!ink)
            verdict.role = ObjectRole::FLAT;
        addPart(verdict, _order.size());
    }

    void layBeneath(const Verdict& verdict, const std::map<int, int>& cells, const std::vector<Claim>& claims)
    {
        std::size_t lowest = _order.size();
        for (std::size_t place = 0; place < _order.size(); ++place)
            if (cells.contains(_order[place]))
                lowest = std::min(lowest, place);
        Verdict own = verdict;
        const bool ink = verdict.kind == Verdict::Kind::INK;
        own.reason = ink ? QStringLiteral("ink that goes on beside a part") : verdict.reason;
        own.role = ink ? ObjectRole::BODY : ObjectRole::FLAT;
        const int index = addPart(own, lowest);
        for (const Claim& claim : claims)
            if (claim.part == PartMap::kNone)
                _map.setCell(claim.x, claim.y, _shape, index);
    }

    const std::vector<ShapeFacts>& _facts;
    const Grid& _grid;
    PartMap _map;
    std::vector<Part> _parts;
    std::vector<int> _order;
    std::vector<Verdict> _verdicts;
    std::map<int, Verdict> _decided;
    double _pen = 0.0; // in cells; 0: the drawing has no lines to speak of
    int _shape = 0;
};

} // namespace

FoundParts findParts(const std::vector<ShapeFacts>& facts, const Grid& grid)
{
    return PartFinder(facts, grid).find();
}
