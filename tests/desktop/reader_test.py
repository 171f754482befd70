# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The handle, the strip and the editor for a person with a screen reader."""

import unittest
from contextlib import suppress

from gi.repository import GLib

from accessibility import CHECKED, ENABLED, FOCUSABLE, SELECTED, Element
from desktop import Desktop, wait_until
from edge import EdgeTest

UNAVAILABLE = "Not available now"

# What can be done to what; everything else is only read out.
ACTIONS = {"push button": "Press", "button menu": "Press", "menu item": "Press", "page tab": "Press",
           "radio button": "Press", "check box": "Toggle", "slider": "Increase", "text": "SetFocus"}
READ_OUT = {"application", "frame", "panel", "heading", "label", "list", "page tab list", "popup menu", "dialog",
            "progress bar"}


class ReaderTest(EdgeTest):
    """Every control of every state has a name, a role, a state or value, and an action that works."""

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(800, 800)

    # What holds everywhere

    def walk(self, state: str) -> None:
        """Looks at all that is shown, again from the beginning if some of it went away meanwhile."""
        found = []

        def is_seen() -> bool:
            with suppress(GLib.Error):
                found[:] = [f"{state}: {fault}" for element in self.reader.shown() for fault in self.faults(element)]
                return True
            return False

        wait_until(is_seen, "elements that stay for a moment")
        self.assertEqual(found, [])

    def faults(self, element: Element) -> list[str]:
        name, role, action = element.name(), element.role(), ACTIONS.get(element.role())
        who = f"{role} {name!r}"
        faults = []
        if not name.strip():
            faults.append(f"{who} at {element.place()} has no name")
        if action is None:
            return faults if role in READ_OUT else [*faults, f"{who} is of no role that is expected"]
        if action not in element.actions():
            faults.append(f"{who} cannot do {action}")
        is_available = element.has(ENABLED) and element.description() != UNAVAILABLE
        # Rows of Qt's own menus do not say so.
        if is_available and role != "menu item" and not element.has(FOCUSABLE):
            faults.append(f"{who} cannot have the focus")
        if role == "slider" and not element.limits()[0] <= element.value() <= element.limits()[1]:
            faults.append(f"{who} is at {element.value()}, out of {element.limits()}")
        return faults

    def choose(self, name: str, role: str, state: int) -> None:
        element = self.reader.find(name, role)
        element.press()
        wait_until(lambda: element.has(state), f"{name!r} chosen")

    def open_tab(self, name: str) -> None:
        self.choose(name, "page tab", SELECTED)
        self.walk(name)

    def adjust(self, *names: str) -> None:
        """Turns sliders up, down, and to their upper limits."""
        for name in names:
            slider = self.reader.find(name, "slider")
            before = slider.value()
            slider.do("Increase")
            wait_until(lambda: slider.value() > before, f"more {name}")
            slider.do("Decrease")
            wait_until(lambda: abs(slider.value() - before) < 0.02, f"{name} as before")
            slider.set_value(slider.limits()[1])
            wait_until(lambda: abs(slider.value() - slider.limits()[1]) < 0.01, f"the most {name}")

    def toggle(self, name: str) -> None:
        box = self.reader.find(name, "check box")
        for is_on in (True, False):
            box.do("Toggle")
            wait_until(lambda: box.has(CHECKED) == is_on, f"{name} {is_on}")

    # States

    def test_handle_and_strip(self) -> None:
        handle = self.reader.find("Tessel Broth", "push button")
        self.assertEqual(handle.description(), "Shows quick actions")
        self.walk("handle")
        handle.press()
        previous = self.reader.find("No previous wallpaper", "push button")
        self.assertEqual(previous.description(), UNAVAILABLE)
        self.walk("strip")
        previous.press()
        fresh = self.reader.find("New wallpaper")
        fresh.press()
        first = wait_until(self.application.look, "a look")
        fresh.press()
        wait_until(lambda: self.application.look() != first, "another look")
        self.reader.find("Previous wallpaper").press()
        wait_until(lambda: self.application.look() == first, "the look before")
        self.reader.find("Still · click to animate").press()
        self.reader.find("Animated · click to freeze").press()
        self.reader.find("Still · click to animate")
        self.reader.find("Presets", "push button").press()
        self.reader.find("Save as Preset...", "menu item")
        self.walk("presets menu")
        self.desktop.press_keys("Escape")
        self.reader.wait_until_gone("Save as Preset...")
        self.reader.find("Open editor", "push button").press()
        self.reader.find("Shuffle draft")

    def test_shape_and_what_is_around(self) -> None:
        self.application.open_editor()
        self.assertEqual(self.reader.find("Undo").description(), UNAVAILABLE)
        self.open_tab("Shape")
        self.choose("Mesh", "radio button", CHECKED)
        self.reader.find("Preview: Mesh Ember").press()
        wait_until(lambda: self.reader.find("Preview: Mesh Ember").description() == "Held still", "a still preview")
        self.adjust("Scale", "Warp", "Speed", "Seed")
        self.reader.find("Undo").press()
        wait_until(lambda: self.reader.find("Flow").has(CHECKED), "the shape before")
        self.choose("Animated", "radio button", CHECKED)
        self.reader.find("Plays behind your desktop icons. Speed sets the pace.", "label")
        self.reader.find("Apply to desktop").press()
        self.reader.find("Applied. Apply again")
        self.reader.find("On desktop", "label")
        self.reader.find("Export PNG", "button menu").press()
        self.reader.find("Square  ·  2048 × 2048", "menu item")
        self.walk("export menu")
        self.desktop.press_keys("Escape")
        self.reader.wait_until_gone("Square  ·  2048 × 2048")
        self.reader.find("Close").press()
        self.reader.find("Tessel Broth", "push button")

    def test_colour_and_dither(self) -> None:
        self.application.open_editor()
        self.open_tab("Color")
        self.choose("Tide", "radio button", CHECKED)
        self.adjust("Shift", "Contrast", "Grain", "Vignette")
        self.toggle("Invert")
        self.reader.find("New palette", "push button").press()
        self.reader.find("Colour 1", "radio button")
        self.walk("palette edit")
        self.choose("Colour 2", "radio button", CHECKED)
        field = self.reader.find("Hex", "text")
        field.write("4c7f99")
        wait_until(lambda: self.reader.find("Colour 2").description() == "hex 4C7F99", "the colour that was written")
        self.adjust("Hue", "Saturation", "Brightness")
        self.reader.find("Remove the last colour").press()
        self.reader.wait_until_gone("Colour 5")
        self.reader.find("Add a colour").press()
        self.reader.find("Colour 5")
        self.reader.find("Save").press()
        wait_until(lambda: self.reader.find("Mine 1", "radio button").has(CHECKED), "a palette of one's own")
        self.reader.find("Mine 1").do("SetFocus")
        self.desktop.press_keys("Delete")
        self.reader.find('Delete "Mine 1"?', "dialog")
        self.walk("question")
        self.reader.find("Delete", "push button").press()
        self.reader.wait_until_gone("Mine 1")
        self.open_tab("Dither")
        self.choose("Smooth", "radio button", CHECKED)
        self.adjust("Pixel", "Levels")

    def test_presets(self) -> None:
        self.application.open_editor()
        self.open_tab("Presets")
        self.reader.find("Save as preset", "push button").press()
        field = self.reader.find("Save as preset", "text")
        wait_until(field.is_focused, "the focus in the field")
        self.walk("save sheet")
        self.assertEqual(field.text(), "Flow Ember")
        field.write("Sunday borscht")
        self.reader.find("Save", "push button").press()
        preset = self.reader.find("Sunday borscht", "radio button")
        self.assertTrue(preset.has(CHECKED))
        self.walk("presets")
        preset.do("SetFocus")
        self.desktop.press_keys("Menu")
        self.reader.find("Rename...", "menu item")
        self.walk("menu of a preset")
        self.reader.find("Rename...").press()
        self.reader.find("Rename preset", "text").write("Monday")
        self.reader.find("Rename", "push button").press()
        self.reader.find("Monday", "radio button").do("SetFocus")
        self.desktop.press_keys("Menu")
        self.reader.find("Delete", "menu item").press()
        self.reader.wait_until_gone("Monday", "radio button")


if __name__ == "__main__":
    unittest.main()
