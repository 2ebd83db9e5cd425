#!/usr/bin/env python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Lists the functions declared in src/ that nothing in src/ calls: those that only tests call, and those that nobody does.

It reads words, no types, and leaves macros out: a name counts as used where any code in src/ or examples/ says it other than to declare or define
it, so a name that two classes share hides an unused one. What is meant for others to call stands with its reason in
tools/names-for-others.txt, one "NAME: reason" a line. Exits with 1 where a name is listed, or a reason is no longer needed.
"""
import pathlib
import re
import sys
from collections import defaultdict

ROOT = pathlib.Path(__file__).resolve().parent.parent
REASONS = ROOT / "tools/names-for-others.txt"
NOISE = re.compile(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'', re.S)
TOKEN = re.compile(r"[A-Za-z_]\w*|::|->|&&|\S")
# What may stand before the name where it is used, though it looks like a type.
NOT_A_TYPE = {"return", "co_return", "throw", "else", "case", "new", "delete", "and", "or", "not", "typename", "operator"}
KEYWORDS = {"if", "for", "while", "switch", "catch", "sizeof", "alignof", "decltype", "noexcept", "static_assert", "assert",
            "defined", "requires", "alignas", "constexpr", "return", "operator", "explicit", "using"}


def tokens(path):
    return TOKEN.findall(NOISE.sub(" ", path.read_text(encoding="utf-8")))


def ends_type(words, at):
    """Whether the words up to this place may be the type of what comes next."""
    while words[at] in {"*", "&", "const"} and at > 0:
        at -= 1
    return words[at] == ">" or (re.match(r"[A-Za-z_]", words[at]) and words[at] not in NOT_A_TYPE)


def introduces(words, at):
    """Whether the name at this place, followed by a bracket, is declared or defined there."""
    before = at - 1
    while before > 0 and words[before] == "::":
        before -= 2
        if before >= 0 and words[before + 1] == ">":
            return False
    return before >= 0 and ends_type(words, before)


def is_overriding(words, at):
    """Whether a declaration is of a function that a base class calls."""
    end = at
    while end < len(words) and words[end] != ";" and not (words[end] == "{" and words[end + 1] != "}"):
        end += 1
    start = at
    while start > 0 and words[start] not in {";", "{", "}"}:
        start -= 1
    return "override" in words[at:end] or "virtual" in words[start:at] or "friend" in words[start:at]


def sources(*folders):
    return [path for folder in folders for path in sorted((ROOT / folder).rglob("*")) if path.suffix in {".h", ".cpp"}]


def main():
    declared = {}
    used = set()
    for path in sources("src", "examples"):
        words = tokens(path)
        for at in range(1, len(words)):
            name = words[at]
            if not re.match(r"[A-Za-z_]\w*$", name) or name in KEYWORDS or name.isupper():
                continue
            is_called = at + 1 < len(words) and words[at + 1] == "("
            if not is_called or not introduces(words, at):
                used.add(name)
            elif path.suffix == ".h" and path.is_relative_to(ROOT / "src") and not is_overriding(words, at):
                declared.setdefault(name, path.relative_to(ROOT))
    in_tests = set()
    for path in sources("tests", "bench"):
        in_tests.update(tokens(path))

    reasons = dict(line.split(": ", 1) for line in REASONS.read_text().splitlines() if line and not line.startswith("#"))
    unused = {name: path for name, path in declared.items() if name not in used}
    failed = False
    for name, path in sorted(unused.items()):
        if name not in reasons:
            who = "only tests call it" if name in in_tests else "nothing calls it"
            print(f"{path}: {name}: {who}; connect it, delete it, or give the reason for it in {REASONS.relative_to(ROOT)}")
            failed = True
    for name in sorted(set(reasons) - set(unused)):
        print(f"{REASONS.relative_to(ROOT)}: {name} is called, or gone; delete its line")
        failed = True
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
