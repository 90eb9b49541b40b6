#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds all benchmarks, optimised, and runs them: scripts/bench.sh [--short]
# With --short each is only tried, as ctest does; the figures mean nothing then.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install_packages.sh
cmake --preset release
cmake --build --preset release --target benchmarks --parallel "$(nproc)"
if [ "${1:-}" = --short ]; then
    ctest --preset release --label-regex '^bench$'
    exit
fi
for program in build/release/bin/bench_*; do
    echo "-- $program"
    "$program"
done
