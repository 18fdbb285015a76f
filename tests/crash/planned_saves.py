"""What a process is told to save before it is killed, and what it said of it until then."""

import os
import subprocess
import threading
import time

from killing import Broken
from materials import item_code

ITEMS = 300
# Entries whose lines are changed; their many lines make a save long enough to be hit.
CHANGED = {101: 250, 102: 120, 103: 40}
SAVES_OF_A_PROCESS = 14


class Save:
    """One save: the entry's digest, its lines afterwards, and the command that leaves its row."""

    def __init__(self, digest, lines):
        self.digest = digest
        self.lines = lines
        self.leave = None


class Plan:
    """What one process is told to do."""

    def __init__(self, chance, state, rows, row_count, first_new, may_add):
        self.commands = []
        self.saves = []
        state = dict(state)
        for turn in range(SAVES_OF_A_PROCESS):
            if may_add and chance.random() < 0.35:
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

    def __init__(self, program, account, *options):
        self.killed_at = None
        self.process = subprocess.Popen([program, "drive", *account.words, *options], encoding="utf-8",
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

    def kill(self):
        self.killed_at = time.monotonic()
        self.process.kill()

    def kill_after(self, seconds):
        timer = threading.Timer(seconds, self.kill)
        timer.start()
        return timer

    def begin(self, commands):
        """Says them and leaves it waiting for more."""
        self.process.stdin.write("\n".join(commands) + "\n")
        self.process.stdin.flush()

    def rest(self):
        """What it still says when nothing more is said to it."""
        return self.follow([])

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
