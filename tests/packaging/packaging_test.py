# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What is installed beside the programs: each file is valid, and says of the programs what is so."""

import configparser
import json
import os
import re
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

import yaml
from PIL import Image

ID = "org.tesselbroth.TesselBroth"
ROOT = Path(__file__).parents[2]
BUILD = Path(os.environ.get("TESSEL_BUILD") or ROOT / "build")
VERSION = re.search(r"CMAKE_PROJECT_VERSION:STATIC=(.+)", (BUILD / "CMakeCache.txt").read_text())[1]


def output(*command: str) -> str:
    """What a command prints; an error if it fails."""
    done = subprocess.run(command, capture_output=True, text=True, timeout=240)
    if done.returncode != 0:
        raise AssertionError(f"{' '.join(command)}: {done.stdout}{done.stderr}")
    return done.stdout


class InstalledTest(unittest.TestCase):
    """Everything, installed below a folder."""

    @classmethod
    def setUpClass(cls) -> None:
        cls.root = Path(cls.enterClassContext(tempfile.TemporaryDirectory(prefix="tessel-installed-")))
        output(os.environ.get("CMAKE", "cmake"), "--install", str(BUILD), "--prefix", str(cls.root))
        cls.share = cls.root / "share"
        cls.tool = str(cls.root / "bin/tessel")

    def check(self, program: str, *arguments: str) -> None:
        """Has a file checked by a program, where there is one."""
        with self.subTest(program):
            if shutil.which(program) is None:
                self.skipTest(f"{program} is not installed")
            self.assertRegex(output(program, *arguments).strip(" \n✔"),
                             r"^(Validation was successful: pedantic: \d+)?$")

    def read_page(self, name: str) -> str:
        return output("gzip", "-dc", str(self.share / f"man/man1/{name}.1.gz"))

    def help_of(self, *command: str) -> str:
        return output(self.tool, *command, "--help")

    def commands(self) -> list[str]:
        listed = self.help_of().partition("Subcommands:")[2]
        return re.findall(r"^  ([a-z]+) ", listed, re.MULTILINE)

    def test_desktop_entry(self) -> None:
        path = self.share / f"applications/{ID}.desktop"
        self.check("desktop-file-validate", str(path))
        entry = configparser.ConfigParser(interpolation=None)
        entry.optionxform = str
        entry.read(path)
        actions = entry["Desktop Entry"]["Actions"].strip(";").split(";")
        self.assertEqual([f"Desktop Action {action}" for action in actions], entry.sections()[1:])
        known = self.help_of("do")
        for action in actions:
            self.assertIn(action, known)
        for section in entry.sections():
            self.assertTrue((self.root / "bin" / entry[section]["Exec"].split()[0]).exists())

    def old_developer_tag(self) -> list[str]:
        """Has later versions of the validator accept the developer's name where those before 1.0 look for it."""
        version = shutil.which("appstreamcli") and output("appstreamcli", "--version")
        if not version or re.search(r" 0\.", version):
            return []
        return ["--override=developer-name-tag-deprecated=pedantic,developer-info-missing=pedantic"]

    def test_metainfo(self) -> None:
        path = self.share / f"metainfo/{ID}.metainfo.xml"
        self.check("appstreamcli", "validate", "--strict", "--no-net", "--no-color", *self.old_developer_tag(),
                   str(path))
        newest = ElementTree.parse(path).find("releases/release")
        self.assertEqual(newest.get("version"), VERSION)

    def test_services(self) -> None:
        service = (self.share / f"dbus-1/services/{ID}.service").read_text()
        self.assertRegex(service, f"(?m)^Name={ID}$")
        self.assertRegex(service, "(?m)^Exec=/.*/bin/tessel-broth$")
        unit = (self.root / "lib/systemd/user/tessel-broth.service").read_text()
        # Neither the program nor its pages are where they will be.
        with tempfile.TemporaryDirectory() as folder:
            copy = Path(folder) / "tessel-broth.service"
            copy.write_text(re.sub(r"(?m)^Documentation=.*\n", "", re.sub(r"ExecStart=.*", "ExecStart=/bin/true", unit)))
            os.environ.setdefault("XDG_RUNTIME_DIR", folder)
            self.check("systemd-analyze", "verify", "--user", str(copy))

    def test_icons(self) -> None:
        icons = self.share / "icons/hicolor"
        for path in icons.glob("*x*/apps/*.png"):
            side = int(path.parts[-3].partition("x")[0])
            with Image.open(path) as icon:
                self.assertEqual((icon.size, path.stem), ((side, side), ID))
                self.assertEqual(icon.getpixel((0, 0))[3] < 255, True, "a corner that is cut")
        self.assertGreaterEqual(len(list(icons.glob("*/apps/*.png"))), 9)
        self.assertGreater(len(ElementTree.parse(icons / f"scalable/apps/{ID}.svg").getroot()), 10)
        style, ink = ElementTree.parse(icons / f"symbolic/apps/{ID}-symbolic.svg").getroot()
        self.assertEqual((style.get("id"), ink.get("fill")), ("current-color-scheme", "currentColor"))
        self.assertIn(f".{ink.get('class')}{{", style.text)

    def test_plasma_finds_its_wallpaper(self) -> None:
        wallpaper = self.share / "plasma/wallpapers/org.tesselbroth.wallpaper"
        metadata = json.loads((wallpaper / "metadata.json").read_text())
        self.assertEqual(metadata["KPlugin"]["Id"], wallpaper.name)
        self.assertTrue((wallpaper / "contents/ui/main.qml").exists())
        self.assertTrue((wallpaper / "contents/ui/config.qml").exists())
        schema = ElementTree.parse(wallpaper / "contents/config/main.xml").getroot()
        kept = {entry.get("name") for entry in schema.iter("{http://www.kde.org/standards/kcfg/1.0}entry")}
        self.assertEqual(kept, {"Image", "Before"})
        (module,) = self.root.glob("lib/**/qml/org/tesselbroth/wallpaper")
        plugin = re.search(r"(?m)^plugin (.+)$", (module / "qmldir").read_text())[1]
        self.assertTrue((module / f"lib{plugin}.so").exists())

    def test_sandboxes_can_show_it_to_the_desktop(self) -> None:
        for folder in "applications", "dbus-1", "icons", "metainfo":
            files = [path for path in (self.share / folder).rglob("*") if path.is_file()]
            self.assertNotEqual(files, [])
            for path in files:
                self.assertTrue(path.name.startswith(ID), f"{path} does not leave a sandbox, by its name")

    def test_manual_pages(self) -> None:
        for name in "tessel", "tessel-broth":
            text = self.read_page(name)
            self.assertIn(VERSION, text)
            with tempfile.NamedTemporaryFile("w", suffix=".1") as page:
                page.write(text)
                page.flush()
                self.check("mandoc", "-T", "lint", "-W", "warning", page.name)

    def test_completions_are_valid(self) -> None:
        self.check("bash", "-n", str(self.share / "bash-completion/completions/tessel"))
        self.check("zsh", "-n", str(self.share / "zsh/vendor-completions/_tessel"))
        self.check("fish", "-n", str(self.share / "fish/vendor_completions.d/tessel.fish"))

    def test_every_command_and_option_is_in_page_and_completions(self) -> None:
        page = self.read_page("tessel").replace("\\-", "-")
        bash = (self.share / "bash-completion/completions/tessel").read_text()
        zsh = (self.share / "zsh/vendor-completions/_tessel").read_text()
        fish = (self.share / "fish/vendor_completions.d/tessel.fish").read_text()
        commands = self.commands()
        self.assertIn("render", commands)
        for command in commands:
            self.assertIn(f"\n.It Cm {command}\n", page)
            self.assertRegex(bash, rf"(?m)^ +{command}\) words=")
            self.assertRegex(zsh, rf"(?m)^ +{command}\)$")
            self.assertIn(f"-a {command} ", fish)
            for option in re.findall(r"^  (?:-h,)?--([a-z-]+)", self.help_of(command), re.MULTILINE):
                with self.subTest(f"{command} --{option}"):
                    self.assertIn(f"Fl -{option}", page)
                    self.assertRegex(bash, rf"--{option}\b")
                    self.assertRegex(zsh, rf"--{option}\b")
                    self.assertRegex(fish, rf"-l {option}\b")


