# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034
#
# What a user does on a private GNOME, in the place of what desktop.sh has for X; to be sourced after
# it.

# GNOME has the default hotkey itself.
hotkey_words="⌃⌥Space (Ctrl+Alt+Space here)"
choose_hotkey() {
    python3 - "$HOME/.wrenfold/config.json" <<'PYTHON'
import json, sys
with open(sys.argv[1], "r+") as file:
    config = json.load(file)
    config["hotKey"] = {"keyCode": 49, "modifiers": 0x1800, "displayName": "⌃⌥Space"}
    file.seek(0)
    json.dump(config, file, ensure_ascii=False)
    file.truncate()
PYTHON
}

prepare_desktop() { :; }

# By the kernel's codes.
press_keys() { echo "$*" | scripts/desktop/gnome-keyboard >/dev/null; }
press_hotkey() { press_keys 29 56 57 -57 -56 -29; }
press_save() { press_keys 29 31 -31 -29; }

ask_shell() { gdbus call --session --dest org.gnome.Shell --object-path "$1" --method "${@:2}"; }

take_screenshot() {
    ask_shell /org/gnome/Shell/Screenshot org.gnome.Shell.Screenshot.Screenshot \
        false false "$1" >/dev/null
}

is_focused() {
    ask_shell /org/gnome/Shell org.gnome.Shell.Eval 'global.display.focus_window.get_wm_class()' |
        grep -qi "\"$1\""
}

tell_screen() {
    cat <<TEXT
Screen: WAYLAND_DISPLAY=$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY. From another terminal on this machine:
  export DBUS_SESSION_BUS_ADDRESS=$DBUS_SESSION_BUS_ADDRESS
  echo 29 56 57 -57 -56 -29 | scripts/desktop/gnome-keyboard    the hotkey
  gdbus call --session --dest org.gnome.Shell --object-path /org/gnome/Shell/Screenshot \\
      --method org.gnome.Shell.Screenshot.Screenshot false false $PWD/look.png    a picture of it
TEXT
}
