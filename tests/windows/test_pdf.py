#!/usr/bin/env python3
"""PDF that the program for Windows writes, beside what the program of this system writes of the same
account, both read by programs that nobody here wrote.

  scripts/with-wine tests/windows/test_pdf.py PACKAGE PROGRAM

PACKAGE is the folder that scripts/build-windows makes, PROGRAM the program of this system.
"""

import re
import sqlite3
import subprocess
import sys
import tempfile
import unittest
from contextlib import closing
from pathlib import Path

import wine_session

PACKAGE, PROGRAM = (Path(argument) for argument in sys.argv[1:3])
del sys.argv[1:3]
SECONDS = 240
ENTRIES = 400
# Digests with letters of more than one alphabet, outside the basic plane, joined, and too wide for
# their column.
DIGESTS = ["机场滑行道 Łódź Ωμέγα Дом", "𠮷吉", "甲 & <乙> \"丙\"", "很长的摘要" * 20, "שלום 期初"]


def run(*command):
    return subprocess.run([str(part) for part in command], check=True, capture_output=True,
                          encoding="utf-8", timeout=SECONDS).stdout


def words_of(path):
    """The words of each page. Where blanks fall between letters is the reader's guess."""
    pages = run("pdftotext", "-layout", path, "-").split("\f")[:-1]
    return [re.sub(r"\s+", "", page) for page in pages]


def facts_of(path):
    return {name.strip(): value.strip() for name, _, value in
            (line.partition(":") for line in run("pdfinfo", path).splitlines())}


class PdfTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        place = tempfile.TemporaryDirectory()
        cls.addClassCleanup(place.cleanup)
        cls.folder = Path(place.name, "期初 Łódź")
        cls.folder.mkdir()
        cls.account = cls.folder / "账套.kelvane"
        run(PROGRAM, "init", "--sample", "--entries", ENTRIES, cls.account)
        with closing(sqlite3.connect(cls.account)) as database:
            for entry, digest in enumerate(DIGESTS, 1):
                changed = database.execute("update PM_ItemQC set cDigest = ? where iEleVid ="
                                           " (select min(iEleVid) + ? from PM_ItemQC)",
                                           (digest, entry)).rowcount
                assert changed == 1, entry
            database.commit()

    def both(self, name, command, *arguments):
        """The same command's file by this system's program and by the one for Windows."""
        files = [self.folder / f"{system}-{name}.pdf" for system in ("linux", "windows")]
        arguments = [str(argument) for argument in arguments]
        run(PROGRAM, command, self.account, *arguments, files[0])
        account, file = map(wine_session.windows_path, (self.account, files[1]))
        result = wine_session.run(PACKAGE / "kelvane.exe", command, account, *arguments, file,
                                  seconds=SECONDS)
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        return files

    def assert_alike(self, ours, theirs):
        here, there = facts_of(ours), facts_of(theirs)
        for fact in ("Title", "Pages", "Page size", "PDF version"):
            self.assertEqual(here[fact], there[fact], fact)
        self.assertEqual(words_of(ours), words_of(theirs))
        fonts = run("pdffonts", theirs).splitlines()[2:]
        self.assertTrue(fonts)
        for font in fonts:
            self.assertRegex(font, r"^[A-Z]{6}\+.* yes +yes +yes ")
        # A whole font for Chinese would have megabytes.
        self.assertLess(theirs.stat().st_size, 2 * ours.stat().st_size + 50_000)

    def ink_of(self, path):
        """How dark each twentieth of each page's height is."""
        run("pdftoppm", "-r", "50", "-gray", path, path.with_suffix(""))
        pictures = sorted(path.parent.glob(path.stem + "-*.pgm"))
        inks = []
        for picture in pictures:
            _, size, _, pixels = picture.read_bytes().split(b"\n", 3)
            width, height = map(int, size.split())
            band = width * (height // 20)
            inks.append([sum(255 - pixel for pixel in pixels[at * band:(at + 1) * band])
                         for at in range(20)])
        return inks

    def test_list(self):
        ours, theirs = self.both("list", "export", "--to")
        self.assert_alike(ours, theirs)
        self.assertGreater(int(facts_of(theirs)["Pages"]), 5)
        text = "".join(words_of(theirs))
        for digest in ("Łódź", "Ωμέγα", "Дом", "𠮷吉", "甲&<乙>"):
            self.assertIn(digest, text)
        for lines in zip(self.ink_of(ours), self.ink_of(theirs)):
            for here, there in zip(*lines):
                self.assertAlmostEqual(here, there, delta=max(here, there) * 0.2 + 500)
        run("pdftoppm", "-r", "80", "-png", "-singlefile", theirs, self.folder / "page")
        wine_session.keep(self.folder / "page.png", "pdf-list.png")

    def test_summary(self):
        self.assert_alike(*self.both("summary", "summary", "--by", "element,month", "--to"))

    def test_sheet_to_be_signed(self):
        ours, theirs = self.both("signed", "summary", "--sign-off")
        # They were written at two times, of an account that has two names.
        passing = re.compile(r"\d{4}[-.]\d{2}[-.]\d{2}(\d{2}:\d{2}(:\d{2})?)?|账套\S*账套\.kelvane")
        pages = [[passing.sub("", page) for page in words_of(path)] for path in (ours, theirs)]
        self.assertEqual(*pages)
        self.assertIn("期初核对签字表", pages[1][0])

    def test_a_script_prints(self):
        printed = self.folder / "printed.pdf"
        commands = f"init\nshow\nfile {wine_session.windows_path(printed)}\nclick Print\nclose\n"
        result = wine_session.run(PACKAGE / "kelvane.exe", "drive",
                                  wine_session.windows_path(self.account), seconds=SECONDS,
                                  commands=commands)
        self.assertEqual(result.returncode, 0, result.stdout.decode("utf-8"))
        self.assertIn("项目期初录入", words_of(printed)[0])

    def test_what_cannot_be_written(self):
        place = self.folder / "none" / "list.pdf"
        result = wine_session.run(PACKAGE / "kelvane.exe", "export",
                                  wine_session.windows_path(self.account), "--to",
                                  wine_session.windows_path(place), seconds=SECONDS)
        self.assertEqual(result.returncode, 1)
        self.assertIn("none\\list.pdf", result.stderr.decode("utf-8"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
