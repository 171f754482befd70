# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Sudden ends, damaged settings and disks that take nothing."""

import json
import random
import signal
import sys
import time
import unittest
from pathlib import Path

from gi.repository import GLib
from PIL import Image

from application import NAME, PROGRAM, ApplicationTest, on_full_disk
from desktop import Desktop, call, wait_until

STILL_DELAY = 1.8  # seconds from a new look to its picture


class KillTest(ApplicationTest):
    """The process is gone from one moment to the next."""

    ROUNDS = 8

    def test_nothing_is_lost(self) -> None:
        chance = random.Random(4)
        self.application.write_settings(motion="false")
        for _ in range(self.ROUNDS):
            self.application.start()
            acknowledged = self.burst(chance)
            self.application.kill()
            self.check_files(acknowledged)
            self.check_restart()

    def burst(self, chance: random.Random) -> dict:
        """New wallpapers, the last perhaps on its way; returns the last look that is certain."""
        for _ in range(chance.randint(1, 3)):
            time.sleep(chance.uniform(0, 0.3))
            before = self.application.look()
            self.application.do("new-wallpaper")
            wait_until(lambda before=before: self.application.look() != before, "a look that is saved")
        acknowledged = self.application.look()
        if chance.random() < 0.5:
            self.wait_for_writing()
            time.sleep(chance.uniform(0, 0.004))
        else:
            time.sleep(chance.uniform(0, STILL_DELAY))
            self.application.ask_for("new-wallpaper")
            time.sleep(chance.uniform(0, 0.03))
        return acknowledged

    def wait_for_writing(self) -> None:
        """Until there is a new file among the pictures, which is written within milliseconds."""
        folder = self.application.pictures_folder
        before = set(folder.glob("*"))
        deadline = time.monotonic() + 10
        while set(folder.glob("*")) <= before:
            self.assertLess(time.monotonic(), deadline, "nothing is written")

    def check_files(self, acknowledged: dict) -> None:
        for picture in self.application.pictures():
            with Image.open(picture) as image:
                image.verify()
            with Image.open(picture) as image:
                image.load()
        if self.application.look() != acknowledged:
            self.assertEqual(json.loads(self.application.settings()["desktopHistory"])[-1], acknowledged)

    def check_restart(self) -> None:
        look = self.application.look()
        self.application.start()
        self.application.wait_for_still()
        self.assertEqual(self.application.look(), look)
        # However often it was killed: what the last kill left in either folder, and the lock.
        self.assertLessEqual(len(self.leftovers()), 4, self.leftovers())
        self.application.kill()

    def leftovers(self) -> list[Path]:
        settings = self.application.settings_file
        known = [settings, settings.with_name(f"{settings.name}.previous"), *self.application.pictures()]
        folders = (settings.parent, self.application.pictures_folder)
        return [file for folder in folders for file in folder.iterdir() if file not in known]


class ToldTest(ApplicationTest):
    """Something that the user is to hear of."""

    def is_told(self, *words: str) -> None:
        wait_until(lambda: any(all(word in title + text for word in words)
                               for title, text in self.desktop.panel.messages), f"a message with {words}")


class DriverTest(ToldTest):
    """A graphics driver that ends the program when it draws a look."""

    @classmethod
    def setUpClass(cls) -> None:
        super().setUpClass()
        # The signal is no find of a sanitizer's, which would report it and end the program in its own way.
        cls.desktop.set_sanitizer("handle_segv=0")

    def test_a_look_that_ends_it_twice_does_not_bar_the_way_to_another(self) -> None:
        deadly = {"pattern": 15, "dither": 4}  # Halo with Noise
        self.application.write_settings(desktop=deadly, appliedMotion="true")
        kept = self.application.settings()["desktop"]
        for _ in range(2):
            self.application.start()
            self.application.wait_for_motion()
            self.application.kill(signal.SIGSEGV)
        self.application.start()
        self.is_told("Halo", "Noise", "twice")
        self.assertEqual(self.application.settings()["desktop"], kept)
        self.application.new_wallpaper()
        self.application.wait_for_motion()
        self.assertEqual(self.application.quit(), 0)


