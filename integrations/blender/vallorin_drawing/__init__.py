# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Blender add-on: "Add > Vallorin Drawing" makes a plane that shows a flat drawing and is lit by its normal map.

The add-on calls quarvel and connects what it writes: one drawing, or the frames of a scene as image sequences.
"""

import bpy

from . import materials, quarvel

bl_info = {
    "name": "Vallorin Drawings",
    "author": "The Vallorin developers",
    "version": (0, 1, 0),
    "blender": (3, 4, 0),
    "location": "3D View > Add > Vallorin Drawing",
    "description": "Flat drawings with volume: planes with normal maps made by quarvel",
    "category": "Add Mesh",
}


class VallorinPreferences(bpy.types.AddonPreferences):
    """Where the program is."""

    bl_idname = __name__

    program: bpy.props.StringProperty(
        name="quarvel", description="The program; a name is looked for in the search path", default="quarvel", subtype="FILE_PATH"
    )

    def draw(self, _context):
        self.layout.prop(self, "program")


def _plane(name, width, height):
    """A plane of the drawing's shape, one unit high, that stands upright and faces the front view."""
    right = width / height / 2
    mesh = bpy.data.meshes.new(name)
    mesh.from_pydata([(-right, 0, -0.5), (right, 0, -0.5), (right, 0, 0.5), (-right, 0, 0.5)], [], [(0, 1, 2, 3)])
    coordinates = mesh.uv_layers.new(name="UVMap").data
    for corner, place in zip(coordinates, [(0, 0), (1, 0), (1, 1), (0, 1)]):
        corner.uv = place
    mesh.update()
    return bpy.data.objects.new(name, mesh)


class AddVallorinDrawing(bpy.types.Operator):
    """Add a plane that shows a drawing and is lit by its normal map"""

    bl_idname = "mesh.vallorin_drawing_add"
    bl_label = "Vallorin Drawing"
    bl_options = {"REGISTER", "UNDO"}

    filepath: bpy.props.StringProperty(subtype="FILE_PATH", description="A drawing, or the folder of a scene (.scene)")
    width: bpy.props.IntProperty(
        name="Width", description="Of the pictures, in pixels; 0 is the drawing's own, and 1920 for scenes", default=0, min=0, max=16384
    )
    volume: bpy.props.FloatProperty(name="Volume", description="How strong the form of a drawing is", default=1.0, min=0.0, max=2.0)

    def invoke(self, context, _event):
        context.window_manager.fileselect_add(self)
        return {"RUNNING_MODAL"}

    def execute(self, context):
        add_on = context.preferences.addons.get(__name__)
        program = add_on.preferences.program if add_on else "quarvel"
        try:
            made = quarvel.make(program, bpy.path.abspath(self.filepath), self.width, self.volume)
        except quarvel.Failed as reason:
            self.report({"ERROR"}, str(reason))
            return {"CANCELLED"}
        material = materials.make(made)
        plane = _plane(made.name, *materials.size_of(made))
        plane.data.materials.append(material)
        plane.location = context.scene.cursor.location
        context.collection.objects.link(plane)
        for other in context.selected_objects:
            other.select_set(False)
        plane.select_set(True)
        context.view_layer.objects.active = plane
        return {"FINISHED"}


def _menu(menu, _context):
    menu.layout.operator(AddVallorinDrawing.bl_idname, icon="IMAGE_PLANE")


_CLASSES = (VallorinPreferences, AddVallorinDrawing)


def register():
    for each in _CLASSES:
        bpy.utils.register_class(each)
    bpy.types.VIEW3D_MT_add.append(_menu)


def unregister():
    bpy.types.VIEW3D_MT_add.remove(_menu)
    for each in reversed(_CLASSES):
        bpy.utils.unregister_class(each)
