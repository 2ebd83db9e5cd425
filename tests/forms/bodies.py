# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""The solids that the modelled forms are put together from.

Every body is symmetric about the plane of the picture, z = 0; the viewer looks along -z and sees its upper half. So its silhouette is
its cut with that plane, and each point inside has one height. Coordinates are drawing units, x right, y down, z towards the viewer; the
picture is 256 wide. Arrays in, arrays out, in double precision.

A body has
    box              (x0, y0, x1, y1), which holds the silhouette
    outline(x, y)    below 0 inside the silhouette, 0 on it, above 0 outside
    normals(x, y)    unit vectors (..., 3), y up, for points inside the silhouette
"""
import numpy as np


def _unit(x, y, z):
    """Stacks the components, with y turned upwards, and makes them unit vectors."""
    vectors = np.stack([x, -y, z], axis=-1)
    return vectors / np.maximum(np.linalg.norm(vectors, axis=-1, keepdims=True), 1e-300)


class Implicit:
    """A body that is given by a function value(x, y, z), below 0 inside, that grows with |z|."""

    depth = 0.0  # at least the greatest height

    def outline(self, x, y):
        return self.value(x, y, np.zeros_like(x))

    def height(self, x, y):
        low = np.zeros_like(x)
        high = np.full_like(x, self.depth * 1.01 + 1e-9)
        for _ in range(46):
            middle = 0.5 * (low + high)
            inside = self.value(x, y, middle) < 0
            low = np.where(inside, middle, low)
            high = np.where(inside, high, middle)
        return 0.5 * (low + high)

    def normals(self, x, y):
        z = self.height(x, y)
        step = 1e-4
        return _unit(*(self.value(x + step * a, y + step * b, z + step * c) - self.value(x - step * a, y - step * b, z - step * c)
                       for a, b, c in ((1, 0, 0), (0, 1, 0), (0, 0, 1))))


class Ellipsoid(Implicit):
    """Half axes a and b in the picture, turned by degrees clockwise; c towards the viewer, the smaller of the two unless given."""

    def __init__(self, cx, cy, a, b=None, c=None, turn=0.0):
        b = a if b is None else b
        self.centre, self.axes, self.turn = (cx, cy), (a, b, min(a, b) if c is None else c), turn
        self.depth = self.axes[2]
        angle = np.radians(turn)
        self.cos, self.sin = np.cos(angle), np.sin(angle)
        width, height = np.hypot(a * self.cos, b * self.sin), np.hypot(a * self.sin, b * self.cos)
        self.box = (cx - width, cy - height, cx + width, cy + height)

    def local(self, x, y):
        x, y = x - self.centre[0], y - self.centre[1]
        return x * self.cos + y * self.sin, y * self.cos - x * self.sin

    def value(self, x, y, z):
        a, b, c = self.axes
        u, v = self.local(x, y)
        return (np.sqrt((u / a) ** 2 + (v / b) ** 2 + (z / c) ** 2) - 1) * min(self.axes)

    def normals(self, x, y):
        a, b, c = self.axes
        u, v = self.local(x, y)
        w = c * np.sqrt(np.maximum(1 - (u / a) ** 2 - (v / b) ** 2, 0))
        u, v, w = u / a**2, v / b**2, w / c**2
        return _unit(u * self.cos - v * self.sin, u * self.sin + v * self.cos, w)


class Cap(Ellipsoid):
    """The top of a ball, stretched to an ellipse, that meets the plane at an angle of `rim` degrees: eyes, buttons, lenses."""

    def __init__(self, cx, cy, a, b=None, rim=55.0, turn=0.0):
        super().__init__(cx, cy, a, b, turn=turn)
        self.radius = 1 / np.sin(np.radians(rim))

    def normals(self, x, y):
        a, b, c = self.axes
        u, v = self.local(x, y)
        root = np.sqrt(np.maximum(self.radius**2 - (u / a) ** 2 - (v / b) ** 2, 1e-12))
        u, v = c * u / a**2 / root, c * v / b**2 / root
        return _unit(u * self.cos - v * self.sin, u * self.sin + v * self.cos, np.ones_like(u))


class RoundCone(Implicit):
    """The hull of two balls: fingers, arms, legs. With equal radii a capsule. After I. Quilez's exact distance."""

    def __init__(self, x1, y1, r1, x2, y2, r2=None):
        r2 = r1 if r2 is None else r2
        self.start, self.r1, self.r2 = (x1, y1), r1, r2
        self.length = float(np.hypot(x2 - x1, y2 - y1))
        self.along = ((x2 - x1) / self.length, (y2 - y1) / self.length)
        self.depth = max(r1, r2)
        self.box = (min(x1 - r1, x2 - r2), min(y1 - r1, y2 - r2), max(x1 + r1, x2 + r2), max(y1 + r1, y2 + r2))

    def value(self, x, y, z):
        x, y = x - self.start[0], y - self.start[1]
        t = x * self.along[0] + y * self.along[1]
        s = np.sqrt((y * self.along[0] - x * self.along[1]) ** 2 + z**2)
        b = (self.r1 - self.r2) / self.length
        a = np.sqrt(1 - b * b)
        k = t * a - s * b
        return np.where(k < 0, np.hypot(s, t) - self.r1,
                        np.where(k > a * self.length, np.hypot(s, t - self.length) - self.r2, s * a + t * b - self.r1))


