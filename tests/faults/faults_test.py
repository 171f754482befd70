# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What is stored, while the program is killed at every step of storing it and the disk fails at every step.

Every kind of file is stored once under strace, which counts the system calls that a fault can hit. Then it is
stored again for each of them with the fault injected there, and afterwards it must be what it was before or what
it was to become, and the next time must leave nothing behind but what belongs there.

    TESSEL_BINARIES=build/bin python3 -m unittest faults_test
"""

import json
import os
import random
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from collections import Counter
from pathlib import Path

BINARIES = Path(os.environ.get("TESSEL_BINARIES") or Path(__file__).parents[2] / "build/bin").resolve()
DRIVER = BINARIES / "fault_driver"
TOOL = BINARIES / "tessel"

WRITING = ("write", "pwrite64", "fsync", "fdatasync", "rename", "renameat", "renameat2", "link", "linkat",
           "unlink", "unlinkat", "fchmod", "mkdir")
FAILURES = {"write": ("ENOSPC", "EIO"), "fsync": ("EIO", "ENOSPC"), "rename": ("EIO", "EROFS"),
            "linkat": ("EPERM",), "unlink": ("EACCES",), "fchmod": ("EPERM",), "mkdir": ("EROFS", "ENOSPC")}
RANDOM_KILLS = int(os.environ.get("TESSEL_RANDOM_KILLS", "60"))


def environment(home: Path) -> dict[str, str]:
    return {**os.environ, "HOME": str(home), "XDG_CACHE_HOME": str(home / "cache"), "XDG_RUNTIME_DIR": str(home),
            "QT_QPA_PLATFORM": "offscreen", "LIBGL_ALWAYS_SOFTWARE": "1", "MESA_SHADER_CACHE_DISABLE": "true",
            "LC_ALL": "C.UTF-8"}


def can_trace() -> bool:
    return shutil.which("strace") is not None and subprocess.run(
        ["strace", "-f", "-o", "/dev/null", "true"], capture_output=True, check=False).returncode == 0


class Scene:
    """A folder with one kind of file in it, as it is before it is stored anew."""

    def __init__(self, home: Path, template: Path | None = None) -> None:
        """template: the home of such a scene, to begin with a copy of it"""
        self.folder = home / "folder"
        if template:
            shutil.copytree(template, home, dirs_exist_ok=True)
        else:
            self.folder.mkdir()
            self.prepare()

    def run(self, *command: object, wrapper: tuple[str, ...] = ()) -> subprocess.CompletedProcess:
        variables = environment(self.folder.parent)
        if wrapper:  # where programs are traced, leaks cannot be looked for
            variables["ASAN_OPTIONS"] = variables.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
        return subprocess.run([*wrapper, *map(str, command)], env=variables,
                              capture_output=True, text=True, timeout=60, check=False)

    def names(self) -> set[str]:
        return {file.name for file in self.folder.iterdir()}

    # What each kind of file has of its own

    def prepare(self) -> None:
        raise NotImplementedError

    def command(self) -> tuple[object, ...]:
        """What stores it anew."""
        raise NotImplementedError

    def next_command(self) -> tuple[object, ...]:
        """What stores it once more."""
        return self.command()

    def state(self) -> object:
        """What is stored now; raises an error if that is damaged."""
        raise NotImplementedError

    def expected_names(self) -> set[str]:
        """Which files there are once it was stored without a fault."""
        raise NotImplementedError


class Settings(Scene):
    @property
    def file(self) -> Path:
        return self.folder / "broth.conf"

    def prepare(self) -> None:
        for seed in (1, 2):
            self.run(DRIVER, "apply", self.file, seed).check_returncode()

    def command(self) -> tuple[object, ...]:
        return DRIVER, "apply", self.file, 3

    def next_command(self) -> tuple[object, ...]:
        # The same look again would change nothing, and nothing would be written.
        return DRIVER, "apply", self.file, 4

    def state(self) -> object:
        shown = self.run(DRIVER, "show", self.file)
        shown.check_returncode()
        first, *problems = shown.stdout.splitlines()
        if problems:
            raise AssertionError(problems)
        state = json.loads(first)
        return state["desktop"]["seed"], state["history"]

    def expected_names(self) -> set[str]:
        return {"broth.conf", "broth.conf.previous"}


class SettingsFile(Settings):
    """The same, written by the thread that asks: a fault hits nothing but the file."""

    def command(self) -> tuple[object, ...]:
        return DRIVER, "write", self.file, 3


class Still(Scene):
    """More of them than are kept, and other files that look alike."""

    FOREIGN = {"wall-of-fame.jpg", "wall-notes.txt", "span-holiday.png", ".tessel-notes.tmp"}

    def prepare(self) -> None:
        for name in self.FOREIGN:
            (self.folder / name).write_text("somebody else's")
        for number in range(1, 6):
            self.run(DRIVER, "still", self.folder, number).check_returncode()

    def command(self) -> tuple[object, ...]:
        return DRIVER, "still", self.folder, 6

    def state(self) -> object:
        numbers = []
        for name in self.names():
            if found := re.fullmatch(r"wall-(\d{14})-0\.png", name):
                look = self.run(TOOL, "read", self.folder / name)
                look.check_returncode()
                numbers.append(int(found[1]))
                assert json.loads(look.stdout)["seed"] == numbers[-1]
        for name in self.FOREIGN:
            assert (self.folder / name).read_text() == "somebody else's", name
        return max(numbers)

    def expected_names(self) -> set[str]:
        return self.FOREIGN | {f"wall-{number:014}-0.png" for number in range(3, 7)}


class Photo(Scene):
    @property
    def original(self) -> Path:
        return self.folder.parent / "photo.png"

    def prepare(self) -> None:
        self.run(TOOL, "render", "--size", "1500x1500", "--out", self.original, '{"dither":8,"grain":1}')

    def command(self) -> tuple[object, ...]:
        return DRIVER, "photo", self.original, self.folder

    def state(self) -> object:
        photos = [file for file in self.folder.iterdir() if file.suffix == ".png"]
        for photo in photos:
            assert photo.read_bytes() == self.original.read_bytes(), photo
        return min(len(photos), 1)

    def expected_names(self) -> set[str]:
        return {file.name for file in self.folder.iterdir() if file.suffix == ".png"}


class Export(Scene):
    @property
    def file(self) -> Path:
        return self.folder / "wall.png"

    def prepare(self) -> None:
        self.run(TOOL, "render", "--size", "300x200", "--out", self.file, '{"seed":1}').check_returncode()

    def command(self) -> tuple[object, ...]:
        return TOOL, "render", "--size", "400x300", "--out", self.file, '{"seed":2}'

    def state(self) -> object:
        look = self.run(TOOL, "read", self.file)
        look.check_returncode()
        return json.loads(look.stdout)["seed"]

    def expected_names(self) -> set[str]:
        return {"wall.png"}


@unittest.skipUnless(can_trace(), "strace is not there, or may not trace")
class FaultTest(unittest.TestCase):
    """Each test prints how many faults it has injected."""

    def setUp(self) -> None:
        self.templates: dict[type[Scene], Path] = {}

    def scene(self, kind: type[Scene]) -> Scene:
        home = tempfile.TemporaryDirectory(prefix="tessel-faults-")
        self.addCleanup(home.cleanup)
        if kind not in self.templates:
            template = tempfile.TemporaryDirectory(prefix="tessel-faults-")
            self.addCleanup(template.cleanup)
            kind(Path(template.name))
            self.templates[kind] = Path(template.name)
        return kind(Path(home.name), self.templates[kind])

    def count_calls(self, kind: type[Scene]) -> Counter:
        """The most calls of each kind that any thread makes: strace counts them for each."""
        scene = self.scene(kind)
        log = scene.folder.parent / "calls"
        done = scene.run(*scene.command(), wrapper=("strace", "-f", "-o", str(log), "-e",
                                                    "trace=" + ",".join(f"?{call}" for call in WRITING)))
        self.assertEqual(done.returncode, 0, done.stderr)
        by_thread = Counter(re.findall(r"^(\d+) +(\w+)\(", log.read_text(), re.MULTILINE))
        most: Counter = Counter()
        for (_, call), count in by_thread.items():
            most[call] = max(most[call], count)
        return most

    def inject(self, scene: Scene, call: str, fault: str, when: str,
               log: Path = Path("/dev/null")) -> subprocess.CompletedProcess:
        return scene.run(*scene.command(), wrapper=("strace", "-f", "-o", str(log), "-e", f"trace={call}",
                                                    "-e", f"inject={call}:{fault}:when={when}"))

    def check_after(self, scene: Scene, possible: list[object]) -> None:
        before = scene.names()
        self.assertIn(scene.state(), possible)
        # The next one goes through and leaves no more than belongs there.
        again = scene.run(*scene.next_command())
        self.assertEqual(again.returncode, 0, again.stderr)
        self.assertEqual(scene.names(), scene.expected_names())
        self.assertLessEqual(len(before - scene.expected_names()), 3, before)

    def states(self, kind: type[Scene]) -> list[object]:
        scene = self.scene(kind)
        before = scene.state()
        scene.run(*scene.command()).check_returncode()
        self.assertNotEqual(scene.state(), before)
        return [before, scene.state()]

    def kill_everywhere(self, kind: type[Scene]) -> None:
        possible = self.states(kind)
        kills = 0
        for call, count in sorted(self.count_calls(kind).items()):
            for when in range(1, count + 1):
                with self.subTest(kind=kind.__name__, call=call, when=when):
                    scene = self.scene(kind)
                    done = self.inject(scene, call, "signal=KILL", str(when))
                    self.assertIn(done.returncode, (-signal.SIGKILL, 128 + signal.SIGKILL, 0))
                    kills += done.returncode != 0
                    self.check_after(scene, possible)
        print(f"{kind.__name__}: {kills} kills", end=" ", flush=True)
        self.assertGreater(kills, 3)

    def fail_everywhere(self, kind: type[Scene]) -> None:
        possible = self.states(kind)
        faults = 0
        for call, count in sorted(self.count_calls(kind).items()):
            for error in FAILURES.get(call, ()):
                # Once, and from then on.
                for when in [f"{n}{more}" for n in range(1, count + 1) for more in ("", "+")]:
                    with self.subTest(kind=kind.__name__, call=call, error=error, when=when):
                        scene = self.scene(kind)
                        done = self.inject(scene, call, f"error={error}", when)
                        # What the disk has not confirmed is not believed.
                        self.assertIn(done.returncode, (1,) if call == "fsync" else (0, 1), done.stderr)
                        faults += 1
                        # What has been said to be done is done.
                        self.check_after(scene, possible[1:] if done.returncode == 0 else possible)
        print(f"{kind.__name__}: {faults} faults", end=" ", flush=True)
        self.assertGreater(faults, 3)

    def test_a_disk_that_does_not_answer_costs_nothing(self) -> None:
        """The program is gone before it does."""
        before, after = self.states(Settings)
        scene = self.scene(Settings)
        self.assertEqual(scene.state(), before)
        log = scene.folder.parent / "log"
        done = self.inject(scene, "fsync", "delay_enter=20s", "1", log)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertRegex(log.read_text(), r"fsync(\(\d+| resumed>)\) += \?", "it was waited for")
        self.check_after(scene, [after])

    def test_settings_killed(self) -> None:
        self.kill_everywhere(Settings)

    def test_stills_killed(self) -> None:
        self.kill_everywhere(Still)

    def test_photos_killed(self) -> None:
        self.kill_everywhere(Photo)

    def test_exports_killed(self) -> None:
        self.kill_everywhere(Export)

    def test_settings_on_a_failing_disk(self) -> None:
        self.fail_everywhere(SettingsFile)

    def test_stills_on_a_failing_disk(self) -> None:
        self.fail_everywhere(Still)

    def test_photos_on_a_failing_disk(self) -> None:
        self.fail_everywhere(Photo)

    def test_exports_on_a_failing_disk(self) -> None:
        self.fail_everywhere(Export)


class RandomKillTest(unittest.TestCase):
    def test_settings_killed_at_any_moment(self) -> None:
        chance = random.Random(5)
        with tempfile.TemporaryDirectory(prefix="tessel-faults-") as home:
            scene = Settings(Path(home))
            for _ in range(RANDOM_KILLS):
                process = subprocess.Popen([DRIVER, "apply-forever", scene.file], env=environment(Path(home)))
                before = scene.file.stat().st_mtime_ns
                while scene.file.stat().st_mtime_ns == before:
                    time.sleep(0.001)
                time.sleep(chance.uniform(0, 0.02))
                process.kill()
                process.wait()
                scene.state()
                self.assertLessEqual(len(scene.names()), 5, "litter grows")
            scene.run(*scene.next_command()).check_returncode()
            self.assertEqual(scene.names(), scene.expected_names())
        print(f"{RANDOM_KILLS} kills", end=" ", flush=True)


if __name__ == "__main__":
    unittest.main()
