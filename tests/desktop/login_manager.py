# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Who tells of sleep and of the lock screen."""

from contextlib import suppress

from gi.repository import GLib

from desktop import Desktop, call, connect, wait_until


class LoginManager:
    """The part of logind that tells of sleep and of the lock screen."""

    NAME = "org.freedesktop.login1"
    PATH = "/org/freedesktop/login1"

    def __init__(self, desktop: Desktop) -> None:
        desktop.environment["XDG_SESSION_ID"] = "c1"
        desktop.start("/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "logind")
        self.bus = connect(desktop.environment["DBUS_SYSTEM_BUS_ADDRESS"])
        wait_until(self._add_session, "a login manager")

    def _add_session(self) -> bool:
        with suppress(GLib.Error):
            session = GLib.Variant("(ssusb)", ("c1", "seat0", 1000, "user", True))
            call(self.bus, self.NAME, self.PATH, "org.freedesktop.DBus.Mock.AddSession", session)
            return True
        return False

    def set_locked(self, locked: bool) -> None:
        call(self.bus, self.NAME, f"{self.PATH}/session/c1", f"{self.NAME}.Session.SetLockedHint",
             GLib.Variant("(b)", (locked,)))

    def prepare_for_sleep(self, begins: bool) -> None:
        """Tells of a sleep that begins, or is over."""
        emitted = GLib.Variant("(sssav)", (f"{self.NAME}.Manager", "PrepareForSleep", "b",
                                           [GLib.Variant("b", begins)]))
        call(self.bus, self.NAME, self.PATH, "org.freedesktop.DBus.Mock.EmitSignal", emitted)
