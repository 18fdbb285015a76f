#!/usr/bin/env python3
"""Kills the program while it saves entries with detail lines, and looks at what is left.

A real process is driven through saves of new and of changed entries and killed at random moments.
After each kill the account is opened by another program: it has to be intact, to hold every save
that the transcript had acknowledged, and each entry with exactly its old lines or its new lines and
the amount that belongs to them. Then the next process goes on with the same account.
"""

import argparse
import os
import random
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time
from collections import Counter
from contextlib import closing
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "support"))

from account import Account
from materials import add_materials, item_code, price_of

ITEMS = 300
# Entries whose lines are changed; their many lines make a save long enough to be hit.
CHANGED = {101: 250, 102: 120, 103: 40}
SAVES_OF_A_PROCESS = 14
KILLS_OF_AN_ACCOUNT = 40
EARLY_KILLS = 0.1  # of all: before the list has opened
# Chance may leave one outcome of a hit save out; so many times the kills asked for, at most.
FURTHER_KILLS = 20
TIMEOUT_SECONDS = 60


class Broken(Exception):
    """The account is not what the transcript promised."""


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


class Save:
    """One save: the entry's digest, its lines afterwards, and the command that leaves its row."""

    def __init__(self, digest, lines):
        self.digest = digest
        self.lines = lines
        self.leave = None


class Plan:
    """What one process is told to do."""

    def __init__(self, chance, state, rows, row_count, first_new):
        self.commands = []
        self.saves = []
        state = dict(state)
        for turn in range(SAVES_OF_A_PROCESS):
            if chance.random() < 0.35:
                row_count += 1
                save = self.add_entry(chance, row_count, f"新{first_new + turn}")
            else:
                # A row is left by going to another one.
                last = self.saves[-1].digest if self.saves else None
                entry = chance.choice([entry for entry in CHANGED if f"改{entry}" != last])
                save = self.change_entry(chance, rows[entry], f"改{entry}", state)
            state[save.digest] = save.lines
            self.saves.append(save)
        self.start("go 1 1")
        self.say("print window")

    def start(self, command):
        """The first command of a save also leaves the row of the one before."""
        if self.saves:
            self.saves[-1].leave = len(self.commands)
        self.commands.append(command)

    def say(self, *commands):
        self.commands += commands

    def add_entry(self, chance, row, digest):
        self.start("click Add")
        self.say(f"go {row} 2", "edit D01", f"go {row} 3", "pick 1", "ref", f"go {row} 7",
                 "edit 材料费", f"go {row} 8", f"edit {digest}", f"go {row} 9", "ref")
        lines = {}
        for line, item in enumerate(chance.sample(range(ITEMS), 3), 1):
            lines[item] = chance.randint(1, 99)
            self.say("click Addnew", f"edit {item_code(item)}", f"go {line} 5",
                     f"edit {lines[item]}")
        self.say("click Save")
        return Save(digest, lines)

    def change_entry(self, chance, row, digest, state):
        lines = dict(state[digest])
        self.start(f"go {row} 9")
        self.say("ref")
        places = list(lines)
        for place in chance.sample(range(len(places)), 2):
            # Never what it was, so that the save before can be told from this one.
            lines[places[place]] = lines[places[place]] % 97 + 1
            self.say(f"go {place + 1} 5", f"edit {lines[places[place]]}")
        free = [item for item in range(ITEMS) if item not in lines]
        if free and chance.random() < 0.5:
            item = chance.choice(free)
            lines[item] = chance.randint(1, 99)
            self.say("click Addnew", f"edit {item_code(item)}", f"go {len(lines)} 5",
                     f"edit {lines[item]}")
        elif len(lines) > 20:
            place = chance.randrange(len(lines))
            del lines[list(lines)[place]]
            self.say(f"go {place + 1} 0", "answer yes", "click Delete")
        self.say("click Save")
        return Save(digest, lines)


class Driven:
    """A process that follows a plan; what it says is collected while it goes."""

    def __init__(self, program, account):
        self.process = subprocess.Popen([program, "drive", *account.words], encoding="utf-8",
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, env={**os.environ, **account.environment})

    def open_list(self):
        """Opens the list; returns the rows of the entries by identity, and how many there are."""
        try:
            self.process.stdin.write("init\nshow\nprint grid\nprint window\n")
            self.process.stdin.flush()
        except BrokenPipeError:
            return None
        rows = {}
        count = 0
        for line in self.process.stdout:
            if line.startswith("> print window"):
                for line in self.process.stdout:
                    if line.startswith("edit "):
                        return rows, count
            words = line.split(" ", 2)
            if len(words) == 3 and words[0].isdigit():
                count = int(words[0])
                rows[int(words[1])] = count
        return None

    def follow(self, commands):
        def write():
            try:
                self.process.stdin.write("\n".join(commands) + "\n")
                self.process.stdin.close()
            except (BrokenPipeError, ValueError):
                pass
        writer = threading.Thread(target=write)
        writer.start()
        lines = self.process.stdout.read().splitlines()
        self.process.wait()
        writer.join()
        return lines


