# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""All forms, and which of them may be looked at while values are tuned. The held ones are for the final measurement alone; the probes
were written after the rules, with other habits of drawing, to find out which rules fail on what nobody had in mind."""
import creatures
import household
import things
import wildlife

TUNED, HELD, PROBE = "tuned", "held", "probe"

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
    "elephant": (PROBE, wildlife.elephant),
    "penguin": (PROBE, wildlife.penguin),
    "spider": (PROBE, wildlife.spider),
    "turtle": (PROBE, wildlife.turtle),
    "snail": (PROBE, wildlife.snail),
    "crab": (PROBE, wildlife.crab),
    "pointing_hand": (PROBE, wildlife.pointing_hand),
    "runner": (PROBE, wildlife.runner),
    "rabbit": (PROBE, wildlife.rabbit),
    "angler": (PROBE, wildlife.angler),
    "lorry": (PROBE, household.lorry),
    "yurt": (PROBE, household.yurt),
    "kettle": (PROBE, household.kettle),
    "toadstools": (PROBE, household.toadstools),
    "tin_robot": (PROBE, household.tin_robot),
    "leaves": (PROBE, household.leaves),
    "fruit_bowl": (PROBE, household.fruit_bowl),
    "balloon": (PROBE, household.balloon),
    "cactus": (PROBE, household.cactus),
    "lamp": (PROBE, household.lamp),
    "guitar": (PROBE, household.guitar),
    "chess_pawn": (PROBE, household.chess_pawn),
    "sword": (PROBE, household.sword),
    "fish_bowl": (PROBE, household.fish_bowl),
}


def forms(which="all"):
    """The forms of a set, or of both, in the table's order."""
    return [make() for chosen, make in FORMS.values() if which in ("all", chosen)]
