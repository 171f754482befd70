# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The wallpaper under window managers that arrange all windows themselves."""

import re
import unittest

from application import ApplicationTest
from desktop import BSPWM, DWM, HERBSTLUFTWM, I3, Desktop, Window, is_installed, wait_until


class TilingTest:
    """An animated wallpaper of the default look; the manager has no configuration of the user's."""

    command: tuple[str, ...]

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(manager=cls.command)

    def setUp(self) -> None:
        super().setUp()
        self.application.write_settings(desktop={}, appliedMotion="true")

    def from_above(self) -> list[Window]:
        """What can be seen of the root window's children, which these managers leave the wallpaper among."""
        listed = self.desktop.output("xwininfo", "-root", "-children")
        children = re.findall(r"^ +(0x[0-9a-f]+)", listed, re.MULTILINE)
        return [window for window in (Window(self.desktop, number) for number in children)
                if window.is_mapped() and window.facts().get("Class") != "InputOnly"]

    def lies_below_all(self) -> bool:
        """Whether the wallpaper does, in its whole size."""
        lowest = self.from_above()[-1:]
        return [(window.program(), window.place()) for window in lowest] == [
            ("tessel-broth", (0, 0, *self.desktop.size))]

    def open_window(self) -> None:
        process = self.desktop.start("xmessage", "-geometry", "300x200+150+150", "-bg", "white", "above")
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        wait_until(self.desktop.shows_white, "a window")

    def test_lies_below_a_window_that_was_there(self) -> None:
        self.open_window()
        self.application.start()
        wait_until(self.lies_below_all, "the wallpaper below everything")
        self.assertTrue(self.desktop.shows_white())

    def test_lies_below_a_window_that_comes(self) -> None:
        self.application.start()
        wait_until(self.lies_below_all, "the wallpaper below everything")
        self.desktop.wait_for_change()
        self.open_window()
        self.assertTrue(self.lies_below_all())


@unittest.skipUnless(is_installed("i3"), "i3 is not installed")
class I3Test(TilingTest, ApplicationTest):
    command = I3


@unittest.skipUnless(is_installed("bspwm"), "bspwm is not installed")
class BspwmTest(TilingTest, ApplicationTest):
    command = BSPWM


@unittest.skipUnless(is_installed("herbstluftwm"), "herbstluftwm is not installed")
class HerbstluftwmTest(TilingTest, ApplicationTest):
    command = HERBSTLUFTWM


@unittest.skipUnless(is_installed("dwm"), "dwm is not installed")
class DwmTest(TilingTest, ApplicationTest):
    command = DWM


if __name__ == "__main__":
    unittest.main()
