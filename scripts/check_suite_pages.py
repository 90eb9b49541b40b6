#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Fails when the reference page of a table does not tell of every entry, as the header declares it.

Usage: check_suite_pages.py ROOT
"""
import pathlib
import re
import sys

HEADERS = pathlib.Path("include/OvSylvarProducers/suites")
PAGES = {
    "docs/scenegraph_iterator_suite.md": ("ScenegraphIteratorSuite.h", "OvScenegraphIteratorSuite"),
    "docs/render_output_suite.md": ("RenderOutputUtilsSuite.h", "OvRenderOutputUtilsSuite"),
}
ROWS = ["arguments", "result", "absent", "threads", "errors"]
ENTRY = re.compile(r"([\w ]+?\w\s*\**)\s*\(\s*\*(\w+)\)\(\s*(.*?)\)\s*;", re.S)
SECTION = re.compile(r"^### (\w+)\n\n```c\n(.*?)```\n(.*?)(?=^##|\Z)", re.S | re.M)


def words(text):
    """The words and signs of a declaration, whatever its line breaks."""
    return re.findall(r"\w+|[^\w\s]", text)


def declared(header, struct):
    text = re.sub(r"/\*.*?\*/", "", header.read_text(encoding="utf-8"), flags=re.S)
    table = text.split(f"typedef struct {struct} {{")[1].split(f"}} {struct};")[0]
    return {name: words(f"{result} {name}({arguments});")
            for result, name, arguments in ENTRY.findall(table)}


def told(page):
    """For each entry its declaration and the titles of the rows below it."""
    return {name: (words(code), re.findall(r"^\| (\w+) \| \S", text, re.M))
            for name, code, text in SECTION.findall(page.read_text(encoding="utf-8"))}


def faults(root):
    for page, (header, struct) in PAGES.items():
        entries, sections = declared(root / HEADERS / header, struct), told(root / page)
        if not entries:
            yield f"{header}: no entries found"
        for name in sorted(entries.keys() ^ sections.keys()):
            yield f"{page}: {name} is {'not told of' if name in entries else 'no entry'}"
        for name in sorted(entries.keys() & sections.keys()):
            code, rows = sections[name]
            if code != entries[name]:
                yield f"{page}: {name} is declared otherwise"
            if rows != ROWS:
                yield f"{page}: {name} tells of {rows}, not {ROWS}"


def main():
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "the pages tell of every entry")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
