# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#
# Draws a sprite, or the frames of an atlas, in every view of a list, and writes the pixels, all views one after the other,
# as R G B A bytes. The list (width, height, views, output; drawing and map, or frames, maps and animation) is the JSON
# file that the variable VALLORIN_VIEWS names.
#
# Godot 3 adds what a lamp gives to what is there without one, which a black canvas makes nothing. A lamp that is far away
# acts like a direction; its picture, white all over, has to reach as far.
extends Node

const FAR = 1e5

func texture_of(path):
    var image = Image.new()
    if image.load(path) != OK:
        push_error("cannot load " + path)
    var texture = ImageTexture.new()
    texture.create_from_image(image, Texture.FLAG_FILTER)
    return texture

func sprite_of(list):
    var sprite = Sprite.new()
    sprite.texture = texture_of(list.drawing)
    sprite.normal_map = texture_of(list.map)
    sprite.position = Vector2(list.width, list.height) / 2
    return sprite

# Frames with their maps, as Godot 3 wants them: an animation beside it whose name ends in "_normal". It looks for one only
# in frames that were put together by a script.
func animation_of(list):
    var frames = SpriteFrames.new()
    for part in [[list.animation, load(list.frames)], [list.animation + "_normal", load(list.maps)]]:
        frames.add_animation(part[0])
        for i in part[1].get_frame_count(list.animation):
            frames.add_frame(part[0], part[1].get_frame(list.animation, i))
    var sprite = AnimatedSprite.new()
    sprite.frames = frames
    sprite.animation = list.animation
    sprite.centered = false
    return sprite

func white_lamp():
    var image = Image.new()
    image.create(4, 4, false, Image.FORMAT_RGBA8)
    image.fill(Color(1, 1, 1, 1))
    var texture = ImageTexture.new()
    texture.create_from_image(image, 0)
    var lamp = Light2D.new()
    lamp.texture = texture
    lamp.texture_scale = FAR
    return lamp

func stage(size):
    var viewport = Viewport.new()
    viewport.size = size
    viewport.usage = Viewport.USAGE_2D
    viewport.render_target_update_mode = Viewport.UPDATE_ALWAYS
    viewport.render_target_v_flip = true
    add_child(viewport)
    var dark = CanvasModulate.new()
    dark.color = Color(0, 0, 0, 1)
    viewport.add_child(dark)
    return viewport

func show_view(sprite, view):
    sprite.rotation_degrees = view.turn
    sprite.flip_h = view.flip

func _ready():
    var file = File.new()
    if file.open(OS.get_environment("VALLORIN_VIEWS"), File.READ) != OK:
        push_error("there is no list of views")
        get_tree().quit(1)
        return
    var list = JSON.parse(file.get_as_text()).result
    file.close()
    VisualServer.set_default_clear_color(Color(0, 0, 0, 1))
    var size = Vector2(list.width, list.height)
    var viewport = stage(size)
    var sprite = animation_of(list) if list.has("frames") else sprite_of(list)
    viewport.add_child(sprite)
    var lamp = white_lamp()
    viewport.add_child(lamp)
    var pixels = PoolByteArray()
    for view in list.views:
        show_view(sprite, view)
        lamp.position = size / 2 + FAR * Vector2(view.light[0], -view.light[1])
        lamp.range_height = FAR * view.light[2]
        # What is set is drawn in the next frame, and read when that one is done.
        yield(VisualServer, "frame_post_draw")
        yield(VisualServer, "frame_post_draw")
        var image = viewport.get_texture().get_data()
        image.convert(Image.FORMAT_RGBA8)
        pixels.append_array(image.get_data())
    var output = File.new()
    output.open(list.output, File.WRITE)
    output.store_buffer(pixels)
    output.close()
    get_tree().quit()
