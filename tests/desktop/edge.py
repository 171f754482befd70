# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The handle at the screen's edge as a person with a pointer finds it."""

import json

from accessibility import HeardTest
from desktop import Window, wait_until

SHELL = (0x14, 0x10, 0x0D)
FOOT = (0x0A, 0x08, 0x06)
STEAM = (0xF6, 0xED, 0xE2)

STRIP_ROWS = 5
EDITOR_ROW = 4


class EdgeTest(HeardTest):
    """An application with a handle, and a screen reader that tells what it shows."""

    scale = 1.0

    @classmethod
    def setUpClass(cls) -> None:
        super().setUpClass()
        cls.desktop.environment["QT_SCALE_FACTOR"] = str(cls.scale)

    def setUp(self) -> None:
        super().setUp()
        self.write_settings()
        self.desktop.point_at(self.desktop.size[0] - 100, 20)
        self.application.start()
        self.middle = self.desktop.size[1] // 2

    def write_settings(self, **settings: object) -> None:
        self.application.write_settings(**{"handleHidden": "false", "motion": "false", **settings})

    def draft(self) -> dict:
        """The look in the editor as the settings hold it."""
        return json.loads(self.application.settings().get("look", "{}"))

    # Where things are, from the left edge of a screen that begins at 0, 0

    def pixel(self, x: float, y: float) -> tuple[int, int, int]:
        """The colour that is so many points from the edge and below the middle."""
        return self.desktop.screenshot().getpixel((round(x * self.scale), self.middle + round(y * self.scale)))

    def shows_handle(self) -> bool:
        """Whether the handle is there, by its foot; in the strip there is another ground beside that."""
        return self.pixel(13, 0) == FOOT and self.pixel(8, 0) != SHELL

    def shows_strip(self) -> bool:
        """Whether the strip's lower end is there, and nothing as large as the editor."""
        return self.pixel(10, 190) == SHELL and self.pixel(30, 214) == SHELL and self.pixel(60, 214) != SHELL

    def wait_for_strip(self) -> None:
        wait_until(self.shows_strip, "the strip")

    def wait_for_handle(self) -> None:
        wait_until(self.shows_handle, "the handle alone")

    def point_at_row(self, index: int) -> None:
        self.desktop.point_at(round(30 * self.scale), self.middle + round((46 + 36 * index) * self.scale))

    def open_strip(self) -> None:
        self.desktop.point_at(round(30 * self.scale), self.middle)
        self.wait_for_strip()

    def click_row(self, index: int) -> None:
        self.point_at_row(index)
        self.desktop.click()

    def open_editor(self) -> None:
        """As the strip's last row does."""
        self.open_strip()
        self.click_row(EDITOR_ROW)
        self.reader.find("Shuffle draft")

    def wait_for_focus(self, name: str) -> None:
        wait_until(lambda: self.reader.focused() == name, f"the focus at {name!r}")

    def open_window_at_edge(self) -> Window:
        """Shows a white window of another program where handle and strip are."""
        self.desktop.start("xmessage", "-geometry", f"400x{self.desktop.size[1] - 100}+0+20", "-buttons", "", "-bg",
                           "white", "behind")
        window = wait_until(lambda: [each for each in self.desktop.windows() if each.program() == "xmessage"],
                            "a window")[0]
        self.addCleanup(window.close)
        wait_until(lambda: self.pixel(200, 0) == (255, 255, 255), "what is in it")
        return window
