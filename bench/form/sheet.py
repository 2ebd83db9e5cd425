#!/usr/bin/python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Puts many drawings on one picture, each beside its normal map and itself in the light, for a person to judge at a glance.

With --program given twice or more, each program's pictures stand side by side: before and after. Words after -- go to each
`quarvel normalmap`.
"""
import argparse
import math
import os
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor

from PIL import Image, ImageDraw, ImageFont

PAPER, INK, GROUND, FAULT = "#f4f4f2", "#202020", "#b4b4b4", "#b3261e"
FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
MARGIN, LABEL = 6, 16


def render(program, drawing, folder, size, words):
    """(normals, lit, drawing) as pictures, or what the program said when it failed."""
    os.makedirs(folder)
    files = [os.path.join(folder, name) for name in ("normals.png", "lit.png", "drawing.png")]
    command = [program, "normalmap", drawing, "-q", "-o", files[0], "--lit", files[1], "--drawing", files[2], "--size", f"{size}x{size}", *words]
    try:
        done = subprocess.run(command, capture_output=True, text=True, timeout=300, check=False)
    except subprocess.TimeoutExpired:
        return "no answer in five minutes"
    if done.returncode != 0:
        return (done.stderr.strip().splitlines() or [f"exit code {done.returncode}"])[-1]
    pictures = []
    for file in files:
        with Image.open(file) as picture:
            pictures.append(picture.convert("RGBA"))
    return pictures


def labels(drawings):
    """File names, with as many folders before them as it takes to tell them apart."""
    parts = [os.path.abspath(drawing).split(os.sep) for drawing in drawings]
    for count in range(1, 8):
        names = ["/".join(words[-count:]) for words in parts]
        if len(set(names)) == len(names):
            break
    return names


def put(sheet, picture, place):
    ground = Image.new("RGBA", picture.size, GROUND)
    ground.alpha_composite(picture)
    sheet.paste(ground.convert("RGB"), place)


def shortened(draw, text, font, width):
    """The text, with its middle left out where it is too wide."""
    kept = len(text)
    while kept > 3 and draw.textlength(text, font=font) > width:
        kept -= 1
        text = text[:kept // 2] + "…" + text[len(text) - kept // 2:]
    return text


def compose(results, names, programs, across, size):
    """The sheet. results[i][j] is what program j made of drawing i."""
    columns = 1 + 2 * len(programs)
    cell_width, cell_height = columns * size + 2 * MARGIN, size + LABEL + MARGIN
    across = min(across, len(names))
    top = LABEL * len(programs) + MARGIN if len(programs) > 1 else 0
    sheet = Image.new("RGB", (across * cell_width, top + math.ceil(len(names) / across) * cell_height + MARGIN), PAPER)
    draw = ImageDraw.Draw(sheet)
    font = ImageFont.truetype(FONT, 11) if os.path.exists(FONT) else ImageFont.load_default()
    if top:
        for j, program in enumerate(programs):
            draw.text((MARGIN, MARGIN + j * LABEL), f"normals and light {j + 1}: {program}", INK, font)
    for i, name in enumerate(names):
        x, y = (i % across) * cell_width + MARGIN, top + (i // across) * cell_height + MARGIN
        draw.text((x, y), shortened(draw, name, font, cell_width - 2 * MARGIN), INK, font)
        y += LABEL - 2
        for j, made in enumerate(results[i]):
            place = x + (1 + 2 * j) * size
            if isinstance(made, str):
                draw.multiline_text((place + 4, y + 4), "\n".join(made[k:k + size // 4] for k in range(0, len(made), size // 4)), FAULT, font)
                continue
            normals, lit, drawing = made
            put(sheet, drawing, (x, y))
            put(sheet, normals, (place, y))
            put(sheet, lit, (place + size, y))
    return sheet


def main():
    words = sys.argv[1:]
    passed_on = words[words.index("--") + 1:] if "--" in words else []
    words = words[:words.index("--")] if "--" in words else words
    parser = argparse.ArgumentParser(prog="./dev sheet", usage="%(prog)s OUT.png DRAWING... [options] [-- normalmap's options]",
                                     description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("out", metavar="OUT.png")
    parser.add_argument("drawings", nargs="+", metavar="DRAWING")
    parser.add_argument("--program", action="append", help="the quarvel to ask, instead of the one that ./dev builds; several stand side by side")
    parser.add_argument("--default-program", help=argparse.SUPPRESS)
    parser.add_argument("--across", type=int, default=3, help="drawings in a row (3)")
    parser.add_argument("--size", type=int, default=160, help="pixels of each picture (160)")
    options = parser.parse_args(words)
    if os.path.splitext(options.out)[1].lower() not in (".png", ".jpg", ".jpeg", ".webp"):
        parser.error(f"{options.out}: expected the name of a picture to write, such as sheet.png")
    absent = [drawing for drawing in options.drawings if not os.path.isfile(drawing)]
    if absent:
        parser.error(f"{absent[0]}: there is no such file")
    programs = [os.path.abspath(program) for program in options.program or [options.default_program]]

    with tempfile.TemporaryDirectory() as folder, ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = [[pool.submit(render, program, drawing, os.path.join(folder, f"{i}.{j}"), options.size, passed_on)
                 for j, program in enumerate(programs)] for i, drawing in enumerate(options.drawings)]
        results = [[job.result() for job in row] for row in jobs]
    compose(results, labels(options.drawings), programs, options.across, options.size).save(options.out)
    failed = sum(isinstance(made, str) for row in results for made in row)
    print(f"{options.out}: {len(options.drawings)} drawings" + (f", {failed} pictures failed" if failed else ""))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
