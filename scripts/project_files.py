# SPDX-License-Identifier: Apache-2.0
"""The files of the project: what git tracks or would track; in a plain copy, all but build/."""
import pathlib
import subprocess

CPP = {".h", ".hpp", ".c", ".cpp"}


def project_files(root):
    root = pathlib.Path(root)
    listed = subprocess.run(
        ["git", "-C", str(root), "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        capture_output=True, check=False)
    if listed.returncode == 0 and listed.stdout:
        files = (root / name for name in listed.stdout.decode().split("\0") if name)
    else:
        files = (f for f in root.rglob("*") if f.relative_to(root).parts[0] not in {"build", ".git"})
    return sorted({f for f in files if f.is_file()})
