#!/usr/bin/env python3
"""Many operators work in one account at once; afterwards the account holds what they were told.

Each operator is a process of the program that adds, changes and deletes entries of its own, keeps
detail lines, and now and then changes an entry that all of them share. What a row's leaving said is
what counts: an entry said to be saved must be there as it was saved, a deleted one must be gone, no
identity may be twice, and an amount kept in lines must be their sum. Somebody reads the account
meanwhile: he may see nothing that nobody wrote, and nothing that was replaced before.
"""

import argparse
import random
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
from history import History, Reader, Reading, Register
from materials import add_materials, item_code, price_of
from server_killer import Killer

MATERIALS = 40
FIRST_IDENTITY = 200  # of the operators' own entries lie above
NEW_ENTRIES = 30_000  # of all operators: the identities end soon after
SHARED = 1  # the entry that everybody changes
HOME_ROW = 2  # an entry that nobody changes
PAUSE_SECONDS = 0.05  # before trying again
PATIENCE_SECONDS = 240  # of all tries together
OPERATIONS = {"add": 40, "add with lines": 15, "change": 18, "change lines": 7, "delete": 12,
              "change shared": 8}


class Entry:
    def __init__(self, register, digest, amount, lines):
        self.register = register
        self.digest = digest
        self.amount = amount
        self.lines = lines


