#!/usr/bin/env python3
"""The component's entries in the registry, for the machine and for a user: written and removed.

  scripts/with-wine tests/windows/test_registration.py COMPONENT
"""

import sys
import tempfile
import unittest
from pathlib import Path

import wine_session

COMPONENT = Path(sys.argv[1])
CLASS = r"CLSID\{F6C9E0AF-AEAA-44B1-BEA8-6CDAED9F258E}"
INTERFACE = r"Interface\{84A6480C-FDBE-4739-9CCE-DE672ADA1250}"
LIBRARY = r"TypeLib\{E49CAAC1-ABE0-4416-A631-7CA3E70D39E9}"
KEYS = ["Kelvane.PeriodItem", CLASS, INTERFACE, LIBRARY]


def classes(branch):
    """A branch's classes: by key in small letters, the texts by name ("@" is the key's own)."""
    with tempfile.TemporaryDirectory() as folder:
        exported = Path(folder, "classes.reg")
        wine_session.run("reg", "export", f"{branch}\\Software\\Classes",
                         wine_session.windows_path(exported), "/y")
        keys, current = {}, {}
        for line in exported.read_bytes().decode("utf-16").splitlines():
            if line.startswith("["):
                key = line.strip("[]").lower().split("software\\classes")[-1].lstrip("\\")
                current = keys.setdefault(key, {})
            elif "=" in line:
                name, text = line.split("=", 1)
                current[name.strip('"')] = text.strip('"').replace("\\\\", "\\")
        return keys


class RegistrationTest(unittest.TestCase):
    def regsvr32(self, *options):
        status = wine_session.run("regsvr32", "/s", *options,
                                  wine_session.windows_path(COMPONENT)).returncode
        self.assertEqual(status, 0, options)

    def assert_registered(self, branch):
        module = wine_session.windows_path(COMPONENT)
        known = classes(branch)

        def texts(key):
            return known[key.lower()]

        self.assertEqual(texts(r"Kelvane.PeriodItem\CLSID")["@"], CLASS.split("\\")[1])
        self.assertEqual(texts(CLASS + r"\InprocServer32"),
                         {"@": module, "ThreadingModel": "Apartment"})
        self.assertEqual(texts(INTERFACE + r"\TypeLib")["@"], LIBRARY.split("\\")[1])
        self.assertEqual(texts(LIBRARY + r"\1.0\0\win64")["@"], module)

    def assert_nothing(self, branch):
        known = classes(branch)
        self.assertEqual([key for key in KEYS if key.lower() in known], [])

    def test_for_the_machine(self):
        self.regsvr32()
        self.assert_registered("HKLM")
        self.assert_nothing("HKCU")
        self.regsvr32("/u")
        self.assert_nothing("HKLM")
        self.regsvr32("/u")

    def test_for_a_user(self):
        self.regsvr32("/n", "/i:user")
        self.assert_registered("HKCU")
        self.assert_nothing("HKLM")
        self.regsvr32("/u", "/n", "/i:user")
        self.assert_nothing("HKCU")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
