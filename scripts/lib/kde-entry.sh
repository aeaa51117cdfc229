# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# The application entry by which KDE's Wayland lets a program of a build folder type; to be sourced
# after common.sh.

kde_entry=${XDG_DATA_HOME:-$HOME/.local/share}/applications/local.wrenfold-build.desktop

is_kde_on_wayland() { [[ -n ${WAYLAND_DISPLAY-} && ${XDG_CURRENT_DESKTOP-} == *KDE* ]]; }

# Asks whether the program, by its path, may have an entry of the user's, unless it has one. Without
# a terminal or a yes nothing is changed.
offer_kde_entry() {
    local program answer=
    program=$(realpath "$1")
    if grep -qsxF "Exec=$program" "$kde_entry"; then return; fi
    say "KDE lets only programs with an application entry paste into other windows"
    # Others would have to be quoted, which KWin does not understand.
    if [[ $program == *[!A-Za-z0-9/._+-]* ]]; then
        echo "$program cannot have one: its path has blanks or signs." && return
    fi
    echo "It would be $kde_entry,"
    echo "and lets $program type and see which window is in front."
    if [ -t 0 ]; then read -r -p "Install it? [y/N] " answer; fi
    if [[ $answer != [yY]* ]]; then
        echo "Not installed: KDE's portal is asked instead, where there is one; else pasting reaches"
        echo "XWayland windows only." && return
    fi
    mkdir -p "$(dirname "$kde_entry")"
    # shellcheck disable=SC2154 # the root comes from common.sh
    sed -e "s|@WRENFOLD_PROGRAM@|$program|" -e "s|^Name=.*|Name=Wrenfold (build folder)|" \
        -e "/^Name\[.*Wrenfold/d" -e "s|^Icon=.*|Icon=$project_root/resources/icons/Wrenfold.svg|" \
        packaging/desktop/local.wrenfold.desktop.in >"$kde_entry"
    # The desktop notices by itself, but later.
    if command -v kbuildsycoca5 >/dev/null; then kbuildsycoca5 2>/dev/null; fi
    echo "Installed. To take it back: rm $kde_entry"
}
