# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Modelled bodies, things and plants. Coordinates are units of which the picture is 256 wide, y down."""
import numpy as np

from bodies import Blend, Cap, Cut, Deep, Ellipsoid, Lathe, Lean, Plate, RoundCone, Sunk, Torus, disc, rounded, smooth, star
from creatures import arc
from form import Form, decal, part


def ball():
    return Form("ball", [part("ball", Ellipsoid(128, 128, 96), "#d94a3d")])


def egg():
    return Form("egg", [part("egg", Lathe(128, 22, 128, 236, [(0, 0), (0.25, 58), (0.6, 80), (1, 0)]), "#f3e2c7"),
                        decal("shade", Ellipsoid(96, 186, 26, 20, turn=20), "#e3cba6")], sprite_ink=True)


def sausage():
    return Form("sausage", [part("sausage", RoundCone(66, 178, 36, 190, 78, 36), "#b5513c")],
                marks=[[(104, 150), (118, 166)], [(128, 130), (142, 146)]])


def ring():
    return Form("ring", [part("ring", Torus(128, 128, 76, 28), "#e6b33d")], sprite_ink=True)


def doughnut():
    sprinkles = [decal("sprinkle", RoundCone(128 + 72 * np.cos(a), 128 + 70 * np.sin(a), 3, 128 + 72 * np.cos(a) + 7 * np.cos(3 * a),
                                             128 + 70 * np.sin(a) + 7 * np.sin(3 * a)), colour)
                 for a, colour in zip(np.arange(9) * 0.7, ["#58b8e0", "#f6e04d", "#ffffff"] * 3)]
    return Form("doughnut", [part("dough", Torus(128, 128, 70, 40), "#d79a55"), part("icing", Torus(128, 128, 70, 32), "#e886b0"), *sprinkles])


def carrot():
    leaves = [part("leaf", Deep(0.4, Lathe(188, 72, 188 + dx, 72 + dy, [(0, 4), (0.5, 13), (1, 0)])), colour)
              for dx, dy, colour in ((-16, -58, "#4d8f3a"), (50, -20, "#4d8f3a"), (26, -52, "#5fa846"))]
    return Form("carrot", [*leaves, part("root", Lathe(44, 222, 200, 62, [(0, 0), (0.1, 8), (0.85, 38), (1, 0)]), "#ee8130")],
                marks=[[(150, 104), (162, 118)], [(112, 132), (126, 148)], [(92, 172), (100, 180)]])


def icecream():
    cone = Lathe(128, 246, 128, 118, [(0, 0), (0.04, 6), (1, 50)])
    return Form("icecream", [part("cone", cone, "#d9a35b"), part("left scoop", Ellipsoid(94, 96, 42), "#f3c6d0"),
                             part("right scoop", Ellipsoid(162, 96, 42), "#8d5a3c"), part("top scoop", Ellipsoid(128, 54, 42), "#fbf0d4"),
                             part("cherry", Ellipsoid(134, 14, 12), "#c22a38")], sprite_ink=True)


def mug():
    body = Lathe(106, 44, 106, 226, [(0, 70), (0.9, 70), (1, 60)])
    return Form("mug", [part("handle", Torus(182, 138, 38, 11), "#3f78b5"), part("body", body, "#4c8fd6"),
                        decal("stripe", Cut(Cut(body, 0, 176, 0, 1), 0, 148, 0, -1), "#f2f2f2"),
                        part("rim", Ellipsoid(106, 46, 72, 16, 10), "#6aa6e4"), part("opening", Sunk(Cap(106, 46, 62, 11, rim=50)), "#4a2c1c")])


def teapot():
    body = Ellipsoid(120, 150, 74, 62)
    return Form("teapot", [part("handle", Torus(46, 142, 34, 9), "#a8453f"),
                           part("spout", Blend(10, RoundCone(168, 168, 22, 206, 132, 14), RoundCone(206, 132, 14, 226, 96, 11)), "#b04a44"),
                           part("body", body, "#c4574f"), decal("band", Ellipsoid(120, 156, 52, 12), "#f1dccb"),
                           part("lid", Ellipsoid(120, 94, 42, 16, 14), "#b04a44"), part("knob", Ellipsoid(120, 70, 12), "#e4b04a")],
                fused=[(8, ("spout", "body"))])


