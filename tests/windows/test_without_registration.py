#!/usr/bin/env python3
"""A host finds the component through the manifest beside it, and only through that.

  scripts/with-wine tests/windows/test_without_registration.py dist/windows-x64
"""

import shutil
import sys
import tempfile
import unittest
from pathlib import Path

import wine_session

FOLDER = Path(sys.argv.pop(1)) if len(sys.argv) > 1 else None
NOT_REGISTERED = "Kelvane.PeriodItem: 0x80040154"


def said_by_host(folder):
    """What the sample host says when its login and environment are objects of no use."""
    result = wine_session.run(folder / "host.exe", "Scripting.Dictionary", "Scripting.Dictionary",
                              "C:\\Host")
    return result.returncode, result.stderr.decode("utf-8", "replace").strip()


class WithoutRegistration(unittest.TestCase):
    def setUp(self):
        made = tempfile.TemporaryDirectory()
        self.addCleanup(made.cleanup)
        self.folder = Path(made.name)
        for name in ("Kelvane.dll", "Kelvane.manifest", "samples/host.exe",
                     "samples/host.exe.manifest"):
            shutil.copy(FOLDER / name, self.folder)

    def test_host_with_a_manifest_makes_the_component(self):
        status, said = said_by_host(self.folder)
        self.assertEqual(status, 1)
        self.assertTrue(said.startswith("Init: 0x8004020"), said)

    def test_host_without_its_manifest_does_not(self):
        (self.folder / "host.exe.manifest").unlink()
        self.assertEqual(said_by_host(self.folder), (1, NOT_REGISTERED))

    def test_host_without_the_component_s_manifest_is_not_started(self):
        (self.folder / "Kelvane.manifest").unlink()
        status, said = said_by_host(self.folder)
        self.assertNotEqual(status, 0)
        self.assertFalse(said.startswith("Init"), said)


if __name__ == "__main__":
    if FOLDER is None:
        sys.exit("usage: test_without_registration.py FOLDER")
    unittest.main()
