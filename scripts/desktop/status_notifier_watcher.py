# SPDX-FileCopyrightText: 2026 The Wrenfold authors
# SPDX-License-Identifier: MIT
"""A StatusNotifierWatcher with a host, as a desktop's panel provides it."""
from gi.repository import Gio, GLib

INTERFACE = """<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
<signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
<signal name="StatusNotifierItemUnregistered"><arg type="s"/></signal>
<signal name="StatusNotifierHostRegistered"/></interface></node>"""

items = []


def on_call(bus, sender, path, interface, method, parameters, invocation):
    service = parameters.unpack()[0]
    if method == "RegisterStatusNotifierItem":
        items.append(service if not service.startswith("/") else sender + service)
        print("item", items[-1], flush=True)
        bus.emit_signal(None, path, interface, "StatusNotifierItemRegistered",
                        GLib.Variant("(s)", (items[-1],)))
    invocation.return_value(None)


def on_get(bus, sender, path, interface, name):
    return {
        "RegisteredStatusNotifierItems": GLib.Variant("as", items),
        "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
        "ProtocolVersion": GLib.Variant("i", 0),
    }[name]


def on_bus(bus, name):
    node = Gio.DBusNodeInfo.new_for_xml(INTERFACE)
    bus.register_object("/StatusNotifierWatcher", node.interfaces[0], on_call, on_get, None)


Gio.bus_own_name(Gio.BusType.SESSION, "org.kde.StatusNotifierWatcher", Gio.BusNameOwnerFlags.NONE,
                 on_bus, lambda bus, name: print("up", flush=True), None)
GLib.MainLoop().run()
