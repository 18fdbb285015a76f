#!/usr/bin/env python3
"""What the import does not do as it should; not among the tests that are run. A test that passes moves to
the file of its kind.

  check_import_open.py PROGRAM
"""

import os
import subprocess
import sys
import unittest

import openpyxl

from account_files import dump, entry, line, table_of, text
from import_cases import MACHINES, NO_CENTER, one
from import_test import FIRST, Imports, count_line, stored
from window_operator import Operator

TWO_VERSIONS = ("Subquery returned more than 1 value. This is not permitted when the subquery follows =,"
                " !=, <, <=, >, >= or when the subquery is used as an expression.")
BUDGETED = {"项目编号": "X05", "项目名称": "预算楼"}
MOST_MEMORY = 200 * 1024  # in KiB
MISMATCH = "该责任中心下此项目没有这样的关键字"


class Open(Imports):
    def test_rules(self):
        for case in [
                one("a quote in the centre", "B2", "center.unknown", NO_CENTER, 责任中心="T'01"),
                one("two versions in control", "H2", "budget.failed", TWO_VERSIONS,
                    changes="update pm_BudgetVer set bControl = 1;"),
                one("no keyword", "E2", "key.mismatch", MISMATCH, **{"标段 (关键字)": ""}),
                # Nothing can be said of the name of an item that is not known to be one.
                one("a name beside an unknown centre", "B2", "center.unknown", NO_CENTER, 责任中心="T99",
                    项目编号="X99")]:
            with self.subTest(case=case.name):
                self.assert_refused(self.accounts.new(case.changes), self.book(case.rows),
                                    findings=case.findings, count=count_line(1, refused=1))

    def test_a_row_number_twice(self):
        """Nobody knows whose the lines are, so no amount is missing."""
        self.assert_refused(
            self.accounts.new(), self.book([entry(**MACHINES), entry(**MACHINES)], [line("1", "0201", 5, 1)]),
            count=count_line(2, refused=2), findings=[
                "期初!I2: entry.duplicate: 行号 1 不止一次：另见第 3 行",
                "期初!I3: entry.duplicate: 行号 1 不止一次：另见第 2 行"])

    def test_amounts_that_come_to_more_than_an_amount_can_be(self):
        """No budget controls them, so nobody adds them up."""
        great = "900,000,000,000,000.00"
        self.assert_written(self.accounts.new(), self.book([entry(未结转期初=great)] * 3), rows=[
            stored(FIRST + at, amount="900000000000000.0000") for at in range(3)])

    def test_columns_that_are_called_like_those_of_lines(self):
        rows = [entry(行号=1, 数量=3, 单价=411.5), entry(行号=2, 数量=1, 单价=1234.5)]
        self.assert_written(self.accounts.new(), self.book(rows), rows=[stored(FIRST), stored(FIRST + 1)])

    def test_a_keyword_that_is_a_number(self):
        """The class says that its second keyword is one; no zeros can have stood in front."""
        accounts = self.accounts_of_class(2)
        account = accounts.new("update PM_DutycenterSub set cKeyWord2 = '1' where cItemCode = 'X01';"
                               "update fitemss97sub set 期次 = 1 where citemcode = 'X01';")
        self.assert_written(account, self.book([entry(**{"期次 (关键字)": 1})]), rows=[
            (*stored(FIRST)[:5], "1", *stored(FIRST)[6:])])

    def accounts_of_class(self, keywords):
        folder = self.folder / f"keywords{keywords}"
        folder.mkdir()
        return type(self.accounts)(self.accounts.program, folder, keywords)

    def test_a_total_counts_what_is_written_of_lines(self):
        rows = [entry(**{"要素": "机械使用费", "未结转期初": None, "行号": 1})]
        self.assert_written(self.accounts.new(), self.book(rows, [line(1, "0201", "12.345", "1.2345")]),
                            "--expect-sum", "15.25", rows=[stored(FIRST, element="E21", amount="15.2500")])

    def test_amounts_recorded_below_zero(self):
        """The window cannot check the next amount of the item and element, so it saves none. An import
        tells that of each such row; it does not fail as a whole."""
        below = ("insert into PM_ItemQC values (41, '2004-06-01 00:00:00.000', 'T01', 'X05', '一标段', '',"
                 " 'E01', '红字', '-5.0000');update PM_SettingInf set cValue = '41' where cName ="
                 " 'NumMax_EleQc';")
        done = self.run_import(self.accounts.new(below),
                               self.book([entry(**BUDGETED, 未结转期初=1), entry()]))
        self.assertEqual(done.returncode, 3, done.stderr)
        self.assertRegex(done.stdout, "^期初!H2: budget.failed: [^\n]+\n" + count_line(2, refused=1))

    def test_amounts_of_the_file_below_zero(self):
        rows = [entry(**BUDGETED, 未结转期初="-5"), entry(**BUDGETED, 未结转期初="10")]
        account = self.accounts.new()
        with Operator(self.accounts, account, "zhang") as operator:
            saved = [operator.enter({**row, "项目名称": ""}, []) == (None, None) for row in rows]
            operator.close()
        done = self.run_import(self.accounts.new(), self.book(rows))
        self.assertEqual(done.stdout.splitlines()[-1], count_line(2, refused=saved.count(False)))

    def test_a_number_for_the_entry_that_is_taken(self):
        """In the words that the window has for it."""
        self.assert_not_done(
            self.accounts.new("update PM_SettingInf set cValue = '5' where cName = 'NumMax_EleQc';"),
            self.book([entry()]), reason="数据库中已有相同编号的记录")

    def test_a_line_without_a_row_number(self):
        rows = [entry(**{**MACHINES, "未结转期初": None})]
        done = self.run_import(self.accounts.new(),
                               self.book(rows, [line(None, "0201", 5, 1), line("1", "0201", 5, 1)]))
        self.assertTrue(done.stdout.startswith("明细!A2: line.entry: "), done.stdout)
        self.assertNotIn("“”", done.stdout)

    def changed_book(self, rows, lines, change):
        path = self.book(rows, lines)
        book = openpyxl.load_workbook(path)
        change(book)
        book.save(path)
        return path

    def test_a_line_that_is_hidden(self):
        """Until it is decided what becomes of it, nothing can be said of the entry's amount."""
        def change(book):
            book["明细"].row_dimensions[2].hidden = True
        path = self.changed_book([entry(**MACHINES)], [line("1", "0201", 5, 1)], change)
        done = self.run_import(self.accounts.new(), path)
        self.assertEqual([said.split(": ")[1] for said in done.stdout.splitlines()[:-1]], ["file.hidden"])

    def test_lines_without_titles(self):
        """What the sheet of lines lacks is no fault of the sheet of entries."""
        def change(book):
            book.create_sheet("明细").append(["随便"])
        done = self.run_import(self.accounts.new(), self.changed_book([entry()], None, change))
        self.assertEqual(done.stdout.splitlines()[:-1], [
            "明细: file.column: 前 20 行中没有标题行（须有“行号”和“数量”）"])

    def test_totals_without_titles(self):
        """Totals that are there and not compared are told."""
        def change(book):
            book.create_sheet("合计").append(["共几行", 5])
        done = self.run_import(self.accounts.new(), self.changed_book([entry()], None, change))
        self.assertIn("合计", done.stderr + done.stdout)

    def test_refused_rows_of_a_former_import(self):
        """A file of refused rows that is there although none is refused would be taken for this one's."""
        rejects = self.path("xlsx")
        account = self.accounts.new()
        self.assertEqual(self.run_import(account, self.book([entry(摘要="")]), "--rejects",
                                         rejects).returncode, 3)
        self.assertTrue(rejects.exists())
        done = self.run_import(account, self.book([entry()]), "--rejects", rejects)
        self.assertEqual(done.returncode, 0)
        self.assertTrue(not rejects.exists() or str(rejects) in done.stderr, done.stderr)

    def test_more_rows_than_numbers(self):
        """There are 65,536 numbers for entries: so many bad rows are refused without taking the memory
        for a finding of each of their cells."""
        path = text(self.path("csv"), table_of([entry()]))
        with open(path, "a", encoding="utf-8") as file:
            file.write("1,,,,,,,\r\n" * 500_000)
        account = self.accounts.new()
        before = dump(account)
        with open(os.devnull, "wb") as nowhere:
            process = subprocess.Popen([self.accounts.program, "import", account, path], stdout=nowhere,
                                       stderr=nowhere, env=self.accounts.environment)
            _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        self.assertIn(process.returncode, (1, 3))
        self.assertLess(usage.ru_maxrss, MOST_MEMORY)
        self.assertEqual(dump(account), before)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
