#!/usr/bin/env python3
"""Opens tables that the program writes with programs that are not ours, fills them in there and reads
them again.

  check_written_tables.py PROGRAM TABLE_TOOL
"""

import csv
import datetime
import json
import re
import sys
import unittest
import zipfile
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


def read_csv(path):
    with open(path, encoding="utf-8-sig", newline="") as file:
        return list(csv.reader(file, strict=True))


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

    def test_nothing_offers_to_make_numbers_of_codes(self):
        """openpyxl does not know of it."""
        with zipfile.ZipFile(self.template) as parts:
            sheet = parts.read("xl/worksheets/sheet1.xml").decode()
        ignored = re.search('<ignoredError sqref="([^"]*)" numberStoredAsText="1"/>', sheet)
        self.assertEqual(ignored.group(1).split(" "),
                         [f"{column}2:{column}{LAST_ROW}" for column in "BCDEFGI"])

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
        rows = read_csv(shown)
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
        self.assertEqual(read_csv(path), [ENTRY_TITLES])


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


class Rejects(AccountCase):
    """What is refused is written, corrected there by openpyxl or as it comes out of LibreOffice, and
    imported."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        plain, = cls.ask(
            "select q.cCenterCode, q.cItemCode, q.cKeyCode1, e.cElementName from PM_ItemQC q"
            " join PM_ItemElement e on e.cElementCode = q.cElementCode"
            " where e.iElementDetail = 0 order by iEleVid limit 1")
        lined, = cls.ask(
            "select q.cCenterCode, q.cItemCode, q.cKeyCode1, e.cElementName, s.cCodeMx"
            " from PM_ItemQC q join PM_ItemElement e on e.cElementCode = q.cElementCode"
            " join PM_ItemQCsub s on s.iEleVid = q.iEleVid order by q.iEleVid limit 1")
        cls.good = cls.row(*plain, "好", -5)
        cls.bad_amount = cls.row(*plain, "坏金额", "12,34")
        cls.bad_code = cls.row(7, *plain[1:], "坏编号", -1.5)
        cls.bad_line = cls.row(*lined[:4], "坏明细", None)
        cls.refused = cls.folder / "in.xlsx"
        book = openpyxl.Workbook()
        entries, lines = book.active, book.create_sheet("明细")
        entries.title = "期初"
        entries.append(["期初余额表"])
        entries.append(["备注", "原因", *ENTRY_TITLES])
        for number, row in enumerate((cls.good, cls.bad_amount, cls.bad_code, cls.bad_line), 1):
            entries.append([number * 10, "从前的", *row, f"r{number}"])
        lines.append(["行号", "编码", "单价", "数量"])
        lines.append(["r4", lined[4], 0.01, 2])
        lines.append(["r4", "没有的", 0.02, 4])
        book.save(cls.refused)
        cls.center, cls.code = plain[0], lined[4]

    @staticmethod
    def row(center, item, key, element, digest, amount):
        return [datetime.datetime(2003, 1, 5), center, item, None, key, element, digest, amount]

    def refuse(self, path, *more):
        return self.kelvane("import", self.account, path, "--dry-run", *more, status=3)

    def rejects(self, name):
        path = self.folder / name
        told = self.refuse(self.refused, "--rejects", path)
        self.assertTrue(told.endswith(
            "rows 4: new 1, changed 0, deleted 0, unchanged 0, refused 3\n"), told)
        return path, told

    def test_they_have_the_same_layout(self):
        path, told = self.rejects("out.xlsx")
        book = openpyxl.load_workbook(path)
        self.assertEqual(book.sheetnames, ["期初", "明细"])
        cells = list(book["期初"].iter_rows(values_only=True))
        self.assertEqual(cells[0], ("备注", *ENTRY_TITLES, "原因"))
        self.assertEqual([row[:-1] for row in cells[1:]], [
            (20, *self.bad_amount, "r2"), (30, *self.bad_code, "r3"), (40, *self.bad_line, "r4")])
        for row in cells[1:3]:
            self.assertIn(f": {row[-1]}\n", told)
        lines = list(book["明细"].iter_rows(values_only=True))
        self.assertEqual(lines[0], ("行号", "编码", "单价", "数量", "原因"))
        self.assertEqual([row[:-1] for row in lines[1:]],
                         [("r4", self.code, 0.01, 2), ("r4", "没有的", 0.02, 4)])
        self.assertIsNone(lines[1][-1])
        self.assertIn(f": {lines[2][-1]}\n", told)
        # What is typed into a code's cell stays what it is.
        self.assertEqual(book["期初"]["C3"].number_format, "@")

    def test_what_was_not_corrected_is_refused_again(self):
        path, told = self.rejects("again.xlsx")
        findings = lambda text: sorted(line.split(": ", 1)[1] for line in text.split("\n")[:-2])
        for each in (path, convert(self.folder, path, "xlsx")):
            self.assertEqual(findings(self.refuse(each)), findings(told))
        self.assertEqual(findings(self.refuse(self.refused)), findings(told))

    def correct(self, path):
        book = openpyxl.load_workbook(path)
        book["期初"]["I2"] = 0.01
        book["期初"]["C3"] = self.center
        book["明细"]["B3"] = self.code
        # One code stands in one line of an entry.
        book["明细"].delete_rows(2)
        book.save(path)
        return self.kelvane("import", self.account, path, "--dry-run")

    def test_what_was_corrected_is_taken(self):
        path, _ = self.rejects("corrected.xlsx")
        office = convert(self.folder, path, "xlsx")
        for each in (path, office):
            self.assertEqual(self.correct(each),
                             "rows 3: new 3, changed 0, deleted 0, unchanged 0, refused 0\n")

    def test_as_csv_the_lines_have_a_file_of_their_own(self):
        path, _ = self.rejects("out.csv")
        rows, lines = [read_csv(each) for each in (path, self.folder / "out.明细.csv")]
        self.assertEqual(rows[0], ["备注", *ENTRY_TITLES, "原因"])
        self.assertEqual(rows[1][:9], ["20", "2003-01-05", *self.bad_amount[1:3], "",
                                       *self.bad_amount[4:]])
        self.assertEqual(rows[2][2], "7E+0")
        told = self.refuse(path, "--lines", self.folder / "out.明细.csv")
        self.assertIn("out.csv:3:责任中心: cell.code.number: ", told)
        rows[1][8] = "0.01"
        rows[2][2] = self.center
        lines[2][1] = self.code
        for each, table in ((path, rows), (self.folder / "out.明细.csv", [lines[0], lines[2]])):
            with open(each, "w", encoding="utf-8", newline="") as file:
                csv.writer(file).writerows(table)
        told = self.kelvane("import", self.account, path, "--lines", self.folder / "out.明细.csv",
                            "--dry-run")
        self.assertEqual(told, "rows 3: new 3, changed 0, deleted 0, unchanged 0, refused 0\n")

    def test_reports(self):
        paths = [self.folder / name for name in ("report.json", "report.xlsx")]
        told = self.refuse(self.refused, "--report", paths[0], "--json")
        report = json.loads(told)
        self.assertEqual(told, paths[0].read_text(encoding="utf-8"))
        counts = ("rows", "new", "changed", "deleted", "unchanged", "refused", "batch")
        self.assertEqual([report[key] for key in counts], [4, 1, 0, 0, 0, 3, None])
        self.refuse(self.refused, "--report", paths[1])
        book = openpyxl.load_workbook(paths[1])
        self.assertEqual(book.sheetnames, ["结果", "问题", "预算"])
        findings = [[each[key] or None for key in ("place", "row", "column", "rule", "text")]
                    for each in report["findings"]]
        self.assertEqual([list(row) for row in book["问题"].iter_rows(min_row=2, values_only=True)
                          if row[3]], findings)
        self.assertIn(["期初!D5", 5, "责任中心", "cell.code.number"], [each[:4] for each in findings])
        result = {row[0]: row[1] for row in book["结果"].iter_rows(values_only=True)}
        self.assertEqual((result["行数"], result["拒绝"], result["方式"]), (4, 3, "试导入"))


if __name__ == "__main__":
    AccountCase.PROGRAM, TOOL = sys.argv[1:3]
    del sys.argv[1:3]
    unittest.main()
