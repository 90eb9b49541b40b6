#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Takes what the libraries of a build tree export (default: build/release) as the approved lists.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}
for library in SylvarPlatform ResolutionTableOv OvSylvarProducers; do
    file=$(find "$build" -path "$build/tests" -prune -o -name "lib$library.so" -print -quit)
    [ -n "$file" ] || { echo "no lib$library.so below $build; build it first" >&2; exit 1; }
    python3 scripts/check_abi.py "$file" "tests/abi/$library.symbols" --approve
done
