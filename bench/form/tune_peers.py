#!/usr/bin/python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Finds the constants with which the outline methods of peers.py do best on the tuned forms, so that they are compared at their best.

usage: tune_peers.py FOLDER, one that tests/forms/make_forms.py wrote
"""
import os
import sys

import numpy as np

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tests", "forms"))

import catalogue  # noqa: E402
import peers  # noqa: E402
from measures import measure  # noqa: E402


def best(method, names, firsts, seconds, truths):
    """Tries all pairs of values of two constants; returns the least lighting error and the pair."""
    results = []
    for first in firsts:
        for second in seconds:
            setattr(peers, names[0], first)
            setattr(peers, names[1], second)
            errors = [measure(method(data["coverage"]), data["normals"], data["top"] >= 0)[0] for data in truths]
            results.append((np.mean(errors), first, second))
    return min(results)


if __name__ == "__main__":
    folder = sys.argv[1]
    truths = [dict(np.load(os.path.join(folder, f"{name}.truth.npz"))) for name, (which, _) in catalogue.FORMS.items() if which == catalogue.TUNED]
    print("BLUR_SIGMA, BLUR_HEIGHT:", best(peers.blurred_alpha, ("BLUR_SIGMA", "BLUR_HEIGHT"), (0.03, 0.04, 0.05, 0.06, 0.08, 0.1, 0.13),
                                           (0.15, 0.2, 0.25, 0.3, 0.4, 0.5, 0.7), truths))
    print("DISTANCE_RADIUS, DISTANCE_HEIGHT:", best(peers.distance_bump, ("DISTANCE_RADIUS", "DISTANCE_HEIGHT"), (0.1, 0.15, 0.2, 0.3, 0.4, 0.5),
                                                   (0.2, 0.3, 0.4, 0.6, 0.8, 1.0), truths))
