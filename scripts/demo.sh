#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Imports an asset, stores it in both file forms, counts what it holds, and walks two op trees on all cores: one that
# loads the asset, and a village square of a hundred thousand locations. scripts/demo.sh [ASSET]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install_packages.sh
asset=${1:-/usr/share/assimp/models/glTF2/2CylinderEngine-glTF-Binary/2CylinderEngine.glb}
scene=scenes/demo.optree.json
out=build/demo

cmake --preset release >/dev/null
cmake --build --preset release --target ovscene AssimpImport --parallel "$(nproc)"
ovscene=build/release/bin/ovscene
rm -rf "$out"
mkdir -p "$out"

say() { printf '\n== %s\n' "$*"; }

say "Importing $asset"
"$ovscene" import "$asset" "$out/asset.optree"
"$ovscene" convert "$out/asset.optree" "$out/asset.optree.json"
"$ovscene" convert "$out/asset.optree.json" "$out/again.optree"
cmp "$out/asset.optree" "$out/again.optree"
rm "$out/again.optree"

say "Its upper levels"
"$ovscene" tree "$out/asset.optree" >"$out/asset.tree.txt"
"$ovscene" tree "$out/asset.optree" --depth 3
echo "The whole tree, $(wc -l <"$out/asset.tree.txt") lines, is in $out/asset.tree.txt"

say "What it holds"
"$ovscene" stats "$out/asset.optree" | tee "$out/asset.stats.txt"

say "Walking $scene, which loads it and adds to it, on all cores"
"$ovscene" tree "$scene" /root/asset --depth 1 --set SYLVAR_ASSET_PATH="$out"
echo
"$ovscene" walk "$scene" --repeat 2 --stats --set SYLVAR_ASSET_PATH="$out" | tee "$out/walk.txt"

square=scenes/square.optree.json
assets=scenes:/usr/share/assimp/models
say "Walking $square, made of imported models, on all cores"
"$ovscene" tree "$square" /root/world --depth 1 --set SYLVAR_ASSET_PATH="$assets"
echo
"$ovscene" walk "$square" --repeat 2 --stats --set SYLVAR_ASSET_PATH="$assets" | tee "$out/square.walk.txt"

say "Why the sails of its windmill turn"
"$ovscene" why "$square" /root/world/hill/mill/sails xform.rotate --set SYLVAR_ASSET_PATH="$assets"

say "Where its ball is in the render's picture"
"$ovscene" camera "$square" /root/world/ball/sphere/untitled/pSphere1/pSphereShape1 --set SYLVAR_ASSET_PATH="$assets"

say "The results are in $out"
ls -l "$out"
