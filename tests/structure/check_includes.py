#!/usr/bin/env python3
"""Holds the include rules: which folder may include which, and who may see a product's headers."""
import pathlib
import re
import subprocess
import sys

LIBRARY = ["platform", "controls", "data", "entries", "ui", "component"]

# Folder -> folders that its files may include, beside itself. A folder named here stands for itself
# alone; "NAME/*" stands for it with everything below it.
ALLOWED = {
    "platform": [],
    "controls": ["platform"],
    "data": ["platform"],
    "entries": ["platform", "data"],
    "entries/bulk": ["platform", "data", "entries"],
    "entries/check": ["platform", "data", "entries", "entries/summary"],
    "entries/summary": ["platform", "data", "entries"],
    "entries/ledger": ["platform", "data", "entries", "entries/bulk", "entries/summary"],
    "ui/common": ["platform", "controls", "data", "entries"],
    "ui/find": ["platform", "controls", "data", "entries", "ui/common"],
    "ui/import": ["platform", "controls", "data", "entries", "entries/bulk", "ui/common"],
    "ui/check": ["platform", "controls", "data", "entries", "entries/check", "ui/common"],
    "ui/summary": ["platform", "controls", "data", "entries", "entries/bulk", "entries/ledger",
                   "entries/summary", "ui/common"],
    "ui/detail_editor": ["platform", "controls", "data", "entries", "ui/common"],
    "ui/entry_list": ["platform", "controls", "data", "entries", "ui/common"],
    "ui": ["ui/*"],
    "component": ["platform", "controls", "data", "entries", "ui/*"],
    "adapters/tsql/language": ["platform"],
    "adapters/tsql/values": ["platform", "adapters/tsql/language"],
    "adapters/tsql": ["platform", "adapters/tsql/language", "adapters/tsql/values"],
    "adapters/tsql/sqlite": ["platform", "adapters/tsql", "adapters/tsql/language",
                             "adapters/tsql/values"],
    "adapters/tsql/postgres": ["platform", "adapters/tsql", "adapters/tsql/language",
                               "adapters/tsql/values"],
    "adapters/database": ["platform", "adapters/tsql/*"],
    "adapters/sqlite": ["platform", "adapters/database", "adapters/tsql/*"],
    "adapters/odbc": ["platform", "adapters/database", "adapters/tsql/*"],
    "adapters/drive": ["platform", "controls"],
    "adapters/headless": ["platform", "controls", "adapters/drive"],
    "adapters/reference": ["platform", "controls"],
    "adapters/output/files": ["platform"],
    "adapters/output/layout": ["platform"],
    "adapters/output/formats": ["platform", "adapters/output/files", "adapters/output/layout"],
    "adapters/output/style": ["platform", "controls", "adapters/output/formats",
                              "adapters/output/layout"],
    "adapters/output": ["platform", "controls", "adapters/output/*"],
    "adapters/tables": ["platform"],
    "adapters/journal": ["platform", "adapters/output/files"],
    "adapters/desktop": ["platform", "controls", "adapters/drive"],
    "adapters/com": ["platform"],
    # Nothing outside includes the host.
    "host/surroundings": ["*"],
    "host/account": ["*", "host/surroundings"],
    "host/sample": ["*", "host/account"],
    "host/creation": ["*", "host/account", "host/sample", "host/surroundings"],
    "host/bulk": ["*", "host/account", "host/surroundings"],
    "host/ledger": ["*", "host/account", "host/bulk", "host/surroundings"],
    "host/commands": ["*", "host/account", "host/bulk", "host/creation", "host/ledger",
                      "host/surroundings"],
    "host/com_server": ["*", "host/surroundings"],
    "host": ["*", "host/commands"],
}

# Products whose headers only one folder may include.
PRODUCTS = {
    "sqlite3.h": ["adapters/sqlite"],
    "sql.h": ["adapters/odbc"],
    "sqlext.h": ["adapters/odbc"],
    "sqlucode.h": ["adapters/odbc"],
    "wx/": ["adapters/desktop"],
    "CLI/": ["host"],
    "gtk/": ["adapters/desktop"],
    "cairo": ["adapters/desktop", "adapters/output"],
    "gtk/": ["adapters/desktop"],
    "pango/": ["adapters/output"],
    "libxml/": ["adapters/output", "adapters/tables"],
    "minizip/": ["adapters/output", "adapters/tables"],
    "xlsxwriter": ["adapters/output"],
    "nlohmann/": ["adapters/journal", "host/bulk", "host/commands", "host/ledger"],
    "glib.h": ["adapters/journal"],
    "bcrypt.h": ["adapters/journal"],
    "ole": ["adapters/com"],
    "dispex.h": ["adapters/com"],
}

# Headers that the build makes.
GENERATED = ["kelvane_idl.h"]

STANDARD_HEADER = re.compile(r"^[a-z0-9_]+$")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


def folder_of(path):
    return str(pathlib.PurePosixPath(path).parent)


def is_below(folder, top):
    return folder == top or folder.startswith(top + "/")


def may_include(folder, target):
    if target == folder:
        return True
    for allowed in ALLOWED[folder]:
        if allowed == target or allowed.endswith("/*") and is_below(target, allowed[:-2]):
            return True
        if allowed == "*" and not is_below(target, "host"):
            return True
    return False


def problems_of(path, text):
    folder = folder_of(path)
    library = folder.split("/")[0] in LIBRARY
    for quote, name in INCLUDE.findall(text):
        for product, owners in PRODUCTS.items():
            if name.startswith(product) and not any(is_below(folder, owner) for owner in owners):
                yield f"{path}: {folder}/ may not include <{name}>"
        if quote == "<":
            if library and not STANDARD_HEADER.match(name):
                yield f"{path}: the library uses the standard library alone, not <{name}>"
            continue
        target = folder_of(name)
        if name in GENERATED or may_include(folder, target):
            continue
        if is_below(target, "host") and not is_below(folder, "host"):
            yield f"{path}: nothing includes host/"
        else:
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
    unknown = {folder_of(p) for p in checked} - set(ALLOWED)
    if unknown:
        sys.exit("\n".join(f"{folder}/: no include rule is known for it" for folder in sorted(unknown)))
    found = []
    for path in checked:
        found += problems_of(path, (root / path).read_text(encoding="utf-8"))
    # The check itself must be able to fail.
    assert list(problems_of("platform/a.h", '#include "ui/x.h"\n'))
    assert list(problems_of("data/a.h", "#include <sqlite3.h>\n"))
    assert list(problems_of("adapters/output/files/a.h", '#include "adapters/output/style/x.h"\n'))
    assert list(problems_of("adapters/drive/a.h", '#include "host/sample/x.h"\n'))
    assert not list(problems_of("ui/find/a.h", '#include "data/x.h"\n#include <string>\n'))
    assert not list(problems_of("component/a.h", '#include "ui/find/x.h"\n'))
    print("\n".join(found) or f"{len(checked)} files keep the include rules")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
