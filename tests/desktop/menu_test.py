# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the user chooses in the panel's menu, and what other programs ask for."""

import json
import subprocess
import unittest

from gi.repository import Gio, GLib

from accessibility import HeardTest
from application import NAME, PROGRAM, TOOL
from desktop import wait_until

FIRST_MENU = """\
Open Editor (Control+E)
New Wallpaper (Control+N)
Previous Wallpaper ~ (Control+P)
--
( ) Still Wallpaper
(x) Animated Wallpaper
Presets
    Save as Preset... ~
--
Fresh Bowl
    ( ) Every Hour
    ( ) Every Day
    (x) Never
Handle Position
    ( ) Left
    ( ) Right
    (x) Hidden
[ ] Launch at Login
--
Check for Updates...
Made by the Tessel Broth developers
    Web Page
    Source Code
Quit Tessel Broth (Control+Q)"""


class MenuTest(HeardTest):
    """Every row of the menu."""

    def setUp(self) -> None:
        super().setUp()
        self.application.start()
        self.panel = self.desktop.panel

    def is_checked(self, *titles: str) -> None:
        wait_until(lambda: self.panel.row(*titles).checked, f"a checkmark at {titles}")

    def test_rows_follow_the_state(self) -> None:
        self.assertEqual(self.panel.text(), FIRST_MENU)
        for motion in ("Still Wallpaper", "Animated Wallpaper"):
            self.panel.choose(motion)
            self.is_checked(motion)
        self.application.new_wallpaper()
        with_look = FIRST_MENU.replace("Save as Preset... ~", "Save as Preset...")
        self.assertEqual(self.panel.text(), with_look)
        self.application.new_wallpaper()
        self.assertEqual(self.panel.text(), with_look.replace("Previous Wallpaper ~", "Previous Wallpaper"))

    def test_a_start_without_a_wallpaper_says_what_to_do(self) -> None:
        wait_until(lambda: self.panel.messages, "a greeting")
        self.assertIn("choose New Wallpaper", self.panel.messages[0][1])

    def test_new_and_previous(self) -> None:
        self.application.show_still()
        first_look, first_screen = self.application.look(), self.desktop.screenshot()
        self.application.new_wallpaper()
        self.application.wait_for_still()
        self.assertNotEqual(self.desktop.screenshot(), first_screen)
        self.panel.choose("Previous Wallpaper")
        wait_until(lambda: self.application.look() == first_look, "the look before")
        self.application.wait_for_still()
        self.assertFalse(self.panel.row("Previous Wallpaper").enabled)

    def test_still_and_animated(self) -> None:
        self.application.show_still()
        self.is_checked("Still Wallpaper")
        look = self.application.look()
        self.application.play()
        self.assertEqual(self.desktop.wallpaper_places(), [(0, 0, *self.desktop.size)])
        self.is_checked("Animated Wallpaper")
        self.application.show_still()
        self.assertEqual(self.application.look(), look)
        self.assertFalse(self.panel.row("Previous Wallpaper").enabled)

    def test_launch_at_login(self) -> None:
        self.panel.choose("Launch at Login")
        wait_until(self.application.autostart_file.exists, "an autostart entry")
        self.assertIn(f"\nExec={PROGRAM}\n", self.application.autostart_file.read_text())
        self.is_checked("Launch at Login")
        self.panel.choose("Launch at Login")
        wait_until(lambda: not self.application.autostart_file.exists(), "no autostart entry")
        wait_until(lambda: not self.panel.row("Launch at Login").checked, "no checkmark")

    def test_preset(self) -> None:
        look = self.application.new_wallpaper()
        self.panel.choose("Presets", "Save as Preset...")
        field = self.reader.find("Preset name")
        wait_until(field.is_focused, "the focus in the field")
        self.desktop.output("xdotool", "type", "Cold & Clear")
        self.reader.find("Save").press()
        wait_until(lambda: len(self.panel.row("Presets").children) == 3, "a preset in the menu")
        titles = [row.title for row in self.panel.row("Presets").children]
        self.assertEqual(titles, ["Cold & Clear", "", "Save as Preset..."])
        self.is_checked("Presets", "Cold & Clear")
        self.application.new_wallpaper()
        self.assertFalse(self.panel.row("Presets", "Cold & Clear").checked)
        self.panel.choose("Presets", "Cold & Clear")
        wait_until(lambda: self.application.look() == look, "the preset's look")

    def test_updates_are_left_to_the_software_centre(self) -> None:
        self.panel.choose("Check for Updates...")
        self.reader.find("Updates come with your system")
        self.desktop.press_keys("Escape")
        self.reader.wait_until_gone("Updates come with your system")
        home = self.desktop.folder / "home"
        taken = home / "taken"
        (home / "data/applications").mkdir(parents=True)
        centre = home / "centre"
        centre.write_text(f'#!/bin/sh\necho "$1" > {taken}\n')
        centre.chmod(0o755)
        (home / "data/applications/centre.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Software\nExec={centre} %u\n"
            "MimeType=x-scheme-handler/appstream;\n")
        (home / "config/mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/appstream=centre.desktop\n")
        self.panel.choose("Check for Updates...")
        wait_until(lambda: taken.exists() and taken.read_text() == f"appstream:{NAME}\n", "its page")
        self.assertFalse(self.reader.has("Updates come with your system"))

    def test_quit(self) -> None:
        self.application.play()
        self.assertEqual(self.application.quit(), 0)
        self.assertNotIn("Tessel Broth", self.desktop.output("xwininfo", "-root", "-tree"))
        self.assertFalse(self.desktop.has_name(NAME))

    def test_still_stays_without_the_application(self) -> None:
        self.application.show_still()
        self.assertEqual(self.application.quit(), 0)
        self.assertTrue(self.application.shows_still())


