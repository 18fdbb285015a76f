#!/usr/bin/env python3
"""The data-access objects that the tests bring to Wine behave as documented.

  scripts/with-postgres scripts/with-wine tests/windows/test_ado_server.py PACKAGE LIBRARY
"""

import os
import subprocess
import sys
import unittest
from pathlib import Path

import wine_session

SCRIPT = Path(sys.argv[1], "samples", "data-access.vbs")
LIBRARY = Path(sys.argv[2])
NO_SERVER = "Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=1;Database=none;UID=none"


def own(number):
    """The object library's own error as scripts see it: its number without the facility."""
    return number


def provider(code):
    return code - (1 << 32)


EXPECTED = f"""\
new = 0 2 0
execute while closed = {own(3704)} ADODB.Connection
open on a closed connection = {own(3709)} ADODB.Recordset
no server = {provider(0x80004005)} ADODB.Connection
its errors = 1 08001 0
no provider = {own(3706)} ADODB.Connection
open = 0 
open = 1
open twice = {own(3705)} ADODB.Connection
commit nothing = {provider(0x8004D00E)} ADODB.Connection
create = 0 
insert = 0 
insert nulls = 0 
bad insert = {provider(0x80040E14)} ADODB.Connection
its errors = 1 42000 -1
rows = 0 
count = 2 0 0 8
inumber = Long 3 70000
iTiny = Byte 17 3
iSmall = Integer 2 -5
bFlag = Boolean 11 -1
mAmount = AMOUNT 1234.5678
dblRate = Double 5 0.25
cText = String 200 text
dDate = Date 135 38168.5000014236
by number = 70000 iNumber
unknown name = {own(3265)} ADODB.Recordset
unknown number = {own(3265)} ADODB.Recordset
set a read-only field = {own(3251)} ADODB.Field
nulls = Null Null Null
end = -1
field at the end = {own(3021)} ADODB.Field
next at the end = {own(3021)} ADODB.Recordset
first again = 70000
open an open set = {own(3705)} ADODB.Recordset
close twice = {own(3704)} ADODB.Recordset
empty = -1 -1 0
first of none = {own(3021)} ADODB.Recordset
close while editing = {own(3219)} ADODB.Recordset
update = 0 
close in a transaction = {own(3246)} ADODB.Connection
written = -0.0001 changed 38383 -1
rolled back = 2
drop = 0 
rows of a closed connection = 0
end of script = reached"""


class AdoServerTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.assertEqual(cls(), wine_session.register(LIBRARY), 0, "the server did not register")

    def facts(self, library_provider):
        connection = library_provider + os.environ["KELVANE_TEST_POSTGRES"]
        return "\n".join(wine_session.run_script(
            SCRIPT, connection, NO_SERVER))

    def test_amounts_as_decimals(self):
        self.assertEqual(self.facts(""), EXPECTED.replace("AMOUNT", "Decimal 131"))

    def test_amounts_as_currency(self):
        self.assertEqual(self.facts("Provider=SQLOLEDB.1;Persist Security Info=False;"),
                         EXPECTED.replace("AMOUNT", "Currency 6"))


class RegistrationTest(unittest.TestCase):
    def test_refuses_any_other_prefix(self):
        marker = Path(os.environ["WINEPREFIX"], "drive_c", "kelvane-throwaway-prefix")
        hidden = marker.with_name("elsewhere")
        # run() itself wants the marker, so that it never runs anywhere else either.
        command = ["wine", "regsvr32", "/s", wine_session.windows_path(LIBRARY)]
        marker.rename(hidden)
        try:
            status = subprocess.run(command, stdout=subprocess.DEVNULL,
                                    stderr=subprocess.DEVNULL, check=False,
                                    timeout=wine_session.RUN_SECONDS).returncode
        finally:
            hidden.rename(marker)
        self.assertNotEqual(status, 0)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
