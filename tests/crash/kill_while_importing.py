#!/usr/bin/env python3
"""Kills the program while it imports tables and takes imports back, and looks at what is left.

After each kill `kelvane batches` decides what became of the batch, and the account has to hold exactly
what the journal says: the rows of all batches that were written, one after the other, and nothing of
the others. When a kill hits is chance; that a batch is decided both ways, written and not, is brought
about besides.
"""

import json
import os
import subprocess
import sys
import tempfile
import time
from collections import Counter
from decimal import Decimal
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "support"))

from account import Account
from killing import TIMEOUT_SECONDS, Broken, parse_arguments, shown

BASE_ENTRIES = 5
ROWS = 150
TITLES = "日期,责任中心,项目编号,标段,要素,摘要,未结转期初,行号"
LINE_TITLES = "行号,编码,单价,数量"


class Table:
    """A table of entries, some of them with lines, that no other table is like."""

    def __init__(self, folder, number):
        self.entries = folder / f"{number}.csv"
        self.lines = folder / f"{number}.lines.csv"
        rows, lines = [TITLES], [LINE_TITLES]
        for row in range(ROWS):
            if row % 5:
                rows.append(f"2004-06-01,D01,P01,一标段,人工费,第{number}批,{row + 1}.25,")
            else:
                rows.append(f"2004-06-01,D01,P01,一标段,机械费,第{number}批,,{row}")
                lines += [f"{row},J01,{row % 7 + 1},2", f"{row},J03,3,{row % 11 + 1}"]
        self.entries.write_text("\n".join(rows) + "\n", encoding="utf-8")
        self.lines.write_text("\n".join(lines) + "\n", encoding="utf-8")


def plain(number):
    return format(Decimal(number).normalize(), "f")


def stored(account):
    """The entries that are not the first ones, each with its lines."""
    entries = {}
    for identity, *fields, amount in account.fields(
            "select iEleVid, cCenterCode, cItemCode, cKeyCode1, cElementCode, cDigest, mQC"
            f" from PM_ItemQC where iEleVid > {BASE_ENTRIES}"):
        entries[identity] = (*fields, plain(amount), [])
    for identity, code, *numbers in account.fields(
            "select iEleVid, cCodeMx, iUprice, iNum, mQC from PM_ItemQCsub"
            f" where iEleVid > {BASE_ENTRIES}"):
        if identity not in entries:
            raise Broken(f"lines without the entry {identity}")
        entries[identity][-1].append((code, *map(plain, numbers)))
    for entry in entries.values():
        entry[-1].sort()
    return entries


def imaged(image):
    """An entry of the journal in the form of stored()."""
    fields = dict(image["fields"])
    lines = [dict(line) for line in image["lines"]]
    return (*(fields[name] for name in ("cCenterCode", "cItemCode", "cKeyCode1", "cElementCode",
                                        "cDigest")), plain(fields["mQC"]),
            sorted((line["cCodeMx"], *(plain(line[name]) for name in ("iUprice", "iNum", "mQC")))
                   for line in lines))


class Journal:
    def __init__(self, program, account, folder):
        self.program = program
        self.account = account
        self.folder = folder

    def command(self, *arguments):
        name, *rest = arguments
        return [self.program, name, *self.account.words, *map(str, rest), "--journal", str(self.folder)]

    def environment(self):
        return {**os.environ, **self.account.environment}

    def outcomes(self):
        """How each batch ended, by number, and which one it took back."""
        said = subprocess.run(self.command("batches", "--json"), env=self.environment(),
                              capture_output=True, encoding="utf-8", timeout=TIMEOUT_SECONDS)
        if said.returncode != 0:
            raise Broken(said.stderr)
        return {each["number"]: (each["outcome"], each["undoes"])
                for each in json.loads(said.stdout)["batches"]}

    def rows(self, number):
        entries = {}
        for line in (self.folder / f"{number}.jsonl").read_text(encoding="utf-8").splitlines():
            change = json.loads(line).get("change")
            if change:
                entries[str(change["identity"])] = change["after"] and imaged(change["after"])
        return entries

    def expected(self, outcomes):
        entries = {}
        for number, (outcome, _) in sorted(outcomes.items()):
            if outcome == "written":
                entries.update(self.rows(number))
        return {identity: entry for identity, entry in entries.items() if entry}


