# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""A form: parts in painting order, each a body with a colour. From it come its drawings and its true normals.

The surface at a point is that of the topmost part there; a decal (pupil, stripe, shade) is paint and leaves the surface below it.
"""
from dataclasses import dataclass, field
from functools import cached_property

import numpy as np

from bodies import Blend
from outlines import closed_outlines, filled, stroked

VIEW = 256.0
INK = "#231f20"


@dataclass
class Part:
    name: str
    body: object
    colour: str
    decal: bool = False
    opacity: float = 1.0
    pieces: int = 1  # the part is painted as this many shapes of one colour, which overlap

    @cached_property
    def outlines(self):
        return closed_outlines(self.body.outline, self.body.box)

    @cached_property
    def painted(self):
        """What is painted: the outlines of the pieces, each a list of loops."""
        if self.pieces == 1:
            return [self.outlines]
        x0, y0, x1, y1 = self.body.box
        along_x = x1 - x0 > y1 - y0
        low, high = (x0, x1) if along_x else (y0, y1)
        step, overlap = (high - low) / self.pieces, 3.0
        pieces = []
        for i in range(self.pieces):
            begin, end = low + i * step - overlap * (i > 0) - 9 * (i == 0), low + (i + 1) * step + 9 * (i == self.pieces - 1)

            def piece(x, y, begin=begin, end=end):
                place = x if along_x else y
                return np.maximum(self.body.outline(x, y), np.maximum(begin - place, place - end))

            pieces.append(closed_outlines(piece, self.body.box))
        return [piece for piece in pieces if piece]


def part(name, body, colour, **more):
    return Part(name, body, colour, **more)


def decal(name, body, colour, opacity=1.0):
    return Part(name, body, colour, decal=True, opacity=opacity)


@dataclass
class Form:
    name: str
    parts: list
    marks: list = field(default_factory=list)  # open lines of ink inside, lists of (x, y)
    sprite_ink: bool = False  # the sprite has ink lines too
    ink_width: float = 5.0
    fused: list = field(default_factory=list)  # (k, names of parts): their surfaces run into one another within k units

    @cached_property
    def surfaces(self):
        """The parts that are more than paint."""
        return [p for p in self.parts if not p.decal]

    @cached_property
    def ink(self):
        """(width, points) of the lines along the visible outline of each part, inside of it by half the width, and of the marks.

        Small parts have thinner lines, so that something is left of them.
        """
        lines = []
        for i, p in enumerate(self.surfaces):
            x0, y0, x1, y1 = p.body.box
            width = min(self.ink_width, 0.2 * min(x1 - x0, y1 - y0))
            for loop in p.outlines:
                lines += [(width, run) for run in self._visible(p, self._inset(p, loop, width), width, self.surfaces[i + 1:])]
        return lines + [(self.ink_width, np.array(mark, dtype=float)) for mark in self.marks]

    @staticmethod
    def _inset(p, loop, width):
        step = 0.05
        x, y = loop.T
        slope = np.stack([p.body.outline(x + step, y) - p.body.outline(x - step, y),
                          p.body.outline(x, y + step) - p.body.outline(x, y - step)], axis=1)
        slope /= np.maximum(np.linalg.norm(slope, axis=1, keepdims=True), 1e-12)
        return loop - 0.5 * width * slope

    @staticmethod
    def _visible(p, loop, width, above):
        """The runs of a loop that no part above hides and from which the ink stays inside of its own part, as it does not near a tip."""
        hidden = np.zeros(len(loop), dtype=bool)
        for a in np.arange(8) * np.pi / 4:
            reach = 0.42 * width * np.array([np.cos(a), np.sin(a)])
            hidden |= p.body.outline(*(loop + reach).T) > 0
        for other in above:
            hidden |= other.body.outline(*loop.T) < 0
        if not hidden.any():
            return [np.concatenate([loop, loop[:1]])]
        if hidden.all():
            return []
        # The loop is cut open at a hidden point, so that each visible run begins after a hidden point and ends before one.
        start = int(hidden.argmax())
        loop, hidden = np.roll(loop, -start, axis=0), np.roll(hidden, -start)
        edges = np.flatnonzero(np.diff(np.concatenate([hidden, [True]]).astype(int)))
        return [loop[a + 1:b + 1] for a, b in zip(edges[::2], edges[1::2], strict=True) if b - a > 2]

    def truth(self, size):
        """The true normals (size, size, 3), y up, and the number of the topmost part at each pixel's centre, -1 where there is none."""
        centres = (np.arange(size) + 0.5) * (VIEW / size)
        x, y = np.meshgrid(centres, centres)
        normals = np.zeros((size, size, 3))
        normals[..., 2] = 1
        top = np.full((size, size), -1)
        for number, p in enumerate(self.surfaces):
            inside = p.body.outline(x, y) < 0
            normals[inside] = p.body.normals(x[inside], y[inside])
            top[inside] = number
        for k, names in self.fused:
            numbers = [number for number, p in enumerate(self.surfaces) if p.name in names]
            inside = np.isin(top, numbers)
            normals[inside] = Blend(k, *(self.surfaces[number].body for number in numbers)).normals(x[inside], y[inside])
        return normals, top

    def coverage(self, size, samples=4):
        """How much of each pixel the form covers, 0 to 1, over all parts."""
        covered = np.zeros((size * samples, size * samples), dtype=bool)
        for p in self.surfaces:
            covered |= filled(p.outlines, size, samples)
        return _averaged(covered.astype(float), samples)

    def sprite(self, size, samples=4):
        """An antialiased bitmap, (size, size, 4) of uint8, not premultiplied."""
        count = size * samples
        colours, alpha = np.zeros((count, count, 3)), np.zeros((count, count))
        for p in self.parts:
            covered = filled(p.outlines, size, samples) & ((alpha > 0) if p.decal else True)
            colours[covered] = (1 - p.opacity) * colours[covered] + p.opacity * _rgb(p.colour)
            alpha[covered] = 1
        if self.sprite_ink:
            colours[stroked(self.ink, size, samples) & (alpha > 0)] = _rgb(INK)
        alpha_mean = _averaged(alpha, samples)
        mean = np.stack([_averaged(colours[..., c] * alpha, samples) for c in range(3)], axis=-1)
        mean /= np.maximum(alpha_mean, 1e-9)[..., None]
        return np.rint(np.concatenate([mean, alpha_mean[..., None] * 255], axis=-1)).astype(np.uint8)


def _averaged(values, samples):
    size = values.shape[0] // samples
    return values.reshape(size, samples, size, samples).mean(axis=(1, 3))


def _rgb(colour):
    return np.array([int(colour[i:i + 2], 16) for i in (1, 3, 5)], dtype=float)
