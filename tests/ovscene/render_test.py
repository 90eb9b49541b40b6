#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene render. The environment is that of ovscene_case.py, OVSCENE_TEST_RENDERERS: the folder
of SampleRenderers.so, and OVSCENE_TEST_CENSUS: the shared objects of the examples that make a census,
with colons between them.
"""
import json
import os
import pathlib
import subprocess
import unittest

from op_tree_case import OpTreeCase
from ovscene_case import OVSCENE

SAMPLES = os.environ["OVSCENE_TEST_RENDERERS"]
CENSUS = [pathlib.Path(file) for file in os.environ["OVSCENE_TEST_CENSUS"].split(":") if file]
NAMES = "Deep, Empty, Failing, Idle, Later, Refusing, Small, Telling, Throwing, ThrowingNumber"


def command(plugin, file, *arguments):
    return ("render", file, *arguments, "--plugins", str(plugin.parent), "--renderer", plugin.stem)


def with_sample(name, *arguments):
    return ("render", *arguments, "--plugins", SAMPLES, "--renderer", name)


class Render(OpTreeCase):
    def setUp(self):
        self.write_op_tree("made.json", made=("generate", {"breadth": 2, "depth": 2}),
                           last=("setAttributes", {"paths": ["/root"], "values": {"x": 1}}, "made"))
        (self.folder / "bad").mkdir(exist_ok=True)
        (self.folder / "bad" / "Noise.so").write_text("noise")

    def told(self, *arguments, **options):
        """What the renderer is told: a list of its lines."""
        done = self.run_raw(*with_sample("Telling", *arguments), **options)
        self.assertEqual((0, b""), (done.returncode, done.stderr))
        return done.stdout.decode().splitlines()

    def test_an_op_tree_file_is_handed_over_by_its_name(self):
        self.assertEqual(
            ["size fits", "threads 3", "file made.json", "group (null)", "output (null)", "reserved 0"],
            self.told("made.json", "--threads", "3"))
        self.ok("convert", "made.json", "made.optree")
        self.assertIn("file made.optree", self.told("made.optree"))

    def test_the_ops_of_a_pipe_are_handed_over_as_a_group(self):
        self.assertEqual(
            ["size fits", "threads 1", "file (null)", "group there", "op made", "op last",
             "output (null)", "reserved 0"],
            self.told("/dev/stdin", "--threads", "1", input=(self.folder / "made.json").read_bytes()))

    def test_a_static_scene_is_handed_over_as_one_op(self):
        lines = self.told("small.optree")
        self.assertEqual(["file (null)", "group there", "op scene", "output (null)"], lines[2:6])

    def test_all_cores_unless_a_number_is_given(self):
        walkers = json.loads(self.ok("walk", "made.json", "--json"))["threads"]
        self.assertIn(f"threads {walkers}", self.told("made.json"))
        for threads in ("0", "1025", "two"):
            with self.subTest(threads):
                self.assertIn("--threads", self.fails(2, *with_sample("Telling", "made.json", "--threads", threads)))

    def test_output_and_options_are_handed_over_in_their_order(self):
        lines = self.told("made.json", "-o", "b=2", "--output", "image .exr", "--option", "a=1=x", "--option=b=",
                          "--set", "other=3")
        self.assertEqual(["output image .exr", "option b=2", "option a=1=x", "option b=", "reserved 0"],
                         lines[4:])
        for wrong in ("b", "=b"):
            with self.subTest(wrong):
                self.assertIn(f"'{wrong}' is no NAME=VALUE",
                              self.fails(2, *with_sample("Telling", "made.json", "-o", wrong)))

    def test_a_larger_table_is_one_of_a_later_version(self):
        self.assertIn("size fits\n", self.ok(*with_sample("Later", "made.json")))

    def test_a_renderer_that_fails(self):
        for name, reason in (("Failing", "render returns -3"),
                             ("Throwing", "render throws: no \\x1B light"),
                             ("ThrowingNumber", "render throws what is no std::exception"),
                             ("Deep", "render throws: getChildByName does not support deep child lookups")):
            with self.subTest(name):
                self.assertEqual(f"made.json: the renderer '{name}' failed: {reason}",
                                 self.fails(9, *with_sample(name, "made.json")))
        self.assertEqual(b"half an image\n", self.run_raw(*with_sample("Failing", "made.json")).stdout)

    def test_a_renderer_that_cannot_be_used(self):
        for name, reason in (("Small", r"its table claims a size of \d+ bytes instead of \d+"),
                             ("Idle", "it has no render"),
                             ("Empty", "getSuite returns null"),
                             ("Refusing", "refuses the host: setHost returns 5")):
            with self.subTest(name):
                self.assertRegex(self.fails(7, *with_sample(name, "made.json")),
                                 rf"\Athe renderer '{name}' cannot be used: {reason}\Z")

    def test_a_name_that_is_not_known(self):
        self.assertEqual("no renderer 'Teling'; did you mean 'Telling'?",
                         self.fails(7, *with_sample("Teling", "made.json")))
        self.assertEqual(f"no renderer 'Nonesuch'; there are {NAMES}",
                         self.fails(7, *with_sample("Nonesuch", "made.json")))

    def test_a_name_is_needed_when_there_are_several(self):
        self.assertEqual(f"--renderer is required; there are {NAMES}",
                         self.fails(2, "render", "made.json", "--plugins", SAMPLES))

    def test_without_a_renderer_the_places_searched_are_listed(self):
        for arguments in (("made.json",), ("--list",), ("made.json", "--renderer", "Telling")):
            with self.subTest(arguments):
                message = self.fails(7, "render", *arguments, "--plugins", "bad")
                self.assertRegex(message, r"\Ano renderer plug-in; searched bad, [^;]+; bad/Noise\.so: \w")

    def test_a_file_that_is_no_plugin_is_told_once(self):
        done = self.run_raw(*with_sample("Telling", "made.json"), "--plugins", "bad")
        self.assertEqual((0, 1), (done.returncode, done.stderr.count(b"bad/Noise.so")))

    def test_the_list_tells_what_each_makes(self):
        lines = self.ok("render", "--list", "--plugins", SAMPLES).splitlines()
        self.assertRegex(lines[0], r"\Arenderer +about\Z")
        self.assertEqual(NAMES.split(", "), [line.split()[0] for line in lines[1:]])
        for line in (r"Telling +Tells its job\\x1B\.", "Throwing", "Idle .* cannot be used: it has no render"):
            self.assertRegex("\n".join(lines), rf"(?m)^{line}$")

    def test_what_cannot_be_rendered(self):
        self.write_document("none.json", "op tree", {})
        (self.folder / "noise").write_bytes(b"\x1b\0\xff" * 99)
        self.assertEqual("gone: No such file or directory", self.fails(3, *with_sample("Telling", "gone")))
        for file, reason in (("none.json", "the op tree cannot be opened; it has no ops"),
                             ("data.optree", "holds a plain attribute"), ("noise", "")):
            with self.subTest(file):
                message = self.fails(4, *with_sample("Telling", file, "--log", "off"))
                self.assertTrue(message.startswith(f"{file}: {reason}"), message)
        self.assertIn("FILE is required", self.fails(2, "render", "--plugins", SAMPLES))

    def test_a_standard_output_that_takes_nothing(self):
        for target, status, message in (("/dev/full", 6, b"No space left"), (None, 0, b"")):
            with self.subTest(target):
                reader, writer = os.pipe() if target is None else (None, os.open(target, os.O_WRONLY))
                if reader is not None:
                    os.close(reader)
                done = subprocess.run([OVSCENE, *with_sample("Telling", "made.json")], cwd=self.folder,
                                      stdout=writer, stderr=subprocess.PIPE, timeout=100)
                os.close(writer)
                self.assertEqual(status, done.returncode)
                self.assertIn(message, done.stderr)
                self.assertEqual(not message, not done.stderr)


@unittest.skipUnless(CENSUS, "the examples were not built")
class Census(OpTreeCase):
    """The examples: all of them print the very same."""
    def setUp(self):
        self.write_op_tree("made.json", made=("generate", {"breadth": 9, "depth": 3}))
        self.write_op_tree("wide.json", made=("generate", {"shape": "wide", "breadth": 5000}))
        self.write_op_tree("deep.json", made=("generate", {"shape": "deep", "depth": 1000}))
        self.write_op_tree("types.json", made=("scene", {"tree": {
            "a": {"type": ["b", "x"]},
            "c": {"z": {"a": {"type": "c", "geometry": {"points": {"$float": [1, 2, 3, 4, 5, 6]}}},
                        "c": {"y": {"a": {"type": 7}, "c": {"x": {"c": {"w": {"a": {"type": ""}}}}}}}},
                  "n": {"a": {"type": "b", "geometry": {"points": [1, 2, 3]}}}}}}))

    def census(self, file, *arguments, **options):
        """What one example prints, and so all the others."""
        done = [self.run_raw(*command(so, file), *arguments, **options) for so in CENSUS]
        for one in done:
            self.assertEqual((0, b"", done[0].stdout), (one.returncode, one.stderr, one.stdout))
        return done[0].stdout.decode()

    def test_locations_types_and_points(self):
        self.assertEqual("""\
