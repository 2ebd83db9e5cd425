# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Modelled people and animals. Coordinates are units of which the picture is 256 wide, y down."""
import numpy as np

from bodies import Blend, Cap, Deep, Ellipsoid, Lathe, Lean, Plate, RoundCone, Sunk, Torus, smooth
from form import Form, decal, part


def arc(cx, cy, rx, ry, first, last, count=16):
    """Points of a piece of an ellipse, degrees clockwise from the right."""
    angles = np.radians(np.linspace(first, last, count))
    return [(cx + rx * np.cos(a), cy + ry * np.sin(a)) for a in angles]


def eye(x, y, r, colour="#2b2b2b"):
    return [part("eye", Cap(x, y, r, rim=60), "#ffffff"), decal("pupil", Ellipsoid(x + 0.15 * r, y, 0.55 * r), colour),
            decal("glint", Ellipsoid(x - 0.05 * r, y - 0.25 * r, 0.16 * r), "#ffffff")]


def mitten():
    palm = Blend(14, Ellipsoid(122, 148, 46, 52), RoundCone(122, 150, 42, 128, 72, 34), RoundCone(150, 165, 24, 196, 112, 18))
    return Form("mitten", [part("hand", Deep(0.8, palm), "#d1433b"), part("cuff", RoundCone(88, 208, 20, 156, 208), "#f3efe4")],
                marks=[[(104, 206), (104, 214)], [(122, 206), (122, 214)], [(140, 206), (140, 214)]], sprite_ink=True)


def hand():
    fingers = [RoundCone(96, 150, 17, 60, 78, 13), RoundCone(116, 140, 17, 102, 46, 13), RoundCone(138, 140, 17, 144, 44, 13),
               RoundCone(156, 148, 16, 182, 66, 12), RoundCone(150, 186, 18, 206, 142, 13)]
    body = Blend(9, Ellipsoid(126, 176, 48, 46, 26), RoundCone(126, 190, 30, 126, 240, 28), *fingers)
    return Form("hand", [part("hand", body, "#f0b48a", pieces=4)], marks=[arc(128, 168, 26, 10, 20, 150)], sprite_ink=True)


def fish():
    body = Lathe(24, 128, 196, 128, [(0, 0), (0.12, 34), (0.4, 58), (0.75, 36), (1, 14)])
    return Form("fish", [part("back fin", Lean(Plate(smooth([(86, 84), (110, 42), (152, 52), (150, 92)]), 7), 0, -0.3), "#c8641e"),
                         part("tail", Lean(Plate(smooth([(184, 128), (238, 74), (222, 128), (238, 182)]), 8), 0.3, 0), "#c8641e"),
                         part("body", Deep(0.7, body), "#f08a2c"),
                         decal("stripe", Lathe(104, 76, 104, 180, [(0, 0), (0.5, 11), (1, 0)]), "#fbe3c4"),
                         part("side fin", Lean(Cap(128, 148, 24, 12, rim=40, turn=25), 0.4, 0), "#d9722a"),
                         *eye(60, 112, 11)], marks=[arc(30, 140, 20, 12, 10, 70)])


def whale():
    body = Blend(26, Ellipsoid(104, 146, 78, 58), RoundCone(150, 150, 36, 214, 110, 12))
    return Form("whale", [part("tail left", Ellipsoid(198, 84, 28, 12, turn=40), "#3f6fa8"),
                          part("tail right", Ellipsoid(228, 92, 24, 12, turn=-50), "#3f6fa8"), part("body", body, "#4d84c4"),
                          decal("belly", Ellipsoid(92, 176, 46, 19), "#cfe1f2"),
                          part("fin", Lean(Cap(116, 186, 30, 13, rim=60, turn=35), 0, -0.4), "#3f6fa8"), *eye(64, 140, 9)],
                marks=[arc(52, 158, 24, 12, 30, 140)], sprite_ink=True)


