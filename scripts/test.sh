#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds and passes the tests.
#
#   scripts/test.sh                  the preset dev
#   scripts/test.sh asan tsan        these presets, one after the other
#   scripts/test.sh --all            dev, asan, tsan, clang and release
set -euo pipefail
cd "$(dirname "$0")/.."

presets=("$@")
[ ${#presets[@]} -gt 0 ] || presets=(dev)
[ "${presets[*]}" != --all ] || presets=(dev asan tsan clang release)

scripts/install_packages.sh
jobs=$(nproc)
for preset in "${presets[@]}"; do
    cmake --preset "$preset"
    cmake --build --preset "$preset" --parallel "$jobs"
    ctest --preset "$preset" --parallel "$jobs"
done
