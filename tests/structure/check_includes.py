#!/usr/bin/env python3
"""Holds the include rules: which folder may include which, and who may see a product's headers."""
import pathlib
import re
import subprocess
import sys

LIBRARY = ["platform", "controls", "data", "ui", "component"]

# Folder -> folders that its files may include, beside itself.
ALLOWED = {
    "platform": [],
    "controls": ["platform"],
    "data": ["platform"],
    "ui": ["platform", "controls", "data"],
    "component": ["platform", "controls", "data", "ui"],
    "adapters/tsql": ["platform"],
    "adapters/sqlite": ["platform", "adapters/tsql"],
    "adapters/odbc": ["platform", "adapters/tsql"],
    "adapters/drive": ["platform", "controls"],
    "adapters/headless": ["platform", "controls", "adapters/drive"],
    "adapters/reference": ["platform", "controls"],
    "adapters/output": ["platform", "controls"],
    "adapters/desktop": ["platform", "controls", "adapters/drive"],
    "adapters/windows": ["platform"],
}

# Products whose headers only one folder may include.
PRODUCTS = {
    "sqlite3.h": ["adapters/sqlite"],
    "sql.h": ["adapters/odbc"],
    "sqlext.h": ["adapters/odbc"],
    "sqlucode.h": ["adapters/odbc"],
    "wx/": ["adapters/desktop"],
    "CLI/": ["host"],
    "cairo": ["adapters/desktop", "adapters/output"],
    "pango/": ["adapters/output"],
    "libxml/": ["adapters/output"],
    "minizip/": ["adapters/output"],
    "xlsxwriter": ["adapters/output"],
    "ole": ["adapters/windows"],
    "dispex.h": ["adapters/windows"],
}

STANDARD_HEADER = re.compile(r"^[a-z0-9_]+$")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


def folder_of(path):
    parts = pathlib.PurePosixPath(path).parts
    return "/".join(parts[:2]) if parts[0] == "adapters" else parts[0]


def problems_of(path, text):
    folder = folder_of(path)
    for quote, name in INCLUDE.findall(text):
        for product, owners in PRODUCTS.items():
            if name.startswith(product) and folder not in owners:
                yield f"{path}: {folder}/ may not include <{name}>"
        if quote == "<":
            if folder in LIBRARY and not STANDARD_HEADER.match(name):
                yield f"{path}: the library uses the standard library alone, not <{name}>"
            continue
        target = folder_of(name)
        if target == "host" and folder != "host":
            yield f"{path}: nothing includes host/"
        elif folder in ALLOWED and target != folder and target not in ALLOWED[folder]:
            yield f"{path}: {folder}/ may not include {target}/ ({name})"


def main():
    root = pathlib.Path(sys.argv[1])
    listed = subprocess.run(
        ["git", "-C", root, "ls-files", "--cached", "--others", "--exclude-standard", "*.h", "*.cpp",
         "*.inc"],
        check=True, capture_output=True, text=True).stdout.split()
    checked = [p for p in listed if p.split("/")[0] in LIBRARY + ["adapters", "host"]]
    if not checked:
        sys.exit("no source found: the rules were not checked")
    unknown = {folder_of(p) for p in checked} - set(ALLOWED) - {"host"}
    found = [f"{folder}/: no include rule is known for it" for folder in sorted(unknown)]
    for path in checked:
        found += problems_of(path, (root / path).read_text(encoding="utf-8"))
    # The check itself must be able to fail.
    assert list(problems_of("platform/a.h", '#include "ui/x.h"\n'))
    assert list(problems_of("data/a.h", "#include <sqlite3.h>\n"))
    assert not list(problems_of("ui/find/a.h", '#include "data/x.h"\n#include <string>\n'))
    print("\n".join(found) or f"{len(checked)} files keep the include rules")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
