#!/usr/bin/python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""What a person waits for: whole runs of the program, from its start to its end, beside rsvg-convert on the same file.

    bench/whole_command.py --program build/release/bin/quarvel [DRAWING...]

Both programs run in turn on the same processors: first on one, then on two. rsvg-convert only draws the picture into an
8-bit PNG file. The figures of a run are the operating system's: time on the clock, processor time of the user and of the
system, the largest resident size. Every figure is the median of the runs. Memory is what a run takes above one that makes
a picture of 16 x 16 pixels. The other rows are ratios of two runs of the program: many drawings or frames of a film on one
processor and on two. A frame's time is also compared with what rlottie takes to draw it.
"""
import argparse
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

import film
from whole_runs import Figure, add_program, in_turn, parse_with_program, print_heading, print_run, processors_to_use, report, run

EXAMPLE = Path(__file__).resolve().parent.parent / "examples" / "hero.svg"
FORMS = {"default": [], "narrow": ["--shape", "rim"]}
BYTES_A_PIXEL = {"default": 28.0, "narrow": 20.0}  # narrow forms are rendered in 16 bits, wide ones in float


def pixels_of(png):
    header = Path(png).read_bytes()[16:24]
    return int.from_bytes(header[:4], "big") * int.from_bytes(header[4:], "big")


def counted(processors):
    return "1 processor" if processors == 1 else f"{processors} processors"


def measure_drawing(drawing, options, processors, folder):
    """One drawing in each form, beside rsvg-convert."""
    map_file, drawn = folder / "map.png", folder / "drawn.png"
    figures = []
    for form, words in FORMS.items():
        ours = [options.program, "normalmap", drawing, "--size", options.size, "-o", map_file, *words]
        small = run([options.program, "normalmap", drawing, "--size", 16, "-o", folder / "small.png", *words], processors)
        theirs = ["rsvg-convert", "--width", options.size, "--keep-aspect-ratio", "-o", drawn, drawing]
        made = in_turn({"quarvel": ours, "rsvg-convert": theirs}, processors, options.runs)
        pixels = pixels_of(map_file)
        name = f"{drawing.name}, {options.size}, {form}, {counted(len(processors))}"
        for program, done in made.items():
            print_run(f"{name}, {program}", done, (done.peak - small.peak if program == "quarvel" else done.peak) / pixels)
        own, peer = made["quarvel"], made["rsvg-convert"]
        figures.append(Figure(f"{name}: time : rsvg-convert's", own.wall / peer.wall, 1.0 if len(processors) == 1 else 0.7))
        figures.append(Figure(f"{name}: bytes a pixel", (own.peak - small.peak) / pixels, BYTES_A_PIXEL[form]))
    return figures


def measure_many(options, processors, folder):
    """The same drawing under many names in one command."""
    drawings = folder / "many"
    drawings.mkdir()
    for i in range(options.many):
        (drawings / f"{i}.svg").write_bytes(EXAMPLE.read_bytes())
    words = [options.program, "normalmap", drawings, "--size", 512, "-o", folder / "maps"]
    made = {count: in_turn({"all": words}, processors[:count], options.runs)["all"] for count in (1, 2)}
    for count, done in made.items():
        print_run(f"{options.many} drawings, 512, {counted(count)}", done, done.peak / 512 / 512)
    return [Figure(f"{options.many} drawings: time on one processor : on two", made[1].wall / made[2].wall, 1.8, at_least=True)]


def rlottie_frame(film_file, size, processors, runs):
    """Seconds that rlottie takes to draw a frame."""
    words = [sys.executable, Path(film.__file__), film_file, *size]
    pinned = ["taskset", "--cpu-list", ",".join(map(str, processors)), *map(str, words)]
    return statistics.median(float(subprocess.run(pinned, capture_output=True, check=True).stdout) for _ in range(runs))


def measure_film(options, processors, folder):
    """The frames of an animation at 1080p, painted, rendered and encoded; each of them differs."""
    size = (1920, 1080)
    film_file, scene = folder / "film.json", folder / "film.scene"
    film.write_film(film_file)
    run([options.program, "import", film_file, "-o", scene], processors)
    words = [options.program, "render", scene, "-o", folder / "frame.####.png", "--resolution", "x".join(map(str, size)), "--frames"]
    commands = {"first": [*words, "1"], "all": [*words, f"1-{film.FRAMES}"]}
    made = {count: in_turn(commands, processors[:count], options.runs) for count in (1, 2)}
    for count, done in made.items():
        print_run(f"{film.FRAMES} frames, 1080p, {counted(count)}", done["all"], done["all"].peak / size[0] / size[1])
    frame = (made[2]["all"].wall - made[2]["first"].wall) / (film.FRAMES - 1)
    return [
        Figure("a film at 1080p: time on one processor : on two", made[1]["all"].wall / made[2]["all"].wall, 1.8, at_least=True),
        Figure("a film's frame, two processors : rlottie draws it", frame / rlottie_frame(film_file, size, processors, options.runs), 2.0),
    ]


def parse():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("drawings", nargs="*", type=Path, help="SVG files; without any, the example")
    add_program(parser)
    parser.add_argument("--size", type=int, default=3840, help="the width of the pictures (3840)")
    parser.add_argument("--many", type=int, default=48, help="drawings in one command (48)")
    options = parse_with_program(parser)
    options.drawings = options.drawings or [EXAMPLE]
    return options


def main():
    options = parse()
    processors = processors_to_use(2)
    print_heading("B a pixel")
    figures = []
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for drawing in options.drawings:
            for count in (1, 2):
                figures += measure_drawing(drawing, options, processors[:count], folder)
        figures += measure_many(options, processors, folder)
        figures += measure_film(options, processors, folder)
    report(figures, options.json)


if __name__ == "__main__":
    main()
