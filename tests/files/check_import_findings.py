#!/usr/bin/env python3
"""Imports what has to be refused: each rule with its whole line, and nothing written.

  check_import_findings.py PROGRAM
"""

import json
import sys
import unittest

import openpyxl

from account_files import entry, line, table_of, text, LINE_TITLES
from import_cases import BELOW_ZERO, BUDGETED_PLAIN, ENTRY_CASES, LINE_CASES, MACHINES
from import_test import Imports, count_line
from window_operator import Operator


class Findings(Imports):
    def test_each_rule(self):
        for case in [*ENTRY_CASES, *LINE_CASES]:
            with self.subTest(case=case.name):
                self.assert_refused(
                    self.accounts.new(case.changes), self.book(case.rows, case.lines), "--user",
                    case.user, findings=case.findings, count=count_line(len(case.rows),
                                                                        refused=case.refused))

    def test_places_in_texts(self):
        path = self.csv([entry(摘要="两行\n的摘要", 行号="1"), entry(摘要="", 未结转期初="abc"),
                         entry(项目编号="X04", 项目名称="旧楼")])
        lines = text(self.path("csv"), table_of([line("9", "0201", 5, 1)], LINE_TITLES))
        self.assert_refused(
            self.accounts.new(), path, "--lines", lines, count=count_line(3, refused=2), findings=[
                f"{path}:4:摘要: digest.empty: 摘要不能为空", f"{path}:4:未结转期初: amount.number: 请输入数字",
                f"{path}:5:项目编号: item.settled: 项目已经完工结算，不能在启用后对该项目录入期初！",
                f"{lines}:2:行号: line.entry: 没有行号为“9”的期初"])

    def test_a_title_in_a_place_stands_as_in_the_file(self):
        path = self.csv([entry(**{"标段 (关键字)": "无"})])
        self.assert_refused(self.accounts.new(), path, count=count_line(1, refused=1), findings=[
            f"{path}:2:标段 (关键字): key.mismatch: 该责任中心下此项目没有这样的关键字"])

    def test_sheets_in_their_order(self):
        path = self.changed_book([entry(摘要="", 行号="1")], [line("9", "0201", 5, 1)],
                                 lambda book: book.move_sheet("明细", -1))
        self.assert_refused(self.accounts.new(), path, count=count_line(1, refused=1), findings=[
            "明细!A2: line.entry: 没有行号为“9”的期初", "期初!G2: digest.empty: 摘要不能为空"])

    def test_merged_cells(self):
        path = self.book([entry(), entry(), entry()])
        book = openpyxl.load_workbook(path)
        book["期初"].merge_cells("G2:G3")
        book.save(path)
        self.assert_refused(self.accounts.new(), path, count=count_line(3, refused=2), findings=[
            f"期初!G{row}: cell.merged: 合并的单元格不能导入，须先取消合并" for row in (2, 3)])

    def test_amounts_recorded_below_zero(self):
        """The window cannot check the next amount of the item and element, so it saves none. An import
        tells that of each such row; it does not fail as a whole."""
        done = self.run_import(self.accounts.new(BELOW_ZERO),
                               self.book([entry(**BUDGETED_PLAIN, 未结转期初=1), entry()]))
        self.assertEqual(done.returncode, 3, done.stderr)
        self.assertRegex(done.stdout, "^期初!H2: budget.failed: [^\n]+\n" + count_line(2, refused=1))

    def test_amounts_of_the_file_below_zero(self):
        rows = [entry(**BUDGETED_PLAIN, 未结转期初="-5"), entry(**BUDGETED_PLAIN, 未结转期初="10")]
        account = self.accounts.new()
        with Operator(self.accounts, account, "zhang") as operator:
            saved = [operator.enter({**row, "项目名称": ""}, []) == (None, None) for row in rows]
            operator.close()
        done = self.run_import(self.accounts.new(), self.book(rows))
        self.assertEqual(done.stdout.splitlines()[-1], count_line(2, refused=saved.count(False)))

    def test_a_line_without_a_row_number(self):
        rows = [entry(**{**MACHINES, "未结转期初": None})]
        done = self.run_import(self.accounts.new(),
                               self.book(rows, [line(None, "0201", 5, 1), line("1", "0201", 5, 1)]))
        self.assertTrue(done.stdout.startswith("明细!A2: line.entry: "), done.stdout)
        self.assertNotIn("“”", done.stdout)

    def test_json(self):
        account = self.accounts.new()
        keys = ["batch", "changed", "deleted", "findings", "new", "refused", "rows", "unchanged"]
        done = self.run_import(account, self.book([entry(), entry(摘要="")]), "--json")
        answer = json.loads(done.stdout)
        self.assertEqual(done.returncode, 3)
        self.assertLessEqual(set(keys), set(answer))
        self.assertEqual([answer[key] for key in keys], [
            None, 0, 0, [{"place": "期初!G3", "row": 3, "column": "摘要", "rule": "digest.empty",
                          "text": "摘要不能为空"}], 1, 1, 2, 0])
        path = self.book([entry()])
        answer = json.loads(self.run_import(account, path, "--json", "--dry-run").stdout)
        self.assertEqual([answer[key] for key in keys], [None, 0, 0, [], 1, 0, 1, 0])
        answer = json.loads(self.run_import(account, path, "--json").stdout)
        self.assertEqual([answer[key] for key in keys], [1, 0, 0, [], 1, 0, 1, 0])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
