#!/usr/bin/env python3
"""Opens what the program writes with programs that are not ours, and compares it with the account.

  check_exported_files.py PROGRAM

Spreadsheets with openpyxl and LibreOffice, PDF with pdftotext, pdffonts and pdftoppm, CSV with
Python's csv, XML with Python's parser.
"""

import csv
import datetime
import sqlite3
import sys
import unittest
import xml.etree.ElementTree
from contextlib import closing
from decimal import Decimal
from pathlib import Path

import openpyxl

from program_files import SHOWN_AS_CSV, AccountCase, convert, run

TITLES = ["日期", "责任中心", "项目编号", "项目名称", "标段 (关键字)", "要素", "摘要", "未结转期初"]
# Texts that a spreadsheet could take for a formula or a number, or that need quotes.
AWKWARD = ["=1+1", "+49", "-7", "@SUM(A1)", "＝1+1", 'a,"b"', "007", "1,234.50", "<b>&amp;</b>", "逗号，句号。"]
LONG_AMOUNT = "900000000000123.4500"


class ExportedFiles(AccountCase):
    ENTRIES = 400

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        with closing(sqlite3.connect(cls.account)) as database:
            plain = [row[0] for row in database.execute(
                "select iEleVid from PM_ItemQC where iEleVid not in (select iEleVid from"
                " PM_ItemQCsub) order by iEleVid limit ?", (len(AWKWARD) + 2,))]
            for entry, text in zip(plain, AWKWARD):
                database.execute("update PM_ItemQC set cDigest = ? where iEleVid = ?",
                                 (text, entry))
            database.execute("update PM_ItemQC set cDigest = ? where iEleVid = ?",
                             ("很长的摘要" * 20, plain[-2]))
            database.execute("update PM_ItemQC set mQC = ? where iEleVid = ?",
                             (LONG_AMOUNT, plain[-1]))
            database.commit()
        for extension in ("xlsx", "csv", "pdf", "xml"):
            cls.kelvane("export", cls.account, "--to", cls.folder / f"list.{extension}")
        with closing(sqlite3.connect(cls.account)) as database:
            cls.rows = [
                [row[0][:10], *row[1:7], Decimal(row[7])]
                for row in database.execute(
                    "select dDate, cCenterCode, q.cItemCode, citemname, cKeyCode1, cElementName,"
                    " cDigest, mQC from PM_ItemQC q join fitemss97 i on i.citemcode = q.cItemCode"
                    " join PM_ItemElement e on e.cElementCode = q.cElementCode")]
            cls.detailed = database.execute(
                "select iEleVid, count(*) from PM_ItemQCsub group by 1 order by 1").fetchone()

    def assert_same_rows(self, rows):
        """The list's order among equal items is the engine's."""
        self.assertEqual(len(self.rows), self.ENTRIES)
        self.assertEqual(sorted(rows, key=str), sorted(self.rows, key=str))

    def test_csv(self):
        raw = (self.folder / "list.csv").read_bytes()
        self.assertTrue(raw.startswith(b"\xef\xbb\xbf"))
        self.assertEqual(raw.count(b"\r\n"), self.ENTRIES + 1)
        self.assertEqual(raw.count(b"\n"), self.ENTRIES + 1)
        with open(self.folder / "list.csv", encoding="utf-8-sig", newline="") as file:
            rows = list(csv.reader(file, strict=True))
        self.assertEqual(rows[0], TITLES)
        for row in rows[1:]:
            self.assertFalse(row[6].startswith(("=", "+", "-", "@", "＝")), row)
            row[6] = row[6].removeprefix("'")
            row[7] = Decimal(row[7])
        self.assert_same_rows(rows[1:])

    def test_xml(self):
        root = xml.etree.ElementTree.parse(self.folder / "list.xml").getroot()
        self.assertEqual(root.get("标题"), "项目期初录入")
        self.assertEqual([column.get("名称") for column in root.iter("列")], TITLES)
        rows = [[cell.text or "" for cell in row] for row in root.iter("行")]
        for row in rows:
            row[7] = Decimal(row[7])
        self.assert_same_rows(rows)

    def test_xlsx_by_openpyxl(self):
        sheet = openpyxl.load_workbook(self.folder / "list.xlsx").active
        self.assertEqual(sheet.title, "项目期初录入")
        self.assertEqual(sheet.freeze_panes, "A2")
        cells = list(sheet.iter_rows())
        self.assertEqual([cell.value for cell in cells[0]], TITLES)
        rows = []
        for row in cells[1:]:
            date, amount = row[0], row[7]
            self.assertIsInstance(date.value, datetime.datetime)
            self.assertEqual(date.number_format, "yyyy-mm-dd")
            if amount.value == "900,000,000,000,123.45":  # more digits than a number would keep
                value = Decimal(amount.value.replace(",", ""))
            else:
                self.assertIn(amount.data_type, "n")
                self.assertEqual(amount.number_format, "#,##0.00")
                value = Decimal(repr(amount.value))
            texts = [cell.value for cell in row[1:7]]
            self.assertTrue(all(cell.data_type == "s" for cell in row[1:7]), texts)
            rows.append([date.value.strftime("%Y-%m-%d"), *texts, value])
        self.assert_same_rows(rows)
        # The grid's widths: 2500 twips are 166.7 pixels, 1300 are 86.7.
        widths = sheet.column_dimensions
        self.assertAlmostEqual(widths["D"].width, (2500 / 15 - 5) / 7 + 0.71, delta=0.1)
        self.assertAlmostEqual(widths["A"].width, (1300 / 15 - 5) / 7 + 0.71, delta=0.1)

    def test_xlsx_by_libreoffice(self):
        converted = convert(self.folder, self.folder / "list.xlsx", SHOWN_AS_CSV)
        with open(converted, encoding="utf-8", newline="") as file:
            rows = list(csv.reader(file))
        self.assertEqual(rows[0], TITLES)
        for row in rows[1:]:
            row[7] = Decimal(row[7].replace(",", ""))
        self.assert_same_rows(rows[1:])

    def test_long_list_is_the_same_spreadsheet(self):
        """Long lists are written row by row."""
        account = self.folder / "long.kelvane"
        self.kelvane("init", account, "--sample", "--entries", "5200")
        self.kelvane("export", account, "--to", self.folder / "long.xlsx")
        sheet = openpyxl.load_workbook(self.folder / "long.xlsx", read_only=True).active
        rows = list(sheet.iter_rows(values_only=True))
        self.assertEqual(len(rows), 5201)
        self.assertEqual(list(rows[0]), TITLES)
        with closing(sqlite3.connect(account)) as database:
            total = sum(Decimal(row[0]) for row in database.execute("select mQC from PM_ItemQC"))
        self.assertEqual(sum(Decimal(repr(row[7])) for row in rows[1:]), total)
        self.assertTrue(all(isinstance(row[0], datetime.datetime) for row in rows[1:]))

    def test_pdf_text(self):
        path = self.folder / "list.pdf"
        info = run("pdfinfo", str(path))
        pages = int(next(line for line in info.splitlines() if line.startswith("Pages:"))[6:])
        self.assertGreater(pages, 5)
        self.assertIn("A4", info)
        text = run("pdftotext", "-layout", str(path), "-").split("\f")[:-1]
        self.assertEqual(len(text), pages)
        for number, page in enumerate(text, 1):
            words = page.split()
            self.assertIn("项目期初录入", words)
            self.assertIn("未结转期初", words)
            self.assertIn(f"第 {number} 页 共 {pages} 页", page)
            self.assertIn("单位：", page)
            self.assertIn("打印日期：", page)
        words = "".join(text).split()
        for row in self.rows:
            self.assertIn(f"{row[7]:,.2f}", words)
        self.assertEqual(sum(words.count(f"{date:%Y-%m-%d}") for date in
                             {datetime.date.fromisoformat(row[0]) for row in self.rows}), self.ENTRIES)

    def test_pdf_fonts_are_embedded(self):
        fonts = run("pdffonts", str(self.folder / "list.pdf")).splitlines()[2:]
        self.assertTrue(fonts)
        for font in fonts:
            embedded, subset, unicode_map = font.split()[-5:-2]
            self.assertEqual((embedded, subset, unicode_map), ("yes", "yes", "yes"), font)

    def test_pdf_pictures(self):
        """Pages are painted inside their margins, and are not empty."""
        run("pdftoppm", "-r", "50", "-gray", str(self.folder / "list.pdf"),
            str(self.folder / "page"))
        pictures = sorted(self.folder.glob("page-*.pgm"))
        self.assertGreater(len(pictures), 5)
        for picture in pictures:
            header, size, _, pixels = picture.read_bytes().split(b"\n", 3)
            self.assertEqual(header, b"P5")
            width, height = map(int, size.split())
            margin = round(15 / 25.4 * 50) - 2
            lines = [pixels[at * width:(at + 1) * width] for at in range(height)]
            inner = [line[margin:width - margin] for line in lines[margin:height - margin]]
            ink = sum(sum(1 for pixel in line if pixel < 128) for line in inner)
            everything = sum(sum(1 for pixel in line if pixel < 128) for line in lines)
            self.assertGreater(ink, 500, picture)
            self.assertEqual(ink, everything, picture)

    def test_detail_lines(self):
        entry, lines = self.detailed
        path = self.folder / "lines.csv"
        self.kelvane("export", self.account, "--to", path, "--details", entry)
        with open(path, encoding="utf-8-sig", newline="") as file:
            rows = list(csv.reader(file, strict=True))
        self.assertEqual(len(rows), lines + 1)
        with closing(sqlite3.connect(self.account)) as database:
            total, amount = database.execute(
                "select sum(mQC), (select mQC from PM_ItemQC q where q.iEleVid = s.iEleVid)"
                " from PM_ItemQCsub s where iEleVid = ?", (entry,)).fetchone()
        self.assertEqual(sum(Decimal(row[-1]) for row in rows[1:]), Decimal(amount))
        self.assertAlmostEqual(float(total), float(amount))
        self.kelvane("export", self.account, "--to", path.with_suffix(".pdf"), "--details", entry)
        text = run("pdftotext", "-layout", str(path.with_suffix(".pdf")), "-")
        self.assertRegex(text.split()[0], "^项目期初(设备|存货)明细$")
        for words in ("项目要素：", "项目：", "责任中心：", "单位：", "制表人：", "打印日期：",
                      "第1页共1页"):
            self.assertIn(words, text.replace(" ", ""))
        for row in rows[1:]:
            self.assertIn(f"{Decimal(row[-1]):,.2f}", text.split())


if __name__ == "__main__":
    AccountCase.PROGRAM = str(Path(sys.argv[1]).resolve())
    unittest.main(argv=sys.argv[:1])
