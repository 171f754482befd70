# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The handle at the screen's edge, and the strip that opens from it."""

import unittest

from desktop import BSPWM, HERBSTLUFTWM, I3, Desktop, is_installed, wait_until
from edge import FOOT, SHELL, STEAM, STRIP_ROWS, EdgeTest


class StripTest(EdgeTest):
    """A person with a pointer."""

    def test_it_opens_acts_and_goes(self) -> None:
        self.open_strip()
        self.click_row(0)
        look = wait_until(self.application.look, "a look")
        self.click_row(0)
        wait_until(lambda: self.application.look() != look, "another look")
        self.click_row(1)
        wait_until(lambda: self.application.look() == look, "the look before")
        self.desktop.point_at(600, 20)
        self.wait_for_handle()

    def test_every_row_says_what_it_does(self) -> None:
        self.open_strip()
        for row in range(STRIP_ROWS):
            self.point_at_row(row)
            y = self.middle + 46 + 36 * row
            # The label's colour: that of what cannot be done is another.
            colour = (0xB9, 0xAB, 0x9C) if row == 1 else STEAM
            wait_until(lambda: colour in self.desktop.screenshot().crop((62, y - 14, 280, y + 14)).getdata(),
                       f"a label for row {row}")

    def test_clicks_beside_it_reach_others(self) -> None:
        self.open_window_at_edge()
        self.open_strip()
        self.desktop.click_at(200, self.middle)
        self.wait_for_handle()

    def test_a_click_on_the_handle_opens_the_editor(self) -> None:
        self.open_strip()
        # At once it would mean what hovering has done already.
        wait_until(lambda: self.desktop.click() or self.reader.has("Apply to desktop"), "the editor")

    def test_presets_open_beside_it(self) -> None:
        self.application.new_wallpaper()
        self.open_strip()
        self.click_row(3)
        self.reader.find("Save as Preset...", "menu item")
        # It stays while its menu is open, wherever the pointer is, and goes after that.
        self.desktop.point_at(600, 100)
        self.assertTrue(self.shows_strip())
        wait_until(lambda: self.desktop.press_keys("Escape") or not self.reader.has("Save as Preset..."),
                   "no menu")
        self.wait_for_handle()

    def test_the_menu_opens_with_the_other_button(self) -> None:
        self.wait_for_handle()
        self.desktop.point_at(30, self.middle)
        self.desktop.output("xdotool", "click", "3")
        self.reader.find("New Wallpaper", "menu item")
        self.desktop.press_keys("Escape")
        wait_until(lambda: not self.desktop.menus(), "no menu")
        self.desktop.point_at(600, 20)
        self.wait_for_handle()

    def test_it_is_on_every_workspace(self) -> None:
        self.wait_for_handle()
        self.addCleanup(self.desktop.output, "wmctrl", "-s", "0")
        self.desktop.output("wmctrl", "-s", "1")
        wait_until(lambda: self.desktop.output("xdotool", "get_desktop").strip() == "1", "the workspace")
        self.wait_for_handle()

    def test_edges_and_hiding_are_obeyed_at_once(self) -> None:
        self.wait_for_handle()
        self.desktop.panel.choose("Handle Position", "Right")
        width = self.desktop.size[0]
        wait_until(lambda: self.pixel(width - 14, 0) == FOOT and self.pixel(13, 0) != FOOT, "the handle on the right")
        self.desktop.point_at(width - 30, self.middle)
        wait_until(lambda: self.pixel(width - 11, 190) == SHELL, "the strip on the right")
        self.desktop.panel.choose("Handle Position", "Hidden")
        wait_until(lambda: self.pixel(width - 14, 0) != FOOT, "no handle")
        self.application.open_editor()
        self.reader.find("Close").press()
        self.reader.wait_until_gone("Close")
        self.desktop.panel.choose("Handle Position", "Left")
        self.wait_for_handle()


class ManagerTest:
    """The handle with some window manager: it floats, borrows the keyboard and makes room for full screens."""

    command: tuple[str, ...]

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(manager=cls.command)

    def active(self) -> str:
        return self.desktop.root_property("_NET_ACTIVE_WINDOW")

    def test_it_behaves_as_panels_do(self) -> None:
        self.wait_for_handle()
        window = self.open_window_at_edge()
        self.wait_for_handle()
        self.desktop.output("wmctrl", "-i", "-a", window.number)
        wait_until(lambda: window.number in self.active(), "the window with the keyboard")
        self.open_strip()
        self.assertIn(window.number, self.active())
        self.open_editor()
        self.desktop.press_keys("Tab")
        self.wait_for_focus("Shuffle draft")
        self.desktop.click_at(390, self.middle)
        self.wait_for_handle()
        wait_until(lambda: window.number in self.active(), "the keyboard where it was")

        self.desktop.output("wmctrl", "-i", "-r", window.number, "-b", "add,fullscreen")
        wait_until(lambda: "FULLSCREEN" in window.property("_NET_WM_STATE") and self.pixel(14, 0) != FOOT,
                   "a full screen without a handle")
        self.desktop.output("wmctrl", "-i", "-r", window.number, "-b", "remove,fullscreen")
        self.wait_for_handle()
        self.open_strip()


