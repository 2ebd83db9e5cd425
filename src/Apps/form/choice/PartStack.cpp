// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A part's outline is that of its body; worn ink within its reach outside the outline belongs to the part as well.
#include "form/choice/PartStack.h"

#include "form/choice/InkReach.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

constexpr double kAlone = 0.6;      // of a shape's area: if more lies outside all parts, it is an object of its own
constexpr double kLeftOver = 0.004; // of a shape's area: if less lies outside all parts, one of them gets it
constexpr double kSeamCells = 0.6;  // overlapping cells permitted for each cell of contact
constexpr double kWhole = 0.995;    // of a shape's area: if this much lies inside a part, no clip is needed
constexpr double kOpaque = 0.99; // programs write opacities such as 0.996 for opaque areas: nobody sees through these
// How far a clipped mark continues outside the outline, in cells, so that the antialiased pixels of the outline show
// it.
constexpr double kOverlap = 0.5;

// So few cells of a shape may lie outside all parts.
double fewCells(const ShapeFacts& shape)
{
    return std::max(3.0, kLeftOver * shape.area);
}

} // namespace

int PartStack::insert(int shape, const Verdict& verdict, std::size_t place)
{
    const int index = static_cast<int>(_parts.size());
    Part part;
    part.body = {shape};
    part.region = facts(shape).mask;
    part.role = verdict.role;
    part.reason = verdict.reason;
    part.ink = verdict.kind == Verdict::Kind::INK;
    part.translucent = facts(shape).opacity < kOpaque;
    _parts.push_back(std::move(part));
    _order.insert(_order.begin() + static_cast<std::ptrdiff_t>(place), index);
    return index;
}

void PartStack::add(int shape, const Verdict& verdict)
{
    const int index = insert(shape, verdict, _order.size());
    _map.paint(facts(shape).mask, shape, index);
}

void PartStack::addBackdrop(int shape, const Verdict& verdict)
{
    changing(insert(shape, verdict, _order.size())).isBackdrop = true;
    _map.paint(facts(shape).mask, PartMap::kNone, PartMap::kNone);
}

void PartStack::extend(int index, int shape)
{
    changing(index).body.push_back(shape);
    changing(index).region.unite(facts(shape).mask);
    _map.paint(facts(shape).mask, shape, index);
}

bool PartStack::mayExtend(int index, const Surroundings& around) const
{
    // Where two areas abut, the cells along the seam may show either of them. Of hundreds of parts above, the shape
    // meets a few.
    const auto above = std::ranges::find(_order, index) + 1;
    const auto isHiddenBy = [&](const auto& met) {
        const Meeting& meeting = met.second;
        return meeting.overlap > std::max(4.0, kSeamCells * meeting.contact) &&
               std::find(above, _order.end(), met.first) != _order.end();
    };
    return std::ranges::none_of(around.parts, isHiddenBy);
}

const DistanceToCovered& PartStack::distancesTo(int index)
{
    Distances& distances = _distances[index];
    const Part& measured = part(index);
    if (distances.pieces != measured.body.size()) {
        const int margin = _map.bounds().width() / 8;
        const QRect box = measured.region.box().adjusted(-margin, -margin, margin, margin) & _map.bounds();
        distances = {DistanceToCovered(measured.region, box), measured.body.size()};
    }
    return distances.toRegion;
}

// The cells of a shape that show parts; the others are open to lines, and nobody's in other shapes.
std::vector<PartStack::Claim> PartStack::claimShown(int shape, OpenCells* open) const
{
    std::vector<Claim> claims;
    facts(shape).mask.forEachRun([&](int y, int from, int to) {
        _map.forEachStretch(y, from, to, [&](int first, int last, const ShownCell& cell) {
            if (open != nullptr && cell.part == PartMap::kNone)
                open->add(y, first, last);
            else
                claims.push_back({y, first, last, cell.part});
        });
    });
    return claims;
}

// The parts near a line, each with the widest reach; they are measured for its open cells.
InkReaches PartStack::widestReaches(int shape, OpenCells& open)
{
    const ShapeFacts& line = facts(shape);
    const double widest = widestReach(line);
    const int margin = static_cast<int>(std::ceil(widest));
    const QRect around = line.mask.box().adjusted(-margin, -margin, margin, margin);
    InkReaches reaches;
    for (const int index : _order)
        if (part(index).region.box().intersects(around) && !part(index).isBackdrop) {
            open.measure(index, distancesTo(index), widest);
            reaches[index] = widest;
        }
    return reaches;
}