resolution square_512: 512 x 512
camera /root/world/cam/camera: none
/root  b
/root/z  c
/root/z/y  -
/root/z/y/x  -
/root/n  b
6 locations, 5 levels, 2 points, 0 materials, 0 shading nodes
       3  -
       2  b
       1  c
""", self.census("types.json"))

    def test_the_render_its_outputs_and_its_materials(self):
        node = {"name": "a", "type": "image"}
        self.write_op_tree("shot.json", made=("scene", {"tree": {
            "a": {"renderSettings": {
                "cameraName": "/root/eye", "resolution": "hd_720", "tempDir": "/tmp/renders",
                "outputs": {"beauty": {"tempRenderId": "_7"},
                            "depth": {"rendererSettings": {"tempRenderLocation": "/fast/z.###.exr"}}}}},
            "c": {"eye": {"a": {"geometry": {
                      name: {"$double": 37.5} for name in ("fov", "near", "far", "left", "right", "top", "bottom")}}},
                  "one": {"a": {"material": {"style": "network", "nodes": {
                      "a": node, "b": {"name": "b", "type": "mix"}, "nameless": {"type": "mix"}, "text": "x"}}}},
                  "two": {"a": {"material": {"surfaceShader": "matte"}}},
                  "three": {"a": {"material": "none"}}}}}))
        self.assertEqual("""\
