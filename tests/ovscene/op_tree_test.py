#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene over op trees. The environment is that of ovscene_case.py."""
import json
import os
import pathlib
import shutil
import unittest

from op_tree_case import OpTreeCase
from ovscene_case import OVSCENE

PLUGINS = os.environ.get("OVSCENE_TEST_PLUGINS", "")


class OpTrees(OpTreeCase):
    """tree, attrs and stats over what an op tree makes."""

    def setUp(self):
        self.write_op_tree("load.json", load=("load", {"file": "small.optree"}))
        self.write_op_tree("faulty.json", made=(
            "generate", {"breadth": 3, "depth": 3, "failEvery": 5, "absentEvery": 7}))

    def json_lines(self, *arguments):
        return [json.loads(line) for line in self.ok("tree", *arguments, "--json").splitlines()]

    def test_a_loaded_scene_is_shown_as_the_file_itself(self):
        for arguments in ((), ("/root/world/geo/",), ("--depth", "1"), ("--json",)):
            with self.subTest(arguments):
                self.assertEqual(self.ok("tree", "small.optree", *arguments),
                                 self.ok("tree", "load.json", *arguments))
        for arguments in ((), ("geometry.points",), ("--xml",)):
            with self.subTest(arguments):
                self.assertEqual(self.ok("attrs", "small.optree", "/root/world/geo/quad", *arguments),
                                 self.ok("attrs", "load.json", "/root/world/geo/quad", *arguments))

    def test_a_loaded_scene_is_counted_as_the_file_itself(self):
        static, cooked = (json.loads(self.ok("stats", file, "--json"))
                          for file in ("small.optree", "load.json"))
        self.assertEqual(("op tree", "text"), (cooked["content"], cooked["form"]))
        for name in ("file", "content", "form", "bytes", "hash", "readSeconds", "walkSeconds"):
            del static[name], cooked[name]
        self.assertEqual(static, cooked)

    def test_a_loaded_scene_of_many_siblings(self):
        self.write_op_tree("wide.json", load=("load", {"file": "wide.optree"}))
        self.assertEqual(self.ok("tree", "wide.optree"), self.ok("tree", "wide.json"))

    def test_both_forms_show_the_same(self):
        self.ok("convert", "load.json", "load.optree")
        self.assertEqual(self.ok("tree", "load.json"), self.ok("tree", "load.optree"))

    def test_a_pipe_is_read_once(self):
        done = self.run_raw("tree", "/dev/stdin", input=(self.folder / "load.json").read_bytes())
        self.assertEqual(self.ok("tree", "load.json"), done.stdout.decode("utf-8"))

    def test_a_generated_scene(self):
        self.write_op_tree("made.json", made=("generate", {"breadth": 3, "depth": 2}))
        paths = [line["path"] for line in self.json_lines("made.json")]
        expected = ["/root"]
        for i in range(3):
            expected += [f"/root/c{i}"] + [f"/root/c{i}/c{j}" for j in range(3)]
        self.assertEqual(expected, paths)
        self.assertEqual([1, 3, 9], json.loads(self.ok("stats", "made.json", "--json"))["depths"])
        self.assertEqual("/root/c2/c1", self.json_lines("made.json", "/root/c2/c1")[0]["path"])

    def test_a_missing_location_tells_what_is_there(self):
        for path, expected in (
                ("/root/world/gone", "/root/world has 3 children, none 'gone'"),
                ("/root/..", "/root has 1 child, not '..'"), ("/root/.", "/root has 1 child, not '.'"),
                ("/root//world", "/root has 1 child, not ''"),
                ("/root/a%2Fb", "/root has 1 child, not 'a%2Fb'"),
                ("/root/world/empty/a/b", "/root/world/empty has no children"),
                ("/other", "the top location is /root")):
            with self.subTest(path):
                self.assertIn(expected, self.fails(5, "tree", "load.json", path))
                self.assertIn(expected, self.fails(5, "attrs", "load.json", path))

    def test_an_encoded_name_finds_its_location(self):
        self.write_document("odd.json", "static scene", {"c": {"x%2Ey": {"a": {"type": "found"}}}})
        self.write_op_tree("load_odd.json", load=("load", {"file": "odd.json"}))
        for path in ("/root/x.y", "/root/x%2Ey"):
            with self.subTest(path):
                self.assertEqual("found", self.json_lines("load_odd.json", path)[0]["type"])

    def test_locations_that_are_not_there_are_left_out(self):
        self.write_op_tree("holes.json", made=("generate", {"breadth": 3, "depth": 1, "absentEvery": 3}))
        lines = self.json_lines("holes.json")
        self.assertEqual(["root", "c0", "c1"], [line["name"] for line in lines])
        self.assertEqual(3, lines[0]["children"])
        self.assertIn("└── c1", self.ok("tree", "holes.json"))

    def test_errors_are_shown_where_they_are_and_counted(self):
        text, told = self.warns("tree", "faulty.json")
        marked = [line for line in text.splitlines() if "  error: generate (op 1 of 1" in line]
        lines = [json.loads(line) for line in self.warns("tree", "faulty.json", "--json")[0].splitlines()]
        wrong = [line for line in lines if "errorMessage" in line]
        self.assertEqual(6, len(marked))
        self.assertEqual(6, len(wrong))
        self.assertEqual("/root/c0/c0/c2", wrong[0]["path"])
        self.assertIn("/root/c0/c0/c2: fails as it is told to", wrong[0]["errorMessage"])
        self.assertRegex(told, r"\Afaulty\.json: 6 locations with errors, the first at /root/c0/c0/c2: ")

    def test_errors_are_told_by_attrs_and_stats(self):
        self.assertIn("faulty.json: 1 location with errors, the first at /root/c0/c1: ",
                      self.warns("attrs", "faulty.json", "/root/c0/c1")[1])
        text, told = self.warns("stats", "faulty.json")
        self.assertRegex(text, r"\nerrors +6\n")
        self.assertIn("6 locations with errors", told)
        self.assertEqual(6, json.loads(self.warns("stats", "faulty.json", "--json")[0])["errors"])

    def test_the_log_tells_an_error_too(self):
        done = self.run_raw("tree", "faulty.json")
        self.assertRegex(done.stderr, rb"\A[^\n]+ error SylvarRuntime: generate [^\n]+\n"
                                      rb"(?:[^\n]+\n)*ovscene: faulty\.json: 6 locations ")

    def test_an_op_type_that_is_not_known_is_an_error_of_its_location(self):
        self.write_op_tree("unknown.json", odd=("nonesuch", {}))
        text, told = self.warns("tree", "unknown.json")
        self.assertRegex(text, r"\n/root .*error: .*nonesuch")
        self.assertIn("1 location with errors, the first at /root: nonesuch", told)

    def test_a_child_that_is_no_group_is_an_error_and_the_rest_stands(self):
        merged = {"opType": "merge", "opInputs": ["number", "scene"], "opArgs": {"attributes": "deep"}}
        self.write_document("number.json", "op tree", {
            "scene": {"opType": "generate", "opArgs": {"depth": 1, "breadth": 2}}, "number": 1, "both": merged})
        text, told = self.warns("tree", "number.json")
        self.assertRegex(text, r"\n/root .*error: op \(op 2 of 3 \"number\"\), /root: the op \"number\" is no group")
        self.assertIn("1 location with errors", told)
        self.assertRegex(text, "c1 ")

    def test_what_cannot_be_opened(self):
        self.write_document("none.json", "op tree", {})
        self.write_op_tree("away.json", far=("scene", {"at": "/world", "tree": {}}))
        for file, reason in (("none.json", "the op tree cannot be opened; it has no ops"),
                             ("away.json", "the op tree makes no location /root")):
            for command in (("tree", file), ("attrs", file, "/root"), ("stats", file)):
                with self.subTest(command):
                    self.assertEqual(f"{file}: {reason}", self.fails(4, *command, "--log", "off"))

    def test_without_a_path_the_files_own_attribute_is_shown(self):
        self.assertRegex(self.ok("attrs", "load.json"), r"opType +string .*\"load\"")

    def test_assets_are_found_along_the_search_path(self):
        (self.folder / "shelf").mkdir(exist_ok=True)
        (self.folder / "shelf" / "hidden.optree").write_bytes(
            (self.folder / "small.optree").read_bytes())
        self.write_op_tree("asset.json", load=("load", {"file": "hidden.optree"}))
        self.assertIn("1 location with errors", self.warns("tree", "asset.json")[1])
        self.assertEqual(self.ok("tree", "small.optree"),
                         self.ok("tree", "asset.json", "--set", "SYLVAR_ASSET_PATH=nowhere:shelf"))

    def test_the_scene_that_comes_with_the_program(self):
        shutil.copy(self.folder / "small.optree", self.folder / "asset.optree")
        demo = pathlib.Path(__file__).resolve().parents[2] / "scenes" / "demo.optree.json"
        document = json.loads(self.ok("walk", demo, "--json", "--set", "SYLVAR_ASSET_PATH=."))
        self.assertEqual(1 + 36 + 36 ** 2 + 36 ** 3 + 7, document["locations"])
        text = self.ok("attrs", demo, "/root/asset/world/geo/quad", "--set", "SYLVAR_ASSET_PATH=.")
        self.assertRegex(text, r"\n  roughness +float +1 +0\.4\n")


