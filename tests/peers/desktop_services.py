#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A desktop's notification service and a login manager, on the session bus: says what each is asked, a line an event.

    desktop_services.py UNUSED     prints "ready", then "inhibit WHAT: WHY", "released", "note SUMMARY: TEXT"
"""
import os

from gi.repository import Gio, GLib

NOTES = """<node><interface name="org.freedesktop.Notifications"><method name="Notify">
<arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
<arg type="s" direction="in"/><arg type="as" direction="in"/><arg type="a{sv}" direction="in"/>
<arg type="i" direction="in"/><arg type="u" direction="out"/></method></interface></node>"""
LOGIN = """<node><interface name="org.freedesktop.login1.Manager"><method name="Inhibit">
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
<arg type="h" direction="out"/></method></interface></node>"""


def say(text):
    print(text, flush=True)


def notify(_connection, _sender, _path, _interface, _method, arguments, invocation):
    _program, _old, _icon, summary, text = arguments.unpack()[:5]
    say(f"note {summary}: {text}")
    invocation.return_value(GLib.Variant("(u)", (1,)))


def inhibit(_connection, _sender, _path, _interface, _method, arguments, invocation):
    what, _who, why, _mode = arguments.unpack()
    say(f"inhibit {what}: {why}")
    seen, lock = os.pipe()
    GLib.io_add_watch(seen, GLib.PRIORITY_DEFAULT, GLib.IO_HUP, lambda *_: say("released") or False)
    handles = Gio.UnixFDList.new()
    handles.append(lock)
    os.close(lock)
    invocation.return_value_with_unix_fd_list(GLib.Variant("(h)", (0,)), handles)


def main():
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    for name, path, interface, answer in (
            ("org.freedesktop.Notifications", "/org/freedesktop/Notifications", NOTES, notify),
            ("org.freedesktop.login1", "/org/freedesktop/login1", LOGIN, inhibit)):
        bus.register_object(path, Gio.DBusNodeInfo.new_for_xml(interface).interfaces[0], answer, None, None)
        Gio.bus_own_name_on_connection(bus, name, Gio.BusNameOwnerFlags.NONE, None, None)
    GLib.idle_add(lambda: say("ready") or False)
    GLib.MainLoop().run()


main()
