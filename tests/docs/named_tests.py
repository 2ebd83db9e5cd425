#!/usr/bin/env python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Checks that the tests that documents name exist: what a test promises is worth nothing once the test is gone.

usage: named_tests.py BUILD_FOLDER DOCUMENT...
"""
import pathlib
import re
import subprocess
import sys

# `area.Suite` or `area.Suite.Case`, as CTest calls them; a suite with parameters is `area.Instance/Suite`.
NAMED = re.compile(r"`([a-z0-9]+)\.([A-Z][A-Za-z0-9*]*(?:/[A-Z][A-Za-z0-9*]*)?(?:\.[A-Za-z0-9*]+)?)`")


def known_tests(build):
    listed = subprocess.run(["ctest", "--test-dir", build, "-N"], capture_output=True, text=True, check=True).stdout
    return re.findall(r"^ *Test +#\d+: (\S+)", listed, re.MULTILINE)


def main():
    build, *documents = sys.argv[1:]
    tests = known_tests(build)
    areas = {test.partition(".")[0] for test in tests}
    found = 0
    missing = []
    for document in documents:
        for area, name in NAMED.findall(pathlib.Path(document).read_text(encoding="utf-8")):
            # A build without Python has no tests of it, and documents also name functions.
            if area not in areas:
                continue
            found += 1
            pattern = re.compile(re.escape(f"{area}.{name}").replace(r"\*", ".*") + r"(\W|$)")
            if not any(pattern.match(test) for test in tests):
                missing.append(f"{document}: there is no test {area}.{name}")
    print("\n".join(missing) or f"{found} tests are named, and exist")
    return 1 if missing or found == 0 else 0


sys.exit(main())
