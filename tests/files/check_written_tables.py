#!/usr/bin/env python3
"""Opens tables that the program writes with programs that are not ours, fills them in there and reads
them again.

  check_written_tables.py PROGRAM TABLE_TOOL
"""

import csv
import datetime
import sys
import unittest
from decimal import Decimal

import openpyxl

from program_files import SHOWN_AS_CSV, AccountCase, convert, run

TOOL = ""
ENTRY_TITLES = ["日期", "责任中心", "项目编号", "项目名称", "标段 (关键字)", "要素", "摘要", "未结转期初",
                "行号"]
LINE_TITLES = ["行号", "编码", "名称", "规格", "单位", "单价", "数量", "余额"]
LAST_ROW = 1048576


def titles_of(sheet):
    return [cell.value for cell in sheet[1]]


class Templates(AccountCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.template = cls.folder / "template.xlsx"
        cls.kelvane("template", cls.account, "--to", cls.template)
        cls.filled = cls.folder / "filled.xlsx"
        cls.entry = cls.ask(
            "select q.cCenterCode, q.cItemCode, q.cKeyCode1, e.cElementName from PM_ItemQC q"
            " join PM_ItemElement e on e.cElementCode = q.cElementCode"
            " where e.iElementDetail = 0 order by iEleVid limit 1")[0]
        cls.fill()

    @classmethod
    def fill(cls):
        """As an operator would, with a code that looks like a number and amounts of many kinds."""
        book = openpyxl.load_workbook(cls.template)
        center, item, key, element = cls.entry
        for row, amount in enumerate((8.41, Decimal("0.01"), "1,234.50"), 2):
            values = [datetime.date(2003, 1, 5), center, item, None, key, element, "=摘要", amount,
                      "007"]
            for column, value in enumerate(values, 1):
                cell = book["期初"].cell(row, column)
                cell.value = value
                if isinstance(value, str):
                    cell.data_type = "s"
                    cell.number_format = "@"
            book["期初"].cell(row, 1).number_format = "yyyy-mm-dd"
            book["期初"].cell(row, 9).value = f"00{row}"
        book["合计"]["A2"] = 3
        book.save(cls.filled)

    def test_sheets_and_titles(self):
        book = openpyxl.load_workbook(self.template)
        self.assertEqual([(sheet.title, sheet.sheet_state) for sheet in book],
                         [("期初", "visible"), ("明细", "visible"), ("合计", "visible"),
                          ("选项", "hidden")])
        self.assertEqual(titles_of(book["期初"]), ENTRY_TITLES)
        self.assertEqual(titles_of(book["明细"]), LINE_TITLES)
        self.assertEqual(titles_of(book["合计"]), ["行数", "未结转期初"])
        for name in ("期初", "明细", "合计"):
            self.assertEqual(book[name].freeze_panes, "A2")
            self.assertEqual(book[name].max_row, 1)

    def test_columns_have_the_format_of_what_is_typed(self):
        book = openpyxl.load_workbook(self.template)
        formats = lambda name: [each.number_format for _, each in
                                sorted(book[name].column_dimensions.items())]
        self.assertEqual(formats("期初"), ["yyyy-mm-dd", "@", "@", "@", "@", "@", "@", "#,##0.00##",
                                           "@"])
        self.assertEqual(formats("明细"), ["@", "@", "@", "@", "@", "General", "General",
                                           "#,##0.00##"])

    def lists_of(self, book, name):
        """Column -> what its list offers, from wherever it refers to."""
        offered = {}
        for rule in book[name].data_validations.dataValidation:
            self.assertEqual(rule.type, "list")
            self.assertEqual(rule.errorStyle, "warning")
            sheet, cells = rule.formula1.split("!")
            rows = book[sheet.strip("'$")][cells.replace("$", "")]
            place, end = str(rule.sqref).split(":")
            self.assertEqual((place[1:], end), ("2", f"{place[0]}{LAST_ROW}"))
            offered[place[0]] = [row[0].value for row in rows]
        return offered

    def expected_lists(self, query):
        return sorted(row[0] for row in self.ask(query) if row[0])

    def check_lists(self, book):
        entries = self.lists_of(book, "期初")
        self.assertEqual(entries, {
            "B": self.expected_lists("select cCenterCode from PM_DutyCenter"),
            "C": self.expected_lists("select distinct cItemCode from PM_DutycenterSub"),
            "E": self.expected_lists("select distinct cKeyWord1 from PM_DutycenterSub"),
            "F": self.expected_lists("select cElementName from PM_ItemElement")})
        self.assertGreater(len(entries["F"]), 5)
        self.assertEqual(self.lists_of(book, "明细"), {"B": self.expected_lists(
            "select cEquipCode from pm_equipment where bEquipEnd = 1 union"
            " select cInvCode from inventory")})

    def test_lists(self):
        self.check_lists(openpyxl.load_workbook(self.template))

    def test_lists_of_what_openpyxl_saved(self):
        self.check_lists(openpyxl.load_workbook(self.filled))

    def test_libreoffice_shows_what_was_filled_in(self):
        shown = convert(self.folder, self.filled, SHOWN_AS_CSV)
        with open(shown, encoding="utf-8", newline="") as file:
            rows = list(csv.reader(file))
        center, item, key, element = self.entry
        begin = ["2003-01-05", center, item, "", key, element, "=摘要"]
        self.assertEqual(rows[1:4], [begin + ["8.41", "002"], begin + ["0.01", "003"],
                                     begin + ["1,234.50", "004"]])

    def read(self, path):
        return run(TOOL, path).split("\n")

    def test_it_is_read_as_it_was_filled_in(self):
        center, item, key, element = self.entry
        for path in (self.filled, convert(self.folder, self.filled, "xlsx")):
            lines = self.read(path)
            begin = (f"A:d 2003-01-05 00:00:00.000|B:t {center}|C:t {item}|E:t {key}|F:t {element}|"
                     "G:t =摘要|")
            self.assertEqual(lines[2:5], [f"2 {begin}H:n 8.41|I:t 002", f"3 {begin}H:n 0.01|I:t 003",
                                          f"4 {begin}H:t 1,234.50|I:t 004"])
            told = self.kelvane("import", self.account, path, "--dry-run").split("\n")
            self.assertEqual(told[-2], "rows 3: new 3, changed 0, deleted 0, unchanged 0, refused 0")

    def test_a_template_alone_has_no_rows(self):
        for path in (self.template, convert(self.folder, self.template, "xlsx")):
            self.assertIn("1 " + "|".join(f"{column}:t {title}" for column, title in
                                          zip("ABCDEFGHI", ENTRY_TITLES)), self.read(path))
            self.assertEqual(self.kelvane("import", self.account, path, "--dry-run"),
                             "rows 0: new 0, changed 0, deleted 0, unchanged 0, refused 0\n")

    def test_titles_as_csv(self):
        path = self.folder / "template.csv"
        self.kelvane("template", self.account, "--to", path)
        with open(path, encoding="utf-8-sig", newline="") as file:
            self.assertEqual(list(csv.reader(file, strict=True)), [ENTRY_TITLES])


class EditableBooks(AccountCase):
    ENTRIES = 200
    NOTHING = "rows 200: new 0, changed 0, deleted 0, unchanged 200, refused 0"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        plain = [row[0] for row in cls.ask(
            "select iEleVid from PM_ItemQC where iEleVid not in (select iEleVid from PM_ItemQCsub)"
            " order by iEleVid limit 4")]
        for entry, change in zip(plain, ("mQC = '9.95'", "mQC = '900000000000123.4567'",
                                         "cDigest = '=1+1'", "cDigest = '第一行' || char(10) || '007'")):
            cls.ask(f"update PM_ItemQC set {change} where iEleVid = ?", entry)
        cls.free = {row[0] for row in cls.ask(
            "select iEleVid from PM_ItemQC q join PM_ItemElement e on e.cElementCode ="
            " q.cElementCode where iElementDetail = 0 and cItemCode not in"
            " (select citemcode from fitemss97sub where iclose = 1)")}.difference(plain)
        cls.book = cls.folder / "entries.xlsx"
        cls.kelvane("export", cls.account, "--to", cls.book, "--editable")

    def dry_run(self, path):
        return self.kelvane("import", self.account, path, "--dry-run").split("\n")[-2]

    def saved(self, change=lambda book: None):
        """The workbook, changed and saved by openpyxl."""
        book = openpyxl.load_workbook(self.book)
        change(book)
        path = self.folder / "saved.xlsx"
        book.save(path)
        return path

    def test_identity_and_check_are_hidden(self):
        sheet = openpyxl.load_workbook(self.book)["期初"]
        self.assertEqual(titles_of(sheet), [*ENTRY_TITLES, "操作", "编号", "校验"])
        hidden = [each.hidden for _, each in sorted(sheet.column_dimensions.items())]
        self.assertEqual(hidden, [False] * 10 + [True, True])
        offered = {str(rule.sqref)[0]: rule for rule in sheet.data_validations.dataValidation}
        self.assertEqual(sorted(offered), ["B", "C", "E", "F", "J"])

    def test_it_holds_what_the_account_holds(self):
        sheet = openpyxl.load_workbook(self.book)["期初"]
        found = [(row[0].strftime("%Y-%m-%d"), *row[1:7], Decimal(str(row[7])), row[8], row[10])
                 for row in sheet.iter_rows(min_row=2, values_only=True)]
        expected = [(row[0][:10], *row[1:7], Decimal(row[7]).normalize(), str(row[8]), str(row[8]))
                    for row in self.ask(
                        "select dDate, cCenterCode, q.cItemCode, citemname, cKeyCode1, cElementName,"
                        " cDigest, mQC, iEleVid from PM_ItemQC q join fitemss97 i on i.citemcode ="
                        " q.cItemCode join PM_ItemElement e on e.cElementCode = q.cElementCode"
                        " order by q.cItemCode, iEleVid")]
        self.assertEqual(len(found), self.ENTRIES)
        self.assertEqual([(*row[:7], row[7].normalize(), *row[8:]) for row in found], expected)

    def test_what_others_saved_changes_nothing(self):
        office = convert(self.folder, self.book, "xlsx")
        for path in (self.book, office, self.saved(), convert(self.folder, self.saved(), "xlsx")):
            self.assertEqual(self.dry_run(path), self.NOTHING, path)
        self.assertEqual(run(TOOL, "--properties", office),
                         "kelvane.account=a.kelvane\nkelvane.layout=1\n")

    def test_changes_are_seen(self):
        def change(book):
            sheet = book["期初"]
            # Of these the account has no lines, and their items are not settled.
            first, second, third, fourth, fifth = [
                row for row in range(2, sheet.max_row + 1)
                if int(sheet.cell(row, 11).value) in self.free][:5]
            sheet.cell(first, 7).value = sheet.cell(second, 7).value = "改过的摘要"
            sheet.cell(third, 10).value = "删除"
            # Whatever the budget leaves.
            sheet.append([cell.value for cell in sheet[fourth]][:7] + [-0.01])
            sheet.delete_rows(fifth)

        path = self.saved(change)
        for each in (path, convert(self.folder, path, "xlsx")):
            self.assertEqual(self.dry_run(each),
                             "rows 200: new 1, changed 2, deleted 1, unchanged 196, refused 0")


if __name__ == "__main__":
    AccountCase.PROGRAM, TOOL = sys.argv[1:3]
    del sys.argv[1:3]
    unittest.main()
