# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Modelled things and plants that were written after the rules: boxes, domes, overlapping leaves, dark and pale bodies, thin handles.
Coordinates are units of which the picture is 256 wide, y down."""
import numpy as np

from bodies import Blend, Cap, Cut, Deep, Ellipsoid, Lathe, Lean, Plate, RoundCone, Sunk, Torus, disc, rounded, smooth
from form import Form, decal, part
from outlines import closed_outlines


def lorry():
    wheels = []
    for x in (62, 168, 210):
        wheels += [part("tyre", Plate(disc(x, 208, 25), 9), "#2b2b30"), part("rim", Cap(x, 208, 12, rim=35), "#d5d8dc")]
    return Form("lorry", [part("cabin", Plate(rounded(14, 100, 88, 204, 12), 14), "#e0942e"), part("box", Plate(rounded(92, 52, 244, 198, 6), 6), "#e9ecef"),
                          decal("stripe", Plate([(94, 118), (242, 118), (242, 138), (94, 138)], 1), "#d0453c"),
                          part("window", Sunk(Plate(rounded(26, 114, 68, 148, 6), 4)), "#a5d3e8"), part("bumper", RoundCone(18, 206, 7, 88, 206), "#7c8087"),
                          part("lamp", Cap(22, 182, 8), "#fbe99a"), *wheels])


def yurt():
    """A house with a round roof."""
    roof = Cut(Ellipsoid(128, 128, 108, 84, 90), 0, 128, 0, 1)
    return Form("yurt", [part("chimney", RoundCone(176, 30, 9, 176, 76), "#6b6f76"),
                         part("wall", Lathe(128, 118, 128, 232, [(0, 96), (1, 96)]), "#eadfc8"), part("roof", roof, "#b9563f"),
                         part("band", Deep(0.3, RoundCone(24, 130, 9, 232, 130)), "#e0b64a"),
                         part("door", Plate(rounded(104, 156, 152, 232, 8), 5), "#7d5433"), part("handle", Cap(142, 196, 4), "#e0b64a"),
                         part("window", Sunk(Cap(190, 176, 17, rim=30)), "#9fd0e6"), part("window", Sunk(Cap(66, 176, 17, rim=30)), "#9fd0e6")])


def kettle():
    return Form("kettle", [part("handle", Cut(Torus(128, 104, 72, 9), 0, 112, 0, 1), "#2f3136"),
                           part("spout", Lathe(178, 168, 238, 96, [(0, 26), (0.7, 13), (1, 11)]), "#c9ced4"),
                           part("pot", Lathe(128, 96, 128, 236, [(0, 34), (0.35, 70), (0.8, 84), (1, 72)]), "#dce0e5"),
                           part("lid", Cut(Ellipsoid(128, 104, 40, 24, 36), 0, 104, 0, 1), "#c2c8cf"), part("knob", Ellipsoid(128, 76, 11), "#2f3136"),
                           decal("shine", Ellipsoid(92, 168, 10, 34, turn=12), "#ffffff")], sprite_ink=True)


def toadstools():
    def stool(x, y, r, red):
        return [part("stem", Lathe(x, y - 8, x, y + 1.5 * r, [(0, 0.3 * r), (0.7, 0.34 * r), (1, 0)]), "#efe4d0"),
                part("cap", Cut(Ellipsoid(x, y, r, 0.9 * r, 0.8 * r), 0, y + 0.12 * r, 0, 1), red)]

    return Form("toadstools", [*stool(176, 128, 62, "#a8432f"), *stool(82, 100, 66, "#c65a36"), *stool(128, 186, 40, "#dd7a42"),
                               part("grass", Deep(0.5, Lathe(44, 250, 24, 190, [(0, 7), (1, 0)])), "#5c9444"),
                               part("grass", Deep(0.5, Lathe(54, 250, 62, 196, [(0, 7), (1, 0)])), "#6aa64e")])


def tin_robot():
    """Boxes and capsules, all of two greys."""
    light, dark = "#c3c9cf", "#8e979f"
    return Form("tin_robot", [part("left arm", RoundCone(64, 124, 10, 34, 178, 10), dark), part("right arm", RoundCone(192, 124, 10, 222, 178, 10), dark),
                              part("left claw", Torus(28, 196, 13, 5), light), part("right claw", Torus(228, 196, 13, 5), light),
                              part("left leg", RoundCone(104, 200, 12, 100, 232, 12), dark), part("right leg", RoundCone(152, 200, 12, 156, 232, 12), dark),
                              part("left foot", Plate(rounded(74, 232, 118, 250, 7), 7), light), part("right foot", Plate(rounded(138, 232, 182, 250, 7), 7), light),
                              part("trunk", Plate(rounded(70, 112, 186, 206, 10), 12), light), part("neck", RoundCone(128, 100, 10, 128, 116), dark),
                              part("head", Plate(rounded(80, 34, 176, 100, 12), 12), light), part("left ear", Plate(rounded(66, 54, 82, 82, 5), 5), dark),
                              part("right ear", Plate(rounded(174, 54, 190, 82, 5), 5), dark), part("eye", Cap(108, 62, 13), "#4fb3d9"), part("eye", Cap(148, 62, 13), "#4fb3d9"),
                              part("mouth", Sunk(Plate(rounded(104, 82, 152, 92, 4), 3)), "#3a3f45"), part("gauge", Cap(104, 144, 16, rim=40), "#f3efe2"),
                              part("button", Cap(152, 138, 7), "#d9453d"), part("button", Cap(152, 162, 7), "#e9b93a"),
                              part("aerial", RoundCone(128, 10, 3, 128, 34), dark), part("bulb", Ellipsoid(128, 10, 8), "#d9453d")])


def leaves():
    """Leaves of near greens that hide each other."""
    greens = ["#3f7d3a", "#4c9145", "#5ba552", "#6bb661", "#7cc672", "#4c9145", "#5ba552"]
    blades = []
    for i, angle in enumerate(np.radians([200, 340, 235, 305, 270, 222, 318])):
        reach = 118 - 9 * (i % 3)
        x, y = 128 + reach * np.cos(angle), 214 + reach * 1.45 * np.sin(angle)
        blades.append(part("leaf", Lean(Deep(0.35, Lathe(128, 214, x, y, [(0, 3), (0.5, 26), (1, 0)])), 0.25 * np.cos(angle), 0), greens[i]))
    return Form("leaves", [*blades, part("pot", Lathe(128, 196, 128, 250, [(0, 50), (1, 36)]), "#b8603c"), part("rim", RoundCone(76, 196, 9, 180, 196), "#c8704a")])


def fruit_bowl():
    bowl = Cut(Ellipsoid(128, 150, 110, 86, 80), 0, 150, 0, -1)
    grapes = [part("grape", Ellipsoid(x, y, 15), "#6a3d86") for x, y in ((196, 110), (174, 118), (206, 132), (184, 136), (162, 136))]
    return Form("fruit_bowl", [part("banana", Blend(10, RoundCone(40, 118, 10, 76, 76, 15), RoundCone(76, 76, 15, 124, 54, 11)), "#f0d24a"),
                               part("pear", Lathe(100, 40, 92, 166, [(0, 0), (0.1, 12), (0.4, 22), (0.75, 40), (1, 0)]), "#b9c24a"),
                               part("orange", Ellipsoid(144, 110, 40), "#ee9230"), *grapes, part("apple", Ellipsoid(64, 138, 32), "#c8382f"),
                               part("bowl", bowl, "#4f86b8"), part("base", Plate(rounded(92, 230, 164, 248, 6), 6), "#3f6f9c")])


def balloon():
    """Gores of two colours side by side, ropes and a basket."""
    hull = Blend(6, Ellipsoid(128, 92, 84), Lathe(128, 120, 128, 194, [(0, 70), (1, 18)]))
    return Form("balloon", [part("rope", RoundCone(110, 190, 2.5, 112, 220), "#6b4a2e"), part("rope", RoundCone(146, 190, 2.5, 144, 220), "#6b4a2e"),
                            part("hull", hull, "#d6463c"), decal("gore", Cut(Cut(hull, 106, 0, -1, 0), 150, 0, 1, 0), "#f2e3c2"),
                            part("basket", Plate(rounded(104, 216, 152, 250, 7), 12), "#a9743f"), part("edge", RoundCone(104, 218, 5, 152, 218), "#c08a50")], sprite_ink=True)


def cactus():
    body = RoundCone(128, 48, 32, 128, 220, 34)
    left = Blend(8, RoundCone(60, 152, 14, 110, 160, 14), RoundCone(60, 152, 14, 58, 100, 14))
    right = Blend(8, RoundCone(198, 130, 13, 146, 140, 13), RoundCone(198, 130, 13, 200, 84, 13))
    return Form("cactus", [part("left arm", left, "#4b8f4a"), part("right arm", right, "#4b8f4a"), part("body", body, "#57a055"),
                           part("flower", Ellipsoid(128, 16, 16, 12), "#ea6fa0"), part("pot", Lathe(128, 200, 128, 252, [(0, 52), (1, 40)]), "#c0643d")],
                marks=[[(112, 70), (112, 180)], [(128, 60), (128, 190)], [(144, 70), (144, 180)]], sprite_ink=True, fused=[(8, ("left arm", "right arm", "body"))])


def lamp():
    """A shade, a thin stand and a foot, all pale."""
    return Form("lamp", [part("stand", RoundCone(128, 110, 5, 128, 226), "#b59a6a"), part("foot", Cut(Ellipsoid(128, 240, 54, 22, 40), 0, 240, 0, 1), "#a88c5c"),
                         part("bulb", Ellipsoid(128, 122, 18), "#fff6cf"), part("shade", Lathe(128, 18, 128, 116, [(0, 38), (1, 84)]), "#efe3c4"),
                         decal("hem", Cut(Lathe(128, 18, 128, 116, [(0, 38), (1, 84)]), 0, 104, 0, -1), "#d8c594"), part("chain", RoundCone(164, 112, 2, 164, 150), "#a88c5c")])


def guitar():
    body = Blend(16, Ellipsoid(90, 178, 66, 60), Ellipsoid(140, 128, 46, 44))
    return Form("guitar", [part("neck", Plate([(148, 112), (220, 34), (232, 46), (162, 126)], 6), "#5b3a22"), part("head", Plate(rounded(212, 12, 244, 50, 6), 6), "#44291a"),
                           part("body", Plate(_outline_of(body), 14), "#cf8a3d"), part("hole", Sunk(Cap(126, 142, 20, rim=50)), "#2d1a10"),
                           part("bridge", Plate([(62, 184), (86, 208), (78, 216), (54, 192)], 3), "#44291a")],
                marks=[[(74, 196), (218, 40)]], sprite_ink=True)


def _outline_of(body):
    """The corners of a body's only outline."""
    (loop,) = closed_outlines(body.outline, body.box)
    return [tuple(point) for point in loop]