class Torus(Implicit):
    """A ring that lies in the picture: R from the centre to the middle of the tube, r the tube's radius."""

    def __init__(self, cx, cy, R, r):
        self.centre, self.R, self.r, self.depth = (cx, cy), R, r, r
        self.box = (cx - R - r, cy - R - r, cx + R + r, cy + R + r)

    def value(self, x, y, z):
        return np.hypot(np.hypot(x - self.centre[0], y - self.centre[1]) - self.R, z) - self.r


class Lathe(Implicit):
    """A body turned about an axis in the picture: cones, bottles, pears, fish.

    The axis runs from (x1, y1) to (x2, y2); the profile is a list of (place along the axis 0..1, radius). Between them the square of
    the radius is a smooth curve, so that a radius of 0 at an end makes a round tip there; another radius at an end is a plain cut.
    """

    def __init__(self, x1, y1, x2, y2, profile):
        self.start = (x1, y1)
        self.length = float(np.hypot(x2 - x1, y2 - y1))
        self.along = ((x2 - x1) / self.length, (y2 - y1) / self.length)
        places, radii = np.array(profile, dtype=float).T
        self.places, self.squares = places * self.length, radii**2
        self.slopes = self._slopes()
        self.depth = radii.max() * 1.1
        reach = self.depth
        self.box = (min(x1, x2) - reach, min(y1, y2) - reach, max(x1, x2) + reach, max(y1, y2) + reach)

    def _slopes(self):
        """Tangents of a cubic that does not overshoot (Fritsch and Carlson, 1980, as the harmonic mean of both sides)."""
        steps = np.diff(self.places)
        chords = np.diff(self.squares) / steps
        slopes = np.empty_like(self.squares)
        slopes[0], slopes[-1] = chords[0], chords[-1]
        before, after = chords[:-1], chords[1:]
        same = before * after > 0
        slopes[1:-1] = np.where(same, 2 * before * after / np.where(same, before + after, 1), 0)
        # A round tip: the square of the radius rises from 0 like that of a ball.
        if self.squares[0] == 0:
            slopes[0] = 1.7 * chords[0]
        if self.squares[-1] == 0:
            slopes[-1] = 1.7 * chords[-1]
        return slopes

    def value(self, x, y, z):
        x, y = x - self.start[0], y - self.start[1]
        t = x * self.along[0] + y * self.along[1]
        s2 = (y * self.along[0] - x * self.along[1]) ** 2 + z**2
        i = np.clip(np.searchsorted(self.places, t) - 1, 0, len(self.places) - 2)
        step = self.places[i + 1] - self.places[i]
        u = np.clip((t - self.places[i]) / step, 0, 1)
        square = ((1 + 2 * u) * (1 - u) ** 2 * self.squares[i] + u * (1 - u) ** 2 * step * self.slopes[i]
                  + u * u * (3 - 2 * u) * self.squares[i + 1] + u * u * (u - 1) * step * self.slopes[i + 1])
        return np.maximum((s2 - square) / (2 * self.depth), np.maximum(-t, t - self.length))


class Blend(Implicit):
    """Bodies that run into one another within about k units (a polynomial smooth minimum); with k = 0 their plain union."""

    def __init__(self, k, *bodies):
        self.k, self.bodies = float(k), bodies
        boxes = np.array([body.box for body in bodies])
        self.box = (*(boxes[:, :2].min(axis=0) - k), *(boxes[:, 2:].max(axis=0) + k))
        self.depth = max(body.depth for body in bodies) + self.k

    def value(self, x, y, z):
        result = self.bodies[0].value(x, y, z)
        for body in self.bodies[1:]:
            other = body.value(x, y, z)
            if self.k > 0:
                h = np.clip(0.5 + 0.5 * (other - result) / self.k, 0, 1)
                result = other + (result - other) * h - self.k * h * (1 - h)
            else:
                result = np.minimum(result, other)
        return result


class Cut(Implicit):
    """A body without what lies beyond a line: outside where (x - px) * dx + (y - py) * dy > 0."""

    def __init__(self, body, px, py, dx, dy):
        self.body, self.box, self.depth = body, body.box, body.depth
        self.point, self.direction = (px, py), np.array([dx, dy]) / np.hypot(dx, dy)

    def outline(self, x, y):
        beyond = (x - self.point[0]) * self.direction[0] + (y - self.point[1]) * self.direction[1]
        return np.maximum(self.body.outline(x, y), beyond)

    def normals(self, x, y):
        return self.body.normals(x, y)


