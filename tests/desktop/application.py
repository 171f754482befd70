# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The application as the user sees it, running on the desktop of a test."""

import json
import os
import re
import signal
import subprocess
import sys
import time
import unittest
from contextlib import suppress
from pathlib import Path

from gi.repository import Gio, GLib
from PIL import Image

from desktop import Desktop, call, memory_share, processor_time, status, wait_until

BINARIES = Path(os.environ.get("TESSEL_BINARIES") or Path(__file__).parents[2] / "build/bin")
SANITIZERS = os.environ.get("TESSEL_SANITIZE")  # that it was built with
PROGRAM = str(BINARIES / "tessel-broth")
TOOL = str(BINARIES / "tessel")
NAME = "org.tesselbroth.TesselBroth"
PATH = "/org/tesselbroth/TesselBroth"


def on_full_disk(free: int) -> tuple[str, ...]:
    """What starts a program that cannot write files of more than so many times 512 bytes."""
    return "sh", "-c", f'trap "" XFSZ; ulimit -f {free}; exec "$0"'


def action(name: str, *parameter: GLib.Variant) -> GLib.Variant:
    return GLib.Variant("(sava{sv})", (name, parameter, {}))


def has_ended(process: int) -> bool:
    """Whether it does nothing any more, even if nobody has asked yet how it ended."""
    with suppress(OSError):
        return status(process)[0] == "Z"
    return True