@unittest.skipUnless((BUILD / "CPackConfig.cmake").exists() and shutil.which("lintian"),
                     "this build makes no Debian package, or lintian is not installed")
class DebianPackageTest(unittest.TestCase):
    """A package of the programs as they were built for the tests; its size and their flags do not matter."""

    def test_debian_has_nothing_against_it(self) -> None:
        with tempfile.TemporaryDirectory(prefix="tessel-package-") as folder:
            output("cpack", "--config", str(BUILD / "CPackConfig.cmake"), "-B", folder,
                   "-D", "CPACK_DEBIAN_COMPRESSION_TYPE=gzip")
            package, = map(str, Path(folder).glob("*.deb"))
            suppressed = ROOT / "packaging/debian/lintian-suppressed"
            output("lintian", "--fail-on", "error,warning", "--suppress-tags-from-file", str(suppressed), package)
            output("dpkg-deb", "--extract", package, f"{folder}/tree")
            output("appstreamcli", "validate-tree", "--no-net", f"{folder}/tree")


class FlatpakTest(unittest.TestCase):
    """The manifest, as far as it can be wrong without its builder."""

    MANIFEST = ROOT / f"packaging/flatpak/{ID}.yaml"
    # As the builder's documentation names them; it passes over others, and what is meant by them.
    KEYS = {"id", "runtime", "runtime-version", "sdk", "command", "finish-args", "cleanup", "modules"}
    MODULE_KEYS = {"name", "buildsystem", "builddir", "config-opts", "sources"}
    SOURCE_KEYS = {"git": {"type", "url", "tag"}, "dir": {"type", "path", "skip"}}
    PERMISSION = re.compile(r"--(socket=(wayland|fallback-x11)|share=ipc|device=dri|(system-)?talk-name=[A-Za-z0-9_.]+|"
                            r"filesystem=(xdg-(run|config)|~)/[a-z./]+(:ro)?|env=[A-Z_]+=.+)")

    def setUp(self) -> None:
        self.manifest = yaml.safe_load(self.MANIFEST.read_text())
        self.module = self.manifest["modules"][-1]

    def test_says_what_its_builder_knows(self) -> None:
        self.assertEqual(set(self.manifest), self.KEYS)
        self.assertEqual((self.manifest["id"], self.manifest["command"]), (ID, "tessel-broth"))
        self.assertIsInstance(self.manifest["runtime-version"], str)
        for module in self.manifest["modules"]:
            self.assertLessEqual(set(module), self.MODULE_KEYS)
            for source in module["sources"]:
                self.assertEqual(set(source), self.SOURCE_KEYS[source["type"]], module["name"])
                self.assertRegex(source.get("url", "https://"), "^https://")

    def test_builds_this_tree_without_what_was_built_of_it(self) -> None:
        source, = self.module["sources"]
        self.assertEqual((self.MANIFEST.parent / source["path"]).resolve(), ROOT)
        presets = json.loads((ROOT / "CMakePresets.json").read_text())["configurePresets"]
        folders = {preset["binaryDir"].removeprefix("${sourceDir}/") for preset in presets if "binaryDir" in preset}
        self.assertEqual(folders - set(source["skip"]), set())
        known = re.findall(r"^(\w+):", (BUILD / "CMakeCache.txt").read_text(), re.MULTILINE)
        for option in self.module["config-opts"]:
            self.assertIn(option[2:].partition("=")[0], known)

    def test_lets_out_what_the_program_asks_for_and_no_more(self) -> None:
        code = "".join(path.read_text() for path in (ROOT / "src").rglob("*.[ch]*") if path.is_file())
        names = []
        for permission in self.manifest["finish-args"]:
            self.assertRegex(permission, f"^{self.PERMISSION.pattern}$")
            if "talk-name=" in permission:
                names.append(permission.partition("=")[2])
        savers = re.search(r"for \(const auto& desktop : {(.*?)}\)\s+watchScreenSaver", code, re.DOTALL)[1]
        asked = {f"org.{desktop}.ScreenSaver" for desktop in re.findall(r'"(\w+)"', savers)}
        self.assertEqual({name for name in names if name.endswith(".ScreenSaver")}, asked)
        for name in set(names) - asked - {"ca.desrt.dconf"}:  # which GSettings asks
            self.assertIn(f'"{name}"', code)


class BashTest(unittest.TestCase):
    """What bash offers as a word is completed."""

    def complete(self, *words: str) -> list[str]:
        script = ROOT / "packaging/completions/tessel.bash"
        program = f'. "{script}"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tessel; printf "%s\\n" "${{COMPREPLY[@]}}"'
        return output("bash", "-c", program, "bash", *words).split()

    def test_offers_what_fits(self) -> None:
        self.assertEqual(self.complete("tessel", "re"), ["render", "read"])
        self.assertEqual(self.complete("tessel", "do", "new"), ["new-wallpaper"])
        self.assertEqual(self.complete("tessel", "render", "--loop"), ["--loop-fade"])
        self.assertEqual(self.complete("tessel", "render", "--edge", "l"), ["left"])
        self.assertEqual(self.complete("tessel", "check", "--seeds", ""), [])
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "wall.png").touch()
            self.assertEqual(self.complete("tessel", "set", f"{folder}/w"), [f"{folder}/wall.png"])


if __name__ == "__main__":
    unittest.main()
