# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Whatever anybody on the bus asks, and whatever a file holds, does no harm.

TESSEL_HOSTILE_CALLS and TESSEL_HOSTILE_SEED in the environment make it more calls, or others.
"""

import json
import os
import random
import shutil
import struct
import subprocess
import unittest
import zlib
from collections import Counter
from pathlib import Path

from gi.repository import Gio, GLib

from application import NAME, PATH, PROGRAM, SANITIZERS, TOOL, ApplicationTest
from desktop import wait_until

CALLS = int(os.environ.get("TESSEL_HOSTILE_CALLS", "10000"))
SEED = int(os.environ.get("TESSEL_HOSTILE_SEED", "1"))
AT_ONCE = 50  # calls that wait for their answer

APPLICATION = "org.freedesktop.Application"
PROPERTIES = "org.freedesktop.DBus.Properties"
ACTIONS = ("new-wallpaper", "previous-wallpaper", "toggle-motion", "open-editor", "set-look", "set-motion")
INTERFACES = (APPLICATION, NAME, PROPERTIES, "org.freedesktop.DBus.Introspectable", "org.freedesktop.DBus.Peer",
              "org.example.Nothing", "")
METHODS = ("ActivateAction", "Wallpaper", "Get", "Set", "GetAll", "Introspect", "Ping", "GetMachineId", "Quit",
           "deleteLater", "setObjectName", "activated")
NO_ANSWER = ("NoReply", "Timeout", "TimedOut", "Disconnected", "ServiceUnknown")

LOOK = {"pattern": 3, "palette": 7, "seed": 12.5, "levels": 4, "custom": [0, 255, 16777215]}
PRESETS = [{"id": "00000000-0000-0000-0000-000000000000", "name": "Kept", "look": {}, "motion": False}]


def mutated(chance: random.Random, data: bytes, most: int = 20) -> bytes:
    """With some bytes changed, left out or doubled, or cut off."""
    changed = bytearray(data)
    for _ in range(chance.randint(1, most)):
        place = chance.randrange(len(changed) + 1)
        change = chance.randrange(4)
        if change == 0:
            del changed[place:place + chance.randint(1, 9)]
        elif change == 1:
            changed[place:place] = changed[place:place + chance.randint(1, 9)]
        elif change == 2:
            changed[place:place] = chance.choice((b"\0", b"\xff", b'"', b"{", b"[", b"1e999", b"-", b"null", b"\\"))
        elif place < len(changed):
            changed[place] ^= 1 << chance.randrange(8)
    return bytes(changed)


def hostile_text(chance: random.Random) -> str:
    """A look that is none, or some other text; NUL cannot be sent."""
    kind = chance.randrange(6)
    if kind == 0:
        return chance.choice("[{\"\u202e\U0001f35c") * chance.choice((1, 1000, 100_000))
    if kind == 1:
        return json.dumps({**LOOK, chance.choice([*LOOK, "x"]): chance.choice(
            [None, True, -1, 1e308, "x" * 5000, [[[]]], {"a": {}}, 2**64, [2**40]])})
    if kind == 2:
        return json.dumps({"imagePath": chance.choice(["/dev/zero", "", "/", "~", "x" * 10_000, "/dev/stdin"])})
    return mutated(chance, json.dumps(LOOK).encode()).decode("utf-8", "replace").replace("\0", "0")


def hostile_value(chance: random.Random, depth: int = 0) -> GLib.Variant:
    kind = chance.randrange(8 if depth < 4 else 5)
    if kind == 0:
        return GLib.Variant("s", hostile_text(chance))
    if kind == 1:
        return GLib.Variant("b", chance.random() < 0.5)
    if kind == 2:
        return GLib.Variant(chance.choice("yqut"), chance.randrange(256))
    if kind == 3:
        return GLib.Variant("d", chance.choice([0.0, -0.0, 1e308, float("inf"), float("nan")]))
    if kind == 4:
        return GLib.Variant("ay", chance.randbytes(chance.randrange(50)))
    if kind == 5:
        return GLib.Variant("v", hostile_value(chance, depth + 1))
    if kind == 6:
        return GLib.Variant("a{sv}", {hostile_text(chance)[:50]: hostile_value(chance, depth + 1)})
    return GLib.Variant("av", [hostile_value(chance, depth + 1) for _ in range(chance.randrange(4))])


def hostile_call(chance: random.Random) -> tuple[str, str, str, GLib.Variant | None]:
    """Path, interface, method and arguments."""
    if chance.random() < 0.6:  # an action with what it does not take
        action = chance.choice((*ACTIONS, "", "quit ", "Quit", hostile_text(chance)))
        parameters = [hostile_value(chance) for _ in range(chance.randint(1, 3))]
        data = {hostile_text(chance)[:50]: hostile_value(chance) for _ in range(chance.randrange(2))}
        return PATH, APPLICATION, "ActivateAction", GLib.Variant("(sava{sv})", (action, parameters, data))
    if chance.random() < 0.3:
        interface = chance.choice((*INTERFACES[:-1], ""))
        method, form, arguments = chance.choice((
            ("Get", "(ss)", (interface, hostile_text(chance)[:50])),
            ("Set", "(ssv)", (interface, chance.choice(("objectName", "x", "")), hostile_value(chance))),
            ("GetAll", "(s)", (interface,))))
        return PATH, PROPERTIES, method, GLib.Variant(form, arguments)
    arguments = [hostile_value(chance) for _ in range(chance.randrange(4))]
    if chance.random() < 0.3:
        arguments.insert(0, GLib.Variant("s", chance.choice(ACTIONS)))
    return (chance.choice((PATH, PATH, "/", "/org", PATH + "/none")), chance.choice(INTERFACES),
            chance.choice(METHODS), GLib.Variant.new_tuple(*arguments) if arguments else None)


class CallsTest(ApplicationTest):
    """Anybody on the session bus may ask for anything."""

    def setUp(self) -> None:
        super().setUp()
        self.answers: Counter[str] = Counter()
        self.waiting = 0

    def test_every_call_is_answered_and_nothing_is_lost(self) -> None:
        chance = random.Random(SEED)
        self.application.write_settings(presets=PRESETS, motion="false")
        presets = self.application.settings()["presets"]
        self.application.start()
        for number in range(CALLS):
            self.send(number, hostile_call(chance))
            while self.waiting >= AT_ONCE:
                GLib.MainContext.default().iteration(True)
        wait_until(self.all_are_answered, "the last answers", 120)
        print(dict(self.answers))
        self.assertEqual(self.answers.total(), CALLS)
        self.assertEqual([name for name in self.answers if name.endswith(NO_ANSWER)], [])

        self.application.do("set-look", GLib.Variant("s", json.dumps(LOOK)))
        wait_until(lambda: (self.application.look() or {}).get("seed") == LOOK["seed"], "the look in the settings", 60)
        self.assertEqual(self.application.settings()["presets"], presets)
        self.application.do("quit")
        self.assertEqual(self.application.process.wait(60), 0)
        self.application.start()
        self.assertEqual(self.application.look()["custom"], LOOK["custom"])
        self.assertEqual(self.application.log_file.read_text(), "", "all settings can be read")
        self.assertEqual(self.application.quit(), 0)

    def all_are_answered(self) -> bool:
        while GLib.MainContext.default().iteration(False):
            pass
        return self.waiting == 0

    def send(self, number: int, call: tuple[str, str, str, GLib.Variant | None]) -> None:
        path, interface, method, arguments = call
        message = Gio.DBusMessage.new_method_call(NAME, path, interface or None, method)
        message.set_flags(Gio.DBusMessageFlags.NO_AUTO_START)
        if arguments:
            message.set_body(arguments)
        self.waiting += 1
        self.desktop.bus.send_message_with_reply(message, Gio.DBusSendMessageFlags.NONE, 60_000, None, self.answered,
                                                 number)

    def answered(self, bus: Gio.DBusConnection, result: Gio.AsyncResult, number: int) -> None:
        self.waiting -= 1
        try:
            answer = bus.send_message_with_reply_finish(result)
            self.answers[answer.get_error_name() or "done"] += 1
        except GLib.Error as error:
            self.answers[f"call {number}: {error.message}: NoReply"] += 1


def chunk(name: bytes, data: bytes) -> bytes:
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


def png(width: int, height: int, *chunks: bytes, depth: int = 8) -> bytes:
    """A grey picture of this size, whose rows may be missing."""
    header = chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, depth, 0, 0, 0, 0))
    return b"\x89PNG\r\n\x1a\n" + header + b"".join(chunks) + chunk(b"IEND", b"")


def seeds() -> list[bytes]:
    """Sound files of each kind that is read."""
    look = json.dumps(LOOK).encode()
    rows = chunk(b"IDAT", zlib.compress(bytes(9 * 8)))
    text = chunk(b"iTXt", b"tessel-look\0\0\0\0\0" + look)
    return [look, png(8, 8, rows), png(8, 8, text, rows),
            b'[General]\nedge=1\npresets="@ByteArray(%s)"\n' % json.dumps(PRESETS).encode().replace(b'"', b'\\"'),
            b"GIF89a\x08\0\x08\0\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0\x08\0\x08\0\0\x02\x07\x84\x8f\xa9\xcb\xed\x0f\x9b\0;",
            b"BM" + struct.pack("<IHHIIiiHHIIiiII", 54 + 192, 0, 0, 54, 40, 8, 8, 1, 24, 0, 192, 0, 0, 0, 0) + bytes(192),
            b"P6 8 8 255\n" + bytes(192),
            b'<svg xmlns="http://www.w3.org/2000/svg" width="8" height="8"><path d="M0 0L8 8"/></svg>']


class HostileFiles:
    """100 files in a folder that nobody would want to be given, by their names."""

    def __init__(self, folder: Path) -> None:
        self.folder = folder
        folder.mkdir()
        chance = random.Random(SEED)
        self.make_worst()
        number = 0
        while len(self.files()) < 100:
            seed = seeds()[number % len(seeds())]
            kind = ("cut", "changed", "begun")[number % 3]
            data = {"cut": lambda: seed[:chance.randrange(len(seed))], "changed": lambda: mutated(chance, seed),
                    "begun": lambda: seed[:chance.randint(8, 40)] + chance.randbytes(500)}[kind]()
            self.write(f"{kind}-{number}", data)
            number += 1

    def files(self) -> list[Path]:
        return sorted(self.folder.iterdir())

    def write(self, name: str, data: bytes) -> None:
        (self.folder / name).write_bytes(data)

    def make_worst(self) -> None:
        self.write("empty", b"")
        self.write("zeros", bytes(100_000))
        for name, text in (("arrays", b"["), ("objects", b'{"a":'), ("numbers", b"9"), ("quotes", b'"')):
            self.write(name, text * 2_000_000)
        self.write("key", b'{"' + b"k" * 5_000_000 + b'":1}')
        self.write("variant", b"a=@Variant(" + rb"\0\0\0\t\0\0\0\x1" * 200_000 + b")\n")
        self.write("lines", b"a=1\n" * (100_000 if SANITIZERS else 1_000_000))  # which takes them far longer
        self.write("large", b"x" * (20 << 20))
        rows = chunk(b"IDAT", zlib.compress(bytes(50_000_000)))
        self.write("huge.png", png(2**31 - 1, 2**31 - 1, rows))
        self.write("wide.png", png(10_000_000, 1, rows))
        self.write("bits.png", png(30_000, 30_000, rows, depth=1))
        self.write("no-size.png", png(0, 0))
        self.write("chunk.png", png(1, 1)[:33] + struct.pack(">I", 0x7fffffff) + b"iTXt" + bytes(100))
        bomb = zlib.compress(b'{"a":"' + b"a" * 100_000_000)
        self.write("look-bomb.png", png(1, 1, chunk(b"iTXt", b"tessel-look\0\1\0\0\0" + bomb)))
        self.write("huge.bmp", b"BM" + struct.pack("<IHHIIiiHHIIiiII", 2**32 - 1, 0, 0, 54, 40, 2**31 - 1, 2**31 - 1,
                                                   1, 24, 0, 0, 0, 0, 0, 0))
        self.write("huge.ppm", b"P6 2000000000 2000000000 255\n")
        self.write("huge.gif", b"GIF89a\xff\xff\xff\xff\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0\xff\xff\xff\xff\0\x02\0;")
        self.write("huge.svg", b'<svg xmlns="http://www.w3.org/2000/svg" width="1e9" height="1e9"/>')
        self.write("deep.svg", b'<svg xmlns="http://www.w3.org/2000/svg">' + b"<g>" * 200_000)
        self.write("name\n\x1b[31m\u202e", b"{")
        self.write("unreadable", b"{}")
        (self.folder / "unreadable").chmod(0)
        (self.folder / "folder").mkdir()
        (self.folder / "loop").symlink_to("loop")
        (self.folder / "nowhere").symlink_to("/nowhere/at/all")
        (self.folder / "zero").symlink_to("/dev/zero")
        os.mkfifo(self.folder / "pipe")


class FilesTest(ApplicationTest):
    """Settings, looks and photos may come from anybody."""

    PATIENCE = 100  # seconds, for what takes less than ten

    @classmethod
    def setUpClass(cls) -> None:
        super().setUpClass()
        cls.hostile = HostileFiles(cls.desktop.folder / "hostile")

    def run_program(self, *command: object) -> subprocess.CompletedProcess:
        return subprocess.run([*map(str, command)], env=self.desktop.environment, stdin=subprocess.DEVNULL,
                              cwd=self.desktop.folder, capture_output=True, timeout=self.PATIENCE, check=False)

    def test_as_looks_they_are_told_by_name(self) -> None:
        outcomes: Counter[int] = Counter()
        for number, file in enumerate(self.hostile.files()):
            if file.is_fifo():  # which the tool takes, and waits for whoever writes
                continue
            commands = [("inspect", file, "--size", "64x64"), ("set", file), ("read", file)]
            if number % 10 == 0:
                commands.append(("render", file, "--size", "64x64", "--out", "out.png"))
            for command in commands:
                with self.subTest(command=command):
                    ended = self.run_program(TOOL, *command)
                    outcomes[ended.returncode] += 1
                    self.assertIn(ended.returncode, (0, 1), ended.stderr)
                    self.assertLess(len(ended.stderr), 1000)
                    if ended.returncode == 1 and b"not running" not in ended.stderr:
                        self.assertIn(os.fsencode(file.name), ended.stderr)
        print(dict(outcomes))

    def test_as_photos_they_are_told_and_the_look_is_drawn(self) -> None:
        self.application.write_settings(presets=PRESETS, motion="false")
        presets = self.application.settings()["presets"]
        self.application.start()
        for number, file in enumerate(self.hostile.files()):
            with self.subTest(file=file):
                look = json.dumps({"pattern": 7, "imagePath": str(file), "seed": number})
                ended = self.run_program(TOOL, "inspect", look, "--size", "64x64")
                self.assertEqual(ended.returncode, 0, ended.stderr)
                self.assertTrue(not ended.stderr or os.fsencode(file.name) in ended.stderr)
                self.application.do("set-look", GLib.Variant("s", look))
        wait_until(lambda: (self.application.look() or {}).get("imagePath") == str(file), "the last look", 60)
        self.application.do("set-look", GLib.Variant("s", json.dumps(LOOK)))
        self.application.wait_for_still()
        self.assertEqual(self.application.settings()["presets"], presets)
        self.assertEqual(self.application.quit(), 0)
        self.application.log_file.unlink()

    def test_as_settings_they_are_passed_over(self) -> None:
        worst = ("variant", "lines", "pipe", "zero", "folder", "loop", "large", "arrays", "zeros")
        for name in worst:
            with self.subTest(name=name):
                self.application.settings_file.unlink(missing_ok=True)
                self.application.settings_file.symlink_to(self.hostile.folder / name)
                self.application.process = self.desktop.start(PROGRAM)
                self.desktop.wait_for_name(NAME)
                wait_until(lambda: self.answers("set-look", GLib.Variant("s", json.dumps(LOOK))), "an answer", 60)
                self.application.do("quit")
                self.assertEqual(self.application.process.wait(self.PATIENCE), 0)
                self.application.log_file.unlink(missing_ok=True)

    def answers(self, name: str, parameter: GLib.Variant) -> bool:
        try:
            self.application.do(name, parameter)
        except GLib.Error as error:
            self.assertIn("starting", error.message)
            return False
        return True

    @classmethod
    def tearDownClass(cls) -> None:
        (cls.hostile.folder / "unreadable").chmod(0o600)
        shutil.rmtree(cls.hostile.folder)
        super().tearDownClass()


if __name__ == "__main__":
    unittest.main()
