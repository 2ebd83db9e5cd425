#!/usr/bin/env python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""How much of what drawings paint is read: compares coverage with that of an independent renderer.

    bench/coverage_agreement.py --program build/release/bin/quarvel --every 8 /usr/share/openclipart/svg

Every drawing is imported and painted at about 512 pixels on its longer side, at the size nearest to that at which the
page is whole pixels, and painted by rsvg-convert (librsvg2-bin) at the same size. The agreement of a drawing is 1 minus
the mean difference of coverage over all pixels. The worst ones are listed, then the share of drawings that reach 0.999
and 0.99, then those that were not compared, each with its reason.
"""
import argparse
import re
import subprocess
import sys
import tempfile
from pathlib import Path
from xml.etree import ElementTree

import numpy
from PIL import Image

SIDE = 512
SECONDS = 60


# Of an inch of 96 pixels; width and height need not have the same unit.
PIXELS = {"": 1.0, "px": 1.0, "pt": 96 / 72, "pc": 16.0, "mm": 96 / 25.4, "cm": 96 / 2.54, "in": 96.0, "em": 16.0, "ex": 8.0}


def page_of(drawing: Path) -> tuple[float, float]:
    """Width and height, in pixels."""
    root = ElementTree.parse(drawing).getroot()
    lengths = [re.fullmatch(r"\s*([\d.]+)\s*([a-z]*)\s*", root.get(name, "")) for name in ("width", "height")]
    if all(length and length.group(2) in PIXELS for length in lengths):
        return tuple(float(length.group(1)) * PIXELS[length.group(2)] for length in lengths)
    box = re.split(r"[\s,]+", root.get("viewBox", "0 0 1 1").strip())
    return float(box[2]), float(box[3])


def size_of(drawing: Path) -> tuple[int, int]:
    """A size at which the page is whole pixels, or nearly."""
    width, height = page_of(drawing)
    longer, shorter = max(width, height), min(width, height)

    def miss(side: int) -> float:
        other = side * shorter / longer
        return abs(other - round(other)) + abs(side - SIDE) / 1000

    side = min(range(SIDE - 40, SIDE + 41), key=miss)
    other = max(1, round(side * shorter / longer))
    return (side, other) if width >= height else (other, side)


class NotCompared(Exception):
    """Why."""


def run(*words: str) -> None:
    name = Path(words[0]).name
    try:
        done = subprocess.run(words, capture_output=True, timeout=SECONDS, check=False, text=True, errors="replace")
    except subprocess.TimeoutExpired:
        raise NotCompared(f"{name} {words[1]} takes more than {SECONDS} s") from None
    if done.returncode != 0:
        said = done.stderr.strip().splitlines()
        raise NotCompared(f"{name} ends with {done.returncode}: {said[-1] if said else 'nothing said'}")


def coverage(picture: Path) -> numpy.ndarray:
    return numpy.asarray(Image.open(picture).convert("RGBA"))[..., 3] / 255.0


def agreement(program: str, drawing: Path, folder: Path) -> float:
    """1 minus the mean difference; NotCompared when either program refuses the drawing."""
    theirs, scene, ours = folder / "theirs.png", folder / "scene", folder / "ours.0001.png"
    try:
        width, height = size_of(drawing)
    except (ElementTree.ParseError, ValueError, IndexError, ZeroDivisionError) as error:
        raise NotCompared(f"its size is not understood: {error}") from None
    run("rsvg-convert", "-w", str(width), "-h", str(height), str(drawing), "-o", str(theirs))
    wanted = coverage(theirs)
    run(program, "import", str(drawing), "-o", str(scene), "--objects", "one")
    run(program, "render", str(scene), "-o", str(folder / "ours.####.png"), "--frames", "1", "--node", "Drawing",
        "--as", "colours", "--resolution", f"{width}x{height}")
    return 1.0 - float(numpy.abs(coverage(ours) - wanted).mean())


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True)
    parser.add_argument("--every", type=int, default=1, help="take every N-th drawing only")
    parser.add_argument("folders", nargs="+", type=Path)
    options = parser.parse_args()
    drawings = sorted(path for folder in options.folders for path in
                      (folder.rglob("*.svg") if folder.is_dir() else [folder]))[::options.every]
    found: list[tuple[float, Path]] = []
    refused: list[tuple[str, Path]] = []
    for drawing in drawings:
        with tempfile.TemporaryDirectory() as folder:
            try:
                found.append((agreement(options.program, drawing, Path(folder)), drawing))
            except NotCompared as why:
                refused.append((str(why), drawing))
    for value, drawing in sorted(found)[:40]:
        print(f"{value:.4f} {drawing}")
    count = max(len(found), 1)
    for limit in (0.999, 0.99, 0.95):
        print(f"{sum(value >= limit for value, _ in found) / count:.3f} of {len(found)} drawings reach {limit}")
    print(f"{len(refused)} drawings were not compared")
    for why, drawing in refused:
        print(f"{drawing}: {why}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
