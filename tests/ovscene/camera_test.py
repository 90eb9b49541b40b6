#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene camera. The environment is that of ovscene_case.py."""
import json
import math
import pathlib
import unittest

from op_tree_case import OpTreeCase

SCENES = pathlib.Path(__file__).resolve().parents[2] / "scenes"
MAIN = "/root/world/cameras/main"
BOX = "/root/world/box"


def double(*values):
    return {"$double": list(values)}


def through(point, matrix):
    """A point through a matrix of 16, and divided by its fourth coordinate."""
    p = [sum((*point, 1)[k] * matrix[4 * k + j] for k in range(4)) for j in range(4)]
    return [c / p[3] for c in p[:3]]


class Camera(OpTreeCase):
    """A camera 10 in front of a box of 2 across that stands 1 to the right of its axis."""

    BOUND = [-1, 1, -1, 1, -1, 1]

    def setUp(self):
        self.write_scene("shot.json")

    def write_scene(self, name, lens=(), settings=(), bound=None, xform={"translate": [0, 0, 10]}):
        self.write_op_tree(
            name,
            box=("scene", {"at": BOX, "tree": {"a": {
                "type": "mesh", "bound": bound or double(*self.BOUND),
                "xform": {"translate": double(1, 0, 0)}}}}),
            flat=("camera", {"path": "/root/world/cameras/flat", "projection": "orthographic",
                             "orthographicWidth": 8, "xform": {"translate": [0, 0, 20]}}),
            main=("camera", {"path": MAIN, "fov": 90, "near": 1, "far": 21,
                             "xform": xform, **dict(lens)}),
            all=("merge", {}, "box", "flat", "main"),
            settings=("renderSettings", {"camera": MAIN, "resolution": "square_512", **dict(settings)},
                      "all"))
        return name

    def told(self, *arguments):
        return json.loads(self.ok("camera", *arguments, "--json"))

    def test_the_camera_of_the_render(self):
        self.matches_golden("camera.txt", self.ok("camera", "shot.json"))

    def test_what_a_location_takes_up(self):
        self.matches_golden("camera_box.txt", self.ok("camera", "shot.json", BOX))

    def test_json_tells_all_of_it_in_its_order(self):
        told = self.told("shot.json", BOX)
        self.assertEqual(["file", "camera", "resolution", "location"], list(told))
        self.assertEqual(["file", "camera", "resolution"], list(self.told("shot.json")))
        self.assertEqual(["path", "projection", "fov", "near", "far", "left", "right", "top", "bottom",
                          "orthographicWidth", "xform", "xformAttr", "projectionMatrix"],
                         list(told["camera"]))
        self.assertEqual({"name": "square_512", "width": 512, "height": 512}, told["resolution"])
        self.assertEqual(["path", "type", "localToScreen", "pixelArea", "normalised", "pixels",
                          "cornersBehind"], list(told["location"]))

    def test_json_is_the_camera_that_was_made(self):
        camera = self.told("shot.json")["camera"]
        self.assertEqual((MAIN, "perspective", 90, 1, 21, -1, 1, 1, -1),
                         tuple(camera[name] for name in ("path", "projection", "fov", "near", "far",
                                                         "left", "right", "top", "bottom")))
        self.assertEqual([1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 10, 1], camera["xform"])
        self.assertEqual(("float", 16, [{"time": 0, "values": camera["xform"]}]),
                         tuple(camera["xformAttr"][name] for name in ("kind", "tupleSize", "samples")))

    def test_numbers_are_in_full_precision(self):
        self.write_scene("fine.json", lens={"near": 0.1, "xform": {"translate": [0.1, 0, 10]}})
        camera = self.told("fine.json")["camera"]
        self.assertEqual(0.1, camera["xform"][12])
        self.assertEqual(0.1, camera["near"])  # the shortest text of the float

    def test_the_place_in_the_picture_is_that_of_the_corners(self):
        location = self.told("shot.json", BOX)["location"]
        # The nearest face is 9 away, the farthest 11; a field of view of 90 degrees sees as far aside.
        for expected, found in zip((0.5, 0.5 + 2 / 9 / 2), location["normalised"]["x"]):
            self.assertAlmostEqual(expected, found)
        for expected, found in zip((0.5 - 1 / 9 / 2, 0.5 + 1 / 9 / 2), location["normalised"]["y"]):
            self.assertAlmostEqual(expected, found)
        self.assertEqual([0.4, 0.5], location["normalised"]["depth"])
        self.assertEqual([9, 11], location["pixels"]["distance"])
        for axis in ("x", "y"):
            self.assertEqual([512 * n for n in location["normalised"][axis]], location["pixels"][axis])
        self.assertEqual(0, location["cornersBehind"])
        sides = [int(512 * (high - low)) for low, high in
                 (location["normalised"]["x"], location["normalised"]["y"])]
        self.assertEqual(sides[0] * sides[1], location["pixelArea"])

    def test_the_matrix_leads_from_the_location_to_pixels(self):
        told = self.told("shot.json", BOX)
        matrix = told["location"]["localToScreen"]
        corners = [through((x, y, 1), matrix) for x in (-1, 1) for y in (-1, 1)]
        for axis, name in enumerate("xy"):
            found = told["location"]["pixels"][name]
            self.assertAlmostEqual(max(found), max(corner[axis] for corner in corners), 4)

    def test_another_camera_than_the_renders(self):
        told = self.told("shot.json", BOX, "--camera", "/root/world/cameras/flat")
        self.assertEqual(("/root/world/cameras/flat", "orthographic", 8),
                         tuple(told["camera"][name] for name in ("path", "projection", "orthographicWidth")))
        self.assertEqual([0.5, 0.75], told["location"]["normalised"]["x"])
        self.assertEqual([0.375, 0.625], told["location"]["normalised"]["y"])
        self.assertEqual([19, 21], [round(d, 4) for d in told["location"]["pixels"]["distance"]])
        middle = through((0, 0, 0), told["location"]["localToScreen"])
        self.assertAlmostEqual(512 * 0.625, middle[0], 4)
        self.assertAlmostEqual(256, middle[1], 4)
        self.assertIn("  a camera\n", self.ok("camera", "shot.json", "--camera", "/root/world/cameras/flat"))

    def test_the_renders_camera_by_its_name_is_the_same(self):
        self.write_scene("turned.json", xform={
            "translate": [0.3, 0.2, 12], "rotateY": [7, 0, 1, 0]}, settings={"resolution": "hd_720"})
        self.assertEqual(self.told("turned.json", BOX), self.told("turned.json", BOX, "--camera", MAIN))

    def test_a_picture_that_is_not_square(self):
        self.write_scene("wide.json", lens={"top": 0.5625, "bottom": -0.5625},
                         settings={"resolution": "hd_720"})
        told = self.told("wide.json", BOX)
        self.assertEqual({"name": "hd_720", "width": 1280, "height": 720}, told["resolution"])
        self.assertAlmostEqual(1280 * (0.5 + 2 / 9 / 2), told["location"]["pixels"]["x"][1], 4)
        self.assertIn("projection, width by height 1.7777778\n", self.ok("camera", "wide.json"))

    def test_the_usual_picture_and_camera_when_the_render_names_none(self):
        self.write_op_tree("plain.json", camera=("camera", {"path": "/root/world/cam/camera"}))
        told = self.told("plain.json")
        self.assertEqual("/root/world/cam/camera", told["camera"]["path"])
        self.assertEqual({"name": "square_512", "width": 512, "height": 512}, told["resolution"])
        self.assertEqual({"kind": "null"}, told["camera"]["xformAttr"])
        self.assertIn("transform samples  none: it has no transform\n", self.ok("camera", "plain.json"))

    def test_a_camera_that_moves_tells_its_samples(self):
        self.write_scene("moving.json", xform={"translate": {
            "$double": [[0, 0, 9], [0, 0, 10], [0, 0, 12]], "$times": [-0.25, 0, 0.25]}})
        camera = self.told("moving.json")["camera"]
        self.assertEqual(10, camera["xform"][14])
        self.assertEqual([(-0.25, 9), (0, 10), (0.25, 12)],
                         [(s["time"], s["values"][14]) for s in camera["xformAttr"]["samples"]])
        self.assertRegex(self.ok("camera", "moving.json"), r"transform samples +3 .*-0\.25")

    def test_corners_behind_the_camera_are_counted(self):
        self.write_scene("inside.json", bound=double(-1, 1, -1, 1, -30, 30))
        self.assertEqual(4, self.told("inside.json", BOX)["location"]["cornersBehind"])
        self.assertRegex(self.ok("camera", "inside.json", BOX), r"corners behind +4 of 8\n")
        self.assertNotIn("corners behind", self.ok("camera", "shot.json", BOX))

    def test_a_lens_without_extent_is_told_as_it_is(self):
        self.write_scene("flat.json", lens={"near": 5, "far": 5})
        told = self.told("flat.json", BOX)
        self.assertEqual(["inf", "inf"], told["location"]["normalised"]["depth"])
        self.assertEqual("-inf", told["camera"]["projectionMatrix"][10])

    def test_static_scenes_both_forms_and_pipes_tell_the_same(self):
        def lens(**values):
            return {name: double(value) for name, value in {
                "fov": 90, "near": 1, "far": 21, "left": -1, "right": 1, "top": 1, "bottom": -1,
                **values}.items()}
        self.write_document("static.json", "static scene", {
            "a": {"renderSettings": {"cameraName": MAIN}},
            "c": {"world": {"c": {
                "box": {"a": {"type": "mesh", "bound": double(*self.BOUND),
                              "xform": {"translate": double(1, 0, 0)}}},
                "cameras": {"c": {"main": {"a": {
                    "type": "camera", "geometry": lens(), "xform": {"translate": double(0, 0, 10)}}}}}}}}})
        expected = self.told("shot.json", BOX)
        for file in ("static.json", "static.optree", "shot.optree"):
            if file.endswith(".optree"):
                self.ok("convert", file.replace(".optree", ".json"), file)
            with self.subTest(file):
                told = self.told(file, BOX)
                del told["camera"]["orthographicWidth"]
                told["file"] = "shot.json"
                self.assertEqual({**expected, "camera": {k: v for k, v in expected["camera"].items()
                                                         if k != "orthographicWidth"}}, told)
        for file in ("static.json", "shot.json"):
            done = self.run_raw("camera", "/dev/stdin", BOX, "--json", input=(self.folder / file).read_bytes())
            self.assertEqual((0, b""), (done.returncode, done.stderr))
            self.assertEqual(expected["location"], json.loads(done.stdout)["location"])

    def test_paths_take_names_decoded_and_encoded(self):
        scene = {"a": {}, "c": {"a%2Eb": {"a": {"type": "mesh", "bound": double(*self.BOUND)}},
                                "cam%2E1": {"a": {"type": "camera", "geometry": {
                                    name: double(i) for i, name in enumerate(
                                        ("near", "far", "left", "right", "bottom", "top", "fov"), 1)}}}}}
        self.write_document("dots.json", "static scene", scene)
        self.write_op_tree("cooked_dots.json", scene=("scene", {"tree": scene}))
        for file in ("dots.json", "cooked_dots.json"):
            for path, camera in (("/root/a.b", "/root/cam.1"), ("/root/a%2Eb", "/root/cam%2E1"),
                                 ("/root/a.b/", "/root/cam.1/")):
                with self.subTest((file, path)):
                    told = self.told(file, path, "--camera", camera)
                    self.assertEqual("/root/a.b", told["location"]["path"])
                    self.assertEqual(7, told["camera"]["fov"])

    def test_a_camera_that_is_not_there_is_told_with_who_named_it_and_why(self):
        usual = "/root/world/cam/camera (the usual one, since the string renderSettings.cameraName is not set)"
        self.write_op_tree("none.json", world=("scene", {"at": "/root/world", "tree": {"a": {}}}))
        self.assertEqual(f"none.json: no camera {usual}; no location /root/world/cam/camera; /root/world has"
                         " no children", self.fails(5, "camera", "none.json"))
        self.write_scene("named.json", settings={"camera": "/root/world/gone"})
        self.assertIn("named.json: no camera /root/world/gone (renderSettings.cameraName names it); no location"
                      " /root/world/gone; /root/world has 2 children, none 'gone'",
                      self.fails(5, "camera", "named.json"))
        self.assertEqual("shot.json: no location /root/world/gone; /root/world has 2 children, none 'gone'",
                         self.fails(5, "camera", "shot.json", "--camera", "/root/world/gone"))
        self.write_document("empty.json", "static scene", {
            "a": {"renderSettings": {"cameraName": {"$string": []}}}})
        self.assertIn("empty.json: no camera '' (renderSettings.cameraName names it)",
                      self.fails(5, "camera", "empty.json"))

    def test_a_location_that_is_no_camera_is_told_with_what_it_lacks(self):
        lens = {name: double(1) for name in ("fov", "near", "far", "left", "right", "top", "bottom")}
        for attributes, reason in (
                ({}, 'it has no "geometry"'),
                ({"geometry": "round"}, 'its "geometry" is string, not a group'),
                ({"geometry": {}}, 'its "geometry.fov" is missing'),
                ({"geometry": {**lens, "top": None}}, 'its "geometry.top" is missing'),
                ({"geometry": {**lens, "near": {"$float": 1}}},
                 'its "geometry.near" is float, not double')):
            with self.subTest(reason):
                self.write_document("lens.json", "static scene", {"c": {"cam": {"a": attributes}}})
                self.assertEqual(f"lens.json: no camera /root/cam (--camera names it); {reason}",
                                 self.fails(5, "camera", "lens.json", "--camera", "/root/cam"))

    def test_a_camera_with_an_error_tells_it(self):
        self.write_scene("broken.json", lens={"fov": 400})
        message = self.fails(5, "camera", "broken.json", "--log", "off")
        self.assertIn(f"no camera {MAIN} (renderSettings.cameraName names it); it has the error: camera", message)
        self.assertIn('argument "fov": expected 0 to 360, found 400', message)

    def test_a_location_without_a_bound(self):
        for bound, reason in ((double(1, 2, 3), '"bound" is double x 3, not 6 doubles'),
                              ({"$float": self.BOUND}, '"bound" is float x 6, not 6 doubles')):
            self.write_scene("bound.json", bound=bound)
            for more in ((), ("--json",)):
                with self.subTest(reason):
                    self.assertEqual(f"bound.json: no bound at {BOX}; its {reason}",
                                     self.fails(5, "camera", "bound.json", BOX, *more))
        self.assertEqual('shot.json: no bound at /root/world; its "bound" is missing',
                         self.fails(5, "camera", "shot.json", "/root/world"))

    def test_a_location_that_is_not_there(self):
        self.assertEqual("shot.json: no location /root/world/bax; /root/world has 2 children, none 'bax'",
                         self.fails(5, "camera", "shot.json", "/root/world/bax"))

    def test_a_resolution_that_the_table_does_not_know(self):
        self.write_scene("near.json", settings={"resolution": "hd_721"})
        self.assertEqual("near.json: no resolution 'hd_721' (renderSettings.resolution names it);"
                         " did you mean 'hd_720'?", self.fails(5, "camera", "near.json"))
        self.write_scene("far.json", settings={"resolution": "wall"})
        self.assertRegex(self.fails(5, "camera", "far.json"),
                         r"no resolution 'wall' .*; the table has \d+ resolutions, none of that name")

    def test_files_that_are_no_scene(self):
        self.write_document("plain.json", "attribute", {"a": 1})
        self.assertIn("holds a plain attribute", self.fails(4, "camera", "plain.json"))
        self.assertIn("missing.json", self.fails(3, "camera", "missing.json"))
        self.assertIn("FILE", self.fails(2, "camera"))

    def test_hostile_names_are_shown_safely(self):
        self.write_document("hostile.json", "static scene", {
            "a": {"renderSettings": {"cameraName": "/root/\x1b[31m\n"}}})
        self.assertIn("no camera /root/\\x1B[31m\\x0A (", self.fails(5, "camera", "hostile.json"))

    def test_the_square_of_the_repository(self):
        models = "/usr/share/assimp/models"
        if not pathlib.Path(models).exists():
            self.skipTest("the Debian package assimp-testmodels is not there")
        told = self.told(str(SCENES / "square.optree.json"), "--set", f"SYLVAR_ASSET_PATH={SCENES}:{models}")
        self.assertEqual((MAIN, 46), (told["camera"]["path"], told["camera"]["fov"]))
        self.assertEqual({"name": "hd_720", "width": 1280, "height": 720}, told["resolution"])
        across = told["camera"]["projectionMatrix"][0]
        self.assertAlmostEqual(1 / math.tan(math.radians(23)), across, 5)
        self.assertAlmostEqual(across * 16 / 9, told["camera"]["projectionMatrix"][5], 5)


if __name__ == "__main__":
    unittest.main()
