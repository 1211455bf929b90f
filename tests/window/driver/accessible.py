# SPDX-License-Identifier: MIT
"""What a screen reader is told: the accessibility tree of a program, over its D-Bus protocol.

What may change is asked of the program each time. Only an object's role is remembered, which it keeps as long as it
lives, and where a search ended: the next one for the same asks there first. What has gone from the screen raises
`Vanished`.
"""
import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from .waiting import Vanished  # noqa: E402

ACCESSIBLE = "org.a11y.atspi.Accessible"
ROOT = "/org/a11y/atspi/accessible/root"
NOWHERE = "/org/a11y/atspi/null"
ANSWER_MS = 15000
NOT_ENTERED = {"table", "tree table"}

STATES = {1: "active", 4: "checked", 7: "editable", 8: "enabled", 12: "focused", 16: "modal", 23: "selected",
          24: "sensitive", 25: "showing", 30: "visible", 43: "read-only"}


class Accessibility_Bus:
    """The accessibility bus of a session."""

    def __init__(self, session_address):
        self.roles = {}  # by place; no place is used twice
        self.found = {}  # the place where a search ended, by where it began and what it was for
        session = _connection(session_address)
        answer = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None,
                                   GLib.VariantType("(s)"), Gio.DBusCallFlags.NONE, ANSWER_MS, None)
        session.close_sync(None)
        self.connection = _connection(answer.unpack()[0])

    def programs(self):
        """The roots of all programs that have told the registry of themselves."""
        return Accessible(self, "org.a11y.atspi.Registry", ROOT).children

    def call(self, place, interface, method, arguments=None):
        service, path = place
        try:
            answer = self.connection.call_sync(service, path, interface, method, arguments, None,
                                               Gio.DBusCallFlags.NONE, ANSWER_MS, None)
        except GLib.Error as error:
            raise Vanished(f"{method} of {path}: {error.message}") from error
        return answer.unpack()

    def send(self, place, interface, method, arguments=None):
        """A call whose answer nobody waits for: what it starts may open a dialog and answer when that closes."""
        service, path = place
        self.connection.call(service, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None)
        self.connection.flush_sync(None)

    def close(self):
        if not self.connection.is_closed():
            self.connection.close_sync(None)


class Focus_Watch:
    """Follows the keyboard's focus. Only so can an in-cell editor be reached: it isn't in the tree."""

    REGISTRY = ("org.a11y.atspi.Registry", "/org/a11y/atspi/registry")
    EVENT = "object:state-changed:focused"

    def __init__(self, bus):
        self._bus = bus
        self._last = None
        bus.connection.signal_subscribe(None, "org.a11y.atspi.Event.Object", "StateChanged", None, "focused",
                                        Gio.DBusSignalFlags.NONE, self._heard)
        bus.call(self.REGISTRY, "org.a11y.atspi.Registry", "RegisterEvent", GLib.Variant("(sas)", (self.EVENT, [])))

    def _heard(self, _connection, sender, path, _interface, _member, parameters):
        if parameters.unpack()[1]:
            self._last = Accessible(self._bus, sender, path)

    @property
    def owner(self):
        """What took the focus last."""
        while GLib.MainContext.default().iteration(False):
            pass
        if self._last is None:
            raise Vanished("nothing took the focus so far")
        return self._last


def _connection(address):
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)


