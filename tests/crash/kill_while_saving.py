#!/usr/bin/env python3
"""Kills the program while it saves entries with detail lines, and looks at what is left.

A real process is driven through saves of new and of changed entries and killed: in the middle of a
save's transaction, behind its commit before anybody was told, and at random moments. After each kill
the account is opened by another program: it has to be intact, to hold every save that the transcript
had acknowledged, and each entry with exactly its old lines or its new lines and the amount that
belongs to them. How long others had to wait for the killed one's locks is measured. Then the next
process goes on with the same account.
"""

import os
import sqlite3
import statistics
import sys
import tempfile
import time
from collections import Counter
from contextlib import closing
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "support"))

from account import Account
from killing import TIMEOUT_SECONDS, Broken, kill_at_size, parse_arguments, shown, wait_until
from materials import add_materials, item_code, price_of
from planned_saves import CHANGED, ITEMS, SAVES_OF_A_PROCESS, Driven, Plan, acknowledged
from postgres_server import PostgresServer

KILLS_OF_AN_ACCOUNT = 40
EARLY_KILLS = 0.1  # of all: before the list has opened
PAGE = 4096  # of an account file
PATIENT = ("--lock-timeout", "600")  # for who is killed while he waits


def fill_account(program, account):
    account.create(program)
    for name in ("small.sql", "small_details.sql"):
        account.run_file(name)
    add_materials(account, ITEMS)
    for entry, count in CHANGED.items():
        lines = {i: 1 for i in range(count)}
        account.run(f"insert into PM_ItemQC values ({entry}, '2004-06-01 00:00:00.000', 'D01',"
                    f" 'P01', '', '', 'E02', '改{entry}', {total(lines)}.0000)")
        account.run_together(
            f"insert into PM_ItemQCsub values ({entry}, '{item_code(i)}', {price_of(i)}.0000,"
            f" {quantity}.0, {price_of(i) * quantity}.0000)" for i, quantity in lines.items())
    account.run("update PM_SettingInf set cValue = '200' where cName = 'NumMax_EleQc'")


def total(lines):
    return sum(price_of(i) * quantity for i, quantity in lines.items())


def check_file(path):
    with closing(sqlite3.connect(path)) as database:
        if database.execute("pragma integrity_check").fetchall() != [("ok",)]:
            raise Broken("the account is damaged")


def wait_for_locks(account, since):
    """Writes what saves write; returns how long after `since` nobody was in the way any more."""
    account.run("update PM_SettingInf set cValue = cValue")
    account.run("update PM_ItemQC set mQC = mQC")
    return time.monotonic() - since


def read_account(account):
    """The entries by digest, each with its lines, after a look at the whole account."""
    if account.engine == "sqlite":
        check_file(account.words[0])
    if account.fields("select count(*) from PM_ItemQCsub where iEleVid not in"
                    " (select iEleVid from PM_ItemQC)") != [["0"]]:
        raise Broken("lines without an entry")
    lines_of = {}
    for entry, code, price, quantity, amount in account.fields(
            "select iEleVid, cCodeMx, iUprice, iNum, mQC from PM_ItemQCsub"):
        lines_of.setdefault(entry, []).append((code, float(price), float(quantity), float(amount)))
    entries = {}
    for entry, digest, amount in account.fields(
            "select iEleVid, cDigest, mQC from PM_ItemQC where cElementCode = 'E02'"
            " and cDigest <> '钢材'"):
        lines = {}
        for code, price, quantity, line_amount in lines_of.get(entry, []):
            item = int(code[1:])
            if item in lines:
                raise Broken(f"{digest} has the line {code} twice")
            lines[item] = int(quantity)
            if price != price_of(item) or line_amount != price_of(item) * quantity:
                raise Broken(f"{digest} has a wrong line {code}")
        if float(amount) != total(lines):
            raise Broken(f"{digest}: amount {amount}, lines {total(lines)}")
        if digest in entries:
            raise Broken(f"{digest} is there twice")
        entries[digest] = lines
    return entries


def check(before, plan, done, begun, found):
    """Compares what is there with what must be; returns what became of the save being made."""
    expected = dict(before)
    for save in plan.saves[:done]:
        expected[save.digest] = save.lines
    if found == expected:
        return "old" if begun else "none"
    if begun:
        save = plan.saves[done]
        expected[save.digest] = save.lines
        if found == expected:
            return "new"
    wrong = [digest for digest in expected.keys() | found.keys()
             if expected.get(digest) != found.get(digest)]
    raise Broken(f"after {done} saves, next begun: {begun}, wrong entries: {wrong}")