def acknowledged(plan, lines):
    """How many saves the transcript acknowledges, and whether the next one was being made."""
    echoes = 0
    for line in lines:
        if line.startswith("> "):
            if echoes < len(plan.commands) and line[2:] != plan.commands[echoes]:
                raise Broken(f"the transcript lost its place: {line}")
            echoes += 1
        elif echoes <= len(plan.commands) and line.startswith(("refused", "error", "[提示信息|inf")):
            raise Broken(f"unexpected: {line} behind {plan.commands[echoes - 1]}")
    done = sum(save.leave + 1 < echoes for save in plan.saves)
    begun = done < len(plan.saves) and plan.saves[done].leave < echoes
    return done, begun


def check_file(path):
    with closing(sqlite3.connect(path)) as database:
        if database.execute("pragma integrity_check").fetchall() != [("ok",)]:
            raise Broken("the account is damaged")


def read_account(account):
    """The entries by digest, each with its lines, after a look at the whole account."""
    if account.engine == "sqlite":
        check_file(account.words[0])
    # Waits for what a server is still finishing for a client that is gone.
    account.run("update PM_SettingInf set cValue = cValue")
    account.run("update PM_ItemQC set mQC = mQC")
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


def run_and_kill(program, account, chance, run_time, number):
    """One process; returns what became of the save being made, or None if it was not killed."""
    before = read_account(account)
    driven = Driven(program, account)
    early = run_time is not None and chance.random() < EARLY_KILLS
    timer = None
    if early:
        timer = threading.Timer(chance.uniform(0, 0.1), driven.process.kill)
        timer.start()
    opened = driven.open_list()
    if opened is None:
        driven.process.wait()
        timer.cancel()
        if read_account(account) != before:
            raise Broken("opening the list changed the account")
        return "early", 0
    plan = Plan(chance, before, *opened, number * 1000)
    if timer is None:
        limit = TIMEOUT_SECONDS if run_time is None else chance.uniform(0, run_time)
        timer = threading.Timer(limit, driven.process.kill)
        timer.start()
    started = time.monotonic()
    lines = driven.follow(plan.commands)
    elapsed = time.monotonic() - started
    timer.cancel()
    done, begun = acknowledged(plan, lines)
    outcome = check(before, plan, done, begun, read_account(account))
    if driven.process.returncode == 0:
        if done != len(plan.saves):
            raise Broken(f"only {done} saves of an undisturbed run")
        return None, elapsed
    return outcome, elapsed


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True, help="the program kelvane")
    parser.add_argument("--tool", required=True, help="the program kelvane_account_tool")
    parser.add_argument("--kills", type=int, default=200)
    parser.add_argument("--seed", type=int, default=None)
    arguments = parser.parse_args()
    program = str(Path(arguments.program).resolve())
    seed = arguments.seed if arguments.seed is not None else random.randrange(1 << 32)
    print(f"seed {seed}")
    chance = random.Random(seed)
    outcomes = Counter()
    with tempfile.TemporaryDirectory(prefix="kelvane-crash-") as folder, \
            Account(arguments.tool, Path(folder) / "account.kelvane") as account:
        number = 0
        run_time = None
        try:
            filled_at = None
            while outcomes.total() < arguments.kills or (
                    min(outcomes["old"], outcomes["new"]) == 0
                    and outcomes.total() < arguments.kills * FURTHER_KILLS):
                if outcomes.total() % KILLS_OF_AN_ACCOUNT == 0 and outcomes.total() != filled_at:
                    filled_at = outcomes.total()
                    fill_account(program, account)
                number += 1
                outcome, elapsed = run_and_kill(program, account, chance, run_time, number)
                if outcome is not None:
                    outcomes[outcome] += 1
                elif run_time is None:
                    run_time = elapsed
                    print(f"an undisturbed run of {SAVES_OF_A_PROCESS} saves: {elapsed:.2f} s")
        except Broken as error:
            print(f"run {number}, seed {seed}: {error}")
            return 1
    print(f"{account.engine}: {outcomes.total()} kills in {number} runs: " +
          ", ".join(f"{name} {count}" for name, count in sorted(outcomes.items())))
    if min(outcomes["old"], outcomes["new"]) == 0:
        print("no kill left a save undone, or none left it done and unsaid: not all was tested")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
