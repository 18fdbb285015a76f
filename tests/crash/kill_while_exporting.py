#!/usr/bin/env python3
"""Kills the program while it writes a list to a file, and looks at what is left.

The file has to be the old one, to the byte, or a whole new one, whenever the kill comes. What a
killed program left beside the file is gone when the next one has written to the same folder.
"""

import argparse
import csv
import os
import random
import subprocess
import sys
import tempfile
import threading
import time
import xml.etree.ElementTree
import zipfile
from collections import Counter
from pathlib import Path

OLD = b"what was there before\n"
EXTENSIONS = ("xlsx", "csv", "pdf", "xml")
TIMEOUT_SECONDS = 120
# Chance may let every kill miss the writing; so many times the kills asked for, at most.
FURTHER_KILLS = 20


class Broken(Exception):
    """A file is neither the old one nor a whole new one."""


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

    def export(self, extension, kill_after=None):
        """Writes the list; with `kill_after`, until so many seconds after the file was begun.
        Returns how long it took from there."""
        known = set(self.drafts())
        process = subprocess.Popen(self.command("export", self.account, "--to",
                                                self.target(extension)),
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   env=self.environment)
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


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True, help="the program kelvane")
    parser.add_argument("--kills", type=int, default=20)
    parser.add_argument("--entries", type=int, default=20000)
    parser.add_argument("--seed", type=int, default=None)
    arguments = parser.parse_args()
    seed = arguments.seed if arguments.seed is not None else random.randrange(1 << 32)
    print(f"seed {seed}")
    chance = random.Random(seed)
    outcomes = Counter()
    with tempfile.TemporaryDirectory(prefix="kelvane-crash-") as path:
        folder = Folder(str(Path(arguments.program).resolve()), Path(path), arguments.entries)
        run_times, sizes = {}, {}
        try:
            for extension in EXTENSIONS:
                run_times[extension] = folder.export(extension)
                sizes[extension] = SIZES[extension](folder.target(extension))
                print(f"{extension}: {sizes[extension]} in {run_times[extension]:.2f} s")
            kills = 0
            while kills < arguments.kills or (
                    min(outcomes["old"], outcomes["with a draft"]) == 0
                    and kills < arguments.kills * FURTHER_KILLS):
                extension = EXTENSIONS[kills % len(EXTENSIONS)]
                kills += 1
                target = folder.target(extension)
                target.write_bytes(OLD)
                folder.export(extension, chance.uniform(0, 1.1 * run_times[extension]))
                if target.read_bytes() == OLD:
                    outcomes["old"] += 1
                elif SIZES[extension](target) == sizes[extension]:
                    outcomes["new"] += 1
                else:
                    raise Broken(f"{target.name} is not whole")
                outcomes["with a draft"] += bool(folder.drafts())
                if len(folder.drafts()) > 1:
                    raise Broken(f"drafts of earlier runs: {folder.drafts()}")
            folder.export("csv")
            if folder.drafts():
                raise Broken(f"left behind: {folder.drafts()}")
        except Broken as error:
            print(error)
            return 1
    print(", ".join(f"{name} {count}" for name, count in sorted(outcomes.items())))
    if min(outcomes["old"], outcomes["with a draft"]) == 0:
        print("no kill hit the writing: nothing was tested")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
