# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""From a function of the plane to closed outlines, and from outlines to covered samples."""
import numpy as np


def closed_outlines(function, box, step=1.0):
    """The loops on which the function is 0, as arrays of points (n, 2) within a thousandth of a unit, by marching squares."""
    x0, y0, x1, y1 = (np.floor(box[0]) - 2.37, np.floor(box[1]) - 2.41, np.ceil(box[2]) + 2.4, np.ceil(box[3]) + 2.4)
    xs, ys = np.arange(x0, x1 + step, step), np.arange(y0, y1 + step, step)
    values = function(*np.meshgrid(xs, ys))
    inside = values < 0
    points, place = _crossings(function, xs, ys, inside)
    return _linked(points, place, inside)


def _crossings(function, xs, ys, inside):
    """The points where the function changes its sign along the grid's lines, and the table from line to point."""
    rows, columns = np.nonzero(inside[:, :-1] != inside[:, 1:])
    across = np.stack([xs[columns], ys[rows], xs[columns + 1], ys[rows]], axis=1)
    place = {(0, r, c): i for i, (r, c) in enumerate(zip(rows.tolist(), columns.tolist()))}
    starts_inside = inside[rows, columns]
    rows, columns = np.nonzero(inside[:-1, :] != inside[1:, :])
    down = np.stack([xs[columns], ys[rows], xs[columns], ys[rows + 1]], axis=1)
    place.update({(1, r, c): i + len(across) for i, (r, c) in enumerate(zip(rows.tolist(), columns.tolist()))})
    starts_inside = np.concatenate([starts_inside, inside[rows, columns]])
    lines = np.concatenate([across, down])
    low, high = np.zeros(len(lines)), np.ones(len(lines))
    for _ in range(14):
        middle = 0.5 * (low + high)
        x, y = lines[:, 0] + middle * (lines[:, 2] - lines[:, 0]), lines[:, 1] + middle * (lines[:, 3] - lines[:, 1])
        as_start = (function(x, y) < 0) == starts_inside
        low, high = np.where(as_start, middle, low), np.where(as_start, high, middle)
    middle = (0.5 * (low + high))[:, None]
    return lines[:, :2] + middle * (lines[:, 2:] - lines[:, :2]), place


def _linked(points, place, inside):
    """Joins the crossings cell by cell, and the pieces to loops."""
    code = (inside[:-1, :-1] * 1 + inside[:-1, 1:] * 2 + inside[1:, 1:] * 4 + inside[1:, :-1] * 8)
    neighbours = {}
    for r, c in zip(*(a.tolist() for a in np.nonzero((code != 0) & (code != 15)))):
        top, right, bottom, left = (0, r, c), (1, r, c + 1), (0, r + 1, c), (1, r, c)
        # Two corners that meet diagonally stay apart.
        pairs = {5: [(top, left), (right, bottom)], 10: [(top, right), (bottom, left)]}.get(int(code[r, c]))
        if pairs is None:
            pairs = [tuple(edge for edge in (top, right, bottom, left) if edge in place)]
        for a, b in pairs:
            neighbours.setdefault(place[a], []).append(place[b])
            neighbours.setdefault(place[b], []).append(place[a])
    loops, seen = [], set()
    for first in neighbours:
        if first in seen:
            continue
        loop, previous, here = [], None, first
        while here not in seen:
            seen.add(here)
            loop.append(here)
            a, b = neighbours[here]
            previous, here = here, (b if a == previous else a)
        if len(loop) > 2:
            loops.append(points[loop])
    return loops


def simplified(points, tolerance=0.03):
    """Fewer points of an open line, none of those left out further from it than the tolerance (Douglas and Peucker, 1973)."""
    keep = np.zeros(len(points), dtype=bool)
    keep[0] = keep[-1] = True
    spans = [(0, len(points) - 1)]
    while spans:
        a, b = spans.pop()
        if b - a < 2:
            continue
        line, middle = points[b] - points[a], points[a + 1:b] - points[a]
        length = np.hypot(*line)
        distance = np.hypot(middle[:, 0], middle[:, 1]) if length < 1e-9 else np.abs(middle[:, 0] * line[1] - middle[:, 1] * line[0]) / length
        worst = int(distance.argmax())
        if distance[worst] > tolerance:
            worst += a + 1
            keep[worst] = True
            spans += [(a, worst), (worst, b)]
    return points[keep]


