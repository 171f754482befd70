# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The editor, from opening to what it leaves behind."""

import unittest

from application import on_full_disk
from desktop import Desktop, wait_until
from edge import EdgeTest

SQUARE = "Square  ·  2048 × 2048"
LARGE = "6K  ·  6016 × 3384"


class EditorTest(EdgeTest):
    """A person with a pointer, a keyboard and files."""

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(800, 800)

    def drag(self, name: str, x: int, y: int) -> None:
        """Drags from a control to a place, and lets go there."""
        left, top = self.reader.find(name).middle()
        before = self.draft()
        self.desktop.point_at(left, top)
        # On the control first, as a hand does: the press is seen while the pointer is still there.
        self.desktop.output("xdotool", "mousedown", "1", "mousemove", str(left + 12), str(top))
        wait_until(lambda: self.draft() != before, f"a drag of {name}")
        self.desktop.output("xdotool", "mousemove", str(x // 2), str(y), "mousemove", str(x), str(y))
        self.desktop.output("xdotool", "mouseup", "1")

    def wait_for_draft(self, what: str, **values: object) -> None:
        wait_until(lambda: all(self.draft().get(key) == value for key, value in values.items()), what)

    def test_a_draft_is_made_and_applied(self) -> None:
        before = self.application.new_wallpaper()
        self.application.open_editor()
        self.reader.find("Shuffle draft").press()
        wait_until(lambda: self.draft() not in ({}, before), "a draft")
        self.assertEqual(self.application.look(), before)
        self.reader.find("Apply to desktop").press()
        wait_until(lambda: self.application.look() != before, "the draft on the desktop")
        self.reader.find("Applied. Apply again")
        self.desktop.panel.choose("Close Editor")
        wait_until(lambda: "Open Editor" in self.desktop.panel.text(), "the menu without an editor")

    def test_a_drag_may_leave_the_window(self) -> None:
        self.open_editor()
        self.drag("Scale", 700, 100)
        self.wait_for_draft("the largest scale", scale=3)
        self.assertTrue(self.reader.has("Scale"), "it is no click elsewhere")
        # And it has ended there: the pointer may go back without the knob.
        self.desktop.point_at(*self.reader.find("Warp").middle())
        self.drag("Warp", 0, 700)
        self.wait_for_draft("no warp", warp=0, scale=3)

    def test_what_is_typed_reaches_nothing_that_is_hidden(self) -> None:
        self.open_editor()
        self.desktop.click_at(*self.reader.find("Seed").middle())
        self.reader.find("Color", "page tab").press()
        self.reader.find("Shift")
        self.desktop.press_keys("7", "Return")
        self.drag("Shift", 700, 700)
        self.wait_for_draft("the most shift", offset=1)
        self.assertEqual(self.draft()["seed"], 12)

    def test_looks_are_copied_pasted_undone_and_redone(self) -> None:
        self.open_editor()
        self.desktop.click_at(*self.reader.find("Plasma").middle())
        self.wait_for_draft("plasma", pattern=2)
        self.desktop.press_keys("ctrl+c")
        self.desktop.press_keys("ctrl+z")
        self.wait_for_draft("flow again", pattern=0)
        self.desktop.press_keys("ctrl+shift+z")
        self.wait_for_draft("plasma again", pattern=2)
        self.desktop.click_at(*self.reader.find("Mesh").middle())
        self.wait_for_draft("mesh", pattern=1)
        self.desktop.press_keys("ctrl+v")
        self.wait_for_draft("what was copied", pattern=2)

    def copy_elsewhere(self, text: str) -> None:
        """Has another program copy something."""
        file = self.desktop.folder / "copied"
        file.write_text(text)
        self.desktop.start("xclip", "-quiet", "-selection", "clipboard", "-in", str(file))
        wait_until(lambda: self.desktop.output("xclip", "-selection", "clipboard", "-out") == text, "what was copied")

    def test_what_another_program_copied_is_pasted(self) -> None:
        self.open_editor()
        self.copy_elsewhere('{"pattern": 5, "seed": 77}')
        self.desktop.press_keys("ctrl+v")
        self.wait_for_draft("the look that was pasted", pattern=5, seed=77)
        self.copy_elsewhere("words that are no look")
        self.desktop.press_keys("ctrl+v")
        self.reader.find("There is no look in that", "dialog")

    def test_a_palette_that_was_not_saved_goes_with_the_editor(self) -> None:
        self.open_editor()
        self.reader.find("Color", "page tab").press()
        self.desktop.click_at(*self.reader.find("New palette", "push button").middle())
        self.wait_for_focus("Colour 1")
        self.desktop.click_at(*self.reader.find("Hex").middle())
        self.desktop.press_keys("ctrl+a")
        self.desktop.output("xdotool", "type", "#0af")
        self.desktop.press_keys("Return")
        wait_until(lambda: self.reader.find("Colour 1").description() == "hex 00AAFF", "the colour")
        self.desktop.click_at(700, 700)
        self.wait_for_handle()
        self.open_editor()
        self.reader.find("Ember")
        self.assertFalse(self.reader.has("Mine 1"))
        self.assertNotIn("custom", self.draft())

    def test_names_of_any_kind(self) -> None:
        self.open_editor()
        self.reader.find("Presets", "page tab").press()
        names = ["صباح الخير يا بحر الصيف", "Früh am Meer 🌅", "Broth " * 83 + "ok"]
        for name in names:
            self.reader.find("Save as preset", "push button").press()
            self.reader.find("Save as preset", "text").write(name)
            self.reader.find("Save", "push button").press()
            tile = self.reader.find(name[:400].strip(), "radio button")  # as much as its field takes
            left, _, width, _ = tile.place()
            self.assertLessEqual(left + width, 12 + 312)
        wait_until(lambda: len(self.desktop.panel.row("Presets").children) == len(names) + 2, "rows in the menu")
        titles = [row.title for row in self.desktop.panel.row("Presets").children]
        self.assertEqual(titles[:2], names[:2])
        self.assertLess(len(titles[2]), 100)

    def test_quits_in_silence(self) -> None:
        self.open_editor()
        self.assertEqual(self.application.quit(), 0)
        self.assertEqual(self.application.log_file.read_text(), "")


class ExportTest(EdgeTest):
    """Pictures that are saved, and those that cannot be."""

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(1100, 700)

    def export(self, file: object, size: str = SQUARE) -> None:
        self.reader.find("Export PNG", "button menu").press()
        self.reader.find(size, "menu item").press()
        self.reader.find("File name:", "text").write(str(file))
        self.reader.find("Save", "push button").press()

    def start_on_full_disk(self) -> None:
        """With a look whose pictures do not fit, and the editor open."""
        self.application.quit()
        self.write_settings(look={"pattern": 5, "pixel": 2, "dither": 4})
        self.application.start(*on_full_disk(64))
        self.open_editor()

    def expect_failure(self, *words: str) -> None:
        sheet = self.reader.find("Could not save that PNG", "dialog")
        for word in words:
            self.assertIn(word, sheet.description())
        self.reader.find("OK", "push button").press()
        self.reader.wait_until_gone("Could not save that PNG")

    def test_saves_replaces_and_refuses(self) -> None:
        self.open_editor()
        file = self.desktop.folder / "home/bowl.png"
        self.export(file)
        wait_until(file.exists, "the picture")
        first = file.stat().st_ino
        self.export(file)
        self.reader.find("Yes", "push button").press()
        wait_until(lambda: file.stat().st_ino != first, "another picture in its place")
        self.export(file / "below.png")
        self.expect_failure(str(file), "is not a folder")

    def test_a_full_disk_is_told(self) -> None:
        self.start_on_full_disk()
        file = self.desktop.folder / "home/bowl.png"
        self.export(file)
        self.expect_failure(str(file), "larger than is allowed")
        self.assertFalse(file.exists())

    def test_a_failure_is_told_without_the_editor_too(self) -> None:
        self.start_on_full_disk()
        file = self.desktop.folder / "home/large.png"
        self.export(file, LARGE)
        self.desktop.panel.choose("Close Editor")
        wait_until(lambda: any(title == "Could not save that PNG" and str(file) in text
                               for title, text in self.desktop.panel.messages), "a message", 60)


if __name__ == "__main__":
    unittest.main()
