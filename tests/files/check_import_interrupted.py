#!/usr/bin/env python3
"""Imports that are killed, and those that meet each other: what is in the account and in its journal.

  check_import_interrupted.py PROGRAM
"""

import random
import subprocess
import sys
import time
import unittest
from pathlib import Path

from account_files import SAMPLE_ENTRIES, TIMEOUT_SECONDS, counter, entry, new_entries, query
from import_test import FIRST, Imports

MANY = 3000
KILLS = 12


class Interrupted(Imports):
    def test_the_journal(self):
        account = self.accounts.new()
        folder = self.folder / "journal"
        path = self.book([entry()])
        self.assertEqual(self.run_import(account, path, "--journal", folder).returncode, 0)
        self.assertEqual([each.name for each in folder.iterdir()], ["1.jsonl"])
        self.assertFalse(Path(f"{account}.batches").exists())
        self.assertEqual(self.run_import(account, path, "--journal", folder).returncode, 3)
        account = self.accounts.new()
        Path(f"{account}.batches").write_text("a file")
        self.assertEqual(self.run_import(account, path).returncode, 1)
        self.assertEqual(new_entries(account)[0], [])

    def test_two_at_once(self):
        """Each of them wholly or, when it gives up, not at all."""
        account = self.accounts.new()
        running = []
        for digest in ("甲", "乙"):
            path = self.csv([entry(摘要=digest) for _ in range(300)])
            running.append((digest, subprocess.Popen(
                [self.accounts.program, "import", account, path], env=self.accounts.environment,
                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)))
        for _, process in running:
            self.assertIn(process.wait(TIMEOUT_SECONDS), (0, 1))
        written = 0
        for digest, process in running:
            count = query(account, "select count(*) from PM_ItemQC where cDigest = ?", digest)[0][0]
            self.assertEqual(count, 0 if process.returncode else 300)
            written += count
        self.assertGreaterEqual(written, 300)
        identities = [row[0] for row in new_entries(account)[0]]
        self.assertEqual(identities, list(range(FIRST, FIRST + written)))
        self.assertEqual(counter(account), SAMPLE_ENTRIES + written)

    def test_killed(self):
        """All of the file's entries are there or none, and the next import knows which."""
        path = self.csv([entry(摘要=f"第{number}行") for number in range(MANY)])
        started = time.monotonic()
        account = self.accounts.new()
        self.assertEqual(self.run_import(account, path).returncode, 0)
        self.assertEqual(len(new_entries(account)[0]), MANY)
        whole = time.monotonic() - started
        chance = random.Random(13)
        for _ in range(KILLS):
            account = self.accounts.new()
            process = subprocess.Popen([self.accounts.program, "import", account, path],
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                       env=self.accounts.environment)
            try:
                process.wait(chance.uniform(0, whole * 1.1))
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
            count = len(new_entries(account)[0])
            self.assertIn(count, (0, MANY))
            self.assertEqual(counter(account), SAMPLE_ENTRIES + count)
            self.assertEqual(query(account, "pragma integrity_check"), [("ok",)])
            again = self.run_import(account, path)
            self.assertEqual(again.returncode, 3 if count else 0, again.stdout + again.stderr)
            self.assertEqual(len(new_entries(account)[0]), MANY)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
