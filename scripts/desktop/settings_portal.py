# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT
"""The desktop's settings portal with one setting, the colour scheme: "dark" or "light", as the
lines of its input say, the first of which is an argument."""
import sys

from gi.repository import Gio, GLib

INTERFACE = """<node><interface name="org.freedesktop.portal.Settings">
<method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/>
<arg type="v" direction="out"/></method>
<signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""
PATH = "/org/freedesktop/portal/desktop"
SETTING = ("org.freedesktop.appearance", "color-scheme")
SCHEMES = {"dark": 1, "light": 2}

scheme = SCHEMES[sys.argv[1]]


def value():
    return GLib.Variant("u", scheme)


def on_call(bus, sender, path, interface, method, parameters, invocation):
    if parameters.unpack() == SETTING:
        # The answer is wrapped twice, as the real portal does it.
        invocation.return_value(GLib.Variant("(v)", (GLib.Variant("v", value()),)))
    else:
        invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")


def on_line(channel, condition, bus):
    global scheme
    line = sys.stdin.readline().strip()
    if not line:
        return False
    scheme = SCHEMES[line]
    bus.emit_signal(None, PATH, "org.freedesktop.portal.Settings", "SettingChanged",
                    GLib.Variant("(ssv)", (*SETTING, value())))
    return True


def on_bus(bus, name):
    node = Gio.DBusNodeInfo.new_for_xml(INTERFACE)
    bus.register_object(PATH, node.interfaces[0], on_call, None, None)
    GLib.io_add_watch(sys.stdin, GLib.IO_IN, on_line, bus)


Gio.bus_own_name(Gio.BusType.SESSION, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE,
                 on_bus, lambda bus, name: print("up", flush=True), None)
GLib.MainLoop().run()
