#!/usr/bin/env python3
"""What an import says of rows and writes of them is what the window says and writes.

  check_import_by_hand.py PROGRAM

Random rows, each of them good or wrong in one field, are typed into the window of one account by an
operator, and imported into a twin of it from a workbook or a text. What a row is refused by has to be
the message that the window showed for it; what is written in the end has to be the same.
"""

import datetime
import json
import re
import shutil
import sys
import tempfile
import unittest
from decimal import Decimal
from pathlib import Path

from account_files import (SAMPLE_ENTRIES, Accounts, counter, line, new_entries, query, table_of, text,
                           workbook, LINE_TITLES)
from random_rows import FAULTS, FAULTS_WITHOUT_BOX, ROWS, Rows
from window_operator import SAVED, Operator

PROGRAM = ""
USER = "zhang"
SEEDS = range(1, 9)

# What the window's lower edge says of a row that it refuses without a message box, by the rule that an
# import refuses it by.
NOTICES = {
    "text.quote": "保存当前行时出错，没有写入数据库，录入的内容仍保留在表格中。内容中可能有单引号（'）等不能用的字符。",
    "text.length": "保存当前行时出错，没有写入数据库，录入的内容仍保留在表格中。有内容太长，超过了数据库允许的长度，请缩短。",
    "amount.range": "检查并保存当前行时出错，当前行没有保存。数字超出了数据库能保存的范围。",
}


def as_spreadsheet(cells):
    """Numbers and dates that a spreadsheet would keep as such; its numbers have no more digits."""
    row = dict(cells)
    if re.fullmatch(r"(?=.{1,12}$)-?\d*\.?\d+", row.get("未结转期初") or ""):
        row["未结转期初"] = Decimal(row["未结转期初"])
    # Spreadsheets disagree about the first months of 1900.
    if re.fullmatch(r"(19[1-9]|200)\d-0\d-[012]\d", row.get("日期") or ""):
        row["日期"] = datetime.date.fromisoformat(row["日期"])
    return row


class ImportByHand(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp(prefix="kelvane-by-hand-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.accounts = Accounts(PROGRAM, cls.folder)

    def by_hand(self, rows):
        account = self.accounts.new()
        with Operator(self.accounts, account, USER) as operator:
            outcomes = [operator.enter(row, lines) for row, lines in zip(rows.rows, rows.lines)]
            operator.close()
        return account, outcomes

    def write(self, name, rows, numbers):
        """The rows `numbers` as a workbook or as two texts; the arguments of the import."""
        entries = [dict(rows.rows[number], 行号=str(number)) for number in numbers]
        lines = [line(str(number), cells["编码"], cells["单价"], cells["数量"])
                 for number in numbers for cells in rows.lines[number]]
        if name.endswith(".xlsx"):
            return [workbook(self.folder / name, map(as_spreadsheet, entries), lines)]
        return [text(self.folder / name, table_of(entries)), "--lines",
                text(self.folder / f"lines-{name}", table_of(lines, LINE_TITLES))]

    def imported(self, account, files, *options):
        done = self.accounts.run("import", account, *files, "--user", USER, "--json", *options)
        self.assertIn(done.returncode, (0, 3), done.stderr)
        return json.loads(done.stdout), done.returncode

    @staticmethod
    def first_findings(findings, rows):
        """The finding that the window would have come to first, by the entry's number in `rows`. Lines
        are typed behind the digest, the budget looks at the amount when they have been saved."""
        owners = [number for number, lines in enumerate(rows.lines) for _ in lines]
        first = {}
        for finding in findings:
            of_line = finding["place"].startswith("明细!") or "/lines-" in finding["place"]
            # Behind the titles, and blank rows there are none.
            at = finding["row"] - 2
            number = owners[at] if of_line else at
            rank = 1 if of_line else 2 if finding["column"] == "未结转期初" else 0
            if number not in first or rank < first[number][0]:
                first[number] = rank, finding
        return {number: finding for number, (_, finding) in first.items()}

    def compare(self, seed, faults, extension):
        rows = Rows(seed, faults)
        account, outcomes = self.by_hand(rows)
        saved = [number for number, outcome in enumerate(outcomes) if outcome == SAVED]
        twin = self.accounts.new()

        answer, status = self.imported(
            twin, self.write(f"all{seed}.{extension}", rows, range(ROWS)), "--dry-run")
        first = self.first_findings(answer["findings"], rows)
        for number, outcome in enumerate(outcomes):
            told = (rows.rows[number], rows.lines[number], first.get(number))
            if outcome == SAVED:
                self.assertIsNone(first.get(number), told)
            elif outcome.message:
                self.assertEqual(first.get(number, {}).get("text"), outcome.message, told)
            else:
                self.assertEqual(NOTICES.get(first.get(number, {}).get("rule")), outcome.notice, told)
        self.assertEqual(status, 0 if len(saved) == ROWS else 3)
        self.assertEqual([answer[key] for key in ("rows", "new", "refused")],
                         [ROWS, len(saved), ROWS - len(saved)])
        self.assertEqual(counter(twin), SAMPLE_ENTRIES)

        answer, status = self.imported(twin, self.write(f"good{seed}.{extension}", rows, saved))
        self.assertEqual((answer["findings"], status), ([], 0))
        return account, twin, len(saved)

    def test_rows_good_and_bad(self):
        for seed in SEEDS:
            with self.subTest(seed=seed):
                account, twin, saved = self.compare(seed, FAULTS, "xlsx" if seed % 2 else "csv")
                # Budgets refuse some of the good ones.
                self.assertGreater(saved, ROWS // 3)
                self.assertEqual(new_entries(twin), new_entries(account))
                self.assertEqual(counter(twin), counter(account))
                self.assertEqual(counter(twin), SAMPLE_ENTRIES + saved)

    def test_rows_that_the_window_refuses_without_a_box(self):
        account, twin, saved = self.compare(99, FAULTS_WITHOUT_BOX, "xlsx")
        without_identity = [
            query(each, "select dDate, cCenterCode, cItemCode, cKeyCode1, cElementCode, cDigest, mQC"
                        " from PM_ItemQC where iEleVid > ? order by iEleVid", SAMPLE_ENTRIES)
            for each in (twin, account)]
        self.assertEqual(*without_identity)
        self.assertEqual(counter(twin), SAMPLE_ENTRIES + saved)


if __name__ == "__main__":
    PROGRAM = str(Path(sys.argv[1]).resolve())
    unittest.main(argv=sys.argv[:1])
