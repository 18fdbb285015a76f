#!/usr/bin/env python3
"""Imports files that are refused as a whole, or cannot be imported at all.

  check_import_files.py PROGRAM
"""

import os
import shutil
import subprocess
import sys
import unittest
from decimal import Decimal
from pathlib import Path

from account_files import dump, entry, line, new_entries, table_of, text, TITLES
from import_cases import LOCKS, MACHINES
from import_test import FIRST, Imports, count_line, stored
from program_files import MEASURED

# In KiB, of an import beyond what the program takes for nothing at all: much, with sanitizers.
MOST_MORE_MEMORY = 150 * 1024


class Files(Imports):
    def assert_one_finding(self, account, *arguments, finding):
        """Of a file as a whole: none of its rows is new."""
        before = dump(account)
        for options in ([], ["--dry-run"]):
            done = self.run_import(account, *arguments, *options)
            told = done.stdout.splitlines()
            self.assertEqual(told[:-1], [finding], done.stderr)
            self.assertRegex(told[-1], r"^rows \d+: new 0, changed 0, deleted 0, unchanged 0,"
                                       r" refused \d+$")
            self.assertEqual(done.returncode, 3)
        self.assert_nothing_written(account, before)

    def test_titles(self):
        rows = [entry()]
        for title in ("责任中心", "项目编号", "标段 (关键字)", "要素", "摘要"):
            table = [[cell for cell, name in zip(cells, TITLES) if name != title]
                     for cells in table_of(rows)]
            path = text(self.path("csv"), table)
            self.assert_one_finding(self.accounts.new(), path,
                                    finding=f"{path}:1:{title}: file.column: 缺少列“{title}”")
        table = [[*cells, cells[6]] for cells in table_of(rows)]
        path = text(self.path("csv"), table)
        self.assert_one_finding(self.accounts.new(), path,
                                finding=f"{path}:1:摘要: file.column: 列“摘要”不止一个")
        for table in ([["日期", "未结转"], ["2004-06-01", "1"]], []):
            path = text(self.path("csv"), table)
            self.assert_one_finding(self.accounts.new(), path, finding=f"{path}: file.column: 前 20 行中"
                                    "没有标题行（须有“日期”和“未结转期初”）")

    def test_locked_lists(self):
        for reason, change in LOCKS:
            with self.subTest(reason=reason):
                self.assert_one_finding(self.accounts.new(change), self.book([entry()]),
                                        finding=f"期初: list.locked: {reason}")

    def test_another_year(self):
        account = self.accounts.new()
        self.assert_one_finding(account, self.book([entry()]), "--year", "2005",
                                finding="期初: list.locked: 启用年度不是登录年度（2005），不能录入期初。")

    def test_the_same_file_twice(self):
        account = self.accounts.new()
        path = self.book([entry()])
        self.assert_written(account, path, rows=[stored(FIRST)])
        copy = shutil.copy(path, self.path("xlsx"))
        before = dump(account)
        for again in (path, copy):
            for options in ([], ["--dry-run"]):
                done = self.run_import(account, again, *options)
                told = done.stdout.splitlines()
                self.assertEqual(done.returncode, 3)
                self.assertEqual(len(told), 2, told)
                self.assertRegex(told[0], "^[^:]+: file.again: .*，确需再次导入须指明 --again$")
        self.assertEqual(dump(account), before)
        done = self.run_import(account, path, "--again")
        self.assertEqual((done.returncode, done.stdout), (0, count_line(1) + "\n"), done.stderr)
        self.assertEqual(new_entries(account)[0], [stored(FIRST), stored(FIRST + 1)])
        # Another file of the same rows is another file.
        self.assertEqual(self.run_import(account, self.csv([entry()])).returncode, 0)

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

    def measure(self, *arguments):
        """The program's exit status, and the most memory that it took."""
        with open(os.devnull, "wb") as nowhere:
            process = subprocess.Popen([self.accounts.program, *arguments], stdout=nowhere,
                                       stderr=nowhere, env={**self.accounts.environment, **MEASURED})
            _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        return process.returncode, usage.ru_maxrss

    def test_more_rows_than_numbers(self):
        """There are 65,536 numbers for entries: so many bad rows are refused without taking the memory
        for a finding of each of their cells."""
        path = text(self.path("csv"), table_of([entry()]))
        with open(path, "a", encoding="utf-8") as file:
            file.write("1,,,,,,,\r\n" * 500_000)
        account = self.accounts.new()
        before = dump(account)
        status, memory = self.measure("import", account, path)
        self.assertIn(status, (1, 3))
        self.assertLess(memory - self.measure("--version")[1], MOST_MORE_MEMORY)
        self.assertEqual(dump(account), before)


