#!/usr/bin/python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""What a person waits for: whole runs of the program, from its start to its end, beside rsvg-convert on the same file.

    bench/whole_command.py --program build/release/bin/quarvel [DRAWING...]

Both programs run in turn on the same processors: first on one, then on two. rsvg-convert only draws the picture into an
8-bit PNG file. The figures of a run are the operating system's: time on the clock, processor time of the user and of the
system, the largest resident size. Every figure is the median of the runs. Memory is what a run takes above one that makes
a picture of 16 x 16 pixels. The other rows are ratios of two runs of the program: four times the work, and many drawings
or frames of a film on one processor and on two. A frame's time is also compared with what rlottie takes to draw it.
"""
import argparse
import json
import os
import statistics
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

import film

EXAMPLE = Path(__file__).resolve().parent.parent / "examples" / "hero.svg"
FORMS = {"default": [], "narrow": ["--shape", "rim"]}
BYTES_A_PIXEL = {"default": 28.0, "narrow": 20.0}  # narrow forms are rendered in 16 bits, wide ones in float
FOUR_TIMES = 4.6


@dataclass
class Run:
    wall: float  # seconds
    user: float
    system: float
    peak: int  # bytes

    @property
    def processor(self):
        return self.user + self.system


@dataclass
class Figure:
    name: str
    value: float
    goal: float
    at_least: bool = False

    @property
    def is_met(self):
        return self.value >= self.goal if self.at_least else self.value <= self.goal


def run(words, processors):
    """One run; its messages are thrown away, and what goes wrong ends the benchmark."""
    begin = time.monotonic()
    pinned = ["taskset", "--cpu-list", ",".join(map(str, processors)), *map(str, words)]
    with subprocess.Popen(pinned, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE) as process:
        said = process.stderr.read()
        _, status, usage = os.wait4(process.pid, 0)
        wall = time.monotonic() - begin
        process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"whole_command.py: {' '.join(map(str, words))} failed:\n{said.decode(errors='replace')}")
    return Run(wall, usage.ru_utime, usage.ru_stime, usage.ru_maxrss * 1024)


def in_turn(commands, processors, runs):
    """The median runs of several commands; the first round is not counted."""
    made = {name: [] for name in commands}
    for i in range(runs + 1):
        for name, words in commands.items():
            done = run(words, processors)
            if i > 0:
                made[name].append(done)
    middle = statistics.median
    return {
        name: Run(*(middle(getattr(one, field) for one in each) for field in ("wall", "user", "system", "peak")))
        for name, each in made.items()
    }


def pixels_of(png):
    header = Path(png).read_bytes()[16:24]
    return int.from_bytes(header[:4], "big") * int.from_bytes(header[4:], "big")


def counted(processors):
    return "1 processor" if processors == 1 else f"{processors} processors"


def print_run(name, done, bytes_a_pixel):
    print(f"{name:<52} {done.wall:8.3f} {done.user:8.3f} {done.system:8.3f} {done.peak / 1e6:9.0f} {bytes_a_pixel:9.1f}")


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


def shapes(count):
    """Small squares of eight colours in one layer, in rows."""
    squares = "".join(
        f"<rect x='{i * 7 % 509}' y='{i * 13 % 503}' width='3' height='3' fill='#{'0' * (i % 6)}{'c' * (6 - i % 6)}'/>"
        for i in range(count)
    )
    return f"<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 512 512'><g>{squares}</g></svg>"


def measure_growth(options, processors, folder):
    """Four times the shapes; processor time, which other work on the machine disturbs less."""
    figures = []
    counts = (16000, 64000)
    for count in counts:
        (folder / f"{count}.svg").write_text(shapes(count))
    for objects in ("one", "auto"):
        commands = {
            count: [options.program, "normalmap", folder / f"{count}.svg", "--size", 512, "--objects", objects]
            + ["-o", folder / "map.png"]
            for count in counts
        }
        made = in_turn(commands, processors, options.runs)
        for count, done in made.items():
            print_run(f"{count} shapes, 512, --objects {objects}", done, done.peak / 512 / 512)
        few, many = (made[count] for count in counts)
        name = f"--objects {objects}, 64,000 : 16,000 shapes"
        figures.append(Figure(f"{name}: time", many.processor / few.processor, FOUR_TIMES))
        figures.append(Figure(f"{name}: kilobytes a shape", (many.peak - few.peak) / (counts[1] - counts[0]) / 1e3, 2.5))
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


def two_processors():
    processors = sorted(os.sched_getaffinity(0))[:2]
    if len(processors) < 2:
        sys.exit("whole_command.py: this machine gives the benchmark one processor; it needs two")
    return processors


def parse():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("drawings", nargs="*", type=Path, help="SVG files; without any, the example")
    parser.add_argument("--program", help="the quarvel to measure")
    parser.add_argument("--default-program", help=argparse.SUPPRESS)
    parser.add_argument("--size", type=int, default=3840, help="the width of the pictures (3840)")
    parser.add_argument("--runs", type=int, default=5, help="counted runs of each command (5)")
    parser.add_argument("--many", type=int, default=48, help="drawings in one command (48)")
    parser.add_argument("--json", help="also write the figures to this file")
    options = parser.parse_args()
    options.program = options.program or options.default_program
    if not options.program:
        parser.error("name the program: --program PATH")
    options.drawings = options.drawings or [EXAMPLE]
    return options


def main():
    options = parse()
    processors = two_processors()
    print(f"{'run':<52} {'wall s':>8} {'user s':>8} {'system s':>8} {'peak MB':>9} {'B a pixel':>9}")
    figures = []
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for drawing in options.drawings:
            for count in (1, 2):
                figures += measure_drawing(drawing, options, processors[:count], folder)
        figures += measure_growth(options, processors, folder)
        figures += measure_many(options, processors, folder)
        figures += measure_film(options, processors, folder)
    print(f"\n{'figure':<68} {'value':>7} {'goal':>8}")
    for figure in figures:
        goal = f"{'>=' if figure.at_least else '<='} {figure.goal:g}"
        print(f"{figure.name:<68} {figure.value:7.2f} {goal:>8} {'met' if figure.is_met else 'missed'}")
    if options.json:
        rows = [{"figure": f.name, "value": f.value, "goal": f.goal, "met": f.is_met} for f in figures]
        Path(options.json).write_text(json.dumps(rows, indent=2) + "\n")


if __name__ == "__main__":
    main()
