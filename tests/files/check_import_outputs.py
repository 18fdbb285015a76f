#!/usr/bin/env python3
"""The files that an import leaves beside the account: refused rows to correct, and its report.

  check_import_outputs.py PROGRAM
"""

import csv
import json
import sys
import unittest
from decimal import Decimal

import openpyxl

from account_files import entry, line, new_entries, table_of, text, LINE_TITLES, TITLES
from import_test import FIRST, Imports, stored

MACHINES = {"要素": "机械使用费", "未结转期初": None}
ROWS = [entry(摘要="好", 行号=1, 备注="一"), entry(摘要="", 未结转期初="abc", 行号=2, 备注="二"),
        entry(**MACHINES, 摘要="明细有误", 行号=3, 备注="三"), entry(**MACHINES, 摘要="也好", 行号=4)]
LINES = [line(3, "0201", 0, 3), line(4, "0201", 5, 3), line(3, "0202", 10, 1), line(9, "0201", 5, 1)]
REASONS = ["摘要不能为空；请输入数字", "单价不能为空或0", "没有行号为“9”的期初"]


def cells_of(sheet):
    return [[cell.value for cell in row] for row in sheet.iter_rows()]


class Outputs(Imports):
    def refused(self, *arguments):
        done = self.run_import(self.accounts.new(), *arguments)
        self.assertEqual(done.returncode, 3, done.stderr)
        return done

    def test_a_refused_line_alone(self):
        rejects = self.path("xlsx")
        self.refused(self.book(ROWS[:1], LINES[3:]), "--rejects", rejects)
        book = openpyxl.load_workbook(rejects)
        self.assertEqual(len(cells_of(book["期初"])), 1)
        self.assertEqual(cells_of(book["明细"])[1][4], REASONS[2])

    def test_refused_rows_of_a_workbook(self):
        rejects = self.path("xlsx")
        self.refused(self.book(ROWS, LINES), "--rejects", rejects)
        book = openpyxl.load_workbook(rejects)
        sheet, lines = book["期初"], book["明细"]
        titles, second, third = cells_of(sheet)
        self.assertEqual(titles, [*TITLES, "行号", "备注", "原因"])
        self.assertEqual((second[8:], third[8]), ([2, "二", REASONS[0]], 3))
        self.assertEqual(third[6], "明细有误")
        line_rows = cells_of(lines)
        self.assertEqual(line_rows[0], [*LINE_TITLES, "原因"])
        self.assertEqual([row[:4] for row in line_rows[1:]], [
            [3, "0201", 0, 3], [3, "0202", 10, 1], [9, "0201", 5, 1]])
        self.assertEqual([line_rows[1][4], line_rows[3][4]], REASONS[1:])
        # Corrected, and with the reasons still beside it.
        sheet["G2"], sheet["H2"], lines["C2"] = "已改", 7, 5
        lines.delete_rows(4)
        book.save(rejects)
        self.assert_written(self.accounts.new(), rejects, rows=[
            stored(FIRST, digest="已改", amount="7.0000"),
            stored(FIRST + 1, element="E21", digest="明细有误", amount="25.0000")])
        # Refused once more, it has its reasons once.
        sheet["G2"] = None
        book.save(rejects)
        again = self.path("xlsx")
        self.refused(rejects, "--rejects", again)
        titles, row = cells_of(openpyxl.load_workbook(again)["期初"])
        self.assertEqual(titles, [*TITLES, "行号", "备注", "原因"])
        self.assertEqual(row[-1], "摘要不能为空")

    def test_refused_rows_of_texts(self):
        rejects = self.path("csv")
        lines = text(self.path("csv"), table_of(LINES, LINE_TITLES))
        self.refused(self.csv(ROWS), "--lines", lines, "--rejects", rejects)
        with open(rejects, encoding="utf-8-sig", newline="") as file:
            titles, second, third = csv.reader(file)
        self.assertEqual(titles, [*TITLES, "行号", "备注", "原因"])
        self.assertEqual((second[7:], third[8]), (["abc", "2", "二", REASONS[0]], "3"))
        further = rejects.with_suffix(".明细.csv")
        with open(further, encoding="utf-8-sig", newline="") as file:
            rows = list(csv.reader(file))
        self.assertEqual([row[:4] for row in rows], [
            LINE_TITLES, ["3", "0201", "0", "3"], ["3", "0202", "10", "1"], ["9", "0201", "5", "1"]])

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

    def test_report_for_programs(self):
        account = self.accounts.new()
        path, report = self.book([entry(项目编号="X05", 项目名称="预算楼", 未结转期初=600), entry()]), \
            self.path("json")
        self.assertEqual(self.run_import(account, path, "--report", report).returncode, 0)
        answer = json.loads(report.read_text(encoding="utf-8"))
        self.assertEqual([answer[key] for key in ("rows", "new", "refused", "findings", "batch", "dryRun")],
                         [2, 2, 0, [], 1, False])
        self.assertEqual(Decimal(str(answer["sum"]).replace(",", "")), Decimal("1834.5"))
        self.assertEqual(len(answer["budgets"]), 2)
        told = json.dumps(answer["budgets"][0], ensure_ascii=False)
        for word in ("X05", "预算楼", "人工费"):
            self.assertIn(word, told)

    def test_report_for_people(self):
        report = self.path("xlsx")
        self.refused(self.book([entry(项目编号="X05", 项目名称="预算楼", 未结转期初=600), entry(摘要="")]),
                     "--report", report)
        book = openpyxl.load_workbook(report)
        self.assertEqual(book.sheetnames, ["结果", "问题", "预算"])
        self.assertIn("digest.empty", [cell for row in cells_of(book["问题"]) for cell in row])
        self.assertIn("预算楼", [cell for row in cells_of(book["预算"]) for cell in row])

    def test_what_was_there_is_kept_when_nothing_is_done(self):
        account = self.accounts.new()
        report = self.path("json")
        report.write_text("before")
        done = self.run_import(account, self.folder / "missing.xlsx", "--report", report)
        self.assertEqual((done.returncode, report.read_text()), (1, "before"))
        self.assertEqual(new_entries(account)[0], [])

    def test_a_report_that_cannot_be_written(self):
        """Told before anything is written to the account, or the import would be thought undone."""
        account = self.accounts.new()
        for option in ("--report", "--rejects"):
            done = self.run_import(account, self.book([entry(), entry(摘要="")]), option,
                                   self.folder / "no" / "folder" / "r.xlsx")
            self.assertNotEqual(done.returncode, 0)
            self.assertIn("r.xlsx", done.stderr)
            self.assertEqual(new_entries(account)[0], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
