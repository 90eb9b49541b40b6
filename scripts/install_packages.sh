#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs those packages of packages.txt that this machine lacks; does nothing when it lacks none.
set -euo pipefail
cd "$(dirname "$0")"

mapfile -t wanted < <(sed 's/#.*//' packages.txt | tr -d ' \t' | grep .)

if ! command -v dpkg-query >/dev/null; then
    echo "This is no Debian system; install what these packages hold: ${wanted[*]}" >&2
    exit 1
fi

missing=()
for package in "${wanted[@]}"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "Packages are missing, and this user can install none; as root: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    root=(sudo)
fi

echo "Installing: ${missing[*]}"
apt=("${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y -q)
if ! "${apt[@]}" update </dev/null ||
    ! "${apt[@]}" install --no-install-recommends "${missing[@]}" </dev/null; then
    echo "Could not install: ${missing[*]}" >&2
    exit 1
fi