def curve(loop, span=8):
    """A closed loop as an artist's tool would hold it: a list of cubic pieces (start, handle, handle, end), with nodes at corners and
    every `span` steps between them."""
    points = _evenly(loop)
    count = len(points)
    before, after = points - np.roll(points, 2, axis=0), np.roll(points, -2, axis=0) - points
    turn = np.abs(np.arctan2(before[:, 0] * after[:, 1] - before[:, 1] * after[:, 0], (before * after).sum(axis=1)))
    sharpest = np.max([np.roll(turn, shift) for shift in range(-3, 4)], axis=0)
    corners = np.flatnonzero((turn > np.radians(32)) & (turn == sharpest))
    nodes = [(int(corners[0]) if len(corners) else 0)]
    for corner in [*corners[1:].tolist(), nodes[0] + count]:
        pieces = max(1, round((corner - nodes[-1]) / span))
        nodes += np.rint(np.linspace(nodes[-1], corner, pieces + 1)[1:]).astype(int).tolist()
    is_corner = np.zeros(count, dtype=bool)
    is_corner[corners] = True

    def at(i):
        return points[i % count]

    def handle(node, way, length):
        # At a corner the tangent comes from one side alone.
        slope = (4 * at(node + way) - 3 * at(node) - at(node + 2 * way)) / 2 if is_corner[node % count] else (at(node + way) - at(node - way)) / 2
        return at(node) + slope * length / 3

    return [(at(a), handle(a, 1, b - a), handle(b, -1, b - a), at(b)) for a, b in zip(nodes[:-1], nodes[1:])]


def _evenly(loop):
    """The loop's points again, about a unit apart, at least 80 of them."""
    closed = np.concatenate([loop, loop[:1]])
    way = np.concatenate([[0], np.cumsum(np.hypot(*np.diff(closed, axis=0).T))])
    count = max(80, int(way[-1]))
    places = np.arange(count) * way[-1] / count
    return np.stack([np.interp(places, way, closed[:, 0]), np.interp(places, way, closed[:, 1])], axis=1)


def filled(loops, size, samples, view=256.0):
    """Which samples of a square picture lie inside the loops (even-odd): (size * samples) squared booleans."""
    count = size * samples
    toggles = np.zeros((count, count + 1), dtype=np.int32)
    scale = count / view
    for loop in loops:
        a = loop * scale - 0.5
        b = np.roll(a, -1, axis=0)
        first, last = np.ceil(np.minimum(a[:, 1], b[:, 1])).astype(int), np.ceil(np.maximum(a[:, 1], b[:, 1])).astype(int)
        first, last = np.clip(first, 0, count), np.clip(last, 0, count)
        lengths = last - first
        edges = np.repeat(np.arange(len(a)), lengths)
        rows = np.arange(len(edges)) - np.repeat(np.cumsum(lengths) - lengths, lengths) + first[edges]
        t = (rows - a[edges, 1]) / (b[edges, 1] - a[edges, 1])
        columns = np.clip(np.ceil(a[edges, 0] + t * (b[edges, 0] - a[edges, 0])), 0, count).astype(int)
        np.add.at(toggles, (rows, columns), 1)
    return (np.cumsum(toggles[:, :-1], axis=1) & 1).astype(bool)


def stroked(lines, size, samples, view=256.0):
    """Which samples lie within half the width of open lines, each (width, points), with round ends."""
    count = size * samples
    covered = np.zeros((count, count), dtype=bool)
    scale = count / view
    for width, line in lines:
        half = 0.5 * width * scale
        for (ax, ay), (bx, by) in zip(line[:-1] * scale - 0.5, line[1:] * scale - 0.5):
            x0, x1 = int(max(np.floor(min(ax, bx) - half), 0)), int(min(np.ceil(max(ax, bx) + half) + 1, count))
            y0, y1 = int(max(np.floor(min(ay, by) - half), 0)), int(min(np.ceil(max(ay, by) + half) + 1, count))
            if x0 >= x1 or y0 >= y1:
                continue
            x, y = np.arange(x0, x1)[None, :] - ax, np.arange(y0, y1)[:, None] - ay
            dx, dy = bx - ax, by - ay
            t = np.clip((x * dx + y * dy) / max(dx * dx + dy * dy, 1e-12), 0, 1)
            covered[y0:y1, x0:x1] |= (x - t * dx) ** 2 + (y - t * dy) ** 2 <= half * half
    return covered
