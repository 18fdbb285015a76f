#!/usr/bin/env python3
"""Sums up random accounts, and compares every figure with one that Python comes to by itself.

  check_summary.py PROGRAM ACCOUNT_TOOL

The environment variable KELVANE_TEST_DATABASE says on which engine.
"""

import csv
import hashlib
import itertools
import json
import os
import random
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import unicodedata
import unittest
from collections import namedtuple
from contextlib import closing
from decimal import Decimal, getcontext
from pathlib import Path

import openpyxl

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "support"))
from account import Account

getcontext().prec = 60  # longer than any sum of amounts

FIELDS = ["item", "element", "center", "keyword", "month"]
TITLES = {"item": ["项目编号", "项目名称"], "element": ["要素编码", "要素"],
          "center": ["责任中心", "责任中心名称"], "keyword": ["关键字"], "month": ["月份"]}
ORDERS = [order for count in range(len(FIELDS) + 1)
          for order in itertools.permutations(FIELDS, count)]
GREATEST = Decimal("922337203685477.5807")

# What the account compares as equal stands side by side; the last ones have no name anywhere.
ITEMS = ["P01", "p01", "P01  ", "P02", " P02", "项目甲", "项目乙 ", "Ä1", "ä1", "Ｂ01", "ｂ01", "X09", "0007",
         "7", "", None]
ELEMENTS = ["E01", "e01 ", "E02", "E03", "费用", "Z1", "", None]
CENTERS = ["D01", "d01", "D02", "中心", "N1", None]
KEYWORDS = ["一标段", "二标段", "a", "A ", "", None]
NAMES = {"item": [("P01", "一号楼"), ("P02", "二号楼，“大”—Ⅱ期"), ("项目甲", "甲"), ("项目乙", "乙"), ("Ä1", "Älteres"),
                  ("ｂ01", "全角"), ("0007", "七号楼"), ("Q99", "没有期初")],
         "element": [("E01", "人工费"), ("E02", "机械费"), ("E03", "材料费"), ("费用", "其他费用")],
         "center": [("D01", "一分公司"), ("D02", "二分公司"), ("中心", "本部")]}
TABLES = {"item": "fitemss97(citemcode,citemname)", "center": "PM_DutyCenter(cCenterCode,cCenterName)",
          "element": "PM_ItemElement(cElementCode,cElementName)"}

Entry = namedtuple("Entry", "identity date center item key1 key2 element amount")
Budget = namedtuple("Budget", "version item element granted money")
Row = namedtuple("Row", "values entries sum budget")


def fixed(amount):
    return f"{amount:.4f}"


def shown(amount):
    text = f"{amount:,.4f}"
    return text[:-2] if text.endswith("00") else text


def compared(code):
    """What the account compares of a code."""
    return (code or "").rstrip(" ").lower()


class RandomAccount:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.entries = [self.entry(identity) for identity in self.random.sample(range(1, 3000), 90)]
        self.budgets = [Budget(version, item, element, self.some([0, 1, 1, 1, -1, None]), self.some(
                            [None, min(abs(self.amount()), GREATEST), Decimal("0.0001"), Decimal(1000)]))
                        for version in (1, 2) for item in ("p01 ", "P02", "项目甲", "Ä1", "X09")
                        for element in ("E01", "E02", "费用") if self.random.random() < 0.8]

    def some(self, values):
        return self.random.choice(values)

    def amount(self):
        return self.some([
            Decimal(self.random.randrange(-10**9, 10**9)) / 10**4, Decimal(self.random.randrange(10**6)),
            Decimal(self.random.randrange(-10**8, 10**8)) / 100, Decimal(0), Decimal("-0.0001"), GREATEST,
            -GREATEST - Decimal("0.0001"), GREATEST - Decimal(self.random.randrange(10**6)) / 10**4])

    def entry(self, identity):
        date = self.some([None, f"{self.some([1999, 2003, 2004])}-{self.random.randrange(1, 13):02}-"
                          f"{self.random.randrange(1, 29):02}"])
        return Entry(identity, date, self.some(CENTERS), self.some(ITEMS), self.some(KEYWORDS),
                     self.some(["", None, "1", "B"]), self.some(ELEMENTS),
                     self.some([None] + [self.amount()] * 12))

    def statements(self):
        def row(values):
            return ",".join("null" if value is None else str(value) if isinstance(value, (int, Decimal))
                            else f"'{value}'" for value in values)
        for field, names in NAMES.items():
            for name in names:
                yield f"insert into {TABLES[field]} values({row(name)})"
        yield "insert into pm_BudgetVer(iverid,bControl) values(1,0)"
        yield "insert into pm_BudgetVer(iverid,bControl) values(2,1)"
        for budget in self.budgets:
            yield ("insert into pm_budget(iVerID,citemCode,cElementCode,iBudget,iMoneysum) "
                   f"values({row(budget)})")
        for entry in self.entries:
            yield ("insert into PM_ItemQC(iEleVid,dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,"
                   f"cElementCode,mQC) values({row(entry)})")