def chess_pawn():
    profile = [(0, 0), (0.1, 22), (0.24, 30), (0.36, 16), (0.4, 26), (0.46, 14), (0.8, 28), (0.86, 50), (1, 54)]
    return Form("chess_pawn", [part("pawn", Lathe(128, 16, 128, 242, profile), "#4a3a30"), decal("felt", Plate([(76, 234), (180, 234), (180, 241), (76, 241)], 1), "#2d6a4a")],
                sprite_ink=True)


def sword():
    return Form("sword", [part("blade", Plate([(128, 8), (144, 30), (142, 176), (114, 176), (112, 30)], 14), "#cfd6de"), part("grip", RoundCone(128, 186, 9, 128, 226), "#6b4226"),
                          part("guard", RoundCone(76, 182, 9, 180, 182), "#d9ad3c"), part("pommel", Ellipsoid(128, 238, 14), "#d9ad3c"), part("gem", Cap(128, 182, 6), "#c2314a")])


def fish_bowl():
    """Half transparent glass over water and a fish."""
    return Form("fish_bowl", [part("bowl", Ellipsoid(128, 140, 100, 92), "#bfe3f2"), decal("water", Cut(Ellipsoid(128, 140, 96, 88), 0, 104, 0, -1), "#7cc0e0"),
                              part("tail", Lean(Plate(smooth([(158, 154), (190, 130), (184, 154), (190, 178)]), 6), 0.3, 0), "#e86a2c"),
                              part("fish", Deep(0.7, Ellipsoid(122, 154, 42, 26)), "#f5893a"), decal("eye", Ellipsoid(98, 148, 5), "#1a1a1a"),
                              part("stone", Ellipsoid(92, 216, 18, 10), "#8d8478"), part("stone", Ellipsoid(150, 220, 22, 9), "#a39a8c"),
                              decal("glint", Ellipsoid(66, 92, 10, 20, turn=35), "#ffffff", 0.6)])
