#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene tile. The environment is that of ovscene_case.py."""
import unittest

from ovscene_case import OvsceneCase

BEAUTY = "/shots/a.b/beauty.0001.exr"
KEY = "VARLIN_TILE_FILENAME"


class Tile(OvsceneCase):
    def path(self, *arguments):
        """The path that is told, with nothing on the error stream."""
        told = self.ok("tile", *arguments)
        self.assertEqual("\n", told[-1:])
        return told[:-1]

    def path_with(self, template, *arguments):
        """The path by a template, and what was logged."""
        done = self.run_raw("tile", *arguments, "--set", f"{KEY}={template}")
        self.assertEqual(0, done.returncode, done.stderr)
        return done.stdout.decode().rstrip("\n"), done.stderr.decode()

    def test_column_and_row_stand_before_the_name(self):
        for path, expected in ((BEAUTY, "/shots/a.b/tile_1_2.beauty.0001.exr"), ("a.exr", "tile_1_2.a.exr"),
                               ("a/b", "a/tile_1_2.b"), ("./a", "./tile_1_2.a"), ("/a", "/tile_1_2.a"),
                               ("", "tile_1_2."), ("/", "/tile_1_2."), ("tree", "tile_1_2.tree")):
            with self.subTest(path):
                self.assertEqual(expected, self.path(path, "1", "2"))

    def test_any_int_is_taken(self):
        for column, row in (("-1", "0"), ("2147483647", "-2147483648"), ("007", "-0")):
            with self.subTest(column):
                self.assertEqual(f"tile_{int(column)}_{int(row)}.a", self.path("a", column, row))

    def test_the_numbers_of_columns_and_rows_stand_in_a_template_alone(self):
        self.assertEqual("tile_1_2.a", self.path("a", "1", "2", "4", "3"))
        template = "@STEM@.@COLUMN@of@COLUMNS@.@ROW@of@ROWS@@EXT@"
        self.assertEqual(("/shots/a.b/beauty.0001.1of4.2of3.exr", ""),
                         self.path_with(template, BEAUTY, "1", "2", "4", "3"))

    def test_a_template_may_change_the_folder(self):
        for template, expected in (("tiles/@DEFAULT@", "/shots/a.b/tiles/tile_1_2.beauty.0001.exr"),
                                   ("/tiles/@DEFAULT@", "/tiles/tile_1_2.beauty.0001.exr")):
            with self.subTest(template):
                self.assertEqual((expected, ""), self.path_with(template, BEAUTY, "1", "2"))

    def test_a_template_comes_from_a_file_of_settings_too(self):
        (self.folder / "settings.json").write_text('{"%s": "t@DEFAULT@"}' % KEY)
        self.assertEqual("ttile_1_2.a", self.path("a", "1", "2", "--config", "settings.json"))

    def test_a_template_that_lacks_tokens_is_told_and_not_used(self):
        path, logged = self.path_with("@STEM@.@COLUMNS@@EXT@", "a.exr", "1", "2", "4", "3")
        self.assertEqual("tile_1_2.a.exr", path)
        self.assertRegex(logged, r"\A[^\n]+ warning RenderOutputUtils: VARLIN_TILE_FILENAME \(defined as"
                                 r" \"@STEM@\.@COLUMNS@@EXT@\"\) should contain @COLUMN@, [^\n]+\n\Z")

    def test_numbers_that_are_not_known_are_told(self):
        path, logged = self.path_with("@DEFAULT@.@ROWS@", "a.exr", "1", "2")
        self.assertEqual("tile_1_2.a.exr.UnknownRows", path)
        self.assertRegex(logged, r"\A[^\n]+ is using @COLUMNS@ or @ROWS@, but tiles count is not available\.")

    def test_a_scene_of_somebody_else_changes_nothing(self):
        """The tile is looked up in a scene that the command makes, whatever plug-ins there are."""
        (self.folder / "noise").mkdir(exist_ok=True)
        (self.folder / "noise" / "Noise.so").write_text("noise")
        self.assertEqual("tile_1_2.a", self.path("a", "1", "2", "--plugins", "noise"))

    def test_wrong_usage(self):
        for arguments, expected in (
                ((), "PATH is required"), (("a",), "COL is required"), (("a", "1"), "ROW is required"),
                (("a", "1", "2", "3"), "COLS requires ROWS"),
                (("a", "1", "2", "3", "4", "5"), "5"),
                (("a", "x", "2"), "COL: 'x' is no whole number of 32 bits"),
                (("a", "1", "2.5"), "ROW: '2.5' is no whole number"),
                (("a", "1", ""), "ROW: '' is no whole number"),
                (("a", "1", "2147483648"), "ROW: '2147483648' is no whole number"),
                (("a", "-99999999999999999999", "2"), "COL: '-99999999999999999999' is no whole number"),
                (("a", "1", "2", "0x4", "3"), "COLS: '0x4' is no whole number"),
                (("a", "1", "2", "4", "3\x1b"), "ROWS: '3\\x1B' is no whole number")):
            with self.subTest(arguments):
                message = self.fails(2, "tile", *arguments)
                self.assertIn(expected, message)
                self.assertIn("(see 'ovscene tile --help')", message)

    def test_whatever_a_path_holds_is_shown_safely(self):
        self.assertEqual("a\\x1B[31m/tile_1_2.\\x0A\\xFF", self.path(b"a\x1b[31m/\n\xff", "1", "2"))

    def test_a_long_path(self):
        self.assertEqual("a" * 60000 + "/tile_1_2." + "b" * 60000, self.path("a" * 60000 + "/" + "b" * 60000, "1", "2"))


if __name__ == "__main__":
    unittest.main()
