#!/usr/bin/env python3
"""Gives LibreOffice Calc what an operator copies, and looks at the cells that it makes of it.

  check_copied_text.py PROGRAM

The text takes the way of Calc's own reader of text tables, with tabs between the cells and numbers
and dates recognised, as when it is pasted.
"""

import datetime
import sys
import unittest
from decimal import Decimal

import openpyxl

from program_files import AccountCase, convert

TITLES = ["日期", "责任中心", "项目编号", "项目名称", "标段 (关键字)", "要素", "摘要", "未结转期初"]
# Tab, double quote, UTF-8, from the first line, recognising numbers and dates.
READER = "CSV:9,34,76,1,,0,false,true"
QUOTED = '3" 钢管，"甲供"'
PRINT = "> print clipboard\n"


class CopiedText(AccountCase):
    ENTRIES = 30

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        first, second = [row[0] for row in cls.ask(
            "select iEleVid from PM_ItemQC order by iEleVid limit 2")]
        cls.ask("update PM_ItemQC set cDigest = ? where iEleVid = ?", QUOTED, first)
        cls.ask("update PM_ItemQC set cDigest = '两行' || char(10) || '摘要',"
                " mQC = '-1234567.8900' where iEleVid = ?", second)
        script = "init\nshow\ngo 1 1\nkey Ctrl+A\nmenu 复制（带标题）\nprint clipboard\nclose\n"
        transcript = cls.kelvane("drive", cls.account, input=script)
        # Opening the list corrects amounts that their lines do not come to.
        cls.rows = [
            (datetime.datetime.strptime(row[0][:10], "%Y-%m-%d"), *row[1:4], Decimal(row[4]))
            for row in cls.ask(
                "select dDate, cCenterCode, cItemCode, cDigest, mQC from PM_ItemQC")]
        lines = transcript.split(PRINT)[1].split("> close")[0]
        copied = cls.folder / "copied.csv"
        copied.write_text(lines.replace("\\t", "\t").rstrip("\n"), encoding="utf-8")
        calc = convert(cls.folder, copied, "xlsx", f"--infilter={READER}")
        sheet = openpyxl.load_workbook(calc).active
        cls.cells = list(sheet.iter_rows())

    def test_it_is_one_table_with_its_titles(self):
        self.assertEqual([cell.value for cell in self.cells[0]], TITLES)
        self.assertEqual(len(self.cells), self.ENTRIES + 1)

    def test_dates_are_dates_and_amounts_are_numbers(self):
        for row in self.cells[1:]:
            self.assertIsInstance(row[0].value, datetime.datetime, row[0].value)
            self.assertEqual(row[7].data_type, "n", row[7].value)

    def test_the_table_holds_what_the_account_holds(self):
        found = [(row[0].value, row[1].value, row[2].value, row[6].value,
                  Decimal(str(row[7].value))) for row in self.cells[1:]]
        self.assertIn(QUOTED, [row[3] for row in found])
        self.assertIn("两行\n摘要", [row[3] for row in found])
        self.assertEqual(sorted(found, key=str), sorted(self.plain(self.rows), key=str))

    @staticmethod
    def plain(rows):
        """The same numbers in the same form, for comparing their texts."""
        return [(*row[:4], Decimal(repr(float(row[4])).removesuffix(".0"))) for row in rows]


if __name__ == "__main__":
    AccountCase.PROGRAM = sys.argv.pop(1)
    unittest.main(verbosity=2)
