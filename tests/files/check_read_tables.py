#!/usr/bin/env python3
"""Reads tables that programs of others wrote, and files that were made to do harm.

  check_read_tables.py TABLE_TOOL PROGRAM FUZZ_TARGET

Workbooks of openpyxl, of LibreOffice and of the program itself, texts in both encodings, the older
format. What is harmful has to be refused without taking the memory that it asks for.
"""

import datetime
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import zipfile
import zlib
from decimal import Decimal
from pathlib import Path

import openpyxl

from program_files import MEASURED, MOST_MEMORY, convert

TOOL = ""
PROGRAM = ""
FUZZ_TARGET = ""
KINDS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
LINKS = "http://schemas.openxmlformats.org/package/2006/relationships"


class Outcome:
    """What the tool said of a file, and the memory that it took."""

    def __init__(self, *arguments):
        environment = {**os.environ, **MEASURED}
        with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
            process = subprocess.Popen([TOOL, *map(str, arguments)], stdout=output, stderr=errors,
                                       env=environment)
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
            output.seek(0)
            errors.seek(0)
            self.lines = output.read().decode().split("\n")[:-1]
            self.errors = errors.read().decode().strip()
        self.status = process.returncode
        self.memory = usage.ru_maxrss


def packed(chunk, times, end):
    """`chunk` again and again, deflated; its pieces do not refer to each other."""
    packer = zlib.compressobj(9, zlib.DEFLATED, -15)
    first = packer.compress(chunk[0]) + packer.flush(zlib.Z_FULL_FLUSH)
    piece = packer.compress(chunk[1]) + packer.flush(zlib.Z_FULL_FLUSH)
    return first + piece * times + packer.compress(end) + packer.flush(zlib.Z_FINISH)


def workbook(path, part, begin, chunk, times, end, said=None):
    """A workbook whose part is made of one piece many times. The others are sound, but for their
    checksums, which a reader meets last."""
    sound = {
        "_rels/.rels": f'<Relationships xmlns="{LINKS}"><Relationship Id="a" Type="{KINDS}/'
                       'officeDocument" Target="xl/workbook.xml"/></Relationships>',
        "xl/_rels/workbook.xml.rels":
            f'<Relationships xmlns="{LINKS}"><Relationship Id="s" Type="{KINDS}/worksheet" '
            f'Target="sheet.xml"/><Relationship Id="t" Type="{KINDS}/sharedStrings" '
            'Target="texts.xml"/></Relationships>',
        "xl/workbook.xml": f'<workbook xmlns="{MAIN}" xmlns:r="{KINDS}"><sheets><sheet '
                           'name="期初" sheetId="1" r:id="s"/></sheets></workbook>',
        "xl/texts.xml": f'<sst xmlns="{MAIN}"/>',
        "xl/sheet.xml": f'<worksheet xmlns="{MAIN}"/>'}
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as book:
        for name, text in sound.items():
            if name != part:
                book.writestr(name, text)
        data = packed((begin, chunk), times, end)
        size = len(begin) + len(chunk) * times + len(end) if said is None else said
        # Written as it is, then said to be deflated.
        info = zipfile.ZipInfo(part)
        book.writestr(info, data)
        info.compress_type = zipfile.ZIP_DEFLATED
        info.file_size = min(size, 0xFFFFFFFE)
        place = info.header_offset
    content = bytearray(path.read_bytes())
    struct.pack_into("<H", content, place + 8, 8)
    struct.pack_into("<I", content, place + 22, min(size, 0xFFFFFFFE))
    path.write_bytes(content)


