#!/usr/bin/env python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Inkscape extension: writes the normal map of the drawing, and shows the drawing lit by it in a layer of its own.

The layers of the document are the objects. The lit picture is embedded in a locked layer on top, which the next run
replaces and no run takes for a part of the drawing.
"""

import base64
import json
import os
import shutil
import subprocess
import tempfile

import inkex

LAYER = "vallorin-light"


def _said(done):
    """What the program says is wrong, in one text."""
    try:
        errors = [error["text"] for error in json.loads(done.stdout)["errors"]]
    except (ValueError, KeyError, TypeError):
        errors = []
    return "\n".join(errors) or done.stderr.strip() or f"quarvel ended with {done.returncode}"


class VallorinLight(inkex.EffectExtension):
    """The extension."""

    def add_arguments(self, pars):
        pars.add_argument("--volume", type=float, default=1.0)
        pars.add_argument("--azimuth", type=float, default=135.0)
        pars.add_argument("--height", type=float, default=45.0)
        pars.add_argument("--target", default="")
        pars.add_argument("--folder", default="")
        pars.add_argument("--program", default="quarvel")

    def effect(self):
        program = shutil.which(self.options.program)
        if not program:
            raise inkex.AbortExtension(f"The program {self.options.program} is not there. Install Vallorin, or name it below.")
        old = self.svg.getElementById(LAYER)
        if old is not None:
            old.delete()
        with tempfile.TemporaryDirectory() as work:
            lit = os.path.join(work, "lit.png")
            self._run(program, self._write_drawing(work), lit)
            with open(lit, "rb") as file:
                self._show(file.read())

    def _document(self):
        """The document's folder and name; both empty for one that was never saved."""
        path = self.document_path() or ""
        return os.path.dirname(path), os.path.splitext(os.path.basename(path))[0]

    def _write_drawing(self, work):
        drawing = os.path.join(work, (self._document()[1] or "drawing") + ".svg")
        self.document.write(drawing)
        return drawing

    def _run(self, program, drawing, lit):
        beside, _ = self._document()
        folder = self.options.folder if self.options.folder not in ("", ".") else beside
        if not folder:
            raise inkex.AbortExtension("Save the document first, or choose a folder for the maps.")
        os.makedirs(folder, exist_ok=True)
        words = [program, "normalmap", drawing, "--json", "-o", folder, "--lit", lit, "--volume", str(self.options.volume)]
        words += ["--light", f"{self.options.azimuth},{self.options.height}"]
        words += ["--for", self.options.target] if self.options.target else []
        done = subprocess.run(words, capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise inkex.AbortExtension(_said(done))

    def _show(self, png):
        """Lays the picture over the page."""
        x, y, width, height = self.svg.get_viewbox()
        if width <= 0 or height <= 0:
            x, y, width, height = 0, 0, self.svg.viewport_width, self.svg.viewport_height
        image = inkex.Image()
        image.set("xlink:href", "data:image/png;base64," + base64.b64encode(png).decode())
        for name, value in (("x", x), ("y", y), ("width", width), ("height", height)):
            image.set(name, str(value))
        image.set("preserveAspectRatio", "none")
        layer = inkex.Layer.new("Vallorin light")
        layer.set("id", LAYER)
        layer.set("sodipodi:insensitive", "true")
        layer.append(image)
        self.svg.append(layer)


if __name__ == "__main__":
    VallorinLight().run()