@unittest.skipUnless(PLUGINS, "AssimpImport was not built")
class ImportOps(OpTreeCase):
    """Op trees with an op type that a plug-in adds."""

    def setUp(self):
        (self.folder / "part.obj").write_text("o part\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n")
        self.write_op_tree("import.json", part=("import", {"file": "part.obj", "at": "/root/part"}))
        (self.folder / "bin").mkdir(exist_ok=True)
        self.alone = shutil.copy(OVSCENE, self.folder / "bin")

    def test_are_shown_without_further_ado(self):
        self.assertRegex(self.ok("tree", "import.json"), r"└── part +mesh")
        self.assertEqual("op tree", json.loads(self.ok("stats", "import.json", "--json"))["content"])
        self.assertIn("geometry", self.ok("attrs", "import.json", "/root/part/part_obj/part/part"))
        self.assertLess(2, json.loads(self.ok("walk", "import.json", "--json"))["locations"])

    def test_find_their_plugin_as_an_import_does(self):
        for place in ({"OVSCENE_PLUGIN_PATH": PLUGINS}, {}):
            options = () if place else ("--plugins", PLUGINS)
            with self.subTest(options):
                done = self.run_raw("tree", "import.json", *options, program=self.alone, **place)
                self.assertEqual((0, b""), (done.returncode, done.stderr))

    def test_are_errors_without_the_plugin(self):
        done = self.run_raw("tree", "import.json", "--log", "off", program=self.alone)
        self.assertEqual(0, done.returncode)
        self.assertIn(b'/root/part: there is no op type "import"', done.stderr)

    def test_tell_of_a_file_that_is_no_plugin(self):
        (self.folder / "noise").mkdir()
        (self.folder / "noise" / "Noise.so").write_bytes(b"noise")
        done = self.run_raw("tree", "import.json", "--plugins", "noise")
        self.assertEqual(0, done.returncode)
        self.assertRegex(done.stderr, rb"\A[^\n]+ warning ovscene: noise/Noise\.so: [^\n]+\n\Z")


if __name__ == "__main__":
    unittest.main()
