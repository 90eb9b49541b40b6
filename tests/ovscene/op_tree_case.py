# SPDX-License-Identifier: Apache-2.0
"""What the tests of ovscene over op trees have in common."""
import json

from ovscene_case import OvsceneCase


class OpTreeCase(OvsceneCase):
    def write_document(self, name, content, root):
        (self.folder / name).write_text(json.dumps(
            {"format": "sylvar", "version": 1, "content": content, "root": root}))
        return name

    def write_op_tree(self, name, **ops):
        """A file of ops, each a tuple of type, arguments and inputs."""
        return self.write_document(name, "op tree", {
            op: {"opType": type, "opArgs": arguments, "opInputs": list(inputs)} if inputs else
                {"opType": type, "opArgs": arguments}
            for op, (type, arguments, *inputs) in ops.items()})

    def warns(self, *arguments):
        """The output of a run that succeeds with one line on the error stream, and that line."""
        done = self.run_raw(*arguments, "--log", "off")
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertRegex(done.stderr, rb"\Aovscene: [^\n]+\n\Z")
        return done.stdout.decode("utf-8"), done.stderr.decode("utf-8")[len("ovscene: "):-1]
