# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The desktop that scripts run programs on."""

import os
import subprocess
import unittest
from contextlib import suppress
from pathlib import Path

SCRIPT = Path(__file__).parents[2] / "scripts/virtual-desktop"
# It has the bus start one of its services, and waits to be ended.
COMMAND = """gdbus call --session --dest org.a11y.Bus --object-path /org/a11y/bus \\
    --method org.a11y.Bus.GetAddress >/dev/null && echo ready && read -r line; exit 3"""


def others_with(file: int) -> set[str]:
    """The names of all other processes that have a file of ours open."""
    wanted = os.readlink(f"/proc/self/fd/{file}")
    names = set()
    for link in Path("/proc").glob("[0-9]*/fd/*"):
        with suppress(OSError):
            if os.readlink(link) == wanted and link.parts[2] != str(os.getpid()):
                names.add(Path(*link.parts[:3], "comm").read_text().strip())
    return names


class VirtualDesktopTest(unittest.TestCase):
    def test_leaves_the_output_to_the_command(self) -> None:
        with subprocess.Popen([SCRIPT, "sh", "-c", COMMAND], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True) as process:
            self.assertEqual(process.stdout.readline(), "ready\n")
            self.assertEqual(others_with(process.stdout.fileno()), {"bash", "sh"})
            rest, _ = process.communicate("\n")
        self.assertEqual((rest, process.returncode), ("", 3))


if __name__ == "__main__":
    unittest.main()
