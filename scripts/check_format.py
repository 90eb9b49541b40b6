#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Fails when clang-format would change a C or C++ file of the project; --fix lets it.

Usage: check_format.py ROOT [--fix]
"""
import re
import shutil
import subprocess
import sys

from project_files import CPP, project_files

program = shutil.which("clang-format-14") or shutil.which("clang-format")
if not program:
    sys.exit("clang-format is missing; scripts/install_packages.sh installs it")
files = [str(f) for f in project_files(sys.argv[1]) if f.suffix in CPP]
if not files:
    sys.exit("no files to look at")
mode = ["-i"] if "--fix" in sys.argv[2:] else ["--dry-run", "-Werror"]
done = subprocess.run([program, "--style=file", *mode, *files],
                      capture_output=True, check=False, text=True)
if done.returncode:
    places = dict(re.findall(r"^(.+?):(\d+):\d+: error:", done.stderr, re.M)[::-1])
    print("\n".join(f"{file}:{line}" for file, line in sorted(places.items())) or done.stderr)
    sys.exit("Not formatted from these lines on; scripts/check_format.py . --fix does it")
print(f"{len(files)} files are formatted")
