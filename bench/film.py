#!/usr/bin/python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""A film to measure with: an animation in the Lottie format, and how long rlottie takes to draw it.

    bench/film.py FILE WIDTH HEIGHT   draws every frame with rlottie and prints the seconds that a frame takes
"""
import ctypes
import ctypes.util
import json
import math
import sys
import time

FRAMES = 24
WIDTH, HEIGHT = 960, 540


def still(value):
    return {"a": 0, "k": value}


def moving(values):
    """A property with a key at each of some frames that are evenly apart. rlottie takes a last key with a curve for one that
    ends at frame 0, and stands still."""
    step = FRAMES / (len(values) - 1)
    keys = [{"t": i * step, "s": value, "i": {"x": [0.6], "y": [1]}, "o": {"x": [0.4], "y": [0]}} for i, value in enumerate(values)]
    keys[-1] = {"t": FRAMES, "s": values[-1]}
    return {"a": 1, "k": keys}


def group(shape, colour):
    unmoved = {"ty": "tr", "p": still([0, 0]), "a": still([0, 0]), "s": still([100, 100]), "r": still(0), "o": still(100)}
    return {"ty": "gr", "it": [shape, {"ty": "fl", "c": still([*colour, 1]), "o": still(100), "r": 1}, unmoved]}


def star(points, outer, inner):
    angles = [math.pi * i / points for i in range(2 * points)]
    corners = [[r * math.cos(a), r * math.sin(a)] for a, r in zip(angles, [outer, inner] * points)]
    straight = [[0, 0]] * len(corners)
    return {"ty": "sh", "ks": still({"i": straight, "o": straight, "v": corners, "c": True})}


def ellipse(width, height):
    return {"ty": "el", "p": still([0, 0]), "s": still([width, height])}


def layer(name, shapes, place, turn=None, size=None):
    transform = {"o": still(100), "r": turn or still(0), "p": place, "a": still([0, 0, 0]), "s": size or still([100, 100, 100])}
    return {"ty": 4, "nm": name, "ddd": 0, "ks": transform, "shapes": shapes, "ip": 0, "op": FRAMES, "st": 0, "bm": 0}


def film():
    """A face that bounces and is squashed, with a turning star beside it: every frame differs."""
    bounce = moving([[300, 150, 0], [300, 380, 0], [300, 150, 0]])
    squash = moving([[100, 100, 100], [125, 75, 100], [100, 100, 100]])
    layers = [
        layer("Eyes", [group(ellipse(40, 60), (0.1, 0.1, 0.2))], bounce, None, squash),
        layer("Head", [group(ellipse(280, 260), (0.9, 0.6, 0.3))], bounce, None, squash),
        layer("Star", [group(star(7, 180, 90), (0.2, 0.5, 0.8))], still([700, 260, 0]), moving([[0], [180]])),
        layer("Ground", [group(ellipse(1400, 160), (0.3, 0.6, 0.3))], moving([[460, 540, 0], [500, 520, 0], [460, 540, 0]])),
    ]
    return {"v": "5.5.0", "fr": 24, "ip": 0, "op": FRAMES, "w": WIDTH, "h": HEIGHT, "ddd": 0, "assets": [], "layers": layers}


def write_film(path):
    path.write_text(json.dumps(film()))


def draw(path, width, height):
    """Draws every frame; seconds for one of them."""
    library = ctypes.CDLL(ctypes.util.find_library("rlottie"))
    library.lottie_animation_from_file.restype = ctypes.c_void_p
    library.lottie_animation_render.argtypes = [ctypes.c_void_p, ctypes.c_size_t, ctypes.c_void_p] + 3 * [ctypes.c_size_t]
    animation = library.lottie_animation_from_file(path.encode())
    if not animation:
        sys.exit(f"film.py: rlottie cannot read {path}")
    picture = ctypes.create_string_buffer(width * height * 4)

    def render(frame):
        library.lottie_animation_render(animation, frame, picture, width, height, width * 4)
        return picture.raw

    if len({render(frame) for frame in range(FRAMES)}) < FRAMES:
        sys.exit(f"film.py: two frames of {path} are equal, so that they would not be rendered twice")
    begin = time.monotonic()
    for frame in range(FRAMES):
        library.lottie_animation_render(animation, frame, picture, width, height, width * 4)
    return (time.monotonic() - begin) / FRAMES


if __name__ == "__main__":
    print(draw(sys.argv[1], int(sys.argv[2]), int(sys.argv[3])))
