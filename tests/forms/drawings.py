# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Writes a form as drawings: flat, with layers, outlined (SVG) and as a sprite (PNG)."""
import os

import numpy as np

from form import INK
from outlines import simplified
from png import write_png

KINDS = ("layers", "flat", "outlined", "sprite")

_HEAD = ('<svg xmlns="http://www.w3.org/2000/svg" xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape" '
         'width="256" height="256" viewBox="0 0 256 256">\n')


def file_name(name, kind):
    return f"{name}.{kind}." + ("png" if kind == "sprite" else "svg")


def _path(loops):
    words = []
    for loop in loops:
        points = simplified(np.concatenate([loop, loop[:1]]))[:-1]
        words.append("M" + " ".join(f"{x:.2f},{y:.2f}" for x, y in points) + "Z")
    return "".join(words)


def _paint(p):
    opacity = "" if p.opacity == 1 else f' fill-opacity="{p.opacity:g}"'
    return "".join(f'<path fill="{p.colour}"{opacity} fill-rule="evenodd" d="{_path(loops)}"/>\n' for loops in p.painted)


def flat_svg(form):
    """Every part whole, in painting order."""
    return _HEAD + "".join(_paint(p) for p in form.parts) + "</svg>\n"


def layers_svg(form):
    """A declared layer a part; paint goes with the part that it lies on."""
    layers, out = [], _HEAD
    for p in form.parts:
        if not p.decal or not layers:
            layers.append((p.name, []))
        layers[-1][1].append(_paint(p))
    for i, (name, paint) in enumerate(layers, 1):
        out += f'<g id="layer{i}" inkscape:groupmode="layer" inkscape:label="{name}">\n' + "".join(paint) + "</g>\n"
    return out + "</svg>\n"


def outlined_svg(form):
    """The colours first, then the ink."""
    out = _HEAD + '<g id="color">\n' + "".join(_paint(p) for p in form.parts) + "</g>\n"
    out += f'<g id="line" fill="none" stroke="{INK}" stroke-linecap="round" stroke-linejoin="round">\n'
    for width, line in form.ink:
        points = simplified(line)
        out += f'<path stroke-width="{width:.3g}" d="M' + " ".join(f"{x:.2f},{y:.2f}" for x, y in points) + '"/>\n'
    return out + "</g>\n</svg>\n"


def write_drawings(form, folder, size):
    """Writes the four drawings of a form; the sprite has size by size pixels."""
    for kind, text in (("flat", flat_svg), ("layers", layers_svg), ("outlined", outlined_svg)):
        with open(os.path.join(folder, file_name(form.name, kind)), "w", encoding="utf-8") as file:
            file.write(text(form))
    write_png(os.path.join(folder, file_name(form.name, "sprite")), form.sprite(size))
