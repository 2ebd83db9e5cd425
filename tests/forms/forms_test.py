#!/usr/bin/python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Tests of the modelled forms: their true normals against closed formulas, and all four drawings of a form against each other."""
import argparse
import os
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

import numpy as np

import bodies
import catalogue
from drawings import KINDS, file_name, flat_svg, layers_svg, write_drawings
from form import Form, decal, part
from outlines import closed_outlines, filled
from png import read_png

PROGRAM = None


def inside_grid(body, step=1.7):
    x, y = np.meshgrid(np.arange(body.box[0], body.box[2], step), np.arange(body.box[1], body.box[3], step))
    inside = body.outline(x, y) < -0.5
    return x[inside], y[inside]


class TrueNormals(unittest.TestCase):
    def check(self, body, expected, tolerance=1e-6):
        x, y = inside_grid(body)
        self.assertGreater(len(x), 100)
        np.testing.assert_allclose(body.normals(x, y), np.stack(expected(x, y), axis=-1), atol=tolerance)

    def test_sphere_points_away_from_its_centre(self):
        self.check(bodies.Ellipsoid(100, 90, 60), lambda x, y: ((x - 100) / 60, -(y - 90) / 60, np.sqrt(3600 - (x - 100) ** 2 - (y - 90) ** 2) / 60))

    def test_implicit_way_agrees_with_the_formula_of_an_ellipsoid(self):
        body = bodies.Ellipsoid(100, 90, 60, 40, 30, turn=25)
        x, y = inside_grid(body)
        np.testing.assert_allclose(bodies.Implicit.normals(body, x, y), body.normals(x, y), atol=1e-5)

    def test_capsule_is_a_cylinder_between_its_ends(self):
        body = bodies.Cut(bodies.Cut(bodies.RoundCone(60, 80, 30, 160, 80), 158, 0, 1, 0), 62, 0, -1, 0)
        self.check(body, lambda x, y: (0 * x, -(y - 80) / 30, np.sqrt(900 - (y - 80) ** 2) / 30))

    def test_torus_leans_away_from_the_middle_of_its_tube(self):
        def expected(x, y):
            r = np.hypot(x - 100, y - 90)
            lean = (r - 60) / 20
            return lean * (x - 100) / r, -lean * (y - 90) / r, np.sqrt(1 - lean**2)

        self.check(bodies.Torus(100, 90, 60, 20), expected)

    def test_cap_meets_the_picture_at_its_angle(self):
        body = bodies.Cap(100, 90, 50, rim=40)
        rim = body.normals(np.array([149.999999]), np.array([90.0]))[0]
        np.testing.assert_allclose(rim, [np.sin(np.radians(40)), 0, np.cos(np.radians(40))], atol=1e-5)
        self.check(body, lambda x, y: ((x - 100) / 50 * np.sin(np.radians(40)), -(y - 90) / 50 * np.sin(np.radians(40)),
                                       np.sqrt(1 - ((x - 100) ** 2 + (y - 90) ** 2) / 2500 * np.sin(np.radians(40)) ** 2)))

    def test_plate_is_flat_inside_of_its_rim_and_round_at_it(self):
        body = bodies.Plate([(40, 40), (200, 40), (200, 160), (40, 160)], 10)
        found = body.normals(np.array([100.0, 45.0]), np.array([100.0, 100.0]))
        np.testing.assert_allclose(found, [[0, 0, 1], [-0.5, 0, np.sqrt(0.75)]], atol=1e-6)

    def test_sunk_body_leans_the_other_way(self):
        raised, sunk = bodies.Cap(100, 90, 50), bodies.Sunk(bodies.Cap(100, 90, 50))
        x, y = inside_grid(raised)
        np.testing.assert_array_equal(sunk.normals(x, y), raised.normals(x, y) * [-1, -1, 1])

    def test_every_normal_of_every_form_has_length_one_and_faces_the_viewer(self):
        for name, (_, make) in catalogue.FORMS.items():
            normals, top = make().truth(48)
            self.assertTrue((top >= 0).any(), name)
            np.testing.assert_allclose(np.linalg.norm(normals, axis=-1), 1, atol=1e-9, err_msg=name)
            self.assertGreaterEqual(normals[..., 2].min(), -1e-6, name)


class Outlines(unittest.TestCase):
    def test_outline_of_a_disc_is_its_circle(self):
        (loop,) = closed_outlines(bodies.Ellipsoid(100.3, 90.7, 40).outline, (60, 50, 141, 131))
        np.testing.assert_allclose(np.hypot(loop[:, 0] - 100.3, loop[:, 1] - 90.7), 40, atol=1e-3)

    def test_ring_has_two_outlines_and_its_area(self):
        body = bodies.Torus(128, 128, 60, 20)
        loops = closed_outlines(body.outline, body.box)
        self.assertEqual(len(loops), 2)
        self.assertAlmostEqual(filled(loops, 256, 4).mean() * 256**2, np.pi * (80**2 - 40**2), delta=20)


class Drawings(unittest.TestCase):
    form = Form("x", [part("low", bodies.Ellipsoid(90, 128, 60), "#ff0000"), decal("dot", bodies.Ellipsoid(70, 128, 8), "#00ff00"),
                      part("high", bodies.Ellipsoid(160, 128, 60), "#0000ff")])

    def test_topmost_part_decides_and_paint_leaves_the_surface(self):
        normals, top = self.form.truth(256)
        self.assertEqual((top[128, 128], top[128, 60], top[128, 70], top[0, 0]), (1, 0, 0, -1))
        np.testing.assert_allclose(normals[127, 69], [(69.5 - 90) / 60, 0.5 / 60, np.sqrt(3600 - 20.5**2 - 0.25) / 60], atol=1e-6)

    def test_layers_are_the_parts_with_their_paint(self):
        layers = list(xml.etree.ElementTree.fromstring(layers_svg(self.form)))
        self.assertEqual([len(list(layer)) for layer in layers], [2, 1])
        self.assertEqual([shape.get("fill") for shape in xml.etree.ElementTree.fromstring(flat_svg(self.form))], ["#ff0000", "#00ff00", "#0000ff"])

    def test_all_drawings_of_a_form_cover_the_same(self):
        size = 128
        with tempfile.TemporaryDirectory() as folder:
            files, truths = [], {}
            for name, (_, make) in catalogue.FORMS.items():
                form = make()
                write_drawings(form, folder, size)
                truths[name] = form.coverage(size)
                files += [os.path.join(folder, file_name(name, kind)) for kind in KINDS]
            out = os.path.join(folder, "out")
            os.mkdir(out)
            subprocess.run([PROGRAM, "normalmap", *files, "-o", out, "--size", f"{size}x{size}", "--objects", "one", "--alpha", "coverage", "--pad", "0", "-q"], check=True, capture_output=True)
            for name, truth in truths.items():
                for kind in KINDS:
                    found = read_png(os.path.join(out, f"{name}.{kind}_n.png"))[..., 3] / 65535
                    difference = np.abs(found - truth)
                    with self.subTest(form=name, kind=kind):
                        self.assertLess(difference.mean(), 0.01)
                        self.assertLess((difference > 0.5).mean(), 0.0003)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True, help="the quarvel that rasterises the drawings")
    options, rest = parser.parse_known_args()
    PROGRAM = options.program
    unittest.main(argv=[sys.argv[0], *rest])
