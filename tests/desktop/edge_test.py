# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The handle at the screen's edge, and what opens from it."""

import json
import unittest

from accessibility import ScreenReader
from application import ApplicationTest
from desktop import wait_until

SHELL = (0x14, 0x10, 0x0D)


class EdgeTest(ApplicationTest):
    """A person with a pointer, and one with a screen reader."""

    @classmethod
    def setUpClass(cls) -> None:
        super().setUpClass()
        cls.reader = ScreenReader(cls.desktop)

    def setUp(self) -> None:
        super().setUp()
        self.application.write_settings(handleHidden="false", motion="false")
        self.point_at(600, 20)
        self.application.start()
        self.middle = self.desktop.size[1] // 2

    def point_at(self, x: int, y: int) -> None:
        self.desktop.output("xdotool", "mousemove", str(x), str(y))

    def click_at(self, x: int, y: int) -> None:
        self.desktop.output("xdotool", "mousemove", str(x), str(y), "click", "1")

    def shows_strip(self) -> bool:
        """Whether the strip's lower end is there."""
        return self.desktop.screenshot().getpixel((12, self.middle + 200)) == SHELL

    def row(self, index: int) -> tuple[int, int]:
        return 30, self.middle + 18 + 10 + 36 * index + 18

    def test_the_strip_opens_acts_and_goes(self) -> None:
        self.point_at(30, self.middle)
        wait_until(self.shows_strip, "the strip")
        self.click_at(*self.row(0))
        look = wait_until(self.application.look, "a look")
        self.click_at(*self.row(0))
        wait_until(lambda: self.application.look() != look, "another look")
        self.click_at(*self.row(1))
        wait_until(lambda: self.application.look() == look, "the look before")
        self.point_at(600, 20)
        wait_until(lambda: not self.shows_strip(), "no strip")

    def test_clicks_beside_it_reach_others(self) -> None:
        self.desktop.start("xmessage", "-geometry", "300x500+0+150", "-buttons", "", "-bg", "white", "behind")
        wait_until(lambda: self.desktop.screenshot().getpixel((150, self.middle)) == (255, 255, 255), "a window")
        self.point_at(30, self.middle)
        wait_until(self.shows_strip, "the strip, in front of it")
        self.click_at(200, self.middle)
        wait_until(lambda: not self.shows_strip(), "no strip")

    def test_a_draft_is_made_and_applied(self) -> None:
        before = self.application.new_wallpaper()
        self.desktop.panel.choose("Open Editor")
        self.reader.find("Shuffle draft").press()
        wait_until(lambda: json.loads(self.application.settings().get("look", "null")) not in (None, before), "a draft")
        self.assertEqual(self.application.look(), before)
        self.reader.find("Apply to desktop").press()
        wait_until(lambda: self.application.look() != before, "the draft on the desktop")
        self.reader.find("Applied. Apply again")
        self.desktop.panel.choose("Close Editor")
        wait_until(lambda: "Open Editor" in self.desktop.panel.text(), "the menu without an editor")


if __name__ == "__main__":
    unittest.main()