def snowman():
    return Form("snowman", [part("base", Ellipsoid(128, 192, 56, 52), "#eef3f8"), part("middle", Ellipsoid(128, 124, 42), "#f6f9fc"),
                            part("left arm", RoundCone(92, 122, 5, 36, 88, 4), "#7a4f2d"),
                            part("right arm", RoundCone(164, 122, 5, 220, 92, 4), "#7a4f2d"),
                            part("scarf", RoundCone(98, 92, 11, 158, 92), "#c93434"), part("head", Ellipsoid(128, 66, 31), "#ffffff"),
                            part("brim", RoundCone(92, 38, 6, 164, 38), "#34383f"),
                            part("hat", Lathe(128, 4, 128, 38, [(0, 24), (1, 24)]), "#43484f"),
                            part("nose", Lathe(166, 72, 122, 68, [(0, 0), (1, 8)]), "#ef8432"),
                            part("button", Cap(128, 112, 5), "#2c2c2c"), part("button", Cap(128, 130, 5), "#2c2c2c"),
                            decal("eye", Ellipsoid(116, 58, 4), "#222222"), decal("eye", Ellipsoid(138, 58, 4), "#222222")])


def figure():
    """Twelve parts."""
    return Form("figure", [part("far arm", RoundCone(94, 108, 13, 52, 150, 10), "#2f6d8e"),
                           part("far hand", Ellipsoid(46, 156, 13), "#eeb68c"),
                           part("far leg", RoundCone(112, 168, 17, 98, 214, 12), "#44506a"),
                           part("far shoe", Ellipsoid(88, 224, 22, 11), "#7b3f2a"),
                           part("near leg", RoundCone(142, 168, 17, 156, 214, 12), "#4d5b78"),
                           part("near shoe", Ellipsoid(166, 224, 22, 11), "#8d4a31"),
                           part("trunk", Blend(10, Ellipsoid(126, 128, 36, 44), Ellipsoid(127, 158, 32, 24)), "#3c88b0"),
                           part("near arm", RoundCone(156, 106, 14, 196, 72, 10), "#3c88b0"),
                           part("near hand", Ellipsoid(202, 64, 13), "#f2bd94"),
                           part("neck", RoundCone(126, 76, 11, 126, 94), "#e3a87e"),
                           part("head", Lean(Ellipsoid(126, 52, 36, 38), 0.15, 0), "#f2bd94"),
                           part("hair", Blend(8, Ellipsoid(124, 26, 38, 20, 14), Ellipsoid(94, 46, 12, 20, 9)), "#5a3522"),
                           decal("eye", Ellipsoid(114, 54, 3.5, 5), "#2b2b2b"), decal("eye", Ellipsoid(138, 54, 3.5, 5), "#2b2b2b")],
                marks=[arc(126, 66, 12, 8, 25, 155)], fused=[(8, ("trunk", "near arm", "neck"))])


def face():
    return Form("face", [part("left ear", Ellipsoid(34, 134, 17, 24), "#e2a06e"), part("right ear", Ellipsoid(222, 134, 17, 24), "#e2a06e"),
                         part("head", Ellipsoid(128, 130, 94, 100, 80), "#f0b585"),
                         decal("cheek", Ellipsoid(72, 160, 18, 13), "#ea9a78"), decal("cheek", Ellipsoid(184, 160, 18, 13), "#ea9a78"),
                         part("mouth", Sunk(Cap(128, 186, 36, 24, rim=50)), "#5b1a22"),
                         part("tongue", Ellipsoid(128, 199, 20, 9, 6), "#e0606a"),
                         *eye(94, 108, 20), *eye(164, 108, 20), part("nose", Cap(129, 144, 15, 13, rim=65), "#e79f70"),
                         part("hair", Blend(14, Ellipsoid(90, 48, 50, 26, 16, turn=-22), Ellipsoid(166, 46, 54, 26, 16, turn=20)), "#3d2a20")],
                marks=[arc(94, 86, 22, 10, 205, 335), arc(164, 86, 22, 10, 205, 335)])


