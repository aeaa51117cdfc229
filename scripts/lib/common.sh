# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# What the scripts share; to be sourced. Leaves the caller in the root of the source tree.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# Read by the scripts that source this.
# shellcheck disable=SC2034
project_root=$PWD

# A heading on the terminal.
say() { printf '\n== %s\n' "$*"; }

die() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# Prints the comment at the head of the calling script as its help.
usage() { sed -n '5,/^[^#]*$/s/^# \{0,1\}//p' "$0"; }

# Runs a command with its output in a log file, which is shown when the command fails.
quietly() {
    local log=$1
    shift
    mkdir -p "$(dirname "$log")"
    "$@" >"$log" 2>&1 && return
    tail -n 60 "$log" >&2
    die "failed: $* (the whole output is in $log)"
}

# Runs a command, says how long it took and fails as it did.
timed() {
    local what=$1 start=$SECONDS failed=0
    shift
    "$@" || failed=$?
    echo "$what: $((SECONDS - start)) s"
    return "$failed"
}

# Configures and builds one preset; further arguments name targets. Quiet unless it fails.
build() {
    local preset=$1
    shift
    local targets=()
    if (($#)); then targets=(--target "$@"); fi
    quietly "build/$preset-configure.log" cmake --preset "$preset"
    quietly "build/$preset-build.log" cmake --build --preset "$preset" "${targets[@]}"
}

# Where the local services are for tests and demonstrations: beside the builds instead of in the
# user's home.
# shellcheck disable=SC2034
test_data=$project_root/build/data

install_test_services() {
    say "Installing the local services"
    timed "local services" env XDG_DATA_HOME="$test_data" scripts/local install
}
