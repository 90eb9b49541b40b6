#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Compares what a library exports with a list of symbols; --approve writes the list.

Usage: check_abi.py LIBRARY LIST [--approve]
"""
import pathlib
import subprocess
import sys


def exported(library):
    """The demangled names of the defined dynamic symbols, sorted, each once."""
    lines = subprocess.run(["nm", "-D", "--defined-only", "-C", "--format=just-symbols", library],
                           capture_output=True, check=True, text=True).stdout.splitlines()
    return sorted({line.strip() for line in lines if line.strip()})


library, approved = sys.argv[1], pathlib.Path(sys.argv[2])
now = exported(library)
if "--approve" in sys.argv[3:]:
    approved.write_text("".join(f"{name}\n" for name in now), encoding="utf-8")
    print(f"{approved}: {len(now)} symbols")
    sys.exit(0)

before = approved.read_text(encoding="utf-8").splitlines() if approved.exists() else []
for name in sorted(set(before) - set(now)):
    print(f"gone: {name}")
for name in sorted(set(now) - set(before)):
    print(f"new:  {name}")
if now != before:
    sys.exit("The exported symbols changed. When that is meant: scripts/approve_abi.sh")
print(f"{len(now)} symbols as approved")
