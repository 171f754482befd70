# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop of its own for a test: an X server that nobody sees, two buses, a window manager and a panel."""

import ctypes
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from collections.abc import Callable
from contextlib import suppress
from pathlib import Path
from typing import TypeVar

from gi.repository import Gio, GLib
from PIL import Image, ImageGrab

from panel import PATIENCE, Panel

Result = TypeVar("Result")
Place = tuple[int, int, int, int]  # x, y, width and height in pixels

# No services are started by the buses: only what a test has asked for runs.
BUS_CONFIGURATION = """<busconfig>
  <listen>unix:dir={folder}</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
  </policy>
</busconfig>
"""

PR_SET_CHILD_SUBREAPER = 36

KILLED_WITH_US = ("setpriv", "--pdeathsig", "KILL")
SANITIZER_FOUND = re.compile("Sanitizer: |: runtime error: ")  # what it says on standard error

# Window managers that arrange all windows themselves, without a configuration of the user's.
BSPWM = ("bspwm", "-c", "/bin/true")
DWM = ("dwm",)
HERBSTLUFTWM = ("herbstluftwm", "-c", "/bin/true")
I3 = ("i3", "-c", "/dev/null")


def is_installed(name: str) -> bool:
    return shutil.which(name) is not None


def wait_until(condition: Callable[[], Result], what: str, seconds: float = 20) -> Result:
    """Asks until the answer is true, and returns it; fails after some time, saying what was expected."""
    deadline = time.monotonic() + seconds
    while True:
        if answer := condition():
            return answer
        if time.monotonic() > deadline:
            raise AssertionError(f"{what}: not within {seconds} s")
        time.sleep(0.05)


def call(bus: Gio.DBusConnection, name: str, path: str, method: str,
         arguments: GLib.Variant | None = None) -> tuple:
    """Calls "interface.method" of an object and returns the answer."""
    interface, _, member = method.rpartition(".")
    flags = Gio.DBusCallFlags.NO_AUTO_START
    return bus.call_sync(name, path, interface, member, arguments, None, flags, PATIENCE, None).unpack()


def connect(address: str) -> Gio.DBusConnection:
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)


def status(pid: int) -> list[str]:
    """What the system tells of a process, from its state on."""
    return Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()


def processor_time(pid: int) -> float:
    """How many seconds the threads of a process have computed since it began."""
    return sum(map(int, status(pid)[11:13])) / os.sysconf("SC_CLK_TCK")


def memory_share(pid: int) -> int:
    """The proportional share of the memory of a process, in KiB."""
    return int(re.search(r"^Pss: +(\d+)", Path(f"/proc/{pid}/smaps_rollup").read_text(), re.MULTILINE)[1])


def descendants(pid: int) -> list[int]:
    """All processes below one."""
    found = []
    for task in Path(f"/proc/{pid}/task").glob("*"):
        with suppress(OSError):
            for child in map(int, (task / "children").read_text().split()):
                found += [child, *descendants(child)]
    return found