def monster():
    teeth = [part("tooth", Lathe(x, 162, x, 180, [(0, 7), (1, 0)]), "#fff7e0") for x in (102, 122, 142)]
    return Form("monster", [part("left horn", Lathe(84, 14, 100, 62, [(0, 0), (1, 12)]), "#e8d9a0"),
                            part("right horn", Lathe(172, 14, 156, 62, [(0, 0), (1, 12)]), "#e8d9a0"),
                            part("left foot", Ellipsoid(92, 232, 28, 14), "#5c8a34"), part("right foot", Ellipsoid(164, 232, 28, 14), "#5c8a34"),
                            part("left arm", RoundCone(54, 140, 14, 24, 190, 11), "#6da23e"),
                            part("right arm", RoundCone(202, 140, 14, 232, 190, 11), "#6da23e"),
                            part("body", Ellipsoid(128, 138, 82, 92), "#7fb94a"),
                            decal("spot", Ellipsoid(180, 108, 12), "#699c3c"), decal("spot", Ellipsoid(76, 118, 9), "#699c3c"),
                            part("mouth", Sunk(Cap(122, 178, 44, 22, rim=50)), "#3a1f2e"), *teeth, *eye(128, 106, 36, "#7a2d8a")],
                sprite_ink=True, fused=[(10, ("body", "left arm", "right arm"))])


def bust():
    return Form("bust", [part("hair behind", Ellipsoid(128, 96, 66, 74), "#6b3a1f"),
                         part("shoulders", Blend(20, Ellipsoid(128, 262, 104, 66, 48), RoundCone(50, 250, 34, 206, 250)), "#3f7d63"),
                         part("neck", RoundCone(128, 150, 22, 128, 190, 24), "#d99a6c"), part("head", Ellipsoid(128, 104, 50, 58), "#efb286"),
                         part("fringe", Blend(10, Ellipsoid(104, 58, 34, 18, 10, turn=-20), Ellipsoid(158, 60, 30, 16, 10, turn=24)), "#7d4526"),
                         *eye(110, 104, 9), *eye(148, 104, 9), part("nose", Cap(130, 122, 7, 9, rim=60), "#e6a274"),
                         part("button", Cap(128, 226, 6), "#f4d35e"), part("button", Cap(128, 248, 6), "#f4d35e")],
                marks=[arc(129, 134, 16, 9, 20, 160)], fused=[(14, ("neck", "shoulders"))])


def portrait():
    """Cut by three borders, with glasses."""
    return Form("portrait", [part("coat", Ellipsoid(118, 286, 150, 92, 60), "#5a4a78"),
                             part("collar", Torus(124, 196, 40, 13), "#e9e4f0"),
                             part("neck", RoundCone(124, 160, 26, 124, 196, 28), "#a86e4b"), part("ear", Ellipsoid(196, 112, 14, 20), "#a86e4b"),
                             part("head", Ellipsoid(128, 104, 70, 80, 58), "#bf8059"),
                             part("cap", Lathe(128, -22, 128, 66, [(0, 0), (0.4, 60), (1, 76)]), "#c2452f"),
                             part("peak", Lean(Ellipsoid(90, 66, 76, 13), 0, -0.6), "#9c3424"),
                             part("left rim", Torus(96, 108, 24, 4), "#222831"), part("right rim", Torus(158, 108, 24, 4), "#222831"),
                             decal("left eye", Ellipsoid(96, 108, 6), "#1e1410"), decal("right eye", Ellipsoid(158, 108, 6), "#1e1410"),
                             part("moustache", Blend(8, Ellipsoid(106, 152, 24, 10, 7, turn=-14), Ellipsoid(150, 152, 24, 10, 7, turn=14)), "#2e1d14"),
                             part("nose", Cap(128, 132, 15, 17, rim=65), "#b37550")])


