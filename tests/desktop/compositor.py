# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A Wayland desktop of its own for a test: a compositor with monitors that nobody sees."""

import json
import os
import shutil
import struct
import subprocess
import unittest
from io import BytesIO

from PIL import Image

from desktop import Desktop, Place, Window, is_installed, wait_until


class CompositorDesktop(Desktop):
    """A compositor draws it with the processor; nobody draws icons, and there is no panel but what the buses say. Of two
    monitors the second is off at first."""

    NAME: str
    TOOLS = ("grim", "foot", "wtype", "swaybg")  # of the compositor and of the tests
    FIRST, SECOND = "HEADLESS-1", "HEADLESS-2"

    def _start_display(self) -> None:
        if missing := [tool for tool in (self.NAME, *self.TOOLS) if not is_installed(tool)]:
            raise unittest.SkipTest(f"Not installed: {', '.join(missing)}.")
        self.runtime = self.folder / self.NAME
        self.runtime.mkdir(mode=0o700)
        self.arguments = self._configure()
        self._start_compositor()

    def _start_compositor(self) -> None:
        user: tuple[str, ...] = ()
        if os.geteuid() == 0:
            # sway refuses to run as root.
            user = ("setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups")
            self.folder.chmod(0o711)
            shutil.chown(self.runtime, "nobody")
        settings = {"XDG_RUNTIME_DIR": str(self.runtime), "WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman",
                    "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_HEADLESS_OUTPUTS": "2", "XDG_CURRENT_DESKTOP": self.NAME}
        self.compositor = self.start("env", *(f"{key}={settings[key]}" for key in settings), *user, self.NAME,
                                     *self.arguments)
        socket = wait_until(lambda: [file for file in self.runtime.glob("wayland-?") if file.is_socket()],
                            "a Wayland display")[0]
        self.environment |= {"WAYLAND_DISPLAY": str(socket), "XDG_SESSION_TYPE": "wayland",
                             "XDG_CURRENT_DESKTOP": self.NAME}
        self._prepare()
        wait_until(lambda: self.monitors() == [(0, 0, *self.size)], "a monitor")

    def _configure(self) -> tuple[str, ...]:
        """Writes its configuration, and returns the arguments that it is started with."""
        raise NotImplementedError

    def _prepare(self) -> None:
        """Once it serves."""

    def _start_manager(self) -> None:
        """The compositor is one."""

    # What the compositor is told and tells

    def restart(self) -> None:
        """Kills the compositor and starts it again, as if it had crashed."""
        self.compositor.kill()
        self.compositor.wait()
        for left in self.runtime.glob("*"):
            left.unlink()
        self._start_compositor()

    def outputs(self) -> dict[str, Place]:
        """The monitors that are on, in points, from left to right."""
        raise NotImplementedError

    def set_output(self, name: str, setting: str, value: str) -> None:
        raise NotImplementedError

    def add_monitor(self) -> None:
        """Puts the second one right of the first."""
        raise NotImplementedError

    def monitors(self) -> list[Place]:
        return list(self.outputs().values())

    def wallpapers(self) -> list[Window]:
        """None: what is drawn there is no window."""
        return []

    def wait_for_wallpaper(self) -> None:
        """It shows by its movement."""

    def screenshot(self, monitor: str | None = None) -> Image.Image:
        """All of the screen, or one monitor in its own pixels."""
        which = ("-o", monitor) if monitor else ()
        picture = subprocess.run(["grim", "-t", "ppm", *which, "-"], env=self.environment, check=True,
                                 capture_output=True, timeout=20).stdout
        return Image.open(BytesIO(picture)).convert("RGB")

    def wait_for_change(self, monitor: str | None = None) -> None:
        before = self.screenshot(monitor)
        wait_until(lambda: self.screenshot(monitor) != before, "movement on the screen")


class SwayDesktop(CompositorDesktop):
    NAME = "sway"

    def _configure(self) -> tuple[str, ...]:
        configuration = self.folder / "sway.conf"
        configuration.write_text(f"xwayland disable\noutput * bg #406080 solid_color\n"
                                 f"output * resolution {self.size[0]}x{self.size[1]}\n"
                                 f"output {self.FIRST} position 0 0\n"
                                 f"output {self.SECOND} position {self.size[0]} 0 disable\n"
                                 f"for_window [app_id=corner] floating enable\n")
        return "-c", str(configuration)

    def _prepare(self) -> None:
        self.environment["SWAYSOCK"] = str(wait_until(lambda: list(self.runtime.glob("sway-ipc.*.sock")), "sway")[0])

    def outputs(self) -> dict[str, Place]:
        outputs = json.loads(self.output("swaymsg", "-r", "-t", "get_outputs") or "[]")
        places = {output["name"]: tuple(output["rect"][key] for key in ("x", "y", "width", "height"))
                  for output in outputs if output["active"]}
        return dict(sorted(places.items(), key=lambda each: each[1]))

    def set_output(self, name: str, setting: str, value: str) -> None:
        self.output("swaymsg", "output", name, setting, value)

    def add_monitor(self) -> None:
        self.output("swaymsg", "output", self.SECOND, "enable")
        wait_until(lambda: len(self.outputs()) == 2, "another monitor")


class LabwcDesktop(CompositorDesktop):
    """The pointer, which is always there, is not to be seen."""

    NAME = "labwc"
    TOOLS = (*CompositorDesktop.TOOLS, "wlr-randr")

    def _configure(self) -> tuple[str, ...]:
        configuration = self.folder / "labwc-configuration"
        configuration.mkdir()
        cursors = configuration / "icons/default/cursors"
        cursors.mkdir(parents=True)
        (cursors / "default").write_bytes(self._empty_cursor())
        self.environment["XCURSOR_PATH"] = str(configuration / "icons")
        return "-C", str(configuration)

    @staticmethod
    def _empty_cursor() -> bytes:
        """A file in the format Xcursor with one picture of one pixel, which is transparent."""
        kind, size, version = 0xFFFD0002, 24, 1
        header = struct.pack("<4s3I", b"Xcur", 16, 0x10000, 1) + struct.pack("<3I", kind, size, 28)
        return header + struct.pack("<10I", 36, kind, size, version, 1, 1, 0, 0, 0, 0)

    def _prepare(self) -> None:
        wait_until(self.outputs, "monitors")
        self.remove_monitor()
        self._place(self.FIRST, 0)

    def outputs(self) -> dict[str, Place]:
        places = {}
        for output in json.loads(self.output("wlr-randr", "--json") or "[]"):
            if not output["enabled"]:
                continue
            mode = next(mode for mode in output["modes"] if mode["current"])
            size = [round(mode[side] / output["scale"]) for side in ("width", "height")]
            is_turned = output["transform"] in ("90", "270", "flipped-90", "flipped-270")
            places[output["name"]] = (*(output["position"][axis] for axis in "xy"),
                                      *(reversed(size) if is_turned else size))
        return dict(sorted(places.items(), key=lambda each: each[1]))

    def set_output(self, name: str, setting: str, value: str) -> None:
        self.output("wlr-randr", "--output", name, f"--{setting}", value)

    def add_monitor(self) -> None:
        self._place(self.SECOND, self.size[0])
        wait_until(lambda: len(self.outputs()) == 2, "another monitor")

    def remove_monitor(self) -> None:
        self.output("wlr-randr", "--output", self.SECOND, "--off")
        wait_until(lambda: len(self.outputs()) == 1, "one monitor")

    def _place(self, name: str, x: int) -> None:
        self.output("wlr-randr", "--output", name, "--on", "--custom-mode", "{}x{}".format(*self.size),
                    "--pos", f"{x},0")
