# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What is tried on sway, on another compositor with layers."""

import wayland_test
from compositor import LabwcDesktop
from desktop import wait_until
from screens_test import Consumption


class LabwcTest(wayland_test.WaylandTest):
    @classmethod
    def make_desktop(cls) -> LabwcDesktop:
        return LabwcDesktop()


class LabwcMonitorsTest(wayland_test.MonitorsTest):
    """Without hardware sway takes no monitor away before 1.8."""

    desktop: LabwcDesktop

    @classmethod
    def make_desktop(cls) -> LabwcDesktop:
        return LabwcDesktop(*cls.SIZE)

    def setUp(self) -> None:
        super().setUp()
        self.addCleanup(self.desktop.remove_monitor)

    def test_another_comes_and_goes(self) -> None:
        self.application.start()
        self.application.play()
        wait_until(self.application.pictures, "the first picture, which takes memory once")
        for count in range(50):
            self.desktop.add_monitor()
            # Slowly at first, then faster than anybody can follow.
            if count < 10:
                self.desktop.wait_for_change(self.desktop.SECOND)
            self.desktop.remove_monitor()
            if count == 5:
                taken = Consumption(self.application)
        self.desktop.wait_for_change()
        taken.check(self)
