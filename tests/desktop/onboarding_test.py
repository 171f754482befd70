# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The first start: the introduction, for a person with a keyboard, a pointer or a screen reader."""

import unittest

from accessibility import CHECKED, HeardTest
from application import PROGRAM
from desktop import Desktop, is_installed, wait_until
from edge import FOOT, SHELL

BORSCHT = 33  # its pattern


class FirstStart(HeardTest):
    """An application that was never started before."""

    manager: tuple[str, ...] = ("openbox",)

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(1100, 700, cls.manager)

    def setUp(self) -> None:
        super().setUp()
        self.application.settings_file.unlink()
        self.desktop.point_at(550, 20)
        self.start()

    def start(self) -> None:
        self.application.start()
        self.reader.find("Start cooking", "push button")

    def restart(self) -> None:
        self.application.quit()
        self.application.start()

    def wait_for_focus(self, name: str) -> None:
        wait_until(lambda: self.reader.focused() == name, f"the focus at {name!r}")

    def press(self, key: str, focus: str) -> None:
        """Presses a key and waits for where the keyboard goes."""
        self.desktop.press_keys(key)
        self.wait_for_focus(focus)

    def pixel(self, x: int, y: int) -> tuple[int, int, int]:
        """The colour so many pixels from the left and below the middle of the screen."""
        return self.desktop.screenshot().getpixel((x, self.desktop.size[1] // 2 + y))

    def shows_handle(self) -> bool:
        return self.pixel(13, 0) == FOOT

    def wait_for_handle(self) -> None:
        wait_until(self.shows_handle, "the handle")

    def wait_until_done(self) -> None:
        wait_until(lambda: self.application.settings().get("onboarded") == "true", "the end of the introduction")
        self.reader.wait_until_gone("Back")


class ManagerTest:
    """What window managers have a say in: each has a class of its own that is also a FirstStart."""

    def test_a_keyboard_is_enough(self) -> None:
        self.wait_for_focus("Start cooking")
        self.assertFalse(self.shows_handle())
        self.press("Return", "Next")
        self.press("Return", "Tomato Bisque")
        self.press("Right", "Miso Tide")
        self.press("Right", "Borscht")
        self.press("Return", "Let's eat")
        look = wait_until(self.application.look, "a wallpaper")
        self.assertEqual(look["pattern"], BORSCHT)
        # Back, close, and around to the first setting.
        self.press("Tab", "Close")
        self.press("Tab", "Open at login")
        self.press("space", "Open at login")
        wait_until(self.application.autostart_file.exists, "an entry of what starts at login")
        self.press("Tab", "Fresh bowl")
        self.desktop.press_keys("space")
        wait_until(lambda: self.application.settings().get("shuffleMinutes") == "1440", "a daily wallpaper")
        self.desktop.press_keys("Return")
        self.wait_until_done()
        # The strip shows itself, without the pointer, and goes again.
        wait_until(lambda: self.pixel(10, 190) == SHELL, "the strip")
        wait_until(lambda: self.pixel(10, 190) != SHELL, "no strip")
        self.wait_for_handle()

        self.restart()
        self.wait_for_handle()
        self.assertFalse(self.reader.has("Start cooking"))
        self.assertEqual(self.application.look(), look)

    def test_a_window_manager_closes_it(self) -> None:
        window = next(window for window in self.desktop.windows()
                      if window.program() == "tessel-broth" and window.place()[2:] == (880, 560))
        self.assertEqual(window.place()[:2], (110, 70))
        self.desktop.output("wmctrl", "-i", "-c", window.number)
        self.wait_until_done()
        self.wait_for_handle()


class OpenboxTest(ManagerTest, FirstStart):
    pass


@unittest.skipUnless(is_installed("xfwm4"), "xfwm4 is not installed")
class XfwmTest(ManagerTest, FirstStart):
    manager = ("xfwm4", "--compositor=off")


class OnboardingTest(FirstStart):
    """Other ways through it, and when it is there at all."""

    def test_closed_on_the_way_it_does_not_come_again(self) -> None:
        self.reader.find("Start cooking").press()
        self.reader.find("Close").press()
        self.wait_until_done()
        self.wait_for_handle()
        self.assertNotEqual(self.pixel(10, 190), SHELL)
        self.assertIsNone(self.application.look())
        self.restart()
        self.wait_for_handle()
        self.assertFalse(self.reader.has("Start cooking"))

    def test_a_reader_is_enough(self) -> None:
        self.reader.find("Start cooking").press()
        self.reader.find("Right", "radio button").press()
        wait_until(lambda: self.application.settings().get("edge") == "1", "the other edge")
        self.reader.find("Next").press()
        bowl = self.reader.find("Clam Chowder", "radio button")
        self.assertFalse(bowl.has(CHECKED))
        bowl.press()
        wait_until(lambda: bowl.has(CHECKED), "a bowl that is chosen")
        self.assertIsNone(self.application.look())
        self.reader.find("Serve it").press()
        wait_until(self.application.look, "a wallpaper")
        self.reader.find("Fresh bowl", "check box").do("Toggle")
        self.reader.find("Hourly", "radio button").press()
        wait_until(lambda: self.application.settings().get("shuffleMinutes") == "60", "an hourly wallpaper")
        self.reader.find("Let's eat").press()
        self.wait_until_done()

    def test_left_open_it_comes_again_with_the_bowl(self) -> None:
        self.reader.find("Start cooking").press()
        self.reader.find("Next").press()
        self.reader.find("Borscht", "radio button").press()
        self.application.quit()
        self.assertNotIn("onboarded", self.application.settings())
        self.assertIsNone(self.application.look())
        self.start()
        self.assertIn(f'"pattern":{BORSCHT}', self.application.settings()["look"].replace(" ", ""))

    def test_starting_once_more_shows_it_and_not_the_editor(self) -> None:
        self.desktop.open_window()
        self.assertEqual(self.desktop.start(PROGRAM).wait(20), 0)
        self.wait_for_focus("Start cooking")
        self.assertFalse(self.reader.has("Apply to desktop"))

    def test_whoever_has_a_wallpaper_does_not_see_it(self) -> None:
        self.application.kill()
        self.application.write_settings(desktop={}, handleHidden="false", onboarded="false")
        self.application.start()
        self.wait_for_handle()
        self.assertFalse(self.reader.has("Start cooking"))


if __name__ == "__main__":
    unittest.main()
