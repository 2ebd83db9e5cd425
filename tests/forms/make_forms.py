#!/usr/bin/python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Writes the drawings of the modelled forms, their true normals and their coverage into a folder.

For each form NAME: NAME.layers.svg, NAME.flat.svg, NAME.outlined.svg, NAME.sprite.png, and NAME.truth.npz with `normals`
(size, size, 3), y up, `top`, the number of the topmost part at each pixel's centre or -1, and `coverage`, 0 to 1.
"""
import argparse
import os
from concurrent.futures import ProcessPoolExecutor

import numpy as np

from catalogue import FORMS
from drawings import write_drawings


def make(name, folder, size):
    form = FORMS[name][1]()
    write_drawings(form, folder, size)
    normals, top = form.truth(size)
    np.savez(os.path.join(folder, f"{name}.truth.npz"), normals=normals, top=top, coverage=form.coverage(size))


def make_all(names, folder, size):
    os.makedirs(folder, exist_ok=True)
    with ProcessPoolExecutor() as pool:
        for made in [pool.submit(make, name, folder, size) for name in names]:
            made.result()


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder")
    parser.add_argument("--size", type=int, default=256, help="pixels of the truth and the sprites, each way (256)")
    parser.add_argument("--set", choices=("tuned", "held", "probe", "all"), default="all")
    options = parser.parse_args()
    make_all([name for name, (which, _) in FORMS.items() if options.set in ("all", which)], options.folder, options.size)
