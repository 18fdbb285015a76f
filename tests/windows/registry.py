"""The component's entries in the registry of a Wine prefix."""

import tempfile
from pathlib import Path

import wine_session

CLASS = r"CLSID\{F6C9E0AF-AEAA-44B1-BEA8-6CDAED9F258E}"
INTERFACE = r"Interface\{84A6480C-FDBE-4739-9CCE-DE672ADA1250}"
LIBRARY = r"TypeLib\{E49CAAC1-ABE0-4416-A631-7CA3E70D39E9}"
COMPONENT_KEYS = ["Kelvane.PeriodItem", CLASS, INTERFACE, LIBRARY]


def classes(branch):
    """A branch's classes: by key in small letters, the texts by name ("@" is the key's own)."""
    with tempfile.TemporaryDirectory() as folder:
        exported = Path(folder, "classes.reg")
        wine_session.run("reg", "export", f"{branch}\\Software\\Classes",
                         wine_session.windows_path(exported), "/y")
        keys, current = {}, {}
        for line in exported.read_bytes().decode("utf-16").splitlines():
            if line.startswith("["):
                key = line.strip("[]").lower().split("software\\classes")[-1].lstrip("\\")
                current = keys.setdefault(key, {})
            elif "=" in line:
                name, text = line.split("=", 1)
                current[name.strip('"')] = text.strip('"').replace("\\\\", "\\")
        return keys
