#!/usr/bin/env python3
"""Checks damaged accounts with `kelvane check`: what it says, as lines, as JSON and as a workbook, and
that the account is left as it is, byte for byte.

  check_check.py PROGRAM
"""

import hashlib
import json
import random
import shutil
import sqlite3
import stat
import sys
import unittest
from contextlib import closing
from pathlib import Path

import openpyxl

from account_files import SAMPLE_ENTRIES, AccountsCase, execute, query

# What the sample has on purpose: three settled items and an amount of nothing.
SAMPLE = [
    "entry 5: check.settled: 项目“P007”已经完工结算，仍有未结转期初 24,000.00",
    "entry 10: check.zero: 项目“P014”要素“E06”的未结转期初为 0.00",
    "entry 18: check.settled: 项目“P013”已经完工结算，仍有未结转期初 212,047.44",
    "entry 24: check.settled: 项目“P022”已经完工结算，仍有未结转期初 88,435.20",
]
BESIDE = ["", "-wal", "-shm", "-journal"]

# One entry each, in order but for what a case changes.
PLAIN = ("insert into PM_ItemQC values ({}, '2004-06-01 00:00:00.000', 'T01', 'X01', '一标段', '', 'E01', "
         "'摘要{}', '1234.5000');")
MACHINE = ("insert into PM_ItemQC values ({}, '2004-06-01 00:00:00.000', 'T01', 'X01', '一标段', '', 'E21', "
           "'摘要{}', '100.0000'); insert into PM_ItemQCsub values ({}, '0201', '50.0000', 2.0, '100.0000');")


def files_of(account):
    return {ending: hashlib.sha256(Path(f"{account}{ending}").read_bytes()).hexdigest()
            for ending in BESIDE if Path(f"{account}{ending}").exists()}


def rules_of(lines):
    return [line.split(": ")[1] for line in lines]


