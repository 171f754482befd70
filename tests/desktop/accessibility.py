# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a screen reader is told of the windows on a desktop."""

from collections.abc import Iterator
from contextlib import suppress
from dataclasses import dataclass

from gi.repository import Gio, GLib

from application import ApplicationTest
from desktop import Desktop, call, connect, wait_until

# The bits among an element's states.
CHECKED = 4
ENABLED = 8
FOCUSABLE = 11
FOCUSED = 12
SELECTED = 23
SHOWING = 25


@dataclass(frozen=True)
class Element:
    """A window or something in one."""

    bus: Gio.DBusConnection
    owner: str
    path: str

    def ask(self, method: str, arguments: GLib.Variant | None = None) -> tuple:
        return call(self.bus, self.owner, self.path, f"org.a11y.atspi.{method}", arguments)

    def _property(self, interface: str, name: str) -> object:
        wanted = GLib.Variant("(ss)", (f"org.a11y.atspi.{interface}", name))
        return call(self.bus, self.owner, self.path, "org.freedesktop.DBus.Properties.Get", wanted)[0]

    def name(self) -> str:
        return self._property("Accessible", "Name")

    def description(self) -> str:
        return self._property("Accessible", "Description")

    def role(self) -> str:
        return self.ask("Accessible.GetRoleName")[0]

    def interfaces(self) -> set[str]:
        return {name.rpartition(".")[2] for name in self.ask("Accessible.GetInterfaces")[0]}

    def has(self, state: int) -> bool:
        low, high = self.ask("Accessible.GetState")[0]
        return bool((high << 32 | low) >> state & 1)

    def is_focused(self) -> bool:
        return self.has(FOCUSED)

    def actions(self) -> list[str]:
        return [name for name, *_ in self.ask("Action.GetActions")[0]]

    def do(self, action: str) -> None:
        self.ask("Action.DoAction", GLib.Variant("(i)", (self.actions().index(action),)))

    def press(self) -> None:
        self.do("Press")

    def value(self) -> float:
        return self._property("Value", "CurrentValue")

    def limits(self) -> tuple[float, float]:
        return self._property("Value", "MinimumValue"), self._property("Value", "MaximumValue")

    def set_value(self, value: float) -> None:
        wanted = GLib.Variant("(ssv)", ("org.a11y.atspi.Value", "CurrentValue", GLib.Variant("d", value)))
        call(self.bus, self.owner, self.path, "org.freedesktop.DBus.Properties.Set", wanted)

    def text(self) -> str:
        return self.ask("Text.GetText", GLib.Variant("(ii)", (0, -1)))[0]

    def write(self, text: str) -> None:
        self.ask("EditableText.SetTextContents", GLib.Variant("(s)", (text,)))

    def place(self) -> tuple[int, int, int, int]:
        """On the screen: x, y, width and height in pixels."""
        return self.ask("Component.GetExtents", GLib.Variant("(u)", (0,)))[0]

    def middle(self) -> tuple[int, int]:
        x, y, width, height = self.place()
        return x + width // 2, y + height // 2

    def below(self) -> Iterator["Element"]:
        """Everything in it."""
        for owner, path in self.ask("Accessible.GetChildren")[0]:
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

    def shown(self) -> Iterator[Element]:
        """Everything that is shown, parents first; GLib.Error if some of it goes away meanwhile."""
        return (element for element in self.root.below() if element.has(SHOWING))

    def _called(self, name: str, role: str | None) -> Element | None:
        with suppress(GLib.Error):
            return next((element for element in self.shown()
                         if element.name() == name and role in (None, element.role())), None)
        return None

    def find(self, name: str, role: str | None = None) -> Element:
        """Waits for something to be shown: the first of that name, and of a role if one is given."""
        return wait_until(lambda: self._called(name, role), f"{role or 'something'} called {name!r}")

    def has(self, name: str) -> bool:
        return self._called(name, None) is not None

    def wait_until_gone(self, name: str, role: str | None = None) -> None:
        wait_until(lambda: self._called(name, role) is None, f"nothing called {name!r}")

    def focused(self) -> str:
        """The name of what takes the keys: the innermost that has the focus."""
        with suppress(GLib.Error):
            names = [element.name() for element in self.shown() if element.is_focused()]
            return names[-1] if names else ""
        return ""


class HeardTest(ApplicationTest):
    """An application on a desktop on which a screen reader listens."""

    reader: ScreenReader

    @classmethod
    def setUpClass(cls) -> None:
        super().setUpClass()
        cls.reader = ScreenReader(cls.desktop)