def entries_of_file(path):
    with closing(sqlite3.connect(path)) as database:
        rows = database.execute("select iEleVid,dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,"
                                "cElementCode,mQC from PM_ItemQC").fetchall()
    return [Entry(row[0], row[1] and row[1][:10], *row[2:7], row[7] and Decimal(row[7]))
            for row in rows]


def key_of(entry, field):
    if field == "keyword":
        return compared(entry.key1), compared(entry.key2)
    if field == "month":
        return ((entry.date or "")[:7],)
    return (compared(getattr(entry, field)),)


def value_of(entry, field, entries):
    if field == "month":
        return (entry.date or "")[:7], ""
    for code, name in NAMES.get(field, []):
        if compared(code) == compared(getattr(entry, field)):
            return code, name
    first = min((e for e in entries if key_of(e, field) == key_of(entry, field)),
                key=lambda e: e.identity)
    if field == "keyword":
        codes = [(first.key1 or "").rstrip(" "), (first.key2 or "").rstrip(" ")]
        return " / ".join(codes) if codes[1] else codes[0], ""
    return (getattr(first, field) or "").rstrip(" "), ""


def expected_rows(entries, budgets, order):
    """What a summary by the fields of `order` has, row by row."""
    pair = (max(order.index("item"), order.index("element")) + 1
            if {"item", "element"} <= set(order) else None)

    def budget_of(group, level, total):
        if level != pair:
            return None
        item, element = ((getattr(group[0], field) or "").strip(" ") for field in ("item", "element"))
        of_pair = [e for e in entries if key_of(e, "item") == key_of(group[0], "item")
                   and key_of(e, "element") == key_of(group[0], "element")]
        found = [b for b in budgets if b.version == 2 and (compared(b.item), compared(b.element))
                 == (compared(item), compared(element))]
        if len(of_pair) != len(group) or not found or (found[0].granted or 0) <= 0:
            return None
        money = found[0].money or Decimal(0)
        return money, total, money - total

    def append(group, level):
        if level < len(order):
            field = order[level]
            for key in sorted({key_of(e, field) for e in group}):
                append([e for e in group if key_of(e, field) == key], level + 1)
        total = sum((e.amount for e in group if e.amount), Decimal(0))
        rows.append(Row([value_of(group[0], field, entries) for field in order[:level]], len(group),
                        total, budget_of(group, level, total)))

    rows = []
    append(entries, 0)
    return rows


def expected_table(rows, order):
    titles = list(itertools.chain(*(TITLES[field] for field in order))) or ["范围"]
    texts = len(titles)
    titles += ["笔数", "未结转期初"]
    with_budget = {"item", "element"} <= set(order)
    if with_budget:
        titles += ["预算", "已用", "剩余"]
    table = [titles]
    for row in rows:
        cells = list(itertools.chain(*(value[:len(TITLES[field])]
                                       for field, value in zip(order, row.values))))
        if not row.values:
            cells.append("合计")
        elif len(row.values) < len(order):
            cells.append("小计")
        cells += [""] * (texts - len(cells))
        cells += [str(row.entries), shown(row.sum)]
        if with_budget:
            cells += [shown(amount) for amount in row.budget] if row.budget else [""] * 3
        table.append(cells)
    return table, texts


def expected_text(table, texts):
    def width(text):
        return sum(2 if unicodedata.east_asian_width(letter) in "WF" else 1 for letter in text)
    widths = [max(map(width, column)) for column in zip(*table)]
    lines = []
    for cells in table:
        parts = []
        for column, (cell, room) in enumerate(zip(cells, widths)):
            blanks = " " * (room - width(cell))
            parts.append(cell + blanks if column < texts else blanks + cell)
        lines.append("  ".join(parts).rstrip(" "))
    return "".join(line + "\n" for line in lines)


def expected_json(rows, order):
    def sums(row):
        told = {"entries": row.entries, "sum": fixed(row.sum)}
        if row.budget:
            told |= dict(zip(("budget", "used", "left"), map(fixed, row.budget)))
        return told
    return {"by": list(order),
            "rows": [{"level": len(row.values),
                      "values": {field: {"code": code, "name": name}
                                 for field, (code, name) in zip(order, row.values)}, **sums(row)}
                     for row in rows[:-1]],
            "total": sums(rows[-1]), "notes": []}


