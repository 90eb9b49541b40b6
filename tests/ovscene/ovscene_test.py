#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene as its users do.

The environment says where things are, besides what ovscene_case.py tells: OVSCENE_TEST_PLUGINS
(empty when no plug-ins were built), OVSCENE_TEST_TELLING (the folder of TellingImporter.so) and
OVSCENE_VERSION.
"""
import json
import os
import pathlib
import pty
import re
import resource
import select
import shutil
import signal
import subprocess
import unittest
import xml.etree.ElementTree

from ovscene_case import OVSCENE, OvsceneCase

PLUGINS = os.environ.get("OVSCENE_TEST_PLUGINS", "")
TELLING = os.environ["OVSCENE_TEST_TELLING"]
HOSTILE = "\\x1B[31mred\\xFF\\x0A\"<&>\\xC2\\x9B\\xE2\\x80\\xAE"

MODEL = pathlib.Path(
    "/usr/share/assimp/models/glTF2/2CylinderEngine-glTF-Binary/2CylinderEngine.glb")

OBJ = """mtllib box.mtl
o triangle
v 0 0 0
v 1 0 0
v 0 1 0
usemtl red
f 1 2 3
o square
v 0 0 1
v 1 0 1
v 1 1 1
v 0 1 1
f 4 5 6 7
"""
MTL = "newmtl red\nKd 1 0 0\n"


class General(OvsceneCase):
    def test_version_is_the_projects(self):
        self.assertEqual(f"ovscene {os.environ['OVSCENE_VERSION']}\n", self.ok("--version"))

    def test_help_lists_commands_and_exit_statuses(self):
        text = self.ok("--help")
        for expected in ("import", "tree", "attrs", "outputs", "tile", "stats", "walk", "render", "convert", "why", "ops",
                         "plugins", "--config FILE",
                         "--set NAME=VALUE", "--log [NAME=]LEVEL", "--plugins DIR", "Exit statuses:",
                         "8  an asset cannot be imported", "9  a renderer failed"):
            self.assertIn(expected, text)

    def test_help_of_each_command_has_an_example(self):
        for command in ("import", "tree", "attrs", "outputs", "tile", "stats", "walk", "render", "convert", "why", "ops",
                        "plugins"):
            self.assertIn(f"ovscene {command} ", self.ok(command, "--help"))

    def test_wrong_usage(self):
        for arguments in ((), ("nothing",), ("tree",), ("tree", "f", "--depth", "-1"),
                          ("tree", "f", "--depth", "x"), ("attrs", "f", "--xml", "--json"),
                          ("import", "a", "b", "--up-axis", "w"),
                          ("import", "a", "b", "--unit-scale", "nan"),
                          ("import", "a", "b", "--unit-scale", "0"),
                          ("import", "a", "b", "--max-bytes", "-5"), ("stats", "f", "--other")):
            with self.subTest(arguments):
                self.assertIn("--help'", self.fails(2, *arguments))

    def test_an_option_without_its_value_takes_no_other_argument_for_it(self):
        for arguments, expected in ((("--set=",), "--set: '' is no NAME=VALUE"), (("--depth=",), "--depth: '' is no number"),
                                    (("--config=",), "--config: '' is no file")):
            with self.subTest(arguments):
                self.assertIn(expected, self.fails(2, "tree", *arguments, "small.optree"))
        self.assertEqual("--set=: No such file or directory", self.fails(3, "tree", "--", "--set="))
        self.assertIn("FILE is required", self.fails(2, "tree", "--="))

    def test_a_wrong_number_is_told(self):
        self.assertIn("--depth: '-1' is no number of 0 or more",
                      self.fails(2, "tree", "f", "--depth", "-1"))

    def test_missing_and_unreadable_input(self):
        for arguments in (("tree", "gone"), ("attrs", "gone"), ("stats", "gone"),
                          ("convert", "gone", "out.optree"), ("import", "gone", "out.optree")):
            with self.subTest(arguments):
                self.assertEqual("gone: No such file or directory", self.fails(3, *arguments))
        self.assertEqual(".: Is a directory", self.fails(3, "stats", "."))

    def test_malformed_text_names_line_and_column(self):
        (self.folder / "bad.json").write_text('{\n  "content": oops\n}\n')
        self.assertRegex(self.fails(4, "tree", "bad.json"), r"bad\.json.*2.*\d")

    def test_malformed_bytes(self):
        whole = (self.folder / "small.optree").read_bytes()
        for name, data in (("empty", b""), ("cut", whole[:len(whole) // 2]), ("noise", b"\x1b\0\xff" * 99)):
            with self.subTest(name):
                (self.folder / name).write_bytes(data)
                self.assertTrue(self.fails(4, "stats", name).startswith(name + ": "))

    def test_file_names_are_escaped_in_messages(self):
        self.assertIn("gone\\x1B[31m\\xFF\\x0A:", self.fails(3, "tree", b"gone\x1b[31m\xff\n"))

    def test_a_reader_that_stops_is_a_quiet_end(self):
        process = subprocess.Popen([OVSCENE, "tree", "wide.optree"], cwd=self.folder,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        process.stdout.readline()
        process.stdout.close()
        self.assertEqual((b"", 0), (process.stderr.read(), process.wait()))
        process.stderr.close()

    def test_a_closed_output_is_a_quiet_end(self):
        command = f"exec '{OVSCENE}' convert small.optree quiet.optree >&-"
        done = subprocess.run(["sh", "-c", command], cwd=self.folder, stderr=subprocess.PIPE)
        self.assertEqual((0, b""), (done.returncode, done.stderr))
        self.ok("stats", "quiet.optree")

    def test_memory_that_runs_out_is_an_unexpected_failure(self):
        with open(self.folder / "huge.json", "wb") as file:
            file.write(b" ")
            file.truncate(1 << 32)

        def run(*arguments):
            return subprocess.run(
                [OVSCENE, *arguments], cwd=self.folder, stdout=subprocess.PIPE,
                stderr=subprocess.PIPE, timeout=100,
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (1 << 28, 1 << 28)))

        if run("--version").returncode != 0:
            self.skipTest("a sanitizer needs more address space by itself")
        done = run("stats", "huge.json")
        self.assertEqual((1, b"ovscene: out of memory\n"), (done.returncode, done.stderr))

    def test_a_full_device_is_a_failure(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([OVSCENE, "tree", "small.optree"], cwd=self.folder, stdout=full,
                                  stderr=subprocess.PIPE)
        self.assertEqual(6, done.returncode)
        self.assertRegex(done.stderr, rb"\Aovscene: standard output: [^\n]+\n\Z")


class Tree(OvsceneCase):
    def json_lines(self, *arguments):
        return [json.loads(line) for line in self.ok("tree", *arguments, "--json").splitlines()]

    def test_small_scene(self):
        self.matches_golden("tree.txt", self.ok("tree", "small.optree"))

    def test_both_forms_show_the_same(self):
        self.assertEqual(self.ok("tree", "small.optree"), self.ok("tree", "small.optree.json"))

    def test_from_a_location_down_to_a_depth(self):
        self.matches_golden("tree_depth.txt",
                            self.ok("tree", "small.optree", "/root/world", "--depth", "1"))

    def test_json_has_one_object_for_each_location(self):
        self.matches_golden("tree.jsonl", self.ok("tree", "small.optree", "--json"))
        paths = [line["path"] for line in self.json_lines("small.optree", "/root/world/geo")]
        self.assertEqual(["/root/world/geo", "/root/world/geo/quad", "/root/world/geo/copy"], paths)

    def test_a_missing_location_tells_what_is_there(self):
        for path, expected in (
                ("/root/world/gone", "/root/world has 3 children, none 'gone'"),
                ("/root/gone", "/root has 1 child, not 'gone'"),
                ("/root/world/empty/a/b", "/root/world/empty has no children"),
                ("/other", "the top location is /root"), ("", "the top location is /root"),
                ("/root/\x1b", "/root has 1 child, not '\\x1B'")):
            with self.subTest(path):
                self.assertIn(expected, self.fails(5, "tree", "small.optree", path))

    def test_a_slash_at_the_end_is_no_step(self):
        self.assertEqual(self.ok("tree", "small.optree", "/root/world"),
                         self.ok("tree", "small.optree", "root/world/"))

    def test_hostile_names_are_escaped(self):
        for line in (self.ok("tree", "hostile.optree"), self.ok("tree", "hostile.optree", "--json")):
            self.assertNotRegex(line, "[\x00-\x09\x0b-\x1f\x7f-\x9f\u202e]")
        lines = self.json_lines("hostile.optree")
        self.assertEqual(HOSTILE, lines[1]["name"])
        self.assertEqual("\\x1B]0;title\\x07", lines[1]["type"])

    def test_a_name_with_a_slash_is_found_again_by_its_path(self):
        path = self.json_lines("hostile.optree")[2]["path"]
        self.assertEqual("/root/a%2Fb%2Ec", path)
        self.assertEqual("a/b.c", self.json_lines("hostile.optree", path)[0]["name"])

    def test_a_child_that_is_no_group_is_an_empty_location(self):
        line = self.json_lines("hostile.optree", "/root/no.group")[0]
        self.assertEqual(("", 0, 0), (line["type"], line["children"], line["attributes"]))

    def test_ten_thousand_levels(self):
        lines = self.json_lines("deep.optree")
        self.assertEqual((10000, 9999, 9998, "bottom"),
                         (len(lines), lines[-1]["depth"], lines[-1]["parent"], lines[-1]["type"]))
        text = self.ok("tree", "deep.optree")
        self.assertIn("10000 locations", text)
        self.assertLess(len(text), 10000 * 200)
        self.assertIn("bottom", self.ok("tree", "deep.optree", "/root" + "/d" * 9999))

    def test_many_siblings(self):
        lines = self.json_lines("wide.optree")
        self.assertEqual((100001, "/root/child99999"), (len(lines), lines[-1]["path"]))

    def test_shared_parts_are_shown_down_to_a_depth(self):
        self.assertEqual(15, len(self.json_lines("shared.optree", "--depth", "3")))

    def test_other_content_cannot_be_walked(self):
        self.assertIn("holds a plain attribute", self.fails(4, "tree", "plain.optree.json"))


class Attrs(OvsceneCase):
    def document(self, *arguments):
        return json.loads(self.ok("attrs", *arguments, "--json"))

    def children(self, attribute):
        return {child["name"]: child for child in attribute["children"]}

    def test_a_location(self):
        self.matches_golden("attrs.txt", self.ok("attrs", "small.optree", "/root/world/geo/quad"))

    def test_json_is_complete(self):
        document = self.document("small.optree", "/root/world/geo/quad")
        self.assertEqual(("/root/world/geo/quad", "mesh"), (document["path"], document["type"]))
        attributes = self.children(document["attribute"])
        geometry = self.children(attributes["geometry"])
        self.assertTrue(attributes["geometry"]["inherit"])
        self.assertEqual({"name": "nothing", "kind": "null"}, geometry["nothing"])
        points = geometry["points"]
        self.assertEqual(("float", 3), (points["kind"], points["tupleSize"]))
        self.assertEqual([-0.25, 0.25], [sample["time"] for sample in points["samples"]])
        self.assertEqual([0, 0, 1, 1, 0, 1, 1, 1, 1, 0, 1, 1], points["samples"][1]["values"])
        self.assertEqual(0.1, attributes["bound"]["samples"][0]["values"][4])

    def test_xml_parses(self):
        tree = xml.etree.ElementTree.fromstring(
            self.ok("attrs", "small.optree", "/root/world/geo/quad", "--xml"))
        self.assertEqual("group", tree.get("type"))

    def test_one_attribute_by_name(self):
        text = self.ok("attrs", "small.optree", "/root/world/geo/quad", "geometry.points")
        self.assertRegex(text, r"geometry\.points  float\[3\] x 4  2 \(-0\.25 0\.25\)  \(0 0 0\)")
        self.assertEqual("no attribute geometry.gone at /root/world/geo",
                         self.fails(5, "attrs", "small.optree", "/root/world/geo", "geometry.gone")
                         .split(": ", 1)[1])

    def test_a_location_without_attributes(self):
        self.assertIn("no attributes", self.ok("attrs", "small.optree", "/root/world/empty"))
        document = self.document("small.optree", "/root/world/empty")
        self.assertEqual({"kind": "null"}, document["attribute"])
        self.assertIn("null", self.ok("attrs", "small.optree", "/root/world/empty", "--xml"))

    def test_a_missing_location(self):
        self.assertIn("no location /root/gone", self.fails(5, "attrs", "small.optree", "/root/gone"))

    def test_without_a_path_the_files_attribute_is_shown(self):
        self.assertIn("(0 1 2) (3 4 5)", self.ok("attrs", "data.optree"))
        self.assertIn("opType", self.ok("attrs", "op.optree"))
        self.assertEqual("group", self.document("plain.optree.json")["attribute"]["kind"])

    def test_hostile_texts_are_escaped(self):
        path = b"/root/\x1b[31mred\xff\n\"<&>\xc2\x9b\xe2\x80\xae"
        for form in ((), ("--json",), ("--xml",)):
            with self.subTest(form):
                text = self.ok("attrs", "hostile.optree", path, *form)
                self.assertNotRegex(text, "[\x00-\x09\x0b-\x1f\x7f-\x9f\u202e]" if form != ("--xml",)
                                    else "[\x00-\x08\x0b-\x1f]")
        attributes = self.children(self.document("hostile.optree", path)["attribute"])
        self.assertEqual([HOSTILE], attributes[HOSTILE]["samples"][0]["values"])
        self.assertEqual(["\\x5Cx1b"], attributes["lookalike"]["samples"][0]["values"])
        self.assertEqual(["nan", "inf", "-inf", 0.1],
                         attributes["numbers"]["samples"][0]["values"])

    def test_groups_nested_thousands_deep(self):
        self.assertIn("int", self.ok("attrs", "nested.optree", "/root"))
        text = self.ok("attrs", "nested.optree", "/root", "--json")
        self.assertEqual(5001, text.count('"kind":"group"'))
        self.assertIn('"values":[7]', text)
        self.assertIn("7", self.ok("attrs", "nested.optree", "/root", "--xml"))


class Stats(OvsceneCase):
    def document(self, file):
        return json.loads(self.ok("stats", file, "--json"))

    def test_json_counts(self):
        document = self.document("small.optree")
        expected = {
            "file": "small.optree", "content": "static scene", "form": "binary", "locations": 7,
            "types": {"": 1, "camera": 1, "group": 3, "mesh": 2}, "depths": [1, 1, 3, 2],
            "shapes": 4, "attributes": 21, "animated": 2, "timeSamples": 18}
        self.assertEqual(expected, {name: document[name] for name in expected})
        self.assertEqual({"string": 8, "group": 3, "double": 2, "float": 2, "int": 4, "null": 2},
                         document["kinds"])
        self.assertEqual((self.folder / "small.optree").stat().st_size, document["bytes"])
        self.assertEqual({"path": "/root/world/geo/quad", "name": "geometry.points", "bytes": 96},
                         document["largest"][0])
        self.assertRegex(document["hash"], r"\A[0-9a-f]{32}\Z")

    def test_distinct_values_are_counted_once(self):
        document = self.document("small.optree")
        self.assertEqual(8, document["distinctValues"])
        self.assertLess(document["distinctBytes"], document["valueBytes"])

    def test_report(self):
        text = self.ok("stats", "small.optree")
        for expected in (r"content +static scene", r"form +binary", r"locations +7", r"  mesh +2",
                         r"  \(none\) +1", r"levels +4", r"96 bytes  geometry\.points"):
            self.assertRegex(text, expected)

    def test_equal_content_has_an_equal_hash_in_both_forms(self):
        binary, text = self.document("small.optree"), self.document("small.optree.json")
        self.assertEqual(("text", binary["hash"]), (text["form"], text["hash"]))

    def test_other_content_has_no_locations(self):
        document = self.document("data.optree")
        self.assertEqual("attribute", document["content"])
        self.assertNotIn("locations", document)
        self.assertNotIn("locations", self.ok("stats", "data.optree"))

    def test_scenes_out_of_the_ordinary(self):
        self.assertEqual(10000, len(self.document("deep.optree")["depths"]))
        self.assertEqual([1, 100000], self.document("wide.optree")["depths"])
        self.assertEqual({"group": 5001 - 1, "int": 1}, self.document("nested.optree")["kinds"])
        self.assertIn("\\x1B]0;title\\x07", self.ok("stats", "hostile.optree"))


class Convert(OvsceneCase):
    def test_there_and_back(self):
        for file in ("small.optree", "hostile.optree", "data.optree", "op.optree", "nested.optree"):
            with self.subTest(file):
                there = self.ok("convert", file, "there.optree.json")
                back = self.ok("convert", "there.optree.json", "back.optree")
                self.assertIn("text, ", there)
                self.assertEqual(re.search("hash .*", there)[0], re.search("hash .*", back)[0])
                self.assertEqual((self.folder / file).read_bytes(),
                                 (self.folder / "back.optree").read_bytes())

    def test_content_is_kept(self):
        self.assertIn(": op tree, text,", self.ok("convert", "op.optree", "op.json"))
        self.assertIn(": attribute, binary,", self.ok("convert", "plain.optree.json", "plain.optree"))

    def test_an_output_that_cannot_be_written(self):
        message = self.fails(6, "convert", "small.optree", "no/such/folder/out.optree")
        self.assertIn("no/such/folder/out.optree", message)

    def test_shared_parts_that_expand_without_end_are_refused(self):
        self.assertIn("more than", self.fails(6, "convert", "shared.optree", "huge.json"))
        self.assertIn("more than", self.fails(4, "attrs", "shared.optree", "--xml"))
        self.assertFalse((self.folder / "huge.json").exists())

    def test_a_pipe_is_written_to_and_not_read_again(self):
        self.assertEqual((self.folder / "small.optree").read_bytes(),
                         self.run_raw("convert", "small.optree.json", "/dev/stdout").stdout)

    def test_a_failure_leaves_what_was_there(self):
        (self.folder / "kept.optree").write_bytes(b"kept")
        self.fails(4, "convert", "kept.optree", "kept.optree")
        self.assertEqual(b"kept", (self.folder / "kept.optree").read_bytes())


@unittest.skipUnless(PLUGINS, "no plug-ins were built")
class Import(OvsceneCase):
    def setUp(self):
        (self.folder / "box.obj").write_text(OBJ)
        (self.folder / "box.mtl").write_text(MTL)

    def locations(self, file):
        return [json.loads(line) for line in self.ok("tree", file, "--json").splitlines()]

    def test_an_asset_becomes_a_scene(self):
        summary = self.ok("import", "box.obj", "box.optree")
        locations = self.locations("box.optree")
        size = (self.folder / "box.optree").stat().st_size
        self.assertEqual(f"box.optree: {len(locations)} locations, {size} bytes\n", summary)
        self.assertIn("mesh", [location["type"] for location in locations])

    @unittest.skipUnless(MODEL.exists(), f"there is no {MODEL}")
    def test_a_real_model(self):
        self.ok("import", str(MODEL), "model.optree")
        meshes = [line["path"] for line in self.locations("model.optree") if line["type"] == "mesh"]
        self.assertGreater(len(meshes), 100)
        self.assertIn("geometry", self.ok("attrs", "model.optree", meshes[-1]))
        self.assertIn("same hash", self.ok("convert", "model.optree", "model.optree.json"))

    def test_both_forms_hold_the_same(self):
        self.ok("import", "box.obj", "box.optree")
        self.ok("import", "box.obj", "box.optree.json")
        binary, text = (json.loads(self.ok("stats", file, "--json"))
                        for file in ("box.optree", "box.optree.json"))
        self.assertEqual((binary["hash"], "text"), (text["hash"], text["form"]))

    def test_materials_can_be_left_out(self):
        self.ok("import", "box.obj", "with.optree")
        self.ok("import", "box.obj", "without.optree", "--no-materials")
        types = [[location["type"] for location in self.locations(file)]
                 for file in ("with.optree", "without.optree")]
        self.assertIn("material", types[0])
        self.assertNotIn("material", types[1])

    def test_axis_and_scale_are_taken(self):
        self.ok("import", "box.obj", "plain.optree")
        self.ok("import", "box.obj", "turned.optree", "--up-axis", "z", "--unit-scale", "0.01",
                "--no-lights", "--no-cameras")
        hashes = {json.loads(self.ok("stats", file, "--json"))["hash"]
                  for file in ("plain.optree", "turned.optree")}
        self.assertEqual(2, len(hashes))

    def test_limits(self):
        for limit in (("--max-bytes", "10"), ("--max-locations", "1")):
            with self.subTest(limit):
                self.assertIn("box.obj", self.fails(8, "import", "box.obj", "big.optree", *limit))
                self.assertFalse((self.folder / "big.optree").exists())

    def test_what_is_no_asset(self):
        (self.folder / "noise.glb").write_bytes(b"\x1b[31m\xff" * 50)
        (self.folder / "text.unknown").write_text("hello")
        for asset in ("noise.glb", "text.unknown"):
            with self.subTest(asset):
                self.assertIn(asset, self.fails(8, "import", asset, "no.optree"))

    def test_an_output_that_cannot_be_written_is_told_before_the_work(self):
        for output in ("no/such/folder/box.optree", "."):
            with self.subTest(output):
                self.assertIn(output, self.fails(6, "import", "box.obj", output))

    def test_without_a_plugin_the_places_searched_are_listed(self):
        (self.folder / "bin").mkdir(exist_ok=True)
        program = shutil.copy(OVSCENE, self.folder / "bin")
        message = self.fails(7, "import", "box.obj", "box.optree", "--plugin-path", "one:two",
                             program=program, OVSCENE_PLUGIN_PATH="/three")
        self.assertIn("no importer plug-in; searched one, two, /three, ", message)
        self.assertIn("OvSylvarProducers/plugins", message)

    def test_the_environment_names_the_plugins(self):
        (self.folder / "bin").mkdir(exist_ok=True)
        program = shutil.copy(OVSCENE, self.folder / "bin")
        done = self.run_raw("import", "box.obj", "found.optree", program=program,
                            OVSCENE_PLUGIN_PATH=PLUGINS)
        self.assertEqual((0, b""), (done.returncode, done.stderr))

    def test_a_plugin_that_is_none_is_told_when_there_is_no_other(self):
        (self.folder / "bin").mkdir(exist_ok=True)
        program = shutil.copy(OVSCENE, self.folder / "bin")
        for name, data in (("noise", b"noise"), ("program", None)):
            with self.subTest(name):
                plugin = self.folder / name / "AssimpImport.so"
                plugin.parent.mkdir()
                plugin.write_bytes(data) if data else shutil.copy(OVSCENE, plugin)
                message = self.fails(7, "import", "box.obj", "box.optree", "--plugin-path", name,
                                     program=program)
                self.assertRegex(message, rf"; searched {name}, [^;]+; {name}/AssimpImport\.so: \w")

    def test_a_plugin_that_is_none_is_passed_over_with_a_warning(self):
        (self.folder / "passed").mkdir()
        (self.folder / "passed" / "AssimpImport.so").write_bytes(b"noise")
        done = self.run_raw("import", "box.obj", "passed.optree", "--plugin-path", "passed")
        self.assertEqual(0, done.returncode)
        self.assertRegex(done.stderr, rb"\A[^\n]+ warning ovscene: passed/AssimpImport\.so: [^\n]+\n\Z")

    def test_a_second_plugin_of_a_name_is_no_warning(self):
        (self.folder / "copy").mkdir()
        shutil.copy(pathlib.Path(PLUGINS) / "AssimpImport.so", self.folder / "copy")
        self.ok("import", "box.obj", "copied.optree", "--plugin-path", "copy")

    def test_an_interrupted_import_leaves_no_file(self):
        os.mkfifo(self.folder / "endless.obj")  # nobody writes to it: the program waits
        process = subprocess.Popen(
            [OVSCENE, "import", "endless.obj", "none.optree"], cwd=self.folder,
            preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
        process.send_signal(signal.SIGINT)
        self.assertEqual(-signal.SIGINT, process.wait(timeout=60))
        self.assertFalse((self.folder / "none.optree").exists())


class Services(OvsceneCase):
    """What the global options give to the services of the process, as a plug-in sees it there."""

    def setUp(self):
        (self.folder / "some.told").write_text("an asset")
        (self.folder / "stats").write_text("a name like that of a command")

    def told(self, *arguments):
        """Each "level logger: message (place)" that an import logged, and the word that it read."""
        done = self.run_raw("import", "some.told", "none.optree", "--plugins", TELLING, *arguments)
        self.assertEqual(8, done.returncode, done.stderr)
        *logged, failure = done.stderr.decode("utf-8").splitlines()
        word = re.fullmatch("ovscene: some.told: the word is '(.*)'", failure)[1]
        return [line.split(" ", 2)[2] for line in logged], word

    def levels(self, logger, *arguments):
        return [line.split(" ")[0] for line in self.told(*arguments)[0] if f" {logger}: " in line]

    def test_a_setting_reaches_a_plugin(self):
        self.assertEqual("not set", self.told()[1])
        for argument, expected in (("a.word=x=y", "x=y"), ("a.word=", ""), ("a.word=[a,b]", "[a,b]")):
            with self.subTest(argument):
                self.assertEqual(expected, self.told("--set", argument)[1])
        self.assertEqual("2", self.told("--set", "a.word=1", "--set", "b=3", "--set", "a.word=2")[1])

    def test_a_file_of_settings_reaches_a_plugin(self):
        (self.folder / "settings.json").write_text('{"a": {"word": "of the file"}}')
        self.assertEqual("of the file", self.told("--config", "settings.json")[1])

    def test_a_setting_goes_over_that_of_the_file_wherever_it_stands(self):
        (self.folder / "settings.json").write_text('{"a": {"word": "of the file"}}')
        for arguments in (("--set", "a.word=own", "--config", "settings.json"),
                          ("--config", "settings.json", "--set", "a.word=own")):
            with self.subTest(arguments):
                self.assertEqual("own", self.told(*arguments)[1])

    def test_messages_show_from_info_on(self):
        logged = self.told()[0]
        self.assertEqual("info Telling: an info (Telling\\x1B.c:1)", logged[0])
        self.assertEqual(["info", "warning", "error"] * 2, [line.split(" ")[0] for line in logged])

    def test_levels_for_all_and_for_one(self):
        everything = ["debug", "info", "warning", "error"]
        for arguments, telling, other in (
                (("--log", "debug"), everything, everything),
                (("--log", "off"), [], []),
                (("--log", "Telling=debug", "--log", "error"), everything, ["error"]),
                (("--log", "error", "--log", "Other=Telling=warn"), ["error"], ["warning", "error"]),
                (("--log", "off", "--log", "info"), everything[1:], everything[1:])):
            with self.subTest(arguments):
                self.assertEqual(telling, self.levels("Telling", *arguments))
                self.assertEqual(other, self.levels("Other=Telling", *arguments))

    def test_the_options_may_stand_before_the_command(self):
        for arguments in (("--plugins", TELLING, "--set", "a.word=x", "--log", "off", "import"),
                          ("--plugins=" + TELLING, "--set=a.word=x", "--log=off", "import")):
            with self.subTest(arguments):
                self.assertEqual("some.told: the word is 'x'",
                                 self.fails(8, *arguments, "some.told", "none.optree"))

    def test_every_command_takes_them(self):
        for command in (("tree", "small.optree"), ("attrs", "small.optree"),
                        ("convert", "small.optree", "same.optree")):
            with self.subTest(command):
                self.assertEqual(self.ok(*command),
                                 self.ok(*command, "--set", "a=b", "--log", "A=debug",
                                         "--plugins", TELLING))

    def test_a_file_may_be_named_like_a_command(self):
        self.assertIn("stats: ", self.fails(4, "tree", "stats", "--log", "off"))
        self.assertIn("stats: ", self.fails(4, "attrs", "stats", "tree"))

    def test_wrong_ones_are_told(self):
        for arguments, expected in (
                (("--log", "loud"), "--log: 'loud' is no LEVEL or NAME=LEVEL; levels are debug, info"),
                (("--log", "A=loud"), "--log: 'A=loud' is no LEVEL"),
                (("--log", "=info"), "--log: '=info' is no LEVEL"),
                (("--log", ""), "--log: '' is no LEVEL"),
                (("--set", "word"), "--set: 'word' is no NAME=VALUE"),
                (("--set", "=word"), "--set: '=word' is no NAME=VALUE"),
                (("--plugins", "gone"), "--plugins: 'gone' is no folder"),
                (("--config", ""), "--config: '' is no file"),
                (("--config", "a", "--config", "b"), "--config"), (("--set",), "--set")):
            with self.subTest(arguments):
                message = self.fails(2, "tree", "small.optree", *arguments)
                self.assertIn(expected, message)
                self.assertIn("--help')", message)

    def test_a_bad_file_of_settings(self):
        (self.folder / "bad.json").write_text('{"a": 1,\n "b": null}')
        self.assertEqual('--config: Cannot open "gone": No such file or directory.',
                         self.fails(3, "tree", "small.optree", "--config", "gone"))
        self.assertIn("Is a directory", self.fails(3, "tree", "small.optree", "--config", "."))
        self.assertIn('--config: "bad.json": line 2, column 7: ',
                      self.fails(4, "tree", "small.optree", "--config", "bad.json"))

    def test_an_importer_is_taken_by_the_extension_and_otherwise_the_first(self):
        (self.folder / "some.unknown").write_text("an asset")
        (self.folder / "some.TOLD").write_text("an asset")
        for asset in ("some.unknown", "some.TOLD"):
            with self.subTest(asset):
                self.assertIn("the word is", self.fails(8, "--log", "off", "--plugins", TELLING,
                                                        "import", asset, "none.optree"))

    @unittest.skipUnless(PLUGINS, "no plug-ins were built")
    def test_an_importer_of_another_extension_is_passed_over(self):
        (self.folder / "box.obj").write_text(OBJ)
        self.ok("import", "box.obj", "box.optree", "--plugins", TELLING)
        self.assertIn("the word is", self.fails(8, "--log", "off", "--plugins", PLUGINS, "--plugins",
                                                TELLING, "import", "some.told", "none.optree"))

    def test_the_folders_are_searched_in_order_before_the_environments(self):
        for name in ("first", "second", "third"):
            (self.folder / name).mkdir()
        message = self.fails(
            7, "import", "some.told", "none.optree", "--plugin-path", "first", "--plugins", "second",
            "--plugins", "third", program=shutil.copy(OVSCENE, self.folder / "first"),
            OVSCENE_PLUGIN_PATH="fourth")
        self.assertIn("searched first, second, third, fourth, ", message)


class Terminal(OvsceneCase):
    def on_terminal(self, *arguments, **environment):
        """What a run shows on a terminal."""
        master, slave = pty.openpty()
        env = {**os.environ, "TERM": "xterm", **environment}
        if "NO_COLOR" not in environment:
            env.pop("NO_COLOR", None)
        process = subprocess.Popen([OVSCENE, *arguments], cwd=self.folder, env=env, stdin=slave,
                                   stdout=slave, stderr=slave)
        os.close(slave)
        shown = b""
        try:
            while piece := os.read(master, 65536):
                shown += piece
        except OSError:  # the other end is closed
            pass
        os.close(master)
        self.assertEqual(0, process.wait())
        return shown.decode("utf-8")

    def test_colours_on_a_terminal(self):
        self.assertIn("\x1b[36mmesh\x1b[0m", self.on_terminal("tree", "small.optree"))

    def test_no_colours_when_told_so(self):
        for environment in ({"NO_COLOR": "1"}, {"NO_COLOR": ""}, {"TERM": "dumb"}):
            with self.subTest(environment):
                self.assertNotIn("\x1b", self.on_terminal("tree", "small.optree", **environment))

    def test_no_colours_elsewhere(self):
        self.assertNotIn("\x1b", self.ok("tree", "small.optree", TERM="xterm"))

    def test_colours_do_not_change_the_columns(self):
        shown = re.sub("\x1b\\[\\d+m", "", self.on_terminal("tree", "small.optree"))
        self.assertEqual(self.ok("tree", "small.optree"), shown.replace("\r\n", "\n"))

    def test_long_work_shows_its_progress_on_one_line_and_wipes_it(self):
        os.mkfifo(self.folder / "slow.json")
        master, slave = pty.openpty()
        process = subprocess.Popen([OVSCENE, "convert", "slow.json", "slow.optree"], stderr=slave,
                                   cwd=self.folder, stdout=subprocess.PIPE,
                                   env={**os.environ, "TERM": "xterm"})
        os.close(slave)
        shown = b""
        with open(self.folder / "slow.json", "wb", buffering=0) as pipe:
            while shown.count(b"\r\x1b[K") < 2:  # blanks in front of the text, for as long as it takes
                pipe.write(b" " * 4096)
                if select.select([master], [], [], 0.01)[0]:
                    shown += os.read(master, 4096)
            pipe.write((self.folder / "small.optree.json").read_bytes())
        output = process.communicate()[0]
        try:
            while piece := os.read(master, 4096):
                shown += piece
        except OSError:  # the other end is closed
            pass
        os.close(master)
        self.assertEqual(0, process.returncode)
        self.assertIn(b"slow.optree: static scene", output)
        self.assertRegex(shown, rb"\A(\r\x1b\[Kreading slow\.json  \d+ bytes)+\r\x1b\[K\Z")

    def test_short_work_shows_no_progress(self):
        self.assertNotIn("\r\x1b[K", self.on_terminal("stats", "small.optree"))


if __name__ == "__main__":
    unittest.main()
