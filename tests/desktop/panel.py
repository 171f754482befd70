# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A panel without pixels: it takes status icons and messages, and chooses from the icons' menus."""

import threading
from dataclasses import dataclass

from gi.repository import Gio, GLib

INTERFACES = """
<node>
  <interface name="org.kde.StatusNotifierWatcher">
    <method name="RegisterStatusNotifierItem"><arg direction="in" type="s"/></method>
    <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  </interface>
  <interface name="org.freedesktop.Notifications">
    <method name="GetCapabilities"><arg direction="out" type="as"/></method>
    <method name="Notify">
      <arg direction="in" type="s"/><arg direction="in" type="u"/><arg direction="in" type="s"/>
      <arg direction="in" type="s"/><arg direction="in" type="s"/><arg direction="in" type="as"/>
      <arg direction="in" type="a{sv}"/><arg direction="in" type="i"/><arg direction="out" type="u"/>
    </method>
  </interface>
</node>
"""

PATIENCE = 100_000  # ms to wait for an answer that mostly comes within some
MAY_BE_REPLACED = 1  # by another owner of a name


@dataclass(frozen=True)
class Row:
    """A row of a menu as the panel was told of it."""

    number: int
    properties: dict[str, object]
    children: tuple["Row", ...]

    @property
    def title(self) -> str:
        # A mnemonic would be underlined, unless it is something without width.
        return str(self.properties.get("label", "")).replace("_\u200b", "")

    @property
    def enabled(self) -> bool:
        return bool(self.properties.get("enabled", True))

    @property
    def checked(self) -> bool:
        return self.properties.get("toggle-state") == 1

    def lines(self, indent: str = "") -> list[str]:
        """The row and those below it as text: "[x]" for a checkmark, "(x)" for one that excludes others, "~"
        for what cannot be chosen."""
        if self.properties.get("type") == "separator":
            return [indent + "--"]
        marks = {"checkmark": "[{}] ", "radio": "({}) "}
        mark = marks.get(self.properties.get("toggle-type"), "").format("x" if self.checked else " ")
        keys = "".join(f" ({'+'.join(keys)})" for keys in self.properties.get("shortcut", []))
        text = indent + mark + self.title + ("" if self.enabled else " ~") + keys
        return [text] + [line for child in self.children for line in child.lines(indent + "    ")]


class Panel:
    """Answers on the session bus, from a thread of its own."""

    def __init__(self, bus: Gio.DBusConnection) -> None:
        self.bus = bus
        self.messages: list[tuple[str, str]] = []
        self.item: str | None = None  # who has registered an icon
        threading.Thread(target=self._run, daemon=True).start()

    def _run(self) -> None:
        context = GLib.MainContext.new()
        context.push_thread_default()
        interfaces = Gio.DBusNodeInfo.new_for_xml(INTERFACES).interfaces
        for path, interface in zip(("/StatusNotifierWatcher", "/org/freedesktop/Notifications"), interfaces):
            self.bus.register_object(path, interface, self._answer, lambda *_: GLib.Variant("b", True), None)
            name = GLib.Variant("(su)", (interface.name, MAY_BE_REPLACED))
            self.bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName", name, None,
                               Gio.DBusCallFlags.NONE, -1, None)
        GLib.MainLoop(context).run()

    def _answer(self, _bus: object, sender: str, _path: str, _interface: str, method: str,
                arguments: GLib.Variant, invocation: Gio.DBusMethodInvocation) -> None:
        if method == "GetCapabilities":
            invocation.return_value(GLib.Variant("(as)", (["body"],)))
        elif method == "Notify":
            _, _, _, title, text, *_ = arguments.unpack()
            self.messages.append((title, text))
            invocation.return_value(GLib.Variant("(u)", (len(self.messages),)))
        else:
            self.item = sender
            invocation.return_value(None)

    def rows(self) -> tuple[Row, ...]:
        """The rows of the icon's menu, after it was told that they are about to be shown."""
        self._ask_menu("AboutToShow", GLib.Variant("(i)", (0,)))
        _, layout = self._ask_menu("GetLayout", GLib.Variant("(iias)", (0, -1, [])))
        return self._row(layout).children

    def text(self) -> str:
        return "\n".join(line for row in self.rows() for line in row.lines())

    def row(self, *titles: str) -> Row:
        """A row by its title, behind those of the submenus that it lies in."""
        rows = self.rows()
        for title in titles:
            found = [row for row in rows if row.title == title]
            if len(found) != 1:
                raise AssertionError(f"{len(found)} rows are called {title!r} in\n{self.text()}")
            rows = found[0].children
        return found[0]

    def choose(self, *titles: str) -> None:
        row = self.row(*titles)
        if not row.enabled:
            raise AssertionError(f"{titles} cannot be chosen")
        self._ask_menu("Event", GLib.Variant("(isvu)", (row.number, "clicked", GLib.Variant("s", ""), 0)))

    def _ask_menu(self, method: str, arguments: GLib.Variant) -> tuple:
        menu = self._ask("/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", ("org.kde.StatusNotifierItem", "Menu")))[0]
        return self._ask(menu, "com.canonical.dbusmenu", method, arguments)

    def _ask(self, path: str, interface: str, method: str, arguments: GLib.Variant) -> tuple:
        return self.bus.call_sync(self.item, path, interface, method, arguments, None,
                                  Gio.DBusCallFlags.NONE, PATIENCE, None).unpack()

    def _row(self, layout: tuple) -> Row:
        number, properties, children = layout
        return Row(number, properties, tuple(self._row(child) for child in children))
