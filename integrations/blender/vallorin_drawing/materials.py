# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""The material of a drawing: its picture as colour and alpha, its map in a Normal Map node."""

import bpy


def _image(path, made, is_data):
    image = bpy.data.images.load(str(path), check_existing=False)
    # Vectors are numbers; a colour space would bend them.
    image.colorspace_settings.name = "Non-Color" if is_data else "sRGB"
    if made.frames:
        image.source = "SEQUENCE"
    return image


def _texture(nodes, path, made, is_data, place):
    node = nodes.new("ShaderNodeTexImage")
    node.image = _image(path, made, is_data)
    # Outside the picture there is nothing.
    node.extension = "CLIP"
    node.location = place
    if made.frames:
        user = node.image_user
        user.frame_start = made.first
        user.frame_duration = made.frames
        # Blender counts a sequence's pictures from 1.
        user.frame_offset = made.first - 1
        user.use_auto_refresh = True
    return node


def make(made):
    """A material that shows the drawing and is lit by its map."""
    material = bpy.data.materials.new(made.name)
    material.use_nodes = True
    material.blend_method = "BLEND"
    nodes, links = material.node_tree.nodes, material.node_tree.links
    surface = nodes["Principled BSDF"]
    colour = _texture(nodes, made.drawing, made, False, (-700, 300))
    colour.name = "Drawing"
    vectors = _texture(nodes, made.normals, made, True, (-700, -100))
    vectors.name = "Normals"
    normal = nodes.new("ShaderNodeNormalMap")
    normal.location = (-350, -100)
    normal.uv_map = "UVMap"
    links.new(colour.outputs["Color"], surface.inputs["Base Color"])
    links.new(colour.outputs["Alpha"], surface.inputs["Alpha"])
    links.new(vectors.outputs["Color"], normal.inputs["Color"])
    links.new(normal.outputs["Normal"], surface.inputs["Normal"])
    return material


def size_of(made):
    """Width and height of the pictures, in pixels."""
    image = bpy.data.images.load(str(made.drawing), check_existing=False)
    size = tuple(image.size)
    bpy.data.images.remove(image)
    return size
