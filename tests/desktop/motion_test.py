# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The animated wallpaper among the windows of others, and how little is done while nobody sees it."""

import unittest
from functools import partial

from application import ApplicationTest
from desktop import wait_until
from login_manager import LoginManager

PLAYING = 5  # wake-ups a second, even where frames take long


class MotionTest(ApplicationTest):
    """An animated wallpaper of the default look."""

    @classmethod
    def setUpClass(cls) -> None:
        super().setUpClass()
        cls.login = LoginManager(cls.desktop)

    def setUp(self) -> None:
        super().setUp()
        self.application.write_settings(desktop={}, appliedMotion="true")
        self.application.start()
        self.application.wait_for_motion()

    def plays(self) -> None:
        self.desktop.wait_for_change()
        # A machine that does other things as well may leave it no turn for a second.
        wait_until(lambda: self.application.wake_ups(1) > PLAYING, "frames again")

    def test_clicks_go_through(self) -> None:
        self.addCleanup(self.desktop.output, "xdotool", "key", "Escape")
        self.desktop.output("xdotool", "mousemove", "500", "400", "click", "3")
        wait_until(self.desktop.menus, "the window manager's own menu")

    def test_normal_windows_stay_above(self) -> None:
        window = self.desktop.open_window()
        self.addCleanup(window.close)
        ours, = self.desktop.wallpapers()
        self.desktop.output("xdotool", "windowraise", str(int(ours.number, 16)))
        wait_until(self.desktop.shows_white, "the window's picture")
        self.desktop.wait_for_change()
        self.assertEqual(self.desktop.windows(), [ours, window])
        self.assertTrue(self.desktop.shows_white())

    def test_on_every_workspace(self) -> None:
        for workspace in ("1", "2"):
            self.desktop.output("wmctrl", "-s", workspace)
            wait_until(lambda: self.desktop.output("xdotool", "get_desktop").strip() == workspace,
                       "the workspace")
            self.assertTrue(self.desktop.wallpapers())
            self.desktop.wait_for_change()

    def test_rests_while_nobody_sees_it(self) -> None:
        # Behind the animation a still is made, which is work of its own.
        wait_until(self.application.pictures, "the still behind the animation")
        window = self.desktop.open_window()
        self.addCleanup(window.close)
        state = ["wmctrl", "-i", "-r", window.number, "-b"]
        for name, begin, end in [
                ("full screen", partial(self.desktop.output, *state, "add,fullscreen"),
                 partial(self.desktop.output, *state, "remove,fullscreen")),
                ("maximised", partial(self.desktop.output, *state, "add,maximized_vert,maximized_horz"),
                 partial(self.desktop.output, *state, "remove,maximized_vert,maximized_horz")),
                ("locked", partial(self.login.set_locked, True), partial(self.login.set_locked, False)),
                ("asleep", partial(self.login.prepare_for_sleep, True),
                 partial(self.login.prepare_for_sleep, False))]:
            with self.subTest(name):
                self.plays()
                begin()
                try:
                    self.application.wait_until_idle(5)
                finally:
                    end()
                self.plays()


class StillTest(ApplicationTest):
    """A wallpaper that stands still."""

    def test_rests(self) -> None:
        self.application.start()
        self.application.show_still()
        self.application.wait_until_idle(10)


if __name__ == "__main__":
    unittest.main()
