#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The guards of the pages find what they are there for."""
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
sys.dont_write_bytecode = True
import check_links  # noqa: E402
import check_suite_pages  # noqa: E402

HEADER = """
typedef struct S {
    /* Says (*not)(this); */
    void (*one)(int a);
    const char* (
        *two)(void);
} S;
"""
ROWS = "| | |\n|---|---|\n" + "".join(f"| {row} | x |\n" for row in check_suite_pages.ROWS)
ONE = f"### one\n\n```c\nvoid one(int a);\n```\n\nText.\n\n{ROWS}\n"
TWO = f"### two\n\n```c\nconst char* two(\n    void);\n```\n\nText.\n\n{ROWS}\n"


class PageCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")


class Links(PageCase):
    def faults(self, readme):
        self.write("README.md", readme)
        return [*check_links.broken_links(self.root), *check_links.hidden_headers(self.root)]

    def test_pass_where_they_lead_somewhere(self):
        self.write("docs/a.md", "# One `thing`, or two\n[up](../README.md) [here](#one-thing-or-two)\n")
        self.assertEqual([], self.faults("[a](docs/a.md#one-thing-or-two) [far](https://a.b/c)"))

    def test_are_not_looked_for_in_code(self):
        self.assertEqual([], self.faults("```\n[a](docs/a.md)\n```\n"))

    def test_lead_to_a_file_that_is_not_there(self):
        self.assertEqual(["README.md: docs/a.md is not there"], self.faults("[a](docs/a.md)"))

    def test_lead_to_a_heading_that_is_not_there(self):
        self.write("docs/a.md", "# One\n")
        self.assertEqual(["README.md: docs/a.md#two has no such heading"],
                         self.faults("[a](docs/a.md#two)"))

    def test_of_the_readme_lead_to_every_public_header(self):
        self.write("include/L/A.h", "")
        self.write("include/L/B.h", "")
        self.write("include/L/Export.h", "")
        self.assertEqual(["README.md does not lead to include/L/B.h"], self.faults("[a](include/L/A.h)"))


class SuitePages(PageCase):
    def setUp(self):
        super().setUp()
        pages = check_suite_pages.PAGES
        self.addCleanup(setattr, check_suite_pages, "PAGES", pages)
        check_suite_pages.PAGES = {"page.md": ("S.h", "S")}
        self.write(check_suite_pages.HEADERS / "S.h", HEADER)

    def faults(self, page):
        self.write("page.md", page)
        return list(check_suite_pages.faults(self.root))

    def test_pass_when_every_entry_is_told_of(self):
        self.assertEqual([], self.faults(ONE + TWO))

    def test_lack_an_entry(self):
        self.assertEqual(["page.md: two is not told of"], self.faults(ONE))

    def test_have_an_entry_of_their_own(self):
        self.assertEqual(["page.md: three is no entry"],
                         self.faults(ONE + TWO + ONE.replace("one", "three")))

    def test_declare_an_entry_otherwise(self):
        self.assertEqual(["page.md: one is declared otherwise"],
                         self.faults(ONE.replace("int", "long") + TWO))

    def test_lack_a_row(self):
        found = self.faults(ONE.replace("| threads | x |\n", "") + TWO)
        self.assertEqual(1, len(found))
        self.assertIn("one tells of ['arguments', 'result', 'absent', 'errors']", found[0])


if __name__ == "__main__":
    unittest.main()
