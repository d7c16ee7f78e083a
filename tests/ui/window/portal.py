"""A replacement of the desktop's settings portal."""

from events import GLib, eventually, tell
from gi.repository import Gio

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.Settings"
DESCRIPTION = f"""<node><interface name="{INTERFACE}">
  <method name="Read">
    <arg name="namespace" type="s" direction="in"/><arg name="key" type="s" direction="in"/>
    <arg name="value" type="v" direction="out"/>
  </method>
  <signal name="SettingChanged">
    <arg name="namespace" type="s"/><arg name="key" type="s"/><arg name="value" type="v"/>
  </signal>
</interface></node>"""


class Portal:
    """It is on the session bus until it is closed."""

    def __init__(self, **values):
        """Takes values of org.freedesktop.appearance by the names of the settings, with _ for -."""
        self.values = {("org.freedesktop.appearance", name.replace("_", "-")): GLib.Variant("u", value)
                       for name, value in values.items()}
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0]
        self.object = self.bus.register_object(PATH, interface, self._answer)
        self.is_there = False
        self.name = Gio.bus_own_name_on_connection(self.bus, NAME, Gio.BusNameOwnerFlags.NONE, self._appear, None)
        eventually("the portal is there", lambda: self.is_there)

    def close(self):
        self.bus.unregister_object(self.object)
        Gio.bus_unown_name(self.name)

    def change(self, **values):
        for name, value in values.items():
            arguments = ("org.freedesktop.appearance", name.replace("_", "-"), GLib.Variant("u", value))
            self.bus.emit_signal(None, PATH, INTERFACE, "SettingChanged", GLib.Variant("(ssv)", arguments))

    def _appear(self, *_):
        self.is_there = True
        tell()

    def _answer(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        if value := self.values.get(arguments.unpack()):
            boxed = GLib.Variant("v", value)  # The real portal does the same.
            invocation.return_value(GLib.Variant("(v)", [boxed]))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "Requested setting not found")
