#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Takes what the last run of the test consumer.manifest installed (default: in build/dev) as the approved list.
set -euo pipefail
cd "$(dirname "$0")/.."
cp "${1:-build/dev}/tests/consumer/work/manifest.txt" tests/consumer/manifest.txt
wc -l tests/consumer/manifest.txt
