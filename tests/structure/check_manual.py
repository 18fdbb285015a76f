#!/usr/bin/env python3
"""Holds that the manual page has the program's commands and options, all of them and no others, and
that it can be set without a warning.

  check_manual.py PAGE PROGRAM
"""
import re
import subprocess
import sys

OPTION = re.compile(r"(?<![\w-])(--?[a-z][a-z-]*)")
ANYWHERE = {"-h", "--help", "--version"}


def help_of(program, *command):
    return subprocess.run([program, *command, "--help"], check=True, capture_output=True,
                          text=True).stdout


def program_options(program):
    """Command -> its options; "" holds the program's own."""
    text = help_of(program)
    commands = re.findall(r"^  (\w+) {2,}", text.partition("Commands:")[2], re.MULTILINE)
    assert commands, text
    options = {"": set(OPTION.findall("\n".join(re.findall(r"^  +(-.*?)(?:  |$)", text,
                                                           re.MULTILINE))))}
    for command in commands:
        starts = re.findall(r"^ +(-\S+)", help_of(program, command), re.MULTILINE)
        options[command] = {option for start in starts for option in start.split(",")}
        assert options[command] >= {"-h", "--help", "--database"}, options
    return options


def page_options(page):
    """The same of the page; "" holds the options of every command."""
    options, section, command, is_tag = {}, "", "", False
    for line in page.replace("\\-", "-").splitlines():
        if line.startswith(".SH "):
            section, command = line[4:], ""
        elif line.startswith(".SS "):
            command = line[4:]
            options[command] = set()
        elif is_tag and (command or section == "OPTIONS OF EVERY COMMAND"):
            options.setdefault(command, set()).update(OPTION.findall(line))
        is_tag = line == ".TP"
    return options


def problems_of(page, options):
    told = page_options(page)
    common = set.intersection(*(options[command] for command in options if command))
    wanted = {command: own - common for command, own in options.items()}
    wanted[""] = options[""] | common
    for command in sorted(set(told) | set(wanted)):
        have, want = told.get(command, set()), wanted.get(command, set())
        for option in sorted(want - have):
            yield f"the manual does not have {command} {option}"
        for option in sorted(have - want):
            yield f"the program does not have {command} {option}"
        if command and command not in wanted:
            yield f"the program does not have {command}"


def main():
    path, program = sys.argv[1:]
    with open(path, encoding="utf-8") as file:
        page = file.read()
    options = program_options(program)
    found = list(problems_of(page, options))
    # The check itself must be able to fail.
    assert list(problems_of(page.replace("\\-\\-screenshot", "\\-\\-picture", 1), options))
    assert len(list(problems_of(page.replace(".SS export", ".SS import"), options))) > 2
    warnings = subprocess.run(["groff", "-man", "-Tutf8", "-ww", "-z", path], check=True,
                              capture_output=True, text=True).stderr
    found += warnings.splitlines()
    print("\n".join(found) or f"the manual has the options of {len(options) - 1} commands")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
