#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene why. The environment is that of ovscene_case.py."""
import json
import pathlib
import unittest

from op_tree_case import OpTreeCase

SCENES = pathlib.Path(__file__).resolve().parents[2] / "scenes"
LAMP = "/root/lamp"


class Why(OpTreeCase):
    def setUp(self):
        self.write_op_tree(
            "lamp.json",
            lamp=("scene", {"at": LAMP, "tree": {"a": {
                "type": "light", "light": {"color": "red", "exposure": 1}, "list": [1, 2, 3]}}}),
            brighter=("setAttributes", {"paths": LAMP, "values": {"light": {"exposure": 2}},
                                        "mode": "merge"}, "lamp"),
            quiet=("setAttributes", {"paths": LAMP, "values": {"type": None}}, "brighter"))
        self.write_op_tree(
            "room.json",
            lamp=("load", {"file": "lamp.json", "at": "/root/room"}),
            other=("scene", {"at": "/root/other", "tree": {"c": {"bare": {}}}}),
            both=("merge", {}, "lamp", "other"))

    def steps(self, *arguments):
        return json.loads(self.ok("why", *arguments, "--json"))["steps"]

    def test_the_ops_on_the_way_of_a_value(self):
        self.assertEqual("""\
/root/room/lamp  light.exposure = 2
  given by        brighter  setAttributes  op 2 of 3 in lamp.json  at /root/lamp
  passed through  quiet     setAttributes  op 3 of 3 in lamp.json  at /root/lamp
  passed through  lamp      load           op 1 of 3 in room.json
  passed through  both      merge          op 3 of 3 in room.json
""", self.ok("why", "room.json", "/root/room/lamp", "light.exposure"))

    def test_values_groups_and_all_attributes(self):
        for arguments, expected in (
                (("light.color",), 'light.color = "red"\n  given by        lamp'),
                (("list",), "list = 1 2 3\n  given by        lamp"),
                (("light",), "light = group (2)\n  given by        brighter"),
                ((), "(all attributes) = group (3)\n  given by  quiet"),
                (("",), "(all attributes) = group (3)\n  given by  quiet")):
            with self.subTest(arguments):
                self.assertIn(f"{LAMP}  {expected}", self.ok("why", "lamp.json", LAMP, *arguments))
                self.assertIn(f"{LAMP}  {expected}", self.ok("why", "lamp.json", LAMP + "/", *arguments))

    def test_json_tells_the_value_and_each_step(self):
        told = json.loads(self.ok("why", "room.json", "/root/room/lamp", "light.color", "--json"))
        self.assertEqual(["file", "path", "type", "name", "attribute", "steps"], list(told))
        self.assertEqual(("room.json", "/root/room/lamp", "light.color"),
                         (told["file"], told["path"], told["name"]))
        self.assertEqual(
            {"kind": "string", "tupleSize": 1, "samples": [{"time": 0, "values": ["red"]}]},
            told["attribute"])
        self.assertEqual(
            [{"gives": True, "name": "lamp", "type": "scene", "number": 1, "count": 3,
              "file": "lamp.json", "path": LAMP},
             {"gives": False, "name": "brighter", "type": "setAttributes", "number": 2, "count": 3,
              "file": "lamp.json", "path": LAMP}], told["steps"][:2])
        self.assertEqual(["lamp", "brighter", "quiet", "lamp", "both"],
                         [step["name"] for step in told["steps"]])

    def test_a_pipe_knows_the_names_of_its_ops(self):
        done = self.run_raw("why", "/dev/stdin", LAMP, "light.exposure", "--json",
                            input=(self.folder / "lamp.json").read_bytes())
        self.assertEqual((0, b""), (done.returncode, done.stderr))
        self.assertEqual(["brighter", "quiet"],
                         [step["name"] for step in json.loads(done.stdout)["steps"]])

    def test_both_forms_tell_the_same(self):
        self.ok("convert", "lamp.json", "lamp.optree")
        self.assertEqual(self.ok("why", "lamp.json", LAMP, "light").replace("lamp.json", "lamp.optree"),
                         self.ok("why", "lamp.optree", LAMP, "light"))

    def test_what_is_not_there_is_told_with_where_the_way_ends(self):
        for file, path, name, expected in (
                ("lamp.json", LAMP, "gone", "lamp.json: no attribute gone at /root/lamp; no op gives"
                 " it, and the location comes from lamp (scene, op 1 of 3 in lamp.json)"),
                ("lamp.json", LAMP, "light.color.x", "no attribute light.color.x at /root/lamp"),
                ("lamp.json", LAMP, "type", "lamp.json: no attribute type at /root/lamp; quiet"
                 " (setAttributes, op 3 of 3 in lamp.json) does not hand on what is there before it"),
                ("room.json", "/root/other/bare", "", "room.json: no attributes at /root/other/bare;"
                 " no op gives any, and the location comes from other (scene, op 2 of 3 in room.json)"),
                ("room.json", "/root/none", "type", "/root has 2 children, none 'none'"),
                ("room.json", "/root/..", "type", "/root has 2 children, none '..'"),
                ("room.json", "/else", "type", "the top location is /root")):
            for more in ((), ("--json",)):
                with self.subTest((path, name, more)):
                    self.assertIn(expected, self.fails(5, "why", file, path, name, *more))

    def test_only_op_trees_have_a_history(self):
        self.assertEqual("small.optree: holds no op tree, and only what ops make has a history",
                         self.fails(4, "why", "small.optree", "/root", "type"))
        self.assertIn("missing.json", self.fails(3, "why", "missing.json", "/root", "type"))
        self.assertIn("PATH", self.fails(2, "why", "lamp.json"))

    def test_hostile_names_are_shown_safely(self):
        self.write_op_tree("hostile\x1b.json", **{
            "a\x1b[31m\n\u202e": ("scene", {"tree": {"a": {"n\x07": "v\x1b"}, "c": {"x": {}}}}),
            "b\\x5Cx41": ("merge", {}, "a\x1b[31m\n\u202e"),  # the text form of b\x41
            "": ("merge", {}, "b\\x5Cx41")})
        text = self.ok("why", "hostile\x1b.json", "/root", "n\x07")
        self.assertNotRegex(text, "[\x00-\x09\x0b-\x1f\x7f-\x9f\u202e]")
        self.assertIn('/root  n\\x07 = "v\\x1B"\n  given by        a\\x1B[31m\\x0A\\xE2\\x80\\xAE ', text)
        self.assertIn("passed through  b\\x5Cx41 ", text)
        self.assertIn("passed through  (no name) ", text)
        self.assertIn("op 1 of 3 in hostile\\x1B.json", text)
        self.assertEqual(["a\\x1B[31m\\x0A\\xE2\\x80\\xAE", "b\\x5Cx41", ""],
                         [step["name"] for step in self.steps("hostile\x1b.json", "/root", "n\x07")])
        self.assertIn("no attribute g\\x1B at /root", self.fails(5, "why", "hostile\x1b.json", "/root", "g\x1b"))

    def test_a_location_with_an_error_tells_which_op_failed(self):
        self.write_op_tree("bad.json", good=("generate", {"depth": 1}),
                           bad=("no such type", {}, "good"))
        text, warning = self.warns("why", "bad.json", "/root", "errorMessage")
        self.assertIn("given by  bad  no such type  op 2 of 2 in bad.json", text)
        self.assertIn("1 location with errors", warning)

    def test_a_long_chain(self):
        ops = {"op0": ("generate", {"depth": 0})}
        for i in range(1, 2001):
            ops[f"op{i}"] = ("setAttributes", {"paths": "/root", "values": {"last": i}}, f"op{i - 1}")
        self.write_op_tree("long.json", **ops)
        steps = self.steps("long.json", "/root", "type")
        self.assertEqual([f"op{i}" for i in range(2001)], [step["name"] for step in steps])
        self.assertEqual(2001, len(self.ok("why", "long.json", "/root", "type").splitlines()) - 1)

    def test_the_scenes_of_the_repository(self):
        [given, *_] = self.steps(str(SCENES / "room.optree.json"), "/root/room/world/table/lamp1",
                                 "light.exposure", "--set", f"SYLVAR_ASSET_PATH={SCENES}")
        self.assertEqual(("brighter", str(SCENES / "table.optree.json")), (given["name"], given["file"]))


if __name__ == "__main__":
    unittest.main()
