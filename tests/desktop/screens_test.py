# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Monitors that come, go and change, and the memory that all this takes."""

import sys
import time
import unittest

from application import SANITIZERS, Application, ApplicationTest
from desktop import wait_until

GROWTH = 1.1


class Consumption:
    """What an application has taken since some moment."""

    def __init__(self, application: Application) -> None:
        self.application = application
        if SANITIZERS:
            print("Memory is not compared: a sanitizer keeps what is freed.", file=sys.stderr)
        self.memory = 0 if SANITIZERS else application.settled_memory()
        self.files = application.open_files()

    def check(self, test: unittest.TestCase) -> None:
        test.assertLessEqual(self.application.open_files(), self.files * GROWTH)
        if not SANITIZERS:
            test.assertLessEqual(self.application.settled_memory(), self.memory * GROWTH)


class ScreensTest(ApplicationTest):
    """Every monitor has its own window or picture."""

    @classmethod
    def setUpClass(cls) -> None:
        super().setUpClass()
        for size in ((640, 480), (500, 400)):
            cls.desktop.add_mode(*size)

    def setUp(self) -> None:
        super().setUp()
        self.addCleanup(self.desktop.set_mode, *self.desktop.size)
        self.addCleanup(self.desktop.join)
        self.application.start()

    def windows_follow(self) -> None:
        wait_until(lambda: self.desktop.wallpaper_places() == self.desktop.monitors(),
                   "one window for each monitor")

    def test_size_changes(self) -> None:
        self.application.play()
        sizes = ((640, 480), self.desktop.size, (500, 400), self.desktop.size)
        for round_number in range(5):
            for size in sizes:
                self.desktop.set_mode(*size)
                self.assertEqual(self.desktop.monitors(), [(0, 0, *size)])
                self.windows_follow()
            if round_number == 0:
                taken = Consumption(self.application)
        self.desktop.wait_for_change()
        taken.check(self)

    def test_monitor_comes_and_goes(self) -> None:
        self.application.play()
        wait_until(self.application.pictures, "the first picture, which takes memory once")
        for count in range(50):
            self.desktop.split()
            # Slowly at first, then faster than anybody can follow.
            if count < 10:
                self.windows_follow()
                self.assertEqual(len(self.desktop.wallpapers()), 2)
            self.desktop.join()
            if count < 10:
                self.windows_follow()
            if count == 5:
                taken = Consumption(self.application)
        self.windows_follow()
        self.desktop.wait_for_change()
        taken.check(self)

    def test_only_monitor_goes(self) -> None:
        self.application.play()
        self.desktop.switch_off()
        wait_until(lambda: not self.desktop.wallpapers(), "no window")
        self.desktop.set_mode(*self.desktop.size)
        self.windows_follow()
        self.desktop.wait_for_change()

    def test_still_follows(self) -> None:
        self.application.show_still()
        self.desktop.split()
        self.assertEqual(len(self.desktop.monitors()), 2)
        self.application.wait_for_still()
        self.desktop.join()
        self.application.wait_for_still()


class ChangesTest(ApplicationTest):
    """Looks that follow each other."""

    def test_shuffles_at_full_speed(self) -> None:
        self.application.start()
        for count in range(1, 101):
            self.application.do("new-wallpaper")
            if count < 60:
                # Until it is to be seen, and has taken the memory that it takes; a slow machine leaves some out.
                time.sleep(0.15)
            if count == 60:
                self.application.wait_for_motion()
                wait_until(self.application.pictures, "the first picture, which is made early")
                taken = Consumption(self.application)
        self.application.wait_for_motion()
        taken.check(self)

    def test_looks_come_again(self) -> None:
        presets = [{"id": f"{pattern}0000000-0000-0000-0000-000000000000", "name": str(pattern),
                    "look": {"pattern": pattern}, "motion": True} for pattern in (3, 7)]
        self.application.write_settings(presets=presets)
        self.application.start()
        for count in range(80):
            self.desktop.panel.choose("Presets", "37"[count % 2])
            time.sleep(0.15)  # until it is to be seen
            if count == 20:
                taken = Consumption(self.application)
        taken.check(self)


if __name__ == "__main__":
    unittest.main()
