#!/usr/bin/env python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Lights a sprite from a side: its normals times the direction of the light.

    light_sprite.py sprite.png lit.png [AROUND [ABOVE]]

The light's angles are in degrees, as those of quarvel normalmap --light: 135 45 is the upper left. Wants Pillow.
"""
import sys

import numpy as np
from PIL import Image

import vallorin


def main() -> None:
    if not 3 <= len(sys.argv) <= 5:
        sys.exit(__doc__)
    source, result = sys.argv[1:3]
    around, above = (np.radians(float(word)) for word in (sys.argv[3:] + ["135", "45"][len(sys.argv) - 3 :])[:2])
    sprite = np.asarray(Image.open(source).convert("RGBA"))
    maps = vallorin.normal_map(sprite)

    light = np.array([np.cos(around) * np.cos(above), np.sin(around) * np.cos(above), np.sin(above)], dtype=np.float32)
    ambient = 0.25
    brightness = ambient + (1 - ambient) * np.clip(maps.normals @ light, 0, 1)
    # Light adds up in linear values, not in those of a file.
    colours = (sprite[..., :3] / 255.0) ** 2.2 * brightness[..., None]
    lit = np.dstack([np.round(255 * colours ** (1 / 2.2)).astype(np.uint8), sprite[..., 3]])
    Image.fromarray(lit).save(result)


main()
