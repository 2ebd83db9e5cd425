# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""The extension in Inkscape, on a screen that nobody sees, with a profile of its own.

    in_inkscape.py QUARVEL EXTENSIONS EXAMPLES

Exit code: 77 where Inkscape or something that its extensions need is missing.
"""

import base64
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ET
from pathlib import Path

PROGRAM, EXTENSIONS, EXAMPLES = (Path(word).resolve() for word in sys.argv[1:])
INKEX = Path("/usr/share/inkscape/extensions")
SVG = "{http://www.w3.org/2000/svg}"
XLINK = "{http://www.w3.org/1999/xlink}"

for name in ("inkscape", "xvfb-run"):
    if not shutil.which(name):
        print(f"skipped: {name} is missing; Debian's packages are inkscape, xvfb and xauth")
        sys.exit(77)
ENVIRONMENT = {**os.environ, "PATH": f"{PROGRAM.parent}:{os.environ['PATH']}", "PYTHONPATH": str(INKEX), "PYTHONDONTWRITEBYTECODE": "1"}
if subprocess.run(["/usr/bin/python3", "-c", "import inkex"], env=ENVIRONMENT, capture_output=True, check=False).returncode:
    print("skipped: Inkscape's extensions do not run here; Debian's package python3-lxml and others are missing")
    sys.exit(77)


class Extension(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.addCleanup(self._folder.cleanup)
        self.folder = Path(self._folder.name)
        shutil.copytree(EXTENSIONS / "vallorin", self.folder / "profile" / "extensions" / "vallorin")
        shutil.copy(EXAMPLES / "hero.svg", self.folder / "hero.svg")

    def in_inkscape(self, source, result):
        actions = f"org.vallorin.light.noprefs;export-filename:{self.folder / result};export-do"
        environment = {**ENVIRONMENT, "INKSCAPE_PROFILE_DIR": str(self.folder / "profile"), "HOME": str(self.folder)}
        environment.pop("QT_QPA_PLATFORM", None)
        subprocess.run(["xvfb-run", "-a", "inkscape", "--batch-process", f"--actions={actions}", str(self.folder / source)],
                       env=environment, capture_output=True, check=True, timeout=300)
        return ET.parse(self.folder / result).getroot()

    def quarvel(self, *words):
        subprocess.run([PROGRAM, "normalmap", *words, "-q"], cwd=self.folder, check=True)

    @staticmethod
    def lit_pictures(document):
        layers = [layer for layer in document.iter(f"{SVG}g") if layer.get("id") == "vallorin-light"]
        return [base64.b64decode(image.get(f"{XLINK}href").partition(",")[2]) for layer in layers for image in layer.iter(f"{SVG}image")]

    def test_writes_the_map_and_shows_the_lit_drawing(self):
        document = self.in_inkscape("hero.svg", "out.svg")
        made = (self.folder / "hero_n.png").read_bytes()
        self.quarvel("hero.svg", "-o", "own_n.png", "--lit", "own_lit.png")
        self.assertEqual(made, (self.folder / "own_n.png").read_bytes())
        self.assertEqual(self.lit_pictures(document), [(self.folder / "own_lit.png").read_bytes()])
        image = next(document.iter(f"{SVG}image"))
        self.assertEqual([float(image.get(side)) for side in ("x", "y", "width", "height")],
                         [float(number) for number in document.get("viewBox").split()])

    def test_replaces_its_layer_and_does_not_take_it_for_a_part_of_the_drawing(self):
        first = self.in_inkscape("hero.svg", "hero.svg.out.svg")
        made = (self.folder / "hero_n.png").read_bytes()
        (self.folder / "hero.svg.out.svg").rename(self.folder / "hero.svg")
        again = self.in_inkscape("hero.svg", "again.svg")
        self.assertEqual((self.folder / "hero_n.png").read_bytes(), made)
        self.assertEqual(self.lit_pictures(again), self.lit_pictures(first))

    def test_says_what_is_wrong(self):
        script = str(EXTENSIONS / "vallorin" / "vallorin_light.py")
        run = lambda *words: subprocess.run(["/usr/bin/python3", script, *words], cwd=self.folder, env=ENVIRONMENT, capture_output=True, text=True, check=False)
        self.assertIn("nowhere is not there", run("--program", "nowhere", "hero.svg").stderr)
        self.assertIn("none of the programs", run("--target", "paper", "hero.svg").stderr)


unittest.main(argv=sys.argv[:1], verbosity=2)
