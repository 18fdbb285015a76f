"""A test's account for scripts, on the engine that the tests are run for (see test_place.h)."""

import os
import re
import subprocess
from pathlib import Path

CHANGES_OF_TABLES = ("hide", "restore", "key")
PASSWORD = re.compile(r";?PWD=(\{(?:[^}]|\}\})*\}|[^;]*)", re.IGNORECASE)
SCENARIOS = Path(__file__).resolve().parent.parent / "scenario"


class AccountError(Exception):
    """The account's tool refused what it was told."""


class Account:
    """`tool`: the program kelvane_account_tool. The account is gone when this is closed, unless it
    is the file `file`."""

    def __init__(self, tool, file):
        self.process = subprocess.Popen([tool, str(file)], encoding="utf-8",
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.engine, *words = [line.partition(" ")[2] for line in self.answer()]
        self.words = []
        self.environment = {}  # what the program's environment has in addition
        # A password is nothing for a list of processes.
        for word in words:
            password = PASSWORD.search(word)
            if password:
                word = word.replace(password.group(0), "")
                value = password.group(1)
                if value.startswith("{"):
                    value = value[1:-1].replace("}}", "}")
                self.environment["KELVANE_DATABASE_PASSWORD"] = value
            self.words.append(word)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait()
        self.process.stdout.close()

    def answer(self):
        lines = []
        for line in self.process.stdout:
            line = line.rstrip("\n")
            if line == "done":
                return lines
            if line.startswith("error "):
                raise AccountError(line)
            lines.append(line)
        raise AccountError("the account's tool ended")

    def ask(self, question):
        self.process.stdin.write(question + "\n")
        self.process.stdin.flush()
        return self.answer()

    def run(self, statement):
        """A statement of the dialect, or a change of a table that the tool knows."""
        self.ask(statement if statement.split(" ")[0] in CHANGES_OF_TABLES else "run " + statement)

    def run_together(self, statements):
        self.ask("begin")
        for statement in statements:
            try:
                self.run(statement)
            except AccountError as error:
                raise AccountError(f"{statement}: {error}") from error
        self.ask("commit")

    def rows(self, query):
        """Each row as the texts of its fields, joined by "|"."""
        return [line.removeprefix("row ") for line in self.ask("rows " + query)]

    def fields(self, query):
        """Each row as the list of its fields' texts."""
        return [row.split("|") for row in self.rows(query)]

    def create(self, program):
        """The account as the program makes it, with one keyword field."""
        subprocess.run([program, "init", "--force", "--keywords", "1", *self.words], check=True,
                       capture_output=True, env={**os.environ, **self.environment})

    def run_file(self, name):
        self.run_together(file_statements(SCENARIOS / name))


def file_statements(path):
    """The statements of a file, which end with semicolons at the ends of lines."""
    text = "\n".join(line for line in path.read_text(encoding="utf-8").splitlines()
                     if not line.startswith("--"))
    return [" ".join(part.split("\n")) for part in re.split(r";\s*(?:\n|$)", text) if part.strip()]
