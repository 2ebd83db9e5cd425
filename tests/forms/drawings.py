# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Writes a form as drawings: flat, with layers, outlined (SVG) and as a sprite (PNG)."""
import os

from bodies import Ellipsoid, Lean, Sunk
from form import INK
from outlines import curve, simplified
from png import write_png

KINDS = ("layers", "flat", "outlined", "sprite")

_HEAD = ('<svg xmlns="http://www.w3.org/2000/svg" xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape" '
         'width="256" height="256" viewBox="0 0 256 256">\n')


def file_name(name, kind):
    return f"{name}.{kind}." + ("png" if kind == "sprite" else "svg")


def _path(loops):
    words = []
    for loop in loops:
        pieces = curve(loop)
        words.append(f"M{_point(pieces[0][0])}C" + " ".join(_point(point) for piece in pieces for point in piece[1:]) + "Z")
    return "".join(words)


def _point(point):
    return f"{point[0]:.2f},{point[1]:.2f}"


def _shapes(p):
    """The shapes that the part is painted as; a whole ellipse is one."""
    body = p.body
    while isinstance(body, (Lean, Sunk)):
        body = body.body
    if isinstance(body, Ellipsoid) and p.pieces == 1:
        (x, y), (a, b) = body.centre, body.axes[:2]
        turn = f' transform="rotate({body.turn:.6g} {x:.6g} {y:.6g})"' if body.turn else ""
        return [f'<ellipse cx="{x:.6g}" cy="{y:.6g}" rx="{a:.6g}" ry="{b:.6g}"{turn}']
    return [f'<path fill-rule="evenodd" d="{_path(loops)}"' for loops in p.painted]


def _paint(p):
    opacity = "" if p.opacity == 1 else f' fill-opacity="{p.opacity:g}"'
    return "".join(f'{shape} fill="{p.colour}"{opacity}/>\n' for shape in _shapes(p))


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
        out += f'<path stroke-width="{width:.3g}" d="M' + " ".join(_point(point) for point in points) + '"/>\n'
    return out + "</g>\n</svg>\n"


def write_drawings(form, folder, size):
    """Writes the four drawings of a form; the sprite has size by size pixels."""
    for kind, text in (("flat", flat_svg), ("layers", layers_svg), ("outlined", outlined_svg)):
        with open(os.path.join(folder, file_name(form.name, kind)), "w", encoding="utf-8") as file:
            file.write(text(form))
    write_png(os.path.join(folder, file_name(form.name, "sprite")), form.sprite(size))