class Application:
    """One installation: its process, its settings and its pictures."""

    def __init__(self, desktop: Desktop) -> None:
        self.desktop = desktop
        self.process: subprocess.Popen | None = None
        self.log_file = desktop.folder / "tessel-broth.log"
        home = desktop.folder / "home"
        self.settings_file = home / "config/Tessel Broth/Tessel Broth.conf"
        self.autostart_file = home / f"config/autostart/{NAME}.desktop"
        self.pictures_folder = home / "data/Tessel Broth/Wallpapers"

    # The process

    def start(self, *wrapper: str) -> None:
        """Starts it, through another program if one is given, and waits for its icon."""
        self.desktop.panel.item = None
        self.desktop.check_programs()
        self.log_file.unlink(missing_ok=True)
        self.process = self.desktop.start(*wrapper, PROGRAM)
        wait_until(lambda: self.desktop.panel.item or not self.runs(), "the icon in the panel")
        if not self.runs():
            raise AssertionError(f"It ended with {self.process.returncode}.")

    def runs(self) -> bool:
        return self.process is not None and self.process.poll() is None

    def kill(self, number: int = signal.SIGKILL) -> None:
        """Ends it by a signal."""
        self.process.send_signal(number)
        self.process.wait()
        wait_until(lambda: not self.desktop.has_name(NAME), "the end of the application")

    def kill_successor(self) -> None:
        """Ends whoever has taken the place of the process that was started here."""
        if self.desktop.has_name(NAME):
            os.kill(call(self.desktop.bus, "org.freedesktop.DBus", "/",
                         "org.freedesktop.DBus.GetConnectionUnixProcessID", GLib.Variant("(s)", (NAME,)))[0],
                    signal.SIGKILL)

    def quit(self) -> int:
        """Quits through the menu and returns the exit code."""
        self.desktop.panel.choose("Quit Tessel Broth")
        return self.process.wait(15)

    def do(self, name: str, *parameter: GLib.Variant) -> None:
        """Has one of its actions done; GLib.Error if it refuses."""
        call(self.desktop.bus, NAME, PATH, "org.freedesktop.Application.ActivateAction", action(name, *parameter))

    def ask_for(self, name: str) -> None:
        """The same, without waiting for it to be done."""
        self.desktop.bus.call(NAME, PATH, "org.freedesktop.Application", "ActivateAction", action(name), None,
                              Gio.DBusCallFlags.NO_AUTO_START, -1, None)
        self.desktop.bus.flush_sync()

    def memory(self) -> int:
        """Resident memory in KiB."""
        return int(re.search(r"VmRSS:\s*(\d+)", Path(f"/proc/{self.process.pid}/status").read_text())[1])

    def memory_share(self) -> int:
        """Its proportional share of the memory in KiB."""
        return memory_share(self.process.pid)

    def settled_memory(self) -> int:
        """The same, once it stays for a second."""
        def unchanged() -> int | None:
            before = self.memory()
            time.sleep(1)
            return before if abs(self.memory() - before) < 300 else None

        return wait_until(unchanged, "memory that stays")

    def open_files(self) -> int:
        return len(os.listdir(f"/proc/{self.process.pid}/fd"))

    def wake_ups(self, seconds: float) -> float:
        """How often a second any of its threads has given up the processor, or was made to."""
        before = self.switches()
        time.sleep(seconds)
        return (self.switches() - before) / seconds

    def switches(self) -> int:
        """How often its threads have done that since they began."""
        total = 0
        for thread in Path(f"/proc/{self.process.pid}/task").iterdir():
            with suppress(OSError):
                total += sum(map(int, re.findall(r"ctxt_switches:\s*(\d+)", (thread / "status").read_text())))
        return total

    def processor_time(self) -> float:
        """How many seconds its threads have computed since it began."""
        return processor_time(self.process.pid)

    def wait_until_idle(self, seconds: float = 1) -> None:
        wait_until(lambda: self.wake_ups(seconds) <= 1, f"{seconds} s with one wake-up each at most", 60)

    # What it keeps

    def write_settings(self, **settings: object) -> None:
        """Makes the settings file before the start; what is no text is written as JSON in quotes. Unless they
        say otherwise there is no handle, which would stand in the picture, and no introduction."""
        quoted = {key: value if isinstance(value, str) else json.dumps(json.dumps(value))
                  for key, value in {**settings, "handleHidden": settings.get("handleHidden", "true"),
                                     "onboarded": settings.get("onboarded", "true")}.items()}
        self.settings_file.parent.mkdir(parents=True, exist_ok=True)
        self.settings_file.write_text("".join(["[General]\n", *(f"{key}={quoted[key]}\n" for key in quoted)]))

    def settings(self) -> dict[str, str]:
        """Its settings as text, out of the INI file."""
        if not self.settings_file.exists():
            return {}
        settings = {}
        for line in self.settings_file.read_text().splitlines():
            key, _, value = line.partition("=")
            if match := re.fullmatch(r'"@ByteArray\((.*)\)"', value):
                value = re.sub(r"\\(?:x([0-9a-f]+)|(.))",
                               lambda escape: chr(int(escape[1], 16)) if escape[1] else escape[2], match[1])
            settings[key] = value
        return settings

    def look(self) -> dict | None:
        """The look on the desktop as the settings hold it."""
        text = self.settings().get("desktop")
        return json.loads(text) if text else None

    def pictures(self) -> list[Path]:
        """The pictures of the desktop, the newest last."""
        return sorted(self.pictures_folder.glob("wall-*.png"))

    def shows_still(self) -> bool:
        """Whether every monitor shows its own of the newest pictures, which are of the desktop's look."""
        monitors = self.desktop.monitors()
        newest = self.pictures()[-len(monitors):]
        screen = self.desktop.screenshot()
        return len(newest) == len(monitors) and all(
            self._shows(screen.crop((x, y, x + width, y + height)), file)
            for (x, y, width, height), file in zip(monitors, newest))

    def _shows(self, part: Image.Image, file: Path) -> bool:
        with Image.open(file) as picture:
            is_same = picture.convert("RGB").tobytes() == part.tobytes()
        return is_same and json.loads(self.desktop.output(TOOL, "read", str(file))) == self.look()

    # What the user does

    def new_wallpaper(self) -> dict:
        """Chooses a new wallpaper and returns its look."""
        before = self.look()
        self.desktop.panel.choose("New Wallpaper")
        return wait_until(lambda: self.look() != before and self.look(), "a new look")

    def open_editor(self) -> None:
        self.desktop.panel.choose("Open Editor")

    def play(self) -> None:
        """Has an animated wallpaper, and waits until it moves."""
        if self.look() is None:
            self.new_wallpaper()
        self.desktop.panel.choose("Animated Wallpaper")
        self.wait_for_motion()

    def wait_for_motion(self) -> None:
        self.desktop.wait_for_wallpaper()
        self.desktop.wait_for_change()

    def show_still(self) -> None:
        """Has a still wallpaper, and waits until the desktop shows it without our help."""
        if self.look() is None:
            self.new_wallpaper()
        self.desktop.panel.choose("Still Wallpaper")
        self.wait_for_still()

    def wait_for_still(self) -> None:
        wait_until(lambda: not self.desktop.wallpapers() and self.shows_still(), "the still on the screen")


class ApplicationTest(unittest.TestCase):
    """A desktop for each class, and for each test on it an application that was never started before."""

    desktop: Desktop

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop()

    @classmethod
    def setUpClass(cls) -> None:
        cls.desktop = cls.enterClassContext(cls.make_desktop())

    def setUp(self) -> None:
        self.desktop.empty_home()
        self.desktop.panel.messages.clear()
        self.application = Application(self.desktop)
        self.application.write_settings()
        self.addCleanup(self.end_application)

    def end_application(self) -> None:
        if self.application.runs():
            self.application.kill()
        if self.application.log_file.exists() and (log := self.application.log_file.read_text()):
            print(f"{self.id()}: the application said\n{log}", file=sys.stderr)
        self.desktop.check_programs()
