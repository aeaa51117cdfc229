# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# Completion for bash: the options are those that the program's own help names.

_wrenfold() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words
    case $previous in
    --autostart) words="on off status" ;;
    --check) words="--online" ;;
    wrenfold | */wrenfold) words=$("$1" --help | grep -oE '^  --[a-z]+') ;;
    *) words= ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}
complete -F _wrenfold wrenfold
