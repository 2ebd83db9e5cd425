# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Calls quarvel: a drawing becomes two pictures, a scene two sequences of them. Knows nothing of Blender."""

import json
import re
import shutil
import subprocess
from dataclasses import dataclass
from pathlib import Path


class Failed(Exception):
    """What went wrong, in words for people."""


@dataclass
class Made:
    """Pictures that were written: files, or the first ones of sequences."""

    name: str
    drawing: Path
    normals: Path
    first: int = 0
    frames: int = 0  # 0: no sequence


def _run(program, words):
    found = shutil.which(program)
    if not found:
        raise Failed(f"The program {program} is not there. Install Vallorin, or name it in the add-on's preferences.")
    done = subprocess.run([found, *words, "--json"], capture_output=True, text=True, check=False)
    if done.returncode == 0:
        return
    try:
        errors = [error["text"] for error in json.loads(done.stdout)["errors"]]
    except (ValueError, KeyError, TypeError):
        errors = []
    raise Failed("\n".join(errors) or done.stderr.strip() or f"{program} ended with {done.returncode}")


def _make_drawing(program, path, width, volume):
    # In a folder beside the drawing, so that the files are found again when the Blender file is opened elsewhere.
    folder = path.with_name(path.stem + "_maps")
    made = Made(path.stem, folder / f"{path.stem}_drawing.png", folder / f"{path.stem}_n.png")
    words = ["normalmap", str(path), "--for", "blender", "--volume", str(volume)]
    words += ["-o", str(made.normals), "--drawing", str(made.drawing)]
    _run(program, words + (["--size", str(width)] if width else []))
    return made


def _make_scene(program, path, width):
    folder = path.with_name(path.stem + "_maps")
    words = ["render", str(path), "--for", "blender", "--resume"]
    words += ["-o", str(folder / "n.####.png"), "--drawing", str(folder / "drawing.####.png")]
    _run(program, words + (["--resolution", str(width)] if width else []))
    numbers = sorted(int(match[1]) for file in folder.iterdir() if (match := re.fullmatch(r"n\.(-?\d+)\.png", file.name)))
    first = numbers[0]
    names = [folder / f"{kind}.{first:04d}.png" for kind in ("drawing", "n")]
    return Made(path.stem, names[0], names[1], first, len(numbers))


def make(program, path, width=0, volume=1.0):
    """Writes the pictures of a drawing, or of a scene's frames, into a folder beside it."""
    path = Path(path.rstrip("/\\"))
    if path.is_dir():
        return _make_scene(program, path, width)
    # A scene is a folder; people pick a file in it.
    if path.parent.suffix == ".scene":
        return _make_scene(program, path.parent, width)
    if not path.is_file():
        raise Failed(f"There is no file {path}.")
    return _make_drawing(program, path, width, volume)