class Operator:
    def __init__(self, number, program, account, operations, new_entries, seed, killer, history):
        self.new_entries = min(new_entries, operations)
        self.killer = killer
        self.history = history
        self.number = number
        self.program = program
        self.account = account
        self.operations = operations
        self.chance = random.Random(seed * 1000 + number)
        self.counts = Counter()  # operations that were acknowledged
        self.troubles = Counter()  # what stood in the way, by what the operator was told
        self.rows = []  # the list from top to bottom: an Entry of its own, or None
        self.failure = None
        self.slowest = 0.0

    def run(self):
        try:
            self.conversation = Conversation(self.program, self.account)
            self.rows = [None] * len(self.conversation.open_list())
            # Leaving a row saves it as this operator knows it. Nobody leaves the shared entry who
            # has not just changed it.
            self.go(HOME_ROW, 2)
            self.killer.let_start()
            self.shared_row = 1
            for turn in range(self.operations):
                began = time.monotonic()
                self.work(turn)
                self.slowest = max(self.slowest, time.monotonic() - began)
                self.history.progress.step()
            self.conversation.close()
        except Exception:  # told by the main thread
            self.killer.abort()
            self.history.progress.abort()
            self.failure = traceback.format_exc()

    def may_add(self, turn):
        """Spread over the run, so that there are new entries up to its end."""
        added = self.counts["add"] + self.counts["add with lines"]
        return added <= self.new_entries * turn / self.operations

    def work(self, turn):
        name = f"{self.number}-{turn}"
        kind = self.chance.choices(list(OPERATIONS), list(OPERATIONS.values()))[0]
        may_add = self.may_add(turn)
        if kind in ("add", "add with lines", "delete") and not may_add:
            kind = "change" if kind == "add" else "change lines"
        own = [row for row, entry in enumerate(self.rows, 1) if entry is not None]
        plain = [row for row in own if not self.rows[row - 1].lines]
        detailed = [row for row in own if self.rows[row - 1].lines]
        if kind == "change" and plain:
            self.change(self.chance.choice(plain), name)
        elif kind == "change lines" and detailed:
            self.change_lines(self.chance.choice(detailed))
        elif kind == "delete" and own:
            self.delete(self.chance.choice(own))
        elif kind != "change shared" and may_add:
            self.add(name, kind == "add with lines")
        else:
            self.change_shared(name)

    def leave(self, kind, register, value):
        """Leaves the row by going to another one; tells whether it was saved."""
        return self.attempt(kind, register, value, f"go {HOME_ROW} 2")

    def attempt(self, kind, register, value, *commands):
        """What is done writes `value` to `register`."""
        self.killer.let_save()
        began = time.monotonic()
        for answer in self.tries(commands):
            if answer.succeeded and not answer.boxes:
                register.note(value, began, time.monotonic())
                self.counts[kind] += 1
                self.killer.let_type()
                return True
        return False

    def tries(self, commands):
        """What came of the commands, again and again until nobody asks for more."""
        end = time.monotonic() + PATIENCE_SECONDS
        while True:
            answer = self.conversation.say(*commands)
            yield answer
            self.troubles[answer.notice or "; ".join(answer.boxes)] += 1
            if time.monotonic() > end:
                return
            time.sleep(PAUSE_SECONDS)

    def until(self, is_done, *commands):
        """Does it again as long as another operator's lock or a lost connection is in the way."""
        for answer in self.tries(commands):
            if is_done(answer):
                return
        raise RuntimeError(f"{commands}: {answer.lines} {answer.notice} {answer.cell}")

    def go(self, row, col):
        self.until(lambda answer: answer.cell == f"{row} {col} to {col}", f"go {row} {col}")

    def edit(self, row, col, text):
        self.go(row, col)
        self.until(lambda answer: not answer.refused and not answer.boxes, f"edit {text}")

    def choose_item(self, row):
        """The first one of the row's centre."""
        self.go(row, 3)
        self.until(lambda answer: not answer.refused and not answer.boxes
                   and any(line.startswith("list:") for line in answer.lines), "pick 1", "ref")

    def new_row(self, button, row):
        self.until(lambda answer: answer.cell.startswith(f"{row} "), "click " + button)

    def open_lines(self, row):
        self.go(row, 9)
        self.until(lambda answer: answer.window == "frmQCEdit", "ref")

    def save_lines(self):
        self.until(lambda answer: answer.window == "frmPeriodItem", "click Save")

    def add(self, name, with_lines):
        row = len(self.rows) + 1
        lines = {}
        amount = Decimal(self.chance.randint(1, 10**8)) / 10000
        self.new_row("Add", row)
        self.edit(row, 2, "D01")
        self.choose_item(row)
        self.edit(row, 7, "材料费" if with_lines else "人工费")
        self.edit(row, 8, name)
        if with_lines:
            self.open_lines(row)
            for line, item in enumerate(self.chance.sample(range(MATERIALS), 3), 1):
                lines[item] = self.chance.randint(1, 99)
                self.new_row("Addnew", line)
                self.edit(line, 0, item_code(item))
                self.edit(line, 5, lines[item])
            self.save_lines()
            amount = sum_of(lines)
        else:
            # Two decimals: what the cell takes.
            amount = amount.quantize(Decimal("0.01"))
            self.edit(row, 9, amount)
        register = self.history.own[name] = Register()
        if not self.leave("add with lines" if with_lines else "add", register, (name, amount)):
            raise RuntimeError(f"{name} could not be saved: {dict(self.troubles)}")
        self.rows.append(Entry(register, name, amount, lines))

    def change(self, row, name):
        entry = self.rows[row - 1]
        amount = Decimal(self.chance.randint(1, 10**6)) / 100
        self.edit(row, 8, name)
        self.edit(row, 9, amount)
        self.history.own[name] = entry.register
        if not self.leave("change", entry.register, (name, amount)):
            raise RuntimeError(f"{entry.digest} could not be changed: {dict(self.troubles)}")
        self.rows[row - 1] = Entry(entry.register, name, amount, {})

    def change_lines(self, row):
        entry = self.rows[row - 1]
        self.open_lines(row)
        for place, item in enumerate(list(entry.lines), 1):
            entry.lines[item] = entry.lines[item] % 97 + 1
            self.edit(place, 5, entry.lines[item])
        self.save_lines()
        entry.amount = sum_of(entry.lines)
        if not self.leave("change lines", entry.register, (entry.digest, entry.amount)):
            raise RuntimeError(f"{entry.digest}'s lines could not be saved: {dict(self.troubles)}")

    def delete(self, row):
        self.go(row, 2)
        entry = self.rows[row - 1]
        if not self.attempt("delete", entry.register, None, "answer yes", "click Delete"):
            raise RuntimeError(f"{entry.digest} could not be deleted: {dict(self.troubles)}")
        del self.rows[row - 1]

    def change_shared(self, name):
        digest = "共" + name
        self.edit(self.shared_row, 8, digest)
        if not self.leave("change shared", self.history.shared, digest):
            raise RuntimeError(f"the shared entry could not be changed: {dict(self.troubles)}")


def sum_of(lines):
    return sum((Decimal(price_of(item) * quantity) for item, quantity in lines.items()),
               Decimal(0))


def prepare(program, account):
    """Two centres, items, materials and a few entries."""
    account.create(program)
    for name in ("small.sql", "small_details.sql"):
        account.run_file(name)
    add_materials(account, MATERIALS)
    account.run(f"update PM_SettingInf set cValue = '{FIRST_IDENTITY}'"
                " where cName = 'NumMax_EleQc'")


