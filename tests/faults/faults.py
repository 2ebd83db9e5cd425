#!/usr/bin/python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Every allocation and every call that changes files goes wrong once, in whole runs of the program.

Each case is a command with a folder that it starts from. A first run counts its calls; then it is repeated with the first call
failing, the second, and so on (--every N tries each N-th, so that a short run spreads over all of a command). After each run:

  memory  no memory: the right files, or an exit code that is not 0 and a message; never a wrong picture with exit code 0. A crash is
          accepted only where a library of others, such as Qt's rasteriser, asked for the memory.
  error   the call fails as on a full disk: as above, and what was there before is unchanged where the command failed.
  full    this call to write and all later ones fail: one message, whatever the number of drawings, and --resume does the rest.
  kill    the process is gone: what is under a file's name is the old file or the new one, and the same command does its work next.
  stop    SIGTERM: exit code 143 and a line of what is done, and whole files.
"""
import argparse
import base64
import concurrent.futures
import errno
import os
import pathlib
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import zipfile
import zlib

DRAWING = """<svg xmlns="http://www.w3.org/2000/svg" width="96" height="96">
<g id="body"><rect x="12" y="12" width="72" height="72" rx="20" fill="#c03020"/></g>
<g id="eye"><circle cx="48" cy="40" r="14" fill="#2040c0" stroke="#101010" stroke-width="3"/></g></svg>"""

DRAWINGS = ["hero", "tree", "sun", "cloud"]


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(side, rows=None, film=()):
    """A square of one colour, half of it transparent, or of the rows given; as a film of the squares given it is animated."""
    row = b"\x40\x80\xc0\xff" * (side // 2) + bytes(4 * (side - side // 2))
    data = [zlib.compress(b"".join(b"\0" + row for row in rows)) for rows in film or [rows or [row] * side]]
    file = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", side, side, 8, 6, 0, 0, 0))
    if film:
        file += chunk(b"acTL", struct.pack(">II", len(film), 0))
    for number, pixels in enumerate(data):
        if film:
            # A tenth of a second; then what was there before comes back.
            file += chunk(b"fcTL", struct.pack(">IIIIIHHBB", 2 * number, side, side, 0, 0, 1, 10, 2 if number else 0, 1))
        file += chunk(b"fdAT", struct.pack(">I", 2 * number - 1) + pixels) if number else chunk(b"IDAT", pixels)
    return file + chunk(b"IEND", b"")


def lines(side):
    """A thin black ring on white paper, which is filled."""
    def pixel(x, y):
        away = ((x - side / 2) ** 2 + (y - side / 2) ** 2) ** 0.5
        return b"\x10\x10\x10\xff" if abs(away - side / 3) < 1.5 else b"\xff\xff\xff\xff"
    return png(side, [b"".join(pixel(x, y) for x in range(side)) for y in range(side)])


def film(side):
    """A bar that moves."""
    def frame(at):
        row = bytes(4 * at) + b"\xc0\x30\x20\xff" * (side // 4)
        return [row + bytes(4 * side - len(row))] * side
    return png(side, film=[frame(at) for at in range(0, side // 2, side // 8)])


def write_layers(path):
    """An OpenRaster file of two layers."""
    with zipfile.ZipFile(path, "w") as archive:
        archive.writestr("mimetype", "image/openraster")
        archive.writestr("stack.xml", '<image w="64" h="64"><stack><layer name="eye" src="a.png" x="16"/><layer name="body" src="a.png"/>'
                                      "</stack></image>")
        archive.writestr("a.png", png(64))


# A picture within a drawing: upright, turned, and as the mask of a shape.
PICTURES = """<svg xmlns="http://www.w3.org/2000/svg" width="96" height="96">
<defs><image id="i" width="64" height="64" href="data:image/png;base64,{0}"/><mask id="m"><use href="#i"/></mask></defs>
<use href="#i"/><use href="#i" transform="translate(60 0) rotate(30)"/><circle cx="40" cy="70" r="20" fill="#f00" mask="url(#m)"/></svg>"""

OWN_LIBRARIES = ("quarvel", "libQuarvel", "libBlurAlgo", "libMultiStageKvd", "libObjectDefinition", "Vallorin", "libVallorin")
# Qt's tables ask for less, and end the program where they get nothing.
SMALLEST_ALLOCATION = 8192


class Case:
    def __init__(self, name, prepare, words, results, kinds):
        self.name = name
        self.prepare = prepare  # commands that make the folder that the case starts from
        self.words = words
        self.results = results  # files and folders that the command makes or changes
        self.kinds = kinds


MAKE_SCENE = "import hero.svg --objects groups --shape rim -o s.scene"
CASES = [
    Case("normalmap", [], "normalmap hero.svg --objects groups --lit lit.png --elevation e.exr --size 128", ["hero_n.png", "lit.png", "e.exr"],
         ["memory", "error", "kill", "stop"]),
    Case("several", [], "normalmap hero.svg tree.svg sun.svg cloud.svg --size 64 --lit lit -o maps",
         [f"{folder}/{name}_{ending}.png" for name in DRAWINGS for folder, ending in (("maps", "n"), ("lit", "lit"))], ["full"]),
    Case("frames", [MAKE_SCENE], "render s.scene --frames 1-3 -o n.####.png --resolution 96", [f"n.000{i}.png" for i in range(1, 4)], ["full"]),
    Case("bitmap", ["normalmap hero.svg --drawing sprite.png -o x.png"], "normalmap sprite.png --float -o n.exr", ["n.exr"], ["memory"]),
    Case("pictures", [], "normalmap pictures.svg -o n.png", ["n.png"], ["memory"]),
    Case("lines", [], "normalmap lines.png -o n.png", ["n.png"], ["memory"]),
    Case("layers", [], "normalmap layers.ora -o n.png", ["n.png"], ["memory"]),
    Case("film", [], "import film.apng -o film.scene", ["film.scene"], ["memory"]),
    Case("render", [MAKE_SCENE], "render s.scene -o n.####.png --resolution 96 --jobs 1", ["n.0001.png"], ["memory", "error", "kill", "stop"]),
    Case("import", [], MAKE_SCENE, ["s.scene"], ["memory", "error", "kill", "stop"]),
    Case("save", [MAKE_SCENE], "set s.scene Normal-Map.BlurScale 2.5", ["s.scene"], ["memory", "error", "kill", "stop"]),
]


KINDS = ["memory", "error", "full", "kill", "stop"]


class Failure(Exception):
    pass


def contents(place):
    """The bytes below a place, by their names; nothing where it is missing or empty. What a save leaves for the next one is no content."""
    if place.is_dir():
        found = {str(path.relative_to(place)): path.read_bytes() for path in sorted(place.rglob("*"))
                 if path.is_file() and not any(part.startswith(".") for part in path.relative_to(place).parts)}
        return found or None
    return place.read_bytes() if place.exists() else None


class Runs:
    def __init__(self, program, library, case, root):
        self.program, self.library, self.case = program, library, case
        self.root = pathlib.Path(root)
        self.runtime = self.root / "runtime"
        self.runtime.mkdir(mode=0o700)
        self.start = self.root / "start"
        self.start.mkdir()
        for name in DRAWINGS:
            (self.start / f"{name}.svg").write_text(DRAWING)
        (self.start / "pictures.svg").write_text(PICTURES.format(base64.b64encode(png(64)).decode()))
        (self.start / "lines.png").write_bytes(lines(96))
        (self.start / "film.apng").write_bytes(film(64))
        write_layers(self.start / "layers.ora")
        for words in case.prepare:
            done = self.run(self.start, words)
            if done.returncode != 0:
                raise Failure(f"{case.name}: {words}: {done.stderr}")
        self.before = {name: contents(self.start / name) for name in case.results}
        folder = self.fresh("expected")
        done = self.run(folder, case.words)
        if done.returncode != 0:
            raise Failure(f"{case.name}: {case.words}: {done.stderr}")
        self.after = {name: contents(folder / name) for name in case.results}

    def fresh(self, name):
        folder = self.root / name
        shutil.copytree(self.start, folder)
        return folder

    def run(self, folder, words, **fault):
        environment = dict(os.environ, XDG_STATE_HOME=str(self.root / "state"), XDG_RUNTIME_DIR=str(self.runtime), QT_QPA_PLATFORM="offscreen")
        environment.update({key: str(value) for key, value in fault.items()})
        if fault:
            environment["LD_PRELOAD"] = self.library
        return subprocess.run([self.program, *words.split()], cwd=folder, env=environment, capture_output=True, text=True, errors="replace",
                              timeout=300)

    def count(self, kind):
        folder, log = self.fresh(f"count-{kind}"), self.root / f"count-{kind}.log"
        self.run(folder, self.case.words, FAULT_KIND=kind, FAULT_AT=0, FAULT_SIZE=SMALLEST_ALLOCATION, FAULT_LOG=log)
        return int(log.read_text().split()[-1])

    def attempt(self, kind, at):
        """Runs the case with one fault. Returns what came of it."""
        folder, log = self.fresh(f"{kind}-{at}"), self.root / f"{kind}-{at}.log"
        try:
            done = self.run(folder, self.case.words, FAULT_KIND=kind, FAULT_AT=at, FAULT_SIZE=SMALLEST_ALLOCATION, FAULT_LOG=log,
                            FAULT_ERROR=errno.ENOSPC)
            words = log.read_text().split() if log.exists() else []
            if "fault" not in words:
                return "passed"
            caller = words[words.index("fault") + 1]
            if kind != "kill":
                self.settle(folder)
            found = {name: contents(folder / name) for name in self.case.results}
            return getattr(self, "judge_" + kind)(folder, done, caller, found)
        except Failure as failure:
            where = log.read_text().split("\n")[0] if log.exists() else ""
            raise Failure(f"{self.case.name}, {kind} {at} ({where}): {failure}") from None
        finally:
            shutil.rmtree(folder, ignore_errors=True)

    def settle(self, folder):
        """A save counts from the moment its journal is in place; whoever opens the scene next does the rest."""
        for name in self.case.results:
            if name.endswith(".scene") and any((folder / name / file).exists() for file in ("scene.xml", ".journal")):
                done = self.run(folder, "inspect " + name)
                if done.returncode != 0:
                    raise Failure(f"{name} cannot be opened afterwards: {done.stderr}")

    def check_each_is_old_or_new(self, found, done):
        for name, content in found.items():
            if content not in (self.before[name], self.after[name]):
                raise Failure(f"{name} is neither what it was nor what it should be (exit code {done.returncode})")

    def judge_memory(self, folder, done, caller, found):
        if done.returncode < 0:
            if caller.startswith(OWN_LIBRARIES):
                raise Failure(f"ended by signal {-done.returncode}: {done.stderr}")
            self.check_each_is_old_or_new(found, done)
            return "crashed in a library"
        return self.judge_error(folder, done, caller, found)

    def judge_error(self, folder, done, caller, found):
        if done.returncode < 0:
            raise Failure(f"ended by signal {-done.returncode}: {done.stderr}")
        self.check_each_is_old_or_new(found, done)
        if done.returncode == 0:
            if found != self.after:
                raise Failure("exit code 0, but the results are not there")
            return "right"
        if not done.stderr.strip():
            raise Failure(f"exit code {done.returncode} without a message")
        return "refused"

    def judge_full(self, folder, done, caller, found):
        self.check_each_is_old_or_new(found, done)
        if done.returncode != 1:
            raise Failure(f"expected exit code 1, got {done.returncode}: {done.stderr}")
        if done.stderr.count("the disk is full") != 1:
            raise Failure(f"expected one message, got: {done.stderr}")
        again = self.run(folder, self.case.words + " --resume")
        if again.returncode != 0 or {name: contents(folder / name) for name in self.case.results} != self.after:
            raise Failure(f"--resume does not make what is missing: {again.stderr}")
        return "told once"

    def judge_kill(self, folder, done, caller, found):
        if done.returncode != -signal.SIGKILL:
            raise Failure(f"expected to be killed, got {done.returncode}")
        # An import that was complete is not made again; one that was not gives way to the next.
        again = self.run(folder, self.case.words + (" --force" if self.case.name == "import" else ""))
        if again.returncode != 0:
            raise Failure(f"the command after it fails: {again.stderr}")
        if {name: contents(folder / name) for name in self.case.results} != self.after:
            raise Failure("the command after it makes something else")
        for name, content in found.items():
            if not (folder / name).is_dir() and content not in (self.before[name], self.after[name]):
                raise Failure(f"{name} was neither what it was nor what it should be")
        return "killed"

    def judge_stop(self, folder, done, caller, found):
        if done.returncode != 128 + signal.SIGTERM:
            raise Failure(f"expected exit code 143, got {done.returncode}: {done.stderr}")
        if "stopped" not in done.stderr:
            raise Failure("no line says what is done")
        self.check_each_is_old_or_new(found, done)
        return "stopped"


def run_case(program, library, case, kinds, every, most, threads):
    failures = []
    with tempfile.TemporaryDirectory() as root:
        runs = Runs(program, library, case, root)
        for kind in case.kinds:
            if kind not in kinds:
                continue
            count = runs.count(kind)
            step = max(every, -(-count // most) if most else 1)
            sums = {}
            with concurrent.futures.ThreadPoolExecutor(threads) as pool:
                tried = [pool.submit(runs.attempt, kind, at) for at in range(1, count + 1, step)]
                for attempt in concurrent.futures.as_completed(tried):
                    try:
                        outcome = attempt.result()
                    except Failure as failure:
                        failures.append(str(failure))
                        outcome = "WRONG"
                    sums[outcome] = sums.get(outcome, 0) + 1
            told = ", ".join(f"{outcome} {number}" for outcome, number in sorted(sums.items()))
            print(f"{case.name:10} {kind:7} {len(tried)} of {count} calls: {told}", flush=True)
    return failures


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True)
    parser.add_argument("--library", required=True, help="the library that injects the faults")
    parser.add_argument("--every", type=int, default=1, help="tries each N-th call")
    parser.add_argument("--most", type=int, default=0, help="tries about as many calls of each kind at most")
    parser.add_argument("--case", action="append", choices=[case.name for case in CASES])
    parser.add_argument("--kind", action="append", choices=KINDS)
    arguments = parser.parse_args()
    kinds = arguments.kind or KINDS
    failures = []
    for case in CASES:
        if not arguments.case or case.name in arguments.case:
            failures += run_case(os.path.abspath(arguments.program), os.path.abspath(arguments.library), case, kinds, arguments.every,
                                 arguments.most, os.cpu_count() or 1)
    for failure in failures:
        print(failure, file=sys.stderr)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
