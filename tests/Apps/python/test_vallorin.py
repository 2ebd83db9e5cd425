#!/usr/bin/env python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""What a script gets from the Python package: arrays of the right shape and meaning, and errors with words.

    test_vallorin.py QUARVEL EXAMPLES
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import threading
import unittest

import numpy as np

import vallorin

QUARVEL, EXAMPLES = sys.argv[1], pathlib.Path(sys.argv[2])


def disc(side=64, radius=24):
    """A red disc in the middle of a transparent square."""
    y, x = np.mgrid[:side, :side] + 0.5
    rgba = np.zeros((side, side, 4), np.uint8)
    rgba[(x - side / 2) ** 2 + (y - side / 2) ** 2 < radius**2] = (200, 40, 40, 255)
    return rgba


class NormalMap(unittest.TestCase):
    def test_the_arrays_have_the_size_of_the_picture(self):
        maps = vallorin.normal_map(disc()[:, 4:])
        self.assertEqual(maps.normals.shape, (64, 60, 3))
        self.assertEqual(maps.elevation.shape, (64, 60))
        self.assertEqual(maps.coverage.shape, (64, 60))
        self.assertEqual(maps.normals.dtype, np.float32)

    def test_normals_are_unit_vectors_that_lean_outwards(self):
        normals = vallorin.normal_map(disc()).normals
        np.testing.assert_allclose(np.linalg.norm(normals, axis=2), 1, atol=1e-3)
        self.assertLess(normals[32, 12, 0], -0.1)
        self.assertGreater(normals[32, 51, 0], 0.1)
        self.assertGreater(normals[12, 32, 1], 0.1, "y points up")
        self.assertLess(normals[51, 32, 1], -0.1)

    def test_the_middle_is_higher_than_the_rim_and_outside_nothing_covers(self):
        maps = vallorin.normal_map(disc())
        self.assertGreater(maps.elevation[32, 32], maps.elevation[32, 10])
        self.assertEqual(maps.coverage[0, 0], 0)
        self.assertEqual(maps.coverage[32, 32], 1)

    def test_without_a_form_all_normals_face_the_viewer(self):
        maps = vallorin.normal_map(disc(), shape="off")
        np.testing.assert_allclose(maps.normals[32, 10:54], np.tile([0, 0, 1], (44, 1)), atol=1e-3)

    def test_a_file_is_read_in_the_width_that_is_asked_for(self):
        maps = vallorin.normal_map(EXAMPLES / "hero.svg", width=160)
        self.assertEqual(maps.normals.shape[1], 160)

    def test_an_array_and_a_file_of_it_give_the_same(self):
        rgba = disc()
        rgba[..., 3] = 255
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "disc.ppm"
            file.write_bytes(b"P6 64 64 255\n" + rgba[..., :3].tobytes())
            np.testing.assert_array_equal(vallorin.normal_map(file).normals, vallorin.normal_map(rgba).normals)

    def test_what_is_asked_for_beside_the_normals_is_there(self):
        maps = vallorin.normal_map(disc(), also=["height", "occlusion", "numbers"], gloss={"#c82828": 0.75})
        for array in (maps.height, maps.occlusion, maps.numbers, maps.gloss):
            self.assertEqual(array.shape, (64, 64))
        self.assertEqual(maps.numbers.dtype, np.int32)
        self.assertEqual((maps.numbers[32, 32], maps.numbers[0, 0]), (1, 0))
        self.assertEqual(maps.height[0, 0], 0)
        self.assertGreater(maps.height[32, 32], 1, "in pixels")
        self.assertEqual(maps.height.argmax() // 64 // 8, 3, "the highest place is the middle")
        self.assertEqual(maps.occlusion[32, 32], 1, "nothing is higher")
        self.assertAlmostEqual(maps.gloss[32, 32], 0.75, delta=1 / 255)

    def test_what_was_not_asked_for_says_how_to(self):
        with self.assertRaisesRegex(vallorin.Error, r'there is no height: ask for it with also=\["height"\]'):
            vallorin.normal_map(disc()).height
        with self.assertRaisesRegex(vallorin.Error, 'also takes height, occlusion, numbers, not "depth"'):
            vallorin.normal_map(disc(), also=["depth"])
        with self.assertRaisesRegex(vallorin.Error, "gloss takes 0 to 1 for a colour, not 2"):
            vallorin.normal_map(disc(), gloss={"#fff": 2})
        self.assertRegex(vallorin.normal_map(disc(), gloss={"#123456": 1}).warnings[0], "#123456")

    def test_errors_have_the_words_of_the_command_line(self):
        with self.assertRaisesRegex(vallorin.Error, "there is no such file"):
            vallorin.normal_map("/nowhere/hero.png")
        with self.assertRaisesRegex(vallorin.Error, "shape takes auto, rim, pillow, off, not \"round\""):
            vallorin.normal_map(disc(), shape="round")
        with self.assertRaisesRegex(vallorin.Error, "expected an array of height x width x 4 bytes"):
            vallorin.normal_map(np.zeros((8, 8, 3), np.uint8))
        with self.assertRaises(TypeError):
            vallorin.normal_map(np.zeros((8, 8, 4), np.float32))

    def test_threads_of_python_work_side_by_side(self):
        expected = vallorin.normal_map(disc()).normals
        results = [None] * 4

        def work(index):
            results[index] = vallorin.normal_map(disc()).normals

        threads = [threading.Thread(target=work, args=(index,)) for index in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        for result in results:
            np.testing.assert_array_equal(result, expected)


class Scene(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.path = pathlib.Path(self.folder.name) / "hero.scene"
        subprocess.run([QUARVEL, "import", EXAMPLES / "hero.svg", "-o", self.path, "-q"], check=True)

    def test_frames_are_rendered_in_the_scenes_shape(self):
        scene = vallorin.Scene.open(self.path)
        self.assertEqual((scene.first_frame, scene.last_frame), (1, 1))
        (maps,) = scene.render([1], width=96)
        self.assertEqual(maps.normals.shape[1], 96)
        np.testing.assert_allclose(np.linalg.norm(maps.normals, axis=2), 1, atol=1e-3)
        self.assertGreater(maps.elevation.max(), 0.1)

    def test_frames_have_what_is_asked_for_too(self):
        (maps,) = vallorin.Scene.open(self.path).render([1], width=96, also=["height", "numbers"], gloss={"all": 1})
        drawing = vallorin.normal_map(EXAMPLES / "hero.svg", width=96, also=["height", "numbers"], gloss={"all": 1})
        np.testing.assert_allclose(maps.height, drawing.height, atol=0.01)
        np.testing.assert_array_equal(maps.numbers, drawing.numbers)
        np.testing.assert_array_equal(maps.gloss, drawing.gloss)

    def test_a_frame_is_rendered_when_it_is_asked_for(self):
        # Each turn gives one picture of a frame, and the scene lives as long as somebody renders it.
        frames = vallorin.Scene.open(self.path).render([1, 1], width=32)
        self.assertIs(iter(frames), frames)
        first = next(frames)
        np.testing.assert_array_equal(next(frames).normals, first.normals)
        with self.assertRaises(StopIteration):
            next(frames)
        # All of these together would take hundreds of gigabytes.
        endless = vallorin.Scene.open(self.path).render([1] * 100_000, width=1920)
        self.assertEqual(next(endless).normals.shape[1], 1920)

    @unittest.skipIf(sys.platform == "win32", "names are UTF-16 there")
    def test_a_name_that_is_not_utf8_is_an_error(self):
        with self.assertRaisesRegex(vallorin.Error, "not UTF-8"):
            vallorin.normal_map(os.fsdecode(b"hero\xe9.svg"))

    def test_what_is_no_frame_or_no_scene_is_an_error(self):
        with self.assertRaisesRegex(vallorin.Error, "the scene's frames are 1 to 1, and 7 is none of them"):
            vallorin.Scene.open(self.path).render([7])
        with self.assertRaises(vallorin.Error):
            vallorin.Scene.open(self.path / "nothing")


unittest.main(argv=sys.argv[:1])
