# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The whole application on a Wayland compositor that lets programs stand below and above windows."""

import json
import socket
import struct
import threading
import unittest
from collections.abc import Iterator

from gi.repository import GLib
from PIL import Image

from application import NAME, ApplicationTest, has_ended
from compositor import CompositorDesktop, SwayDesktop
from desktop import Desktop, Place, call, descendants, wait_until

SHELL = (0x14, 0x10, 0x0D)  # the ground of strip and editor


class WaylandTest(ApplicationTest):
    """Nothing but the compositor and its protocols: no X server, no desktop that draws a background."""

    desktop: CompositorDesktop

    @classmethod
    def make_desktop(cls) -> CompositorDesktop:
        return SwayDesktop()

    def shows_panel(self) -> bool:
        return SHELL in self.desktop.screenshot().crop((0, 100, 60, 500)).getdata()

    def test_it_plays_and_rests_as_a_picture(self) -> None:
        self.application.start()
        self.application.play()
        self.application.show_still()
        self.application.wait_until_idle()
        # The picture is there again as soon as the program is.
        self.assertEqual(self.application.quit(), 0)
        self.application.start()
        wait_until(self.application.shows_still, "the same picture")
        self.application.play()
        self.application.quit()
        self.application.start()
        self.application.wait_for_motion()

    def test_nothing_is_drawn_under_a_window_that_fills_the_screen(self) -> None:
        self.application.start()
        self.application.play()
        window = self.desktop.start("foot", "--fullscreen", "sleep", "1000")
        self.addCleanup(window.kill)
        self.application.wait_until_idle()
        window.kill()
        window.wait()
        self.application.wait_for_motion()

    def test_it_stays_above_another_wallpaper(self) -> None:
        self.application.start()
        self.application.play()
        self.application.show_still()
        self.application.play()
        other = self.desktop.start("swaybg", "-c", "#00ff00")
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        wait_until(lambda: (0, 255, 0) not in self.desktop.screenshot().getdata(), "our wallpaper")
        self.application.wait_for_motion()

    def test_handle_and_editor_are_there_and_take_keys(self) -> None:
        self.application.write_settings(handleHidden="false")
        self.application.start()
        self.application.new_wallpaper()
        self.application.open_editor()
        wait_until(self.shows_panel, "the editor")
        # The keyboard is there only while the tool runs; it waits until that is known.
        wait_until(lambda: self.desktop.output("wtype", "-s", "1000", "-k", "Escape", "-s", "500") or
                   not self.shows_panel(), "the editor's end", 60)


class TextSizeTest(ApplicationTest):
    """A portal through which the desktop tells how large its text is."""

    desktop: SwayDesktop
    PORTAL = "org.freedesktop.portal.Desktop"
    PATH = "/org/freedesktop/portal/desktop"
    SETTINGS = "org.freedesktop.portal.Settings"
    MOCK = "org.freedesktop.DBus.Mock"
    SETTING = ("org.gnome.desktop.interface", "text-scaling-factor")

    @classmethod
    def make_desktop(cls) -> SwayDesktop:
        return SwayDesktop(1200, 900)

    @classmethod
    def setUpClass(cls) -> None:
        super().setUpClass()
        cls.desktop.start("/usr/bin/python3", "-m", "dbusmock", cls.PORTAL, cls.PATH, cls.SETTINGS)
        cls.desktop.wait_for_name(cls.PORTAL)
        answer = "ret = dbus.Double(1.5 if args[1] == 'text-scaling-factor' else 0, variant_level=1)"
        call(cls.desktop.bus, cls.PORTAL, cls.PATH, f"{cls.MOCK}.AddMethod",
             GLib.Variant("(sssss)", (cls.SETTINGS, "Read", "ss", "v", answer)))

    def set_scale(self, scale: float) -> None:
        values = [GLib.Variant("s", name) for name in self.SETTING] + [GLib.Variant("v", GLib.Variant("d", scale))]
        call(self.desktop.bus, self.PORTAL, self.PATH, f"{self.MOCK}.EmitSignal",
             GLib.Variant("(sssav)", (self.SETTINGS, "SettingChanged", "ssv", values)))

    def shell_width(self) -> int:
        """How wide the panel is in the middle of the screen: from its first to its last pixel of that colour."""
        row = list(self.desktop.screenshot().crop((0, 450, 1200, 451)).getdata())
        return len(row) - row[::-1].index(SHELL) - row.index(SHELL) if SHELL in row else 0

    def wait_for_width(self, scale: float) -> None:
        wait_until(lambda: abs(self.shell_width() - scale * 312) < 8 * scale, f"an editor {scale} times as large")

    def test_the_interface_is_as_large_as_text(self) -> None:
        self.application.write_settings(handleHidden="false")
        self.application.start()
        self.application.open_editor()
        for scale in (1.5, 1.0, 1.25):
            if scale != 1.5:
                self.set_scale(scale)
            self.wait_for_width(scale)

    def introduction(self) -> Place | None:
        """Where it lies."""
        def below(node: dict) -> Iterator[dict]:
            yield node
            for child in node["nodes"] + node["floating_nodes"]:
                yield from below(child)

        tree = json.loads(self.desktop.output("swaymsg", "-r", "-t", "get_tree"))
        places = [node["rect"] for node in below(tree) if node.get("pid") == self.application.process.pid]
        return tuple(places[0][key] for key in ("x", "y", "width", "height")) if places else None

    def test_the_introduction_is_as_large_and_on_the_screen(self) -> None:
        self.application.settings_file.unlink()
        self.application.start()
        wait_until(lambda: self.introduction() == (0, 68, 1200, 764), "all of it on the screen")
        self.set_scale(1.0)
        wait_until(lambda: self.introduction() == (160, 170, 880, 560), "its usual size")


