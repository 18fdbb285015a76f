#!/usr/bin/env python3
"""The component's entries in the registry, for the machine and for a user: written and removed.

  scripts/with-wine tests/windows/test_registration.py PACKAGE
"""

import sys
import unittest
from pathlib import Path

import wine_session
from registry import CLASS, COMPONENT_KEYS, INTERFACE, LIBRARY, classes

COMPONENT = Path(sys.argv[1]) / "Kelvane.dll"
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
        self.assertEqual([key for key in COMPONENT_KEYS if key.lower() in known], [])

    def test_for_the_machine(self):
        self.regsvr32()
        self.assert_registered("HKLM")
        self.assert_nothing("HKCU")
        self.regsvr32("/u")
        self.assert_nothing("HKLM")
        self.regsvr32("/u")

    def test_other_width_keeps_what_both_share(self):
        other = "HKLM\\Software\\Classes\\" + LIBRARY + r"\1.0\0\win32"
        self.regsvr32()
        self.assertEqual(wine_session.run("reg", "add", other, "/ve", "/d", "other.dll",
                                          "/f").returncode, 0)
        self.regsvr32("/u")
        left = classes("HKLM")
        self.assertEqual([key for key in COMPONENT_KEYS if key.lower() in left],
                         ["Kelvane.PeriodItem", LIBRARY])
        self.assertEqual(left[(LIBRARY + r"\1.0\0\win32").lower()], {"@": "other.dll"})
        self.assertNotIn((LIBRARY + r"\1.0\0\win64").lower(), left)
        self.assertEqual(wine_session.run("reg", "delete", other, "/f").returncode, 0)
        self.regsvr32("/u")
        self.assert_nothing("HKLM")

    def test_for_a_user(self):
        self.regsvr32("/n", "/i:user")
        self.assert_registered("HKCU")
        self.assert_nothing("HKLM")
        self.regsvr32("/u", "/n", "/i:user")
        self.assert_nothing("HKCU")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
