# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The application in other languages than English."""

import tempfile
import unittest
from pathlib import Path

import pseudo_language
from accessibility import Element
from desktop import Desktop, wait_until
from edge import EDITOR_ROW, EdgeTest
from pseudo_language import pseudo


class LanguageTest(EdgeTest):
    """An application in the language of its environment."""

    language: dict[str, str] = {}

    @classmethod
    def make_desktop(cls) -> Desktop:
        return Desktop(800, 800)

    @classmethod
    def setUpClass(cls) -> None:
        super().setUpClass()
        cls.desktop.environment.update(cls.language)

    def open_editor(self) -> None:
        self.open_strip()
        self.click_row(EDITOR_ROW)


class GermanTest(LanguageTest):
    """The translation that travels inside the program."""

    language = {"LC_ALL": "de_DE.UTF-8", "LANGUAGE": "de:en"}

    def test_everything_is_german(self) -> None:
        self.assertIn("Neues Hintergrundbild", self.desktop.panel.text())
        self.open_editor()
        self.reader.find("Farbe", "page tab").press()
        self.reader.find("Verschiebung", "slider")
        # Shown as 1,15, which a screen reader is told as a number.
        wait_until(lambda: self.reader.find("Kontrast", "slider").value() == 1.15, "the contrast")
        self.reader.find("Vorlagen", "page tab").press()
        self.reader.find("Als Vorlage speichern", "push button").press()
        self.reader.find("Abbrechen", "push button").press()
        self.reader.find("Auf den Desktop anwenden", "push button")
        english = {"Close", "Undo", "Color", "Presets", "Still", "Animated", "Save", "Cancel"}
        self.assertEqual({element.name() for element in self.reader.shown()} & english, set())


class EnglishBeforeGermanTest(LanguageTest):
    """Whoever reads English first is not given what comes after it."""

    language = {"LC_ALL": "en_GB.UTF-8", "LANGUAGE": "en_GB:de"}

    def test_it_is_english(self) -> None:
        self.assertIn("New Wallpaper", self.desktop.panel.text())


class RightToLeftTest(LanguageTest):
    """A language that is read from the right."""

    language = pseudo_language.ENVIRONMENT

    @classmethod
    def setUpClass(cls) -> None:
        super().setUpClass()
        folder = cls.enterClassContext(tempfile.TemporaryDirectory(prefix="tessel-language-"))
        pseudo_language.make(Path(folder))
        cls.desktop.environment["TESSEL_TRANSLATIONS"] = folder

    def find(self, name: str) -> Element:
        return self.reader.find(pseudo(name))

    def test_the_editor_is_mirrored_and_values_are_not(self) -> None:
        self.open_editor()
        self.assertGreater(self.find("Undo").middle(), self.find("Close").middle())
        self.assertGreater(self.find("Shape").middle(), self.find("Presets").middle())
        scale = self.find("Scale")
        self.assertGreater(scale.middle(), self.find("Warp").middle())
        before = scale.value()
        self.desktop.click_at(*scale.middle())
        self.desktop.press_keys("Right")
        wait_until(lambda: scale.value() > before, "more to the right")


if __name__ == "__main__":
    unittest.main()
