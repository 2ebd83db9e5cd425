#!/usr/bin/python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""How near the program's normals come to those of modelled forms, beside other ways to make normals of drawings.

Prints, for drawings of each kind and for all, the lighting error (mean difference of Lambert shading from the truth under eight lights
45 degrees above the picture), the mean angle in degrees, and the share of pixels that are tilted by more than 5 degrees. Words after --
go to `quarvel normalmap`.
"""
import argparse
import hashlib
import json
import os
import subprocess
import sys
import tempfile
from concurrent.futures import ProcessPoolExecutor

import numpy as np

HERE = os.path.dirname(os.path.abspath(__file__))
FORMS_FOLDER = os.path.join(HERE, "..", "..", "tests", "forms")
sys.path.insert(0, FORMS_FOLDER)
sys.dont_write_bytecode = True

import catalogue  # noqa: E402
import make_forms  # noqa: E402
import peers  # noqa: E402
from drawings import KINDS, file_name  # noqa: E402
from measures import measure, normals_of_map, tilted  # noqa: E402
from outlines import filled  # noqa: E402
from png import read_png  # noqa: E402

PEERS = ("flat map", "blurred alpha", "distance bump", "Poisson per part", "Lumo per part")
OURS = "quarvel"


def fingerprint():
    """Of the sources that decide what the forms are and what the peers make of them."""
    digest = hashlib.sha256()
    sources = [os.path.join(FORMS_FOLDER, name) for name in os.listdir(FORMS_FOLDER) if name.endswith(".py") and name != "forms_test.py"]
    for path in (*sorted(sources), os.path.join(HERE, "peers.py"), os.path.join(HERE, "measures.py")):
        with open(path, "rb") as file:
            digest.update(file.read())
    return digest.hexdigest()[:16]


def peer_measures(name, folder, size):
    """The peers' measures of a form: whole parts, then parts without what is hidden. Shape (2, peers, 3)."""
    form = catalogue.FORMS[name][1]()
    data = np.load(os.path.join(folder, f"{name}.truth.npz"))
    truth, top, coverage = data["normals"], data["top"], data["coverage"]
    covered = top >= 0
    whole = [filled(p.outlines, size, 1) for p in form.surfaces]
    visible = [top == number for number in range(len(whole))]
    results = []
    for masks in (whole, visible):
        found = [peers.flat(coverage), peers.blurred_alpha(coverage), peers.distance_bump(coverage), *peers.by_parts(masks)]
        results.append([measure(normals, truth, covered) for normals in found])
    return np.array(results)


def cached_peers(names, folder, size):
    """The peers are slow and never change, so their figures are kept beside the forms."""
    path = os.path.join(folder, "peers.json")
    kept = {}
    if os.path.exists(path):
        with open(path, encoding="utf-8") as file:
            kept = json.load(file)
    missing = [name for name in names if name not in kept]
    with ProcessPoolExecutor() as pool:
        for name, made in [(name, pool.submit(peer_measures, name, folder, size)) for name in missing]:
            kept[name] = made.result().tolist()
    if missing:
        with open(path, "w", encoding="utf-8") as file:
            json.dump(kept, file)
    return {name: np.array(kept[name]) for name in names}


def our_measures(names, kind, folder, maps, program, size, words):
    """The program's measures, by form, (3,) each; its maps go to a folder."""
    out = os.path.join(maps, kind)
    os.makedirs(out, exist_ok=True)
    command = [program, "normalmap", *(os.path.join(folder, file_name(name, kind)) for name in names), "-o", out, "--size", f"{size}x{size}",
               "--alpha", "coverage", "--pad", "0", *words]
    done = subprocess.run(command, capture_output=True, text=True)
    if done.returncode != 0:
        sys.exit(f"{' '.join(command)}\nended with {done.returncode}:\n{done.stderr}")
    results = {}
    for name in names:
        pixels = read_png(os.path.join(out, f"{name}.{kind}_n.png"))
        data = np.load(os.path.join(folder, f"{name}.truth.npz"))
        results[name] = measure(normals_of_map(pixels), data["normals"], data["top"] >= 0)
    return results


