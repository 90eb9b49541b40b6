#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Runs ovscene plugins. The environment is that of ovscene_case.py, OVSCENE_TEST_DELEGATES,
OVSCENE_TEST_RENDERERS, OVSCENE_TEST_TELLING and OVSCENE_TEST_ANSWERING: the folders of the plug-ins for
tests.
"""
import json
import os
import pathlib
import shutil
import unittest

from ovscene_case import OVSCENE, OvsceneCase

DELEGATES = os.environ["OVSCENE_TEST_DELEGATES"]
RENDERERS = os.environ["OVSCENE_TEST_RENDERERS"]
TELLING = os.environ["OVSCENE_TEST_TELLING"]
ANSWERING = os.environ["OVSCENE_TEST_ANSWERING"]
PLUGINS = os.environ.get("OVSCENE_TEST_PLUGINS")
DELEGATE_API = "ScenegraphLocationDelegatePlugin"
ODD = "odd\\x0A\\x1B[31m\\xFF"
ODD_API = "An API\\x09\\x1B]0;x\\x07"


def of(*folders):
    return [argument for folder in folders for argument in ("--plugins", folder)]


class Plugins(OvsceneCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # A copy without a folder of plug-ins beside it, and so with the tests' own alone.
        (cls.folder / "bin").mkdir()
        cls.program = shutil.copy(OVSCENE, cls.folder / "bin")
        cls.own = str(cls.folder / "lib" / "OvSylvarProducers" / "plugins")
        pathlib.Path(cls.own).mkdir(parents=True)

    def run_raw(self, *arguments, **options):
        return super().run_raw(*arguments, **{"program": self.program, **options})

    def told(self, *arguments, **environment):
        return json.loads(self.ok("plugins", *arguments, "--json", **environment))

    def gives(self, *folders):
        return {(plugin["api"], plugin["name"]): plugin["gives"]
                for plugin in self.told("--explain", *of(*folders))["plugins"]}

    def bad(self, name, **files):
        """A folder of files that are no plug-ins."""
        folder = self.folder / name
        folder.mkdir()
        for file, content in files.items():
            (folder / (file + ".so")).write_bytes(content)
        return name

    def test_the_list(self):
        self.matches_golden("plugins.txt", self.ok("plugins", *of(TELLING, DELEGATES)).replace(DELEGATES, "DELEGATES"))

    def test_the_list_explained(self):
        text = self.ok("plugins", "--explain", *of(TELLING, DELEGATES, RENDERERS))
        for folder, name in ((TELLING, "TELLING"), (DELEGATES, "DELEGATES"), (RENDERERS, "RENDERERS"),
                             (self.own, "PLUGINS")):
            text = text.replace(folder, name)
        self.matches_golden("plugins_explained.txt", text)

    def test_plugins_stand_by_api_and_version_and_then_as_they_are_taken(self):
        plugins = self.told(*of(RENDERERS, DELEGATES))["plugins"]
        keys = [(plugin["api"], plugin["version"]) for plugin in plugins]
        self.assertEqual(sorted(keys), keys)
        self.assertEqual(["Crowd", "Hair", "Idle", "Incomplete", "Second", "Tableless", "Throwing", "ThrowingNumber"],
                         [plugin["name"] for plugin in plugins
                          if (plugin["api"], plugin["version"]) == (DELEGATE_API, 1)])
        self.assertEqual({"api": "SylvarRuntime", "version": 1, "name": "EmbeddedRuntime"}, plugins[-1])

    def test_no_plugin_is_asked_for_its_table_unless_they_are_explained(self):
        self.assertEqual(["plug-in 10 has the API version 0"],
                         [rejected["reason"] for rejected in self.told(*of(DELEGATES))["rejected"]])
        self.assertEqual([("Tableless", "getSuite throws: no \\x1B table"), ("unread", "plug-in 10 has the API version 0")],
                         sorted((rejected["plugin"], rejected["reason"])
                                for rejected in self.told("--explain", *of(DELEGATES))["rejected"]))
        self.assertEqual([("Empty", "getSuite returns null"), ("Refusing", "refuses the host: setHost returns 5")],
                         [(rejected["plugin"], rejected["reason"])
                          for rejected in self.told("--explain", *of(RENDERERS))["rejected"]])

    def test_what_each_gives(self):
        gives = self.gives(TELLING, DELEGATES, RENDERERS)
        for name, expected in (("Hair", "for Telling: hair, fur\\x0A\\x1B[2J"), ("Crowd", "for any renderer: crowd"),
                               ("Second", "for Ray\\x1Bs: hair"), ("Idle", "for Telling: no type"),
                               ("Throwing", "nothing: it throws: no \\x1B instance"),
                               ("ThrowingNumber", "nothing: it throws what is no std::exception"),
                               ("Incomplete", "nothing: its table has a null entry"),
                               ("Tableless", "nothing: it is rejected")):
            with self.subTest(name):
                self.assertEqual(expected, gives[DELEGATE_API, name])
        self.assertEqual("imports told", gives["SylvarAssetImporter", "TellingImporter"])
        self.assertEqual("Tells its job\\x1B.", gives["SylvarRenderer", "Telling"])
        self.assertEqual("the renderer 'Idle' cannot be used: it has no render", gives["SylvarRenderer", "Idle"])
        self.assertEqual("nothing: it is rejected", gives["SylvarRenderer", "Refusing"])
        self.assertEqual("", gives[ODD_API, ODD])

    @unittest.skipUnless(PLUGINS, "no plug-ins were built")
    def test_an_op_type_gives_what_it_is_about(self):
        self.assertRegex(self.gives(PLUGINS)["SylvarOpType", "import"], r"^An asset file as a scene: ")

    def test_the_first_runtime_cooks(self):
        self.assertEqual("cooks the scenes here", self.gives()["SylvarRuntime", "EmbeddedRuntime"])
        gives = self.gives(ANSWERING)
        self.assertEqual("cooks the scenes here", gives["SylvarRuntime", "AnsweringRuntime"])
        self.assertEqual("not used: another one comes first", gives["SylvarRuntime", "EmbeddedRuntime"])

    def test_delegates_are_told_by_renderer_as_renderers_find_them(self):
        self.assertEqual([{"renderer": "", "types": ["crowd"]}, {"renderer": "Ray\\x1Bs", "types": ["hair"]},
                          {"renderer": "Telling", "types": ["fur\\x0A\\x1B[2J", "hair"]}],
                         self.told("--explain", *of(DELEGATES))["delegates"])
        self.assertEqual([], self.told("--explain")["delegates"])

    def test_an_api_is_explained_in_words(self):
        about = {(plugin["api"], plugin["version"]): plugin["about"]
                 for plugin in self.told("--explain", *of(TELLING, DELEGATES, RENDERERS))["plugins"]}
        self.assertRegex(about["SylvarRuntime", 1], "^A runtime: ")
        self.assertRegex(about["SylvarRenderer", 1], "^A renderer: ")
        self.assertRegex(about["SylvarAssetImporter", 1], "^An importer: ")
        self.assertRegex(about[DELEGATE_API, 1], "^A location delegate: ")
        self.assertEqual("Not asked for here, where version 1 is known.", about[DELEGATE_API, 2])
        self.assertRegex(about[ODD_API, 2147483647], "^Not known here: ")

    def test_folders_are_told_in_the_order_in_which_they_are_searched(self):
        for name in ("first", "second", "third"):
            (self.folder / name).mkdir()
        self.assertEqual(["first", "second", "third", self.own], self.told(
            "--explain", *of("first", "second"), OVSCENE_PLUGIN_PATH="third")["folders"])

    def test_json_tells_all_of_it_in_its_order(self):
        self.assertEqual(["plugins", "rejected"], list(self.told()))
        explained = self.told("--explain")
        self.assertEqual(["folders", "plugins", "delegates", "rejected"], list(explained))
        self.assertEqual(["api", "version", "name", "about", "gives"], list(explained["plugins"][0]))

    def test_files_that_are_no_plugins_are_rejected_with_their_reason(self):
        folder = self.bad("broken", Noise=b"noise", Empty=b"", Cut=pathlib.Path(OVSCENE).read_bytes()[:5000])
        shutil.copy(OVSCENE, self.folder / folder / "Program.so")
        (self.folder / folder / "Folder.so").mkdir()
        (self.folder / folder / "Gone.so").symlink_to("nowhere")
        (self.folder / folder / "text.txt").write_text("not looked at")
        for arguments in ((), ("--explain",)):
            rejected = {os.path.basename(one["file"]): one["reason"]
                        for one in self.told(*arguments, *of(folder))["rejected"]}
            self.assertEqual({"Noise.so", "Empty.so", "Cut.so", "Program.so", "Folder.so", "Gone.so"}, set(rejected))
            self.assertEqual("is no regular file", rejected["Folder.so"])
            self.assertEqual("is cut short", rejected["Cut.so"])
            self.assertEqual("No such file or directory", rejected["Gone.so"])
            self.assertIn("file too short", rejected["Noise.so"])
        self.assertRegex(self.ok("plugins", *of(folder)), r"(?m)^rejected\nbroken/Cut\.so\n  \w")
        self.assertRegex(self.ok("plugins", *of(folder)), r"\n1 plug-in, 6 rejected\n\Z")

    def test_a_folder_that_is_not_there_is_rejected(self):
        told = self.told(OVSCENE_PLUGIN_PATH="gone")
        self.assertEqual([{"file": "gone", "plugin": "", "reason": "No such file or directory"}], told["rejected"])

    @unittest.skipIf(os.geteuid() == 0, "root reads everything")
    def test_a_folder_that_may_not_be_read_is_rejected(self):
        (self.folder / "locked").mkdir(mode=0)
        self.assertEqual("Permission denied", self.told(*of("locked"))["rejected"][0]["reason"])

    def test_a_second_plugin_of_a_name_is_rejected(self):
        (self.folder / "copy").mkdir()
        shutil.copy(os.path.join(TELLING, "TellingImporter.so"), self.folder / "copy")
        [rejected] = self.told(*of(TELLING, "copy"))["rejected"]
        self.assertEqual("copy/TellingImporter.so", rejected["file"])
        self.assertIn("a plug-in of this name comes before it, in ", rejected["reason"])

    def test_whatever_a_plugin_tells_is_shown_safely(self):
        for arguments in ((), ("--explain",), ("--json",), ("--explain", "--json")):
            with self.subTest(arguments):
                text = self.ok("plugins", *arguments, *of(DELEGATES, self.bad("n\x1b" + "".join(arguments), a=b"n")))
                self.assertNotRegex(text, "[\x00-\x09\x0b-\x1f\x7f-\x9f\u2028\u202e]")
                self.assertIn(ODD.replace("\\", "\\\\") if "--json" in arguments else ODD, text)

    def test_what_a_plugin_prints_goes_to_the_error_stream(self):
        arguments = ("--explain", "--json", *of(DELEGATES))
        done = self.run_raw("plugins", *arguments, "--set", "talk=1")
        self.assertEqual((0, {b"A plug-in talks."}), (done.returncode, set(done.stderr.splitlines())))
        self.assertEqual(self.told("--explain", *of(DELEGATES)), json.loads(done.stdout))

    def test_wrong_usage(self):
        for arguments in (("more",), ("--other",)):
            with self.subTest(arguments):
                self.assertIn("(see 'ovscene plugins --help')", self.fails(2, "plugins", *arguments))


if __name__ == "__main__":
    unittest.main()