class Deep(Implicit):
    """A body that is `factor` times as deep towards the viewer: flatter below 1, fuller above."""

    def __init__(self, factor, body):
        self.factor, self.body, self.box, self.depth = factor, body, body.box, body.depth * factor

    def value(self, x, y, z):
        return self.body.value(x, y, z / self.factor)


class Plate:
    """A flat piece with a rounded rim: a polygon whose outline falls away in a quarter circle of radius `rim`."""

    def __init__(self, points, rim):
        self.points = np.array(points, dtype=float)
        self.rim = rim
        self.box = (*self.points.min(axis=0), *self.points.max(axis=0))

    def _nearest(self, x, y):
        """The signed distance, below 0 inside, and the point of the outline that is nearest."""
        best = np.full(x.shape, np.inf)
        nx, ny = np.zeros_like(x), np.zeros_like(y)
        inside = np.zeros(x.shape, dtype=bool)
        for (ax, ay), (bx, by) in zip(self.points, np.roll(self.points, -1, axis=0)):
            dx, dy = bx - ax, by - ay
            t = np.clip(((x - ax) * dx + (y - ay) * dy) / (dx * dx + dy * dy), 0, 1)
            px, py = ax + t * dx, ay + t * dy
            distance = (x - px) ** 2 + (y - py) ** 2
            nearer = distance < best
            best, nx, ny = np.where(nearer, distance, best), np.where(nearer, px, nx), np.where(nearer, py, ny)
            if ay != by:
                inside ^= ((ay > y) != (by > y)) & (x < ax + (y - ay) * dx / dy)
        return np.where(inside, -1, 1) * np.sqrt(best), nx, ny

    def outline(self, x, y):
        return self._nearest(x, y)[0]

    def normals(self, x, y):
        distance, px, py = self._nearest(x, y)
        inner = np.maximum(-distance, 1e-12)
        lean = np.clip(1 - inner / self.rim, 0, 1)
        return _unit(lean * (px - x) / inner, lean * (py - y) / inner, np.sqrt(1 - lean**2))


class Sunk:
    """The same outline, with the surface hollow instead of raised: mouths, sockets, windows."""

    def __init__(self, body):
        self.body, self.box = body, body.box

    def outline(self, x, y):
        return self.body.outline(x, y)

    def normals(self, x, y):
        return self.body.normals(x, y) * [-1, -1, 1]


class Lean:
    """The same outline, with the surface sheared towards the viewer: it rises by `right` and `up` per unit of way in the picture."""

    def __init__(self, body, right, up):
        self.body, self.box, self.slope = body, body.box, (right, up)

    def outline(self, x, y):
        return self.body.outline(x, y)

    def normals(self, x, y):
        n = self.body.normals(x, y)
        right, up = self.slope
        # The gradient of the height is (-n.x, -n.y) / n.z, and the slope adds to it.
        return _unit(n[..., 0] - right * n[..., 2], -(n[..., 1] - up * n[..., 2]), n[..., 2])


def polygon(count, cx, cy, radius, turn=0.0):
    """A regular polygon's corners."""
    angles = np.radians(turn) + 2 * np.pi * np.arange(count) / count
    return [(cx + radius * np.cos(a), cy + radius * np.sin(a)) for a in angles]


def disc(cx, cy, radius, b=None):
    """An ellipse's corners, for plates."""
    return [(x, cy + (y - cy) * (radius if b is None else b) / radius) for x, y in polygon(96, cx, cy, radius)]


def star(points, cx, cy, outer, inner, turn=-90.0):
    """A star's corners."""
    corners = polygon(2 * points, cx, cy, 1, turn)
    return [(cx + (x - cx) * r, cy + (y - cy) * r) for (x, y), r in zip(corners, [outer, inner] * points)]


def rounded(x0, y0, x1, y1, radius):
    """A rectangle's outline with rounded corners."""
    points = []
    for cx, cy, first in ((x1 - radius, y1 - radius, 0), (x0 + radius, y1 - radius, 90), (x0 + radius, y0 + radius, 180),
                          (x1 - radius, y0 + radius, 270)):
        for step in range(9):
            angle = np.radians(first + 90 * step / 8)
            points.append((cx + radius * np.cos(angle), cy + radius * np.sin(angle)))
    return points


def smooth(points, steps=12):
    """A closed curve through the points (Catmull and Rom)."""
    p = np.array(points, dtype=float)
    before, after, next_but_one = np.roll(p, 1, axis=0), np.roll(p, -1, axis=0), np.roll(p, -2, axis=0)
    curve = []
    for i in range(len(p)):
        for u in np.arange(steps) / steps:
            curve.append(0.5 * (2 * p[i] + (after[i] - before[i]) * u + (2 * before[i] - 5 * p[i] + 4 * after[i] - next_but_one[i]) * u**2
                                + (3 * p[i] - before[i] - 3 * after[i] + next_but_one[i]) * u**3))
    return curve
