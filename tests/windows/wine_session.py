"""Windows programs under Wine, for the tests: their paths, their runs, and what their scripts report.

Runs inside scripts/with-wine, which gives the prefix, the display and the locale.
"""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

RUN_SECONDS = 600
# Where the system's own programs of the width that is tried are: system32 has Wine's own, syswow64
# the 32-bit ones.
SYSTEM = "C:\\windows\\" + os.environ.get("KELVANE_SYSTEM", "system32") + "\\"
HERE = Path(__file__).resolve().parent


def windows_path(path):
    """The path of a file of this system as Windows programs see it."""
    return "Z:" + str(Path(path).resolve()).replace("/", "\\")


def keep(picture, name):
    """Keeps a picture for people to look at, where KELVANE_PICTURES names a folder."""
    folder = os.environ.get("KELVANE_PICTURES")
    if folder:
        Path(folder).mkdir(parents=True, exist_ok=True)
        shutil.copy(picture, Path(folder, name))


def run(*command, seconds=RUN_SECONDS, environment=None, commands=""):
    """Runs a Windows program on an input; its exit status and output in the completed process."""
    if not Path(os.environ["WINEPREFIX"], "drive_c", "kelvane-throwaway-prefix").exists():
        raise RuntimeError("this is no prefix of scripts/with-wine")
    # In files: what Wine begins for a program and keeps afterwards, its desktop above all, would keep
    # a pipe open.
    with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
        result = subprocess.run(["wine", *map(str, command)], input=commands.encode("utf-8"),
                                stdout=output, stderr=errors, check=False, timeout=seconds,
                                env={**os.environ, **(environment or {})})
        output.seek(0)
        errors.seek(0)
        result.stdout, result.stderr = output.read(), errors.read()
        return result


def register(library):
    """Registers a COM server; its exit status."""
    return run(SYSTEM + "regsvr32.exe", "/s", windows_path(library)).returncode


def register_all(*libraries):
    """Registers COM servers that a test cannot do without."""
    for library in libraries:
        if register(library) != 0:
            raise AssertionError(f"{library} did not register")


def run_script(script, *arguments, seconds=RUN_SECONDS, environment=None):
    """Runs a script of VBScript or JScript and returns the lines it reported.

    The script's first argument is the file it writes them to: what it echoes would have to fit the
    console's code page. A script that fails ends silently, so the lines may be fewer than expected.
    """
    with tempfile.TemporaryDirectory() as folder:
        report = Path(folder, "report.txt")
        result = run(SYSTEM + "cscript.exe", "//nologo", windows_path(script), windows_path(report), *arguments,
                     seconds=seconds, environment=environment)
        text = report.read_bytes().decode("utf-16") if report.exists() else ""
        lines = text.splitlines()
        if not lines:
            lines.append(f"(no report; status {result.returncode}; {result.stderr[-2000:]!r})")
        return lines


def run_driven(script, *arguments, operator_script, seconds=RUN_SECONDS, picture=None):
    """Runs a host's script while an operator script works its windows.

    Returns the host's report and the operator script's transcript, in lines. With a picture's name,
    the screenshot of the run is kept under it.
    """
    with tempfile.TemporaryDirectory() as folder:
        commands, transcript, screen = (Path(folder, name) for name in
                                        ("operator.script", "transcript.txt", "screen.png"))
        commands.write_text(operator_script, encoding="utf-8")
        environment = {"KELVANE_DRIVE": windows_path(commands),
                       "KELVANE_TRANSCRIPT": windows_path(transcript)}
        if picture:
            environment["KELVANE_SCREENSHOT"] = windows_path(screen)
        report = run_script(script, *arguments, seconds=seconds, environment=environment)
        if screen.exists():
            keep(screen, picture)
        return report, (transcript.read_text(encoding="utf-8").splitlines()
                        if transcript.exists() else [])