def cat():
    return Form("cat", [part("left ear", Lathe(52, 22, 76, 104, [(0, 0), (1, 32)]), "#8c8f98"),
                        decal("inner ear", Lathe(58, 44, 74, 96, [(0, 0), (1, 15)]), "#e8a7ad"),
                        part("right ear", Lathe(204, 22, 180, 104, [(0, 0), (1, 32)]), "#8c8f98"),
                        decal("inner ear", Lathe(198, 44, 182, 96, [(0, 0), (1, 15)]), "#e8a7ad"),
                        part("head", Blend(20, Ellipsoid(128, 138, 88, 78), Ellipsoid(70, 160, 30, 26), Ellipsoid(186, 160, 30, 26)), "#a5a8b2"),
                        part("muzzle", Blend(6, Ellipsoid(110, 172, 26, 20, 12), Ellipsoid(146, 172, 26, 20, 12)), "#f1eef0"),
                        *eye(90, 124, 19, "#2f7a48"), *eye(166, 124, 19, "#2f7a48"), part("nose", Cap(128, 156, 11, 8, rim=65), "#d9747d")],
                marks=[[(84, 172), (56, 166)], [(84, 180), (58, 184)], [(172, 172), (200, 166)], [(172, 180), (198, 184)]],
                fused=[(10, ("left ear", "right ear", "head"))])


def duck():
    body = Blend(20, Ellipsoid(132, 164, 72, 50), RoundCone(180, 150, 26, 222, 118, 7))
    return Form("duck", [part("far foot", Ellipsoid(112, 224, 20, 9), "#d9781f"), part("near foot", Ellipsoid(146, 228, 22, 9), "#ee8a28"),
                         part("body", body, "#f4cf3c"), part("head", Ellipsoid(84, 84, 42), "#f7d850"),
                         part("beak", Blend(4, Ellipsoid(38, 92, 24, 10, turn=-6), Ellipsoid(44, 102, 16, 7)), "#ee8a28"),
                         part("wing", Deep(0.5, Lathe(108, 156, 200, 166, [(0, 0), (0.3, 28), (1, 0)])), "#e2b828"), *eye(74, 76, 9)],
                marks=[[(130, 170), (166, 176)], [(138, 182), (160, 184)]], fused=[(14, ("body", "head"))])


def bear():
    return Form("bear", [part("left ear", Ellipsoid(84, 38, 22), "#8a5a35"), decal("inner ear", Ellipsoid(84, 40, 11), "#d9a27a"),
                         part("right ear", Ellipsoid(172, 38, 22), "#8a5a35"), decal("inner ear", Ellipsoid(172, 40, 11), "#d9a27a"),
                         part("body", Ellipsoid(128, 178, 60, 62), "#94633c"), decal("belly", Ellipsoid(128, 184, 36, 40), "#c9976a"),
                         part("left arm", RoundCone(84, 146, 18, 44, 182, 15), "#8a5a35"),
                         part("right arm", RoundCone(172, 146, 18, 212, 182, 15), "#8a5a35"),
                         part("head", Ellipsoid(128, 82, 58, 52), "#9c6b43"),
                         part("left foot", Ellipsoid(80, 226, 28, 24), "#8a5a35"), decal("sole", Ellipsoid(80, 228, 15, 13), "#c9976a"),
                         part("right foot", Ellipsoid(176, 226, 28, 24), "#8a5a35"), decal("sole", Ellipsoid(176, 228, 15, 13), "#c9976a"),
                         part("muzzle", Cap(128, 102, 26, 20, rim=65), "#dcb48c"), part("nose", Cap(128, 92, 10, 7), "#2a2020"),
                         decal("eye", Ellipsoid(106, 72, 5), "#1f1717"), decal("eye", Ellipsoid(150, 72, 5), "#1f1717")], sprite_ink=True,
                fused=[(8, ("body", "left arm", "right arm"))])


