"""A desktop's settings portal that tells dark, light or that nobody has chosen, as a real one would: start it
with "dark", "light" or "default", and write such a word to its standard input to change the setting. It says
"ready" once it can be asked."""

import sys
import threading

from gi.repository import Gio, GLib

INTERFACE = """<node><interface name="org.freedesktop.portal.Settings">
<method name="ReadAll"><arg type="as" direction="in"/><arg type="a{sa{sv}}" direction="out"/></method>
<signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""
PATH, GROUP, NAME = "/org/freedesktop/portal/desktop", "org.freedesktop.appearance", "color-scheme"
VALUES = {"default": 0, "dark": 1, "light": 2}


def scheme():
    return GLib.Variant("u", VALUES[setting])


def answer(_bus, _sender, _path, _interface, _method, _arguments, invocation):
    invocation.return_value(GLib.Variant("(a{sa{sv}})", ({GROUP: {NAME: scheme()}},)))


def change(word):
    global setting
    setting = word
    value = GLib.Variant("(ssv)", (GROUP, NAME, scheme()))
    bus.emit_signal(None, PATH, "org.freedesktop.portal.Settings", "SettingChanged", value)


def read_words():
    for line in sys.stdin:
        GLib.idle_add(change, line.strip())
    GLib.idle_add(loop.quit)


setting = sys.argv[1]
bus = Gio.bus_get_sync(Gio.BusType.SESSION)
bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], answer)
loop = GLib.MainLoop()
Gio.bus_own_name_on_connection(
    bus, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE, lambda *_: print("ready", flush=True), None
)
threading.Thread(target=read_words, daemon=True).start()
loop.run()
