"""What the tests of files have in common: a folder with an account of the sample company, the
program that writes files of it, and LibreOffice, which converts them."""

import os
import shutil
import sqlite3
import subprocess
import tempfile
import unittest
from contextlib import closing
from pathlib import Path

# A spreadsheet as csv, with each cell as it is shown: comma, double quote, UTF-8.
SHOWN_AS_CSV = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false"

# In KiB, of a program that reads a table.
MOST_MEMORY = 200 * 1024
# For a program whose memory is measured: a sanitizer does not hold back what was freed.
MEASURED = {"ASAN_OPTIONS": "quarantine_size_mb=1"}


def run(*command, status=0, **options):
    """What the command writes; it has to end with `status`."""
    done = subprocess.run(list(map(str, command)), capture_output=True, encoding="utf-8",
                          timeout=300, **options)
    assert done.returncode == status, f"{done.args} ended with {done.returncode}:\n{done.stdout}{done.stderr}"
    return done.stdout


def convert(folder, path, kind, *more):
    """Has LibreOffice make another kind of file of `path`, in a folder below `folder`."""
    extension = kind.split(":")[0]
    place = folder / extension
    run("soffice", f"-env:UserInstallation=file://{folder}/office", "--headless", *more,
        "--convert-to", kind, "--outdir", place, path)
    return place / f"{path.stem}.{extension}"


class AccountCase(unittest.TestCase):
    """Tests of one account, which is made once with so many entries."""

    PROGRAM = ""
    ENTRIES = 25

    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp(prefix="kelvane-files-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.environment = dict(os.environ, HOME=str(cls.folder), XDG_DATA_HOME=str(cls.folder),
                               XDG_CONFIG_HOME=str(cls.folder))
        cls.account = cls.folder / "a.kelvane"
        cls.kelvane("init", cls.account, "--sample", "--entries", cls.ENTRIES)

    @classmethod
    def kelvane(cls, *arguments, **options):
        return run(cls.PROGRAM, *arguments, env=cls.environment, **options)

    @classmethod
    def ask(cls, query, *values):
        """The rows of a query, which may also change the account."""
        with closing(sqlite3.connect(cls.account)) as database:
            rows = database.execute(query, values).fetchall()
            database.commit()
        return rows