class Totals(Imports):
    def test_control_totals(self):
        rows = [entry(未结转期初="1,000.10"), entry(未结转期初=Decimal("-0.1"))]
        cases = [(["--expect-rows", "3"], None, "控制总数不符：应为 3 行，文件中是 2 行"),
                 (["--expect-sum", "1000.01"], None, "控制总额不符：应为 1,000.01，文件中是 1,000.00"),
                 ([], [3, None], "控制总数不符：应为 3 行，文件中是 2 行"),
                 ([], [None, 999], "控制总额不符：应为 999.00，文件中是 1,000.00")]
        for options, totals, reason in cases:
            with self.subTest(options=options, totals=totals):
                account = self.accounts.new()
                before = dump(account)
                done = self.run_import(account, self.book(rows, totals=totals), *options)
                told = done.stdout.splitlines()
                self.assertEqual(done.returncode, 3, done.stderr)
                self.assertEqual(len(told), 2, told)
                self.assertTrue(told[0].endswith(f": file.total: {reason}"), told)
                self.assert_nothing_written(account, before)
        for options, totals in ((["--expect-rows", "2", "--expect-sum", "1,000.00"], None),
                                ([], [2, 1000]), ([], ["2", "1,000.00"]), ([], [None, None])):
            with self.subTest(options=options, totals=totals):
                self.assert_written(self.accounts.new(), self.book(rows, totals=totals), *options, rows=[
                    stored(FIRST, amount="1000.1000"), stored(FIRST + 1, amount="-0.1000")])

    def test_a_total_counts_what_lines_come_to(self):
        rows = [entry(**{"要素": "机械使用费", "未结转期初": None, "行号": 1}), entry()]
        self.assert_written(self.accounts.new(), self.book(rows, [line(1, "0201", 5, 3)]),
                            "--expect-sum", "1249.50", rows=[stored(FIRST, element="E21", amount="15.0000"),
                                             stored(FIRST + 1)])

    def test_a_total_counts_what_is_written_of_lines(self):
        rows = [entry(**{"要素": "机械使用费", "未结转期初": None, "行号": 1})]
        self.assert_written(self.accounts.new(), self.book(rows, [line(1, "0201", "12.345", "1.2345")]),
                            "--expect-sum", "15.25", rows=[stored(FIRST, element="E21", amount="15.2500")])

    def test_a_total_stops_before_the_rules(self):
        account = self.accounts.new()
        done = self.run_import(account, self.book([entry(摘要="")]), "--expect-rows", "2")
        self.assertEqual(done.returncode, 3)
        self.assertNotIn("digest.empty", done.stdout)

    def test_totals_without_titles(self):
        """Totals that are there and not compared are told."""
        def change(book):
            book.create_sheet("合计").append(["共几行", 5])
        done = self.run_import(self.accounts.new(), self.changed_book([entry()], None, change))
        self.assertIn("合计", done.stderr + done.stdout)


class NotDone(Imports):
    def test_wrong_usage(self):
        path = self.book([entry()])
        for wrong in (["--hidden", "maybe"], ["--expect-rows", "x"], ["--expect-rows", "-1"],
                      ["--expect-sum", "x"], ["--no-such-option"], ["--year", "x"],
                      ["--report", self.folder / "report.txt"],
                      ["--rejects", self.folder / "rejects.doc"]):
            with self.subTest(wrong=wrong):
                self.assert_not_done(self.accounts.new(), path, *wrong, reason="kelvane", status=2)
        self.assert_not_done(self.accounts.new(), reason="kelvane", status=2)
        self.assertEqual(self.accounts.run("import").returncode, 2)

    def test_files_that_are_no_tables(self):
        account = self.accounts.new()
        self.assert_not_done(account, self.folder / "missing.xlsx", reason="missing.xlsx")
        self.assert_not_done(account, self.folder, reason=str(self.folder))
        for name, content in (("damaged.xlsx", b"PK\x03\x04" + b"x" * 200),
                              ("binary.csv", bytes(range(256)) * 20),
                              # How a workbook with a password begins.
                              ("secret.xlsx", bytes.fromhex("d0cf11e0a1b11ae1") + b"\0" * 2000)):
            with self.subTest(name=name):
                path = self.folder / name
                path.write_bytes(content)
                self.assert_not_done(account, path, reason=name)
        path = self.book([entry()])
        self.assert_not_done(account, path, "--lines", self.folder / "no-lines.csv",
                             reason="no-lines.csv")

    def test_accounts_that_are_none(self):
        path = self.book([entry()])
        for account in (self.folder / "missing.kelvane", path):
            done = self.run_import(account, path)
            self.assertEqual((done.returncode, done.stdout), (1, ""))
            self.assertIn(str(account), done.stderr)
            self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
        self.assertFalse((self.folder / "missing.kelvane").exists())
        self.assert_not_done(self.accounts.new(), path, "--user", "nobody", reason="nobody")
        self.assert_not_done(self.accounts.new(), path, "--year", "1999", reason="1999")

    def test_a_number_for_the_entry_that_is_taken(self):
        """In the words that the window has for it."""
        account = self.accounts.new("update PM_SettingInf set cValue = '5' where cName = 'NumMax_EleQc';")
        before = dump(account)
        done = self.run_import(account, self.book([entry()]))
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn("数据库中已有相同编号的记录", done.stderr)
        self.assertEqual(dump(account), before)
        # What was meant is withdrawn.
        self.assertEqual(list(Path(f"{account}.batches").iterdir()), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
