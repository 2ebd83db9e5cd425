# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""All forms, and which of them may be looked at while values are tuned. The held ones are for the final measurement alone."""
import creatures
import things

TUNED, HELD = "tuned", "held"

FORMS = {
    "ball": (TUNED, things.ball),
    "sausage": (TUNED, things.sausage),
    "ring": (TUNED, things.ring),
    "carrot": (TUNED, things.carrot),
    "mitten": (TUNED, creatures.mitten),
    "mug": (TUNED, things.mug),
    "fish": (TUNED, creatures.fish),
    "snowman": (TUNED, creatures.snowman),
    "figure": (TUNED, creatures.figure),
    "face": (TUNED, creatures.face),
    "car": (TUNED, things.car),
    "tree": (TUNED, things.tree),
    "bust": (TUNED, creatures.bust),
    "mushroom": (TUNED, things.mushroom),
    "cat": (TUNED, creatures.cat),
    "rocket": (TUNED, things.rocket),
    "gift": (TUNED, things.gift),
    "dog": (TUNED, creatures.dog),
    "egg": (HELD, things.egg),
    "doughnut": (HELD, things.doughnut),
    "icecream": (HELD, things.icecream),
    "hand": (HELD, creatures.hand),
    "teapot": (HELD, things.teapot),
    "whale": (HELD, creatures.whale),
    "bear": (HELD, creatures.bear),
    "robot": (HELD, things.robot),
    "monster": (HELD, creatures.monster),
    "train": (HELD, things.train),
    "fir": (HELD, things.fir),
    "portrait": (HELD, creatures.portrait),
    "apple": (HELD, things.apple),
    "duck": (HELD, creatures.duck),
    "skull": (HELD, creatures.skull),
    "badge": (HELD, things.badge),
    "bottle": (HELD, things.bottle),
    "flower": (HELD, things.flower),
    "cloud": (HELD, things.cloud),
    "butterfly": (HELD, creatures.butterfly),
    "octopus": (HELD, creatures.octopus),
    "house": (HELD, things.house),
}


def forms(which="all"):
    """The forms of a set, or of both, in the table's order."""
    return [make() for chosen, make in FORMS.values() if which in ("all", chosen)]