class Crashes:
    """One account after the other, and what came of the kills in them."""

    def __init__(self, program, account, chance):
        self.program = program
        self.account = account
        self.chance = chance
        self.outcomes = Counter()
        self.waits = []  # seconds until a killed one's locks were free
        self.undisturbed_wait = None  # the same where nobody was killed
        self.runs = 0
        self.run_time = None

    def prepare(self, *options, may_add=False):
        """A process with its list open and a plan, and what the account holds before."""
        self.runs += 1
        before = read_account(self.account)
        driven = Driven(self.program, self.account, *options)
        opened = driven.open_list()
        if opened is None:
            raise Broken("the list does not open")
        return before, driven, Plan(self.chance, before, *opened, self.runs * 1000, may_add)

    def judge(self, before, driven, plan, lines):
        """What became of the save that was being made when the process was killed."""
        done, begun = acknowledged(plan, lines)
        if driven.killed_at is not None:
            self.waits.append(wait_for_locks(self.account, driven.killed_at))
        return check(before, plan, done, begun, read_account(self.account))

    def count(self, outcome, wanted):
        if outcome != wanted:
            raise Broken(f"a save that must be {wanted} is {outcome}")
        self.outcomes[outcome] += 1

    def kill_unsaid(self):
        """Behind the commit, before the transcript can say so."""
        before, driven, plan = self.prepare()
        save = plan.saves[0]
        driven.begin(plan.commands[:save.leave + 1])
        wait_until(lambda: self.lines_of(save.digest) == save.lines, "the save")
        driven.kill()
        self.count(self.judge(before, driven, plan, driven.rest()), "new")

    def lines_of(self, digest):
        return {int(code[1:]): int(float(quantity)) for code, quantity in self.account.fields(
            "select s.cCodeMx, s.iNum from PM_ItemQC q, PM_ItemQCsub s where s.iEleVid = q.iEleVid"
            f" and q.cDigest = '{digest}'")}

    def kill_while_writing(self):
        """At one page of what the save writes after the other, until none is left."""
        pages = 0
        while True:
            before, driven, plan = self.prepare()
            written = os.path.getsize(self.account.words[0] + "-wal")
            kill_at_size(driven.process, written + pages * PAGE + 1)
            save = plan.saves[0]
            # The one behind it says that the save was done.
            lines = driven.follow(plan.commands[:save.leave + 2])
            outcome = self.judge(before, driven, plan, lines)
            if outcome != "old":  # the save was done, if there was one
                break
            self.outcomes[outcome] += 1
            pages += 1
        if pages == 0:
            raise Broken("no kill hit the writing")

    def kill_while_waiting(self):
        """In the middle of the transaction: another one holds an entry's lines."""
        server = PostgresServer()
        before, driven, plan = self.prepare(*PATIENT)
        save = plan.saves[0]
        self.account.ask("begin")
        self.account.run("delete from PM_ItemQCsub")
        driven.begin(plan.commands[:save.leave + 1])
        wait_until(lambda: server.waiting() > 0, "waiting for a lock")
        driven.kill()
        lines = driven.rest()
        self.account.ask("rollback")
        self.count(self.judge(before, driven, plan, lines), "old")

    def kill_at_random(self):
        if self.run_time is not None and self.chance.random() < EARLY_KILLS:
            return self.kill_early()
        before, driven, plan = self.prepare(may_add=True)
        started = time.monotonic()
        timer = driven.kill_after(TIMEOUT_SECONDS if self.run_time is None
                                  else self.chance.uniform(0, self.run_time))
        lines = driven.follow(plan.commands)
        timer.cancel()
        elapsed = time.monotonic() - started
        outcome = self.judge(before, driven, plan, lines)
        if driven.process.returncode != 0:
            self.outcomes[outcome] += 1
            return
        if f"> {plan.commands[-1]}" not in lines:
            raise Broken("an undisturbed run did not end")
        if self.run_time is None:
            self.run_time = elapsed
            print(f"an undisturbed run of {SAVES_OF_A_PROCESS} saves: {elapsed:.2f} s")

    def kill_early(self):
        self.runs += 1
        before = read_account(self.account)
        driven = Driven(self.program, self.account)
        timer = driven.kill_after(self.chance.uniform(0, 0.1))
        driven.open_list()
        timer.join()
        driven.rest()
        if read_account(self.account) != before:
            raise Broken("opening the list changed the account")
        self.outcomes["early"] += 1

    def run(self, kills):
        fill_account(self.program, self.account)
        self.undisturbed_wait = statistics.median(
            wait_for_locks(self.account, time.monotonic()) for _ in range(9))
        self.kill_unsaid()
        if self.account.engine == "sqlite":
            self.kill_while_writing()
        else:
            self.kill_while_waiting()
        filled_at = self.outcomes.total()
        kills += filled_at
        while self.outcomes.total() < kills:
            if self.outcomes.total() >= filled_at + KILLS_OF_AN_ACCOUNT:
                filled_at = self.outcomes.total()
                fill_account(self.program, self.account)
            self.kill_at_random()


def main():
    arguments = parse_arguments(__doc__, kills=200)
    program = str(Path(arguments.program).resolve())
    with tempfile.TemporaryDirectory(prefix="kelvane-crash-") as folder, \
            Account(arguments.tool, Path(folder) / "account.kelvane") as account:
        crashes = Crashes(program, account, arguments.chance)
        try:
            crashes.run(arguments.kills)
        except Broken as error:
            print(f"run {crashes.runs}: {error}")
            return 1
    print(f"{account.engine}: {crashes.outcomes.total()} kills in {crashes.runs} runs: "
          + shown(crashes.outcomes))
    print(f"{len(crashes.waits)} killed ones' locks were free after"
          f" {statistics.median(crashes.waits):.3f} s (median),"
          f" {max(crashes.waits):.3f} s (the longest); writing the same where nobody was killed"
          f" takes {crashes.undisturbed_wait:.3f} s")
    return 0


if __name__ == "__main__":
    sys.exit(main())
