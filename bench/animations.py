#!/usr/bin/env python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""How long the import of animations takes beside the time in which rlottie draws all their frames.

    ./dev bench animations [--grown 5] ANIMATION.json...

rlottie (librlottie0-1) reads each animation and draws every frame at the animation's own size, on one thread; quarvel
imports it into a scene. The times are the shortest of several rounds, which take turns. With --grown each animation is
first made as large as so many megabytes, by repeating its layers.
"""
import argparse
import ctypes
import json
import math
import subprocess
import sys
import tempfile
import time
from pathlib import Path


def player() -> ctypes.CDLL:
    library = ctypes.CDLL("librlottie.so.0-1")
    library.lottie_animation_from_file.restype = ctypes.c_void_p
    library.lottie_animation_get_totalframe.restype = ctypes.c_size_t
    library.lottie_animation_get_totalframe.argtypes = [ctypes.c_void_p]
    library.lottie_animation_get_size.argtypes = [ctypes.c_void_p] + 2 * [ctypes.POINTER(ctypes.c_size_t)]
    library.lottie_animation_render.argtypes = [ctypes.c_void_p, ctypes.c_size_t, ctypes.c_void_p] + 3 * [ctypes.c_size_t]
    library.lottie_animation_destroy.argtypes = [ctypes.c_void_p]
    return library


def draw(library: ctypes.CDLL, animation: Path) -> tuple[float, int]:
    """Seconds and the number of frames."""
    start = time.perf_counter()
    handle = library.lottie_animation_from_file(str(animation).encode())
    if not handle:
        raise ValueError("rlottie does not read it")
    width, height = ctypes.c_size_t(), ctypes.c_size_t()
    library.lottie_animation_get_size(handle, ctypes.byref(width), ctypes.byref(height))
    frames = library.lottie_animation_get_totalframe(handle)
    pixels = ctypes.create_string_buffer(4 * width.value * height.value)
    for frame in range(frames):
        library.lottie_animation_render(handle, frame, pixels, width, height, 4 * width.value)
    taken = time.perf_counter() - start
    library.lottie_animation_destroy(handle)
    return taken, frames


def convert(program: str, animation: Path) -> float:
    with tempfile.TemporaryDirectory() as folder:
        start = time.perf_counter()
        done = subprocess.run([program, "import", "-q", str(animation), "-o", f"{folder}/a.scene"], capture_output=True,
                              text=True, check=False)
        if done.returncode != 0:
            raise ValueError(done.stderr.strip())
        return time.perf_counter() - start


def grown(animation: Path, megabytes: float, folder: Path) -> Path:
    document = json.loads(animation.read_text())
    layers = document["layers"]
    size = len(json.dumps(layers))
    times = max(1, math.ceil(megabytes * 1e6 / size))
    # Layers that others name by their numbers have other numbers in each repetition.
    most = 1 + max((layer.get("ind", 0) for layer in layers), default=0)
    document["layers"] = [
        {**layer, **{key: layer[key] + most * i for key in ("ind", "parent", "tp") if key in layer}}
        for i in range(times) for layer in layers]
    made = folder / animation.name
    made.write_text(json.dumps(document))
    return made


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", help="another quarvel than the built one")
    parser.add_argument("--default-program", help=argparse.SUPPRESS)
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("--grown", type=float, metavar="MEGABYTES")
    parser.add_argument("animations", nargs="+", type=Path)
    options = parser.parse_args()
    program = options.program or options.default_program
    if not program:
        parser.error("name the quarvel to measure with --program")
    library = player()
    ratios = []
    print("  drawn  import  times  frames      kB")
    for animation in options.animations:
        with tempfile.TemporaryDirectory() as folder:
            file = grown(animation, options.grown, Path(folder)) if options.grown else animation
            try:
                drawn, imported = [], []
                for _ in range(options.rounds):
                    seconds, frames = draw(library, file)
                    drawn.append(seconds)
                    imported.append(convert(program, file))
            except ValueError as why:
                print(f"{animation}: {why}")
                continue
            ratios.append(min(imported) / min(drawn))
            print(f"{min(drawn):7.2f} {min(imported):7.2f} {ratios[-1]:6.1f} {frames:7} {file.stat().st_size // 1000:7}  "
                  f"{animation.name}")
    if ratios:
        print(f"on average (geometric) {math.exp(sum(map(math.log, ratios)) / len(ratios)):.2f} times, at most {max(ratios):.2f}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