resolution hd_720: 1280 x 720
camera /root/eye: 37.5 degrees
output beauty: /tmp/renders/beauty_7.exr
output depth: /fast/z.001.exr
/root  -
/root/eye  -
/root/one  -
/root/two  -
/root/three  -
5 locations, 2 levels, 0 points, 2 materials, 2 shading nodes
       5  -
""", self.census("shot.json"))

    def test_names_that_are_empty_or_unknown(self):
        strings = {"$string": [], "$tuple": 1}
        self.write_op_tree("bare.json", made=("scene", {"tree": {"a": {"renderSettings": {
            "cameraName": strings, "outputs": {"": {}, "odd": 1}}}}}))
        self.assertEqual("""\
resolution square_512: 512 x 512
camera -: none
output : .exr
output odd: odd.exr
""", "".join(self.census("bare.json").splitlines(True)[:4]))

    def test_a_resolution_that_nobody_knows_fails_the_render(self):
        self.write_op_tree("odd.json", made=("scene", {"tree": {"a": {"renderSettings": {"resolution": "hd_721"}}}}))
        # What flies through C leaves behind what C holds.
        options = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
        for so in CENSUS:
            with self.subTest(so.stem):
                done = self.run_raw(*command(so, "odd.json"), ASAN_OPTIONS=options)
                self.assertEqual((9, b""), (done.returncode, done.stdout), done.stderr)
                self.assertIn(b"Error querying resolution table for resolution: 'hd_721'", done.stderr)

    def test_scenes_of_any_shape(self):
        for file, sums in (("made.json", "820 locations, 4 levels, "), ("wide.json", "5001 locations, 2 levels, "),
                           ("deep.json", "1001 locations, 1001 levels, "),
                           ("small.optree", "7 locations, 4 levels, ")):
            with self.subTest(file):
                self.assertIn("\n" + sums, self.census(file))

    def test_a_pipe_is_rendered_as_the_file(self):
        self.assertEqual(self.census("made.json"),
                         self.census("/dev/stdin", input=(self.folder / "made.json").read_bytes()))

    def test_the_result_goes_where_the_user_says(self):
        printed = self.census("made.json")
        self.assertEqual("", self.census("made.json", "--output", "census.txt"))
        self.assertEqual(printed, (self.folder / "census.txt").read_text())
        for so in CENSUS:
            for wrong in ("gone/census.txt", "/dev/full"):
                with self.subTest((so.stem, wrong)):
                    self.assertIn("render returns", self.fails(
                        9, *command(so, "made.json", "--output", wrong, "--log", "off")))

    def test_a_reader_that_goes_ends_the_program_quietly(self):
        self.write_op_tree("long.json", made=("generate", {"shape": "wide", "breadth": 50000}))
        for so in CENSUS:
            with self.subTest(so.stem):
                run = subprocess.Popen([OVSCENE, *command(so, "long.json")], cwd=self.folder,
                                       stdout=subprocess.PIPE, stderr=subprocess.PIPE)
                run.stdout.readline()
                run.stdout.close()
                self.assertEqual(b"", run.stderr.read())
                run.stderr.close()
                self.assertEqual(0, run.wait(100))

    def test_what_an_example_does_not_know_it_names(self):
        for so in CENSUS:
            with self.subTest(so.stem):
                done = self.run_raw(*command(so, "made.json", "-o", "colour=red"))
                self.assertEqual((0, 1), (done.returncode, done.stderr.count(b"colour=red")))

    def test_a_location_with_an_error_is_no_failure(self):
        self.write_op_tree("unknown.json", odd=("nonesuch", {}))
        self.assertIn("1 locations, 1 levels, 0 points, ", self.census("unknown.json", "--log", "off"))

    def test_a_static_scene_with_a_name_that_no_path_can_hold_has_an_error_there(self):
        (self.folder / "slash.json").write_text(json.dumps(
            {"format": "sylvar", "version": 1, "content": "static scene",
             "root": {"c": {"set": {"c": {"a%2Fb": {}, "c": {}}}, "lamp": {}}}}))
        for so in CENSUS:
            with self.subTest(so.stem):
                done = self.run_raw(*command(so, "slash.json"))
                self.assertEqual(0, done.returncode)
                self.assertIn(b"/root/set  -\n/root/lamp  -\n3 locations", done.stdout)
                self.assertIn(b'/root/set: the child "a%2Fb" has a name that no path can hold', done.stderr)


if __name__ == "__main__":
    unittest.main()