class SummaryCase(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="kelvane-summary-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.accounts = 0
        self.environment = dict(os.environ, HOME=str(self.folder), XDG_DATA_HOME=str(self.folder),
                                XDG_CONFIG_HOME=str(self.folder), LANGUAGE="", LC_ALL="C.UTF-8")

    def start(self, account):
        """The program for an account that is empty."""
        self.account = account
        self.is_file = account.engine == "sqlite"
        self.environment |= account.environment
        made = self.run_program("init")
        self.assertEqual(made.returncode, 0, made.stderr)

    def open_account(self):
        self.accounts += 1
        file = self.folder / f"a{self.accounts}.kelvane"
        account = self.enterContext(Account(sys.argv[2], file))
        self.start(account)
        return file

    def run_program(self, command, *arguments):
        return subprocess.run([sys.argv[1], command, *self.account.words, *map(str, arguments)],
                              capture_output=True, encoding="utf-8", env=self.environment, timeout=120)

    def summary(self, *arguments, status=0):
        done = self.run_program("summary", *arguments)
        self.assertEqual(done.returncode, status, done.stderr)
        return done

    def fill(self, seed):
        made = RandomAccount(seed)
        self.account.ask("begin")
        for statement in made.statements():
            self.account.ask("run " + statement)
        self.account.ask("commit")
        return made


class Summaries(SummaryCase):
    def check_files(self, order, table, texts):
        by = ["--by", ",".join(order)]
        paths = {kind: self.folder / f"s.{kind}" for kind in ("csv", "xlsx", "pdf")}
        for path in paths.values():
            self.summary(*by, "--to", path)
        with paths["csv"].open(encoding="utf-8-sig", newline="") as file:
            rows = list(csv.reader(file))
        plain = [[cell if column < texts or not cell else plain_number(cell)
                  for column, cell in enumerate(cells)] for cells in table[1:]]
        self.assertEqual(rows, [table[0], *plain])
        sheet = openpyxl.load_workbook(paths["xlsx"]).active
        self.assertEqual(sheet.title, "期初汇总")
        read = [list(row) for row in sheet.iter_rows(values_only=True)]
        self.assertEqual(read[0], table[0])
        self.assertEqual(len(read), len(table))
        for cells, found in zip(table[1:], read[1:]):
            for column, (cell, value) in enumerate(zip(cells, found)):
                if column < texts or not cell:
                    self.assertEqual(value or "", cell)
                else:
                    self.assertEqual(Decimal(str(value)), Decimal(cell.replace(",", "")))
                    # A spreadsheet keeps no more digits of a number.
                    digits = len(plain_number(cell).strip("-").replace(".", "").strip("0"))
                    self.assertEqual(isinstance(value, str), digits > 15)
        words = subprocess.run(["pdftotext", "-layout", paths["pdf"], "-"], check=True,
                               capture_output=True, encoding="utf-8").stdout
        self.assertIn("期初汇总", words)
        found = words.split()
        for cells in table[1:]:
            for cell in cells[texts:]:
                self.assertTrue(not cell or cell in found, cell)
        self.assertEqual(found.count("合计"), 1)

    def test_random_accounts(self):
        for seed in range(1, 5):
            with self.subTest(seed=seed):
                file = self.open_account()
                made = self.fill(seed)
                entries = made.entries
                if self.is_file:
                    entries = entries_of_file(file)
                    self.assertEqual({entry.identity: entry.amount for entry in entries},
                                     {entry.identity: entry.amount for entry in made.entries})
                    before = hashlib.sha256(file.read_bytes()).digest()
                orders = [tuple(FIELDS[:2]), (), *made.random.sample(ORDERS, 8)]
                for order in orders:
                    with self.subTest(seed=seed, order=order):
                        rows = expected_rows(entries, made.budgets, order)
                        table, texts = expected_table(rows, order)
                        by = ["--by", ",".join(order)]
                        done = self.summary(*by)
                        self.assertEqual((done.stdout, done.stderr), (expected_text(table, texts), ""))
                        told = json.loads(self.summary(*by, "--json").stdout)
                        self.assertEqual(told, expected_json(rows, order))
                for order in (orders[0], *orders[2:4]):
                    with self.subTest(seed=seed, files=order):
                        table, texts = expected_table(expected_rows(entries, made.budgets, order), order)
                        self.check_files(order, table, texts)
                if self.is_file:
                    self.assertEqual(hashlib.sha256(file.read_bytes()).digest(), before)
                    self.assertEqual(list(self.folder.glob(f"{file.name}*")), [file])

    def test_without_fields_named_by_item_and_element(self):
        self.open_account()
        self.fill(7)
        self.assertEqual(self.summary().stdout, self.summary("--by", "item,element").stdout)

    def test_an_empty_account(self):
        self.open_account()
        self.assertEqual(self.summary("--by", "month").stdout, "月份  笔数  未结转期初\n合计     0        0.00\n")
        self.assertEqual(json.loads(self.summary("--json").stdout)["total"],
                         {"entries": 0, "sum": "0.0000"})
        path = self.folder / "s.pdf"
        self.summary("--to", path)
        self.assertTrue(path.read_bytes().startswith(b"%PDF"))

    def test_two_versions_in_control_are_told(self):
        self.open_account()
        self.fill(7)
        self.account.ask("run update pm_BudgetVer set bControl=1")
        done = self.summary()
        note = "有 2 个预算版本同时在控制，不列预算、已用和剩余"
        self.assertEqual(done.stderr, note + "\n")
        told = json.loads(self.summary("--json").stdout)
        self.assertEqual(told["notes"], [note])
        self.assertFalse(any("budget" in row for row in told["rows"]))

    def test_wrong_usage(self):
        self.open_account()
        for arguments in (["--by", "items"], ["--by", "item,item"], ["--by", "item,"], ["--by", "Item"],
                          ["--to", "s.xml"], ["--to", "s"], ["--to", "s.xls"], ["--map", "m.csv"],
                          ["--sign-off", "s.xlsx"], ["more"]):
            done = self.summary(*arguments, status=2)
            self.assertEqual(done.stdout, "")
            self.assertIn("--help", done.stderr)

    def test_a_file_that_cannot_be_written(self):
        self.open_account()
        done = self.summary("--to", self.folder / "none" / "s.csv", status=1)
        self.assertEqual(done.stdout, "")
        self.assertIn(str(self.folder / "none"), done.stderr)


class DamagedFiles(SummaryCase):
    """What only a file can be like."""

    def damage(self, statement):
        file = self.open_account()
        if not self.is_file:
            self.skipTest("a server keeps its columns' types")
        self.fill(7)
        with closing(sqlite3.connect(file)) as database:
            database.execute(statement)
            database.commit()
        return file

    def test_an_amount_that_cannot_be_read(self):
        self.damage("update PM_ItemQC set mQC='many' where iEleVid=(select min(iEleVid) from"
                    " PM_ItemQC)")
        identity = min(entry.identity for entry in RandomAccount(7).entries)
        path = self.folder / "s.csv"
        done = self.summary("--by", "month", "--to", path, status=1)
        self.assertEqual((done.stdout, path.exists()), ("", False))
        self.assertIn(f"有 1 行期初的金额无法识别，第一行是期初编号 {identity}，不能汇总", done.stderr)

    def test_a_date_that_cannot_be_read(self):
        self.damage("update PM_ItemQC set dDate='some day' where dDate like '2004%'")
        entries = [entry._replace(date=None if (entry.date or "").startswith("2004") else entry.date)
                   for entry in RandomAccount(7).entries]
        for order in (("month",), ("item", "month")):
            table, texts = expected_table(expected_rows(entries, [], order), order)
            self.assertEqual(self.summary("--by", ",".join(order)).stdout, expected_text(table, texts))

    def test_the_date_that_stands_for_none(self):
        self.damage("update PM_ItemQC set dDate='0100-01-01 00:00:00.000' where dDate like '2004%'")
        entries = [entry._replace(date=None if (entry.date or "").startswith("2004") else entry.date)
                   for entry in RandomAccount(7).entries]
        table, texts = expected_table(expected_rows(entries, [], ("month",)), ("month",))
        self.assertEqual(self.summary("--by", "month").stdout, expected_text(table, texts))

    def test_a_budget_that_cannot_be_read(self):
        self.damage("update pm_budget set iMoneysum='much', iBudget='1'")
        done = self.summary()
        self.assertIn("项目 P01 要素 E01 的预算无法识别\n", done.stderr)
        entries = RandomAccount(7).entries
        order = ("item", "element")
        table, texts = expected_table(expected_rows(entries, [], order), order)
        self.assertEqual(done.stdout, expected_text(table, texts))

    def test_a_file_that_cannot_be_written_is_read(self):
        file = self.damage("update PM_ItemQC set cDigest='x'")
        before = self.summary().stdout
        file.chmod(0o444)
        self.folder.chmod(0o555)
        self.addCleanup(self.folder.chmod, 0o755)
        self.assertEqual(self.summary().stdout, before)

    def test_the_account_is_not_replaced(self):
        file = self.damage("update PM_ItemQC set cDigest='x'")
        other = self.folder / "a.csv"
        other.hardlink_to(file)
        before = file.read_bytes()
        done = self.summary("--to", other, status=1)
        self.assertIn(str(other), done.stderr)
        self.assertEqual((file.read_bytes(), other.read_bytes()), (before, before))


def plain_number(shown_text):
    """"1,234.50" as a text file has it: without commas and without zeros at the end."""
    text = shown_text.replace(",", "")
    return text.rstrip("0").rstrip(".") if "." in text else text


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
