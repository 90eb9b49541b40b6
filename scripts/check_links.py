#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Fails when a page leads nowhere, or when the readme does not lead to a public header.

Usage: check_links.py ROOT
"""
import pathlib
import re
import sys

from project_files import project_files

# What other headers include, and nobody on its own.
NOT_FOR_READERS = {"Export.h", "TableLayout.h"}
LINK = re.compile(r"\]\(([^)\s]+)\)")
HEADING = re.compile(r"^#+ (.+)$", re.M)
CODE = re.compile(r"^```.*?^```", re.S | re.M)


def text_of(page):
    return CODE.sub("", page.read_text(encoding="utf-8"))


def anchors(page):
    """What headings are called in links: lower case, blanks as dashes, other signs left out."""
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
            for heading in HEADING.findall(text_of(page))}


def links(page):
    """Each link within the project: the file, and the anchor or an empty text."""
    for link in LINK.findall(text_of(page)):
        if "://" not in link:
            path, _, anchor = link.partition("#")
            yield link, (page.parent / path).resolve() if path else page.resolve(), anchor


def broken_links(root):
    for page in (f for f in project_files(root) if f.suffix == ".md"):
        for link, target, anchor in links(page):
            if not target.exists():
                yield f"{page.relative_to(root)}: {link} is not there"
            elif anchor and target.suffix == ".md" and anchor not in anchors(target):
                yield f"{page.relative_to(root)}: {link} has no such heading"


def hidden_headers(root):
    shown = {target for _, target, _ in links(root / "README.md")}
    for header in project_files(root):
        if (header.is_relative_to(root / "include") and header.name not in NOT_FOR_READERS
                and header.resolve() not in shown):
            yield f"README.md does not lead to {header.relative_to(root)}"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    found = [*broken_links(root), *hidden_headers(root)]
    print("\n".join(found) or "all links lead somewhere, and the readme to every public header")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