def wrong_in(account, operators):
    """What in the account is not as the operators were told, in words."""
    wrong = []
    entries = [(int(identity), digest, Decimal(amount)) for identity, digest, amount in
               account.fields("select iEleVid, cDigest, mQC from PM_ItemQC")]
    lines = {}
    for entry, code, price, quantity, amount in account.fields(
            "select iEleVid, cCodeMx, iUprice, iNum, mQC from PM_ItemQCsub"):
        lines.setdefault(int(entry), []).append(
            (code, Decimal(price), Decimal(quantity), Decimal(amount)))
    identities = Counter(entry[0] for entry in entries)
    wrong += [f"identity {identity} {count} times"
              for identity, count in identities.items() if count != 1]
    wrong += [f"lines of {identity}, which is not there"
              for identity in lines if identity not in identities]
    largest = int(account.fields(
        "select cValue from PM_SettingInf where cName = 'NumMax_EleQc'")[0][0])
    if entries and max(identities) > largest:
        wrong.append(f"identity {max(identities)} beyond the counter's {largest}")
    found = {digest: (identity, amount) for identity, digest, amount in entries
             if identity > FIRST_IDENTITY}
    expected = {entry.digest: entry for operator in operators for entry in operator.rows
                if entry is not None}
    wrong += [f"{digest} is missing" for digest in expected.keys() - found.keys()]
    wrong += [f"{digest} is there, and nobody was told so" for digest in found.keys() - expected.keys()]
    for digest in expected.keys() & found.keys():
        identity, amount = found[digest]
        if amount != expected[digest].amount:
            wrong.append(f"{digest}: amount {amount} instead of {expected[digest].amount}")
        wanted = sorted((item_code(item), Decimal(price_of(item)), Decimal(quantity),
                         Decimal(price_of(item) * quantity))
                        for item, quantity in expected[digest].lines.items())
        if sorted(lines.get(identity, [])) != wanted:
            wrong.append(f"{digest}: lines {sorted(lines.get(identity, []))} instead of {wanted}")
    return wrong


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True, help="the program kelvane")
    parser.add_argument("--tool", required=True, help="the program kelvane_account_tool")
    parser.add_argument("--operators", type=int, default=16)
    parser.add_argument("--operations", type=int, default=500, help="of each operator")
    parser.add_argument("--server-kills", type=int, default=0, help="each operator makes so many "
                        "operations, and during each the server that scripts/with-postgres started "
                        "is killed")
    parser.add_argument("--readings", type=int, default=5, help="of the account while they work;"
                        " none when the server is killed")
    parser.add_argument("--seed", type=int, default=None)
    arguments = parser.parse_args()
    seed = arguments.seed if arguments.seed is not None else random.randrange(1 << 32)
    print(f"seed {seed}")
    operations = arguments.server_kills or arguments.operations
    readings = 0 if arguments.server_kills else arguments.readings
    with tempfile.TemporaryDirectory(prefix="kelvane-load-") as folder, \
            Account(arguments.tool, Path(folder) / "account.kelvane") as account:
        prepare(arguments.program, account)
        killer = Killer(arguments.server_kills, arguments.operators, seed)

        def read():
            return Reading(account, SHARED, FIRST_IDENTITY)

        history = History(read().shared)
        operators = [Operator(number, arguments.program, account, operations,
                              NEW_ENTRIES // arguments.operators, seed, killer, history)
                     for number in range(1, arguments.operators + 1)]
        reader = Reader(arguments.program, account, history, readings,
                        operations * arguments.operators, read)
        workers = [*operators, killer, reader]
        threads = [threading.Thread(target=worker.run) for worker in workers]
        began = time.monotonic()
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        elapsed = time.monotonic() - began
        failures = [worker.failure for worker in workers if worker.failure]
        for failure in failures:
            print(failure)
        wrong = []
        if not failures:
            wrong = wrong_in(account, operators)
            for reading in [*reader.readings, read()]:
                wrong += history.wrong_in(reading)
        if killer.server:
            killer.server.stop()
    counts = sum((operator.counts for operator in operators), Counter())
    troubles = sum((operator.troubles for operator in operators), Counter())
    print(f"{account.engine}: {arguments.operators} operators, {counts.total()} operations in"
          f" {elapsed:.1f} s ({counts.total() / elapsed:.0f} a second), the slowest"
          f" {max(operator.slowest for operator in operators):.2f} s")
    if arguments.server_kills:
        print(f"the server was killed {killer.done} times")
    print(", ".join(f"{kind} {count}" for kind, count in sorted(counts.items())))
    for told, count in troubles.most_common():
        print(f"told {count} times: {told}")
    if not troubles:
        print("nobody was told of any trouble")
    for line in wrong[:20]:
        print(line)
    if reader.readings:
        print(f"the account was read {len(reader.readings)} times meanwhile")
    if not failures and not wrong:
        print("the account holds what the operators were told")
    return 1 if failures or wrong else 0


if __name__ == "__main__":
    sys.exit(main())