class NoGraphicsTest(ApplicationTest):
    """A display that nothing can be drawn on."""

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(depth=8)

    def test_everybody_is_told_and_it_can_be_ended(self) -> None:
        self.application.process = self.desktop.start(PROGRAM)
        self.desktop.wait_for_name(NAME)
        wait_until(self.is_refused, "a refusal that says why")
        self.application.do("quit")
        self.assertEqual(self.application.process.wait(20), 1)
        self.assertIn("cannot draw here", self.application.log_file.read_text())
        self.application.log_file.unlink()

    def is_refused(self) -> bool:
        with self.assertRaises(GLib.Error) as refused:
            self.application.do("new-wallpaper")
        return "cannot draw here" in refused.exception.message


STUCK_OWNER = """
import time
from gi.repository import Gio, GLib
bus = Gio.bus_get_sync(Gio.BusType.SESSION)
instead_of_others = 2
for name in ("org.kde.StatusNotifierWatcher", "org.a11y.Bus"):
    bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName",
                  GLib.Variant("(su)", (name, instead_of_others)), None, Gio.DBusCallFlags.NONE, -1, None)
time.sleep(1000)
"""


class StuckTest(ApplicationTest):
    """Other programs are there, and do not answer."""

    def test_a_panel_and_a_bus_of_screen_readers_hold_up_nothing(self) -> None:
        stuck = self.desktop.start(sys.executable, "-c", STUCK_OWNER)
        self.desktop.wait_for_name("org.a11y.Bus")
        stuck.send_signal(signal.SIGSTOP)
        self.desktop.panel.item = None
        self.application.process = self.desktop.start(PROGRAM)
        self.desktop.wait_for_name(NAME)
        self.application.do("new-wallpaper")  # waits for the answer, less than for one of them
        self.assertIsNone(self.desktop.panel.item)
        stuck.kill()
        wait_until(lambda: self.desktop.panel.item, "the icon in the panel")
        self.assertEqual(self.application.quit(), 0)


OTHER_OWNER = f"""
from gi.repository import Gio, GLib
bus = Gio.bus_get_sync(Gio.BusType.SESSION)
bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName",
              GLib.Variant("(su)", ("{NAME}", 0)), None, Gio.DBusCallFlags.NONE, -1, None)
GLib.MainLoop().run()
"""
BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus")
MESSAGES = "org.freedesktop.Notifications"


class OtherOwnerTest(ToldTest):
    """Another program has its name on the session bus, and knows nothing of it."""

    def setUp(self) -> None:
        super().setUp()
        other = self.desktop.start(sys.executable, "-c", OTHER_OWNER)
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        self.desktop.wait_for_name(NAME)

    def start(self) -> None:
        self.application.process = self.desktop.start(PROGRAM)

    def ends_with_a_failure(self) -> None:
        self.assertEqual(self.application.process.wait(20), 1)
        self.assertIn("cannot start", self.application.log_file.read_text())
        self.application.log_file.unlink()

    def test_a_message_tells_why_it_does_not_start(self) -> None:
        self.start()
        self.is_told("cannot start", "another program has it")
        self.ends_with_a_failure()

    def test_a_window_does_where_nobody_shows_messages(self) -> None:
        names = self.desktop.bus
        call(names, *BUS, "org.freedesktop.DBus.ReleaseName", GLib.Variant("(s)", (MESSAGES,)))
        self.addCleanup(call, names, *BUS, "org.freedesktop.DBus.RequestName",
                        GLib.Variant("(su)", (MESSAGES, 0)))
        self.start()
        wait_until(lambda: [window for window in self.desktop.windows() if window.program() == "tessel-broth"],
                   "a window that tells of it", 60)
        self.assertEqual(self.desktop.panel.messages, [])
        self.desktop.press_keys("Escape")
        self.ends_with_a_failure()


