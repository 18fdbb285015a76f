#!/usr/bin/env python3
"""What the package gives a host's people beside the component: the registration scripts, the sample
hosts, the program, and the trial that they run on their own Windows. They lie in a folder with a
blank and Chinese in its name.

  scripts/with-postgres scripts/with-wine tests/windows/test_package.py PACKAGE ADO HOST_OBJECTS
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import wine_session
from registry import COMPONENT_KEYS, classes

PACKAGE, ADO, HOST_OBJECTS = (Path(argument) for argument in sys.argv[1:4])
SECONDS = 600
CONNECTION = os.environ["KELVANE_TEST_POSTGRES"]


class PackageTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.place = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.place.cleanup)
        cls.folder = Path(cls.place.name, "组件 of the host")
        shutil.copytree(PACKAGE, cls.folder)
        # What else a host brings along.
        for library in (ADO, HOST_OBJECTS):
            if wine_session.register(library) != 0:
                raise AssertionError(f"{library} did not register")
        cls.kelvane("init", "--sample", "--database", CONNECTION)

    @classmethod
    def kelvane(cls, *arguments, commands=""):
        """Runs the program of the package; what it wrote."""
        result = wine_session.run(cls.folder / "kelvane.exe", *arguments, seconds=SECONDS,
                                  commands=commands)
        output = result.stdout.decode("utf-8")
        if result.returncode != 0:
            raise AssertionError(output + result.stderr.decode("utf-8", "replace"))
        return output

    def script(self, name, *arguments, **options):
        """Runs a command script of the package; its exit status and output."""
        result = wine_session.run("cmd", "/c", "call",
                                  wine_session.windows_path(self.folder / name),
                                  *arguments, **options)
        return result.returncode, result.stdout.decode("gbk", "replace")

    def driven(self, commands, *more):
        """The environment for a host whose windows a script works, and the transcript's file."""
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        script, transcript = Path(place.name, "script"), Path(place.name, "transcript")
        script.write_text(commands, encoding="utf-8")
        return transcript, {"KELVANE_DRIVE": wine_session.windows_path(script),
                            "KELVANE_TRANSCRIPT": wine_session.windows_path(transcript),
                            "KELVANE_TEST_ACCOUNT": CONNECTION, **dict(more)}

    def assert_registered(self, branch, keys):
        known = classes(branch)
        self.assertEqual([key for key in COMPONENT_KEYS if key.lower() in known], keys)

    def test_registration_for_the_machine(self):
        self.assertEqual(self.script("register-machine.cmd")[0], 0)
        self.assert_registered("HKLM", COMPONENT_KEYS)
        self.assertEqual(self.script("unregister-machine.cmd")[0], 0)
        self.assert_registered("HKLM", [])

    def test_registration_for_a_user(self):
        self.assertEqual(self.script("register-user.cmd")[0], 0)
        self.assert_registered("HKCU", COMPONENT_KEYS)
        self.assert_registered("HKLM", [])
        self.assertEqual(self.script("unregister-user.cmd")[0], 0)
        self.assert_registered("HKCU", [])

    def registered(self):
        self.assertEqual(self.script("register-machine.cmd")[0], 0)
        self.addCleanup(self.script, "unregister-machine.cmd")

    def test_sample_host_in_vbscript(self):
        self.registered()
        transcript, environment = self.driven("print window\nclose\n")
        result = wine_session.run(
            "cscript", "//nologo", wine_session.windows_path(self.folder / "samples/host.vbs"),
            CONNECTION, wine_session.windows_path(self.folder), "zhang", "2004", seconds=SECONDS,
            environment=environment)
        self.assertEqual(result.stdout.decode("ascii", "replace").split(), ["closed"])
        shown = transcript.read_text(encoding="utf-8").splitlines()
        self.assertEqual((shown[0], shown[-1]), ("open frmPeriodItem", "close frmPeriodItem"))
        self.assertNotIn("error:", "".join(shown))
        # Nothing failed, so its answers were enough.
        self.assertIn('notice ""', shown)

    def test_sample_host_in_c(self):
        self.registered()
        picture = self.folder / "list.png"
        transcript, environment = self.driven(
            "go 1 8\n", ("KELVANE_SCREENSHOT", wine_session.windows_path(picture)))
        result = wine_session.run(self.folder / "samples/host.exe", "KelvaneTests.Login",
                                  "KelvaneTests.Environment", "C:\\Host", seconds=SECONDS,
                                  environment=environment)
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        shown = transcript.read_text(encoding="utf-8").splitlines()
        self.assertEqual((shown[0], shown[-1]), ("open frmPeriodItem", "close frmPeriodItem"))
        self.assert_picture_of_the_list(picture)

    def assert_picture_of_the_list(self, picture):
        wine_session.keep(picture, picture.name)
        described = subprocess.run(["identify", "-format", "%m %w %h %k", picture], check=True,
                                   capture_output=True, text=True, timeout=120).stdout.split()
        self.assertEqual(described[0], "PNG")
        # A window that shows texts, icons and cells has more colours than an empty one.
        for size, least in zip(described[1:], (800, 500, 100)):
            self.assertGreater(int(size), least, described)

    def test_sample_host_says_that_nothing_is_registered(self):
        result = wine_session.run(self.folder / "samples/host.exe", "KelvaneTests.Login",
                                  "KelvaneTests.Environment", "C:\\Host",
                                  environment={"KELVANE_TEST_ACCOUNT": CONNECTION})
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.decode("utf-8").strip(),
                         "Kelvane.PeriodItem: 0x80040154")

    def test_trial(self):
        self.registered()
        _, environment = self.driven("close\n")
        status, output = self.script("samples/trial.cmd", CONNECTION, "2004",
                                     wine_session.windows_path(self.folder), seconds=SECONDS,
                                     environment=environment)
        self.assertEqual(status, 0, output)
        told = (self.folder / "trial.txt").read_bytes().decode("utf-16").splitlines()
        uses = [line for line in told if re.fullmatch(r"(\d+|\?) handles, (\d+|\?) bytes", line)]
        self.assertEqual(len(uses), 3, told)
        print(*uses, sep="\n")
        self.assertEqual([line for line in told if line not in uses], [
            "create: done", "Init gives Boolean -1", "init: done", "show: done", "show: done",
            "Init gives Boolean -1", "init: done", "show: done", "use: done",
            "100 rounds", "rounds=100: done", "use: done", "100 rounds", "rounds=100: done",
            "use: done", "end of script"])
        facts = (self.folder / "data-access.txt").read_bytes().decode("utf-16").splitlines()
        self.assertEqual(facts[-1], "end of script = reached")

    def test_program_on_the_server(self):
        changed = self.kelvane(
            "drive", "--database", CONNECTION,
            commands="init\nshow\ngo 2 1\nanswer yes\nclick Delete\nprint grid\nclose\n")
        self.assertIn("close frmPeriodItem", changed)
        rows = [line for line in changed.splitlines() if re.match(r"[1-9]\d* \d+ ", line)]
        self.assertEqual(len(rows), 24)
        self.kelvane("init", "--sample", "--force", "--database", CONNECTION)

    def test_program_on_a_file_with_its_windows(self):
        account, picture = (self.folder / name for name in ("账套.kelvane", "window.png"))
        self.kelvane("init", "--sample", wine_session.windows_path(account))
        shown = self.kelvane("drive", "--window", "--screenshot", wine_session.windows_path(picture),
                             wine_session.windows_path(account),
                             commands="init\nshow\ngo 1 8\nprint grid\n")
        self.assertEqual(len(re.findall(r"^[1-9]\d* \d+ ", shown, re.MULTILINE)), 25)
        self.assert_picture_of_the_list(picture)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
