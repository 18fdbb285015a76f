#!/usr/bin/env python3
"""Kills the program while it writes a list to a file, and looks at what is left.

The file has to be the old one, to the byte, or a whole new one, whenever the kill comes: at some
places of each file, and at random moments. What a killed program left beside the file is gone when
the next one has written to the same folder.
"""

import csv
import os
import subprocess
import sys
import tempfile
import threading
import time
import xml.etree.ElementTree
import zipfile
from collections import Counter
from pathlib import Path

from killing import TIMEOUT_SECONDS, Broken, kill_at_size, parse_arguments, shown

OLD = b"what was there before\n"
EXTENSIONS = ("xlsx", "csv", "pdf", "xml")
PLACES = 3  # of each file where the writing of it is killed
SMALLEST_PLACE = 65536  # the account's own files beside it do not grow beyond that


def csv_rows(path):
    with open(path, encoding="utf-8-sig", newline="") as file:
        return sum(1 for _ in csv.reader(file, strict=True)) - 1


def xml_rows(path):
    return sum(1 for _ in xml.etree.ElementTree.parse(path).getroot().iter("行"))


def xlsx_rows(path):
    with zipfile.ZipFile(path) as book:
        if book.testzip() is not None:
            raise Broken(f"{path.name} is damaged")
        sheet = xml.etree.ElementTree.fromstring(book.read("xl/worksheets/sheet1.xml"))
    return sum(1 for each in sheet.iter() if each.tag.endswith("}row")) - 1


def pdf_pages(path):
    info = subprocess.run(["pdfinfo", path], capture_output=True, encoding="utf-8", check=False)
    if info.returncode != 0 or info.stderr:
        raise Broken(f"{path.name}: {info.stderr}")
    return int(next(line for line in info.stdout.splitlines() if line.startswith("Pages:"))[6:])


SIZES = {"csv": csv_rows, "xml": xml_rows, "xlsx": xlsx_rows, "pdf": pdf_pages}


class Folder:
    """An account, and a file of each kind that its list is written to."""

    def __init__(self, program, path, entries):
        self.program = program
        self.environment = dict(os.environ, HOME=str(path), XDG_DATA_HOME=str(path),
                                XDG_CONFIG_HOME=str(path))
        self.account = path / "account.kelvane"
        self.files = path / "files"
        self.files.mkdir()
        self.run("init", self.account, "--sample", "--entries", entries)

    def command(self, *arguments):
        return [self.program, *map(str, arguments)]

    def run(self, *arguments):
        subprocess.run(self.command(*arguments), check=True, capture_output=True,
                       env=self.environment, timeout=TIMEOUT_SECONDS)

    def target(self, extension):
        return self.files / f"list.{extension}"

    def drafts(self):
        wanted = {self.target(extension).name for extension in EXTENSIONS}
        return [path for path in self.files.iterdir() if path.name not in wanted]

    def begin(self, extension):
        return subprocess.Popen(self.command("export", self.account, "--to", self.target(extension)),
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                env=self.environment)

    def export_until(self, extension, size):
        """Writes the list until a file is so large."""
        process = self.begin(extension)
        kill_at_size(process, size)
        if process.wait(TIMEOUT_SECONDS) == 0:
            raise Broken(f"{extension} is whole within {size} bytes")

    def export(self, extension, kill_after=None):
        """Writes the list; with `kill_after`, until so many seconds after the file was begun.
        Returns how long it took from there."""
        known = set(self.drafts())
        process = self.begin(extension)
        guard = threading.Timer(TIMEOUT_SECONDS, process.kill)
        guard.start()
        while process.poll() is None and not set(self.drafts()) - known:
            time.sleep(0.001)
        begun = time.monotonic()
        if kill_after is not None:
            time.sleep(kill_after)
            process.kill()
        process.wait()
        guard.cancel()
        if kill_after is None and process.returncode != 0:
            raise Broken(f"{extension}: exit status {process.returncode} of an undisturbed run")
        return time.monotonic() - begun


class Crashes:
    """What is left of the files when their writing is killed."""

    def __init__(self, folder):
        self.folder = folder
        self.outcomes = Counter()
        self.run_times, self.sizes = {}, {}
        for extension in EXTENSIONS:
            self.run_times[extension] = folder.export(extension)
            self.sizes[extension] = SIZES[extension](folder.target(extension))
            print(f"{extension}: {self.sizes[extension]} in {self.run_times[extension]:.2f} s")

    def look(self, extension):
        """Returns what became of the file."""
        target = self.folder.target(extension)
        drafts = self.folder.drafts()
        if len(drafts) > 1:
            raise Broken(f"drafts of earlier runs: {drafts}")
        self.outcomes["with a draft"] += len(drafts)
        outcome = "old"
        if target.read_bytes() != OLD:
            outcome = "new"
            if SIZES[extension](target) != self.sizes[extension]:
                raise Broken(f"{target.name} is not whole")
        self.outcomes[outcome] += 1
        return outcome

    def kill_at_places(self, extension):
        target = self.folder.target(extension)
        size = target.stat().st_size
        if size // (PLACES + 1) < SMALLEST_PLACE:
            raise Broken(f"{target.name} is too small for this, with {size} bytes: --entries")
        for place in range(1, PLACES + 1):
            target.write_bytes(OLD)
            self.folder.export_until(extension, size * place // (PLACES + 1))
            if self.look(extension) != "old":
                raise Broken(f"{target.name} was replaced by less than a whole one")
            if not self.folder.drafts():
                raise Broken(f"{target.name} was not being written")

    def kill_at_random(self, extension, chance):
        self.folder.target(extension).write_bytes(OLD)
        self.folder.export(extension, chance.uniform(0, 1.1 * self.run_times[extension]))
        self.look(extension)

    def tidy(self):
        self.folder.export("csv")
        if self.folder.drafts():
            raise Broken(f"left behind: {self.folder.drafts()}")


def main():
    arguments = parse_arguments(__doc__, kills=20, more=[("--entries", 20000)], with_account=False)
    with tempfile.TemporaryDirectory(prefix="kelvane-crash-") as path:
        folder = Folder(str(Path(arguments.program).resolve()), Path(path), arguments.entries)
        try:
            crashes = Crashes(folder)
            for extension in EXTENSIONS:
                crashes.kill_at_places(extension)
            crashes.tidy()
            for number in range(arguments.kills):
                crashes.kill_at_random(EXTENSIONS[number % len(EXTENSIONS)], arguments.chance)
            crashes.tidy()
        except Broken as error:
            print(error)
            return 1
    print(shown(crashes.outcomes))
    return 0


if __name__ == "__main__":
    sys.exit(main())