def car():
    body = smooth([(14, 166), (22, 134), (74, 120), (104, 84), (172, 82), (204, 122), (242, 136), (244, 172), (200, 182), (60, 182)], 8)
    front = smooth([(122, 96), (146, 94), (146, 122), (94, 122)], 6)
    wheels = []
    for x in (72, 190):
        wheels += [part("tyre", Torus(x, 182, 20, 9), "#2d2f33"), part("rim", Plate(disc(x, 182, 15), 5), "#c9ced6"),
                   part("hub", Cap(x, 182, 5), "#8b919b")]
    return Form("car", [part("body", Plate(body, 22), "#d6443a"), part("front window", Sunk(Plate(front, 4)), "#a9d4ea"),
                        part("back window", Sunk(Plate(rounded(154, 94, 186, 122, 8), 4)), "#a9d4ea"),
                        part("lamp", Cap(30, 142, 9), "#f7e08a"), *wheels], marks=[[(150, 128), (150, 170)], [(160, 138), (172, 138)]])


def train():
    wheels = [part("wheel", Plate(disc(x, 208, 24), 7), "#b8352f") for x in (70, 128)] + [part("hub", Cap(x, 208, 8), "#f0c14b") for x in (70, 128)]
    return Form("train", [part("chimney", Lathe(180, 44, 180, 110, [(0, 20), (0.4, 12), (1, 12)]), "#34363c"),
                          part("cabin", Plate(rounded(26, 58, 110, 190, 10), 12), "#2f7f6a"), part("roof", RoundCone(24, 52, 11, 112, 52), "#c8453d"),
                          part("window", Sunk(Plate(rounded(46, 80, 92, 122, 8), 5)), "#bfe4ef"),
                          part("boiler", Lathe(96, 146, 222, 146, [(0, 44), (0.8, 44), (1, 34)]), "#3a9a80"),
                          part("dome", Ellipsoid(144, 100, 18, 16), "#e4b840"), part("lamp", Ellipsoid(224, 136, 14), "#f7e69a"),
                          part("small wheel", Plate(disc(192, 214, 18), 6), "#b8352f"), *wheels])


def tree():
    crown = Blend(12, Ellipsoid(128, 72, 52), Ellipsoid(80, 106, 44), Ellipsoid(176, 106, 44), Ellipsoid(128, 122, 48))
    return Form("tree", [part("trunk", Lathe(128, 110, 128, 246, [(0, 14), (0.6, 17), (1, 30)]), "#7a5230"),
                         part("crown", Deep(0.8, crown), "#4f9a45", pieces=3),
                         decal("shade", Ellipsoid(150, 132, 34, 18, turn=-15), "#427f3b"),
                         *[part("apple", Cap(x, y, 9, rim=75), "#d23b33") for x, y in ((88, 96), (128, 70), (168, 104))]],
                marks=[[(122, 190), (122, 214)], [(136, 204), (136, 226)]])


def fir():
    tiers = [part("tier", Lathe(128, top, 128, top + 84, [(0, 0), (0.08, 9), (0.9, wide), (1, wide * 0.9)]), colour)
             for top, wide, colour in ((136, 84, "#2f6b45"), (84, 66, "#378052"), (30, 48, "#40955f"))]
    return Form("fir", [part("trunk", RoundCone(128, 200, 14, 128, 236), "#6d4a2e"), *tiers,
                        part("star", Plate(star(5, 128, 28, 22, 10), 6), "#f4c93f"),
                        *[part("bauble", Ellipsoid(x, y, 9), colour) for x, y, colour in ((104, 136, "#cf3a3a"), (152, 146, "#d8a93a"), (90, 196, "#d8a93a"), (160, 200, "#cf3a3a"))]],
                sprite_ink=True)


