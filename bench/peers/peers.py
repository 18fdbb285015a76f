#!/usr/bin/env python3
"""Starts each program on the same entries, watches its window, and prints one table of what was seen.
Called by "compare" in a layer where programs can be installed."""
import argparse
import os
import signal
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import contents
import programs
from display import HEIGHT, WIDTH, Display, NothingSeen

PAGES = 10
QUIET_AFTER_OPENING, QUIET_AFTER_PAGE = 1.0, 0.3  # seconds
LONGEST_OPENING, LONGEST_PAGE = 120, 20
MARK = "KELVANE_PEER"


class Samples:
    """The account of one size, which the files of all programs are made of."""

    def __init__(self, program, folder, entries):
        self.program, self.folder, self.entries = program, folder, entries
        self.account = folder / "entries.kelvane"
        contents.make_account(program, self.account, entries)


class Running:
    """A started program with whatever it starts itself."""

    def __init__(self, command, environment):
        self.mark = f"{MARK}={time.monotonic_ns()}"
        name, value = self.mark.split("=")
        self.process = subprocess.Popen([str(word) for word in command], env={**environment, name: value},
                                        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)

    def processes(self):
        for folder in Path("/proc").glob("[0-9]*"):
            try:
                if self.mark.encode() in (folder / "environ").read_bytes().split(b"\0"):
                    yield folder
            except OSError:
                continue

    def is_running(self):
        return self.process.poll() is None

    def memory(self):
        """Megabytes: its own part of what it shares with others, and all that it has."""
        totals = {"Pss": 0, "Rss": 0}
        for folder in self.processes():
            for line in (folder / "smaps_rollup").read_text().splitlines():
                name, _, rest = line.partition(":")
                if name in totals:
                    totals[name] += int(rest.split()[0])
        return [totals[name] / 1024 for name in ("Pss", "Rss")]

    def end(self):
        while left := list(self.processes()):
            for folder in left:
                try:
                    os.kill(int(folder.name), signal.SIGKILL)
                except ProcessLookupError:
                    pass
            self.process.wait()
            time.sleep(0.02)


def measure(program, file, samples, picture):
    """Seconds to the first rows, of a page further, and megabytes, of one start."""
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as folder:
        folder = Path(folder)
        home = folder / "home"
        home.mkdir()
        (folder / "display").mkdir()
        own = programs.fresh_copy(file, folder / "file")
        display = Display(folder / "display")
        environment = {**display.environment, "HOME": str(home), "GSETTINGS_BACKEND": "keyfile",
                       "NO_AT_BRIDGE": "1", "GDK_BACKEND": "x11", "SAL_USE_VCLPLUGIN": "gtk3"}
        command = program.start(own, home, samples)
        start = time.perf_counter()
        running = Running(command, environment)
        try:
            rows = display.await_rows(start, QUIET_AFTER_OPENING, LONGEST_OPENING, running.is_running)
            memory = running.memory()
            for key in program.first_keys:
                display.do(f"key {key}")
                time.sleep(0.5)
            display.do(f"mousemove {WIDTH // 3} {HEIGHT // 2} click 1")
            time.sleep(0.5)
            pages = []
            for _ in range(PAGES):
                before = display.picture()
                pressed = time.perf_counter()
                display.do(f"key {program.forward}")
                pages.append(display.await_change(pressed, QUIET_AFTER_PAGE, LONGEST_PAGE,
                                                  running.is_running, before))
            return [rows, statistics.median(pages), *memory]
        finally:
            display.save(picture)
            running.end()
            display.close()


def report(program, samples, options):
    """The row of one program, medians of all runs."""
    file = program.make(samples)
    runs = []
    # The first start is the disk's.
    for run in range(options.runs + 1):
        picture = Path(os.environ["KEPT"]) / f"{program.name}-{samples.entries}.png"
        found = measure(program, file, samples, picture)
        runs += [found] if run else []
    rows, page, pss, rss = (statistics.median(values) for values in zip(*runs))
    return (f"| {program.title:<24} | {samples.entries:>8,} | {rows * 1e3:>13,.0f} | {page * 1e3:>18.0f} "
            f"| {pss:>7.0f} | {rss:>7.0f} |")


def main():
    reader = argparse.ArgumentParser(prog="compare")
    reader.add_argument("--program", type=Path, required=True)
    reader.add_argument("--runs", type=int, default=3)
    reader.add_argument("--entries", default="10000,100000")
    reader.add_argument("names", nargs="*")
    options = reader.parse_args()
    unknown = set(options.names) - {program.name for program in programs.ALL}
    if unknown:
        reader.error(f"unknown: {', '.join(sorted(unknown))}")
    asked = [each for each in programs.ALL if not options.names or each.name in options.names]

    subprocess.run(["apt-get", "update", "-qq"], stdout=subprocess.DEVNULL)
    present, failed = [], False
    for program in asked:
        if programs.install(program, os.environ["KEPT"]):
            present.append(program)
        else:
            print(f"SKIPPED: {program.title} cannot be installed", file=sys.stderr)
    print(f"| {'program':<24} | {'entries':>8} | first rows, ms | a page further, ms | PSS, MB | RSS, MB |\n"
          f"|{'-' * 26}|---------:|--------------:|-------------------:|--------:|--------:|", flush=True)
    for entries in map(int, options.entries.split(",")):
        with tempfile.TemporaryDirectory() as folder:
            samples = Samples(options.program, Path(folder), entries)
            for program in present:
                try:
                    print(report(program, samples, options), flush=True)
                except NothingSeen as reason:
                    print(f"{program.title}, {entries}: no rows seen, {reason}", flush=True)
                    failed = True
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
