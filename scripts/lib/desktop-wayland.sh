# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# What a user does on a private sway or KDE, in the place of what desktop.sh has for X; to be sourced
# after it.

fingers=build/release/wrenfold-session-keyboard

# A seat without a keyboard gives no window the focus, so this one stays.
prepare_desktop() {
    export NO_AT_BRIDGE=1 # else the bus talks to the terminal
    coproc KEYBOARD { exec "$fingers" 2>/dev/null; }
    started+=("$KEYBOARD_PID")
    hear_keyboard ready
}
hear_keyboard() {
    local answer=
    read -r -t 10 answer <&"${KEYBOARD[0]}" || true
    [ "$answer" = "$1" ] || die "no keyboard here"
}

# By the kernel's codes.
press_keys() {
    echo "$*" >&"${KEYBOARD[1]}"
    hear_keyboard "done"
}
press_hotkey() { press_keys 125 42 57 -57 -42 -125; }
press_save() { press_keys 29 31 -31 -29; }

if [ "$XDG_CURRENT_DESKTOP" = sway ]; then
    take_screenshot() { grim "$1"; }
    is_focused() {
        swaymsg --pretty --type get_tree | grep -A 60 '"focused": true' | grep -m 1 '"app_id"' |
            grep -qi "\"$1\""
    }
    picture_command="grim look.png"
else
    take_screenshot() { scripts/desktop/kwin-screenshot "$1"; }
    # KWin gives the focus to a window that is new, and tells nobody which one has it.
    is_focused() { has_window "$1"; }
    has_window() {
        gdbus call --session --dest org.kde.KWin --object-path /WindowsRunner \
            --method org.kde.krunner1.Match "$1" | grep -qi "$1"
    }
    picture_command="$PWD/scripts/desktop/kwin-screenshot look.png"
fi

tell_screen() {
    cat <<TEXT
Screen: from another terminal on this machine
  export XDG_RUNTIME_DIR=$XDG_RUNTIME_DIR WAYLAND_DISPLAY=$WAYLAND_DISPLAY \\
      DBUS_SESSION_BUS_ADDRESS=$DBUS_SESSION_BUS_ADDRESS
  $picture_command    a picture of it
  echo 125 42 57 -57 -42 -125 | $PWD/$fingers    the hotkey
TEXT
}
