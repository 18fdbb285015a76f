#!/usr/bin/env python3
"""Amounts are moved within an account by many at once, and no reader ever finds another total.

Operators move quantities between the lines of entries that all of them share, in the list's window;
others import two entries that come to nothing together, and take them back. Each of these is one
save: a reader who found half of one would find another total. Readers sum the account up and have it
checked all the while.
"""

import argparse
import json
import os
import random
import subprocess
import sys
import tempfile
import threading
import time
import traceback
from collections import Counter
from decimal import Decimal
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "support"))

from account import Account
from conversation import Conversation
from materials import add_materials, item_code

MATERIALS = 60
# Of one price, so that what is moved between their lines does not change an entry's amount.
ITEMS = (0, 17, 34, 51)
QUANTITY = 1000
ENTRIES = range(101, 105)
QUANTITY_COLUMN = 5
HOME_ROW = 1
PATIENCE_SECONDS = 240
PAUSE_SECONDS = 0.05  # before trying again


class Bank:
    """The account, and what is known of those who work in it."""

    def __init__(self, program, account, readings):
        self.program = program
        self.account = account
        self.readings = readings
        self.done = Counter()
        self.troubles = Counter()
        self.working = 0
        self.failures = []
        self.changed = threading.Condition()

    def count(self, what):
        with self.changed:
            self.done[what] += 1

    def is_read_enough(self):
        with self.changed:
            return self.done["readings"] >= self.readings or self.failures

    def work(self, worker):
        try:
            worker()
        except Exception:  # told by the main thread
            with self.changed:
                self.failures.append(traceback.format_exc())
        with self.changed:
            self.working -= 1

    def run(self, *words):
        name, *rest = words
        return subprocess.run([self.program, name, *self.account.words, *map(str, rest)],
                              env={**os.environ, **self.account.environment},
                              capture_output=True, encoding="utf-8", check=False)

    def total(self):
        summed = self.run("summary", "--by", "item,element", "--json")
        if summed.returncode != 0:
            raise RuntimeError(summed.stderr)
        return Decimal(json.loads(summed.stdout)["total"]["sum"])

    def errors(self):
        checked = self.run("check", "--json")
        if checked.returncode not in (0, 3):
            raise RuntimeError(checked.stderr)
        return [finding["text"] for finding in json.loads(checked.stdout)["findings"]
                if finding["severity"] == "error"]


class Mover:
    """An operator who moves quantities between lines."""

    def __init__(self, bank, moves, chance):
        self.bank = bank
        self.moves = moves
        self.chance = chance

    def run(self):
        self.conversation = Conversation(self.bank.program, self.bank.account)
        self.rows = {identity: row for row, identity in
                     enumerate(self.conversation.open_list(), 1)}
        moved = 0
        while moved < self.moves or not self.bank.is_read_enough():
            self.move(self.chance.choice(ENTRIES))
            self.bank.count("moves between lines")
            moved += 1
        self.conversation.close()

    def until(self, is_done, *commands):
        """Does it again as long as another operator's lock is in the way."""
        end = time.monotonic() + PATIENCE_SECONDS
        while not is_done(answer := self.conversation.say(*commands)):
            if time.monotonic() > end:
                raise RuntimeError(f"{commands}: {answer.lines} {answer.notice} {answer.cell}")
            self.bank.troubles[answer.notice or "; ".join(answer.boxes)] += 1
            time.sleep(PAUSE_SECONDS)
        return answer

    def move(self, entry):
        row = self.rows[entry]
        self.until(lambda answer: answer.cell.startswith(f"{row} 9 "), f"go {row} 9")
        self.until(lambda answer: answer.window == "frmQCEdit", "ref")
        quantities = {}
        for line in self.conversation.say("print grid").lines:
            number, _, cells = line.split(" ", 2)
            if number != "0":
                text = cells.split("|")[QUANTITY_COLUMN].lstrip("#!").replace(",", "")
                quantities[int(number)] = Decimal(text)
        giver, taker = self.chance.sample(sorted(quantities), 2)
        amount = self.chance.randint(1, int(quantities[giver]) - 1) if quantities[giver] > 1 else 0
        for line, quantity in ((giver, quantities[giver] - amount),
                               (taker, quantities[taker] + amount)):
            self.until(lambda answer: not answer.refused and not answer.boxes,
                       f"go {line} {QUANTITY_COLUMN}", f"edit {quantity}")
        self.until(lambda answer: answer.window == "frmPeriodItem", "click Save")
        self.until(lambda answer: answer.succeeded and not answer.boxes, f"go {HOME_ROW} 2")


