// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Asks of each shape in turn: is it ink (Ink), does it lie inside a part (InnerRules), does it continue one
// (JoinRules)?
#include "form/choice/PartFinder.h"

#include "form/choice/Bands.h"
#include "form/choice/Boards.h"
#include "form/choice/Flags.h"
#include "form/choice/Ink.h"
#include "form/choice/InnerFacts.h"
#include "form/choice/JoinRules.h"
#include "form/choice/PartStack.h"
#include "form/choice/Sheet.h"
#include "form/choice/Signs.h"
#include "form/choice/Wheels.h"
#include "form/raster/CutSides.h"

#include <algorithm>

namespace {

constexpr double kInside = 0.85; // of a shape's area
// Small pieces of what is printed on a board may reach beyond its rounded corners.
constexpr double kScrap = 0.02;         // of the board's area
constexpr double kInsideOfScraps = 0.5; // of the piece's area
constexpr double kBackdrop = 0.9;       // of the picture

Verdict verdictOf(Verdict::Kind kind, const char* reason, ObjectRole role = ObjectRole::BODY)
{
    return {kind, QString::fromLatin1(reason), role, -1};
}

class PartFinder
{
public:
    PartFinder(const std::vector<ShapeFacts>& facts, const Grid& grid)
        : _facts(facts), _grid(grid), _ink(facts, grid), _inner(facts, grid), _stack(facts, grid)
    {
        for (const ShapeFacts& shape : facts)
            if (_ink.isInk(shape))
                _stack.map().addInk(shape.mask);
        _sheet = sheetBeneath(facts, _ink);
    }

    FoundParts find()
    {
        for (std::size_t i = 0; i < _facts.size(); ++i) {
            _shape = static_cast<int>(i);
            if (facts().area == 0)
                continue;
            const Surroundings around = _stack.map().around(facts(), _facts);
            carryOut(judge(around), around);
        }
        return _stack.take();
    }

private:
    const ShapeFacts& facts(int shape) const { return _facts[static_cast<std::size_t>(shape)]; }
    const ShapeFacts& facts() const { return facts(_shape); }

    Verdict judge(const Surroundings& around)
    {
        using enum Verdict::Kind;
        if (const auto decided = _decided.find(_shape); decided != _decided.end())
            return decided->second;
        if (_ink.isInk(facts()))
            return verdictOf(INK, "ink");
        if (fillsPicture())
            return reachesCorners() ? verdictOf(OBJECT, "a backdrop", ObjectRole::FLAT)
                                    : verdictOf(OBJECT, "a tile", ObjectRole::SLAB);
        if (isSheet())
            return _sheet->kind == Sheet::Kind::PAPER
                       ? verdictOf(OBJECT, "the paper behind the drawing", ObjectRole::FLAT)
                       : verdictOf(OBJECT, "the board that the others lie on", ObjectRole::SLAB);
        if (liesInside(around))
            return judgeInside(around);
        if (facts().opacity < kSolid)
            return verdictOf(MARK, "a shadow or a shine", ObjectRole::FLAT);
        return judgeBeside(around);
    }

    // Whether the shape lies inside a part. An opaque shape on a translucent part, such as a shadow, does not count as
    // inside.
    bool liesInside(const Surroundings& around) const
    {
        if (around.base == Surroundings::kNone)
            return false;
        const Part& base = _stack.part(around.base);
        const bool isScrap = base.role == ObjectRole::SLAB && facts().area < kScrap * base.region.area();
        if (around.with(around.base).overlap < (isScrap ? kInsideOfScraps : kInside) * facts().area)
            return false;
        return facts().opacity < kSolid || !base.translucent;
    }

    // Whether the shape fills the picture, possibly except for the corners.
    bool fillsPicture() const
    {
        return facts().area > kBackdrop * _grid.width * _grid.height && cutSides(facts().mask, _grid.bounds()).all();
    }

    // Whether later shapes are judged as if the shape were not there.
    bool isBackground() const { return fillsPicture() || (isSheet() && _sheet->kind == Sheet::Kind::PAPER); }

    bool isSheet() const { return _sheet && _sheet->shape == _shape; }

    bool reachesCorners() const
    {
        const QRect all = _grid.bounds();
        const CellMask& mask = facts().mask;
        return mask.at(all.left(), all.top()) && mask.at(all.right(), all.top()) && mask.at(all.left(), all.bottom()) &&
               mask.at(all.right(), all.bottom());
    }

    // Siblings are decided together, so that one eye does not become an object and the other a mark.
    Verdict judgeInside(const Surroundings& around)
    {
        const Part& base = _stack.part(around.base);
        std::vector<int> siblings = _inner.siblings(_shape, base);
        std::erase_if(siblings, [&](int sibling) { return _ink.isInk(facts(sibling)); });
        std::vector<Verdict> verdicts;
        verdicts.reserve(siblings.size());
        for (const int sibling : siblings)
            verdicts.push_back(judgeInner(_inner.of(sibling, base, around, static_cast<int>(siblings.size()) - 1)));
        const auto isObject = [](const Verdict& verdict) { return verdict.kind == Verdict::Kind::OBJECT; };
        const auto objects = static_cast<std::size_t>(std::ranges::count_if(verdicts, isObject));
        Verdict chosen = verdicts.front();
        if (2 * objects >= verdicts.size())
            chosen = *std::ranges::find_if(verdicts, isObject);
        else if (isObject(chosen))
            chosen = verdictOf(Verdict::Kind::MARK, "as the others of its colour");
        for (const int sibling : siblings)
            _decided[sibling] = chosen;
        return chosen;
    }

    Verdict judgeBeside(const Surroundings& around) const
    {
        for (const auto& [index, meeting] : around.parts)
            if (const QString reason = joinsPart(facts(), _stack.part(index), _facts, meeting);
                !reason.isEmpty() && _stack.mayExtend(index, around))
                return {Verdict::Kind::MERGED, reason, ObjectRole::BODY, index};
        const Meeting most = around.with(around.base);
        if (most.overlap > 3 * most.contact)
            return verdictOf(Verdict::Kind::OBJECT, "a part over a part");
        return verdictOf(Verdict::Kind::OBJECT, around.parts.empty() ? "a part by itself" : "a part beside a part");
    }

    void carryOut(const Verdict& verdict, const Surroundings& around)
    {
        switch (verdict.kind) {
        case Verdict::Kind::OBJECT:
            if (isBackground())
                _stack.addBackdrop(_shape, verdict);
            else
                _stack.add(_shape, verdict);
            return;
        case Verdict::Kind::MERGED:
            _stack.extend(verdict.part, _shape);
            return;
        case Verdict::Kind::MARK:
        case Verdict::Kind::INK:
            _stack.wear(_shape, around, verdict);
            return;
        }
    }

    const std::vector<ShapeFacts>& _facts;
    const Grid& _grid;
    Ink _ink;
    InnerFacts _inner;
    PartStack _stack;
    std::optional<Sheet> _sheet;
    std::map<int, Verdict> _decided;
    int _shape = 0;
};

} // namespace

FoundParts findParts(const std::vector<ShapeFacts>& facts, const Grid& grid)
{
    FoundParts found = printedFlag(joinedBoards(joinedBands(PartFinder(facts, grid).find(), facts), facts), facts);
    findWheels(found, facts);
    findSigns(found, facts);
    return found;
}
