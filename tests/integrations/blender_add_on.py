# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""The add-on in Blender: what it adds, and how that looks in light. Run by in_blender.py."""

import math
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import bpy

PROGRAM, ADD_ONS = sys.argv[sys.argv.index("--") + 1 :]
sys.path.insert(0, ADD_ONS)
import vallorin_drawing  # noqa: E402

DISC = '<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="64"><circle cx="{x}" cy="32" r="24" fill="#fff"/></svg>'


class AddOn(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.addCleanup(self._folder.cleanup)
        self.folder = Path(self._folder.name)
        bpy.ops.wm.read_factory_settings(use_empty=True)
        vallorin_drawing.register()
        self.addCleanup(vallorin_drawing.unregister)
        # As the preferences would say, which are there only for installed add-ons.
        make = vallorin_drawing.quarvel.make
        vallorin_drawing.quarvel.make = lambda _program, *words: make(PROGRAM, *words)
        self.addCleanup(setattr, vallorin_drawing.quarvel, "make", make)

    def write_disc(self, name, width=64, x=32):
        path = self.folder / name
        path.write_text(DISC.format(width=width, x=x))
        return path

    def add(self, path, **values):
        self.assertEqual(bpy.ops.mesh.vallorin_drawing_add(filepath=str(path), **values), {"FINISHED"})
        return bpy.context.view_layer.objects.active

    def render(self, light, frame=1):
        """Brightness by row and column, the lowest row first, of the unit square around the plane."""
        scene = bpy.context.scene
        scene.render.engine = "CYCLES"
        scene.cycles.samples = 4
        scene.cycles.use_denoising = False
        scene.render.resolution_x = scene.render.resolution_y = 32
        scene.view_settings.view_transform = "Raw"
        scene.world = bpy.data.worlds.new("dark")
        scene.world.color = (0, 0, 0)
        camera = bpy.data.objects.new("camera", bpy.data.cameras.new("camera"))
        camera.data.type, camera.data.ortho_scale = "ORTHO", 1
        camera.location, camera.rotation_euler = (0, -5, 0), (math.pi / 2, 0, 0)
        sun = bpy.data.objects.new("sun", bpy.data.lights.new("sun", "SUN"))
        sun.rotation_euler = light
        for each in (camera, sun):
            scene.collection.objects.link(each)
        scene.camera = camera
        scene.frame_set(frame)
        scene.render.image_settings.file_format = "PNG"
        scene.render.filepath = str(self.folder / "shot.png")
        bpy.ops.render.render(write_still=True)
        shot = bpy.data.images.load(scene.render.filepath, check_existing=False)
        pixels = list(shot.pixels)
        for each in (camera, sun):
            bpy.data.objects.remove(each)
        bpy.data.images.remove(shot)
        return [[pixels[4 * (32 * y + x)] for x in range(32)] for y in range(32)]

    def test_adds_an_upright_plane_of_the_drawings_shape(self):
        plane = self.add(self.write_disc("wide.svg", width=96))
        self.assertEqual(plane.name, "wide")
        self.assertEqual([round(side, 5) for side in plane.dimensions], [1.5, 0, 1])
        self.assertEqual([round(part) for part in plane.data.polygons[0].normal], [0, -1, 0])

    def test_connects_the_drawing_and_its_map(self):
        material = self.add(self.write_disc("disc.svg"), width=128).active_material
        nodes = material.node_tree.nodes
        drawing, normals = nodes["Drawing"].image, nodes["Normals"].image
        self.assertEqual((tuple(drawing.size), drawing.colorspace_settings.name), ((128, 128), "sRGB"))
        self.assertEqual((tuple(normals.size), normals.colorspace_settings.name), ((128, 128), "Non-Color"))
        self.assertEqual(Path(bpy.path.abspath(normals.filepath)), self.folder / "disc_maps" / "disc_n.png")
        links = {(link.from_node.name, link.to_node.type, link.to_socket.name) for link in material.node_tree.links}
        self.assertLessEqual(
            {("Drawing", "BSDF_PRINCIPLED", "Base Color"), ("Drawing", "BSDF_PRINCIPLED", "Alpha"), ("Normals", "NORMAL_MAP", "Color")}, links
        )

    def test_is_bright_where_it_faces_the_light(self):
        self.add(self.write_disc("disc.svg"))
        from_right = self.render((math.radians(90), 0, math.radians(60)))
        self.assertGreater(from_right[16][25], from_right[16][6] + 0.1)
        from_above = self.render((math.radians(30), 0, 0))
        self.assertGreater(from_above[25][16], from_above[6][16] + 0.1)
        self.assertLess(from_above[1][1], 0.01, "nothing shows where the drawing is empty")

    def test_plays_the_frames_of_a_scene(self):
        for frame, x in ((5, 26), (6, 38)):
            self.write_disc(f"walk_{frame}.svg", x=x)
        subprocess.run([PROGRAM, "import", "walk_5.svg", "walk_6.svg", "-o", "walk.scene", "-q"], cwd=self.folder, check=True)
        plane = self.add(self.folder / "walk.scene", width=64)
        node = plane.active_material.node_tree.nodes["Normals"]
        self.assertEqual(node.image.source, "SEQUENCE")
        self.assertEqual((node.image_user.frame_start, node.image_user.frame_duration), (5, 2))
        front = (math.radians(90), 0, 0)
        first, second = self.render(front, 5), self.render(front, 6)
        self.assertGreater(first[16][3], 0.1)
        self.assertLess(first[16][29], 0.01)
        self.assertLess(second[16][3], 0.01)
        self.assertGreater(second[16][29], 0.1)

    def test_says_what_is_wrong(self):
        with self.assertRaisesRegex(RuntimeError, "There is no file"):
            bpy.ops.mesh.vallorin_drawing_add(filepath=str(self.folder / "none.svg"))
        (self.folder / "broken.svg").write_text("<svg")
        with self.assertRaisesRegex(RuntimeError, "broken.svg"):
            bpy.ops.mesh.vallorin_drawing_add(filepath=str(self.folder / "broken.svg"))
        self.assertEqual(len(bpy.data.objects), 0)


result = unittest.TextTestRunner(stream=sys.stdout, verbosity=2).run(unittest.defaultTestLoader.loadTestsFromTestCase(AddOn))
sys.stdout.flush()
sys.exit(0 if result.wasSuccessful() else 1)
