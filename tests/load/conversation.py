"""A driven program that is spoken with: commands go in, what they caused comes back."""

import os
import subprocess


# What is told of a row that was saved nevertheless.
SAVED = ("该行在打开后被他人修改，已按当前内容保存", "与他人同时保存，金额合计已超出项目预算",
         "当前行已经保存，但")


class Died(Exception):
    """The program ended in the middle of a conversation."""


class Answer:
    """What some commands caused: the transcript without the echoes, and the window behind it."""

    def __init__(self, lines, window):
        self.lines = lines
        self.window = window["window"]
        self.notice = window["notice"].strip('"')
        self.cell = window["cell"]

    @property
    def refused(self):
        return any(line.startswith("refused") for line in self.lines)

    @property
    def boxes(self):
        """Message boxes; a question that was answered is none."""
        return [line for line in self.lines if line.startswith("[") and " -> " not in line]

    @property
    def succeeded(self):
        return not self.refused and (not self.notice or self.notice.startswith(SAVED))


class Conversation:
    def __init__(self, program, account):
        self.process = subprocess.Popen(
            [program, "drive", *account.words], encoding="utf-8", stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, env={**os.environ, **account.environment})

    def say(self, *commands):
        """Returns when the program has done all of them."""
        try:
            self.process.stdin.write("\n".join([*commands, "print window", ""]))
            self.process.stdin.flush()
        except BrokenPipeError as broken:
            raise Died() from broken
        lines = []
        for line in self.process.stdout:
            line = line.rstrip("\n")
            if line == "> print window":
                break
            if not line.startswith(">"):
                lines.append(line)
        else:
            raise Died(lines)
        window = {}
        for line in self.process.stdout:
            word, _, rest = line.rstrip("\n").partition(" ")
            window[word] = rest
            if word == "edit":
                return Answer(lines, window)
        raise Died(lines)

    def open_list(self):
        """Returns the identities of the list's rows from top to bottom."""
        answer = self.say("init", "show", "print grid")
        rows = [line.split(" ", 2) for line in answer.lines]
        return [int(words[1]) for words in rows
                if len(words) == 3 and words[0].isdigit() and words[0] != "0"]

    def close(self):
        try:
            self.process.stdin.write("close\n")
            self.process.stdin.close()
        except BrokenPipeError:
            pass
        left = self.process.stdout.read()
        self.process.wait()
        return left
