# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Runs blender_add_on.py in Blender, with a home folder of its own.

    in_blender.py QUARVEL ADD_ONS

Exit code: 77 where Blender is missing.
"""

import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

program, add_ons = (str(Path(word).resolve()) for word in sys.argv[1:])
blender = shutil.which("blender")
if not blender:
    print("skipped: blender is missing; it is in Debian's package blender")
    sys.exit(77)
with tempfile.TemporaryDirectory() as home:
    script = Path(__file__).with_name("blender_add_on.py")
    words = ["--background", "--factory-startup", "--python-exit-code", "1", "--python", str(script), "--", program, add_ons]
    done = subprocess.run([blender, *words], env={**os.environ, "HOME": home, "TMPDIR": home, "PYTHONDONTWRITEBYTECODE": "1"}, check=False)
sys.exit(done.returncode)
