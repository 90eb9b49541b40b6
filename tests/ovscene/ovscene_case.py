# SPDX-License-Identifier: Apache-2.0
"""What the tests of ovscene have in common. OVSCENE_APPROVE=1 writes the golden files anew.

The environment says where things are: OVSCENE and OVSCENE_TEST_SCENES.
"""
import os
import pathlib
import subprocess
import tempfile
import unittest

OVSCENE = os.environ["OVSCENE"]
GOLDEN = pathlib.Path(__file__).resolve().parent / "golden"


class OvsceneCase(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.temporary.name)
        subprocess.run([os.environ["OVSCENE_TEST_SCENES"], cls.folder], check=True)

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    def run_raw(self, *arguments, program=OVSCENE, input=None, **environment):
        env = {**os.environ, "LC_ALL": "C", **environment}
        return subprocess.run([program, *arguments], cwd=self.folder, env=env, input=input,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=100)

    def ok(self, *arguments, **environment):
        """The output of a run that succeeds and says nothing on the error stream."""
        done = self.run_raw(*arguments, **environment)
        self.assertEqual((0, b""), (done.returncode, done.stderr))
        return done.stdout.decode("utf-8")

    def fails(self, status, *arguments, **options):
        """The one line of a run that fails with this status."""
        done = self.run_raw(*arguments, **options)
        self.assertEqual(status, done.returncode, done.stderr)
        message = done.stderr.decode("utf-8")
        self.assertRegex(message, r"\Aovscene: [^\n]+\n\Z")
        return message[len("ovscene: "):-1]

    def matches_golden(self, name, text):
        golden = GOLDEN / name
        if os.environ.get("OVSCENE_APPROVE"):
            golden.write_text(text, encoding="utf-8")
        self.assertEqual(golden.read_text(encoding="utf-8"), text)
