#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Imports an asset, stores it in both file forms, walks it and counts what it holds: scripts/demo.sh [ASSET]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install_packages.sh
asset=${1:-/usr/share/assimp/models/glTF2/2CylinderEngine-glTF-Binary/2CylinderEngine.glb}
out=build/demo
name=$(basename "${asset%.*}")

cmake --preset release >/dev/null
cmake --build --preset release --target ovscene AssimpImport --parallel "$(nproc)"
ovscene=build/release/bin/ovscene
rm -rf "$out"
mkdir -p "$out"

say() { printf '\n== %s\n' "$*"; }

say "Importing $asset"
"$ovscene" import "$asset" "$out/$name.optree"
"$ovscene" convert "$out/$name.optree" "$out/$name.optree.json"
"$ovscene" convert "$out/$name.optree.json" "$out/$name.again.optree"
cmp "$out/$name.optree" "$out/$name.again.optree"
rm "$out/$name.again.optree"

say "Its upper levels"
"$ovscene" tree "$out/$name.optree" >"$out/$name.tree.txt"
"$ovscene" tree "$out/$name.optree" --depth 3
echo "The whole tree, $(wc -l <"$out/$name.tree.txt") lines, is in $out/$name.tree.txt"

say "What it holds"
"$ovscene" stats "$out/$name.optree" | tee "$out/$name.stats.txt"

say "The results are in $out"
ls -l "$out"
