#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene args. The environment is that of ovscene_case.py."""
import unittest
import xml.etree.ElementTree

from op_tree_case import OpTreeCase

LENS = {"fov": 45.0, "near": 0.5, "far": 100.0, "left": -1.0, "right": 1.0, "top": 1.0, "bottom": -1.0}
FUR = "/root/world/fur"
TAIL = " -frame 1 -shutter 0 0 -cropwindow 0 1 0 1\n"


def scene():
    return {
        "a": {"renderSettings": {"resolution": "pal"}},
        "c": {"world": {"c": {
            "cam": {"c": {"camera": {"a": {"geometry": LENS}}}},
            "fur": {"a": {"type": "renderer procedural", "procedural": {
                "args": {"density": {"$float": 0.75}, "map": "a.##.exr", "label": "two words",
                         "nested": {"seed": 7, "__hidden": 1}, "extraArgs": "-verbose 1"},
                "systemArgs": {"cache": "on"},
                "includeCameraInfo": "As Parameters"}}},
            "odd": {"a": {"arguments": {"args": {"bytes": "a\x1bb\\x5Cx41\n"}}}},
            "bare": {}}}}}


class Args(OpTreeCase):
    def setUp(self):
        self.write_document("static.json", "static scene", scene())
        self.write_op_tree("made.json", made=("scene", {"at": "/root", "tree": scene()}))

    def xml(self, *arguments):
        """The children of the XML, by name."""
        text = self.ok("args", *arguments, "--style", "2")
        self.assertTrue(text.endswith("</attr>\n"))
        return {child.get("name"): child for child in xml.etree.ElementTree.fromstring(text)}

    def values(self, attribute):
        return " ".join("".join(sample.itertext()) for sample in attribute.iter("sample"))

    def test_a_line_of_command(self):
        for file in ("static.json", "made.json"):
            for style in ((), ("--style", "1")):
                with self.subTest((file, style)):
                    self.assertEqual(
                        " -density 0.75 -map a.01.exr -label 'two words' -verbose 1  -cache on"
                        " -cameraInfo_path /root/world/cam/camera -cameraInfo_fov 45 -cameraInfo_near 0.5"
                        " -cameraInfo_far 100 -cameraInfo_left -1 -cameraInfo_right 1 -cameraInfo_top 1"
                        " -cameraInfo_bottom -1 -cameraInfo_xform 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1" + TAIL,
                        self.ok("args", file, FUR, "procedural", *style))

    def test_the_xml_of_an_attribute(self):
        for file in ("static.json", "made.json"):
            with self.subTest(file):
                told = self.xml(file, FUR, "procedural")
                self.assertEqual(["args", "cache", "frame", "shutter", "cropwindow"], list(told)[:5])
                self.assertEqual("varlinFullName", list(told)[-1])
                self.assertEqual(FUR, self.values(told["varlinFullName"]))
                self.assertEqual(["density", "map", "label", "nested", "extraArgs"],
                                 [child.get("name") for child in told["args"]])
                self.assertEqual(["seed"], [child.get("name") for child in told["args"][3]])
                self.assertEqual(("720", "576"), (self.values(told["cameraInfo_xres"]),
                                                  self.values(told["cameraInfo_yres"])))

    def test_the_context_is_that_of_the_options(self):
        context = ("--frame", "-24", "--shutter", "-0.25,0.25", "--crop", "0.5,1,-0.1,2e1")
        self.assertIn(" -map a.-24.exr ", self.ok("args", "made.json", FUR, "procedural", *context))
        self.assertTrue(self.ok("args", "made.json", FUR, "procedural", *context).endswith(
            " -frame -24 -shutter -0.25 0.25 -cropwindow 0.5 1 -0.10000000149 20\n"))
        told = self.xml("made.json", FUR, "procedural", *context, "--xres", "640", "--yres", "480")
        self.assertEqual(["-24", "-0.25 0.25", "0.5 1 -0.1 20", "640", "480"],
                         [self.values(told[name]) for name in
                          ("frame", "shutter", "cropwindow", "cameraInfo_xres", "cameraInfo_yres")])
        told = self.xml("made.json", FUR, "procedural", "--yres", "5")
        self.assertEqual(("720", "5"), (self.values(told["cameraInfo_xres"]),
                                        self.values(told["cameraInfo_yres"])))

    def test_assets_are_found_along_the_search_path(self):
        (self.folder / "maps").mkdir(exist_ok=True)
        (self.folder / "maps" / "a.07.exr").touch()
        self.assertIn(" -map maps/a.07.exr ",
                      self.ok("args", "made.json", FUR, "procedural", "--frame", "7",
                              "--set", "SYLVAR_ASSET_PATH=maps"))

    def test_any_group_may_hold_the_arguments(self):
        self.assertEqual(TAIL, self.ok("args", "made.json", FUR, "procedural.args"))
        self.assertEqual(TAIL, self.ok("args", "made.json", FUR, ""))

    def test_a_text_of_any_bytes_is_shown_safely(self):
        for file in ("static.json", "made.json"):
            with self.subTest(file):
                self.assertEqual(" -bytes a\\x1Bb\\x5Cx41\\x0A" + TAIL,
                                 self.ok("args", file, "/root/world/odd", "arguments"))
                self.assertEqual("a\\x1Bb\\x5Cx41\\x0A",
                                 self.values(self.xml(file, "/root/world/odd", "arguments")["args"]))

    def test_a_static_scene_may_have_any_names(self):
        here = {"a": {"arguments": {"includeCameraInfo": "As Parameters"}}}
        tree = scene()
        tree["c"]["world"]["c"].update({"a%2Fb": {"c": {"m.n": here, "m%2En2": here}}, "none": 1})
        self.write_document("names.json", "static scene", tree)
        for path in ("a%2Fb/m.n", "a%2Fb/m.n2", "a%2Fb/m%2En2"):
            with self.subTest(path):
                self.assertIn(" -cameraInfo_fov 45 ",
                              self.ok("args", "names.json", "/root/world/" + path, "arguments"))
        self.assertEqual("/root/world/a%2Fb/m.n2", self.values(self.xml(
            "names.json", "/root/world/a%2Fb/m%2En2", "arguments")["varlinFullName"]))
        self.assertIn("no attribute arguments at /root/world/none",
                      self.fails(5, "args", "names.json", "/root/world/none", "arguments"))

    def test_both_forms_of_a_file_and_a_pipe_tell_the_same(self):
        expected = self.ok("args", "static.json", FUR, "procedural")
        for file in ("static.json", "made.json"):
            self.ok("convert", file, file[:-5] + ".optree")
            self.assertEqual(expected, self.ok("args", file[:-5] + ".optree", FUR, "procedural"))
            done = self.run_raw("args", "/dev/stdin", FUR, "procedural",
                                input=(self.folder / file).read_bytes())
            self.assertEqual((0, b"", expected), (done.returncode, done.stderr, done.stdout.decode()))

    def test_a_resolution_that_nobody_knows(self):
        self.write_op_tree("odd.json", made=("scene", {"at": "/root", "tree": {
            "a": {"renderSettings": {"resolution": "9000x1"}, "arguments": {}}}}))
        self.assertEqual("odd.json: FileOut: Error querying resolution table for resolution: '9000x1'.",
                         self.fails(4, "args", "odd.json", "/root", "arguments", "--style", "2"))
        self.assertEqual(TAIL, self.ok("args", "odd.json", "/root", "arguments"))
        self.xml("odd.json", "/root", "arguments", "--xres", "1", "--yres", "2")

    def test_what_is_not_there_or_no_group(self):
        for status, arguments, expected in (
                (5, ("made.json", FUR, "gone"), "made.json: no attribute gone at /root/world/fur"),
                (5, ("made.json", "/root/world/bare", "arguments"), "no attribute arguments at /root/world/bare"),
                (5, ("made.json", "/root/none", "arguments"), "/root has 1 child, not 'none'"),
                (5, ("static.json", "/root/none", "arguments"), "/root has 1 child, not 'none'"),
                (4, ("made.json", FUR, "type"),
                 "made.json: the attribute type at /root/world/fur is no group but string"),
                (4, ("plain.json", "/root", "a"), "holds a plain attribute"),
                (3, ("missing.json", "/root", "a"), "missing.json")):
            self.write_document("plain.json", "attribute", {"a": 1})
            for style in ("1", "2"):
                with self.subTest((arguments, style)):
                    self.assertIn(expected, self.fails(status, "args", *arguments, "--style", style))

    def test_wrong_options(self):
        for option, value, expected in (
                ("--style", "3", "'3' is no number from 1 to 2"),
                ("--style", "0", "'0' is no number from 1 to 2"),
                ("--frame", "1.5", "'1.5' is no whole number of 32 bits"),
                ("--frame", "2147483648", "is no whole number of 32 bits"),
                ("--shutter", "1", "'1' is no list of 2 numbers with commas between them"),
                ("--shutter", "0,1,2", "is no list of 2 numbers"),
                ("--shutter", "0,x", "is no list of 2 numbers"),
                ("--shutter", "0,", "is no list of 2 numbers"),
                ("--shutter", "0,nan", "is no list of 2 numbers"),
                ("--shutter", "0,1e99", "is no list of 2 numbers"),
                ("--crop", "0,1,0", "is no list of 4 numbers"),
                ("--xres", "0", "'0' is no number from 1 to 2147483647"),
                ("--yres", "x", "'x' is no number from 1 to 2147483647")):
            with self.subTest((option, value)):
                message = self.fails(2, "args", "made.json", FUR, "procedural", option, value)
                self.assertIn(f"{option}: {expected}" if expected[0] == "'" else expected, message)
        self.assertIn("ATTR", self.fails(2, "args", "made.json", FUR))

    def test_shared_groups_that_would_be_written_very_many_times(self):
        self.assertEqual(TAIL, self.ok("args", "shared_args.optree", "/root", "arguments"))
        self.assertIn("shared_args.optree: Attribute::getXML: the attribute expands to more than",
                      self.fails(4, "args", "shared_args.optree", "/root", "arguments", "--style", "2"))
    def test_a_location_with_an_error(self):
        self.write_op_tree("bad.json", made=("scene", {"at": "/root", "tree": {
            "a": {"errorMessage": "broken", "arguments": {}}}}))
        text, warning = self.warns("args", "bad.json", "/root", "arguments")
        self.assertEqual(TAIL, text)
        self.assertIn("1 location with errors, the first at /root: broken", warning)


if __name__ == "__main__":
    unittest.main()
