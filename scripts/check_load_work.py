#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Fails when loading a library runs code of its own: what it shares is to be made on first use.

Usage: check_load_work.py LIBRARY

Headers of the standard library and of Boost bring initialisers along; those may do what they do, as
long as they call nothing of ours and allocate nothing.
"""
import re
import subprocess
import sys

FUNCTION = re.compile(r"^[0-9a-f]+ <(.+)>:$")
CALL = re.compile(r"\s(?:call|jmp)\s+(?:0x)?[0-9a-f]+ <([^+].*?)(?:@plt)?(?:\+0x[0-9a-f]+)?>$")
INITIALISER = re.compile(
    r"_GLOBAL__(?:sub_)?I|__static_initialization_and_destruction|__cxx_global_var_init")
FORBIDDEN = re.compile(r"\b(?:SYLVAR|Sylvar3|OvLoggingHost)::|\bOv[A-Z]|operator new|\bmalloc\b")


def output(*command):
    return subprocess.run(command, capture_output=True, check=True, text=True).stdout


def calls_of_initialisers(library):
    """For each initialiser its name and the names of what it calls."""
    calls, inside = [], False
    for line in output("objdump", "-d", "-C", "--no-show-raw-insn", library).splitlines():
        function = FUNCTION.match(line)
        if function:
            inside = bool(INITIALISER.match(function[1]))
            if inside:
                calls.append((function[1], []))
        elif inside and (call := CALL.search(line)):
            calls[-1][1].append(call[1])
    return calls


def initialiser_count(library):
    """How many functions run at load, without the one that every library begins with."""
    section = re.search(r"\.init_array\s+INIT_ARRAY\s+\S+\s+\S+\s+([0-9a-f]+)",
                        output("readelf", "-SW", library))
    return int(section[1], 16) // 8 - 1 if section else 0


library = sys.argv[1]
calls = calls_of_initialisers(library)
named = sum(name.startswith("_GLOBAL__") for name, _ in calls)
if named != initialiser_count(library):
    sys.exit(f"{initialiser_count(library)} functions run at load, of which {named} are known")
faults = [f"{name} calls {call}" for name, called in calls for call in called
          if FORBIDDEN.search(call)]
if faults:
    sys.exit("\n".join(faults))
print(f"{named} initialisers, none of which does work of ours")
