#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene outputs. The environment is that of ovscene_case.py."""
import json
import os
import pathlib
import unittest

from op_tree_case import OpTreeCase

SCENES = pathlib.Path(__file__).resolve().parents[2] / "scenes"
EXAMPLE = str(SCENES / "outputs.optree.json")


def placed(location):
    return {"rendererSettings": {"tempRenderLocation": location}}


class Outputs(OpTreeCase):
    def write_scene(self, name, **settings):
        """A static scene with these render settings, as they stand."""
        return self.write_document(name, "static scene", {"a": {"renderSettings": settings}})

    def told(self, *arguments, **environment):
        return json.loads(self.ok("outputs", *arguments, "--json", **environment))

    def locations(self, file, *arguments, **environment):
        return {output["name"]: output["tempLocation"]
                for output in self.told(file, *arguments, **environment)["outputs"]}

    def location(self, location, *arguments, **environment):
        """The one that an output has that names its location so."""
        self.write_scene("one.json", outputs={"one": placed(location)})
        return self.locations("one.json", *arguments, **environment)["one"]

    def test_the_outputs_of_a_tile(self):
        self.matches_golden("outputs.txt", self.ok("outputs", EXAMPLE, "--frame", "12", SCRATCH="/scratch/shot"))

    def test_the_outputs_of_a_whole_picture(self):
        self.write_op_tree("whole.json",
                           camera=("camera", {"path": "/root/world/cam/camera"}),
                           render=("renderSettings", {"outputs": {"beauty": {"tempRenderId": "b1"}}}, "camera"))
        self.matches_golden("outputs_whole.txt", self.ok("outputs", "whole.json"))

    def test_json_tells_all_of_it_in_its_order(self):
        told = self.told(EXAMPLE, "--frame", "-1.5")
        self.assertEqual(["file", "camera", "resolution", "frame", "tile", "outputs"], list(told))
        self.assertEqual(("/root/world/cameras/main", {"name": "hd_720", "width": 1280, "height": 720}, -1.5,
                          [1, 1, 3, 3]), tuple(told[name] for name in ("camera", "resolution", "frame", "tile")))
        self.assertEqual(["name", "tempLocation", "tilePath"], list(told["outputs"][0]))
        self.write_scene("whole.json", outputs={"beauty": {}})
        self.assertEqual((None, ["name", "tempLocation"]), (
            self.told("whole.json")["tile"], list(self.told("whole.json")["outputs"][0])))

    def test_the_frame_is_cut_to_a_whole_number_and_filled_with_zeros(self):
        for frame, expected in (("1", "a.0001.1"), ("7.99", "a.0007.7"), ("-5", "a.00-5.-5"), ("-0.5", "a.0000.0"),
                                ("12345", "a.12345.12345"), ("1e3", "a.1000.1000"),
                                ("3e38", "a.2147483647.2147483647"), ("-3e38", "a.-2147483648.-2147483648")):
            with self.subTest(frame):
                self.assertEqual(expected, self.location("a.####.#", "--frame", frame))
        self.assertEqual("a.0001.1", self.location("a.####.#"))

    def test_a_frame_that_is_no_number(self):
        for frame in ("", "x", "1,5", "nan", "inf", "1e99", "0x1p", " 1", "1 "):
            with self.subTest(frame):
                self.assertIn(f"--frame: '{frame}' is no decimal number",
                              self.fails(2, "outputs", EXAMPLE, "--frame", frame))

    def test_prefix_and_suffix_make_the_names_in_the_folder_alone(self):
        self.write_scene("both.json", tempDir="/scratch", outputs={
            "placed": placed("/there/a.exr"), "named": {"tempRenderId": "x1"}, "bare": {}})
        self.assertEqual({"placed": "/there/a.exr", "named": "/scratch/x1.exr", "bare": "/scratch/.exr"},
                         self.locations("both.json"))
        self.assertEqual({"placed": "/there/a.exr", "named": "/scratch/shot_x1.tif", "bare": "/scratch/shot_.tif"},
                         self.locations("both.json", "--prefix", "shot_", "--suffix", "tif"))
        self.assertEqual({"placed": "/there/a.exr", "named": "/scratch/x1.", "bare": "/scratch/."},
                         self.locations("both.json", "--prefix", "", "--suffix="))

    def test_home_and_variables_are_filled_in(self):
        self.assertEqual("/home/me/a", self.location("~/a", HOME="/home/me"))
        self.assertEqual("/s/x/$NONE/a", self.location("$S/${X}/$NONE/a", S="/s", X="x"))

    def test_a_tile_of_which_the_numbers_are_not_known(self):
        self.write_scene("tile.json", tileRender=[3, 4], outputs={"a": placed("/t/a.exr")})
        self.assertEqual("/t/tile_3_4.a.exr", self.told("tile.json")["outputs"][0]["tilePath"])
        self.assertRegex(self.ok("outputs", "tile.json"), r"(?m)^tile +column 3, row 4$")

    def test_the_template_for_tiles_is_a_setting(self):
        told = self.told(EXAMPLE, "--set", "VARLIN_TILE_FILENAME=tiles/@STEM@.@COLUMN@.@ROW@@EXT@")
        self.assertEqual("/scratch/shot/tiles/beauty_7f3a.1.1.exr", told["outputs"][0]["tilePath"])

    def test_a_tile_without_a_row_is_told(self):
        self.write_scene("half.json", tileRender=[3], outputs={"a": placed("/t/a.exr")})
        done = self.run_raw("outputs", "half.json")
        self.assertEqual(0, done.returncode)
        self.assertRegex(done.stdout.decode(), r"(?m)^tile +none; it takes a column and a row, and the scene has 1 number$")
        self.assertRegex(done.stdout.decode(), r"(?m)^a +/t/a\.exr +/t/a\.exr$")
        self.assertRegex(done.stderr, rb"\A[^\n]+ error RenderOutputUtils: Invalid tile data size\. [^\n]+\n\Z")

    def test_a_tile_that_is_not_of_ints_is_none(self):
        self.write_scene("text.json", tileRender="1 2", outputs={"a": placed("/t/a.exr")})
        self.assertIsNone(self.told("text.json")["tile"])

    def test_a_scene_without_outputs_says_so(self):
        for settings, expected in (({}, '/root has no "renderSettings.outputs"'),
                                   ({"outputs": {}}, 'the "renderSettings.outputs" of /root is empty'),
                                   ({"outputs": "all"}, 'the "renderSettings.outputs" of /root is string, not a group')):
            with self.subTest(settings):
                self.write_scene("none.json", **settings)
                self.assertEqual("no outputs: " + expected, self.ok("outputs", "none.json").splitlines()[-1])
                self.assertEqual([], self.told("none.json")["outputs"])
        self.assertIn("no outputs: ", self.ok("outputs", "small.optree"))

    def test_a_render_that_names_nothing_has_the_usual_camera_and_picture(self):
        told = self.told("small.optree")
        self.assertEqual(("/root/world/cam/camera", {"name": "square_512", "width": 512, "height": 512}),
                         (told["camera"], told["resolution"]))

    def test_static_scenes_both_forms_and_pipes_tell_the_same(self):
        self.ok("convert", EXAMPLE, "example.optree")
        expected = {**self.told(EXAMPLE), "file": ""}
        self.assertEqual(expected, {**self.told("example.optree"), "file": ""})
        done = self.run_raw("outputs", "/dev/stdin", "--json", input=pathlib.Path(EXAMPLE).read_bytes())
        self.assertEqual((0, expected), (done.returncode, {**json.loads(done.stdout), "file": ""}))
        settings = json.loads(pathlib.Path(EXAMPLE).read_text())["root"]["render"]["opArgs"]
        self.write_scene("static.json", cameraName=settings.pop("camera"), **settings)
        self.assertEqual(expected, {**self.told("static.json"), "file": ""})

    def test_an_unknown_resolution_is_told_with_what_was_meant(self):
        self.write_scene("odd.json", resolution="hd_721", outputs={"a": {}})
        self.assertEqual("odd.json: no resolution 'hd_721' (renderSettings.resolution names it); "
                         "did you mean 'hd_720'?", self.fails(5, "outputs", "odd.json"))

    def test_files_that_are_no_scenes(self):
        (self.folder / "noise.json").write_text("{")
        self.write_op_tree("empty.json")
        for status, file, expected in ((3, "gone.json", "No such file"), (3, ".", "Is a directory"),
                                       (4, "noise.json", "line 1"), (4, "plain.optree.json", "holds a plain attribute"),
                                       (4, "empty.json", "it has no ops")):
            with self.subTest(file):
                message = self.fails(status, "--log", "off", "outputs", file)
                self.assertIn(file, message)
                self.assertIn(expected, message)

    @unittest.skipIf(os.geteuid() == 0, "root reads everything")
    def test_a_file_that_may_not_be_read(self):
        self.write_scene("locked.json")
        (self.folder / "locked.json").chmod(0)
        self.assertIn("Permission denied", self.fails(3, "outputs", "locked.json"))

    def test_an_error_of_the_top_location_is_told(self):
        self.write_op_tree("wrong.json", scene=("scene", {"tree": {}}),
                           settings=("renderSettings", {"outputs": {"a": 1}}, "scene"))
        shown, warned = self.warns("outputs", "wrong.json")
        self.assertIn("no outputs: ", shown)
        self.assertRegex(warned, r"wrong\.json: 1 location with errors, the first at /root: renderSettings ")

    def test_whatever_a_scene_holds_is_shown_safely(self):
        odd = "\x1b[31m\n\u202e"
        self.write_scene("odd.json", cameraName=odd, tempDir=odd, outputs={
            odd: {"tempRenderId": odd}, "a.b": {"tempRenderId": "dot"}, "none": None, "int": 1})
        text = self.ok("outputs", "odd.json")
        self.assertNotRegex(text, "[\x00-\x09\x0b-\x1f\x7f-\x9f\u2028\u202e]")
        self.assertIn("\\x1B[31m\\x0A\\xE2\\x80\\xAE", text)
        self.assertEqual(4, len(self.told("odd.json")["outputs"]))

    def test_many_outputs(self):
        self.write_scene("many.json", tempDir="/t", tileRender=[0, 0],
                         outputs={f"output{i}": {"tempRenderId": str(i)} for i in range(20000)})
        outputs = self.told("many.json")["outputs"]
        self.assertEqual((20000, "/t/tile_0_0.19999.exr"), (len(outputs), outputs[-1]["tilePath"]))


if __name__ == "__main__":
    unittest.main()