def skull():
    body = Blend(22, Ellipsoid(128, 104, 86, 82), RoundCone(104, 186, 24, 152, 186))
    return Form("skull", [part("bone", body, "#ece4d2"), part("left socket", Sunk(Cap(92, 112, 26, 28, rim=55)), "#3b3230"),
                          part("right socket", Sunk(Cap(164, 112, 26, 28, rim=55)), "#3b3230"),
                          part("nose", Sunk(Cap(128, 152, 10, 14, rim=50)), "#3b3230")],
                marks=[[(108, 192), (108, 204)], [(128, 192), (128, 204)], [(148, 192), (148, 204)]])


def butterfly():
    def wing(points, colour, name):
        # The wings are raised on both sides.
        return part(name, Lean(Plate(smooth(points), 12), 0.45 if "right" in name else -0.45, 0), colour)

    left = [(120, 120), (96, 60), (40, 34), (20, 76), (52, 124)]
    low = [(118, 132), (60, 140), (40, 186), (84, 220), (116, 170)]
    mirrored = [[(256 - x, y) for x, y in points] for points in (left, low)]
    antennae = [part("feeler", RoundCone(128 + 6 * side, 58, 3, 128 + 22 * side, 30, 4), "#4a3428") for side in (-1, 1)]
    return Form("butterfly", [*antennae, wing(low, "#d9602f", "left low"), wing(mirrored[1], "#d9602f", "right low"),
                              wing(left, "#f08c3a", "left wing"), decal("dot", Ellipsoid(60, 76, 16), "#fbe0a8"),
                              wing(mirrored[0], "#f08c3a", "right wing"), decal("dot", Ellipsoid(196, 76, 16), "#fbe0a8"),
                              part("body", Lathe(128, 70, 128, 216, [(0, 0), (0.15, 12), (0.3, 9), (0.6, 11), (1, 0)]), "#4a3428"),
                              part("head", Ellipsoid(128, 66, 13), "#5a4032")])


def dog():
    body = Blend(16, Ellipsoid(138, 140, 66, 38, 34), Ellipsoid(84, 132, 34, 36))
    return Form("dog", [part("tail", RoundCone(196, 126, 10, 236, 82, 6), "#a8713f"),
                        part("far front leg", RoundCone(82, 160, 13, 76, 224, 11), "#8c5c31"),
                        part("far back leg", RoundCone(168, 160, 14, 180, 224, 11), "#8c5c31"),
                        part("body", body, "#b87d48"), decal("patch", Ellipsoid(150, 122, 24, 15, turn=10), "#8c5c31"),
                        part("near front leg", RoundCone(104, 156, 15, 104, 230, 12), "#b87d48"),
                        part("near back leg", RoundCone(186, 150, 20, 206, 230, 12), "#b87d48"),
                        part("head", Lean(Blend(10, Ellipsoid(72, 84, 40, 38), RoundCone(56, 98, 22, 28, 104, 16)), -0.2, 0), "#c58a54"),
                        part("ear", Deep(0.5, RoundCone(92, 66, 12, 108, 110, 18)), "#7a4d28"),
                        part("nose", Ellipsoid(16, 96, 11, 9), "#2b2322"), *eye(58, 76, 8)], marks=[arc(34, 106, 18, 12, 20, 120)],
                fused=[(10, ("body", "near front leg", "near back leg"))])


def octopus():
    arms = [part("arm", RoundCone(128 + 34 * side, 150, 17, 128 + reach * side, low, 9), "#8456a8")
            for side, reach, low in ((-1, 106, 168), (1, 106, 168), (-1, 82, 218), (1, 82, 218), (-1, 34, 238), (1, 34, 238))]
    return Form("octopus", [*arms, part("head", Ellipsoid(128, 98, 70, 78), "#9a6cc0"), decal("spot", Ellipsoid(166, 54, 10), "#8456a8"),
                            decal("spot", Ellipsoid(148, 38, 6), "#8456a8"), *eye(100, 104, 17), *eye(156, 104, 17),
                            part("mouth", Sunk(Cap(128, 144, 13, 9)), "#4a2a5c")], fused=[(14, ("head", "arm"))], sprite_ink=True)
