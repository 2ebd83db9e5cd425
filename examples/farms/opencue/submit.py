#!/usr/bin/env python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Sends a film to OpenCue: tasks that share the frames, then a preview of all of them.

Wants PyCue and PyOutline, and CUEBOT_HOSTS. Written after PyOutline's documentation; nobody has tried it on a farm yet.

    submit.py SHOW SHOT SCENE OUTPUT_FOLDER [TASKS]
"""
import getpass
import sys

import outline
import outline.cuerun
import outline.modules.shell

show, shot, scene, output = sys.argv[1:5]
tasks = int(sys.argv[5]) if len(sys.argv) > 5 else 8

job = outline.Outline("normals", shot=shot, show=show, user=getpass.getuser())
# OpenCue's "frames" are the shards here, so that each of its tasks starts quarvel once for many frames.
render = outline.modules.shell.Shell(
    "render",
    command=["quarvel", "render", scene, "-o", f"{output}/n.####.exr", "--shard", f"#IFRAME#/{tasks}", "--resume", "--progress", "percent"],
    range=f"1-{tasks}",
)
job.add_layer(render)
preview = outline.modules.shell.Shell(
    "preview", type="Util", command=["quarvel", "render", scene, "--preview", f"{output}/lit.mp4", "--progress", "percent"], range="1"
)
preview.depend_all(render)
job.add_layer(preview)
outline.cuerun.launch(job, use_pycuerun=False)