def mushroom():
    cap = Cut(Ellipsoid(128, 122, 98, 96, 72), 0, 132, 0, 1)
    return Form("mushroom", [part("stem", Lathe(128, 110, 128, 240, [(0, 30), (0.6, 34), (0.9, 44), (1, 0)]), "#f2e6cf"), part("cap", cap, "#cf3c32"),
                             decal("dot", Ellipsoid(92, 76, 17, 15), "#fdf3e3"), decal("dot", Ellipsoid(150, 62, 15, 13), "#fdf3e3"),
                             decal("dot", Ellipsoid(176, 104, 15, 13), "#fdf3e3"), decal("dot", Ellipsoid(122, 112, 14, 11), "#fdf3e3")], sprite_ink=True)


def apple():
    body = Blend(24, Ellipsoid(98, 146, 62, 78), Ellipsoid(158, 146, 62, 78))
    return Form("apple", [part("stem", RoundCone(128, 76, 6, 140, 24, 5), "#6b4423"), part("apple", body, "#c9362f"),
                          decal("shade", Ellipsoid(180, 168, 22, 46, turn=12), "#a52a26"), decal("glint", Ellipsoid(78, 112, 12, 20, turn=25), "#ee8a80"),
                          part("leaf", Lean(Deep(0.4, Lathe(136, 50, 204, 22, [(0, 0), (0.45, 17), (1, 0)])), 0.3, 0), "#5f9e3c")], marks=[[(142, 46), (180, 32)]])


def rocket():
    hull = Lathe(128, 12, 128, 200, [(0, 0), (0.2, 26), (0.6, 44), (1, 30)])
    return Form("rocket", [part("flame", Deep(0.6, Lathe(128, 252, 128, 190, [(0, 0), (0.6, 20), (1, 18)])), "#f3a02f"),
                           part("left fin", Plate([(94, 130), (88, 190), (46, 224), (54, 168)], 9), "#c9362f"),
                           part("right fin", Plate([(162, 130), (168, 190), (210, 224), (202, 168)], 9), "#c9362f"),
                           part("hull", hull, "#dfe4ea"), part("nozzle", Lathe(128, 194, 128, 212, [(0, 24), (1, 30)]), "#5b6270"),
                           decal("nose", Cut(hull, 0, 56, 0, 1), "#d8443a"), part("frame", Torus(128, 104, 20, 5), "#7a8494"),
                           part("window", Sunk(Cap(128, 104, 16, rim=30)), "#6cc0e5"), part("middle fin", RoundCone(128, 150, 6, 128, 206, 7), "#c9362f")])


def badge():
    return Form("badge", [part("ribbon", Plate([(88, 160), (76, 250), (110, 228), (132, 250), (132, 160)], 6), "#2f62b0"),
                          part("ribbon", Plate([(168, 160), (180, 250), (146, 228), (124, 250), (124, 160)], 6), "#3a74c8"),
                          part("disc", Plate(disc(128, 108, 86), 20), "#e6b53c"), part("star", Plate(star(5, 128, 108, 56, 24), 12), "#f7df8a")])


def bottle():
    glass = Lathe(128, 20, 128, 244, [(0, 18), (0.28, 18), (0.46, 48), (0.95, 50), (1, 44)])
    return Form("bottle", [part("bottle", glass, "#3f8a5a"), decal("label", Cut(Cut(glass, 0, 206, 0, 1), 0, 146, 0, -1), "#f1e7c8"),
                           part("cork", Lathe(128, 6, 128, 30, [(0, 14), (1, 13)]), "#b98a55")], marks=[[(104, 170), (152, 170)], [(110, 184), (146, 184)]])


def flower():
    petals = [part("petal", Lean(Ellipsoid(128 + 50 * np.cos(a), 96 + 50 * np.sin(a), 38, 26, 12, turn=np.degrees(a)), 0.35 * np.cos(a), -0.35 * np.sin(a)), "#e96a9a")
              for a in np.radians(np.arange(6) * 60 + 10)]
    return Form("flower", [part("stem", RoundCone(128, 130, 6, 132, 250), "#4f8f3c"),
                           part("leaf", Lean(Deep(0.4, Lathe(130, 226, 204, 186, [(0, 0), (0.5, 17), (1, 0)])), 0, -0.3), "#63a84a"), *petals,
                           part("centre", Cap(128, 96, 30, rim=60), "#f5c93c")])