def check(journal, outcomes):
    strange = {outcome for outcome, _ in outcomes.values()} - {"written", "not written", "never begun"}
    if strange:
        raise Broken(f"batches that are {strange}")
    expected, found = journal.expected(outcomes), stored(journal.account)
    if expected != found:
        wrong = [each for each in expected.keys() | found.keys()
                 if expected.get(each) != found.get(each)]
        raise Broken(f"{len(wrong)} entries are not what the journal says, one of them {wrong[0]}:"
                     f" {found.get(wrong[0])} in place of {expected.get(wrong[0])}")


def run_and_kill(journal, words, limit):
    """Whether it was killed, and how long it took."""
    started = time.monotonic()
    process = subprocess.Popen(journal.command(*words), env=journal.environment(),
                               stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    try:
        _, said = process.communicate(timeout=limit)
    except subprocess.TimeoutExpired:
        process.kill()
        process.communicate()
        return True, None
    if process.returncode != 0:
        raise Broken(f"{words[0]} ended with {process.returncode}: {said.decode()}")
    return False, time.monotonic() - started


def one_run(journal, folder, chance, times, number, before):
    """An import, or the undo of one that is there; what became of a killed one."""
    taken_back = {undoes for outcome, undoes in before.values() if outcome == "written"}
    there = [batch for batch, (outcome, undoes) in before.items()
             if outcome == "written" and undoes == 0 and batch not in taken_back]
    if there and chance.random() < 0.5:
        words = ("undo", chance.choice(there))
    else:
        table = Table(folder, number)
        words = ("import", table.entries, "--lines", table.lines)
    usual = times.get(words[0])
    limit = TIMEOUT_SECONDS if usual is None else usual * chance.uniform(0.2, 1.2)
    killed, elapsed = run_and_kill(journal, words, limit)
    if elapsed is not None:
        times[words[0]] = elapsed
    after = journal.outcomes()
    check(journal, after)
    if not killed:
        return None, after
    new = {outcome for batch, (outcome, _) in after.items() if batch not in before}
    return f"{words[0]} {new.pop() if new else 'not begun'}", after


def run_whole(journal, *words):
    killed, _ = run_and_kill(journal, words, TIMEOUT_SECONDS)
    if killed:
        raise Broken(f"{words[0]} did not end")


def decide_again(journal, number, expected):
    """Takes the outcome from a batch, as if its program had ended before it was written down."""
    file = journal.folder / f"{number}.jsonl"
    *lines, outcome = file.read_text(encoding="utf-8").splitlines(keepends=True)
    if "outcome" not in json.loads(outcome):
        raise Broken(f"batch {number} has no outcome: {outcome}")
    file.write_text("".join(lines), encoding="utf-8")
    outcomes = journal.outcomes()
    check(journal, outcomes)
    if outcomes[number] != (expected, 0):
        raise Broken(f"batch {number}, which is {expected}, was decided to be {outcomes[number]}")


def decide_both_ways(journal, folder, number):
    table = Table(folder, number)
    before = journal.outcomes()
    run_whole(journal, "import", table.entries, "--lines", table.lines)
    batch, = journal.outcomes().keys() - before.keys()
    decide_again(journal, batch, "written")
    run_whole(journal, "undo", batch)
    decide_again(journal, batch, "not written")


def main():
    arguments = parse_arguments(__doc__, kills=200)
    program = str(Path(arguments.program).resolve())
    outcomes = Counter()
    number = 0
    with tempfile.TemporaryDirectory(prefix="kelvane-crash-") as name, \
            Account(arguments.tool, Path(name) / "account.kelvane") as account:
        folder = Path(name)
        account.create(program)
        for script in ("small.sql", "small_details.sql"):
            account.run_file(script)
        journal = Journal(program, account, folder / "journal")
        state, times = {}, {}
        try:
            while outcomes.total() < arguments.kills:
                number += 1
                outcome, state = one_run(journal, folder, arguments.chance, times, number,
                                         state)
                if outcome is not None:
                    outcomes[outcome] += 1
            decide_both_ways(journal, folder, number + 1)
        except Broken as error:
            print(f"run {number}: {error}")
            return 1
    print(f"{account.engine}: {outcomes.total()} kills in {number} runs: " + shown(outcomes))
    return 0


if __name__ == "__main__":
    sys.exit(main())
