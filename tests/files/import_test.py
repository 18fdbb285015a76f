"""What the tests of `kelvane import` have in common: tables are made, imported and tried without being
written, and the account is looked at afterwards. The program is the test's first argument.
"""

from pathlib import Path

import openpyxl

from account_files import (SAMPLE_ENTRIES, AccountsCase, counter, dump, new_entries, table_of, text,
                           workbook)


def count_line(rows, new=None, refused=0):
    new = rows - refused if new is None else new
    return f"rows {rows}: new {new}, changed 0, deleted 0, unchanged 0, refused {refused}"


def stored(identity, date="2004-06-01", center="T01", item="X01", key="一标段", element="E01",
           digest="六月人工", amount="1234.5000"):
    """A row of PM_ItemQC as entry() becomes one."""
    return (identity, f"{date} 00:00:00.000", center, item, key, "", element, digest, amount)


FIRST = SAMPLE_ENTRIES + 1


class Imports(AccountsCase):
    def book(self, rows, lines=None, totals=None):
        return workbook(self.path("xlsx"), rows, lines, totals)

    def changed_book(self, rows, lines, change):
        """`change` is called with the workbook before it is saved."""
        path = self.book(rows, lines)
        book = openpyxl.load_workbook(path)
        change(book)
        book.save(path)
        return path

    def csv(self, rows, **how):
        return text(self.path("csv"), table_of(rows), **how)

    def run_import(self, account, *arguments):
        return self.accounts.run("import", account, *arguments)

    def assert_nothing_written(self, account, before):
        self.assertEqual(dump(account), before)
        self.assertFalse(Path(f"{account}.batches").exists())

    def assert_written(self, account, *arguments, rows, said=None):
        """The import writes `rows`; a dry run before it says the same and writes nothing."""
        before = dump(account)
        tried = self.run_import(account, *arguments, "--dry-run")
        self.assert_nothing_written(account, before)
        done = self.run_import(account, *arguments)
        self.assertEqual((done.returncode, done.stdout), (0, (said or count_line(len(rows))) + "\n"),
                         done.stderr)
        self.assertEqual((tried.returncode, tried.stdout), (0, done.stdout))
        self.assertEqual(new_entries(account)[0], rows)
        self.assertEqual(counter(account), SAMPLE_ENTRIES + len(rows))
        self.assertTrue(list(Path(f"{account}.batches").iterdir()))
        return done

    def assert_refused(self, account, *arguments, findings, count):
        """Neither the import nor its dry run writes anything; both tell `findings`."""
        before = dump(account)
        for options in ([], ["--dry-run"]):
            done = self.run_import(account, *arguments, *options)
            self.assertEqual(done.stdout.splitlines(), [*findings, count], done.stderr)
            self.assertEqual(done.returncode, 3)
        self.assert_nothing_written(account, before)
        return done

    def assert_not_done(self, account, *arguments, reason, status=1):
        before = dump(account)
        done = self.run_import(account, *arguments)
        self.assertEqual((done.returncode, done.stdout), (status, ""), done.stderr)
        self.assertIn(reason, done.stderr)
        if status == 1:
            self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
        self.assert_nothing_written(account, before)
