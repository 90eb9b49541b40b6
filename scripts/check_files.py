#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Fails when a file lacks its licence line or its guard, or two files of a layer share a name.

Usage: check_files.py ROOT
"""
import collections
import pathlib
import re
import sys

from project_files import CPP, project_files

LICENCE = "SPDX-License-Identifier: Apache-2.0"
HASH = {".cmake", ".py", ".sh"}


def licence_lines(file):
    """The first lines that this file may have; none for a file that needs no licence line."""
    if file.suffix in CPP | {".fbs"}:
        return {f"// {LICENCE}", f"/* {LICENCE} */"}
    if file.suffix == ".map":
        return {f"/* {LICENCE} */"}
    if file.suffix in HASH or file.name == "CMakeLists.txt" or file.parent.name == ".ci":
        return {f"# {LICENCE}"}
    return set()


def licence_faults(files):
    for file in files:
        wanted = licence_lines(file)
        if wanted:
            lines = file.read_text(encoding="utf-8").splitlines() + ["", ""]
            if lines[lines[0].startswith("#!")] not in wanted:
                yield file, f"does not begin with {LICENCE}"


def guard_faults(files):
    for file in files:
        if file.suffix not in {".h", ".hpp"}:
            continue
        text = file.read_text(encoding="utf-8")
        once = re.search(r"^#pragma once$", text, re.M)
        if file.parent.name != "suites":
            if not once:
                yield file, "has no #pragma once"
            continue
        guard = re.search(r"^#ifndef (\w+)\n#define (\w+)\n", text, re.M)
        if once or not guard or guard[1] != guard[2] or not re.search(r"^#endif[^\n]*$", text.rstrip().splitlines()[-1]):
            yield file, "has no classical guard: #ifndef X, #define X ... #endif"


def name_faults(root, files):
    """One name stands once in a layer, whatever the folder below it."""
    seen = collections.defaultdict(list)
    for file in files:
        place = file.relative_to(root).parts
        if file.suffix in CPP and place[0] in {"src", "include"} and len(place) > 2:
            seen[place[0], place[1], file.name].append(file)
    for same in seen.values():
        for file in same[1:]:
            yield file, f"has the name of {same[0].relative_to(root)}"


def faults(root):
    files = project_files(root)
    for find in (licence_faults(files), guard_faults(files), name_faults(root, files)):
        for file, fault in find:
            yield f"{file.relative_to(root)}: {fault}"


if __name__ == "__main__":
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "every file has its licence line, its guard and a name of its own")
    sys.exit(bool(found))
