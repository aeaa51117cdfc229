# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# What a user does on a desktop, for scripts that run on a private one; to be sourced after
# common.sh.

log_file=$HOME/.wrenfold/logs/wrenfold.log
# shellcheck disable=SC2034
history_file=$HOME/.wrenfold/history.json

# Waits until a command succeeds; fails when it does not within so many seconds.
await() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        if ((SECONDS > deadline)); then return 1; fi
        sleep 0.05
    done
}

# Waits for a line of the application's log that contains the text, and prints it.
await_log() {
    local limit=$1 text=$2
    if ! await "$limit" grep -qF -- "$text" "$log_file"; then
        tail -n 15 "$log_file" >&2 || true
        die "the log does not say \"$text\" after $limit s"
    fi
    grep -F -- "$text" "$log_file" | tail -n 1
}

# The hotkey; the default one needs no choice.
# shellcheck disable=SC2034
hotkey_words="⌘⇧Space (Super+Shift+Space here)"
choose_hotkey() { :; }

# The accessibility bus that an editor would start talks to the terminal.
prepare_desktop() {
    export NO_AT_BRIDGE=1
    xsetroot -solid "#46607a"
}

press_hotkey() { xdotool key Super+Shift+space; }
# Has the editor that has the focus save.
press_save() { xdotool key ctrl+s; }

# How to look at the screen and to press the hotkey by hand.
tell_screen() {
    cat <<TEXT
Screen: DISPLAY=$DISPLAY. From another terminal on this machine, for instance:
  DISPLAY=$DISPLAY import -window root look.png     a picture of it
  DISPLAY=$DISPLAY xdotool key Super+Shift+space    the hotkey
  x11vnc -display $DISPLAY                          a VNC server for it, if you have x11vnc
TEXT
}

# Plays a sound file to the end, for the microphone to hear.
speak() { paplay "$1"; }

# Saves a picture of the whole screen.
take_screenshot() { import -silent -window root "$1"; }

# Whether the window that has the focus belongs to a program of that class.
is_focused() { xprop -id "$(xdotool getwindowfocus)" WM_CLASS | grep -qi "\"$1\""; }
