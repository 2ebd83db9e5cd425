# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Writes mypaint.ora with MyPaint's own library (Debian's package mypaint): xvfb-run /usr/bin/python3 mypaint.py

A body of one colour at 3, 2, ten by twelve pixels; above it "eye", six by four at 10, 5, at 60 %; and a hidden layer.
"""
import os
import sys

sys.path.insert(0, "/usr/lib/mypaint")
import gi

gi.require_version("Gtk", "3.0")
gi.require_version("GdkPixbuf", "2.0")
from gi.repository import GdkPixbuf

import lib.glib
import lib.document


def layer(document, name, colour, width, height, x, y, opacity=1.0):
    pixels = GdkPixbuf.Pixbuf.new(GdkPixbuf.Colorspace.RGB, True, 8, width, height)
    pixels.fill(colour)
    document.add_layer((0,))
    document.load_layer_from_pixbuf(pixels, x, y)
    document.layer_stack.current.name = name
    document.layer_stack.current.opacity = opacity
    return document.layer_stack.current


document = lib.document.Document()
while len(document.layer_stack):
    document.layer_stack.remove(document.layer_stack[0])
layer(document, "body", 0xC82814FF, 10, 12, 3, 2)
layer(document, "eye", 0x143CDCFF, 6, 4, 10, 5, 0.6)
layer(document, "hidden", 0x143CDCFF, 4, 4, 0, 0).visible = False
document.set_frame([0, 0, 24, 16])
document.set_frame_enabled(True)
document.save(os.path.join(os.path.dirname(os.path.abspath(__file__)), "mypaint.ora"))
