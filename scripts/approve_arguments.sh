#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Takes what the builders of procedural arguments give (built in build/dev by default) as the approved texts.
set -euo pipefail
cd "$(dirname "$0")/.."
OV_APPROVE=1 "${1:-build/dev}/bin/test_golden_procedural_arguments"
git status --short tests/golden