class BusTest(HeardTest):
    """The application's name on the session bus."""

    def setUp(self) -> None:
        super().setUp()
        self.application.start()

    def test_second_instance_opens_the_editor(self) -> None:
        self.application.show_still()
        before = self.files()
        self.assertEqual(self.desktop.start(PROGRAM).wait(15), 0)
        self.reader.find("Shuffle draft")
        self.assertEqual(self.files(), before)
        self.assertTrue(self.application.runs())

    def files(self) -> dict[str, bytes]:
        """What the application keeps; in the cache drivers keep what they like."""
        home = self.desktop.folder / "home"
        return {str(path): path.read_bytes() for path in home.rglob("*")
                if path.is_file() and home / "cache" not in path.parents}

    def test_actions(self) -> None:
        self.application.do("new-wallpaper")
        first = wait_until(self.application.look, "a look")
        self.application.do("new-wallpaper")
        wait_until(lambda: self.application.look() != first, "another look")
        self.application.do("previous-wallpaper")
        wait_until(lambda: self.application.look() == first, "the first look")
        self.application.do("toggle-motion")
        wait_until(lambda: self.application.settings()["appliedMotion"] == "false", "a still")
        self.application.do("quit")
        self.assertEqual(self.application.process.wait(15), 0)

    def tool(self, *arguments: str) -> subprocess.CompletedProcess:
        return subprocess.run([TOOL, *arguments], env=self.desktop.environment, capture_output=True, text=True,
                              timeout=60)

    def test_tool_puts_looks_on_the_desktop(self) -> None:
        self.assertIn("no wallpaper", self.tool("get").stderr)
        done = self.tool("set", '{"pattern":24,"palette":178,"dither":3}', "--still")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.application.wait_for_still()
        got = json.loads(self.tool("get", "--json").stdout)
        self.assertEqual(got, {"look": self.application.look(), "animated": False})
        self.assertEqual((got["look"]["pattern"], got["look"]["palette"]), (24, 178))
        self.assertIn("The actions are", self.tool("do", "boil-over").stderr)
        self.assertEqual(self.tool("do", "toggle-motion").returncode, 0)
        self.application.wait_for_motion()
        self.assertEqual(json.loads(self.tool("get").stdout), got["look"])

    def test_what_is_no_look_is_refused(self) -> None:
        look = self.application.new_wallpaper()
        for parameter in ("s", ""), ("s", '{"pattern":36}'), ("as", ["{}"]), ("ay", b"{}"), ("v", GLib.Variant("s", "{")):
            with self.assertRaises(GLib.Error) as refusal:
                self.application.do("set-look", GLib.Variant(*parameter))
            self.assertEqual(Gio.DBusError.get_remote_error(refusal.exception),
                             "org.freedesktop.DBus.Error.InvalidArgs")
        self.assertEqual(self.application.look(), look)
        self.assertTrue(self.application.runs())
        self.application.kill()
        self.assertIn("not running", self.tool("set", "--still").stderr)


if __name__ == "__main__":
    unittest.main()