class MonitorsTest(ApplicationTest):
    """Monitors that come and change."""

    desktop: CompositorDesktop
    SIZE = (900, 600)  # whole numbers of points at a scale of 1.5 too

    @classmethod
    def make_desktop(cls) -> CompositorDesktop:
        return SwayDesktop(*cls.SIZE)

    def shows_still_in_pixels(self) -> bool:
        """Whether each monitor shows, in its own pixels, the newest picture that was made for it."""
        outputs = self.desktop.outputs()
        newest = self.application.pictures()[-len(outputs):]
        if len(newest) < len(outputs):
            return False
        shown = []
        for name, file in zip(outputs, newest):
            with Image.open(file) as picture:
                shown.append(picture.convert("RGB").tobytes() == self.desktop.screenshot(name).tobytes())
        return all(shown)

    def test_each_shows_its_own_pixels(self) -> None:
        self.application.start()
        self.application.play()
        self.desktop.add_monitor()
        self.application.show_still()
        for change in (("scale", "1.5"), ("transform", "90"), ("scale", "2"), ("transform", "normal")):
            with self.subTest(change=change):
                self.desktop.set_output(self.desktop.SECOND, *change)
                wait_until(self.shows_still_in_pixels, "pictures of the monitors' own pixels", 60)
        self.application.play()


class EndOfCompositorTest(ApplicationTest):
    """A compositor that dies takes every program with it."""

    desktop: SwayDesktop

    @classmethod
    def make_desktop(cls) -> SwayDesktop:
        return SwayDesktop()

    def test_nothing_is_lost_and_one_that_is_back_is_joined(self) -> None:
        self.application.start()
        look = self.application.new_wallpaper()
        self.application.show_still()
        self.addCleanup(self.application.kill_successor)
        for _ in range(2):
            self.desktop.panel.item = None
            self.desktop.restart()
            self.application.wait_for_still()
            wait_until(lambda: self.desktop.panel.item, "the icon in the panel")
            self.assertEqual(self.application.look(), look)
        self.application.process.wait()
        self.desktop.panel.choose("Quit Tessel Broth")
        wait_until(lambda: not self.desktop.has_name(NAME), "the end of the application")

    def test_nobody_takes_the_place_of_a_program_that_is_killed(self) -> None:
        self.application.start()
        stands_by, = descendants(self.application.process.pid)
        self.application.kill()
        wait_until(lambda: has_ended(stands_by), "the end of what stands by")
        self.assertFalse(self.desktop.has_name(NAME))


class BareCompositor(threading.Thread):
    """A compositor that offers nothing; it answers that it has heard, and no more."""

    SYNC = (1, 0)  # the request of the display, whose answer goes to the object that it names
    HEADER = struct.Struct("=IHH")  # object, request, length

    def __init__(self, path: str) -> None:
        super().__init__(daemon=True)
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(path)
        self.listener.listen()
        self.start()

    def run(self) -> None:
        while True:
            threading.Thread(target=self.serve, args=self.listener.accept()[:1], daemon=True).start()

    def serve(self, client: socket.socket) -> None:
        with client, client.makefile("rb") as stream:
            while header := stream.read(self.HEADER.size):
                receiver, request, length = self.HEADER.unpack(header)
                arguments = stream.read(length - self.HEADER.size)
                if (receiver, request) == self.SYNC:
                    client.send(self.HEADER.pack(struct.unpack("=I", arguments)[0], 0, 12) + bytes(4))


class OldProgramsTest(ApplicationTest):
    """A desktop on Wayland whose compositor has no layers, as GNOME's, and an X server for old programs."""

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop()

    def test_the_handle_is_on_the_x_server(self) -> None:
        display = str(self.desktop.folder / "wayland-0")
        BareCompositor(display)
        # What Qt would follow by itself.
        self.desktop.environment |= {"WAYLAND_DISPLAY": display, "XDG_SESSION_TYPE": "wayland",
                                     "XDG_CURRENT_DESKTOP": "Unity"}
        self.application.write_settings(handleHidden="false")
        self.application.start()
        wait_until(lambda: any(window.program() == "tessel-broth" and window.is_mapped()
                               for window in self.desktop.windows()), "the handle")
