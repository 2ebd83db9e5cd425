# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""How far normals are from the true ones."""
import numpy as np

_AROUND = np.radians(45 * np.arange(8))
LIGHTS = np.stack([np.cos(_AROUND), np.sin(_AROUND), np.ones(8)], axis=-1) / np.sqrt(2)  # eight lights, 45 degrees above the picture


def measure(normals, truth, covered):
    """(lighting error, mean angle in degrees, share tilted by more than 5 degrees) over the covered pixels."""
    found, true = normals[covered], truth[covered]
    lighting = np.abs(np.maximum(found @ LIGHTS.T, 0) - np.maximum(true @ LIGHTS.T, 0)).mean()
    angle = np.degrees(np.arccos(np.clip((found * true).sum(axis=-1), -1, 1))).mean()
    return np.array([lighting, angle, tilted(normals, covered)])


def tilted(normals, covered):
    return (normals[covered][:, 2] < np.cos(np.radians(5))).mean()


def normals_of_map(pixels):
    """Unit vectors of a 16-bit map in the tangent layout, y up; where the map covers nothing they face the viewer."""
    vectors = pixels[..., :3].astype(float) * (2 / 65535) - 1
    vectors[pixels[..., 3] == 0] = (0, 0, 1)
    return vectors / np.maximum(np.linalg.norm(vectors, axis=-1, keepdims=True), 1e-12)
