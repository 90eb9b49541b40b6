#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene walk. The environment is that of ovscene_case.py."""
import json
import resource
import subprocess
import unittest

from op_tree_case import OpTreeCase
from ovscene_case import OVSCENE

THREADS = ("1", "2", "16")


class Walk(OpTreeCase):
    def setUp(self):
        self.write_op_tree("made.json", made=("generate", {"breadth": 9, "depth": 3}),
                           set=("setAttributes", {"paths": ["/root/c1/**"], "values": {"x": 1}}, "made"))
        self.write_op_tree("wide.json", made=("generate", {"shape": "wide", "breadth": 5000}))
        self.write_op_tree("holes.json", made=(
            "generate", {"shape": "wide", "breadth": 5000, "absentEvery": 2}))
        self.write_op_tree("deep.json", made=("generate", {"shape": "deep", "depth": 300}))
        self.write_op_tree("load.json", load=("load", {"file": "small.optree"}))
        self.write_op_tree("faulty.json", made=("generate", {"breadth": 3, "depth": 3, "failEvery": 5}))

    def walk(self, *arguments):
        return json.loads(self.ok("walk", *arguments, "--json"))

    def test_every_location_is_visited_once_on_any_number_of_threads(self):
        for file, locations in (("made.json", 1 + 9 + 81 + 729), ("wide.json", 5001), ("holes.json", 2501),
                                ("deep.json", 301), ("load.json", 7), ("small.optree", 7),
                                ("wide.optree", 100001), ("deep.optree", 10000)):
            for threads in THREADS:
                with self.subTest((file, threads)):
                    document = self.walk(file, "--threads", threads)
                    shares = document["walks"][0]["threadLocations"]
                    self.assertEqual((locations, locations, int(threads), int(threads)),
                                     (document["locations"], sum(shares), len(shares),
                                      document["threads"]))

    def test_what_is_read_is_the_same_on_any_number_of_threads(self):
        one, two, many = ({**self.walk("made.json", "--threads", threads), "threads": 0, "walks": []}
                          for threads in THREADS)
        self.assertEqual(one, two)
        self.assertEqual(one, many)
        changed = 1 + 9 + 81  # /root/c1 itself and what is below it
        self.assertEqual(820 * 7 + changed, one["attributes"])

    def test_what_is_read_is_the_same_when_all_threads_share_one_client(self):
        own, shared = (json.loads(self.ok("walk", "made.json", "--threads", "2", "--json", **environment))
                       for environment in ({}, {"RUNTIME_USE_CONCURRENT": "1"}))
        self.assertEqual({**own, "walks": []}, {**shared, "walks": []})

    def test_a_loaded_scene_is_walked_as_the_file_itself(self):
        static, cooked = (self.walk(file) for file in ("small.optree", "load.json"))
        self.assertEqual(("static scene", "op tree"), (static["content"], cooked["content"]))
        for name in ("locations", "attributes", "errors"):
            self.assertEqual(static[name], cooked[name])

    def test_the_walk_begins_where_it_is_told(self):
        for file, top, locations in (("made.json", "/root/c1/", 91), ("made.json", "/root/c1/c2/c3", 1),
                                     ("small.optree", "/root/world/geo", 3)):
            with self.subTest((file, top)):
                document = self.walk(file, "--top", top)
                self.assertEqual((locations, top.rstrip("/")), (document["locations"], document["top"]))
        for file in ("made.json", "small.optree"):
            self.assertIn("/root has ", self.fails(5, "walk", file, "--top", "/root/gone"))

    def test_each_location_is_cooked_once_and_so_is_what_stands_above_the_top(self):
        for threads in THREADS:
            with self.subTest(threads):
                statistics = self.walk("made.json", "--threads", threads, "--stats")["statistics"]
                types = statistics["opTypes"]
                self.assertEqual((821, 821), (types["generate"]["cooks"], types["setAttributes"]["cooks"]))
                self.assertEqual(0, types["generate"]["evictions"])
                self.assertEqual(2 * 821, statistics["store"]["entries"])
                self.assertLessEqual(statistics["store"]["pinnedBytes"], statistics["store"]["bytes"])

    def test_a_second_walk_finds_what_the_first_one_cooked(self):
        document = self.walk("made.json", "--threads", "2", "--repeat", "3", "--stats")
        self.assertEqual([820] * 3, [walk["locations"] for walk in document["walks"]])
        counts = document["statistics"]["opTypes"]["setAttributes"]
        self.assertEqual(821, counts["cooks"])
        self.assertGreaterEqual(counts["hits"], 2 * 819)  # the top is there from the start

    def test_a_memory_budget_is_kept(self):
        self.write_op_tree("large.json", made=("generate", {"breadth": 20, "depth": 3}))
        free, bound = (self.walk("large.json", "--threads", "2", "--stats", *setting)
                       for setting in ((), ("--set", "SYLVAR_MEMORY_BUDGET=512K")))
        self.assertEqual(free["locations"], bound["locations"])
        self.assertEqual(0, free["statistics"]["opTypes"]["generate"]["evictions"])
        self.assertGreater(bound["statistics"]["opTypes"]["generate"]["evictions"], 0)
        self.assertLess(bound["statistics"]["store"]["bytes"], free["statistics"]["store"]["bytes"])

    def test_a_static_scene_has_no_statistics(self):
        self.assertIsNone(self.walk("small.optree", "--stats")["statistics"])
        self.assertIn("\nno statistics: no runtime", self.ok("walk", "small.optree", "--stats"))

    def test_statistics_are_there_when_asked_for(self):
        self.assertNotIn("statistics", self.walk("made.json"))
        self.assertNotIn("op type", self.ok("walk", "made.json"))

    def test_report(self):
        text = self.ok("walk", "made.json", "--threads", "1", "--repeat", "2", "--stats")
        for expected in (r"content +op tree", r"top +/root\n", r"threads +1\n", r"locations +820\n",
                         r"walk +seconds +locations/s", r"\n +1 +\d+\.\d{4} s +\d+ +820\n",
                         r"\n +2 +\d+\.\d{4} s +\d+ +820\n", r"\ngenerate +821 +\d+ +0 +\d",
                         r"\nstore  1642 entries, \d+ bytes, \d+ of them pinned\n"):
            self.assertRegex(text, expected)
        self.assertNotIn("errors", text)

    def test_errors_are_counted_and_one_is_told(self):
        for threads in THREADS:
            with self.subTest(threads):
                text, told = self.warns("walk", "faulty.json", "--threads", threads, "--json")
                lines = self.warns("tree", "faulty.json", "--json")[0].splitlines()
                wrong = [json.loads(line) for line in lines if "errorMessage" in line]
                document = json.loads(text)
                self.assertEqual((len(lines), len(wrong)), (document["locations"], document["errors"]))
                self.assertEqual(f"faulty.json: {len(wrong)} locations with errors: " +
                                 min(line["errorMessage"] for line in wrong), told)
        self.assertRegex(self.warns("walk", "faulty.json")[0], r"\nerrors +\d")

    def test_what_cannot_be_walked(self):
        self.write_document("none.json", "op tree", {})
        (self.folder / "noise").write_bytes(b"\x1b\0\xff" * 99)
        (self.folder / "cut").write_bytes((self.folder / "small.optree").read_bytes()[:99])
        self.assertEqual("gone: No such file or directory", self.fails(3, "walk", "gone"))
        self.assertEqual("none.json: the op tree cannot be opened; it has no ops",
                         self.fails(4, "walk", "none.json", "--log", "off"))
        self.assertIn("holds a plain attribute", self.fails(4, "walk", "data.optree"))
        for file in ("noise", "cut"):
            self.assertTrue(self.fails(4, "walk", file).startswith(file + ": "))

    def test_an_op_type_that_is_not_known_is_an_error_of_its_location(self):
        self.write_op_tree("unknown.json", odd=("nonesuch", {}))
        text, told = self.warns("walk", "unknown.json", "--json")
        self.assertEqual((1, 1), tuple(json.loads(text)[name] for name in ("locations", "errors")))
        self.assertIn("unknown.json: 1 location with errors: nonesuch", told)

    def test_wrong_options(self):
        for arguments, expected in (
                (("--threads", "0"), "--threads: '0' is no number from 1 to 1024"),
                (("--threads", "1025"), "--threads: '1025' is no number from 1 to 1024"),
                (("--threads", "two"), "--threads: 'two' is no number"),
                (("--repeat", "0"), "--repeat: '0' is no number from 1 to"),
                (("/root",), "/root"), (("--depth", "1"), "--depth")):
            with self.subTest(arguments):
                self.assertIn(expected, self.fails(2, "walk", "made.json", *arguments))
        self.assertIn("FILE", self.fails(2, "walk"))

    def test_a_failure_on_a_thread_ends_the_command(self):
        self.write_op_tree("huge.json", made=("generate", {"shape": "wide", "breadth": 1 << 24}))
        self.write_op_tree("below.json", load=("load", {"file": "huge.json", "at": "/root/below"}))

        def run(*arguments):
            return subprocess.run(
                [OVSCENE, *arguments], cwd=self.folder, stdout=subprocess.PIPE,
                stderr=subprocess.PIPE, timeout=100,
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (1 << 28, 1 << 28)))

        if run("--version").returncode != 0:
            self.skipTest("a sanitizer needs more address space by itself")
        self.assertEqual(0, run("tree", "below.json", "--depth", "0").returncode)
        for threads in ("1", "2"):
            with self.subTest(threads):
                done = run("walk", "below.json", "--threads", threads)
                self.assertEqual((1, b"", b"ovscene: out of memory\n"),
                                 (done.returncode, done.stdout, done.stderr))


if __name__ == "__main__":
    unittest.main()