def cloud():
    balls = [Ellipsoid(x, y, r) for x, y, r in ((70, 148, 40), (112, 112, 46), (164, 118, 42), (196, 152, 36), (132, 156, 44))]
    return Form("cloud", [part("cloud", Blend(8, *balls), "#dfe8f2", pieces=3)], marks=[arc(112, 118, 26, 22, 200, 290)])


def robot():
    return Form("robot", [part("aerial", RoundCone(128, 22, 4, 128, 48), "#8a929e"), part("bulb", Ellipsoid(128, 18, 11), "#e2483d"),
                          part("left arm", Plate(rounded(28, 124, 56, 198, 12), 12), "#7d8fa6"), part("right arm", Plate(rounded(200, 124, 228, 198, 12), 12), "#7d8fa6"),
                          part("left leg", Plate(rounded(84, 196, 118, 246, 10), 12), "#6c7d94"), part("right leg", Plate(rounded(138, 196, 172, 246, 10), 12), "#6c7d94"),
                          part("trunk", Plate(rounded(66, 116, 190, 206, 18), 16), "#94a8c2"), part("panel", Sunk(Plate(rounded(88, 134, 168, 178, 8), 5)), "#40506a"),
                          part("head", Plate(rounded(74, 40, 182, 112, 20), 16), "#a9bcd4"), part("eye", Cap(104, 74, 15), "#f5d94e"), part("eye", Cap(152, 74, 15), "#f5d94e"),
                          part("dial", Cap(110, 156, 9), "#e2483d"), part("dial", Cap(146, 156, 9), "#58c078")], marks=[[(108, 98), (148, 98)]], sprite_ink=True)


def gift():
    """A box seen from above and from its corner; each face is flat."""
    front, side = [(34, 92), (142, 124), (142, 242), (34, 200)], [(142, 124), (222, 90), (222, 196), (142, 242)]
    lid = [(24, 92), (106, 60), (234, 88), (142, 128)]

    def face(points, right, up):
        return Lean(Plate(points, 3), right, up)

    return Form("gift", [part("front", face(front, 0.45, -0.3), "#3f8fc4"), decal("ribbon", Plate([(80, 122), (100, 128), (100, 226), (80, 218)], 1), "#f2c94c"),
                         part("side", face(side, -0.9, -0.35), "#2f73a3"), decal("ribbon", Plate([(174, 126), (190, 118), (190, 214), (174, 224)], 1), "#d9ae34"),
                         part("lid", face(lid, 0, -1.2), "#5aa9dc"),
                         part("left bow", Deep(0.7, RoundCone(122, 86, 8, 90, 58, 18)), "#f2c94c"),
                         part("right bow", Deep(0.7, RoundCone(122, 86, 8, 158, 56, 18)), "#f2c94c"), part("knot", Ellipsoid(123, 84, 12), "#e0b53a")])


def house():
    return Form("house", [part("chimney", Plate([(172, 30), (196, 30), (196, 90), (172, 90)], 4), "#9c4a3a"),
                          part("wall", Plate([(44, 112), (212, 112), (212, 236), (44, 236)], 4), "#f0dfb8"),
                          part("roof", Lean(Plate([(128, 24), (236, 122), (20, 122)], 8), 0, -0.7), "#c4503c"),
                          part("door", Plate(rounded(108, 160, 148, 236, 6), 5), "#7a4e2e"), part("knob", Cap(140, 200, 4), "#f0c14b"),
                          part("left window", Sunk(Plate(rounded(60, 146, 94, 184, 4), 4)), "#a9d4ea"),
                          part("right window", Sunk(Plate(rounded(162, 146, 196, 184, 4), 4)), "#a9d4ea"),
                          part("bush", Deep(0.8, Blend(8, Ellipsoid(34, 226, 26, 20), Ellipsoid(64, 230, 20, 16))), "#5a9a48")],
                marks=[[(77, 148), (77, 182)], [(62, 165), (92, 165)], [(179, 148), (179, 182)], [(164, 165), (194, 165)]])