class EndOfServersTest(ApplicationTest):
    """What it needs of the session dies before it does."""

    @classmethod
    def setUpClass(cls) -> None:
        """Each test has a desktop of its own."""

    def setUp(self) -> None:
        self.desktop = self.enterContext(Desktop())
        super().setUp()

    def play(self) -> None:
        self.application.start()
        self.application.play()
        self.kept = self.application.look()

    def test_a_wallpaper_moves_on_without_a_bus(self) -> None:
        self.play()
        self.desktop.end("dbus-daemon")
        self.application.wait_for_motion()
        self.application.process.terminate()
        self.assertEqual(self.application.process.wait(20), 0)
        self.assertEqual(self.application.look(), self.kept)
        self.application.process = self.desktop.start(PROGRAM)
        self.application.wait_for_motion()
        self.application.process.terminate()
        self.assertEqual(self.application.process.wait(20), 0)
        self.assertEqual(self.application.look(), self.kept)

    def test_the_end_of_the_screen_is_its_own(self) -> None:
        # It ends where it stands and takes nothing apart, which a sanitizer would call leaks.
        self.desktop.set_sanitizer("detect_leaks=0")
        self.play()
        self.desktop.end("Xvfb")
        self.assertEqual(self.application.process.wait(20), 1)
        self.assertEqual(self.application.look(), self.kept)


class DamageTest(ToldTest):
    """Something is wrong with what is written or read."""

    def new_look_is_seen(self, *titles: str) -> None:
        before = self.desktop.screenshot()
        self.desktop.panel.choose(*titles)
        wait_until(self.desktop.wallpapers, "a window of the desktop")
        wait_until(lambda: self.desktop.screenshot() != before, "a new picture")

    def all_is_well_after_restart(self) -> None:
        self.assertEqual(self.application.quit(), 0)
        self.desktop.panel.messages.clear()
        self.application.start()
        self.application.show_still()
        self.assertNotIn("cannot be saved", str(self.desktop.panel.messages))

    def lines(self) -> list[str]:
        return self.application.settings_file.read_text().splitlines()

    def test_damaged_settings_stay(self) -> None:
        self.application.write_settings(desktop='"{\\"pattern\\": oops"', presets='"[[["',
                                        shuffleMinutes="many", someone="else's")
        damaged = self.lines()[1:]
        before = self.application.settings_file.read_bytes()
        self.application.start()
        log = self.application.log_file.read_text()
        for key in ("desktop", "presets", "shuffleMinutes"):
            self.assertEqual(log.count(f"settings: {key}: "), 1, log)
        self.assertEqual(self.application.quit(), 0)
        self.assertEqual(self.application.settings_file.read_bytes(), before)
        self.application.start()
        self.desktop.panel.choose("New Wallpaper")
        wait_until(lambda: damaged[0] not in self.lines(), "a new look in the settings")
        self.assertIsNotNone(self.application.look())
        for line in damaged[1:]:
            self.assertIn(line, self.lines())

    def test_no_space_for_pictures(self) -> None:
        preset = {"id": "00000000-0000-0000-0000-000000000000", "name": "Plain", "look": {}, "motion": False}
        self.application.write_settings(presets=[preset])
        self.application.start(*on_full_disk(8))
        self.new_look_is_seen("Presets", "Plain")
        self.is_told("wall-")
        self.assertEqual(self.application.pictures(), [])
        look = self.application.look()
        self.assertIsNotNone(look)
        self.all_is_well_after_restart()
        self.assertEqual(self.application.look(), look)

    def test_no_space_at_all(self) -> None:
        self.application.write_settings(motion="false", other=600 * "1")
        before = self.application.settings_file.read_bytes()
        self.application.start(*on_full_disk(1))
        self.new_look_is_seen("New Wallpaper")
        self.is_told("settings cannot be saved", str(self.application.settings_file))
        self.assertEqual(self.application.settings_file.read_bytes(), before)
        self.all_is_well_after_restart()

    def test_no_folder_for_settings(self) -> None:
        folder = self.application.settings_file.parent
        self.application.settings_file.unlink()
        folder.rmdir()
        folder.write_text("in the way")
        self.application.start()
        self.new_look_is_seen("New Wallpaper")
        self.is_told("settings cannot be saved", str(folder))
        folder.unlink()
        self.desktop.panel.choose("Handle Position", "Right")
        wait_until(self.application.look, "the settings, tried again")
        self.assertEqual(self.application.settings()["edge"], "1")


if __name__ == "__main__":
    unittest.main()
