#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the op types into docs/ops.md, or checks that they are there as the program tells them.

    ops_page.py OVSCENE --check    fails when the page is another than it would be written
    ops_page.py OVSCENE --write    writes the page

OVSCENE is the program; `ovscene ops` knows the op types of the plug-ins beside it too. The page is
written by hand up to a mark. Behind it each op type has a section, and in it, as
it is, its example: scenes/ops/TYPE.optree.json.
"""
import argparse
import difflib
import json
import os
import pathlib
import subprocess
import sys
import textwrap

ROOT = pathlib.Path(__file__).resolve().parents[1]
PAGE = "docs/ops.md"
EXAMPLES = "scenes/ops"
ENDING = ".optree.json"
MARK = "<!-- From here on written by scripts/ops_page.py. -->\n"
COLUMNS = 120
ANY_NUMBER = 2**31 - 1
WORDS = ("No", "One", "Two", "Three", "Four", "Five")
HEAD = "| argument | kind | default | |\n|---|---|---|---|\n"


class Fault(Exception):
    """Why there can be no page."""


def op_types(ovscene):
    """As `ovscene ops` tells them; the plug-ins are those beside the program alone."""
    environment = {name: value for name, value in os.environ.items() if name != "OVSCENE_PLUGIN_PATH"}
    done = subprocess.run([ovscene, "ops", "--json"], env=environment, capture_output=True, check=False)
    if done.returncode != 0:
        raise Fault(f"{ovscene} ops: {done.stderr.decode(errors='replace')}")
    return json.loads(done.stdout)["opTypes"]


def word(count):
    return WORDS[count] if count < len(WORDS) else str(count)


def inputs_in_words(fewest, most):
    """'No inputs.', 'One input or more.', 'One input or two.', 'Two to four inputs.'"""
    inputs = "input" if fewest == 1 else "inputs"
    if most == ANY_NUMBER:
        return f"{word(fewest)} {inputs} or more." if fewest > 0 else "Any number of inputs."
    if fewest == most:
        return f"{word(fewest)} {inputs}."
    if fewest == 0:
        return f"No inputs, or up to {word(most).lower()}." if most > 1 else "No inputs, or one."
    if most == fewest + 1:
        return f"{word(fewest)} {inputs} or {word(most).lower()}."
    return f"{word(fewest)} to {word(most).lower()} inputs."


def cell(text):
    return " ".join(text.split()).replace("|", "\\|")


def argument_row(argument):
    name, kind, default = argument["name"], argument["kind"], argument["default"]
    about = argument["about"] + (" Needed." if argument["isNeeded"] else "")
    cells = "".join(f" {cell(text)} |" if text else " |" for text in (kind, default, about))
    return f"| `{name}` |{cells}\n"


def wrapped(paragraph):
    return textwrap.fill(" ".join(paragraph.split()), COLUMNS,
                         break_long_words=False, break_on_hyphens=False) + "\n"


def paragraphs(texts):
    return [wrapped(part) for part in texts if part.strip()]


def example(type):
    file = ROOT / EXAMPLES / (type + ENDING)
    try:
        return "```json\n" + file.read_text(encoding="utf-8").rstrip("\n") + "\n```\n"
    except OSError as error:
        raise Fault(f"the op type {type} needs an example: {file.relative_to(ROOT)}: {error.strerror}") from error


def section(type):
    parts = [f"## {type['type']}\n",
             wrapped(type["about"] + " " + inputs_in_words(type["fewestInputs"], type["mostInputs"]))]
    if type["arguments"]:
        parts.append(HEAD + "".join(map(argument_row, type["arguments"])))
    return "\n".join(parts + paragraphs(type["remarks"]) + [example(type["type"])])


def require_types_of_examples(types):
    known = {type["type"] + ENDING for type in types}
    for file in sorted((ROOT / EXAMPLES).iterdir()):
        if file.name not in known:
            raise Fault(f"{file.relative_to(ROOT)}: an example of an op type that there is not")


def whole_page(present, types):
    by_hand, mark, _ = present.partition(MARK)
    if not mark:
        raise Fault(f"{PAGE}: the line that ends what is written by hand is missing: {MARK.strip()}")
    require_types_of_examples(types)
    return "\n".join([by_hand + MARK] + [section(type) for type in types])


def check(present, wanted, ovscene):
    if present == wanted:
        print(f"{PAGE} tells the op types as they are")
        return 0
    sys.stdout.writelines(difflib.unified_diff(
        present.splitlines(True), wanted.splitlines(True), PAGE, "as the op types are"))
    print(f"\n{PAGE} is not what it would be written; write it with: scripts/ops_page.py {ovscene} --write")
    return 1


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("ovscene", metavar="OVSCENE")
    mode = parser.add_mutually_exclusive_group(required=True)
    mode.add_argument("--check", action="store_true", help="compare alone")
    mode.add_argument("--write", action="store_true", help="write the page")
    options = parser.parse_args()
    page = ROOT / PAGE
    present = page.read_text(encoding="utf-8")
    try:
        wanted = whole_page(present, op_types(options.ovscene))
    except Fault as fault:
        print(fault)
        return 1
    if options.check:
        return check(present, wanted, options.ovscene)
    page.write_text(wanted, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
