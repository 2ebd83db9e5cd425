# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Whole runs of programs, measured as the operating system counts them, and figures with their goals."""
import argparse
import json
import os
import statistics
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path


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
        sys.exit(f"{Path(sys.argv[0]).name}: {' '.join(map(str, words))} failed:\n{said.decode(errors='replace')}")
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


def print_heading(last_column):
    print(f"{'run':<52} {'wall s':>8} {'user s':>8} {'system s':>8} {'peak MB':>9} {last_column:>9}")


def print_run(name, done, last_column):
    print(f"{name:<52} {done.wall:8.3f} {done.user:8.3f} {done.system:8.3f} {done.peak / 1e6:9.0f} {last_column:9.1f}", flush=True)


def report(figures, json_file):
    """Prints the figures with their goals, and writes them to the file where one is named."""
    print(f"\n{'figure':<68} {'value':>7} {'goal':>8}")
    for figure in figures:
        goal = f"{'>=' if figure.at_least else '<='} {figure.goal:g}"
        print(f"{figure.name:<68} {figure.value:7.2f} {goal:>8} {'met' if figure.is_met else 'missed'}")
    if json_file:
        rows = [{"figure": f.name, "value": f.value, "goal": f.goal, "met": f.is_met} for f in figures]
        Path(json_file).write_text(json.dumps(rows, indent=2) + "\n")


def processors_to_use(count):
    processors = sorted(os.sched_getaffinity(0))[:count]
    if len(processors) < count:
        sys.exit(f"{Path(sys.argv[0]).name}: this machine gives the benchmark {len(processors)} processors; it needs {count}")
    return processors


def add_program(parser):
    """The options that every benchmark of whole runs has."""
    parser.add_argument("--program", help="the quarvel to measure")
    parser.add_argument("--default-program", help=argparse.SUPPRESS)
    parser.add_argument("--runs", type=int, default=5, help="counted runs of each command (5)")
    parser.add_argument("--json", help="also write the figures to this file")


def parse_with_program(parser):
    options = parser.parse_args()
    options.program = options.program or options.default_program
    if not options.program:
        parser.error("name the program: --program PATH")
    return options