class Check(AccountsCase):
    def new(self, changes=""):
        """Another account whose counter is ahead of all that a test puts into it."""
        return self.accounts.new(
            f"update PM_SettingInf set cValue = '999' where cName = 'NumMax_EleQc'; {changes}")

    def check(self, account, *arguments, status=3):
        before = files_of(account)
        done = self.accounts.run("check", account, *arguments)
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        self.assertEqual(files_of(account)[""], before[""], "the account was changed")
        return done

    def assert_found(self, changes, *findings):
        """Beside what the sample has; a finding that ends with a colon stands for its beginning."""
        lines = self.check(self.new(changes)).stdout.splitlines()
        found = [line for line in lines[:-1] if line not in SAMPLE]
        self.assertEqual(found, list(findings))
        count = len(lines) - 1
        self.assertEqual(sum(map(int, [lines[-1].split()[3].rstrip(","), lines[-1].split()[5]])), count)
        return lines[-1]

    def test_the_sample(self):
        done = self.check(self.new())
        self.assertEqual(done.stdout.splitlines(),
                         [*SAMPLE, f"entries {SAMPLE_ENTRIES}: errors 0, warnings 4"])
        self.assertEqual(done.stderr, "")

    def test_nothing_found(self):
        account = self.new("delete from PM_ItemQC; delete from PM_ItemQCsub;")
        done = self.check(account, status=0)
        self.assertEqual(done.stdout, "entries 0: errors 0, warnings 0\n")
        found = json.loads(self.check(account, "--json", status=0).stdout)
        self.assertEqual((found["entries"], found["errors"], found["warnings"], found["findings"]),
                         (0, 0, 0, []))

    def test_values_that_cannot_be_read(self):
        """A file's columns keep anything; the rest of the row is looked at all the same."""
        cases = {
            "update PM_ItemQC set mQC = 'abc' where iEleVid = 90": "未结转期初",
            "update PM_ItemQC set mQC = x'00ff' where iEleVid = 90": "未结转期初",
            "update PM_ItemQC set mQC = null where iEleVid = 90": "未结转期初",
            "update PM_ItemQC set mQC = '' where iEleVid = 90": "未结转期初",
            "update PM_ItemQC set mQC = '99999999999999999999' where iEleVid = 90": "未结转期初",
            "update PM_ItemQC set mQC = 'nan' where iEleVid = 90": "未结转期初",
            "update PM_ItemQC set dDate = '2004-02-30' where iEleVid = 90": "日期",
            "update PM_ItemQC set dDate = 'gestern' where iEleVid = 90": "日期",
            "update PM_ItemQC set dDate = x'ff' where iEleVid = 90": "日期",
            "update PM_ItemQC set dDate = null where iEleVid = 90": "日期",
            "update PM_ItemQC set dDate = 38000 where iEleVid = 90": "日期",
        }
        for change, column in cases.items():
            with self.subTest(change=change):
                self.assert_found(
                    PLAIN.format(90, 90) + "update PM_ItemQC set cCenterCode = 'T09' where iEleVid = 90;"
                    + change,
                    "entry 90: check.center: 责任中心“T09”不存在",
                    f"entry 90: check.value: 项目“X01”要素“E01”的{column}为空或无法读取")

    def test_values_of_lines_that_cannot_be_read(self):
        cases = {"iUprice = 'abc'": "单价", "iUprice = null": "单价", "iNum = 'viele'": "数量",
                 "iNum = 9e999": "数量", "iNum = x'01'": "数量", "mQC = 'abc'": "余额", "mQC = null": "余额"}
        for change, column in cases.items():
            with self.subTest(change=change):
                self.assert_found(
                    MACHINE.format(90, 90, 90) + f"update PM_ItemQCsub set {change} where iEleVid = 90",
                    f"entry 90: check.value: 明细“0201”的{column}为空或无法读取")
        for change in ["'abc'", "null", "x'01'", "1.5e300"]:
            with self.subTest(identity=change):
                self.assert_found(
                    MACHINE.format(90, 90, 90) + "insert into PM_ItemQCsub values "
                    f"({change}, '0201', '1.0000', 1.0, '1.0000')",
                    "entry 0: check.value: 明细“0201”的期初编号为空或无法读取")

    def test_sums_leave_out_what_cannot_be_read(self):
        self.assert_found(
            "".join(PLAIN.format(n, n).replace("X01", "X05") for n in (90, 91, 92))
            + "update PM_ItemQC set mQC = '900.0000' where iEleVid >= 90;"
            "update PM_ItemQC set mQC = 'abc' where iEleVid = 91;",
            "entry 91: check.value: 项目“X05”要素“E01”的未结转期初为空或无法读取",
            "entry 92: check.budget: 项目“X05”要素“E01”已录入期初 1,800.00，超出预算 1,000.00")

    def test_a_budget_that_cannot_be_read(self):
        for change in ["iMoneysum = 'abc'", "iBudget = 'abc'", "iBudget = x'00'"]:
            with self.subTest(change=change):
                self.assert_found(
                    PLAIN.format(90, 90).replace("X01", "X05")
                    + f"update pm_budget set {change} where citemCode = 'X05'",
                    "entry 90: check.budget: 项目“X05”要素“E01”的预算无法读取，已录入期初 1,234.50")

    def test_identities_out_of_range(self):
        line = self.assert_found(
            PLAIN.format(3000000000, 90).replace("X01", "X09"),
            "entry 3000000000: check.item: 项目“X09”不存在",
            "entry 3000000000: check.counter: 期初编号计数器 999 小于最大的编号 3000000000",
            "entry 3000000000: check.value: 编号 3000000000 超出范围（-2147483648 至 2147483647）")
        self.assertEqual(line, f"entries {SAMPLE_ENTRIES + 1}: errors 3, warnings 4")

    def test_what_the_list_does_not_show(self):
        """Its join leaves an entry out whose item is not there."""
        self.assert_found(
            "".join(PLAIN.format(n, n) for n in (90, 91, 92))
            + "update PM_ItemQC set cItemCode = 'X99' where iEleVid = 90;"
            "update PM_ItemQC set cItemCode = null where iEleVid = 91;"
            "update PM_ItemQC set cItemCode = x'ff' where iEleVid = 92;",
            "entry 90: check.item: 项目“X99”不存在", "entry 91: check.item: 项目“”不存在",
            "entry 92: check.item: 项目“\ufffd”不存在")

    def test_a_table_that_is_damaged_in_other_columns(self):
        """Versions, kinds of elements, counters and closings of any content are no reason to give up."""
        self.check(self.new(
            "update PM_ItemElement set iElementDetail = 'abc' where cElementCode = 'E01';"
            "update PM_ItemElement set cInvCCode = x'ff';"
            "insert into pm_BudgetVer values (88, 'ja'), (89, x'01'), (90, null);"
            "update fitemss97sub set iclose = 'ja', denddate = 'nie';"
            "update pm_budgetsub set inumberSum = 'abc', iBudget = x'ff';"
            "update PM_DutycenterSub set cKeyWord1 = x'ff' where cItemCode = 'X02';"
            "update PM_SettingInf set cValue = x'ff' where cName = 'NumMax_EleQc';"))

    def test_texts_of_any_kind_where_codes_belong(self):
        account = self.new("".join(PLAIN.format(n, n) for n in (90, 91)))
        with closing(sqlite3.connect(account)) as database:
            database.execute("update PM_ItemQC set cItemCode = ? where iEleVid = 90", ("长" * 40000,))
            database.execute("update PM_ItemQC set cItemCode = ? where iEleVid = 91", ("a\x01b\nc\tà",))
            database.commit()
        path = self.folder / "texts.xlsx"
        lines = self.check(account, "--to", path).stdout.splitlines()
        self.assertEqual(lines[-3], "entry 90: check.item: 项目“" + "长" * 3000 + "…”不存在")
        self.assertEqual(len(lines), len(SAMPLE) + 3)
        book = openpyxl.load_workbook(path)
        self.assertEqual(book["check.item"]["E2"].value, lines[-3].split(": ", 2)[2])
        found = json.loads(self.check(account, "--json").stdout)
        self.assertEqual(found["findings"][-1]["text"], "项目“a\x01b\nc\tà”不存在")

    def test_json(self):
        account = self.new(PLAIN.format(90, 90) + PLAIN.format(91, 90)
                           + "update PM_ItemQC set dDate = '2004-07-01' where iEleVid >= 90;")
        found = json.loads(self.check(account, "--json").stdout)
        self.assertEqual(found["account"], str(account))
        self.assertEqual((found["entries"], found["errors"], found["warnings"]),
                         (SAMPLE_ENTRIES + 2, 0, 7))
        self.assertEqual(found["findings"][-3:], [
            {"place": "entry 90", "row": 90, "column": "日期", "rule": "check.date", "severity": "warning",
             "text": "日期 2004-07-01 不早于本年度帐套启用期间第一天 2004-07-01"},
            {"place": "entry 91", "row": 91, "column": "日期", "rule": "check.date", "severity": "warning",
             "text": "日期 2004-07-01 不早于本年度帐套启用期间第一天 2004-07-01"},
            {"place": "entry 91", "row": 91, "column": "", "rule": "check.twin", "severity": "warning",
             "text": "与编号 90 的期初相同：日期 2004-07-01，责任中心“T01”，项目“X01”，要素“E01”，未结转期初 1,234.50"}])
        lines = self.check(account).stdout.splitlines()
        self.assertEqual(lines[:-1], [f"{each['place']}: {each['rule']}: {each['text']}"
                                      for each in found["findings"]])

    def test_workbook(self):
        account = self.new(PLAIN.format(90, 90) + "update PM_ItemQC set cItemCode = '=1+1' where iEleVid = 90;")
        path = self.folder / "findings.XLSX"
        done = self.check(account, "--to", path, "--user", "zhang")
        book = openpyxl.load_workbook(path)
        self.assertEqual(book.sheetnames, ["检查", "check.item", "check.settled", "check.zero"])
        counts = {row[0]: row[1:] for row in book["检查"].iter_rows(values_only=True)}
        self.assertEqual(counts["账套"][0], str(account))
        self.assertTrue(counts["操作员"][0])
        self.assertTrue(counts["时间"][0])
        self.assertEqual([counts[title][0] for title in ("期初", "错误", "警告")],
                         [SAMPLE_ENTRIES + 1, 1, 4])
        self.assertEqual(counts["check.item"], ("项目不存在", "错误", 1))
        self.assertEqual(counts["check.settled"], ("项目已经完工结算", "警告", 3))
        self.assertEqual(counts["check.twin"], ("同一期初录入两次", "警告", 0))
        self.assertEqual(len([name for name in counts if name.startswith("check.")]), 19)
        rows = list(book["check.item"].iter_rows(values_only=True))
        self.assertEqual(rows, [("编号", "级别", "规则", "列", "说明"),
                                (90, "错误", "check.item", "项目编号", "项目“=1+1”不存在")])
        told = [f"entry {row[0]}: {row[2]}: {row[4]}" for name in book.sheetnames[1:]
                for row in list(book[name].iter_rows(values_only=True))[1:]]
        self.assertEqual(sorted(told), sorted(done.stdout.splitlines()[:-1]))

    def test_a_workbook_is_written_whole_or_not_at_all(self):
        account = self.new()
        missing = self.folder / "none" / "findings.xlsx"
        done = self.check(account, "--to", missing, status=1)
        self.assertEqual(done.stdout, "")
        self.assertFalse(missing.exists())
        linked = self.folder / "linked.xlsx"
        linked.symlink_to(account)
        done = self.check(account, "--to", linked, status=1)
        self.assertIn("is read and cannot be written", done.stderr)

    def test_usage(self):
        account = self.new()
        for arguments in (["--to", self.folder / "a.csv"], ["--to", self.folder / "a.pdf"],
                          ["--to", self.folder / "a"], ["--what"], ["more"], ["--year", "x"]):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.check(account, *arguments, status=2).stdout, "")
        self.assertFalse((self.folder / "a.csv").exists())
        self.assertEqual(self.accounts.run("check").returncode, 2)

    def test_what_cannot_be_done(self):
        none = self.accounts.run("check", self.folder / "none.kelvane")
        self.assertEqual((none.returncode, none.stdout), (1, ""))
        self.assertIn("none.kelvane", none.stderr)
        self.check(self.new(), "--user", "niemand", status=1)
        self.check(self.new("drop table inventory"), status=1)

    def test_a_protected_account(self):
        account = self.new()
        account.chmod(stat.S_IRUSR)
        self.assertEqual(self.check(account).stdout.splitlines()[:-1], SAMPLE)

    def test_an_account_with_a_log(self):
        """A program that died left its last changes in the log: they count, and the log stays."""
        account = self.new()
        with closing(sqlite3.connect(account)) as database:
            database.execute("pragma journal_mode = wal")
            database.execute("update PM_ItemQC set mQC = '0.0000' where iEleVid = 1")
            database.commit()
            left = self.folder / "left.kelvane"
            for ending in ("", "-wal"):
                shutil.copyfile(f"{account}{ending}", f"{left}{ending}")
        before = files_of(left)
        lines = self.check(left).stdout.splitlines()
        self.assertIn("entry 1: check.zero:", lines[0])
        self.assertEqual({ending: files_of(left)[ending] for ending in before}, before)

    def test_an_account_with_unfinished_changes(self):
        """A program that died in the middle of its changes: they do not count, and stay to be undone."""
        account = self.new()
        left = self.folder / "half.kelvane"
        with closing(sqlite3.connect(account, isolation_level=None)) as database:
            database.execute("pragma journal_mode = delete")
            database.execute("pragma cache_size = 1")
            database.execute("begin")
            database.execute("update PM_ItemQC set mQC = '0.0000', cDigest = hex(zeroblob(100))")
            database.execute("update PM_DutycenterSub set cKeyWord2 = hex(zeroblob(100))")
            for ending in ("", "-journal"):
                shutil.copyfile(f"{account}{ending}", f"{left}{ending}")
        before = files_of(left)
        self.assertIn("-journal", before)
        self.assertEqual(self.check(left).stdout.splitlines()[:-1], SAMPLE)
        self.assertEqual(files_of(left), before)

    def test_items_are_settled_that_the_list_locks(self):
        """With keywords that match, almost match or are none, and parts of items closed at any time."""
        chance = random.Random(14)
        for keywords in range(3):
            account = self.folder / f"settled{keywords}.kelvane"
            self.accounts.run("init", account, "--sample", "--entries", 300, "--keywords", keywords,
                              check=True)
            with closing(sqlite3.connect(account)) as database:
                parts = database.execute("select rowid, * from fitemss97sub").fetchall()
                keys = [sorted({str(part[4 + key]) for part in parts}) for key in range(keywords)]
                for part in parts:
                    end = chance.choice([None, "2003-12-20 00:00:00.000", "2004-06-30 00:00:00.000",
                                         "2004-07-01 00:00:00.000"])
                    database.execute("update fitemss97sub set iclose = ?, denddate = ? where rowid = ?",
                                     (chance.randrange(2), end, part[0]))
                for identity in range(1, 301):
                    given = [chance.choice([*keys[key], "", " ", "x", "01", " 1", "1.0", "2 "])
                             if key < keywords else "" for key in range(2)]
                    database.execute("update PM_ItemQC set cKeyCode1 = ?, cKeyCode2 = ? "
                                     "where iEleVid = ?", (*given, identity))
                database.commit()
            settled = {int(line.split()[1].rstrip(":")) for line in
                       self.check(account).stdout.splitlines() if ": check.settled: " in line}
            shown = self.accounts.run("drive", account, input="init\nshow\nprint grid\nclose\n").stdout
            rows = [line.split("|") for line in shown.splitlines() if line.count("|") >= 8]
            locked = {int(row[0].split()[1]) for row in rows
                      if all(cell.startswith("#") for cell in row[1:])}
            self.assertEqual(settled, locked)
            self.assertGreater(len(settled), 5)

    def test_other_operators_go_on(self):
        """A checked account keeps nobody out, and who writes keeps no check out."""
        account = self.new()
        with closing(sqlite3.connect(account, timeout=0, isolation_level=None)) as database:
            database.execute("pragma journal_mode = wal")
            database.execute("begin immediate")
            database.execute("update PM_ItemQC set mQC = '0.0000'")
            self.assertEqual(self.accounts.run("check", account).stdout.splitlines()[:-1], SAMPLE)
            database.execute("commit")

    def test_in_another_order_of_rows(self):
        """The rows' order in the file says nothing."""
        damage = (PLAIN.format(90, 90) + PLAIN.format(91, 91) + MACHINE.format(92, 92, 92)
                  + "insert into PM_ItemQCsub values (92, '0202', '1.0000', 1.0, '2.0000'),"
                  " (92, '09', '1.0000', 1.0, '1.0000'), (95, '0202', '1.0000', 1.0, '2.0000'),"
                  " (95, '0201', '1.0000', 1.0, '1.0000');"
                  "update PM_ItemQC set cItemCode = 'x01 ' where iEleVid = 91;")
        account = self.new(damage)
        lines = self.check(account).stdout
        execute(account, "create temp table l as select * from PM_ItemQCsub order by rowid desc;"
                         "delete from PM_ItemQCsub; insert into PM_ItemQCsub select * from l;")
        self.assertEqual(self.check(account).stdout, lines)
        self.assertGreaterEqual(len(set(rules_of(lines.splitlines()[:-1]))), 6)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