class Importer:
    """Two entries that come to nothing go in together, and out again."""

    def __init__(self, bank, number, moves, chance, folder):
        self.bank = bank
        self.number = number
        self.moves = moves
        self.chance = chance
        self.folder = folder / f"importer{number}"
        self.folder.mkdir()

    def run(self):
        for turn in range(self.moves):
            amount = self.chance.randint(1, 10**6)
            table = self.folder / f"{turn}.csv"
            rows = ["日期,责任中心,项目编号,标段,要素,摘要,未结转期初"]
            rows += [f"2004-06-01,D01,P01,一标段,人工费,{self.number}-{turn},{each}"
                     for each in (amount, -amount)]
            table.write_text("\n".join(rows) + "\n", encoding="utf-8")
            self.until_done("import", table)
            self.bank.count("imports")
            self.until_done("undo", 2 * turn + 1)
            self.bank.count("imports taken back")

    def until_done(self, *words):
        end = time.monotonic() + PATIENCE_SECONDS
        while (ended := self.bank.run(*words, "--journal", self.folder / "journal")).returncode:
            if time.monotonic() > end:
                raise RuntimeError(f"{words}: {ended.stdout} {ended.stderr}")
            self.bank.troubles[(ended.stdout + ended.stderr).strip()] += 1
            time.sleep(PAUSE_SECONDS)


class Reader:
    """Whatever a reading finds comes to the same."""

    def __init__(self, bank, wanted):
        self.bank = bank
        self.wanted = wanted

    def run(self):
        while self.bank.working or not self.bank.is_read_enough():
            total = self.bank.total()
            if total != self.wanted:
                raise RuntimeError(f"a reader found {total} instead of {self.wanted}")
            if errors := self.bank.errors():
                raise RuntimeError(f"a reader found {errors}")
            self.bank.count("readings")


def prepare(program, account):
    account.create(program)
    for name in ("small.sql", "small_details.sql"):
        account.run_file(name)
    add_materials(account, MATERIALS)
    for entry in ENTRIES:
        account.run(f"insert into PM_ItemQC values ({entry}, '2004-06-01 00:00:00.000', 'D01', 'P01',"
                    f" '一标段', '', 'E02', '分{entry}', {len(ITEMS) * QUANTITY}.0000)")
        account.run_together(f"insert into PM_ItemQCsub values ({entry}, '{item_code(item)}', 1.0000,"
                             f" {QUANTITY}.0, {QUANTITY}.0000)" for item in ITEMS)
    account.run("update PM_SettingInf set cValue = '200' where cName = 'NumMax_EleQc'")
    # The first opening sets an amount right that is not the sum of its lines.
    operator = Conversation(program, account)
    operator.open_list()
    operator.close()


def run_all(bank, movers, importers, chance, folder, moves):
    total = bank.total()
    if errors := bank.errors():
        raise RuntimeError(f"the account is not in order: {errors}")
    workers = [Mover(bank, moves, random.Random(chance.random())) for _ in range(movers)]
    workers += [Importer(bank, number, moves, random.Random(chance.random()), folder)
                for number in range(importers)]
    bank.working = len(workers)
    threads = [threading.Thread(target=bank.work, args=(worker.run,)) for worker in workers]
    reader = Reader(bank, total)
    for thread in threads:
        thread.start()
    try:
        reader.run()
    except RuntimeError as error:
        with bank.changed:
            bank.failures.append(str(error))
    for thread in threads:
        thread.join()
    if bank.failures:
        return
    # Another total would have been seen.
    bank.account.run("update PM_ItemQC set mQC = mQC + 0.01 where iEleVid = 1")
    if bank.total() != total + Decimal("0.01"):
        bank.failures.append("a reader does not find what is there")


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True, help="the program kelvane")
    parser.add_argument("--tool", required=True, help="the program kelvane_account_tool")
    parser.add_argument("--operators", type=int, default=8)
    parser.add_argument("--importers", type=int, default=2)
    parser.add_argument("--moves", type=int, default=100, help="of each operator and importer")
    parser.add_argument("--readings", type=int, default=50, help="at least")
    parser.add_argument("--seed", type=int, default=random.randrange(1 << 32))
    arguments = parser.parse_args()
    print(f"seed {arguments.seed}", flush=True)
    with tempfile.TemporaryDirectory(prefix="kelvane-load-") as name, \
            Account(arguments.tool, Path(name) / "account.kelvane") as account:
        prepare(arguments.program, account)
        bank = Bank(arguments.program, account, arguments.readings)
        run_all(bank, arguments.operators, arguments.importers, random.Random(arguments.seed),
                Path(name), arguments.moves)
    for failure in bank.failures:
        print(failure)
    print(f"{account.engine}: " + ", ".join(f"{kind} {count}"
                                            for kind, count in sorted(bank.done.items())))
    for told, count in bank.troubles.most_common():
        print(f"told {count} times: {told}")
    if not bank.failures:
        print("every reading found the same total, and nothing wrong")
    return 1 if bank.failures else 0


if __name__ == "__main__":
    sys.exit(main())
