#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Fails when a file includes what its place in the tree must not see.

Usage: check_layers.py ROOT
"""
import pathlib
import re
import sys

# For each layer of src/ the layers below it.
BELOW = {
    "Platform": [],
    "ResolutionTable": ["Platform"],
    "Filters": ["Platform"],
    "Producers": ["Platform", "Filters"],
    "Camera": ["Platform"],
    "Procedurals": ["Platform", "Camera"],
    "Materials": ["Platform"],
    "Utils": ["Platform", "Filters", "Producers", "Camera", "Procedurals", "Materials"],
}
# The parts of the embedded platform, from the bottom up.
EMBEDDED = ["Attributes", "Runtime", "Ops", "Services"]
PUBLIC = {"OvSylvarProducers", "ResolutionTableOv", "SylvarPlatform"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)


def includes(file):
    """Each (bracket, path, first folder of the path) that the file includes."""
    for bracket, path in INCLUDE.findall(file.read_text(encoding="utf-8")):
        yield bracket, path, path.split("/")[0] if "/" in path else ""


def sources(folder):
    return sorted(f for f in folder.rglob("*") if f.suffix in {".h", ".hpp", ".c", ".cpp"})


def public_header_faults(root):
    for file in sources(root / "include"):
        place = file.relative_to(root / "include")
        in_suites = "suites" in place.parts
        for bracket, path, top in includes(file):
            if bracket != "<":
                yield file, f"a public header includes with <>, not \"{path}\""
            if top in BELOW:
                yield file, f"a public header must not include {path}"
            if place.parts[0] == "SylvarPlatform" and top in PUBLIC - {"SylvarPlatform"}:
                yield file, f"the platform lies below {path}"
            if place.parts[0] == "ResolutionTableOv" and top in PUBLIC - {"ResolutionTableOv"}:
                yield file, f"the resolution table links no library of ours, but sees {path}"
            if in_suites and top and "/suites/" not in path:
                yield file, f"a header of suites/ sees suites/ and the standard library, not {path}"
            if file.suffix == ".h" and path.endswith(".hpp"):
                yield file, f"{path} is for C++ alone"


def layer_faults(root):
    for folder in sorted(f for f in (root / "src").glob("*") if f.is_dir()):
        if folder.name not in BELOW:
            yield folder, "is no known layer"
            continue
        for file in sources(folder):
            for bracket, path, top in includes(file):
                if top in BELOW and bracket != '"':
                    yield file, f"a private header is quoted: {path}"
                if top in BELOW and top != folder.name and top not in BELOW[folder.name]:
                    yield file, f"{folder.name} must not include {path}"
                if path.startswith("Platform/Embedded/") and folder.name != "Platform":
                    yield file, f"only the platform knows {path}"
                if folder.name == "ResolutionTable" and (
                        top in PUBLIC - {"ResolutionTableOv"} or
                        (top == "Platform" and not path.startswith("Platform/Support/"))):
                    yield file, f"the resolution table links no library of ours, but sees {path}"
                if folder.name == "Platform" and top in PUBLIC - {"SylvarPlatform"}:
                    yield file, f"the platform lies below {path}"
                if bracket == '"' and top == "":
                    yield file, f"write the layer before {path}"


def embedded_faults(root):
    for folder in sorted((root / "src/Platform/Embedded").glob("*")):
        if folder.is_dir() and folder.name not in EMBEDDED:
            yield folder, "is no known part of the embedded platform"
    for height, part in enumerate(EMBEDDED):
        for file in sources(root / "src/Platform/Embedded" / part):
            for _, path, _ in includes(file):
                if any(path.startswith(f"Platform/Embedded/{above}/") for above in EMBEDDED[height + 1:]):
                    yield file, f"{part} must not include {path}"


def outside_faults(root):
    """tools, plugins and examples see the public headers and their own folder."""
    for area in ("tools", "plugins", "examples"):
        for folder in sorted(f for f in (root / area).glob("*") if f.is_dir()):
            for file in sources(folder):
                for bracket, path, top in includes(file):
                    if top in BELOW:
                        yield file, f"must not include {path}"
                    if area == "plugins" and top in PUBLIC and "/suites/" not in path:
                        yield file, f"a plug-in sees the plain C headers alone, not {path}"
                    own = (file.parent / path).exists() or (folder / path).exists()
                    if bracket == '"' and not own:
                        yield file, f"{path} is no file of this folder"


def suite_test_faults(root):
    for file in sources(root / "tests/suites"):
        for _, path, top in includes(file):
            if top in BELOW or (top in PUBLIC and "/suites/" not in path):
                yield file, f"a test of the tables must not include {path}"


def faults(root):
    for find in (public_header_faults, layer_faults, embedded_faults, outside_faults,
                 suite_test_faults):
        for file, fault in find(root):
            yield f"{file.relative_to(root)}: {fault}"


if __name__ == "__main__":
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "layers call downward only")
    sys.exit(bool(found))
