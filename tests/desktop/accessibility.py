# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a screen reader is told of the windows on a desktop."""

from collections.abc import Iterator
from contextlib import suppress
from dataclasses import dataclass

from gi.repository import Gio, GLib

from desktop import Desktop, call, connect, wait_until

FOCUSED = 12  # the bit among an element's states


@dataclass(frozen=True)
class Element:
    """A window or something in one."""

    bus: Gio.DBusConnection
    owner: str
    path: str

    def ask(self, method: str, arguments: GLib.Variant | None = None) -> tuple:
        return call(self.bus, self.owner, self.path, method, arguments)

    def name(self) -> str:
        wanted = GLib.Variant("(ss)", ("org.a11y.atspi.Accessible", "Name"))
        return self.ask("org.freedesktop.DBus.Properties.Get", wanted)[0]

    def is_focused(self) -> bool:
        return bool(self.ask("org.a11y.atspi.Accessible.GetState")[0][0] >> FOCUSED & 1)

    def press(self) -> None:
        self.ask("org.a11y.atspi.Action.DoAction", GLib.Variant("(i)", (0,)))

    def below(self) -> Iterator["Element"]:
        """Everything in it."""
        for owner, path in self.ask("org.a11y.atspi.Accessible.GetChildren")[0]:
            child = Element(self.bus, owner, path)
            yield child
            yield from child.below()


class ScreenReader:
    """Knows what is in the windows of the programs that are started after it."""

    def __init__(self, desktop: Desktop) -> None:
        desktop.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        desktop.start("/usr/libexec/at-spi-bus-launcher", "--launch-immediately")
        desktop.wait_for_name("org.a11y.Bus")
        address = call(desktop.bus, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress")[0]
        self.root = Element(connect(address), "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")

    def elements(self) -> dict[str, Element]:
        """Everything that is shown, by its name. What goes away meanwhile is left out with all after it."""
        found = {}
        with suppress(GLib.Error):
            for element in self.root.below():
                found[element.name()] = element
        return found

    def find(self, name: str) -> Element:
        """Waits for something to be shown."""
        return wait_until(lambda: self.elements().get(name), f"an element called {name!r}")