class Desktop:
    """A context in which there is a desktop; everything that was started in it ends with it."""

    def __init__(self, width: int = 800, height: int = 600, manager: tuple[str, ...] = ("openbox",),
                 depth: int = 24) -> None:
        self.size = (width, height)
        self.depth = depth
        self.manager = manager
        self.folder = Path(tempfile.mkdtemp(prefix="tessel-desktop-"))
        self.processes: list[subprocess.Popen] = []
        self.environment: dict[str, str] = {}

    def __enter__(self) -> "Desktop":
        # Whoever loses its parent becomes our child, so that nobody is left over.
        ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1)
        try:
            self._make_environment()
            self._start_display()
            for variable in ("DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"):
                self.environment[variable] = self._start_bus()
            self.bus = connect(self.environment["DBUS_SESSION_BUS_ADDRESS"])
            self.panel = Panel(self.bus)
            self._start_manager()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_: object) -> None:
        while remaining := descendants(os.getpid()):
            for pid in remaining:
                with suppress(ProcessLookupError):
                    os.kill(pid, signal.SIGKILL)
            with suppress(ChildProcessError):
                while os.waitpid(-1, os.WNOHANG)[0]:
                    pass
            time.sleep(0.01)
        for process in self.processes:
            process.wait()
        shutil.rmtree(self.folder)

    def _make_environment(self) -> None:
        home = self.folder / "home"
        runtime = self.folder / "runtime"
        home.mkdir()
        runtime.mkdir(mode=0o700)
        self.environment = {
            "PATH": os.environ["PATH"],
            "LC_ALL": "C.UTF-8",
            "HOME": str(home),
            "XDG_RUNTIME_DIR": str(runtime),
            "XDG_CONFIG_HOME": str(home / "config"),
            "XDG_DATA_HOME": str(home / "data"),
            "XDG_CACHE_HOME": str(home / "cache"),
            "LIBGL_ALWAYS_SOFTWARE": "1",
            **{name: os.environ[name] for name in os.environ if name.endswith("SAN_OPTIONS")},
        }

    def _start_display(self) -> None:
        size = "{}x{}x{}".format(*self.size, self.depth)
        display = self._start_telling(
            lambda told: ("Xvfb", "-displayfd", told, "-screen", "0", size, "-nolisten", "tcp", "-noreset"))
        self.environment["DISPLAY"] = f":{display}"

    def _start_manager(self) -> None:
        self.start(*self.manager)
        wait_until(lambda: "#" in self.root_property("_NET_SUPPORTING_WM_CHECK"), "a window manager")

    def _start_telling(self, command: Callable[[str], tuple[str, ...]]) -> str:
        """Starts a server that is given a file descriptor, and returns the line that it writes there."""
        answer, told = os.pipe()
        self.start(*command(str(told)), pass_fds=[told])
        os.close(told)
        with os.fdopen(answer) as pipe:
            return pipe.readline().strip()

    def _start_bus(self) -> str:
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(folder=self.folder))
        return self._start_telling(lambda told: ("dbus-daemon", f"--config-file={configuration}", "--nofork",
                                                 f"--print-address={told}"))

    def empty_home(self) -> None:
        """Throws away all settings and files of the user."""
        shutil.rmtree(self.folder / "home")
        (self.folder / "home").mkdir()

    # Programs and names on the session bus

    def start(self, *command: str, **options: object) -> subprocess.Popen:
        """Starts a program that is killed if we are; what it says goes to a file of its name."""
        with self._log_file(command[0]).open("ab") as log:
            process = subprocess.Popen([*KILLED_WITH_US, *command], env=self.environment,
                                       stdin=subprocess.DEVNULL, stdout=log, stderr=log, **options)
        self.processes.append(process)
        return process

    def _log_file(self, program: str) -> Path:
        return self.folder / f"{Path(program).name}.log"

    def set_sanitizer(self, option: str) -> None:
        """Gives the sanitizer for addresses an option, for the programs that are started from now on."""
        options = self.environment.get("ASAN_OPTIONS", "")
        self.environment["ASAN_OPTIONS"] = f"{options}:{option}"

    def end(self, program: str) -> None:
        """Kills the oldest that was started of a program, such as the X server or the session bus."""
        process = next(each for each in self.processes if each.args[len(KILLED_WITH_US)] == program)
        process.kill()
        process.wait()

    def check_programs(self) -> None:
        """Fails where a sanitizer has found something in a program that was started here and is gone."""
        ended = [process for process in self.processes if process.poll() is not None]
        self.processes = [process for process in self.processes if process not in ended]
        for process in ended:
            log = self._log_file(process.args[len(KILLED_WITH_US)])
            said = log.read_text(errors="replace") if log.exists() else ""
            if SANITIZER_FOUND.search(said):
                raise AssertionError(f"{process.args}: {said}")

    def output(self, *command: str) -> str:
        """Runs a program and returns what it prints; a failure is left to the reader."""
        done = subprocess.run(command, env=self.environment, capture_output=True, text=True, timeout=20,
                              check=False)
        if SANITIZER_FOUND.search(done.stderr):
            raise AssertionError(done.stderr)
        return done.stdout

    def has_name(self, name: str) -> bool:
        return call(self.bus, "org.freedesktop.DBus", "/", "org.freedesktop.DBus.NameHasOwner",
                    GLib.Variant("(s)", (name,)))[0]

    def wait_for_name(self, name: str) -> None:
        wait_until(lambda: self.has_name(name), name)

    # The pointer and the keyboard

    def point_at(self, x: int, y: int) -> None:
        self.output("xdotool", "mousemove", str(x), str(y))

    def click(self) -> None:
        self.output("xdotool", "click", "1")

    def click_at(self, x: int, y: int) -> None:
        self.point_at(x, y)
        self.click()

    def press_keys(self, *keys: str) -> None:
        self.output("xdotool", "key", *keys)

    # The screen

    def screenshot(self) -> Image.Image:
        return ImageGrab.grab(xdisplay=self.environment["DISPLAY"]).convert("RGB")

    def wait_for_change(self) -> None:
        """Waits until something on the screen has moved."""
        before = self.screenshot()
        wait_until(lambda: self.screenshot() != before, "movement on the screen")

    def root_property(self, name: str) -> str:
        return self.output("xprop", "-root", name)

    def windows(self) -> list["Window"]:
        """The managed windows, the lowest first."""
        listed = self.root_property("_NET_CLIENT_LIST_STACKING")
        if "#" not in listed:  # xfwm4 tells of no order until there are two
            listed = self.root_property("_NET_CLIENT_LIST")
        return [Window(self, number) for number in re.findall(r"0x[0-9a-f]+", listed)]

    def wallpapers(self) -> list["Window"]:
        """The windows in which the application draws the desktop."""
        return [window for window in self.windows()
                if window.program() == "tessel-broth" and window.is_mapped()
                and "_NET_WM_WINDOW_TYPE_DESKTOP" in window.property("_NET_WM_WINDOW_TYPE")]

    def wait_for_wallpaper(self) -> None:
        wait_until(self.wallpapers, "a window of the desktop")

    def wallpaper_places(self) -> list[Place]:
        """Where these windows are, from left to right."""
        return sorted(window.place() for window in self.wallpapers())

    def menus(self) -> list["Window"]:
        """The menus that are open, the window manager's own among them."""
        listed = self.output("xwininfo", "-root", "-children")
        children = re.findall(r"^ +(0x[0-9a-f]+)", listed, re.MULTILINE)
        return [window for window in (Window(self, number) for number in children) if window.is_menu()]

    def open_window(self) -> "Window":
        """Shows a window of another program, white inside, with (300, 250) in it."""
        self.start("xmessage", "-geometry", "300x200+150+150", "-bg", "white", "above")
        return wait_until(lambda: [window for window in self.windows() if window.program() == "xmessage"],
                          "a window")[0]

    def shows_white(self) -> bool:
        """Whether this window can be seen."""
        return self.screenshot().getpixel((300, 250)) == (255, 255, 255)

    # The monitors

    def monitors(self) -> list[Place]:
        """Their places, from left to right."""
        listed = re.findall(r"(\d+)/\d+x(\d+)/\d+\+(\d+)\+(\d+)", self.output("xrandr", "--listmonitors"))
        return sorted((int(x), int(y), int(width), int(height)) for width, height, x, y in listed)

    def add_mode(self, width: int, height: int) -> None:
        """Makes a size known to the monitor, no larger than the screen was at first."""
        timings = [str(size + add) for size in (width, height) for add in (0, 8, 16, 24)]
        self.output("xrandr", "--newmode", f"{width}x{height}", "40", *timings)
        self.output("xrandr", "--addmode", "screen", f"{width}x{height}")

    def set_mode(self, width: int, height: int) -> None:
        self.output("xrandr", "--output", "screen", "--mode", f"{width}x{height}")

    def switch_off(self) -> None:
        self.output("xrandr", "--output", "screen", "--off")

    def split(self, primary: str = "") -> None:
        """Makes two monitors of one, side by side: "left" and "right", of which one may be the primary one."""
        self.join()
        width, height = self.size[0] // 2, self.size[1]
        for name, x, output in (("left", 0, "screen"), ("right", width, "none")):
            mark = "*" if name == primary else ""
            self.output("xrandr", "--setmonitor", mark + name, f"{width}/100x{height}/100+{x}+0", output)

    def join(self) -> None:
        for name in ("right", "left"):
            self.output("xrandr", "--delmonitor", name)


