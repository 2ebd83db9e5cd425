# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Modelled animals and people that were written after the rules, with other habits of drawing than the first ones: parts of one colour
beside each other, thin limbs, bodies that hide most of others. Coordinates are units of which the picture is 256 wide, y down."""
from bodies import Blend, Cap, Cut, Deep, Ellipsoid, Lathe, Lean, Plate, RoundCone, Sunk, Torus, smooth
from creatures import arc
from form import Form, decal, part


def elephant():
    skin, dark = "#93a0ad", "#7f8c99"
    trunk = Blend(8, RoundCone(48, 118, 20, 34, 168, 14), RoundCone(34, 168, 14, 46, 210, 10), RoundCone(46, 210, 10, 66, 216, 8))
    return Form("elephant", [part("tail", RoundCone(234, 122, 4, 246, 170, 3), dark),
                             part("far leg", RoundCone(112, 176, 17, 112, 226, 17), dark), part("far leg", RoundCone(188, 176, 17, 190, 226, 17), dark),
                             part("body", Ellipsoid(158, 134, 82, 60), skin),
                             part("near leg", RoundCone(138, 176, 20, 138, 230, 19), skin), part("near leg", RoundCone(214, 170, 20, 216, 230, 19), skin),
                             part("trunk", trunk, skin), part("head", Ellipsoid(78, 96, 48, 46), skin),
                             part("ear", Lean(Cap(108, 96, 30, 40, rim=45), 0.2, 0), "#a9b5c1"), part("tusk", RoundCone(54, 136, 6, 26, 150, 3), "#f5efdd"),
                             decal("eye", Ellipsoid(62, 86, 5), "#23272b")],
                fused=[(10, ("body", "near leg")), (8, ("head", "trunk"))])


def penguin():
    return Form("penguin", [part("left foot", Ellipsoid(100, 238, 26, 10), "#f0a02c"), part("right foot", Ellipsoid(156, 238, 26, 10), "#f0a02c"),
                            part("left wing", RoundCone(66, 120, 13, 40, 184, 9), "#232a3a"),
                            part("right wing", RoundCone(190, 120, 13, 216, 184, 9), "#232a3a"),
                            part("body", Lathe(128, 16, 128, 240, [(0, 0), (0.22, 46), (0.7, 74), (1, 0)]), "#2c3548"),
                            decal("belly", Ellipsoid(128, 172, 50, 58), "#f7f4ec"), decal("face", Ellipsoid(110, 84, 22, 24), "#f7f4ec"),
                            decal("face", Ellipsoid(146, 84, 22, 24), "#f7f4ec"), part("beak", Lathe(128, 122, 128, 92, [(0, 0), (1, 14)]), "#f0a02c"),
                            decal("eye", Ellipsoid(112, 78, 6), "#151515"), decal("eye", Ellipsoid(144, 78, 6), "#151515")], sprite_ink=True)


def spider():
    """Eight thin legs of two pieces each."""
    legs = []
    for side in (-1, 1):
        for knee_y, foot_y, reach in ((60, 20, 70), (92, 92, 96), (140, 190, 96), (180, 240, 70)):
            knee, foot = 128 + side * reach * 0.75, 128 + side * (reach + 22)
            legs.append(part("leg", Blend(0, RoundCone(128 + side * 20, 124, 6, knee, knee_y, 5), RoundCone(knee, knee_y, 5, foot, foot_y, 3)), "#5b3a6e"))
    return Form("spider", [*legs, part("abdomen", Ellipsoid(128, 164, 50, 54), "#6f478a"), part("head", Ellipsoid(128, 102, 32), "#83559f"),
                           part("eye", Cap(116, 96, 10), "#ffffff"), decal("pupil", Ellipsoid(117, 98, 5), "#111111"),
                           part("eye", Cap(142, 96, 10), "#ffffff"), decal("pupil", Ellipsoid(141, 98, 5), "#111111"),
                           decal("cross", RoundCone(128, 146, 4, 128, 186), "#d7b6ea"), decal("cross", RoundCone(114, 160, 4, 142, 160), "#d7b6ea")])


def turtle():
    shell = Cut(Ellipsoid(134, 168, 92, 92, 70), 0, 170, 0, 1)
    plates = [decal("plate", Ellipsoid(x, y, r, 0.8 * r), "#5d8a3c") for x, y, r in ((134, 108, 24), (88, 136, 18), (180, 136, 18), (134, 150, 18))]
    return Form("turtle", [part("tail", Lathe(244, 178, 208, 166, [(0, 0), (1, 10)]), "#9fbf62"),
                           part("back leg", RoundCone(188, 176, 16, 200, 206, 14), "#9fbf62"), part("front leg", RoundCone(82, 176, 16, 70, 206, 14), "#9fbf62"),
                           part("neck", RoundCone(58, 160, 13, 34, 130, 14), "#a8c96a"), part("head", Ellipsoid(28, 112, 24, 22), "#a8c96a"),
                           part("shell", shell, "#76a34a"), *plates, part("rim", RoundCone(46, 172, 9, 222, 172), "#c9a85a"),
                           decal("eye", Ellipsoid(22, 106, 4), "#1d1d1d")], marks=[arc(20, 116, 12, 8, 30, 120)], fused=[(8, ("neck", "head"))])


def snail():
    return Form("snail", [part("feeler", RoundCone(36, 150, 4, 18, 92, 4), "#d8b98a"), part("feeler", RoundCone(52, 148, 4, 52, 86, 4), "#d8b98a"),
                          part("knob", Ellipsoid(18, 88, 8), "#d8b98a"), part("knob", Ellipsoid(52, 82, 8), "#d8b98a"),
                          part("foot", Blend(12, RoundCone(44, 196, 26, 160, 214, 20), RoundCone(160, 214, 20, 240, 228, 6), Ellipsoid(46, 168, 26, 30)), "#d8b98a"),
                          part("shell", Ellipsoid(152, 134, 78), "#b4643c"), decal("whorl", Torus(152, 134, 52, 5), "#7e4026"),
                          decal("whorl", Torus(150, 136, 26, 4), "#7e4026")], marks=[arc(40, 176, 16, 8, 20, 140)], sprite_ink=True)


def crab():
    limbs = []
    for side in (-1, 1):
        for y, low in ((160, 206), (168, 228), (176, 244)):
            limbs.append(part("leg", RoundCone(128 + side * 60, y, 7, 128 + side * (112 - (low - 206)), low, 4), "#d8502f"))
        limbs.append(part("arm", RoundCone(128 + side * 70, 130, 9, 128 + side * 98, 88, 9), "#d8502f"))
        limbs.append(part("claw", Ellipsoid(128 + side * 100, 60, 24, 30, 18, turn=side * 20), "#e8603a"))
        limbs.append(part("stalk", RoundCone(128 + side * 24, 108, 5, 128 + side * 28, 76, 5), "#d8502f"))
        limbs.append(part("eye", Ellipsoid(128 + side * 28, 68, 13), "#ffffff"))
        limbs.append(decal("pupil", Ellipsoid(128 + side * 26, 69, 6), "#1b1b1b"))
    return Form("crab", [*limbs, part("shell", Ellipsoid(128, 150, 82, 50, 44), "#ef6a42"), decal("shade", Ellipsoid(128, 184, 50, 10), "#d4532e")],
                marks=[arc(128, 150, 34, 20, 25, 155)])


def pointing_hand():
    """A fist with a finger out: fingers of one colour, each painted by itself over the palm."""
    skin, shade = "#e8ab7c", "#cf8f62"
    curled = [part("finger", RoundCone(132, y, 15, 168 - d, y + 2, 15), skin) for y, d in ((128, 0), (154, 2), (178, 8))]
    return Form("pointing_hand", [part("sleeve", Plate([(2, 104), (56, 98), (56, 206), (2, 200)], 16), "#3d6db5"),
                                  part("cuff", RoundCone(60, 104, 10, 60, 200), "#f4f4f4"),
                                  part("palm", Blend(10, Ellipsoid(112, 148, 48, 52, 34), RoundCone(76, 150, 34, 110, 150, 40)), skin),
                                  part("finger", RoundCone(128, 106, 17, 236, 100, 13), skin), *curled,
                                  part("thumb", RoundCone(92, 122, 15, 146, 118, 13), skin), decal("nail", Ellipsoid(146, 114, 7, 6), "#f7d3bb"),
                                  decal("shade", Ellipsoid(96, 180, 20, 12, turn=20), shade)],
                marks=[[(146, 141), (168, 142)], [(146, 166), (164, 167)]])


def runner():
    """A thin figure; limbs of two pieces each, one colour with what they join."""
    skin, shirt, shorts = "#c98d63", "#f2d335", "#2b3f73"
    return Form("runner", [part("far arm", Blend(0, RoundCone(116, 92, 9, 76, 104, 8), RoundCone(76, 104, 8, 62, 74, 7)), skin),
                           part("far leg", Blend(0, RoundCone(124, 156, 13, 84, 182, 10), RoundCone(84, 182, 10, 36, 172, 8)), skin),
                           part("far shoe", RoundCone(32, 166, 8, 26, 186, 7), "#c23b3b"),
                           part("near leg", Blend(0, RoundCone(134, 156, 13, 178, 176, 11), RoundCone(178, 176, 11, 166, 228, 8)), skin),
                           part("near shoe", RoundCone(164, 236, 8, 188, 238, 7), "#d94848"),
                           part("trunk", RoundCone(132, 94, 24, 126, 138, 20), shirt), part("shorts", Ellipsoid(130, 154, 28, 22, 20), shorts),
                           part("near arm", Blend(0, RoundCone(136, 92, 10, 166, 122, 8), RoundCone(166, 122, 8, 204, 104, 7)), skin),
                           part("fist", Ellipsoid(210, 100, 10), skin), part("neck", RoundCone(136, 74, 8, 138, 60), skin),
                           part("head", Ellipsoid(144, 40, 23, 26), skin), part("hair", Cut(Ellipsoid(141, 36, 26, 26), 0, 30, -0.3, 1), "#3a2519"),
                           decal("eye", Ellipsoid(154, 40, 3), "#1c1410")])


def rabbit():
    """White on white: every part has the same colour."""
    white, pink = "#f4f1ee", "#f1b6bd"
    return Form("rabbit", [part("left ear", Ellipsoid(100, 44, 15, 42, 10, turn=-8), white), decal("inner ear", Ellipsoid(100, 48, 7, 30, turn=-8), pink),
                           part("right ear", Ellipsoid(150, 44, 15, 42, 10, turn=8), white), decal("inner ear", Ellipsoid(150, 48, 7, 30, turn=8), pink),
                           part("tail", Ellipsoid(204, 208, 18), white), part("body", Ellipsoid(132, 190, 64, 56), white),
                           part("haunch", Ellipsoid(168, 206, 32, 30, 24), white), part("paw", Ellipsoid(94, 232, 24, 13), white),
                           part("head", Ellipsoid(124, 108, 46, 42), white), part("nose", Cap(122, 118, 7, 5), "#e58a95"),
                           decal("eye", Ellipsoid(106, 100, 5, 6), "#3b2a2a"), decal("eye", Ellipsoid(140, 100, 5, 6), "#3b2a2a")],
                sprite_ink=True, fused=[(12, ("body", "haunch"))])


def angler():
    """A fish with an open mouth, teeth and a lamp on a thin rod."""
    body = Blend(18, Ellipsoid(112, 142, 76, 66, 50), RoundCone(160, 142, 34, 206, 140, 16))
    teeth = [part("tooth", Lathe(x, y, x + 1, y + d, [(0, 6), (1, 0)]), "#f2ecd2") for x, y, d in ((58, 136, 18), (78, 134, 20), (98, 138, 16), (68, 186, -16), (90, 188, -16))]
    rod = Blend(4, RoundCone(120, 80, 4, 96, 40, 3), RoundCone(96, 40, 3, 52, 44, 3))
    return Form("angler", [part("tail", Lean(Plate(smooth([(196, 140), (244, 96), (234, 140), (244, 186)]), 7), 0.3, 0), "#35606b"),
                           part("fin", Lean(Plate(smooth([(120, 86), (150, 56), (182, 84), (160, 104)]), 6), 0, -0.3), "#35606b"),
                           part("rod", rod, "#35606b"), part("lamp", Ellipsoid(46, 48, 13), "#f9e58b"), part("body", body, "#447784"),
                           part("mouth", Sunk(Cap(76, 160, 34, 26, rim=45)), "#2a1420"), *teeth,
                           part("eye", Cap(104, 106, 15), "#f6f0cf"), decal("pupil", Ellipsoid(102, 107, 7), "#141414"),
                           part("side fin", Lean(Deep(0.4, Lathe(140, 160, 184, 186, [(0, 6), (0.6, 18), (1, 0)])), 0.3, 0), "#35606b")])
