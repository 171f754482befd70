# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The translations are complete, belong to the texts of today, and keep what is not for translators to change."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from collections.abc import Iterator
from pathlib import Path

ROOT = Path(__file__).parents[2]
FILES = sorted((ROOT / "translations").glob("*.ts"))
LUPDATE = os.environ.get("TESSEL_LUPDATE", "").split("|")
LUPDATE_VERSION = "6.4"

# What is put in, what is underlined, and how a text goes on.
MARKS = re.compile(r"%L?\d|%n|&\w|<[^>]+>|\n|…$|\*\.\w+")


def messages(file: Path) -> Iterator[tuple[str, ElementTree.Element]]:
    """All texts, each with its context."""
    for context in ElementTree.parse(file).getroot().findall("context"):
        for message in context.findall("message"):
            yield context.findtext("name"), message


def contents(file: Path) -> set[tuple[str, ...]]:
    """What lupdate has found, without the translations."""
    return {(context, message.get("numerus", ""), *(message.findtext(tag, "") for tag in
                                                     ("source", "comment", "extracomment")))
            for context, message in messages(file)}


def translations(message: ElementTree.Element) -> list[str]:
    """The translation, or each of its plural forms."""
    found = message.find("translation")
    forms = found.findall("numerusform")
    return [form.text or "" for form in forms] if forms else [found.text or ""]


def marks(text: str) -> list[str]:
    """Those of a text; three dots are as good as the character for them, which languages set in their ways."""
    return sorted(MARKS.findall(re.sub(r"\.\.\.$", "…", text)))


def contexts_at_run_time() -> set[str]:
    """The contexts in which texts are looked up: classes with a meta object, names that are written down, and QML
    files."""
    found = {path.stem for path in (ROOT / "src").rglob("*.qml")}
    for path in (ROOT / "src").rglob("*.[ch]*"):
        text = path.read_text()
        found.update(re.findall(r"Q_DECLARE_TR_FUNCTIONS\((\w+)\)", text))
        found.update(re.findall(r"(?:translate|QT_TRANSLATE_NOOP)\(\s*\"(\w+)\"", text))
        found.update(f"tessel::{name}"
                     for name in re.findall(r"class (\w+)(?: final)?(?:\s*:[^{;]*)?\s*\{\s*Q_OBJECT", text))
    return found


class TranslationsTest(unittest.TestCase):
    """Every file, in all ways in which it could be wrong without anybody who reads it."""

    def test_hold_the_texts_of_today(self) -> None:
        version = subprocess.run([LUPDATE[0], "-version"], check=True, capture_output=True, text=True).stdout
        if f" {LUPDATE_VERSION}." not in version:  # such as 6.8, which loses the namespace of some classes
            self.skipTest(f"the files are made by lupdate {LUPDATE_VERSION}, this is {version.strip()}")
        with tempfile.TemporaryDirectory() as folder:
            for file in FILES:
                copy = Path(shutil.copy(file, folder))
                subprocess.run([*LUPDATE, str(copy)], check=True, capture_output=True, timeout=300)
                self.assertEqual(contents(file) ^ contents(copy), set(),
                                 f"{file.name}: have the target \"translations\" made, and translate what is new")

    def test_are_complete(self) -> None:
        self.assertNotEqual(FILES, [])
        for file in FILES:
            for context, message in messages(file):
                with self.subTest(f"{file.name}, {context}: {message.findtext('source')}"):
                    self.assertIsNone(message.find("translation").get("type"))
                    self.assertNotIn("", translations(message))

    def test_keep_marks(self) -> None:
        for file in FILES:
            for context, message in messages(file):
                wanted = marks(message.findtext("source"))
                for translation in translations(message):
                    with self.subTest(f"{file.name}, {context}: {translation}"):
                        self.assertEqual(marks(translation), wanted)

    def test_are_looked_up_where_they_were_found(self) -> None:
        for file in FILES:
            self.assertEqual({context for context, _ in messages(file)} - contexts_at_run_time(), set(), file.name)


if __name__ == "__main__":
    unittest.main()
