# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
# What the scripts share. Source it; it changes to the project's top folder.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# The system's Python has the bindings the tests use; another one on the PATH may not.
python=/usr/bin/python3

say() {
    printf '\n==> %s\n' "$*"
}

die() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# The packages of the named groups, in the order of the list.
packages_of() {
    local group
    for group in "$@"; do
        sed -n "/^\[$group\]/,/^\[/ { /^[a-z0-9]/p }" scripts/packages
    done
}

is_installed() {
    [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

# Installs what is missing of the named groups of packages; does nothing, not even look at the network, when all is there.
require_packages() {
    local package missing=() as_root=()
    if ! command -v dpkg-query >/dev/null; then
        say "Not a Debian system; the following must be there: $(packages_of "$@" | tr '\n' ' ')"
        return
    fi
    for package in $(packages_of "$@"); do
        is_installed "$package" || missing+=("$package")
    done
    [[ ${#missing[@]} -gt 0 ]] || return 0

    say "Installing ${missing[*]}"
    if [[ $EUID -ne 0 ]]; then
        command -v sudo >/dev/null || die "not root and no sudo; please run as root: apt-get install ${missing[*]}"
        as_root=(sudo)
        [[ -t 0 ]] || as_root=(sudo --non-interactive)
    fi
    as_root+=(env DEBIAN_FRONTEND=noninteractive apt-get --quiet --yes -o DPkg::Lock::Timeout=300)
    # A fresh system knows no packages yet, and an old list may name files that have gone since.
    "${as_root[@]}" install --no-install-recommends "${missing[@]}" </dev/null && return
    "${as_root[@]}" update </dev/null
    "${as_root[@]}" install --no-install-recommends "${missing[@]}" </dev/null ||
        die "could not install: ${missing[*]}"
}

# build PRESET [TARGET...]: configures and builds a preset, all of it or the named targets only.
build() {
    local preset=$1
    shift
    say "Building $preset"
    cmake --preset "$preset"
    cmake --build --preset "$preset" ${1:+--target "$@"}
}

# drive PRESET FILE [ARGUMENT...]: runs a Python program that drives this build on a desktop of its own, as the end-to-end tests
# do.
drive() {
    local preset=$1
    shift
    FLITMARK_PROGRAM=$PWD/build/$preset/flitmark PYTHONPATH=tests/e2e PYTHONDONTWRITEBYTECODE=1 "$python" "$@"
}