class OpenboxTest(ManagerTest, EdgeTest):
    command = ("openbox",)


@unittest.skipUnless(is_installed("xfwm4"), "xfwm4 is not installed")
class XfwmTest(ManagerTest, EdgeTest):
    command = ("xfwm4", "--compositor=off")


@unittest.skipUnless(is_installed("xfwm4"), "xfwm4 is not installed")
class CompositedXfwmTest(ManagerTest, EdgeTest):
    command = ("xfwm4", "--compositor=on")


@unittest.skipUnless(is_installed("i3"), "i3 is not installed")
class I3Test(ManagerTest, EdgeTest):
    command = I3


@unittest.skipUnless(is_installed("bspwm"), "bspwm is not installed")
class BspwmTest(ManagerTest, EdgeTest):
    command = BSPWM


@unittest.skipUnless(is_installed("herbstluftwm"), "herbstluftwm is not installed")
class HerbstluftwmTest(ManagerTest, EdgeTest):
    command = HERBSTLUFTWM


class ScreensTest(EdgeTest):
    """Screens and panels that come and go while something is open."""

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(1600, 800)

    def setUp(self) -> None:
        super().setUp()
        self.addCleanup(self.desktop.join)

    def panel_x(self) -> int:
        """Where the window of the handle begins."""
        return next(window.place()[0] for window in self.desktop.windows()
                    if window.program() == "tessel-broth" and "DOCK" in window.property("_NET_WM_WINDOW_TYPE"))

    def wait_for_panel_at(self, x: int) -> None:
        wait_until(lambda: self.panel_x() == x, f"the panel at {x}")

    def test_the_primary_screen_changes_and_goes(self) -> None:
        self.desktop.split(primary="left")
        self.open_strip()
        self.desktop.split(primary="right")
        self.wait_for_panel_at(800)
        self.application.open_editor()
        self.reader.find("Apply to desktop")
        self.desktop.split(primary="left")
        self.wait_for_panel_at(0)
        self.desktop.press_keys("Tab")
        self.wait_for_focus("Shuffle draft")
        self.desktop.join()
        self.desktop.switch_off()
        wait_until(lambda: not self.desktop.monitors(), "no screen")
        self.desktop.set_mode(*self.desktop.size)
        self.wait_for_panel_at(0)
        self.reader.find("Apply to desktop")

    def test_a_panel_appears(self) -> None:
        self.wait_for_panel_at(0)
        self.desktop.start("xmessage", "-geometry", "60x400+0+0", "-buttons", "", "a panel")
        window = wait_until(lambda: [each for each in self.desktop.windows() if each.program() == "xmessage"],
                            "a window")[0]
        self.desktop.output("xprop", "-id", window.number, "-f", "_NET_WM_STRUT", "32c", "-set", "_NET_WM_STRUT",
                            "60, 0, 0, 0")
        self.wait_for_panel_at(60)
        self.application.open_editor()
        self.reader.find("Apply to desktop")
        window.close()
        self.wait_for_panel_at(0)


class ScaledTest(EdgeTest):
    """Twice as many pixels, on a screen of less than 512 points: all of the editor's tabs scrolls."""

    scale = 2.0

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(1280, 1000)

    def test_everything_is_reached_by_pointer_and_keyboard(self) -> None:
        self.open_editor()
        self.desktop.press_keys("shift+Tab", "shift+Tab", "shift+Tab")
        self.wait_for_focus("Seed")
        self.desktop.press_keys("Home")
        wait_until(lambda: self.reader.find("Seed").value() == 0, "the lowest seed")
        self.desktop.click_at(round(340 * self.scale), 100)
        self.wait_for_handle()


class FontSizeTest(EdgeTest):
    """A desktop with a larger font, which the user then changes."""

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(1200, 1000)

    @classmethod
    def setUpClass(cls) -> None:
        super().setUpClass()
        cls.desktop.environment["XDG_CURRENT_DESKTOP"] = "KDE"

    def write_settings(self, **settings: object) -> None:
        super().write_settings(**settings)
        self.set_font_size(15)

    def set_font_size(self, points: int) -> None:
        file = self.application.settings_file.parents[1] / "kdeglobals"
        file.with_suffix(".new").write_text(f"[General]\nfont=Sans,{points},-1,5,50,0,0,0,0,0\n")
        file.with_suffix(".new").rename(file)

    def width(self) -> int:
        """How wide the panel is in the middle of the screen."""
        row = list(self.desktop.screenshot().crop((0, 500, 1200, 501)).getdata())
        return len(row) - row[::-1].index(SHELL) - row.index(SHELL) if SHELL in row else 0

    def test_everything_is_as_large_as_the_font(self) -> None:
        self.application.open_editor()
        for points in (15, 10, 12):
            if points != 15:
                self.set_font_size(points)
            wait_until(lambda: abs(self.width() - 31.1 * points) < points, f"an editor of {points} points")


if __name__ == "__main__":
    unittest.main()
