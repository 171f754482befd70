# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The wallpaper on a desktop that draws its own."""

import shutil
import unittest
from pathlib import Path

from PIL import Image, ImageChops

from application import ApplicationTest
from desktop import Desktop, wait_until

SETTINGS_SERVICE = next(Path("/usr/lib").glob("*/xfce4/xfconf/xfconfd"), None)
IS_INSTALLED = SETTINGS_SERVICE and all(map(shutil.which, ("xfwm4", "xfdesktop", "xfconf-query")))


@unittest.skipUnless(IS_INSTALLED, "xfwm4, xfdesktop4 and xfconf are not installed")
class XfceTest(ApplicationTest):
    """XFCE with its desktop, on which there are no icons at first."""

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(manager=("xfwm4", "--compositor=off"))

    def setUp(self) -> None:
        super().setUp()
        self.services = [self.desktop.start(str(SETTINGS_SERVICE))]
        self.desktop.wait_for_name("org.xfce.Xfconf")
        self.xfconf("-p", "/desktop-icons/style", "-n", "-t", "int", "-s", "0")
        self.services.append(self.desktop.start("xfdesktop"))
        wait_until(lambda: "#" in self.desktop.root_property("_NET_CLIENT_LIST"), "the desktop's own window")
        self.application.start()

    def end_application(self) -> None:
        super().end_application()
        for service in self.services:
            service.kill()
            service.wait()

    def xfconf(self, *arguments: str) -> str:
        return self.desktop.output("xfconf-query", "-c", "xfce4-desktop", *arguments)

    def images(self) -> list[str]:
        """The pictures that the desktop is set to show, one for each workspace."""
        paths = [line for line in self.xfconf("-l").splitlines() if line.endswith("/last-image")]
        return [self.xfconf("-p", path).strip() for path in paths if "/monitorscreen/" in path]

    def test_still_is_the_picture_of_the_desktop(self) -> None:
        self.application.show_still()
        workspaces = int(self.desktop.output("xdotool", "get_num_desktops"))
        self.assertEqual(self.images(), [str(self.application.pictures()[-1])] * workspaces)

    def test_animation_lies_between_the_desktop_and_the_windows(self) -> None:
        window = self.desktop.open_window()
        self.addCleanup(window.close)
        self.application.play()
        programs = [window.program() for window in self.desktop.windows()]
        self.assertEqual(programs, ["xfdesktop", "tessel-broth", "xmessage"])
        wait_until(self.desktop.shows_white, "the window's picture")

    def test_icons_lie_in_front_of_the_animation(self) -> None:
        self.application.show_still()
        picture = self.desktop.screenshot()

        def icons() -> Image.Image | None:
            shown = self.desktop.screenshot()
            return shown if shown != picture and shown == self.desktop.screenshot() else None

        self.xfconf("-p", "/desktop-icons/style", "-s", "2")
        still = wait_until(icons, "icons on the desktop")
        clear = ImageChops.difference(picture, still).convert("L").point(lambda value: 255 * (value > 64))
        nothing = Image.new("RGB", still.size)

        def is_in_front() -> bool:
            differences = ImageChops.difference(still, self.desktop.screenshot())
            return Image.composite(differences, nothing, clear).getbbox() is None

        self.application.play()
        wait_until(is_in_front, "the icons in front of the animation")


if __name__ == "__main__":
    unittest.main()
