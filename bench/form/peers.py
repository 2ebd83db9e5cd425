# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Published ways from a flat drawing to normals, written for this benchmark from the papers' ideas.

Each takes coverage (and, where it works by parts, the mask of each part, in painting order) and gives normals (size, size, 3), y up.
Masks are booleans. Those that work by parts get the true parts, which a program has to find first.
"""
import numpy as np
from scipy import ndimage
from scipy.sparse import coo_matrix
from scipy.sparse.linalg import splu


def normals_of_height(height):
    down, right = np.gradient(height)
    return _unit(np.stack([-right, down, np.ones_like(height)], axis=-1))


def _unit(vectors):
    return vectors / np.maximum(np.linalg.norm(vectors, axis=-1, keepdims=True), 1e-12)


def flat(coverage):
    """A map that faces the viewer everywhere."""
    normals = np.zeros((*coverage.shape, 3))
    normals[..., 2] = 1
    return normals


def blurred_alpha(coverage):
    """Bump mapping (J. Blinn, Simulation of Wrinkled Surfaces, SIGGRAPH 1978) with the blurred coverage as height, as many sprite
    tools do. Width of the blur and height are the best on the tuned forms."""
    size = coverage.shape[0]
    return normals_of_height(BLUR_HEIGHT * size * ndimage.gaussian_filter(coverage, BLUR_SIGMA * size, mode="constant"))


def distance_bump(coverage):
    """Bump mapping with a quarter circle over the distance to the outline (A. Rosenfeld and J. Pfaltz, Distance Functions on Digital
    Pictures, 1968) as height. The circle's radius and height are the best on the tuned forms."""
    size = coverage.shape[0]
    radius = DISTANCE_RADIUS * size
    inner = np.maximum(1 - ndimage.distance_transform_edt(coverage >= 0.5) / radius, 0)
    height = DISTANCE_HEIGHT * radius * np.sqrt(1 - inner**2)
    return normals_of_height(ndimage.gaussian_filter(height, size / 256))


# In parts of the picture's width, but the last in parts of the circle's radius; found by tune_peers.py.
BLUR_SIGMA, BLUR_HEIGHT = 0.05, 0.2
DISTANCE_RADIUS, DISTANCE_HEIGHT = 0.4, 0.4


class PartSolver:
    """Laplace's equation on the pixels of a part, with given values on the ring of pixels around it."""

    def __init__(self, mask):
        self.mask = np.pad(mask, 1)
        self.index = np.full(self.mask.shape, -1)
        self.index[self.mask] = np.arange(self.mask.sum())
        self.place = np.nonzero(self.mask)
        rows, columns, values = [np.arange(len(self.place[0]))], [np.arange(len(self.place[0]))], [np.full(len(self.place[0]), 4.0)]
        for dy, dx in ((0, 1), (0, -1), (1, 0), (-1, 0)):
            other = self.index[self.place[0] + dy, self.place[1] + dx]
            inside = other >= 0
            rows.append(np.flatnonzero(inside))
            columns.append(other[inside])
            values.append(np.full(inside.sum(), -1.0))
        count = len(self.place[0])
        matrix = coo_matrix((np.concatenate(values), (np.concatenate(rows), np.concatenate(columns))), shape=(count, count)).tocsc()
        self.factors = splu(matrix, permc_spec="MMD_AT_PLUS_A", options={"SymmetricMode": True, "DiagPivotThresh": 0.0})

    def solve(self, source, around):
        """-laplace u = source, with u = around on the ring; arrays in the picture's shape padded by one."""
        right = np.full(len(self.place[0]), float(source))
        for dy, dx in ((0, 1), (0, -1), (1, 0), (-1, 0)):
            y, x = self.place[0] + dy, self.place[1] + dx
            right += np.where(self.mask[y, x], 0, around[y, x])
        result = np.zeros(self.mask.shape)
        result[self.place] = self.factors.solve(right)
        return result[1:-1, 1:-1]


def poisson_part(mask, solver):
    """The square root of the solution of Poisson's equation with 0 on the outline (P. Joshi and N. Carr, Repousse: Automatic Inflation
    of 2D Artwork, SBIM 2008): a disc becomes half a ball. The gradient is taken before the root, whose slope is infinite at the rim."""
    u = solver.solve(4.0, np.zeros(solver.mask.shape))
    down, right = np.gradient(u)
    root = np.sqrt(np.maximum(u, 1e-9))
    return _unit(np.stack([-right / (2 * root), down / (2 * root), np.ones_like(u)], axis=-1))


def lumo_part(mask, solver):
    """Normals lie in the picture on the outline and spread inwards (S. Johnston, Lumo: Illumination for Cel Animation, NPAR 2002)."""
    padded = np.pad(mask, 1)
    signed = ndimage.distance_transform_edt(padded) - ndimage.distance_transform_edt(~padded)
    down, right = np.gradient(ndimage.gaussian_filter(signed, 1.5))
    length = np.maximum(np.hypot(down, right), 1e-9)
    x, y = solver.solve(0, -right / length), solver.solve(0, down / length)
    planar = x * x + y * y
    shrink = 1 / np.sqrt(np.maximum(planar, 1))
    return np.stack([x * shrink, y * shrink, np.sqrt(np.maximum(1 - planar, 0))], axis=-1)


def by_parts(masks):
    """Poisson's and Lumo's normals, part over part in painting order."""
    size = masks[0].shape
    results = [flat(np.zeros(size)), flat(np.zeros(size))]
    for mask in masks:
        if not mask.any():
            continue
        solver = PartSolver(mask)
        for result, method in zip(results, (poisson_part, lumo_part)):
            result[mask] = method(mask, solver)[mask]
    return results
