#!/usr/bin/env python3
"""Holds that what is delivered is built so that a fault in it is hard to use, and does not tell where
it was built.

  check_hardening.py SOURCE_FOLDER BUILD_FOLDER PROGRAM LIBRARY...

A LIBRARY is an archive, or a module (.so) that the program loads.
"""
import platform
import re
import subprocess
import sys
import tempfile
from pathlib import Path

WEAK = ["-O2", "-no-pie", "-fno-stack-protector", "-U_FORTIFY_SOURCE", "-fcf-protection=none", "-g",
        "-Wl,-z,norelro", "-Wl,-z,lazy", "-Wl,-z,execstack"]
WEAK_SOURCE = """#include <cstdio>
#include <cstring>
int main(int count, char** texts) {
    char copy[64];
    std::strcpy(copy, texts[count - 1]);
    return std::puts(copy) + std::puts(__FILE__);
}
"""


def read(binary, *options):
    return subprocess.run(["readelf", "-W", *options, binary], check=True, capture_output=True,
                          text=True).stdout


def problems_of_loaded(binary, is_program):
    segments, entries = read(binary, "-l"), read(binary, "-d")
    functions = read(binary, "--dyn-syms")
    stack = re.search(r"GNU_STACK.*?(R.*?) +0x", segments)
    if "GNU_RELRO" not in segments:
        yield "relocated data can be written to (no GNU_RELRO)"
    if not re.search(r"BIND_NOW|FLAGS_1.*\bNOW\b", entries):
        yield "functions are bound while it runs (no BIND_NOW)"
    if is_program and not re.search(r"FLAGS_1.*\bPIE\b", entries):
        yield "it always lies at the same address (no PIE)"
    if not stack or "E" in stack[1]:
        yield "its stack can hold code (GNU_STACK)"
    if "__stack_chk_fail" not in functions:
        yield "its stack is not guarded (no __stack_chk_fail)"
    # A module of C++ alone may have no buffer that a function is given.
    if is_program and not re.search(r"__\w+_chk@", functions):
        yield "the sizes of buffers are not looked at (no __..._chk)"


def problems_of_objects(binary):
    """What the program itself shows depends on the distribution's start-up code, too; so the objects
    are asked whether all of them can take part in the processor's checks of jumps and returns."""
    text = read(binary, "-n")
    # One part for each member of an archive.
    members = re.split(r"^File: ", text, flags=re.MULTILINE)[1:] or [text]
    weak = sum(not re.search(r"x86 feature: IBT, SHSTK", member) for member in members)
    if weak:
        yield f"{weak} of {len(members)} objects let jumps end anywhere (no IBT and SHSTK)"


def problems_of_paths(binary, folders):
    content = Path(binary).read_bytes()
    for folder in folders:
        found = content.count(str(folder).encode() + b"/")
        if found:
            yield f"{found} times the path of {folder}"


def problems_of(program, libraries, folders):
    for binary in [program, *libraries]:
        kinds = [problems_of_paths(binary, folders)]
        if binary == program or Path(binary).suffix == ".so":
            kinds.append(problems_of_loaded(binary, binary == program))
        elif platform.machine() == "x86_64":
            kinds.append(problems_of_objects(binary))
        for kind in kinds:
            for problem in kind:
                yield f"{Path(binary).name}: {problem}"


def check_itself():
    """Everything is told of a program that is built without any of it."""
    with tempfile.TemporaryDirectory() as folder:
        source, program, module, library = (
            Path(folder) / name for name in ("weak.cpp", "weak", "weak.so", "weak.o"))
        source.write_text(WEAK_SOURCE, encoding="utf-8")
        subprocess.run(["c++", *WEAK, source, "-o", program], check=True)
        subprocess.run(["c++", *WEAK, "-shared", "-fPIC", source, "-o", module], check=True)
        subprocess.run(["c++", *WEAK, "-c", source, "-o", library], check=True)
        found = list(problems_of(program, [module, library], [Path(folder)]))
        expected = 7 + 5 + 1 + (platform.machine() == "x86_64")
        assert len(found) == expected, "\n".join(found)


def main():
    source, build, program, *libraries = sys.argv[1:]
    if not libraries:
        sys.exit(__doc__)
    if platform.machine() == "x86_64":
        check_itself()
    found = list(problems_of(program, libraries, [Path(source), Path(build)]))
    print("\n".join(found) or f"the program and {len(libraries)} libraries are hardened")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