class Window:
    """A window of the X server, by its number as xwininfo prints it."""

    def __init__(self, desktop: Desktop, number: str) -> None:
        self.desktop = desktop
        self.number = number

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Window) and self.number == other.number

    def property(self, name: str) -> str:
        return self.desktop.output("xprop", "-notype", "-id", self.number, name)

    def program(self) -> str:
        """Which kind of program it belongs to; empty if it is gone."""
        return (self.property("WM_CLASS").split('"') + [""])[1]

    def facts(self) -> dict[str, str]:
        """What xwininfo says; empty if it is gone."""
        lines = self.desktop.output("xwininfo", "-stats", "-id", self.number).splitlines()
        return {key.strip(): value.strip() for key, _, value in (line.partition(":") for line in lines)}

    def is_mapped(self) -> bool:
        return self.facts().get("Map State") == "IsViewable"

    def is_menu(self) -> bool:
        facts = self.facts()
        is_unmanaged = facts.get("Override Redirect State") == "yes" and int(facts["Width"]) > 1
        is_menu = is_unmanaged or "_NET_WM_WINDOW_TYPE_POPUP_MENU" in self.property("_NET_WM_WINDOW_TYPE")
        return is_menu and facts.get("Map State") == "IsViewable"

    def place(self) -> Place:
        facts = self.facts()
        names = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        return tuple(int(facts.get(name, "-1")) for name in names)

    def close(self) -> None:
        self.desktop.output("xdotool", "windowkill", str(int(self.number, 16)))
        wait_until(lambda: self not in self.desktop.windows(), "the end of a window")
