// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each edge between a covered and an uncovered pixel leads from corner to corner, with the covered pixel on its right.
// For each corner, the directions of the edges that leave it are stored; following them gives the lines.
#include "studio/objects/CoverageOutline.h"

#include <bit>

namespace {

enum Direction : std::uint8_t
{
    RIGHT,
    DOWN,
    LEFT,
    UP
};

constexpr int kStepX[] = {1, 0, -1, 0};
constexpr int kStepY[] = {0, 1, 0, -1};

class Tracer
{
public:
    Tracer(const CoverageBits& coverage, OutlineForm form)
        : _coverage(coverage)
        , _inSteps(form == OutlineForm::STEPS)
        , _width(coverage.rect().width())
        , _height(coverage.rect().height())
        , _leaving(static_cast<std::size_t>(_width + 1) * static_cast<std::size_t>(_height + 1), 0)
    {}

    QPainterPath trace()
    {
        noteEdges();
        QPainterPath path;
        for (int y = 0; y <= _height; ++y)
            for (int x = 0; x <= _width; ++x)
                // Every line has an edge to the right in its uppermost row.
                while (leaving(x, y) & (1U << RIGHT))
                    follow(path, x, y);
        return path;
    }

private:
    std::uint8_t& leaving(int x, int y)
    {
        return _leaving[static_cast<std::size_t>(y) * static_cast<std::size_t>(_width + 1) +
                        static_cast<std::size_t>(x)];
    }
    void note(int x, int y, Direction direction) { leaving(x, y) |= static_cast<std::uint8_t>(1U << direction); }

    template<typename Function>
    static void forEachBit(std::uint64_t word, int first, const Function& function)
    {
        for (; word != 0; word &= word - 1)
            function(first + std::countr_zero(word));
    }

    void noteEdges()
    {
        const std::size_t words = _coverage.isEmpty() ? 0 : _coverage.row(_coverage.rect().y1).size();
        const std::vector<std::uint64_t> nothing(words, 0);
        const auto rowOf = [&](int y) -> std::span<const std::uint64_t> {
            return y < 0 || y >= _height ? nothing : _coverage.row(_coverage.rect().y1 + y);
        };
        for (int y = 0; y <= _height; ++y) {
            const auto here = rowOf(y);
            const auto above = rowOf(y - 1);
            std::uint64_t carry = 0;
            for (std::size_t i = 0; i < words; ++i) {
                const int first = static_cast<int>(64 * i);
                forEachBit(here[i] & ~above[i], first, [&](int x) { note(x, y, RIGHT); });
                forEachBit(above[i] & ~here[i], first, [&](int x) { note(x + 1, y, LEFT); });
                const std::uint64_t before = (here[i] << 1U) | carry;
                carry = here[i] >> 63U;
                forEachBit(here[i] & ~before, first, [&](int x) { note(x, y + 1, UP); });
                forEachBit(before & ~here[i], first, [&](int x) { note(x, y, DOWN); });
            }
            if (carry != 0)
                note(_width, y, DOWN);
        }
    }

    // If two edges leave the corner, the right turn stays with the same pixel.
    Direction next(int x, int y, Direction came)
    {
        for (const unsigned turn : {1U, 0U, 3U}) {
            const auto direction = static_cast<Direction>((came + turn) % 4U);
            if (leaving(x, y) & (1U << direction))
                return direction;
        }
        return came;
    }

    // The first edge is removed last, because reaching it closes the line.
    void follow(QPainterPath& path, int startX, int startY)
    {
        const QPointF corner(_coverage.rect().x1, _coverage.rect().y1);
        int x = startX;
        int y = startY;
        Direction direction = RIGHT;
        bool turned = true; // before this edge
        bool closed = false;
        while (!closed) {
            const double along = _inSteps ? 0.0 : 0.5;
            const QPointF point = corner + QPointF(x + along * kStepX[direction], y + along * kStepY[direction]);
            const bool isFirst = x == startX && y == startY && direction == RIGHT;
            x += kStepX[direction];
            y += kStepY[direction];
            const Direction on = next(x, y, direction);
            leaving(x, y) &= static_cast<std::uint8_t>(~(1U << on));
            // Points in the middle of a straight line are not needed.
            if (isFirst)
                path.moveTo(point);
            else if (turned || (on != direction && !_inSteps))
                path.lineTo(point);
            turned = on != direction;
            direction = on;
            closed = x == startX && y == startY && on == RIGHT;
        }
        path.closeSubpath();
    }

    const CoverageBits& _coverage;
    bool _inSteps;
    int _width;
    int _height;
    std::vector<std::uint8_t> _leaving;
};

} // namespace

QPainterPath outlineOf(const CoverageBits& coverage, OutlineForm form)
{
    return coverage.isEmpty() ? QPainterPath() : Tracer(coverage, form).trace();
}
