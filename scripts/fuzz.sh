#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Runs every fuzzer over a copy of its corpus: scripts/fuzz.sh [SECONDS for each, default 60].
# What breaks one stays in build/fuzz/<target>/.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}

scripts/install_packages.sh
cmake --preset clang
cmake --build --preset clang --parallel "$(nproc)"

count=0
for folder in fuzz/*/; do
    name=$(basename "$folder")
    program=$PWD/build/clang/bin/fuzz_$name
    [ -d "$folder/corpus" ] || continue
    work=build/fuzz/$name
    rm -rf "$work"
    mkdir -p "$work"
    cp -r "$folder/corpus" "$work/corpus"
    echo "-- $name"
    (cd "$work" && "$program" corpus -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -print_final_stats=1 -verbosity=0)
    count=$((count + 1))
done
echo "$count fuzzers ran $seconds seconds each"
