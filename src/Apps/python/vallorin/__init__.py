# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Volume for flat drawings: normal maps and elevation as NumPy arrays.

    import vallorin
    maps = vallorin.normal_map(rgba)              # an array of height x width x 4 bytes, or the path of a drawing
    maps.normals, maps.elevation, maps.coverage   # arrays of float32

    scene = vallorin.Scene.open("walk.scene")
    for maps in scene.render(range(1, 25), width=960): ...

What does not work raises vallorin.Error, with the words that the command line says.
"""
from ._vallorin import Error, Maps, Scene, normal_map

__all__ = ["Error", "Maps", "Scene", "normal_map"]