class ForeignTables(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp(prefix="kelvane-tables-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.book = cls.folder / "openpyxl.xlsx"
        cls.make_book(cls.book)

    @staticmethod
    def make_book(path):
        book = openpyxl.Workbook()
        sheet = book.active
        sheet.title = "期初"
        sheet.append(["日期", "责任中心", "摘要", "未结转期初"])
        sheet.append([datetime.date(2004, 7, 1), "0101", " 留白 ", Decimal("1234.50")])
        sheet.append([datetime.datetime(1995, 1, 1, 12, 30), 101, "第一行\n第二行", 12345.6789])
        sheet.append(["2004.7.1", "007", "<b>&amp;</b>", "=1+1"])
        sheet.append([38169, None, True, -0.0001])
        sheet["A5"].number_format = 'yyyy"年"m"月"d"日"'
        sheet["C6"] = "末行"
        sheet.row_dimensions[4].hidden = True
        sheet.merge_cells("A8:B9")
        other = book.create_sheet("明细")
        other["XFD1048576"] = "角"
        book.save(path)

    def read(self, path, *options):
        outcome = Outcome(*options, path)
        self.assertEqual(outcome.errors, "")
        self.assertEqual(outcome.status, 0)
        return outcome.lines

    def convert(self, path, kind, *more):
        return convert(self.folder, path, kind, *more)

    def test_openpyxl(self):
        self.assertEqual(self.read(self.book), [
            "sheet 期初",
            "1 A:t 日期|B:t 责任中心|C:t 摘要|D:t 未结转期初",
            "2 A:d 2004-07-01 00:00:00.000|B:t 0101|C:t  留白 |D:n 1234.5",
            "3 A:d 1995-01-01 12:30:00.000|B:n 101|C:t 第一行\\n第二行|D:n 12345.6789",
            "4h A:t 2004.7.1|B:t 007|C:t <b>&amp;</b>|D:f ",
            "5 A:d 2004-07-01 00:00:00.000|C:t TRUE|D:n -0.0001",
            "6 C:t 末行",
            "merged A8 B9",
            "sheet 明细",
            "1048576 XFD:t 角"])

    def test_libreoffice(self):
        saved = self.convert(self.book, "xlsx")
        lines = self.read(saved)
        self.assertIn("2 A:d 2004-07-01 00:00:00.000|B:t 0101|C:t  留白 |D:n 1234.5", lines)
        self.assertIn("3 A:d 1995-01-01 12:30:00.000|B:n 101|C:t 第一行\\n第二行|D:n 12345.6789", lines)
        # It computes what it saves.
        self.assertIn("4h A:t 2004.7.1|B:t 007|C:t <b>&amp;</b>|D:n 2", lines)
        self.assertIn("5 A:d 2004-07-01 00:00:00.000|C:t TRUE|D:n -0.0001", lines)
        self.assertIn("merged A8 B9", lines)
        self.assertIn("sheet 明细", lines)

    def test_the_older_format(self):
        outcome = Outcome(self.convert(self.book, "xls"))
        self.assertEqual(outcome.status, 1)
        self.assertTrue(outcome.errors.endswith("：是旧格式（.xls），请另存为 .xlsx"), outcome.errors)

    def test_another_format_in_an_archive(self):
        outcome = Outcome(self.convert(self.book, "ods"))
        self.assertTrue(outcome.errors.endswith("：不是 .xlsx 工作簿"), outcome.errors)

    def test_texts_of_libreoffice(self):
        expected = ["sheet ", "1 A:t 名|B:t 值", "2 A:t 甲,乙|B:t 1;2", "3 A:t 第一行\\n第二行|B:t \"丙\""]
        book = openpyxl.Workbook()
        for row in [["名", "值"], ["甲,乙", "1;2"], ["第一行\n第二行", '"丙"']]:
            book.active.append(row)
        path = self.folder / "texts.xlsx"
        book.save(path)
        # Separator, quote and encoding: 76 is UTF-8, 85 is GB18030.
        for separator, encoding in ((44, 76), (59, 85), (9, 76)):
            with self.subTest(separator=separator, encoding=encoding):
                text = self.convert(
                    path, f"csv:Text - txt - csv (StarCalc):{separator},34,{encoding}")
                letter = "甲".encode("utf-8" if encoding == 76 else "gb18030")
                self.assertIn(letter, text.read_bytes())
                self.assertEqual(self.read(text), expected)

    def test_all_of_gb18030(self):
        # Editions of the standard differ in these.
        differing = {0x1E3F, *range(0x9FB4, 0x9FBC), *range(0xFE10, 0xFE1A)}
        letters = [chr(code) for code in [*range(0xA0, 0xD800), *range(0xF900, 0xFFF0), 0x20000,
                                          0x2A6D6] if code not in differing]
        path = self.folder / "letters.csv"
        rows = ["".join(letters[at:at + 64]) for at in range(0, len(letters), 64)]
        path.write_bytes("\n".join(row + ",x" for row in rows).encode("gb18030"))
        lines = self.read(path)
        self.assertEqual(lines[1:], [f"{at} A:t {row}|B:t x" for at, row in enumerate(rows, 1)])

    def test_the_program_itself_and_damaged_files(self):
        account = self.folder / "a.kelvane"
        environment = dict(os.environ, HOME=str(self.folder), XDG_DATA_HOME=str(self.folder),
                           XDG_CONFIG_HOME=str(self.folder))
        shown = []
        for command in (["init", account, "--sample", "--entries", "50"],
                        ["export", account, "--to", self.folder / "own.xlsx"],
                        ["export", account, "--to", self.folder / "own.csv"]):
            subprocess.run([PROGRAM, *command], check=True, capture_output=True, env=environment,
                           timeout=300)
        own = [self.folder / "own.xlsx", self.folder / "own.csv"]
        for path in own:
            lines = self.read(path)
            self.assertEqual(len(lines), 52)
            shown.append([line.split("|")[1:3] for line in lines[1:]])
        self.assertEqual(shown[0], shown[1])
        # Damaged in many ways, they are read or refused.
        seeds = [*own, self.book, self.convert(self.book, "xlsx")]
        tried = subprocess.run([FUZZ_TARGET, "200", *seeds], check=True, capture_output=True,
                               encoding="utf-8", timeout=300).stdout
        self.assertEqual(tried, f"tried {201 * len(seeds)}\n")

    def assert_refused(self, path, reason):
        outcome = Outcome("--count", path)
        self.assertEqual(outcome.status, 1, outcome.lines)
        self.assertIn(reason, outcome.errors)
        self.assertLess(outcome.memory, MOST_MEMORY)

    def test_what_grows(self):
        path = self.folder / "grows.xlsx"
        root = f'<worksheet xmlns="{MAIN}">'.encode()
        blanks = b" " * 1_000_000
        workbook(path, "xl/sheet.xml", root, blanks, 4_000, b"</worksheet>")
        self.assertLess(path.stat().st_size, 10_000_000)
        self.assert_refused(path, "展开后太大")
        workbook(path, "xl/sheet.xml", root, blanks, 4_000, b"</worksheet>", said=90_000_000)
        self.assert_refused(path, "已损坏")
        texts = b"<si><t>" + b"x" * 30_000 + b"</t></si>"
        workbook(path, "xl/texts.xml", f'<sst xmlns="{MAIN}">'.encode(), texts, 3_000, b"</sst>")
        self.assert_refused(path, "文字太多")
        workbook(path, "xl/texts.xml", f'<sst xmlns="{MAIN}">'.encode(), b"<si/>" * 1_000, 4_100,
                 b"</sst>")
        self.assert_refused(path, "文字太多")

    def test_sheets_of_every_cell(self):
        path = self.folder / "full.xlsx"
        root = f'<worksheet xmlns="{MAIN}"><sheetData>'.encode()
        row = b"<row>" + b"<c/>" * 16_384 + b"</row>"
        workbook(path, "xl/sheet.xml", root, row, 65_000, b"</sheetData></worksheet>")
        self.assert_refused(path, "展开后太大")
        workbook(path, "xl/sheet.xml", root, row, 65_000, b"</sheetData></worksheet>",
                 said=96_000_000)
        self.assert_refused(path, "内容太多")
        row = b"<row>" + b"<c t='str'><v>" + b"x" * 120_000 + b"</v></c>" * 1 + b"</row>"
        workbook(path, "xl/sheet.xml", root, row, 3_000, b"</sheetData></worksheet>",
                 said=96_000_000)
        self.assert_refused(path, "已损坏")

    def test_what_takes_long(self):
        path = self.folder / "long.xlsx"
        root = f'<worksheet xmlns="{MAIN}">'.encode()
        names = b"".join(b" a%d=''" % at for at in range(15_000))
        workbook(path, "xl/sheet.xml", root, b"<a" + names + b"/>", 400, b"</worksheet>")
        self.assert_refused(path, "属性")
        for piece in (b"<a/>", b"<?a?>", b"<!---->", b"&#65;<a/>"):
            workbook(path, "xl/sheet.xml", root, piece * 1_000, 8_200, b"</worksheet>")
            self.assert_refused(path, "内容太多")
        spaces = b"".join(b"<s xmlns:n%d='u'>" % at for at in range(60))
        workbook(path, "xl/sheet.xml", root + spaces, b"<n0:a/>" * 1_000, 8_200, b"")
        self.assert_refused(path, "内容太多")


if __name__ == "__main__":
    TOOL, PROGRAM, FUZZ_TARGET = sys.argv[1:4]
    del sys.argv[1:4]
    unittest.main()
