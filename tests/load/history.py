"""What operators were told of their saves, set against what readers of the account saw meanwhile.

Every entry is a register: whoever writes to it says when he began and when he was told that it is
saved. A reader may see what was being written while he read, or what was there before, and nothing
that was replaced before he began.
"""

import json
import os
import subprocess
import threading
import time
import traceback
from decimal import Decimal

LONG_AGO = float("-inf")


class Register:
    """One entry. `value`: what a reader sees before anybody has written, None if no entry."""

    def __init__(self, value=None):
        self.writes = [(value, LONG_AGO, LONG_AGO)]

    def note(self, value, began, told):
        self.writes.append((value, began, told))

    def visible(self, began, ended):
        """The values that a reading from `began` to `ended` may find."""
        settled = max(start for _, start, told in self.writes if told < began)
        return {value for value, start, told in self.writes if start < ended and told >= settled}


class History:
    """The registers of a run. `shared`: the entry that everybody changes, by what it is at first."""

    def __init__(self, shared):
        self.shared = Register(shared)
        self.own = {}  # by each digest that its entry was ever to have
        self.progress = Progress()

    def wrong_in(self, reading):
        """What a reader saw that cannot be, in words."""
        seen = {}
        wrong = []
        for digest, amount in reading.entries:
            register = self.own.get(digest)
            if register is None:
                wrong.append(f"{digest} was seen, and nobody wrote it")
            elif register in seen:
                wrong.append(f"{digest} was seen beside {seen[register]}, which is the same entry")
            else:
                seen[register] = (digest, amount)
        for register in set(self.own.values()):
            found = seen.get(register)
            allowed = register.visible(reading.began, reading.ended)
            if found not in allowed:
                wrong.append(f"{found} was seen where there was one of {allowed}")
        if reading.shared not in self.shared.visible(reading.began, reading.ended):
            wrong.append(f"the shared entry was seen as {reading.shared}, which it was not")
        return wrong + reading.findings


class Progress:
    """How many operations are done, for who waits for the next so many of them."""

    def __init__(self):
        self.done = 0
        self.ended = False
        self.changed = threading.Condition()

    def step(self):
        with self.changed:
            self.done += 1
            self.changed.notify_all()

    def abort(self):
        with self.changed:
            self.ended = True
            self.changed.notify_all()

    def wait_for(self, done):
        """Whether so many are done; not when the work ended early."""
        with self.changed:
            self.changed.wait_for(lambda: self.done >= done or self.ended)
            return not self.ended


class Reading:
    """The account as it was at one moment between `began` and `ended`.

    `shared`: the identity of the shared entry; operators' own ones lie above `first_identity`.
    """

    def __init__(self, account, shared, first_identity):
        self.began = time.monotonic()
        rows = account.fields("select iEleVid, cDigest, mQC from PM_ItemQC"
                              f" where iEleVid = {shared} or iEleVid > {first_identity}")
        self.ended = time.monotonic()
        self.shared = next(digest for identity, digest, _ in rows if int(identity) == shared)
        self.entries = [(digest, Decimal(amount)) for identity, digest, amount in rows
                        if int(identity) != shared]
        self.findings = []


class Reader:
    """Reads the account, and has it checked, so many times while the operators work."""

    def __init__(self, program, account, history, readings, operations, read):
        self.program = program
        self.account = account
        self.history = history
        self.moments = [(number + 1) * operations // (readings + 2) for number in range(readings)]
        self.read = read
        self.readings = []
        self.failure = None

    def run(self):
        try:
            for moment in self.moments:
                if not self.history.progress.wait_for(moment):
                    return
                self.readings.append(self.read())
                self.readings[-1].findings += self.check()
        except Exception:  # told by the main thread
            self.failure = traceback.format_exc()

    def check(self):
        """What the program's own check of the account finds wrong."""
        checked = subprocess.run([self.program, "check", "--json", *self.account.words],
                                 encoding="utf-8", capture_output=True, check=False,
                                 env={**os.environ, **self.account.environment})
        if checked.returncode not in (0, 3):
            return [f"the check failed: {checked.stderr}"]
        return [f"{finding['rule']} at {finding['row']}: {finding['text']}"
                for finding in json.loads(checked.stdout)["findings"]
                if finding["severity"] == "error"]
