# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A language that nobody speaks, written from right to left: every text of the program in Arabic letters, about as long
as in English, with its marks. It shows what cannot be translated or is not mirrored. To see it:

    /usr/bin/python3 tests/desktop/pseudo_language.py FOLDER
    LANGUAGE=ar LC_ALL=ar_EG.UTF-8 TESSEL_TRANSLATIONS=FOLDER tessel-broth
"""

import os
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

SOURCE = Path(__file__).parents[2] / "translations/tessel-broth_de.ts"
LRELEASE = os.environ.get("TESSEL_LRELEASE") or "/usr/lib/qt6/bin/lrelease"
ENVIRONMENT = {"LC_ALL": "ar_EG.UTF-8", "LANGUAGE": "ar"}

LETTERS = str.maketrans("abcdefghijklmnopqrstuvwxyz", "ابجدهفغحيخكلمنوبقرستعطسصيز")
KEPT = re.compile(r"(%L?\d|%n|<[^>]+>|\*\.\w+)")
PLURAL_FORMS = 6


def pseudo(text: str) -> str:
    """A text in this language."""
    return "".join(part if KEPT.fullmatch(part) else part.lower().translate(LETTERS) for part in KEPT.split(text))


def make(folder: Path) -> None:
    """Writes its .qm file, which TESSEL_TRANSLATIONS makes the program take."""
    tree = ElementTree.parse(SOURCE)
    tree.getroot().set("language", "ar")
    for message in tree.getroot().iter("message"):
        translation = message.find("translation")
        text = pseudo(message.findtext("source"))
        if message.get("numerus"):
            for form in list(translation):
                translation.remove(form)
            for _ in range(PLURAL_FORMS):
                ElementTree.SubElement(translation, "numerusform").text = text
        else:
            translation.text = text
    file = folder / "tessel-broth_ar.ts"
    tree.write(file, encoding="utf-8", xml_declaration=True)
    subprocess.run([LRELEASE, "-silent", str(file)], check=True, timeout=60)


if __name__ == "__main__":
    make(Path(sys.argv[1]))