def print_table(title, column, rows):
    print(f"\n{title}")
    print(f"{'':<18}" + "".join(f"{kind:>10}" for kind in (*KINDS, "all")))
    for label, values in rows:
        cells = [values[kind][column] for kind in KINDS]
        print(f"{label:<18}" + "".join(f"{value:>10.1f}" if column == 1 else f"{value:>10.3f}" for value in (*cells, np.mean(cells))))


def main():
    words = sys.argv[1:]
    passed_on = words[words.index("--") + 1:] if "--" in words else []
    words = words[:words.index("--")] if "--" in words else words
    parser = argparse.ArgumentParser(prog="./dev bench form", usage="%(prog)s [options] [-- normalmap's options]", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--set", choices=("tuned", "held", "probe", "all"), default="tuned",
                        help="which forms; the held ones are for final measurements alone (tuned)")
    parser.add_argument("--size", type=int, default=256, help="pixels each way (256)")
    parser.add_argument("--program", help="the quarvel to measure, instead of the one that ./dev builds")
    parser.add_argument("--default-program", help=argparse.SUPPRESS)
    parser.add_argument("--each", action="store_true", help="also prints the lighting error of every form")
    parser.add_argument("--no-peers", action="store_true", help="measures the program alone")
    parser.add_argument("--json", metavar="FILE", help="also writes the program's figures")
    parser.add_argument("--maps", metavar="FOLDER", help="keeps the program's normal maps there")
    parser.add_argument("--folder", default=os.path.join(HERE, "..", "..", "build", "forms"), help="where the forms are kept (build/forms)")
    options = parser.parse_args(words)

    names = [name for name, (which, _) in catalogue.FORMS.items() if options.set in ("all", which)]
    folder = os.path.join(options.folder, f"{options.size}-{fingerprint()}")
    missing = [name for name in names if not os.path.exists(os.path.join(folder, f"{name}.truth.npz"))]
    make_forms.make_all(missing, folder, options.size)

    program = os.path.abspath(options.program or options.default_program)
    with tempfile.TemporaryDirectory() as scratch:
        ours = {kind: our_measures(names, kind, folder, options.maps or scratch, program, options.size, passed_on) for kind in KINDS}
    rows = []
    if not options.no_peers:
        known = cached_peers(names, folder, options.size)
        for i, label in enumerate(PEERS):
            rows.append((label, {kind: np.mean([known[name][1 if kind == "sprite" else 0, i] for name in names], axis=0) for kind in KINDS}))
    rows.append((OURS, {kind: np.mean(list(ours[kind].values()), axis=0) for kind in KINDS}))

    print(f"{len(names)} forms ({options.set}), {options.size} pixels, quarvel normalmap {' '.join(passed_on)}".rstrip())
    print_table("Lighting error", 0, rows)
    print_table("Angular error, degrees", 1, rows)
    print_table("Share tilted by more than 5 degrees", 2, rows)
    true_tilt = [tilted(data["normals"], data["top"] >= 0) for data in (np.load(os.path.join(folder, f"{name}.truth.npz")) for name in names)]
    print(f"{'the truth':<18}" + f"{np.mean(true_tilt):>10.3f}" * 5)
    if options.each:
        print("\nLighting error of each form")
        print(f"{'':<18}" + "".join(f"{kind:>10}" for kind in KINDS))
        for name in names:
            print(f"{name:<18}" + "".join(f"{ours[kind][name][0]:>10.3f}" for kind in KINDS))
    if options.json:
        with open(options.json, "w", encoding="utf-8") as file:
            json.dump({kind: {name: values.tolist() for name, values in ours[kind].items()} for kind in KINDS}, file, indent=1)


if __name__ == "__main__":
    main()
