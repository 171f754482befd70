# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A Wayland desktop of its own for a test: a compositor with monitors that nobody sees."""

import json
import os
import shutil
import subprocess
from io import BytesIO

from PIL import Image

from desktop import Desktop, Place, Window, wait_until

CONFIGURATION = """xwayland disable
output * resolution {}x{} bg #406080 solid_color
"""


class SwayDesktop(Desktop):
    """Sway draws it with the processor; nobody draws icons, and there is no panel but what the buses say."""

    def _start_display(self) -> None:
        self.runtime = self.folder / "sway"
        self.runtime.mkdir(mode=0o700)
        (self.folder / "sway.conf").write_text(CONFIGURATION.format(*self.size))
        self._start_compositor()

    def _start_compositor(self) -> None:
        user: tuple[str, ...] = ()
        if os.geteuid() == 0:
            # It refuses to run as root.
            user = ("setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups")
            self.folder.chmod(0o711)
            shutil.chown(self.runtime, "nobody")
        settings = {"XDG_RUNTIME_DIR": str(self.runtime), "WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman",
                    "WLR_LIBINPUT_NO_DEVICES": "1", "XDG_CURRENT_DESKTOP": "sway"}
        self.compositor = self.start("env", *(f"{key}={settings[key]}" for key in settings), *user,
                                     "sway", "-c", str(self.folder / "sway.conf"))
        control = wait_until(lambda: list(self.runtime.glob("sway-ipc.*.sock")), "sway")[0]
        socket = wait_until(lambda: [file for file in self.runtime.glob("wayland-?") if file.is_socket()],
                            "a Wayland display")[0]
        self.environment |= {"WAYLAND_DISPLAY": str(socket), "SWAYSOCK": str(control),
                             "XDG_SESSION_TYPE": "wayland", "XDG_CURRENT_DESKTOP": "sway"}
        wait_until(self.monitors, "a monitor")

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

    def tell(self, *command: str) -> None:
        self.output("swaymsg", *command)

    def outputs(self) -> list[dict]:
        """The monitors that are on, from left to right."""
        outputs = json.loads(self.output("swaymsg", "-r", "-t", "get_outputs") or "[]")
        return sorted((output for output in outputs if output["active"]), key=lambda each: each["rect"]["x"])

    def monitors(self) -> list[Place]:
        return [tuple(output["rect"][key] for key in ("x", "y", "width", "height"))
                for output in self.outputs()]

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
