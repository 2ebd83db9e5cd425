#!/usr/bin/python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""How the time of whole commands grows: four times the shapes, colours, layers, groups, objects, frames, keys.

    bench/growth.py --program build/release/bin/quarvel [NAME...]

The pictures are small, so that the work for each shape, layer and so on is most of the run. Times are processor time, which
other work on the machine disturbs less than the clock.
"""
import argparse
import tempfile
from dataclasses import dataclass
from pathlib import Path
from typing import Callable

from whole_runs import Figure, add_program, in_turn, parse_with_program, print_heading, print_run, processors_to_use, report, run

TIMES = 4
GOAL = 4.6  # linear growth, with some room for what does not fit the caches any more
KILOBYTES_A_SHAPE = 2.5


@dataclass
class Work:
    """One kind of work: command(program, folder, count) makes what is needed and returns the command to measure."""

    name: str
    few: int
    command: Callable
    kilobytes_each: float = 0.0  # the goal; 0 for none


def small_square(i, fill):
    return f"<rect x='{i * 7 % 509}' y='{i * 13 % 503}' width='3' height='3' fill='{fill}'/>"


def few_colours(i):
    return f"#{'0' * (i % 6)}{'c' * (6 - i % 6)}"


def many_colours(i):
    return f"#{i * 2654435761 & 0xFFFFFF:06x}"  # an odd factor: no colour comes twice


def drawing(parts):
    names = "xmlns='http://www.w3.org/2000/svg' xmlns:inkscape='http://www.inkscape.org/namespaces/inkscape'"
    return f"<svg {names} viewBox='0 0 512 512'>{''.join(parts)}</svg>"


def squares_in_one_group(colour_of):
    return lambda count: drawing(["<g>", *(small_square(i, colour_of(i)) for i in range(count)), "</g>"])


def one_colour(_):
    return "#80a0c0"


def squares_in_groups(attributes, colour_of=one_colour):
    return lambda count: drawing(f"<g id='part{i}' {attributes}>{small_square(i, colour_of(i))}</g>" for i in range(count))


def growing_disc(i):
    return f"<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 16 16'><circle cx='8' cy='8' r='{2 + i % 500 / 100}'/></svg>"


def normal_map(drawing_of, size, objects):
    def command(program, folder, count):
        source = folder / "drawing.svg"
        source.write_text(drawing_of(count))
        return [program, "normalmap", source, "--size", size, "--objects", objects, "-o", folder / "map.png"]

    return command


def scene_of_drawing(program, folder, drawing_of, count, words):
    source, scene = folder / "drawing.svg", folder / "a.scene"
    source.write_text(drawing_of(count))
    run([program, "import", source, "-o", scene, *words], processors_to_use(1))
    return scene


def scene_of_frames(program, folder, count):
    run(import_frames(program, folder, count), processors_to_use(1))
    return folder / "a.scene"


def inspect_scene(drawing_of, *words):
    return lambda program, folder, count: [program, "inspect", scene_of_drawing(program, folder, drawing_of, count, words)]


def render_scene(drawing_of, *words):
    def command(program, folder, count):
        scene = scene_of_drawing(program, folder, drawing_of, count, words)
        return [program, "render", scene, "-o", folder / "frame.####.png", "--frames", 1, "--resolution", "64x64"]

    return command


def import_frames(program, folder, count):
    names = [folder / f"disc_{i:05d}.svg" for i in range(count)]
    for i, name in enumerate(names):
        name.write_text(growing_disc(i))
    return [program, "import", "--force", *names, "-o", folder / "a.scene"]


def render_frames(program, folder, count):
    scene = scene_of_frames(program, folder, count)
    return [program, "render", scene, "-o", folder / "frame.#####.png", "--resolution", "16x16"]


def set_keys(program, folder, count):
    keys = [f"{frame}:{1 + frame % 7 / 10}" for frame in range(1, count + 1)]
    return [program, "set", scene_of_frames(program, folder, count), "Normal-Map.bevel-multiplier", *keys]


def render_keys(program, folder, count):
    run(set_keys(program, folder, count), processors_to_use(1))
    return [program, "render", folder / "a.scene", "-o", folder / "frame.#####.png", "--resolution", "16x16"]


LAYER = "inkscape:groupmode='layer'"
LAYERS = squares_in_groups(LAYER)
COLOURS = squares_in_one_group(many_colours)
ALL_WORK = [
    Work("shapes, one object", 16000, normal_map(squares_in_one_group(few_colours), 512, "one"), KILOBYTES_A_SHAPE),
    Work("shapes, objects chosen", 16000, normal_map(squares_in_one_group(few_colours), 512, "auto"), KILOBYTES_A_SHAPE),
    Work("colours", 16000, normal_map(COLOURS, 64, "one")),
    Work("colours, a scene listed", 16000, inspect_scene(COLOURS)),
    Work("layers", 500, normal_map(LAYERS, 64, "layers")),
    Work("layers, each of its own colour", 500, normal_map(squares_in_groups(LAYER, many_colours), 64, "layers")),
    Work("layers, a scene listed", 500, inspect_scene(LAYERS, "--objects", "layers")),
    Work("layers, a scene's frame", 500, render_scene(LAYERS, "--objects", "layers")),
    Work("groups", 1000, normal_map(squares_in_groups(""), 64, "groups")),
    Work("objects, one a shape", 500, normal_map(squares_in_one_group(few_colours), 64, "shapes")),
    Work("frames, imported", 2500, import_frames),
    Work("frames, rendered", 2500, render_frames),
    Work("keys, set", 2500, set_keys),
    Work("keys, rendered", 2500, render_keys),
]


def measure(work, options, folder):
    counts = (work.few, TIMES * work.few)
    commands = {}
    for count in counts:
        room = folder / str(count)
        room.mkdir(parents=True)
        commands[count] = work.command(options.program, room, count)
    made = in_turn(commands, processors_to_use(1), options.runs)
    for count, done in made.items():
        print_run(f"{count} {work.name}", done, done.peak / count / 1e3)
    few, many = (made[count] for count in counts)
    name = f"{counts[1]} : {counts[0]} {work.name}"
    figures = [Figure(f"{name}: time", many.processor / few.processor, GOAL)]
    if work.kilobytes_each:
        each = (many.peak - few.peak) / (counts[1] - counts[0]) / 1e3
        figures.append(Figure(f"{name}: kilobytes each", each, work.kilobytes_each))
    return figures


def parse():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("names", nargs="*", metavar="NAME", help="measure only what begins with one of these words, such as colours")
    add_program(parser)
    options = parse_with_program(parser)
    options.work = [work for work in ALL_WORK if not options.names or work.name.startswith(tuple(options.names))]
    if not options.work:
        parser.error(f"nothing begins with {' or '.join(options.names)}; there is: {'; '.join(work.name for work in ALL_WORK)}")
    return options


def main():
    options = parse()
    print_heading("kB each")
    figures = []
    for work in options.work:
        with tempfile.TemporaryDirectory() as folder:
            figures += measure(work, options, Path(folder))
    report(figures, options.json)


if __name__ == "__main__":
    main()
