// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The lines are compared from the top down, each with those that begin above its lower end.
#include "QuarvelDrawingIO/private/DIO_PathCrossings.h"

#include <algorithm>
#include <vector>

namespace {

struct Line
{
    QPointF upper;
    QPointF lower;
    double left;
    double right;
};

void addLines(const QPainterPath& path, std::vector<Line>& lines)
{
    for (int i = 1; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const QPointF from = path.elementAt(i - 1);
        const QPointF to = element;
        if (element.isMoveTo() || from == to)
            continue;
        lines.push_back({from.y() < to.y() ? from : to, from.y() < to.y() ? to : from, std::min(from.x(), to.x()),
                         std::max(from.x(), to.x())});
    }
}

// Above 0 on one side of the line, below 0 on the other.
double sideOf(const Line& line, const QPointF& point)
{
    const QPointF along = line.lower - line.upper;
    const QPointF there = point - line.upper;
    return along.x() * there.y() - along.y() * there.x();
}

bool cross(const Line& a, const Line& b)
{
    return a.left <= b.right && b.left <= a.right && sideOf(a, b.upper) * sideOf(a, b.lower) < 0.0 &&
           sideOf(b, a.upper) * sideOf(b, a.lower) < 0.0;
}

} // namespace

int DIO_crossings(const QPainterPath& a, const QPainterPath& b, int most)
{
    std::vector<Line> lines;
    lines.reserve(static_cast<std::size_t>(a.elementCount()) + static_cast<std::size_t>(b.elementCount()));
    addLines(a, lines);
    addLines(b, lines);
    std::ranges::sort(lines, {}, [](const Line& line) { return line.upper.y(); });
    int crossings = 0;
    for (std::size_t i = 0; i < lines.size(); ++i)
        for (std::size_t j = i + 1; j < lines.size() && lines[j].upper.y() < lines[i].lower.y(); ++j)
            if (cross(lines[i], lines[j]) && ++crossings > most)
                return crossings;
    return crossings;
}