class Accessible:
    """One object of the tree."""

    def __init__(self, bus, service, path):
        self.bus = bus
        self.place = (service, path)

    def __eq__(self, other):
        return isinstance(other, Accessible) and self.place == other.place

    def __hash__(self):
        return hash(self.place)

    def __repr__(self):
        try:
            return f"<{self.role} {self.description!r} {self.name!r}>"
        except Vanished:
            return "<vanished>"

    def ask(self, interface, method, arguments=None):
        return self.bus.call(self.place, interface, method, arguments)

    def read(self, name, interface=ACCESSIBLE):
        arguments = GLib.Variant("(ss)", (interface, name))
        return self.ask("org.freedesktop.DBus.Properties", "Get", arguments)[0]

    def _object(self, place):
        service, path = place
        if path == NOWHERE:
            raise Vanished("no such object")
        return Accessible(self.bus, service, path)

    @property
    def name(self):
        return self.read("Name")

    @property
    def description(self):
        """A control's given name, or what is said of a cell beside its text."""
        return self.read("Description")

    @property
    def role(self):
        if self.place not in self.bus.roles:
            self.bus.roles[self.place] = self.ask(ACCESSIBLE, "GetRoleName")[0]
        return self.bus.roles[self.place]

    @property
    def states(self):
        low, high = self.ask(ACCESSIBLE, "GetState")[0]
        bits = high << 32 | low
        return {word for bit, word in STATES.items() if bits >> bit & 1}

    @property
    def children(self):
        return [Accessible(self.bus, *place) for place in self.ask(ACCESSIBLE, "GetChildren")[0] if place[1] != NOWHERE]

    @property
    def is_shown(self):
        return "showing" in self.states

    @property
    def is_enabled(self):
        return "enabled" in self.states

    @property
    def is_checked(self):
        return "checked" in self.states

    @property
    def rectangle(self):
        """Left, top, width and height in pixels of the screen."""
        return self.ask("org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (0,)))[0]

    def press(self):
        """What a click does; the answer isn't waited for."""
        self.act("Press")

    def toggle(self):
        self.act("Toggle")

    def act(self, wanted):
        actions = [entry[0] for entry in self.ask("org.a11y.atspi.Action", "GetActions")[0]]
        if wanted not in actions:
            raise AssertionError(f"{self!r} offers {actions}, not {wanted!r}")
        self.bus.send(self.place, "org.a11y.atspi.Action", "DoAction", GLib.Variant("(i)", (actions.index(wanted),)))

    # Text fields.

    @property
    def text(self):
        return self.ask("org.a11y.atspi.Text", "GetText", GLib.Variant("(ii)", (0, -1)))[0]

    @property
    def cursor(self):
        return self.read("CaretOffset", "org.a11y.atspi.Text")

    def write(self, text):
        """Replaces the whole text of a field."""
        self.ask("org.a11y.atspi.EditableText", "SetTextContents", GLib.Variant("(s)", (text,)))

    # Search.

    def walk(self):
        """The object and all that is in it, in the order of the tree; tables are not entered."""
        yield self
        if self.role in NOT_ENTERED:
            return
        for child in self.children:
            try:
                yield from child.walk()
            except Vanished:
                continue

    def find(self, role=None, name=None, description=None, shown=True):
        """The object in here that matches and was found last time, or else the first; `Vanished` when there is none."""
        wanted = (role, name, description, shown)
        last = self.bus.found.get((self.place, wanted))
        if last and last._matches(*wanted):
            return last
        for found in self.walk():
            if found._matches(*wanted):
                self.bus.found[self.place, wanted] = found
                return found
        raise Vanished(f"nothing with role {role!r}, name {name!r}, description {description!r}")

    def _matches(self, role, name, description, shown):
        try:
            return ((role is None or self.role == role) and (name is None or self.name == name) and
                    (description is None or self.description == description) and (self.is_shown or not shown))
        except Vanished:
            return False

    def named(self, given_name):
        """The shown control of that given name."""
        return self.find(description=given_name)

    def dump(self, depth=0):
        """The tree as lines, for a person to read."""
        try:
            line = f"{'  ' * depth}{self.role} {self.name!r} {self.description!r} {sorted(self.states)}"
            children = [] if self.role == "table" else self.children
        except Vanished:
            return [f"{'  ' * depth}vanished"]
        lines = [line]
        if self.role == "table":
            lines += ["  " * (depth + 1) + str(row) for row in Table(self).texts()]
        for child in children:
            lines += child.dump(depth + 1)
        return lines


class Table:
    """The cells of a table; rows and columns count from 0, headings aren't rows."""

    INTERFACE = "org.a11y.atspi.Table"

    def __init__(self, table):
        self.table = table

    @property
    def row_count(self):
        return self.table.read("NRows", self.INTERFACE)

    @property
    def column_count(self):
        return self.table.read("NColumns", self.INTERFACE)

    def cell(self, row, column):
        place = self.table.ask(self.INTERFACE, "GetAccessibleAt", GLib.Variant("(ii)", (row, column)))[0]
        return self.table._object(place)

    def headings(self):
        return [self.table.ask(self.INTERFACE, "GetColumnDescription", GLib.Variant("(i)", (column,)))[0]
                for column in range(self.column_count)]

    def texts(self):
        """All texts, a list a row."""
        columns = range(self.column_count)
        return [[self.cell(row, column).name for column in columns] for row in range(self.row_count)]
