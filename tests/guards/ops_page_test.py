#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The page on ops is what the op types and their examples make it."""
import contextlib
import io
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
sys.dont_write_bytecode = True
import ops_page  # noqa: E402

ANY = ops_page.ANY_NUMBER
FRONT = "# Ops\n\nBy hand.\n\n" + ops_page.MARK
BLUR = {"type": "blur", "about": "Blurs.", "remarks": ["One. Still one.", "word " * 30],
        "fewestInputs": 1, "mostInputs": 2, "arguments": [
            {"name": "by", "kind": "number", "isNeeded": True, "default": "", "about": "a|b."},
            {"name": "to", "kind": "string", "isNeeded": False, "default": "x", "about": "End."}]}
PAGE = FRONT + """
## blur

Blurs. One input or two.

| argument | kind | default | |
|---|---|---|---|
| `by` | number | | a\\|b. Needed. |
| `to` | string | x | End. |

One. Still one.

""" + ("word " * 24).rstrip() + "\n" + ("word " * 6).rstrip() + """

```json
{"the": "example"}
```
"""


class OpsPage(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        root, ops_page.ROOT = ops_page.ROOT, pathlib.Path(folder.name)
        self.addCleanup(setattr, ops_page, "ROOT", root)
        self.examples = ops_page.ROOT / ops_page.EXAMPLES
        self.examples.mkdir(parents=True)
        self.write_example("blur")

    def write_example(self, type):
        (self.examples / f"{type}.optree.json").write_text('{"the": "example"}\n')

    def test_a_section_tells_the_type_and_its_example(self):
        self.assertEqual(PAGE, ops_page.whole_page(FRONT + "\n## old\n", [BLUR]))
        self.assertEqual(PAGE, ops_page.whole_page(PAGE, [BLUR]))

    def test_a_change_is_seen_and_told_with_what_writes_the_page(self):
        said = io.StringIO()
        with contextlib.redirect_stdout(said):
            self.assertEqual(0, ops_page.check(PAGE, PAGE, "ovscene"))
            self.assertEqual(1, ops_page.check(PAGE.replace("Blurs", "Sharpens"), PAGE, "ovscene"))
        self.assertIn("-Sharpens.", said.getvalue())
        self.assertIn("scripts/ops_page.py ovscene --write", said.getvalue())

    def test_a_type_needs_an_example_and_an_example_a_type(self):
        with self.assertRaisesRegex(ops_page.Fault, "scenes/ops/glow.optree.json"):
            ops_page.whole_page(FRONT, [BLUR, {**BLUR, "type": "glow"}])
        self.write_example("glow")
        with self.assertRaisesRegex(ops_page.Fault, "scenes/ops/glow.optree.json"):
            ops_page.whole_page(FRONT, [BLUR])

    def test_a_page_without_the_mark_is_left_alone(self):
        with self.assertRaisesRegex(ops_page.Fault, "by hand is missing"):
            ops_page.whole_page("# Ops\n", [BLUR])

    def test_inputs_in_words(self):
        for fewest, most, words in (
                (0, 0, "No inputs."), (0, 1, "No inputs, or one."), (0, 3, "No inputs, or up to three."),
                (0, ANY, "Any number of inputs."), (1, 1, "One input."), (1, 2, "One input or two."),
                (1, ANY, "One input or more."), (2, 2, "Two inputs."), (2, ANY, "Two inputs or more."),
                (2, 3, "Two inputs or three."), (2, 7, "Two to 7 inputs.")):
            with self.subTest(words):
                self.assertEqual(words, ops_page.inputs_in_words(fewest, most))


if __name__ == "__main__":
    unittest.main()
