#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene ops. The environment is that of ovscene_case.py, and OVSCENE_TEST_ANSWERING: the
folder of AnsweringRuntime.so."""
import json
import os
import pathlib
import unittest

from op_tree_case import OpTreeCase

ANSWERING = os.environ["OVSCENE_TEST_ANSWERING"]
SCENES = pathlib.Path(__file__).resolve().parents[2] / "scenes"
MODELS = pathlib.Path("/usr/share/assimp/models")  # Debian's package assimp-testmodels


class Ops(OpTreeCase):
    def op_types(self, *arguments):
        return json.loads(self.ok("ops", *arguments, "--json"))["opTypes"]

    def of_runtime(self, answer, *arguments):
        """The arguments for a run over a runtime that answers so."""
        return ("ops", *arguments, "--plugins", ANSWERING, "--set", "answer=" + answer)

    def test_the_list_has_every_op_type_by_name(self):
        lines = self.ok("ops").splitlines()
        self.assertRegex(lines[0], "^op type +inputs +about$")
        self.assertRegex("\n".join(lines), r"(?m)^merge +1 or more +The union of the inputs' scenes: ")
        names = [type["type"] for type in self.op_types()]
        self.assertEqual(sorted(names), names)
        self.assertLessEqual({"generate", "load", "merge", "scene", "setAttributes"}, set(names))
        self.assertEqual(f"{len(names)} op types", lines[-1])
        shown = [line.split()[0] for line in lines[1:-2] if not line.startswith(" ")]
        self.assertEqual(names, shown)

    def test_one_op_type_is_explained(self):
        answer = json.dumps({"opTypes": [{
            "type": "blur", "about": "Blurs what its patterns match.", "fewestInputs": 1,
            "mostInputs": 2, "remarks": "The first line,\nand the rest of a paragraph that is longer"
            " than a line of a terminal, and so is wrapped.\n\nAnother one.", "arguments": [
                {"name": "paths", "kind": "strings", "isNeeded": True, "default": "",
                 "about": "Patterns for the paths of the locations."},
                {"name": "mode", "kind": "string", "isNeeded": False, "default": "replace",
                 "about": "`replace`: in place of what is there; `merge`: together with what is"
                          " there already."},
                {"name": "note", "kind": "string", "isNeeded": False, "default": "", "about": "Any."}]}]})
        self.assertEqual("""\
blur

Blurs what its patterns match.

inputs: 1 or 2

argument  kind     default   about
paths     strings  (needed)  Patterns for the paths of the locations.
mode      string   replace   `replace`: in place of what is there; `merge`: together with what is
                             there already.
note      string             Any.

The first line, and the rest of a paragraph that is longer than a line of a terminal, and so is
wrapped.

Another one.
""", self.ok(*self.of_runtime(answer, "blur")))
        self.assertRegex(self.ok("ops", "setAttributes"), r"(?m)^paths +strings +\(needed\)  Patterns")

    def test_json_tells_one_op_type_or_all(self):
        [load] = self.op_types("load")
        self.assertEqual(load, next(type for type in self.op_types() if type["type"] == "load"))
        self.assertEqual(["type", "about", "remarks", "fewestInputs", "mostInputs", "arguments"],
                         list(load))
        self.assertEqual({"name": "at", "kind": "string", "isNeeded": False, "default": "/root",
                          "about": "Where the file's location /root goes."}, load["arguments"][1])
        self.assertTrue(load["arguments"][0]["isNeeded"])
        [merge] = self.op_types("merge")
        self.assertEqual((1, 2147483647), (merge["fewestInputs"], merge["mostInputs"]))

    def test_an_unknown_name_is_told_with_what_was_meant(self):
        for name, expected in (
                ("mrge", "^no op type 'mrge'; did you mean 'merge'\\?$"),
                ("setattributes", "; did you mean 'setAttributes'\\?$"),
                ("no\x1b[31m", r"^no op type 'no\\x1B\[31m'; there are .*generate, .*load, "),
                ("x" * 5000, "; there are .*generate, .*load, ")):
            with self.subTest(name):
                self.assertRegex(self.fails(5, "ops", name), expected)
        self.assertIn("ops --help", self.fails(2, "ops", "merge", "load"))

    def test_every_example_works(self):
        for file in sorted((SCENES / "ops").iterdir()):
            if file.name.startswith("import") and not MODELS.exists():
                continue
            with self.subTest(file.name):
                stats = json.loads(self.ok("stats", str(file), "--json",
                                           "--set", f"SYLVAR_ASSET_PATH={SCENES}:{MODELS}"))
                self.assertEqual(0, stats["errors"])
                self.assertLess(1, stats["locations"])

    def test_whatever_a_runtime_tells_is_shown_safely(self):
        hostile = json.dumps({"opTypes": [
            {"type": "a\x1b[31m\n\u202e", "about": "b\x07 " * 40, "remarks": "c\x00 " * 40 + "\n\n\n\nd\x1b",
             "fewestInputs": 2, "mostInputs": 4,
             "arguments": [{"name": "e\x1b", "kind": "f\n", "default": "g\x9b", "about": "h\u2028"},
                           7, {"name": 7, "isNeeded": "yes"}]},
            "none", {"arguments": {}}, {"fewestInputs": 1, "mostInputs": 2}, {"mostInputs": 2147483647}]})
        for name in ((), ("a\x1b[31m\n\u202e",)):
            text = self.ok(*self.of_runtime(hostile, *name))
            self.assertNotRegex(text, "[\x00-\x09\x0b-\x1f\x7f-\x9f\u2028\u202e]")
            self.assertIn("a\\x1B[31m\\x0A\\xE2\\x80\\xAE", text)
            self.assertIn("2 to 4", text)
            told = json.loads(self.ok(*self.of_runtime(hostile, *name), "--json"))["opTypes"]
            self.assertEqual(1 if name else 5, len(told))
        self.assertIn("any number", self.ok(*self.of_runtime(hostile)))
        self.assertEqual("\n0 op types", self.ok(*self.of_runtime("{}"))[-12:-1])

    def test_a_runtime_that_tells_nothing(self):
        for answer in ("", "[]", "{", '"opTypes"', "[" * 4000):
            with self.subTest(answer):
                self.assertEqual("the runtime does not tell its op types",
                                 self.fails(7, *self.of_runtime(answer)))
        self.fails(7, "ops", "--plugins", ANSWERING)


if __name__ == "__main__":
    unittest.main()
