#!/usr/bin/env python3
"""Holds that an error of the account database has its text in one place: the dialect's errors are
made in one file, what the engines have in common in another, and no text of an error stands twice
among the database's adapters."""
import pathlib
import re
import sys

# Folder -> the only file below it that makes errors of its own.
MAKERS = {"adapters/tsql": "adapters/tsql/language/errors.cpp",
          "adapters/database": "adapters/database/refusals.cpp"}
FOLDERS = ["adapters/tsql", "adapters/database", "adapters/sqlite", "adapters/odbc"]
# A text that goes on with what is known at run time may begin like another one.
SHORTEST = 12

ERROR = r"\b(?:DatabaseError|DatabaseBusy|ConnectionLost|CommitInDoubt)"
LITERALS = r'((?:"(?:[^"\\]|\\.)*"\s*)+)'
MADE = re.compile(ERROR + r"\s*[({]\s*(?!const\b|[)&])")
TEXT = re.compile(ERROR + r"\s*[({]\s*(?:std::string\()?" + LITERALS)
COMMENT = re.compile(r"//[^\n]*")


def texts_of(source):
    for match in TEXT.finditer(source):
        yield "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', match.group(1)))


def problems_of(files):
    """`files`: texts by path."""
    places = {}
    for path, source in sorted(files.items()):
        source = COMMENT.sub("", source)
        for folder, maker in MAKERS.items():
            if path.startswith(folder + "/") and path != maker and MADE.search(source):
                yield f"{path}: makes an error of its own; {maker} does"
        for text in texts_of(source):
            places.setdefault(text, []).append(path)
    for text, paths in places.items():
        if len(paths) > 1 and len(text) > SHORTEST:
            yield f"{', '.join(paths)}: the same error: {text}"


def main():
    root = pathlib.Path(sys.argv[1])
    files = {str(path.relative_to(root)): path.read_text(encoding="utf-8")
             for folder in FOLDERS for path in (root / folder).rglob("*")
             if path.suffix in (".h", ".cpp")}
    for maker in MAKERS.values():
        if not list(texts_of(files[maker])):
            sys.exit(f"no error found in {maker}: nothing was checked")
    # The check itself must be able to fail.
    made = 'void F() {\n    throw DatabaseError("The row is not there.", 7);\n}\n'
    assert len(list(problems_of({"adapters/odbc/a.cpp": made, "adapters/sqlite/b.cpp": made}))) == 1
    assert list(problems_of({"adapters/tsql/values/a.cpp": made}))
    assert not list(problems_of({"adapters/tsql/a.h": "DatabaseError F();\n", "adapters/tsql/a.cpp":
                                 "try {\n} catch (const DatabaseError& e) {\n    throw e;\n}\n"}))
    found = list(problems_of(files))
    print("\n".join(found) or f"{len(files)} files: every error's text stands once")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