// Assigns every cell of a line to a part: the part that the cell shows, or else the nearest that reaches it. A part
// keeps the widest reach where its own would leave cells to no part.
std::vector<PartStack::Claim> PartStack::claimLine(int shape, InkReaches& reaches)
{
    OpenCells open;
    std::vector<Claim> claims = claimShown(shape, &open);
    reaches = widestReaches(shape, open);
    const std::vector<int> most = open.claimed(reaches);
    std::set<int> wearers(most.begin(), most.end());
    for (const Claim& claim : claims)
        wearers.insert(claim.part);
    for (auto& [index, reach] : reaches)
        if (wearers.contains(index))
            reach = inkReach(facts(shape), distancesTo(index));
    std::map<int, int> lost;
    const std::vector<int> least = open.claimed(reaches);
    for (std::size_t i = 0; i < least.size(); ++i)
        if (least[i] != most[i] && least[i] == PartMap::kNone)
            ++lost[most[i]];
    for (const auto& [index, count] : lost)
        if (static_cast<double>(lost.size()) * count > fewCells(facts(shape)))
            reaches[index] = widestReach(facts(shape));
    const std::vector<int> owners = lost.empty() ? least : open.claimed(reaches);
    for (std::size_t i = 0; i < owners.size(); ++i) {
        const OpenCells::Cell& cell = open.cells()[i];
        const bool goesOn = !claims.empty() && claims.back().part == owners[i] && claims.back().y == cell.y &&
                            claims.back().to == cell.x;
        if (goesOn)
            ++claims.back().to;
        else
            claims.push_back({cell.y, cell.x, cell.x + 1, owners[i]});
    }
    return claims;
}

// A translucent shape must be painted once: not in two parts of which one is visible through the other.
bool PartStack::wouldShowTwice(int shape, const std::map<int, int>& cells, int unclaimed) const
{
    const auto isTranslucent = [&](const auto& entry) { return part(entry.first).translucent; };
    return facts(shape).opacity < 1.0 && (cells.size() > 1 || unclaimed > 0) &&
           std::ranges::any_of(cells, isTranslucent);
}

void PartStack::wear(int shape, const Surroundings& around, const Verdict& verdict)
{
    const ShapeFacts& worn = facts(shape);
    const bool ink = verdict.kind == Verdict::Kind::INK;
    InkReaches reaches;
    const std::vector<Claim> claims = ink ? claimLine(shape, reaches) : claimShown(shape, nullptr);
    std::map<int, int> cells;
    int unclaimed = 0;
    for (const Claim& claim : claims)
        (claim.part == PartMap::kNone ? unclaimed : cells[claim.part]) += claim.to - claim.from;
    if (unclaimed > kAlone * worn.area || cells.empty() || wouldShowTwice(shape, cells, unclaimed)) {
        standAlone(shape, around, verdict);
        return;
    }
    const int home = std::ranges::max_element(cells, {}, [](const auto& entry) { return entry.second; })->first;
    const bool solidMark = !ink && worn.opacity >= kSolid;
    const bool leftOver = !solidMark && unclaimed > fewCells(worn);
    for (const auto& [index, count] : cells) {
        Part& wearer = changing(index);
        const auto known = reaches.find(index);
        const double reach = known == reaches.end() ? 0.0 : known->second;
        const bool whole = !leftOver && (count + unclaimed >= kWhole * worn.area || (index == home && solidMark));
        wearer.worn.push_back({shape, whole, std::max(reach, wearer.border) + kOverlap});
        wearer.border = std::max(wearer.border, reach);
    }
    if (solidMark && unclaimed > kLeftOver * worn.area)
        growBy(shape, home);
    if (leftOver)
        layBeneath(shape, verdict, cells, claims);
    for (const Claim& claim : claims)
        if (claim.part != PartMap::kNone)
            _map.paint(claim.y, claim.from, claim.to, {claim.part, shape});
        else if (!leftOver)
            _map.paint(claim.y, claim.from, claim.to, {home, shape});
}

// Adds a mark that reaches outside its part to the part's body.
void PartStack::growBy(int shape, int home)
{
    Part& wearer = changing(home);
    std::erase_if(wearer.worn, [&](const WornShape& worn) { return worn.shape == shape; });
    wearer.body.push_back(shape);
    wearer.region.unite(facts(shape).mask);
}

void PartStack::standAlone(int shape, const Surroundings& around, Verdict verdict)
{
    const bool ink = verdict.kind == Verdict::Kind::INK;
    const auto goesOn = [&](const auto& met) {
        const Part& other = part(met.first);
        return other.ink && facts(other.body.front()).paint == facts(shape).paint && mayExtend(met.first, around);
    };
    if (const auto line = std::ranges::find_if(around.parts, goesOn); ink && line != around.parts.end()) {
        extend(line->first, shape);
        return;
    }
    verdict.reason = ink ? QStringLiteral("ink beside no part") : verdict.reason + QStringLiteral(" on no part");
    verdict.role = ink ? ObjectRole::BODY : ObjectRole::FLAT;
    add(shape, verdict);
}

void PartStack::layBeneath(int shape, const Verdict& verdict, const std::map<int, int>& cells,
                           const std::vector<Claim>& claims)
{
    const auto lowest = std::ranges::find_if(_order, [&](int index) { return cells.contains(index); });
    const bool ink = verdict.kind == Verdict::Kind::INK;
    Verdict own = verdict;
    own.reason = ink ? QStringLiteral("ink that goes on beside a part") : verdict.reason;
    own.role = ink ? ObjectRole::BODY : ObjectRole::FLAT;
    const int index = insert(shape, own, static_cast<std::size_t>(lowest - _order.begin()));
    for (const Claim& claim : claims)
        if (claim.part == PartMap::kNone)
            _map.paint(claim.y, claim.from, claim.to, {index, shape});
}
