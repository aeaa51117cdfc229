# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# GNOME for scripts/private-desktop, which sources this: its shell on Wayland without a screen, what
# listens for its hotkeys, and XWayland.

# Of whoever sources this: its folder, and where it keeps what it starts.
: "${here?}" "${root?}"

# What would get in the way of somebody who is not there.
settle_gnome() {
    local extension=private-desktop@wrenfold.local
    local extensions=$HOME/.local/share/gnome-shell/extensions
    mkdir -p "$extensions"
    cp -r "$here/desktop/gnome-extension" "$extensions/$extension"
    gsettings set org.gnome.shell enabled-extensions "['$extension']"
    gsettings set org.gnome.shell welcome-dialog-last-shown-version 99
    gsettings set org.gnome.desktop.interface enable-animations false
    gsettings set org.gnome.desktop.session idle-delay 0
    gsettings set org.gnome.desktop.notifications show-banners false
}

leave_overview() {
    gdbus call --session --dest org.gnome.Shell --object-path /org/gnome/Shell \
        --method org.freedesktop.DBus.Properties.Set org.gnome.Shell OverviewActive '<false>'
}

listens_for_hotkeys() {
    gdbus introspect --session --dest org.gnome.SettingsDaemon.MediaKeys --object-path /
}

raise_gnome() {
    # The shell looks for the login manager, but does without it. A real one is none of its business.
    dbus-daemon --session --nofork --nopidfile --print-address=3 3>"$root/system-bus" 2>/dev/null &
    started+=($!)
    await grep -q . "$root/system-bus"
    DBUS_SYSTEM_BUS_ADDRESS=$(<"$root/system-bus")
    export DBUS_SYSTEM_BUS_ADDRESS XDG_CURRENT_DESKTOP=GNOME XDG_SESSION_TYPE=wayland
    # Who makes this folder with less permissions keeps the shell from starting.
    mkdir -p /tmp/.X11-unix
    chmod 1777 /tmp/.X11-unix 2>/dev/null || true
    # The bus starts programs in this environment, the settings' own among them.
    dbus-update-activation-environment HOME XDG_RUNTIME_DIR
    settle_gnome
    LIBGL_ALWAYS_SOFTWARE=1 gnome-shell --headless --wayland --wayland-display wayland-gnome \
        --virtual-monitor 1280x800 >"$root/gnome-shell.log" 2>&1 &
    started+=($!)
    await grep -q 'GNOME Shell started' "$root/gnome-shell.log"
    DISPLAY=$(sed -n 's/.*public X11 display \(:[0-9]*\).*/\1/p' "$root/gnome-shell.log")
    XAUTHORITY=$(echo "$XDG_RUNTIME_DIR"/.mutter-Xwaylandauth.*)
    export DISPLAY XAUTHORITY WAYLAND_DISPLAY=wayland-gnome
    await leave_overview
    /usr/libexec/gsd-media-keys >"$root/gsd-media-keys.log" 2>&1 &
    started+=($!)
    await listens_for_hotkeys
}
